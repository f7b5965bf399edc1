#include "store/reference.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "shell/session/start.h"

namespace store {
namespace {

/// The system database, open through a second workspace.
class SystemDatabase {
 public:
  explicit SystemDatabase(session::Session& s)
      : workspace_(session::securedLogin(s)),
        db_(workspace_.OpenDatabase(s.files.paths.real(s.folders.SystemDBPath).string(), false, true)) {}

  engine::Recordset rows(const std::string& source) {
    return db_.OpenRecordset(source, engine::RecordsetKind::snapshot);
  }

 private:
  engine::Workspace workspace_;
  engine::Database db_;
};

struct Column {
  std::string source, target;
};

/// Adds each row of a source to a table of the dictionary.
template <class EachRow>
void copyRows(engine::Recordset from, engine::Recordset to, const std::vector<Column>& columns,
              EachRow eachRow) {
  std::vector<std::pair<std::size_t, std::size_t>> fields;
  for (const Column& column : columns)
    fields.emplace_back(from.field(column.source), to.field(column.target));
  for (; !from.EndOfFile(); from.MoveNext()) {
    to.AddNew();
    for (const auto& [source, target] : fields) to.set(target, from.value(source));
    to.Update();
    eachRow();
  }
}

void copyRows(engine::Recordset from, engine::Recordset to, const std::vector<Column>& columns) {
  copyRows(std::move(from), std::move(to), columns, [] {});
}

bool wantsGerman(session::Session& s) {
  engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
  return row.EndOfFile() || row["Anwendungssprache"].asBoolean();
}

void addNamed(engine::Recordset& rows, const std::string& field, const std::string& name) {
  rows.AddNew();
  rows.set(field, name);
  rows.Update();
}

}  // namespace

void ImportStandardEigenschaftenundSachgebiete(session::Session& s) {
  engine::Recordset properties = s.files.CurrentDB.OpenRecordset("WKategorie");
  engine::Recordset subjects = s.files.CurrentDB.OpenRecordset("WSachgebiet");
  if (s.project.ProjectType == 2) {
    // Their abbreviation is Null, since the column refuses the empty text.
    addNamed(properties, "Kategorie", session::labelText(s, label::starter_property));
    addNamed(properties, "Kategorie", session::labelText(s, label::starter_property_2));
    addNamed(subjects, "Sachgebiet", session::labelText(s, label::starter_subject));
    return;
  }
  const std::string suffix = wantsGerman(s) ? "" : "Englisch";
  SystemDatabase system(s);
  copyRows(system.rows("WKategorie" + suffix), std::move(properties),
           {{"Kategorie", "Kategorie"}, {"Abkuerzung", "Abkuerzung"}});
  copyRows(system.rows("WSachgebiet" + suffix), std::move(subjects),
           {{"Sachgebiet", "Sachgebiet"}, {"Abkuerzung", "Abkuerzung"}});
}

void ImportStandardSprachen(session::Session& s) {
  SystemDatabase system(s);
  copyRows(system.rows(wantsGerman(s) ? "Standardsprachen" : "StandardsprachenEnglisch"),
           s.files.CurrentDB.OpenRecordset("Sprachen"), {{"Sprache", "Sprache"}, {"Flagge", "Flagge"}});
}

void ImportStandardKodierungen(session::Session& s, engine::Database& db) {
  SystemDatabase system(s);
  copyRows(system.rows("StandardKodierungen"), db.OpenRecordset("Kodierungen"),
           {{"Code", "Code"}, {"Codebeschreibung", "Codebeschreibung"}});
}

void ImportWZeit(session::Session& s, engine::Database& db) {
  engine::Recordset target = db.OpenRecordset("WZeit");
  std::vector<Column> columns;
  for (const engine::FieldInfo& field : target.Fields()) columns.push_back({field.name, field.name});
  for (Column& column : columns) {
    if (column.target == "day_of_week_abbr") column.source = "day_of_week_abbreviation";
    if (column.target == "month_name_abbr") column.source = "month_name_abbreviation";
  }
  SystemDatabase system(s);
  copyRows(system.rows("WZeit"), std::move(target), columns, [&] { session::turnLoop(s); });
}

void ImportStandardReports(session::Session& s) {
  SystemDatabase system(s);
  copyRows(system.rows("Standardreports"), s.files.CurrentDB.OpenRecordset("StandardReports"),
           {{"Objekt", "Objekt"}, {"Eigenschaft", "Eigenschaft"}, {"Eigenschaftswert", "Eigenschaftswert"}});
}

void FillDefaultEnvironment(engine::Database& db) {
  static constexpr std::array<const char*, 14> fileTypes{"JPG", "BMP", "GIF", "TIF", "WMF", "WMA", "WAV",
                                                         "MP3", "MPG", "AVI", "MOV", "MP2", "MP4", "MID"};
  engine::Recordset rows = db.OpenRecordset("Umgebung");
  for (const char* type : fileTypes) {
    rows.AddNew();
    rows.set("Dateityp", type);
    rows.set("Anwendung", "xdg-open");
    rows.Update();
  }
}

void LoadDefaultPrintFonts(session::Session& s) {
  struct Kind {
    const char* kind;
    std::string font;
    int size;
    bool bold, italic;
  };
  const std::string &from = s.project.FontFrom, &to = s.project.FontTo;
  const std::array<Kind, 10> kinds{{{"Objekt", from, 10, true, false},
                                    {"Aussprache", s.project.PhoneticFont, 10, false, true},
                                    {"Bedeutung", to, 10, false, false},
                                    {"Eigenschaft", "Arial", 8, false, true},
                                    {"Sachgebiet", "Arial", 8, false, true},
                                    {"Beispiel", from, 9, true, true},
                                    {"Beispieluebersetzung", to, 9, false, false},
                                    {"Bemerkung", s.project.FontRemark, 9, false, false},
                                    {"URL", "Arial", 8, false, false},
                                    {"Querverweis", "Arial", 8, false, false}}};
  engine::Database& db = s.files.CurrentDB;
  db.Execute("delete * from Druckschriften; ");
  engine::Recordset row = db.OpenRecordset("Druckschriften");
  row.AddNew();
  for (const Kind& kind : kinds) {
    const std::string prefix = std::string(kind.kind) + "Schrift";
    row.set(prefix + "art", kind.font);
    row.set(prefix + "groesse", kind.size);
    row.set(prefix + "Fett", kind.bold);
    row.set(prefix + "Kursiv", kind.italic);
    row.set(prefix + "Unterstrichen", false);
    row.set(prefix + "Farbe", "0");  // black, as red + 256 green + 65536 blue
  }
  row.Update();
}

PhoneticCharacters readPhoneticCharacters(session::Session& s) {
  SystemDatabase system(s);
  engine::Recordset row = system.rows("select * from Lautschriften");
  if (row.EndOfFile()) return {};
  return {row["LautschriftZeichenIpaPhon"].textOrEmpty(),
          row["LautschriftZeichenArialUnicode"].textOrEmpty()};
}

}  // namespace store
