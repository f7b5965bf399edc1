#include "store/open.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/checks.h"
#include "store/close.h"
#include "store/files.h"
#include "store/project.h"

namespace store {
namespace {

engine::Database openFile(session::Session& s, const std::string& path, bool readOnly) {
  s.files.Workspace->Idle();  // a file can not be attached amid gathered writes
  return s.files.Workspace->OpenDatabase(s.files.paths.real(path).string(), false, readOnly);
}

void select(session::Session& s, const std::string& path) {
  std::vector<std::string>& list = s.files.dictionaryList;
  auto found =
      std::ranges::find_if(list, [&](const auto& each) { return base::trim(each) == base::trim(path); });
  if (found == list.end()) {
    list.clear();
    list.push_back(path);
    found = list.begin();
  }
  s.files.selectedDictionary = static_cast<int>(found - list.begin());
}

std::string readVersion(engine::Database& db) {
  engine::Recordset info = db.OpenRecordset("Info");
  return info.EndOfFile() ? "" : info["Version"].textOrEmpty();
}

int projectType(engine::Database& db) {
  engine::Recordset row = db.OpenRecordset("Sprache");
  return row.EndOfFile() || row["ProjektTyp"].isNull() ? 1 : static_cast<int>(row["ProjektTyp"].asInteger());
}

void showAsOpen(session::Session& s) {
  session::CloseAllForms(s);
  s.shell.caption = session::labelText(s, label::program_name) + ": " +
                    session::labelText(s, label::the_dictionary) + " (" + s.files.CurrentDBPath + ")";
  s.desk.screen.setCaption(s.shell.caption);
  s.shell.dictionaryMenus = true;
  s.files.DBOpen = true;
}

bool openCurrent(session::Session& s, bool readOnly) {
  session::Files& files = s.files;
  const session::Busy busy(s, session::labelText(s, label::opening_dictionary));
  select(s, files.CurrentDBPath);
  files.CurrentDB = openFile(s, files.CurrentDBPath, readOnly);
  files.ReadOnlyMode = readOnly || files.CurrentDB.readOnly();
  if (!files.ReadOnlyMode)
    CheckIfDBDirExists(s, files.CurrentDBPath);
  else
    files.DictFolder = "/" + base::withoutExtension4(files.CurrentDBPath);
  files.OpenDBCount = 1;
  files.DBVersion = readVersion(files.CurrentDB);
  if (!PruefeProgrammVersion(s, files.CurrentDB)) return false;
  CheckDBPath(s, files.CurrentDB, files.CurrentDBPath);
  s.project.ProjectType = projectType(files.CurrentDB);
  ExecKorrekturen(s);
  showAsOpen(s);
  LoadProjectSettings(s);
  s.shell.configLoaded = true;
  CheckDatabase(s);
  return true;
}

}  // namespace

bool openDictionary(session::Session& s, const std::string& path, bool readOnly) {
  s.files.CurrentDBPath = sessionPath(s, path);
  try {
    if (openCurrent(s, readOnly)) return true;
  } catch (...) {
    s.files.DBOpen = false;
    CloseCurrentDB(s);
    throw;
  }
  CloseCurrentDB(s);
  return false;
}

bool hasRoomForDictionary(session::Session& s) {
  if (s.files.OpenDBCount < dictionaryLimit) return true;
  session::showMessage(s, dialog::session_full, platform::box::information, label::program_name);
  return false;
}

bool addDictionary(session::Session& s, const std::string& path, bool readOnly) {
  session::Files& files = s.files;
  if (!hasRoomForDictionary(s)) return false;
  if (files.OpenDBCount == 0) return openDictionary(s, path, readOnly);

  const session::Busy busy(s, session::labelText(s, label::opening_dictionary));
  const std::string added = sessionPath(s, path);
  const auto same = [&](const std::string& each) { return base::trim(each) == base::trim(added); };
  if (std::ranges::any_of(files.dictionaryList, same)) {
    session::showMessage(s, dialog::already_open, platform::box::exclamation, label::program_name);
    return false;
  }
  engine::Database db = openFile(s, added, readOnly);
  if (const int current = projectType(files.CurrentDB); projectType(db) != current) {
    session::showMessage(s, current == 1 ? dialog::session_is_dictionary : dialog::session_is_link_collection,
                         platform::box::information);
    return false;
  }
  const std::string version = std::exchange(files.DBVersion, readVersion(db));
  const bool accepted = PruefeProgrammVersion(s, db);
  files.DBVersion = version;
  if (!accepted) return false;
  if (!readOnly && !db.readOnly()) CheckIfDBDirExists(s, added);
  // Its rows are told apart by the path they carry, so it must be the file's own.
  CheckDBPath(s, db, added);

  files.dictionaryList.push_back(added);
  files.selectedDictionary = static_cast<int>(files.dictionaryList.size()) - 1;
  files.ExtraDB.at(static_cast<std::size_t>(files.OpenDBCount) - 1) = db;
  files.MultiPaths.at(static_cast<std::size_t>(files.OpenDBCount) - 1) = added;
  ++files.OpenDBCount;
  files.CurrentDBPath = added;
  showAsOpen(s);
  CheckDatabase(s);
  return true;
}

}  // namespace store
