#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/recordset.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The list of recent work: the entries that were created or changed, by age. Its operations are commands:
/// they report failures and return whether all went well.
namespace entry {

struct frmHistory : platform::Form {
  frmHistory(session::Session& s, bool isNew) : Form("frmHistory"), session(s), HistoryIsNew(isNew) {}

  session::Session& session;
  const bool HistoryIsNew;  ///< lists created entries, not changed ones
  std::vector<std::string> Combo1;
  std::string period;                ///< the item of Combo1 in force
  std::string caption;               ///< of the grid
  engine::Recordset Adodc1;          ///< latest first; it leaves out entries that are gone
  std::int64_t SelectedEntryId = 0;  ///< of the selected row, 0 for none
};

/// Lists all rows, and fills the periods to choose from: the first stands for all.
bool Form_Load(frmHistory& form);
/// Lists the rows of a period, by its text in Combo1; any other text lists all.
bool Combo1_Click(frmHistory& form, const std::string& period);
/// Lists the rows that are younger than so many days; 0, and 20000 or more, list all.
bool showLastDays(frmHistory& form, int days);
bool selectRow(frmHistory& form, std::int64_t row);
/// Makes the selected entry CurrentEntryId, for the browser to jump to it; false when none is selected.
bool Command1(frmHistory& form);
/// Empties the history on show, without a question.
bool Command4(frmHistory& form);

}  // namespace entry
