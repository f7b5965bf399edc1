#pragma once

#include <functional>
#include <map>
#include <string>

#include "shell/session/session.h"

class QWidget;

namespace desktop {

/// The gate that every command of every window passes: one command at a time, under the error log's guard,
/// and every window drawn anew behind it. What comes while a command runs (another command, a timer, a
/// close) is refused.
class Gate {
 public:
  explicit Gate(session::Session& s) : session_(s) {}
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;

  /// Runs a command and draws the windows; false when it was refused. `formName` stands in the error log.
  bool run(const std::string& formName, const std::function<void()>& operation);
  /// Whether a command would be refused.
  bool isBusy() const { return running_ || drawing_; }

  /// Has `draw` called behind each command, until the number it returns is given to `removeWindow`.
  int addWindow(std::string formName, std::function<void()> draw);
  void removeWindow(int id);
  /// Draws all windows. Signals of the controls that it sets are refused as commands meanwhile.
  void draw();
  /// Runs when a command ended and none waits below it.
  std::function<void()> idle;

  /// While it lives, commands of a modal window may run although the one that showed it has not ended.
  class Nested {
   public:
    explicit Nested(Gate& gate) : gate_(gate), running_(gate.running_) { gate.running_ = false; }
    ~Nested() { gate_.running_ = running_; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

   private:
    Gate& gate_;
    bool running_;
  };

  session::Session& session() { return session_; }

 private:
  struct Window {
    std::string formName;
    std::function<void()> draw;
  };
  session::Session& session_;
  std::map<int, Window> windows_;
  int lastId_ = 0;
  int depth_ = 0;
  bool running_ = false, drawing_ = false;
};

}  // namespace desktop
