#include "base/datetime.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/settings.h"
#include "store/close.h"
#include "store/frmBackup.h"

namespace frame {
namespace {

constexpr int backupDays = 15;

/// Whether the last backup lies more than 15 days back. A text that is no date counts as none.
bool backupIsDue(session::Session& s) {
  engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
  if (row.EndOfFile()) return false;
  const std::string stored = base::trim(row["LastDBSave"].textOrEmpty());
  const auto saved = base::DateTime::fromText(stored);
  return saved && base::DateTime::now().date().plusDays(-backupDays) > saved->date();
}

void storeBackupDate(session::Session& s) {
  if (s.files.CurrentDB.readOnly()) return;
  engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
  row.Edit();
  row.set("LastDBSave", base::DateTime::now().stamp().substr(0, 10));
  row.Update();
}

void backUp(session::Session& s) {
  storeBackupDate(s);
  store::frmBackup form(s);
  Form_Load(form);
  s.desk.boxes.showModal(form);
}

}  // namespace

bool mnuExit(frmMDI& form) {
  session::Session& s = form.session;
  const auto step = [&](auto&& operation) { session::guard(s, "frmMDI", operation); };
  if (s.files.DBOpen) {
    int answer = platform::box::answerNo;
    step([&] {
      if (backupIsDue(s)) answer = session::showMessage(s, dialog::backup_overdue, platform::box::yesNo);
    });
    if (answer != platform::box::answerYes && answer != platform::box::answerNo) return false;
    if (answer == platform::box::answerYes) step([&] { backUp(s); });
  }
  step([&] { session::WriteIniFile(s); });
  // The program ends whatever fails here; what failed was told.
  if (s.files.DBOpen || !s.files.CurrentDBPath.empty()) step([&] { store::CloseCurrentDB(s); });
  session::CloseAllForms(s);
  form.unloaded = true;
  return true;
}

}  // namespace frame
