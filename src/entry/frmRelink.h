#pragma once

#include <cstdint>
#include <string>

#include "engine/recordset.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The relinking dialog: moves the entry SelectedEntryId between the two levels of entry, below another main
/// entry or out from below one. Its operations are commands: they report failures and return whether all
/// went well; a refusal shows its message and counts as not done.
namespace entry {

struct frmRelink : platform::Form {
  explicit frmRelink(session::Session& s) : Form("frmRelink"), session(s) {}

  session::Session& session;
  std::string Text1;         ///< the search box over the targets
  std::string SQLTemp;       ///< statement of the list as it is narrowed
  engine::Recordset Adodc1;  ///< main entries of all open files, the possible targets
  bool targetSelected = false;
};

/// Lists all main entries; none is selected.
bool Form_Load(frmRelink& form);
/// Narrows the list to headwords that begin with the box's text (which may hold wildcards).
bool Text1_Change(frmRelink& form, const std::string& text);
/// Selects the row of a main entry in the list; false when the list does not show it.
bool selectTarget(frmRelink& form, std::int64_t lWortID);
/// Makes the entry a sub-entry of the selected target. Refused without a target (which can not be the entry
/// itself or lie in another file) and for an entry that has sub-entries.
bool Command1(frmRelink& form);
/// Makes a sub-entry a main entry.
bool Command3(frmRelink& form);
/// Closes the dialog; the browser reloads.
void Form_Unload(frmRelink& form);

}  // namespace entry
