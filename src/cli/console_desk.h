#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/desk.h"

namespace cli {

/// The ports of a shell command: boxes go to standard error, questions are answered by the command
/// line's options, file dialogs and modal forms by what the command prepared.
class Console : public platform::Boxes, public platform::Screen, public platform::Outside {
 public:
  Console(bool yes, std::vector<int> answers);

  /// The path that the next file dialog returns.
  void answerFileDialog(platform::FileChoice choice) { fileChoices_.push_back(std::move(choice)); }
  /// The answer to the next question, before those of the command line; forgotten when none was asked.
  void answerNext(int answer) { next_ = answer; }
  void forgetNext() { next_ = 0; }
  /// What happens when a form of this name is shown; replaces an earlier handler.
  void onForm(const std::string& formName, std::function<void(platform::Form&)> handler);
  platform::Desk desk() { return {*this, *this, *this}; }

  // platform::Boxes
  int message(const std::string& text, int flags, const std::string& title) override;
  std::string input(const std::string& prompt, const std::string& title) override;
  platform::FileChoice openFile(const platform::FileDialog& dialog) override;
  platform::FileChoice saveFile(const platform::FileDialog& dialog) override;
  void showModal(platform::Form& form) override;

  // platform::Screen
  void setBusyPointer(bool busy) override;
  void setStatus(const std::string& label) override;
  void setCaption(const std::string& caption) override;
  void showProgress(const std::string& caption) override;
  void setProgress(double percent, const std::string& label) override;
  void hideProgress() override;
  void turnLoop() override;

  // platform::Outside
  void setClipboard(const std::string& text) override;
  void open(const std::string& target) override;
  void start(const std::string& commandLine) override;
  bool soundDevicePresent() override;
  std::vector<std::string> fontNames() override;
  std::string defaultPrinter() override;

 private:
  platform::FileChoice nextFile();

  bool yes_;
  int next_ = 0;
  std::deque<int> answers_;
  std::deque<platform::FileChoice> fileChoices_;
  std::map<std::string, std::function<void(platform::Form&)>> handlers_;
  bool terminal_;
  std::string progressCaption_, shownProgress_;
};

}  // namespace cli
