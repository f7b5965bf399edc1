#include "store/inverse.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

#include "base/datetime.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/close.h"
#include "store/create.h"
#include "store/dialogs.h"
#include "store/files.h"
#include "store/project.h"

namespace store {
namespace {

namespace fs = std::filesystem;

/// What happens to the target, in this order. %source%, %target% and %media% stand for paths, %now% for
/// the time.
constexpr const char* entriesAndMeanings[] = {
    " SELECT id_wortbedeutung, begriff, sortbegriff,databasename, aussprache, bemerkung, wortbedeutung INTO "
    "woertertemp FROM  ViewBegriffWortbedeutung  in '%source%'  WHERE wortbedeutung<>'';",
    "insert into woerterbuch(begriff,bemerkung)  select  woertertemp.wortbedeutung,woertertemp.bemerkung "
    "from "
    "  woertertemp",
    "insert into wortbedeutung(wortbedeutung)  select  woertertemp.begriff from   woertertemp",
    "UPDATE  woerterbuch SET id_woerterbuch1 = ID_Woerterbuch; ",
    "UPDATE  woerterbuch SET sortbegriff = begriff; ", "UPDATE  woerterbuch SET databasename = '%target%'; ",
    "UPDATE  woerterbuch SET ebene = 1; ", "UPDATE  woerterbuch SET unterbegriff=0; ",
    "UPDATE  woerterbuch SET prioritaet = 1; ", "UPDATE  woerterbuch SET Datetimestamp = '%now%'; ",
    // Both tables were filled in one order and count from 1.
    "UPDATE  wortbedeutung SET id_woerterbuch = ID_Wortbedeutung; ",
    "UPDATE  wortbedeutung SET databasename = '%target%'; "};

constexpr const char* settingsTables[] = {"sprache", "Umgebung", "Autor", "WZeit"};
constexpr const char* swappedLanguages[] = {
    "UPDATE  sprache SET uebersetzungvon = uebersetzungnach, uebersetzungnach = uebersetzungvon ;",
    "UPDATE  sprache SET audiopfad = '%media%';"};
constexpr const char* catalogueTables[] = {"wkategorie", "wsachgebiet", "StandardReports", "sprachen",
                                           "buchstaben", "kodierungen", "druckschriften"};

/// Rows of the source that go into a temporary table, the stored query that joins them to the target's
/// rows of the same text, and where what it finds goes.
struct Joined {
  const char *gathered, *query, *joined, *stored;
};
constexpr Joined joinedByText[] = {
    {"SELECT DISTINCTROW relWoertWKat.*, WKategorie.*, Woerterbuch.Begriff into WKategorietemp FROM "
     "WKategorie "
     "INNER JOIN (Woerterbuch INNER JOIN relWoertWKat ON Woerterbuch.ID_Woerterbuch = "
     "relWoertWKat.ID_Woerterbuch) ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie  IN '%source%' ",
     "WKategorietemp1",
     "SELECT DISTINCTROW Wortbedeutung.*,  WKategorietemp.* From Wortbedeutung, WKategorietemp where "
     "Wortbedeutung.wortbedeutung = WKategorietemp.begriff;",
     "insert into relwortbedwkat(id_wortbedeutung,id_wkategorie, KategorieWert)  select "
     "wortbedeutung.id_wortbedeutung,wkategorie_id_wkategorie, KategorieWert  from wkategorietemp1;"},
    {"SELECT DISTINCTROW relWoertSachgebiet.*, WSachgebiet.*, Woerterbuch.Begriff into WSachgebiettemp FROM "
     "WSachgebiet INNER JOIN (Woerterbuch INNER JOIN relWoertSachgebiet ON Woerterbuch.ID_Woerterbuch = "
     "relWoertSachgebiet.ID_Woerterbuch) ON WSachgebiet.ID_Sachgebiet = relWoertSachgebiet.ID_WSachgebiet  "
     "IN '%source%' ",
     "WSachgebiettemp1",
     "SELECT DISTINCTROW Wortbedeutung.*,  WSachgebiettemp.* From Wortbedeutung, WSachgebiettemp where "
     "Wortbedeutung.wortbedeutung = WSachgebiettemp.begriff;",
     "insert into relwortbedSachgebiet(id_wortbedeutung,id_Sachgebiet)  select "
     "wortbedeutung.id_wortbedeutung,id_wSachgebiet  from wSachgebiettemp1;"},
    {"SELECT DISTINCTROW relWortbedWKat.*, WKategorie.*, Wortbedeutung.Wortbedeutung into WortbedWKatTemp "
     "FROM WKategorie INNER JOIN (Wortbedeutung INNER JOIN relWortbedWKat ON Wortbedeutung.ID_Wortbedeutung "
     "= "
     "relWortbedWKat.ID_Wortbedeutung) ON WKategorie.ID_WKategorie = relWortbedWKat.ID_WKategorie  IN "
     "'%source%' ",
     "WortbedWKatTemp1",
     "SELECT DISTINCTROW Woerterbuch.*,  WortbedWKatTemp.* From Woerterbuch, WortbedWKatTemp where "
     "Woerterbuch.begriff = WortbedWKatTemp.wortbedeutung;",
     "insert into relwoertwkat(id_woerterbuch,id_wkategorie, KategorieWert)  select "
     "woerterbuch.id_woerterbuch,relwortbedwkat_id_wkategorie, KategorieWert  from WortbedWKatTemp1;"},
    {"SELECT DISTINCTROW relWortbedSachgebiet.*, WSachgebiet.*, Wortbedeutung.Wortbedeutung into "
     "WortbedSachgebiettemp FROM WSachgebiet INNER JOIN (Wortbedeutung INNER JOIN relWortbedSachgebiet ON "
     "Wortbedeutung.ID_Wortbedeutung = relWortbedSachgebiet.ID_Wortbedeutung) ON WSachgebiet.ID_Sachgebiet = "
     "relWortbedSachgebiet.ID_Sachgebiet  IN '%source%' ",
     "WortbedSachgebietTemp1",
     "SELECT DISTINCTROW Woerterbuch.*,  WortbedSachgebiettemp.* From Woerterbuch, WortbedSachgebiettemp "
     "where "
     "Woerterbuch.begriff = WortbedSachgebiettemp.wortbedeutung;",
     "insert into relwoertSachgebiet(id_Woerterbuch,id_wsachgebiet)  select "
     "woerterbuch.id_Woerterbuch,relwortbedsachgebiet_id_sachgebiet  from wortbedsachgebiettemp1;"},
    // An entry and its meaning bear the same number here, so that the entry's stands for the meaning's.
    {"SELECT DISTINCTROW Wortbedeutung.Wortbedeutung, WortBedBsp.Beispiel,WortBedBsp.Beispieluebersetzung "
     "into "
     "WortbedBspTemp FROM Wortbedeutung INNER JOIN WortBedBsp ON Wortbedeutung.ID_Wortbedeutung = "
     "WortBedBsp.ID_Wortbedeutung  IN '%source%' ",
     "WortbedBsptemp1",
     "SELECT DISTINCTROW woerterbuch.id_woerterbuch,Beispiel,Beispieluebersetzung From Woerterbuch, "
     "WortbedBsptemp where Woerterbuch.begriff = Wortbedbsptemp.Wortbedeutung;",
     "insert into WortbedBsp(id_wortbedeutung,Beispieluebersetzung,Beispiel)  select "
     "woerterbuch.id_woerterbuch,Beispiel,Beispieluebersetzung from wortbedbsptemp1;"}};

constexpr const char* dropped[] = {"woertertemp",           "wkategorietemp",  "wortbedbsptemp",
                                   "wortbedsachgebiettemp", "wortbedwkattemp", "wsachgebiettemp"};

/// Swaps the print fonts of what changes places.
std::string swapFonts() {
  std::string assignments;
  for (const auto& [one, other] :
       {std::pair{"Objekt", "Bedeutung"}, std::pair{"Beispiel", "Beispieluebersetzung"}})
    for (const char* column : {"Schriftart", "Schriftgroesse", "SchriftFett", "SchriftKursiv",
                               "SchriftUnterstrichen", "SchriftFarbe"}) {
      const std::string a = std::string(one) + column, b = std::string(other) + column;
      assignments += (assignments.empty() ? "" : ", ") + a + " = " + b + ", " + b + " = " + a;
    }
  return "UPDATE  druckschriften SET " + assignments + ";";
}

std::string copyTable(const std::string& table) {
  return " insert into " + table + " SELECT " + table + ".*  FROM  " + table + " in '%source%'; ";
}

/// Runs statements on the target with their places filled in.
class Target {
 public:
  Target(session::Session& s, const std::string& source)
      : session_(s),
        places_{{{"%source%", session::escapedSQLText(s.files.paths.real(source).string())},
                 {"%target%", session::escapedSQLText(s.files.CurrentDBPath)},
                 {"%media%", session::escapedSQLText(mediaFolder(s, s.files.CurrentDBPath).string() + "/")},
                 {"%now%", base::formatDate(base::DateTime::now(), "dd.mm.yyyy hh:mm:ss")}}} {}

