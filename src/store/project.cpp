#include "store/project.h"

#include "shell/session/routines.h"
#include "store/locale.h"
#include "store/rows.h"

namespace store {
namespace {

std::string flagOf(engine::Database& db, const std::string& language) {
  if (language.empty()) return "";
  engine::Recordset row = db.OpenRecordset("select Flagge from Sprachen where Sprache = '" +
                                           session::escapedSQLText(language) + "'");
  return row.EndOfFile() ? "" : row["Flagge"].textOrEmpty();
}

}  // namespace

void LoadProjectSettings(session::Session& s) {
  engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
  if (row.EndOfFile()) return;
  session::Project& project = s.project;
  if (!row["ProjektTyp"].isNull()) project.ProjectType = static_cast<int>(row["ProjektTyp"].asInteger());
  project.UseAbbreviations = truth(row["VerwendungAbkuerzungen"]);
  project.PhoneticFont = row["Lautschrift"].textOrEmpty();
  project.FontFrom = row["SchriftVon"].textOrEmpty();
  project.FontTo = row["SchriftNach"].textOrEmpty();
  project.FontRemark = row["SchriftBemerkung"].textOrEmpty();
  project.IgnoreAtSort = row["IgnoreAtSort"].textOrEmpty();
  DefSortOrder(s, row["Sortierreihenfolge"].textOrEmpty());
}

void RefreshProjectBar(session::Session& s) {
  session::ProjectBar& bar = s.shell.projectBar;
  bar = {};
  engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
  if (row.EndOfFile()) return;
  bar.visible = true;
  bar.from = row["UebersetzungVon"].textOrEmpty();
  bar.to = row["UebersetzungNach"].textOrEmpty();
  bar.description = row["Kurzbeschreibung"].textOrEmpty();
  bar.flagFrom = flagOf(s.files.CurrentDB, bar.from);
  bar.flagTo = flagOf(s.files.CurrentDB, bar.to);
}

}  // namespace store
