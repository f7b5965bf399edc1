#include "store/close.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/files.h"
#include "store/schema.h"

namespace store {
namespace {

namespace fs = std::filesystem;

constexpr int encrypted = 2;

/// Without the "1" that the second object of a pair may bear behind its name.
constexpr std::array<std::string_view, 14> temporaryNames{"WOERTERTEMP",        "WKATEGORIETEMP",
                                                          "SPRACHETEMP",        "WORTBEDSACHGEBIETTEMP",
                                                          "WORTBEDWKATTEMP",    "WSACHGEBIETTEMP",
                                                          "WORTBEDBSPTEMP",     "URLTEMP",
                                                          "ATTACHMENTTEMP",     "WORTBEDTEMP",
                                                          "RELWOERTWKATTEMP",   "RELWOERTSACHGEBIETTEMP",
                                                          "RELWORTBEDWKATTEMP", "RELWORTBEDSACHGEBIETTEMP"};

bool isTemporary(const std::string& name) {
  std::string upper = base::upper(name);
  if (upper.ends_with('1')) upper.pop_back();
  return std::ranges::find(temporaryNames, upper) != temporaryNames.end();
}

/// Puts a compact copy written beside the file in its place; a failure leaves the file.
void compact(session::Session& s, const std::string& path) {
  const session::Busy busy(s, session::labelText(s, label::compacting_before) + " " + path + " " +
                                  session::labelText(s, label::compacting_after));
  const fs::path file = fs::canonical(s.files.paths.real(path));
  {
    // A file of an earlier version gets its indexes now.
    engine::Database db = s.files.Workspace->OpenDatabase(file.string());
    KeepSubEntries(db);
    IndexSearchedTexts(db);
  }
  fs::path sibling = file;
  sibling += ".compact";
  deleteDictionaryFile(s, sibling.string());
  engine::CompactDatabase(*s.files.Workspace, file.string(), sibling.string(), s.files.CurrentLocale,
                          encrypted);
  fs::permissions(sibling, fs::status(file).permissions());
  fs::rename(sibling, file);
}

void compactIfItPays(session::Session& s, const std::string& path) {
  if (engine::needsCompaction(*s.files.Workspace, s.files.paths.real(path).string(), s.files.CurrentLocale))
    compact(s, path);
}

/// Of several files only the first is ever written to.
std::string compactionPath(const session::Session& s) {
  return s.files.OpenDBCount > 1 ? s.files.CurrentDB.Name() : s.files.CurrentDBPath;
}

/// Gives up all files and what the session knows of them.
void letGo(session::Session& s) {
  session::Files& files = s.files;
  for (engine::Database& extra : files.ExtraDB) extra.Close();
  files.dictionaryList.clear();
  files.selectedDictionary = -1;
  files.OpenDBCount = 0;
  files.DBOpen = false;
  files.ReadOnlyMode = false;
  files.CurrentDB.Close();
  files.MultiPaths.fill("");
}

void showAsClosed(session::Session& s) {
  s.shell.dictionaryMenus = false;
  s.shell.projectBar = {};
  s.shell.configLoaded = false;
  s.shell.caption = session::boxTitle(s);
  s.desk.screen.setCaption(s.shell.caption);
}

}  // namespace

void CloseCurrentDB(session::Session& s) {
  s.entry.EntryEditMode = 0;
  const bool wasOpen = s.files.DBOpen;
  const std::string path = compactionPath(s);
  const bool writable = s.files.CurrentDB.isOpen() && !s.files.ReadOnlyMode && !s.files.CurrentDB.readOnly();
  if (wasOpen) session::CloseAllForms(s);
  showAsClosed(s);
  session::commitGathered(s);
  letGo(s);
  if (wasOpen && writable)
    session::guard(s, "frmMDI", [&] {
      try {
        compactIfItPays(s, path);
      } catch (const base::Error& error) {
        // Another program still works on the file: the last one to close compacts it.
        if (error.number() != engine::errors::locked) throw;
      }
    });
  s.files.CurrentDBPath.clear();
}

bool closedAfterQuestion(session::Session& s, int question, int title) {
  if (s.files.OpenDBCount == 0 && !s.files.DBOpen) return true;
  if (!session::confirmed(s, question, title)) return false;
  CloseCurrentDB(s);
  return true;
}

void CompactCurrentDB(session::Session& s, bool quiet) {
  const std::string path = compactionPath(s);
  if (path.empty() || !closedAfterQuestion(s, dialog::compact_question, label::question_title)) return;
  compactIfItPays(s, path);
  if (!quiet)
    session::showBox(s,
                     session::dialogText(s, dialog::the_dictionary) + " " + path + " " +
                         session::dialogText(s, dialog::has_been_compacted) + "!",
                     platform::box::exclamation);
}

void DropTempTables(engine::Database& db) {
  std::vector<std::string> names = db.tableNames();
  for (const std::string& query : db.queryNames()) names.push_back(query);
  for (const std::string& name : names)
    if (isTemporary(name)) db.Execute("drop table [" + name + "];");
}

}  // namespace store
