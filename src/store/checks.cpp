#include "store/checks.h"

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/schema.h"
#include "store/upgrade.h"

namespace store {
namespace {

void storePath(session::Session& s, engine::Database& db, const std::string& path) {
  const std::string quoted = session::escapedSQLText(path);
  s.files.Workspace->BeginTrans();
  try {
    db.Execute("UPDATE  woerterbuch SET DatabaseName = '" + quoted + "'; ");
    db.Execute("UPDATE  wortbedeutung SET DatabaseName = '" + quoted + "'; ");
    engine::Recordset info = db.OpenRecordset("Info");
    info.Edit();
    info.set("DBPath", path);
    info.Update();
  } catch (...) {
    s.files.Workspace->Rollback();
    throw;
  }
  s.files.Workspace->CommitTrans();
}

/// Deletes the rows that the criterion finds.
void deleteFound(engine::Recordset rows, const std::string& criterion) {
  for (rows.FindFirst(criterion); !rows.NoMatch(); rows.FindNext(criterion)) rows.Delete();
}

void mendMainEntries(session::Session& s, engine::Database& db) {
  engine::Recordset rows =
      db.OpenRecordset(std::string("select * from woerterbuch where ") + wrongMainEntries);
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const std::string headword = rows["Begriff"].textOrEmpty();
    if (headword.empty()) continue;
    session::showBox(s,
                     headword + session::dialogText(s, dialog::wrongly_linked) +
                         session::dialogText(s, dialog::becomes_main_entry),
                     platform::box::exclamation);
    rows.Edit();
    rows.set("ID_Woerterbuch1", rows["ID_Woerterbuch"]);
    rows.set("Ebene", 1);
    rows.set("Unterbegriff", false);
    rows.Update();
  }
}

void tellIfAny(session::Session& s, engine::Database& db, const std::string& condition, int message) {
  if (!db.OpenRecordset("select * from woerterbuch where " + condition).EndOfFile())
    session::showMessage(s, message, platform::box::exclamation);
}

}  // namespace

bool isCurrentVersion(const std::string& version) {
  return version <= currentVersion && version != "2012rV5" && version != "2012rV17";
}

bool PruefeProgrammVersion(session::Session& s, engine::Database& db) {
  const std::string& version = s.files.DBVersion;
  if (isCurrentVersion(version)) return true;
  if (!version.starts_with("2012")) {
    session::showMessage(s, dialog::made_by_later_version, platform::box::exclamation);
    return false;
  }
  const std::string question = session::dialogText(s, dialog::made_by_earlier_version) + " " +
                               session::dialogText(s, dialog::convert_now);
  if (session::showBox(s, question, platform::box::yesNoCancel, label::version_title) !=
      platform::box::answerYes) {
    session::showMessage(s, dialog::not_converted, platform::box::information);
    return false;
  }
  const session::Busy busy(s, session::labelText(s, label::converting_file));
  UpdateFrom2012rV17ToCurrentVersion(s, db);
  SetTableProperties(db);
  return true;
}

void CheckDBPath(session::Session& s, engine::Database& db, const std::string& path) {
  if (db.readOnly()) return;
  const std::string stored = db.OpenRecordset("Info")["DBPath"].textOrEmpty();
  if (base::upper(stored) == path) return;
  if (session::confirmed(s, dialog::file_was_moved, label::program_name)) storePath(s, db, path);
}

void ExecKorrekturen(session::Session& s) {
  engine::Database& db = s.files.CurrentDB;
  if (db.readOnly()) return;
  // Even the deletion of no row would make the file count as changed, and closing compact it.
  if (!db.OpenRecordset("Filterselektion1").EndOfFile()) db.Execute("delete * from Filterselektion1;");
  db.Execute("alter table woerterbuch alter column metasuche longtext;");
  mendMainEntries(s, db);
  tellIfAny(s, db, noSortKey, dialog::sort_terms_missing);
  tellIfAny(s, db, noSearchText, dialog::search_text_missing);
}

void CheckDatabase(session::Session& s) {
  engine::Database& db = s.files.CurrentDB;
  if (db.readOnly()) return;
  const session::Busy busy(s, session::labelText(s, label::checking_file));
  deleteFound(db.OpenRecordset("AllWordsOrderByBegriff"), levelZero);
  deleteFound(db.OpenRecordset("Select * from Wortbedeutung;"), noEntry);
}

}  // namespace store
