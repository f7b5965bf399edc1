#pragma once

#include <cstddef>
#include <string>

#include "browse/frmWoerter.h"

/// What the controls of the browser's window do. Each is a command: failures are reported, and it returns
/// whether nothing failed. While a modal operation of the browser runs they do nothing.
namespace browse {

/// A row of the list became the selected one: the entry is shown, and the search term marked in its note.
bool List2_Click(frmWoerter& form, int row);
/// The search box was typed into.
bool Text3_Change(frmWoerter& form, const std::string& text);
/// The paging buttons: 0 back, 1 forward.
bool Command1(frmWoerter& form, int index);
/// A button of the letter bar, from 0.
bool letterButton(frmWoerter& form, std::size_t index);
bool allLettersButton(frmWoerter& form);

/// The relay of the dialogs that jump: goes to CurrentEntryId and shows it.
bool Command6(frmWoerter& form);

// What the entry menu, its pop-up menu and the toolbar do with the selected entry.
bool mnuNewEntry(frmWoerter& form);
bool mnuNewSubEntry(frmWoerter& form);
bool mnuEditEntry(frmWoerter& form);
bool mnuDeleteEntry(frmWoerter& form);
/// Shows the relinking dialog, and the list as it is afterwards.
bool mnuRelinkEntry(frmWoerter& form);

}  // namespace browse
