#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// The statements that the subsystems send, as data: tests/corpus/<subsystem>.tsv, a line each behind a
/// header line, in the order in which they can run on one file.
namespace test {

struct CorpusRow {
  std::string file;  ///< the subsystem
  std::string key;   ///< speaking, unique in its subsystem
  std::string on;    ///< dictionary, empty (a new file without rows), copy, source, system, export
  std::string
      kind;  ///< read, read2 (second interface), run, find, query, setquery, parse; "run:3061" fails so
  std::string statement;  ///< ${FILE} stands for the file it runs on, ${FILE2} for a second dictionary
  std::string with;       ///< find: the recordset; query: its name; else parameters "name=value;name=value"

  std::string name() const { return file + "/" + key; }
};

inline std::vector<std::string> fieldsOf(const std::string& line, char separator) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == separator)
      fields.emplace_back();
    else
      fields.back() += c;
  }
  return fields;
}

inline std::vector<CorpusRow> corpus(const std::string& file) {
  const auto path = std::filesystem::path(VOCARIUM_SOURCE_DIR) / "tests" / "corpus" / (file + ".tsv");
  std::ifstream in(path);
  std::vector<CorpusRow> rows;
  std::string line;
  std::getline(in, line);
  while (std::getline(in, line)) {
    auto fields = fieldsOf(line, '\t');
    if (fields.size() != 5) throw std::runtime_error(path.string() + ": " + line);
    rows.push_back({file, fields[0], fields[1], fields[2], fields[3], fields[4]});
  }
  if (rows.empty()) throw std::runtime_error(path.string() + " holds no statement");
  return rows;
}

inline const std::vector<std::string>& corpusFiles() {
  static const std::vector<std::string> names = {"shell",      "store",    "entry",   "browse",
                                                 "automation", "exchange", "publish", "learn"};
  return names;
}

}  // namespace test
