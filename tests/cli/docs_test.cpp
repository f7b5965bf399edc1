// docs/cli.md shows every command with its output; this runs them in its order and compares.

#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "base/text.h"
#include "run_cli.h"

namespace {

constexpr const char* shownFolder = "/home/anna/woerter";

/// The words of a command line, with quotes as a shell takes them.
std::vector<std::string> shellWords(const std::string& line) {
  std::vector<std::string> words;
  std::string word;
  char quote = 0;
  bool inWord = false;
  for (const char c : line) {
    if (quote != 0 ? c == quote : c == '"' || c == '\'') {
      quote = quote == 0 ? c : '\0';
      inWord = true;
    } else if (c == ' ' && quote == 0) {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(word);
  return words;
}

/// What differs from run to run: folders, dates and times.
std::string normalised(std::string text, const std::string& folder) {
  text = base::replaceAll(text, folder, shownFolder);
  text = base::replaceAll(text, base::upper(folder), base::upper(shownFolder));
  text = std::regex_replace(text, std::regex(R"(\d\d\.\d\d\.\d{4} \d\d:\d\d:\d\d)"), "22.11.2026 09:30:00");
  text = std::regex_replace(text, std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)"), "2026-11-22 09:30:00");
  return std::regex_replace(text, std::regex(R"(_\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d)"), "_2026-11-22_09-30-00");
}

/// The first lines of a text, as "| head -3" behind a command asks for.
std::string firstLines(const std::string& text, std::size_t count) {
  std::size_t end = 0;
  for (; count > 0 && end != std::string::npos; --count) end = text.find('\n', end == 0 ? 0 : end + 1);
  return end == std::string::npos ? text : text.substr(0, end + 1);
}

/// Runs a command line of the page.
std::string outputOf(const std::string& command) {
  const std::size_t pipe = command.find(" | head -");
  auto words = shellWords(command.substr(0, pipe));
  if (words.empty() || words[0] != "vocarium-cli")
    throw std::runtime_error("not a command of ours: " + command);
  words.erase(words.begin());
  const std::string output = test::cli(words).all;
  return pipe == std::string::npos ? output : firstLines(output, std::stoul(command.substr(pipe + 9)));
}

struct Shown {
  std::string command, output;
};

/// The console blocks of the page: each "$ command" with the lines below it.
std::vector<Shown> shownCommands(const std::string& page) {
  std::vector<Shown> commands;
  std::istringstream lines(page);
  bool inBlock = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("```", 0) == 0)
      inBlock = line == "```console";
    else if (inBlock && line.rfind("$ ", 0) == 0)
      commands.push_back({line.substr(2), ""});
    else if (inBlock && !commands.empty())
      commands.back().output += line + "\n";
  }
  return commands;
}

/// The page with each command's output as it is now.
std::string withOutputs(const std::string& page, const std::vector<Shown>& now) {
  std::string result;
  std::istringstream lines(page);
  bool inBlock = false;
  std::size_t next = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("```", 0) == 0) inBlock = line == "```console";
    const bool command = inBlock && line.rfind("$ ", 0) == 0;
    if (!inBlock || command || line == "```console") result += line + "\n";
    if (command) result += now[next++].output;
  }
  return result;
}

TEST(CliPage, showsEachCommandWithItsOutput) {
  const test::CliFolder folder;
  const std::string path = std::string(VOCARIUM_SOURCE_DIR) + "/docs/cli.md";
  const std::string page = test::TempDir::read(path);
  const std::vector<Shown> shown = shownCommands(page);
  std::vector<Shown> now = shown;
  std::set<std::string> run;
  for (Shown& step : now) {
    if (const auto words = shellWords(step.command); words.size() == 2 && words[0] == "cat") {
      folder.write(words[1], step.output);  // shows an input file: its text is the input
      continue;
    }
    step.output = normalised(outputOf(step.command), folder.path());
    for (const cli::Command& command : cli::commands())
      if (step.command.rfind(std::string("vocarium-cli ") + command.name, 0) == 0) run.insert(command.name);
  }
  if (std::getenv("VOCARIUM_WRITE_DOCS") != nullptr) {
    std::ofstream(path) << withOutputs(page, now);
    GTEST_SKIP() << "the page was written anew";
  }
  for (std::size_t n = 0; n < shown.size(); ++n)
    EXPECT_EQ(now[n].output, shown[n].output) << shown[n].command;
  for (const cli::Command& command : cli::commands())
    EXPECT_TRUE(run.count(command.name) > 0) << "the page does not show " << command.name;
}

}  // namespace
