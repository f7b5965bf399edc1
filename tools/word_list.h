#pragma once

#include <string>
#include <vector>

/// Word lists in the plain form of data/sample/woerter.txt.
namespace wordlist {

struct Property {
  std::string name, value;  ///< the value is empty where the line gives none
};
struct Assignments {
  std::vector<Property> properties;
  std::vector<std::string> subjects;
};
struct Example {
  std::string sentence, translation;
};
struct Meaning {
  std::string text;
  std::vector<Example> examples;
  Assignments assigned;
};
struct Entry {
  bool subEntry = false;  ///< of the last entry before it that is none
  std::string headword, pronunciation, note;
  Assignments assigned;
  std::vector<Meaning> meanings;
  std::size_t line = 0;  ///< of the headword, from 1
};

/// Reads a list whole. Throws std::runtime_error "path:line: what is wrong" for a missing file, a line that
/// belongs to no entry or no meaning, and an example without a sentence.
std::vector<Entry> read(const std::string& path);

}  // namespace wordlist
