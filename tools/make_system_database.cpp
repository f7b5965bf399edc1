// make-system-database DATA FOLDER: writes the system database corvasys.cvb and the workgroup file Sys.mda
// into FOLDER from the tables of DATA (data/ of the source tree).
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "calendar.h"
#include "catalogue.h"
#include "engine/workspace.h"
#include "tsv.h"

namespace {

namespace fs = std::filesystem;

/// A column of a made table and the column of the file it comes from.
struct Column {
  const char* name;
  const char* type;
  const char* source;
};

/// A table made of a file of data/reference, with a counter in front.
struct Made {
  const char* table;
  const char* key;
  const char* file;
  std::vector<Column> columns;
};

const std::vector<Made>& madeTables() {
  static const std::vector<Made> tables = {
      {"Standardsprachen",
       "ID_Sprache",
       "languages",
       {{"Sprache", "TEXT(255)", "German"}, {"Flagge", "TEXT(255)", "flag"}}},
      {"StandardsprachenEnglisch",
       "ID_Sprache",
       "languages",
       {{"Sprache", "TEXT(255)", "English"}, {"Flagge", "TEXT(255)", "flag"}}},
      {"StandardKodierungen",
       "ID_Code",
       "encodings",
       {{"Code", "TEXT(15)", "code"}, {"Codebeschreibung", "TEXT(50)", "description"}}},
      {"WKategorie",
       "ID_WKategorie",
       "properties",
       {{"Kategorie", "TEXT(50)", "German"}, {"Abkuerzung", "TEXT(15)", "German abbreviation"}}},
      {"WKategorieEnglisch",
       "ID_WKategorie",
       "properties",
       {{"Kategorie", "TEXT(50)", "English"}, {"Abkuerzung", "TEXT(15)", "English abbreviation"}}},
      {"WSachgebiet",
       "ID_Sachgebiet",
       "subjects",
       {{"Sachgebiet", "TEXT(50)", "German"}, {"Abkuerzung", "TEXT(15)", "German abbreviation"}}},
      {"WSachgebietEnglisch",
       "ID_Sachgebiet",
       "subjects",
       {{"Sachgebiet", "TEXT(50)", "English"}, {"Abkuerzung", "TEXT(15)", "English abbreviation"}}},
      {"Lautschriften",
       "ID_Lautschrift",
       "phonetic_characters",
       {{"LautschriftZeichenIpaPhon", "LONGTEXT", "LautschriftZeichenIpaPhon"},
        {"LautschriftZeichenArialUnicode", "LONGTEXT", "LautschriftZeichenArialUnicode"}}},
      {"Standardreports",
       "ID_StandardReports",
       "report_attributes",
       {{"Objekt", "TEXT(50)", "Objekt"},
        {"Eigenschaft", "TEXT(50)", "Eigenschaft"},
        {"Eigenschaftswert", "LONG", "Eigenschaftswert"}}},
      {"Autor",
       "ID_Autor",
       "author",
       {{"Autorname", "TEXT(255)", "Autorname"},
        {"Copyright", "TEXT(255)", "Copyright"},
        {"AutorWebURL", "TEXT(255)", "AutorWebURL"},
        {"AutorEMail", "TEXT(255)", "AutorEMail"}}},
  };
  return tables;
}

/// An empty field is Null: the columns refuse the empty text.
engine::Value valueOf(const std::string& text) {
  return text.empty() ? engine::Value() : engine::Value(text);
}

void makeTable(engine::Database& db, const Made& made, const std::string& folder) {
  const tsv::Table source = tsv::read(folder + "/" + made.file + ".tsv");
  std::string statement = std::string("CREATE TABLE [") + made.table + "] ([" + made.key + "] COUNTER";
  std::vector<std::size_t> from;
  for (const Column& column : made.columns) {
    statement += std::string(",[") + column.name + "] " + column.type;
    const auto at = std::find(source.columns.begin(), source.columns.end(), column.source);
    if (at == source.columns.end()) tsv::fail(source.path, 1, std::string("has no column ") + column.source);
    from.push_back(static_cast<std::size_t>(at - source.columns.begin()));
  }
  db.Execute(statement + ")");
  db.Execute(std::string("CREATE UNIQUE INDEX [PrimaryKey] ON [") + made.table + "] ([" + made.key +
             "]) WITH PRIMARY");
  engine::Recordset rows = db.OpenRecordset(made.table, engine::RecordsetKind::table);
  for (const tsv::Row& row : source.rows) {
    rows.AddNew();
    for (std::size_t n = 0; n < from.size(); ++n)
      rows.set(made.columns[n].name, valueOf(row.fields[from[n]]));
    try {
      rows.Update();
    } catch (const base::Error& error) {
      tsv::fail(source.path, row.line, error.text());
    }
  }
}

/// A table of texts: a row a position, those that nothing names with Null texts.
void makeTexts(engine::Database& db, const catalogue::Kind& kind, const std::string& folder) {
  const std::string german = kind.bilingual ? "BeschriftungDtsch" : "DrucktextDtsch";
  db.Execute(std::string("CREATE TABLE [") + kind.table + "] ([ID] COUNTER,[" + german + "] TEXT(255)" +
             (kind.bilingual ? ",[BeschriftungEngl] TEXT(255))" : ")"));
  db.Execute(std::string("CREATE UNIQUE INDEX [PrimaryKey] ON [") + kind.table + "] ([ID]) WITH PRIMARY");
  engine::Recordset rows = db.OpenRecordset(kind.table, engine::RecordsetKind::table);
  for (const catalogue::Text& text : catalogue::read(folder, kind.name)) {
    rows.AddNew();
    rows.set(german, valueOf(text.german));
    if (kind.bilingual) rows.set("BeschriftungEngl", valueOf(text.english));
    rows.Update();
  }
}

void fill(engine::Workspace& workspace, engine::Database& db, const std::string& data) {
  workspace.BeginTrans();
  for (const catalogue::Kind& kind : catalogue::kinds) makeTexts(db, kind, data + "/catalogue");
  for (const Made& made : madeTables()) makeTable(db, made, data + "/reference");
  // Languages that the author adds in the wizard.
  db.Execute("CREATE TABLE [Sprachen] ([ID_Sprache] COUNTER,[Sprache] TEXT(255),[Flagge] TEXT(255))");
  calendar::makeTable(db);
  workspace.CommitTrans();
}

/// Both files are made aside and put in place when they are whole, so that a failure leaves the old ones.
void make(const std::string& data, const fs::path& folder) {
  const fs::path aside = folder / "making";
  fs::remove_all(aside);
  fs::create_directories(aside);
  const std::string workgroup = (aside / "Sys.mda").string();
  engine::createWorkgroupFile(workgroup, "CorvantaAdmin", "LarksMoor");
  {
    engine::Workspace workspace({"Corvanta", "CorvantaAdmin", "LarksMoor", workgroup});
    engine::Database db =
        workspace.CreateDatabase((aside / "corvasys.cvb").string(), ";LANGID=0x0409;CP=1252;COUNTRY=0", 2);
    fill(workspace, db, data);
    db.Close();
  }
  for (const char* name : {"corvasys.cvb", "Sys.mda"}) fs::rename(aside / name, folder / name);
  fs::remove_all(aside);
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: make-system-database DATA FOLDER\n";
    return 2;
  }
  make(argv[1], argv[2]);
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
