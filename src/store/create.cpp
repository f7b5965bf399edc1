#include "store/create.h"

#include <filesystem>

#include "base/text.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "store/close.h"
#include "store/files.h"
#include "store/letters.h"
#include "store/locale.h"
#include "store/queries/stored_queries.h"
#include "store/reference.h"
#include "store/schema.h"

namespace store {
namespace {

constexpr int encrypted = 2;

/// Takes every right from the two groups, so that only the owner opens the file.
void removeGroupRights(engine::Database& db) {
  for (const char* group : {"Admins", "Users"}) db.setPermissions("Databases", db.Name(), group, 0);
  for (const std::string& table : db.tableNames())
    for (const char* group : {"Admins", "Users"}) db.setPermissions("Tables", table, group, 0);
}

void stampVersion(engine::Database& db, const std::string& path) {
  engine::Recordset info = db.OpenRecordset("Info");
  info.AddNew();
  info.set("Version", currentVersion);
  info.set("DBPath", path);
  info.Update();
}

void build(session::Session& s, const std::string& path) {
  engine::Database& db = s.files.CurrentDB;
  CreateTables(db);
  CreateRelations(db);
  WatchOpeningChecks(db);
  KeepSubEntries(db);
  IndexSearchedTexts(db);
  CreateQueries(db);
  removeGroupRights(db);
  stampVersion(db, path);
  SetTableProperties(db);
  SetUniCodeCompression(s, path);
}

}  // namespace

void NewLocalDB(session::Session& s, const std::string& path) {
  const session::Busy busy(s, session::labelText(s, label::creating_dictionary));
  s.files.CurrentDBPath = sessionPath(s, path);
  try {
    s.files.CurrentDB = s.files.Workspace->CreateDatabase(s.files.paths.real(s.files.CurrentDBPath).string(),
                                                          defaultLocale, encrypted);
    build(s, s.files.CurrentDBPath);
    s.files.Workspace->Idle();
  } catch (...) {
    const bool created = s.files.CurrentDB.isOpen();
    const std::string half = s.files.CurrentDBPath;
    s.files.CurrentDB.Close();
    s.files.CurrentDBPath.clear();
    if (created) deleteDictionaryFile(s, half);
    throw;
  }
  s.files.DBVersion = currentVersion;
  s.files.DBOpen = true;
}

void prepareMediaFolder(session::Session& s, bool replaced) {
  namespace fs = std::filesystem;
  const fs::path folder = mediaFolder(s, s.files.CurrentDBPath);
  s.files.NewDBMadeFolder = !fs::exists(folder);
  if (replaced && fs::is_directory(folder))
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
      if (base::equalsIgnoreCase(entry.path().extension().string(), ".wav")) fs::remove(entry.path());
  CheckIfDBDirExists(s, s.files.CurrentDBPath);
}

void discardNewDictionary(session::Session& s) {
  const std::string path = s.files.CurrentDBPath;
  const std::filesystem::path folder = mediaFolder(s, path);
  s.files.DBOpen = false;  // what is deleted next needs no compaction
  CloseCurrentDB(s);
  if (s.files.NewDBMadeFolder) std::filesystem::remove_all(folder);
  deleteDictionaryFile(s, path);
  s.files.NewDBPath.clear();
}

void fillReferenceData(session::Session& s) {
  const session::Busy busy(s, session::labelText(s, label::creating_dictionary));
  ImportStandardEigenschaftenundSachgebiete(s);
  ImportStandardSprachen(s);
  ImportStandardKodierungen(s, s.files.CurrentDB);
  FillDefaultEnvironment(s.files.CurrentDB);
  ImportWZeit(s, s.files.CurrentDB);
  GenerateBuchstabenFilter(s.files.CurrentDB);
  s.files.Workspace->Idle();
  s.files.CurrentDB.Close();
  s.files.CurrentDB = s.files.Workspace->OpenDatabase(s.files.paths.real(s.files.CurrentDBPath).string(),
                                                      false, s.files.ReadOnlyMode);
}

}  // namespace store
