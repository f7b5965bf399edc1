#pragma once

#include <cstdint>
#include <string>

#include "base/datetime.h"
#include "engine/recordset.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// Deletes the entries of a range of dates. Its operations are commands: they report failures and return
/// whether all went well.
namespace entry {

struct frmDeleteEntries : platform::Form {
  explicit frmDeleteEntries(session::Session& s) : Form("frmDeleteEntries"), session(s) {}

  session::Session& session;
  base::DateTime from, to;      ///< both inclusive
  bool byLastChange = false;    ///< Option1(1): the date of the last change, not of creation
  engine::Recordset DataGrid1;  ///< headwords of the range
  std::int64_t deleted = 0;     ///< by the last Command1
};

/// Sets both dates to now.
void Form_Load(frmDeleteEntries& form);
/// Lists the entries of the range.
bool Command4(frmDeleteEntries& form);
/// Deletes them with all that hangs on them, after a question (no counts as not done). Sub-entries outside
/// the range stay, without their main entry until the sort keys are rebuilt; so do references to what is
/// gone.
bool Command1(frmDeleteEntries& form);

}  // namespace entry
