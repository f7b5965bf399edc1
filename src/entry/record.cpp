#include "entry/record.h"

#include "base/datetime.h"
#include "shell/session/routines.h"
#include "store/rows.h"

namespace entry {
namespace {

constexpr std::int64_t historyLimit = 1000;

std::uint8_t byteOf(const engine::Value& value) {
  if (value.isNull()) return 0;
  const std::int64_t number = value.asInteger();
  if (number < 0 || number > 255) throw base::Error(engine::errors::overflow, "The number is too large.");
  return static_cast<std::uint8_t>(number);
}

const char* asSql(bool value) {
  return value ? "-1" : "0";
}

}  // namespace

void ReadFromDB_TabWoerterbuch(session::Session& s, STWOERTERBUCH& record, std::int64_t lWortID) {
  auto row = s.files.CurrentDB.OpenRecordset("select * from woerterbuch where id_woerterbuch = " +
                                             std::to_string(lWortID));
  STWOERTERBUCH read;
  read.ID_Woerterbuch = row["ID_Woerterbuch"].asInteger();
  read.ID_Woerterbuch1 = store::numberOf(row["ID_Woerterbuch1"]);
  read.Begriff = row["Begriff"].textOrEmpty();
  read.SortBegriff = row["SortBegriff"].textOrEmpty();
  read.PraefixBegriff = row["PraefixBegriff"].textOrEmpty();
  read.MetaSuche = row["MetaSuche"].textOrEmpty();
  read.Ebene = byteOf(row["Ebene"]);
  if (s.project.ProjectType == 1) read.Aussprache = row["Aussprache"].textOrEmpty();
  read.Bemerkung = row["Bemerkung"].textOrEmpty();
  read.Unterbegriff = store::truth(row["Unterbegriff"]);
  read.Klang = row["Klang"].textOrEmpty();
  read.Prioritaet = byteOf(row["Prioritaet"]);
  read.Bild = row["Bild"].textOrEmpty();
  if (const auto created = row["DateTimeStamp"]; !created.isNull()) read.DateTimeStamp = created.asDate();
  read.DatabaseName = row["DatabaseName"].textOrEmpty();
  read.InBearbeitung = store::truth(row["InBearbeitung"]);
  read.DateTimeStampLastChange = row["DateTimeStampLastChange"].textOrEmpty();
  record = std::move(read);
}

void WriteToDB_TabWoerterbuch(session::Session& s, STWOERTERBUCH& record, std::int64_t lWortID) {
  // A row from an import may have no name of a file, and the column takes no empty text.
  if (record.DatabaseName.empty()) record.DatabaseName = s.files.CurrentDBPath;
  session::EscapeSQLText(record.Bemerkung);
  session::EscapeSQLText(record.Begriff);
  session::EscapeSQLText(record.Aussprache);
  record.DateTimeStampLastChange = base::DateTime::now().stamp();

  std::string sql = "UPDATE  woerterbuch";
  sql += " SET bemerkung = '" + record.Bemerkung + "'";
  sql += ", id_woerterbuch1 = '" + std::to_string(record.ID_Woerterbuch1) + "'";
  sql += ", begriff = '" + record.Begriff + "'";
  if (s.project.ProjectType == 1) sql += ", aussprache = '" + record.Aussprache + "'";
  sql += ", ebene = '" + std::to_string(record.Ebene) + "'";
  sql += std::string(", unterbegriff = '") + asSql(record.Unterbegriff) + "'";
  sql += ", prioritaet = '" + std::to_string(record.Prioritaet) + "'";
  sql += ", datetimestamplastchange = '" + record.DateTimeStampLastChange + "'";
  sql += ", databasename = '" + session::escapedSQLText(record.DatabaseName) + "'";
  sql += std::string(", inbearbeitung = '") + asSql(record.InBearbeitung) + "'";
  sql += " Where id_woerterbuch = " + std::to_string(lWortID);
  s.files.CurrentDB.Execute(sql);
  s.entry.CurrentBegriff = record.Begriff;
}

void HistorieEintragen(session::Session& s, std::int64_t lWortID) {
  const bool created = s.entry.EntryEditMode == 1 || s.entry.EntryEditMode == 2;
  auto rows =
      s.files.CurrentDB.OpenRecordset(created ? "NewHistory" : "ChangeHistory", engine::RecordsetKind::table);
  if (!rows.EndOfFile()) {
    rows.MoveLast();
    if (rows.RecordCount() > historyLimit) {
      rows.MoveFirst();
      rows.Delete();
    }
  }
  rows.AddNew();
  rows.set("ID_Woerterbuch", lWortID);
  if (!created) rows.set("DateLastChange", base::DateTime::now());
  rows.Update();
}

}  // namespace entry
