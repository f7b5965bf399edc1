#pragma once

#include <string>

#include "shell/session/session.h"
#include "shell/session/texts.h"

/// Boxes and the status bar. Every box commits gathered writes first and leaves its answer in
/// LastMsgResult.
namespace session {

/// The usual title of boxes; empty without a catalogue.
std::string boxTitle(const Session& s);

/// Shows a box; `title` is a key of labels. Returns the answer.
int showBox(Session& s, const std::string& text, int flags);
int showBox(Session& s, const std::string& text, int flags, int title);
/// The same with a box whose text is one message.
int showMessage(Session& s, int message, int flags);
int showMessage(Session& s, int message, int flags, int title);
/// A box for texts with names out of the data; its title is the program's name.
int showUnicodeBox(Session& s, const std::string& text, int flags);
/// A yes/no question; true for yes.
bool confirmed(Session& s, const std::string& text);
bool confirmed(Session& s, int message);
bool confirmed(Session& s, int message, int title);

/// Dialogs of files; they throw 32755 when cancelled.
platform::FileChoice askOpenFile(Session& s, const platform::FileDialog& dialog);
platform::FileChoice askSaveFile(Session& s, const platform::FileDialog& dialog);

/// Puts a text into the status bar, behind the busy text when busy; an empty one shows the ready text.
/// Nothing happens when it is there already.
void ShowStatus(Session& s, const std::string& text, bool isBusy);
/// Clears the status when the pointer came to another kind of panel.
void ShowToolTipStatus(Session& s, int kind);

/// Busy pointer and status text for as long as it lives.
class Busy {
 public:
  Busy(Session& s, const std::string& status);
  ~Busy();
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Session& session_;
};

/// The progress form for as long as it lives: a bar and a number followed by " %".
class ProgressForm {
 public:
  ProgressForm(Session& s, const std::string& caption);
  ~ProgressForm();
  ProgressForm(const ProgressForm&) = delete;
  ProgressForm& operator=(const ProgressForm&) = delete;
  /// Shows that `done` of `total` rows are done, and serves the message loop.
  void step(std::int64_t done, std::int64_t total);

 private:
  Session& session_;
};

/// Serves the message loop when 50 ms have passed since the last time, with everything committed before.
void turnLoop(Session& s);

}  // namespace session
