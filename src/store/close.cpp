#include "store/close.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "engine/rescue.h"
#include "shell/session/error_sentences.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/files.h"
#include "store/locale.h"
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
void compact(session::Session& s, const std::string& path, const std::string& locale) {
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
  engine::CompactDatabase(*s.files.Workspace, file.string(), sibling.string(), locale, encrypted);
  fs::permissions(sibling, fs::status(file).permissions());
  fs::rename(sibling, file);
}

/// Says beside what failed that nothing is lost by it.
base::Error notCompacted(const session::Session& s, const std::string& path, const base::Error& error) {
  const std::string sentence = session::errorSentence(s, error);
  return {error.number(), session::dialogText(s, dialog::compaction_failed) + " " + path + s.CRLF +
                              (sentence.empty() ? "" : sentence + s.CRLF) + error.text()};
}

/// A file and the text order that a compaction gives to it.
struct Compaction {
  std::string path, locale;
};

void compactIfItPays(session::Session& s, const Compaction& wanted) {
  if (engine::needsCompaction(*s.files.Workspace, s.files.paths.real(wanted.path).string(), wanted.locale))
    compact(s, wanted.path, wanted.locale);
}

/// CurrentLocale is of the dictionary that was opened first; each of several files has settings of its own.
std::string localeOf(session::Session& s, engine::Database& db) {
  if (s.files.OpenDBCount < 2) return s.files.CurrentLocale;
  try {
    auto row = db.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
    const std::string caption = row.EndOfFile() ? "" : row["Sortierreihenfolge"].textOrEmpty();
    return localeOfSortOrder(s, caption).value_or(db.locale());
  } catch (const base::Error&) {
    return db.locale();  // a file that can not be read any more must still be closed
  }
}

Compaction compactionOf(session::Session& s, engine::Database& db) {
  const bool several = s.files.OpenDBCount > 1;
  return {several ? db.Name() : s.files.CurrentDBPath, localeOf(s, db)};
}

/// Of the open files that could be written to.
std::vector<Compaction> compactionsAtClosing(session::Session& s) {
  session::Files& files = s.files;
  std::vector<Compaction> all;
  if (!files.DBOpen) return all;
  const auto add = [&](engine::Database& db) {
    if (db.isOpen() && !db.readOnly()) all.push_back(compactionOf(s, db));
  };
  add(files.CurrentDB);
  std::ranges::for_each(files.ExtraDB, add);
  return all;
}

/// What was written to a file that went away meanwhile lives in the open handle alone.
void putBackIfVanished(session::Session& s, const engine::Database& db) {
  if (!db.isOpen() || db.readOnly() || !engine::hasVanished(db)) return;
  session::guard(s, "frmMDI", [&] {
    const std::string path = db.Name();
    fs::create_directories(fs::path(path).parent_path());
    const std::string written = engine::RescueDatabase(*s.files.Workspace, db);
    session::NoteError(s, {engine::errors::fileNotFound, path + " was gone; written to " + written + "."},
                       "frmMDI");
    session::showBox(s, session::dialogText(s, dialog::file_put_back) + " " + written,
                     platform::box::exclamation);
  });
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
  const std::vector<Compaction> compactions = compactionsAtClosing(s);
  if (wasOpen) session::CloseAllForms(s);
  showAsClosed(s);
  session::commitGathered(s);
  putBackIfVanished(s, s.files.CurrentDB);
  for (const engine::Database& extra : s.files.ExtraDB) putBackIfVanished(s, extra);
  letGo(s);
  for (const Compaction& each : compactions)
    session::guard(s, "frmMDI", [&] {
      try {
        compactIfItPays(s, each);
      } catch (const base::Error& error) {
        // Another program still works on the file: the last one to close compacts it.
        if (error.number() != engine::errors::locked) throw notCompacted(s, each.path, error);
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
  if (s.files.CurrentDBPath.empty()) return;
  const Compaction current = compactionOf(s, s.files.CurrentDB);
  if (!closedAfterQuestion(s, dialog::compact_question, label::question_title)) return;
  compactIfItPays(s, current);
  if (!quiet)
    session::showBox(s,
                     session::dialogText(s, dialog::the_dictionary) + " " + current.path + " " +
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
