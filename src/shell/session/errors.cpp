#include "shell/session/errors.h"

#include <filesystem>
#include <fstream>
#include <new>

#include "base/datetime.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/error_sentences.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"

namespace session {
namespace {

/// A text of the log: quoted, on one line.
std::string quoted(std::string text) {
  for (char& c : text)
    if (c == '\r' || c == '\n') c = ' ';
  return '"' + base::replaceAll(text, "\"", "\"\"") + '"';
}

std::string logLine(const Session& s, const base::Error& error, const std::string& source) {
  const std::string stamp = base::DateTime::now().stamp();
  const std::size_t blank = stamp.find(' ');
  return quoted(stamp.substr(0, blank)) + "," + quoted(stamp.substr(blank + 1)) + "," +
         quoted(s.files.CurrentDBPath) + "," + quoted(source) + "," + std::to_string(s.entry.CurrentEntryId) +
         "," + quoted(error.text()) + "," + std::to_string(error.number()) + s.CRLF;
}

bool appendToLog(const Session& s, const std::string& line) {
  std::ofstream log(s.files.paths.real(s.folders.AppConfigPath + "/Vocarium_Error_Log.TXT"),
                    std::ios::binary | std::ios::app);
  log << line << std::flush;
  return log.good();
}

/// A text of the message catalogue, or nothing: an error may be that there is no catalogue.
std::string dialogTextIfAny(const Session& s, int key) {
  return static_cast<std::size_t>(key) < s.texts.DialogTxt.size() ? dialogText(s, key) : "";
}

}  // namespace

void LogError(Session& s, const base::Error& error, const std::string& source) {
  if (error.number() == silentMissingItem || error.number() == silentCancel) return;
  s.shell.failed = true;
  const std::string sentence = errorSentence(s, error);
  std::string text = dialogTextIfAny(s, dialog::error_occurred) + s.CRLF + s.CRLF +
                     (sentence.empty() ? "" : sentence + s.CRLF) + error.text() + s.CRLF +
                     dialogTextIfAny(s, dialog::error_number) + std::to_string(error.number()) + " ";
  try {
    if (!appendToLog(s, logLine(s, error, source))) text += s.CRLF + "Vocarium_Error_Log.TXT ?";
    const int answer = s.desk.boxes.message(text, platform::box::ok, boxTitle(s));
    s.shell.LastMsgResult = answer;
    s.desk.screen.setBusyPointer(false);
    ShowStatus(s, "", false);
  } catch (...) {
    // The report itself failed: the box is the last place to say so, and when even that is gone the
    // caller still learns of the failure by the flag.
    s.shell.StatusText.clear();
  }
}

void NoteError(Session& s, const base::Error& error, const std::string& source) {
  try {
    if (appendToLog(s, logLine(s, error, source))) return;
    ShowStatus(s, "Vocarium_Error_Log.TXT ?", false);
  } catch (...) {
    s.shell.failed = true;
  }
}

base::Error currentError() {
  try {
    throw;
  } catch (const base::Error& error) {
    return error;
  } catch (const std::filesystem::filesystem_error& error) {
    return fileError(error.code(), error.path1().string());
  } catch (const std::bad_alloc&) {
    return base::Error(7, "There is not enough memory.");
  } catch (const std::exception& error) {
    return base::Error(51, error.what());
  }
}

void commitGathered(Session& s) {
  if (s.files.Workspace) s.files.Workspace->Idle();
}

}  // namespace session
