#include "shell/session/messages.h"

#include "catalogue/label.h"
#include "shell/session/errors.h"

namespace session {
namespace {

constexpr std::chrono::milliseconds loopInterval{50};  // a window stays alive, and few commits are made

int show(Session& s, const std::string& text, int flags, const std::string& title) {
  commitGathered(s);
  s.shell.LastMsgResult = s.desk.boxes.message(text, flags, title);
  return s.shell.LastMsgResult;
}

/// A label, or nothing: what ends an operation must also work without a catalogue.
std::string labelIfAny(const Session& s, int key) {
  return static_cast<std::size_t>(key) < s.texts.labelTxt.size() ? labelText(s, key) : "";
}

}  // namespace

std::string boxTitle(const Session& s) {
  return labelIfAny(s, label::program_name);
}

int showBox(Session& s, const std::string& text, int flags) {
  return show(s, text, flags, boxTitle(s));
}
int showBox(Session& s, const std::string& text, int flags, int title) {
  return show(s, text, flags, labelText(s, title));
}
int showMessage(Session& s, int message, int flags) {
  return showBox(s, dialogText(s, message), flags);
}
int showMessage(Session& s, int message, int flags, int title) {
  return showBox(s, dialogText(s, message), flags, title);
}

int showUnicodeBox(Session& s, const std::string& text, int flags) {
  return show(s, text, flags, "Vocarium");
}

bool confirmed(Session& s, const std::string& text) {
  return showBox(s, text, platform::box::yesNo) == platform::box::answerYes;
}
bool confirmed(Session& s, int message) {
  return confirmed(s, dialogText(s, message));
}
bool confirmed(Session& s, int message, int title) {
  return showMessage(s, message, platform::box::yesNo, title) == platform::box::answerYes;
}

platform::FileChoice askOpenFile(Session& s, const platform::FileDialog& dialog) {
  commitGathered(s);
  return s.desk.boxes.openFile(dialog);
}

platform::FileChoice askSaveFile(Session& s, const platform::FileDialog& dialog) {
  commitGathered(s);
  return s.desk.boxes.saveFile(dialog);
}

void ShowStatus(Session& s, const std::string& text, bool isBusy) {
  if (text == s.shell.StatusText) return;
  if (text.empty())
    s.desk.screen.setStatus(labelIfAny(s, label::status_ready));
  else if (isBusy)
    s.desk.screen.setStatus(labelText(s, label::status_busy) + text);
  else
    s.desk.screen.setStatus(text);
  s.shell.StatusText = text;
}

void ShowToolTipStatus(Session& s, int kind) {
  if (kind == s.shell.toolTipKind) return;
  s.shell.toolTipKind = kind;
  ShowStatus(s, "", false);
}

Busy::Busy(Session& s, const std::string& status) : session_(s) {
  s.desk.screen.setBusyPointer(true);
  ShowStatus(s, status, true);
}

Busy::~Busy() {
  session_.desk.screen.setBusyPointer(false);
  ShowStatus(session_, "", false);
}

ProgressForm::ProgressForm(Session& s, const std::string& caption) : session_(s) {
  s.desk.screen.showProgress(caption);
}

ProgressForm::~ProgressForm() {
  session_.desk.screen.hideProgress();
}

void ProgressForm::step(std::int64_t done, std::int64_t total) {
  const double percent = total > 0 ? static_cast<double>(done) / static_cast<double>(total) * 100.0 : 100.0;
  session_.desk.screen.setProgress(percent, std::to_string(static_cast<int>(percent)) + " %");
  turnLoop(session_);
}

void turnLoop(Session& s) {
  const auto now = std::chrono::steady_clock::now();
  if (now - s.shell.lastTurn < loopInterval) return;
  commitGathered(s);
  s.desk.screen.turnLoop();
  s.shell.lastTurn = std::chrono::steady_clock::now();
}

}  // namespace session
