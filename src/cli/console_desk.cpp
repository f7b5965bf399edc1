#include "cli/console_desk.h"

#include <unistd.h>

#include <iostream>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace cli {

namespace {

bool isQuestion(int flags) {
  return (flags & 7) == 4 || (flags & 7) == 3;
}

/// Boxes break lines for a window; a terminal shows them as one paragraph each.
std::string asLines(const std::string& text) {
  return base::replaceAll(text, "\r\n", "\n");
}

}  // namespace

Console::Console(bool yes, std::vector<int> answers)
    : yes_(yes), answers_(answers.begin(), answers.end()), terminal_(isatty(STDERR_FILENO) == 1) {}

void Console::onForm(const std::string& formName, std::function<void(platform::Form&)> handler) {
  handlers_[formName] = std::move(handler);
}

int Console::message(const std::string& text, int flags, const std::string&) {
  if (isQuestion(flags) && next_ != 0) return std::exchange(next_, 0);
  std::cerr << asLines(text) << std::endl;
  if (!isQuestion(flags)) return platform::box::answerOk;
  if (!answers_.empty()) {
    const int answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  if (yes_) return platform::box::answerYes;
  std::cerr << "Nothing answers this question; use --yes or --answers." << std::endl;
  throw base::Error(platform::cancelled, "The question was not answered: " + text);
}

std::string Console::input(const std::string& prompt, const std::string&) {
  std::cerr << asLines(prompt) << std::endl;
  return "";
}

platform::FileChoice Console::nextFile() {
  if (fileChoices_.empty()) throw base::Error(platform::cancelled, "No file was named.");
  platform::FileChoice choice = std::move(fileChoices_.front());
  fileChoices_.pop_front();
  return choice;
}
platform::FileChoice Console::openFile(const platform::FileDialog&) {
  return nextFile();
}
platform::FileChoice Console::saveFile(const platform::FileDialog&) {
  return nextFile();
}

void Console::showModal(platform::Form& form) {
  const auto handler = handlers_.find(form.formName);
  if (handler == handlers_.end())
    throw base::Error(platform::cancelled, "The form " + form.formName + " has no place in this command.");
  handler->second(form);
}

void Console::setBusyPointer(bool) {}
void Console::setStatus(const std::string&) {}
void Console::setCaption(const std::string&) {}

void Console::showProgress(const std::string& caption) {
  progressCaption_ = caption;
  shownProgress_.clear();
}

void Console::setProgress(double, const std::string& label) {
  if (!terminal_ || label == shownProgress_) return;
  shownProgress_ = label;
  std::cerr << '\r' << progressCaption_ << ' ' << label << std::flush;
}

void Console::hideProgress() {
  if (terminal_ && !shownProgress_.empty()) std::cerr << std::endl;
  shownProgress_.clear();
}

void Console::turnLoop() {}

// A shell has no clipboard and opens nothing by itself: what would go there is printed.
void Console::setClipboard(const std::string& text) {
  std::cout << text << std::endl;
}
void Console::open(const std::string& target) {
  std::cout << target << std::endl;
}
void Console::start(const std::string& commandLine) {
  std::cout << commandLine << std::endl;
}
bool Console::soundDevicePresent() {
  return false;
}
std::vector<std::string> Console::fontNames() {
  return {};
}
std::string Console::defaultPrinter() {
  return "";
}

}  // namespace cli
