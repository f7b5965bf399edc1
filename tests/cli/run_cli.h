#pragma once

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/application.h"
#include "support/temp_dir.h"

namespace test {

using Lines = std::vector<std::string>;

inline bool holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

struct CliResult {
  int code = 0;
  std::string out, err;
  std::string all;  ///< both, in the order of printing
};

/// A folder with a home of its own in which commands run, as the working folder of the process.
class CliFolder {
 public:
  CliFolder() : before_(std::filesystem::current_path()) {
    std::filesystem::create_directories(folder / "work");
    std::filesystem::current_path(folder / "work");
    setenv("APPDATA", (folder / "home").c_str(), 1);
  }
  ~CliFolder() { std::filesystem::current_path(before_); }
  CliFolder(const CliFolder&) = delete;
  CliFolder& operator=(const CliFolder&) = delete;

  std::string path() const { return std::filesystem::current_path().string(); }
  std::string log() const {
    const auto file = folder.path() / "home/Vocarium/Config/Vocarium_Error_Log.TXT";
    return std::filesystem::exists(file) ? TempDir::read(file) : "";
  }
  void write(const std::string& name, const std::string& bytes) const { folder.write("work/" + name, bytes); }
  std::string read(const std::string& name) const { return TempDir::read(folder / ("work/" + name)); }

  TempDir folder;

 private:
  std::filesystem::path before_;
};

/// Copies what is written to one stream into a text and into a shared one.
class Tee : public std::stringbuf {
 public:
  explicit Tee(std::string& all) : all_(all) {}
  std::string text;

 protected:
  int overflow(int c) override {
    if (c != traits_type::eof()) add(std::string(1, traits_type::to_char_type(c)));
    return c;
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    add(std::string(bytes, static_cast<std::size_t>(count)));
    return count;
  }

 private:
  void add(const std::string& piece) {
    text += piece;
    all_ += piece;
  }
  std::string& all_;
};

/// Runs one command in this process.
inline CliResult cli(const std::vector<std::string>& line) {
  CliResult result;
  Tee out(result.all), err(result.all);
  std::streambuf* const stdOut = std::cout.rdbuf(&out);
  std::streambuf* const stdErr = std::cerr.rdbuf(&err);
  result.code = cli::runCommandLine(line, VOCARIUM_BINARY_DIR);
  std::cout.rdbuf(stdOut);
  std::cerr.rdbuf(stdErr);
  result.out = out.text;
  result.err = err.text;
  return result;
}

/// A German-English dictionary "D.cvb" with one first entry, "Anfang".
inline void makeDictionary(const std::string& name = "D.cvb") {
  const CliResult made = cli(
      {"new", name, "--from", "Deutsch", "--to", "Englisch", "--description", "Test", "--first", "Anfang"});
  if (made.code != 0) throw std::runtime_error("new failed: " + made.all);
}

/// The answer of a select as lines without the header.
inline std::vector<std::string> rows(const std::string& statement, const std::string& name = "D.cvb") {
  std::istringstream lines(cli({"sql", name, statement}).out);
  std::vector<std::string> result;
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) result.push_back(line);
  return result;
}

}  // namespace test
