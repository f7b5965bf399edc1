#pragma once

#include <cstddef>
#include <string>

#include "browse/frmWoerter.h"

/// What the controls of the browser's window do. Each is a command: failures are reported, and it returns
/// whether nothing failed. While a modal operation of the browser runs they do nothing.
namespace browse {

/// A row of the list became the selected one: the entry is shown, and the search term marked in its note.
bool List2_Click(frmWoerter& form, int row);
bool List2_DblClick(frmWoerter& form);
enum class ListKey { enter, remove };
/// Enter edits the selected entry, Delete deletes it.
bool List2_KeyDown(frmWoerter& form, ListKey key);
/// The search box was typed into.
bool Text3_Change(frmWoerter& form, const std::string& text);
/// The paging buttons: 0 back, 1 forward.
bool Command1(frmWoerter& form, int index);
/// A button of the letter bar, from 0.
bool letterButton(frmWoerter& form, std::size_t index);
bool allLettersButton(frmWoerter& form);

/// Mouse messages that the relay buttons tell apart.
enum class MouseMessage { leftDown = 513, rightDown = 516, rightUp = 517 };
/// The relay of the toolbar and the entry menu: left carries out EntryAction, right makes a new main entry,
/// right released relinks.
bool Command3(frmWoerter& form, MouseMessage message);
/// The relay of the dialogs that jump: goes to CurrentEntryId and shows it.
bool Command6(frmWoerter& form);
/// The print button: the selected entry alone. Does nothing until printEntry is set.
bool printButton(frmWoerter& form);
/// Shows the relinking dialog for the selected entry, and the list as it is afterwards.
bool RelinkEntry(frmWoerter& form);

/// An item of the entry menu or of the list's pop-up menu mnuPopUpEditAddDelete, by its name; false for one
/// that is neither.
bool entryMenu(frmWoerter& form, const std::string& item);
/// A button of the frame's toolbar that works on the active browser: 2 and 8 to 11; false for another.
bool toolbarButton(frmWoerter& form, int index);

}  // namespace browse
