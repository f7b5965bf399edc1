#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "platform/desk.h"

/// Ports whose answers a test gives beforehand and which record what they were asked to show.
/// A question, dialog or modal form that no answer is left for fails the test, as does an answer that
/// nothing asked for. Boxes that only tell something need no answer.
class ScriptedDesk : public platform::Boxes, public platform::Screen, public platform::Outside {
 public:
  struct Box {
    std::string text;
    int flags;
    std::string title;
  };

  ScriptedDesk() = default;
  ~ScriptedDesk() override {
    EXPECT_TRUE(answers_.empty()) << "questions that were not asked: " << answers_.size();
    EXPECT_TRUE(files_.empty()) << "file dialogs that were not shown: " << files_.size();
    EXPECT_TRUE(forms_.empty()) << "forms that were not shown, the first: " << forms_.front().first;
    EXPECT_TRUE(inputs_.empty()) << "inputs that were not asked: " << inputs_.size();
  }
  ScriptedDesk(const ScriptedDesk&) = delete;
  ScriptedDesk& operator=(const ScriptedDesk&) = delete;

  platform::Desk desk() { return {*this, *this, *this}; }

  /// The answer to the next question; with a part of its text, which it must hold.
  void answer(int button, std::string part = "") { answers_.emplace_back(button, std::move(part)); }
  void chooseFile(std::string path, bool readOnly = false) { files_.push_back({std::move(path), readOnly}); }
  void cancelFile() { files_.push_back({}); }
  void typeIn(std::string text) { inputs_.push_back(std::move(text)); }
  /// What the user does in the next modal form, which must bear this name.
  template <class Form>
  void inForm(std::string name, std::function<void(Form&)> deeds) {
    forms_.emplace_back(std::move(name), [deeds](platform::Form& form) { deeds(dynamic_cast<Form&>(form)); });
  }

  /// What was shown.
  std::vector<Box> boxes;
  std::vector<platform::FileDialog> fileDialogs;
  std::vector<std::string> statuses, captions, progressCaptions, opened, started, prompts;
  std::string clipboard, printer = "PDF,cups,file";
  int busyDepth = 0, loopTurns = 0;
  double lastPercent = 0;
  bool progressShown = false, sound = false;
  std::vector<std::string> fonts;
  /// Runs while the message loop is served.
  std::function<void()> onTurn;

  bool told(const std::string& part) const {
    for (const Box& box : boxes)
      if (box.text.find(part) != std::string::npos) return true;
    return false;
  }

  int message(const std::string& text, int flags, const std::string& title) override {
    boxes.push_back({text, flags, title});
    const bool question = flags == platform::box::yesNo || flags == platform::box::yesNoCancel;
    if (!question) return platform::box::answerOk;
    if (answers_.empty()) {
      ADD_FAILURE() << "question without an answer: " << text;
      return platform::box::answerCancel;
    }
    const auto [button, part] = answers_.front();
    answers_.pop_front();
    EXPECT_NE(text.find(part), std::string::npos) << "asked: " << text << "\nexpected: " << part;
    return button;
  }
  std::string input(const std::string& prompt, const std::string&) override {
    prompts.push_back(prompt);
    if (inputs_.empty()) {
      ADD_FAILURE() << "input without an answer: " << prompt;
      return "";
    }
    std::string text = inputs_.front();
    inputs_.pop_front();
    return text;
  }
  platform::FileChoice openFile(const platform::FileDialog& dialog) override { return nextFile(dialog); }
  platform::FileChoice saveFile(const platform::FileDialog& dialog) override { return nextFile(dialog); }
  void showModal(platform::Form& form) override {
    if (forms_.empty() || forms_.front().first != form.formName) {
      ADD_FAILURE() << "form that was not expected: " << form.formName;
      throw base::Error(platform::cancelled, "not expected: " + form.formName);
    }
    const auto deeds = forms_.front().second;
    forms_.pop_front();
    deeds(form);
  }

  void setBusyPointer(bool busy) override { busyDepth = busy ? busyDepth + 1 : 0; }
  void setStatus(const std::string& text) override { statuses.push_back(text); }
  void setCaption(const std::string& text) override { captions.push_back(text); }
  void showProgress(const std::string& caption) override {
    progressCaptions.push_back(caption);
    progressShown = true;
  }
  void setProgress(double percent, const std::string&) override { lastPercent = percent; }
  void hideProgress() override { progressShown = false; }
  void turnLoop() override {
    ++loopTurns;
    if (onTurn) onTurn();
  }

  void setClipboard(const std::string& text) override { clipboard = text; }
  void open(const std::string& target) override { opened.push_back(target); }
  void start(const std::string& commandLine) override { started.push_back(commandLine); }
  bool soundDevicePresent() override { return sound; }
  std::vector<std::string> fontNames() override { return fonts; }
  std::string defaultPrinter() override { return printer; }

 private:
  platform::FileChoice nextFile(const platform::FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    if (files_.empty()) {
      ADD_FAILURE() << "file dialog without an answer: " << dialog.title;
      throw base::Error(platform::cancelled, "no answer");
    }
    platform::FileChoice choice = files_.front();
    files_.pop_front();
    if (choice.path.empty()) throw base::Error(platform::cancelled, "cancelled");
    return choice;
  }

  std::deque<std::pair<int, std::string>> answers_;
  std::deque<platform::FileChoice> files_;
  std::deque<std::string> inputs_;
  std::deque<std::pair<std::string, std::function<void(platform::Form&)>>> forms_;
};