  void run(std::string statement) {
    for (const auto& [place, value] : places_)
      if (const auto at = statement.find(place); at != std::string::npos)
        statement.replace(at, place.size(), value);
    session_.files.CurrentDB.Execute(statement);
    session::turnLoop(session_);
  }

 private:
  session::Session& session_;
  std::array<std::pair<std::string_view, std::string>, 4> places_;
};

/// The source as the user names it; nothing when the open dictionary shall stay open.
std::string chosenSource(session::Session& s) {
  if (s.files.OpenDBCount == 0)
    return sessionPath(s, session::askOpenFile(s, openDialog(s, label::open_file_title)).path);
  const std::string source = s.files.CurrentDBPath;
  return closedAfterQuestion(s, dialog::inverse_question, label::program_name) ? source : "";
}

/// Deletes the files of a folder, not what lies in its sub-folders.
void emptyFolder(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    if (!entry.is_directory()) files.push_back(entry.path());
  for (const fs::path& file : files) {
    std::error_code failed;
    fs::remove(file, failed);
    if (failed) throw session::fileError(failed, file.string());
  }
}

void createTarget(session::Session& s, const std::string& target) {
  const bool replaced = fs::exists(s.files.paths.real(target));
  deleteDictionaryFile(s, target);
  const fs::path folder = mediaFolder(s, target);
  s.files.NewDBMadeFolder = !fs::exists(folder);
  // The folder of a dictionary that was not there holds nothing of it: its files are left alone.
  if (replaced && fs::is_directory(folder)) emptyFolder(folder);
  CheckIfDBDirExists(s, target);
  NewLocalDB(s, target);
}

}  // namespace

void InverseVocariumSQLs(session::Session& s, const std::string& source) {
  Target target(s, source);
  DropTempTables(s.files.CurrentDB);
  for (const char* statement : entriesAndMeanings) target.run(statement);
  for (const char* table : settingsTables) target.run(copyTable(table));
  for (const char* statement : swappedLanguages) target.run(statement);
  for (const char* table : catalogueTables) target.run(copyTable(table));
  target.run(swapFonts());
  for (const Joined& each : joinedByText) {
    target.run(each.gathered);
    s.files.CurrentDB.CreateQueryDef(each.query, each.joined);
    target.run(each.stored);
  }
  for (const char* table : dropped) target.run("drop table [" + std::string(table) + "];");
  DropTempTables(s.files.CurrentDB);  // the queries over them
}

bool InverseTranslation(session::Session& s) {
  const std::string source = chosenSource(s);
  if (source.empty()) return false;
  const std::string target = sessionPath(s, withExtension(session::askSaveFile(s, saveDialog(s)).path));
  // Told before anything of the target is touched: it would be the source itself, or share its media.
  if (base::withoutExtension4(source) == base::withoutExtension4(target)) {
    session::showMessage(s, dialog::same_name_refused, platform::box::exclamation, label::program_name);
    return false;
  }
  {
    const session::Busy busy(s, session::labelText(s, label::inverting));
    // A source that can not be read must not cost the target.
    engine::Database opened =
        s.files.Workspace->OpenDatabase(s.files.paths.real(source).string(), false, true);
    opened.OpenRecordset("Select * from ViewBegriffWortbedeutung where id_woerterbuch = 0;");
    createTarget(s, target);
    try {
      InverseVocariumSQLs(s, source);
      LoadProjectSettings(s);
      session::commitGathered(s);
    } catch (...) {
      opened.Close();
      discardNewDictionary(s);
      throw;
    }
  }
  session::showBox(s, session::dialogText(s, dialog::inverse_ready) + "! " + target,
                   platform::box::exclamation);
  CloseCurrentDB(s);
  return true;
}

}  // namespace store
