#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "browse/frmWoerter.h"
#include "cli/application.h"
#include "entry/frmEintrag.h"

/// What the commands on entries share: they select in the browser and work in its editor, as a user does.
namespace cli {

/// Values of the session's EntryAction.
enum Action { newSubEntry = 0, deleteEntry = 1, editEntry = 3, newMainEntry = 4 };

[[noreturn]] void failed(const std::string& text);
/// Ends a command whose operation has reported what went wrong.
void required(bool done);

browse::frmWoerter& browser(Application& app);
/// Selects an entry in the browser's list; a sub-entry below its opened main entry.
void select(Application& app, std::int64_t id);
/// Runs a browser command; `deeds` is what the user does in the editor that it shows. What they throw closes
/// the editor without saving.
bool inEditor(Application& app, int action, const std::function<void(entry::frmEintrag&)>& deeds);
/// Saves and closes the editor.
void save(entry::frmEintrag& form);

/// The row of a meaning in the editor. Throws when the entry has none of this number.
std::size_t meaningRow(entry::frmEintrag& form, std::int64_t id);
/// The row of the meaning that was added last: the one with the highest number.
std::size_t newestMeaning(entry::frmEintrag& form);

}  // namespace cli
