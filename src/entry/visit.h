#pragma once

#include <cstdint>
#include <string>

#include "entry/frmEintrag.h"

/// Steps of a visit of the editor that its commands share; they throw.
namespace entry {

/// Binds the navigator as the mode and the letter in force ask.
void bindNavigator(frmEintrag& form);
/// Shows the commands and boxes of the mode.
void applyMode(frmEintrag& form);
/// Adds a new row and shows it; an empty headword becomes the usual one. `mainId` is its main entry, 0 when
/// that is not known yet; it stands in the record alone, the row keeps Null until it is saved.
void makeStub(frmEintrag& form, const std::string& headword, std::int64_t mainId);
/// Reads and shows an existing entry as the current one.
void readEntry(frmEintrag& form, std::int64_t id);

}  // namespace entry
