#include "store/services.h"

#include <filesystem>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/close.h"
#include "store/dialogs.h"
#include "store/files.h"
#include "store/queries/stored_queries.h"

namespace store {
namespace {

namespace fs = std::filesystem;

constexpr int encrypted = 2;

struct SourceAndTarget {
  std::string source, target;
};

SourceAndTarget askSourceAndTarget(session::Session& s) {
  SourceAndTarget files;
  files.source = sessionPath(s, session::askOpenFile(s, openDialog(s, label::open_file_title)).path);
  files.target = sessionPath(s, withExtension(session::askSaveFile(s, saveDialog(s)).path));
  return files;
}

void tell(session::Session& s, const std::string& text) {
  session::showBox(s, text, platform::box::exclamation);
}

/// A file that was not closed in good order keeps work in the log beside it: opening brings it home.
void settle(session::Session& s, const std::string& path) {
  s.files.Workspace->OpenDatabase(s.files.paths.real(path).string(), true).Close();
}

/// Stored queries are the program's own: those that a dictionary has lost are put back.
void restoreQueries(session::Session& s, const std::string& path) {
  engine::Database database = s.files.Workspace->OpenDatabase(s.files.paths.real(path).string());
  for (const std::string& table : database.tableNames())
    if (base::equalsIgnoreCase(table, "Woerterbuch")) return CreateQueries(database);
}

}  // namespace

void copyFileOnly(session::Session& s, const std::string& source, const std::string& target) {
  settle(s, source);
  if (source != target) deleteDictionaryFile(s, target);
  session::CopyFileTo(s, source, target, true);
}

void copyMediaFolder(session::Session& s, const std::string& source, const std::string& target) {
  const fs::path from = mediaFolder(s, source), to = mediaFolder(s, target);
  std::error_code failed;
  fs::create_directories(to, failed);
  if (failed) throw session::fileError(failed, to.string());
  if (!fs::is_directory(from) || fs::equivalent(from, to)) return;
  session::ShowStatus(s, session::labelText(s, label::copying_media), true);
  fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::overwrite_existing, failed);
  if (failed) throw session::fileError(failed, from.string());
}

void CopyDB(session::Session& s) {
  if (!closedAfterQuestion(s, dialog::copy_question, label::question_title)) return;
  const auto [source, target] = askSourceAndTarget(s);
  {
    const session::Busy busy(s, session::labelText(s, label::copying_file) + " " + source + " " + target);
    copyFileOnly(s, source, target);
    copyMediaFolder(s, source, target);
  }
  tell(s, session::dialogText(s, dialog::the_dictionary) + " " + source + " " +
              session::dialogText(s, dialog::has_been_copied) + " " + target + "!");
}

void CompactDB(session::Session& s) {
  if (!closedAfterQuestion(s, dialog::compact_question, label::question_title)) return;
  const auto [source, target] = askSourceAndTarget(s);
  {
    const session::Busy busy(s, session::labelText(s, label::compacting_before) + " " + source + " " +
                                    session::labelText(s, label::compacting_after));
    // The same file as source and target is the engine's to refuse; it must not be deleted before.
    if (source != target) deleteDictionaryFile(s, target);
    engine::CompactDatabase(*s.files.Workspace, s.files.paths.real(source).string(),
                            s.files.paths.real(target).string(), s.files.CurrentLocale, encrypted);
  }
  tell(s, session::dialogText(s, dialog::the_dictionary) + " " + source + " " +
              session::dialogText(s, dialog::has_been_compacted) + "!");
}

void RepairDB(session::Session& s) {
  if (!session::confirmed(s, dialog::repair_question, label::question_title)) return;
  CloseCurrentDB(s);
  const std::string path =
      sessionPath(s, session::askOpenFile(s, openDialog(s, label::repair_file_title)).path);
  const std::string name = session::dialogText(s, dialog::the_dictionary) + " " + path + " ";
  engine::RepairReport report;
  {
    const session::Busy busy(s, name + session::dialogText(s, dialog::is_being_repaired));
    report = engine::RepairDatabase(*s.files.Workspace, s.files.paths.real(path).string());
    if (!report.lines.empty()) restoreQueries(s, path);
  }
  std::string text = name + session::dialogText(s, dialog::has_been_repaired) + s.CRLF;
  if (report.rowsLost == 0 && report.lines.empty()) {
    text += session::dialogText(s, dialog::repair_nothing_lost);
  } else {
    text += session::dialogText(s, dialog::repair_lost_rows) + " " + std::to_string(report.rowsLost);
    for (const std::string& line : report.lines) text += s.CRLF + line;
  }
  if (!report.keptOriginal.empty())
    text += s.CRLF + session::dialogText(s, dialog::repair_kept_original) + " " + report.keptOriginal;
  tell(s, text);
}

}  // namespace store
