#include "word_list.h"

#include <fstream>
#include <string_view>

#include "tsv.h"

namespace wordlist {
namespace {

std::string trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(' ');
  if (from == std::string_view::npos) return "";
  return std::string(text.substr(from, text.find_last_not_of(' ') - from + 1));
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t from = 0;;) {
    const std::size_t to = text.find(separator, from);
    if (std::string part = trimmed(text.substr(from, to - from)); !part.empty())
      parts.push_back(std::move(part));
    if (to == std::string_view::npos) return parts;
    from = to + 1;
  }
}

/// "headword [pronunciation]", the brackets at the end of the line.
void readHeadword(Entry& entry, std::string_view text) {
  const std::size_t open = text.rfind(" [");
  if (text.ends_with(']') && open != std::string_view::npos) {
    entry.pronunciation = text.substr(open + 2, text.size() - open - 3);
    text = text.substr(0, open);
  }
  entry.headword = trimmed(text);
}

/// Entries as far as they are read; marked lines belong to the last of them.
class Reader {
 public:
  explicit Reader(std::string path) : path_(std::move(path)) {}

  void take(const std::string& text, std::size_t line) {
    line_ = line;
    if (text.empty()) {
      inEntry_ = false;
      return;
    }
    const bool marked = text.size() > 1 && text[1] == ' ' &&
                        std::string_view("@#!->+").find(text[0]) != std::string_view::npos;
    if (!inEntry_ && (text[0] == '#' || !marked)) {
      if (text[0] != '#') begin(text, false);
    } else if (!inEntry_) {
      fail("belongs to no entry");
    } else if (!marked) {
      fail("has no mark");
    } else if (text[0] == '+') {
      begin(std::string_view(text).substr(2), true);
    } else {
      takeMarked(text[0], std::string_view(text).substr(2));
    }
  }

  std::vector<Entry> entries;

 private:
  [[noreturn]] void fail(const std::string& message) { tsv::fail(path_, line_, message); }

  void begin(std::string_view text, bool subEntry) {
    Entry entry;
    entry.subEntry = subEntry;
    entry.line = line_;
    readHeadword(entry, text);
    if (entry.headword.empty()) fail("has no headword");
    entries.push_back(std::move(entry));
    inEntry_ = true;
  }

  void takeMarked(char mark, std::string_view text) {
    Entry& entry = entries.back();
    Assignments& assigned = entry.meanings.empty() ? entry.assigned : entry.meanings.back().assigned;
    switch (mark) {
      case '-':
        entry.meanings.push_back({trimmed(text), {}, {}});
        break;
      case '!':
        entry.note += (entry.note.empty() ? "" : "\r\n") + trimmed(text);
        break;
      case '@':
        for (const std::string& part : split(text, ';')) {
          const std::size_t equals = part.find('=');
          const std::string value = equals == std::string::npos ? "" : part.substr(equals + 1);
          assigned.properties.push_back({trimmed(part.substr(0, equals)), trimmed(value)});
        }
        break;
      case '#':
        for (std::string& part : split(text, ';')) assigned.subjects.push_back(std::move(part));
        break;
      default:
        takeExample(entry, text);
    }
  }

  void takeExample(Entry& entry, std::string_view text) {
    const std::size_t bar = text.find('|');
    const std::string translation = bar == std::string_view::npos ? "" : trimmed(text.substr(bar + 1));
    Example example{trimmed(text.substr(0, bar)), translation};
    if (entry.meanings.empty()) fail("is an example without a meaning");
    if (example.sentence.empty()) fail("is an example without a sentence");
    entry.meanings.back().examples.push_back(std::move(example));
  }

  std::string path_;
  std::size_t line_ = 0;
  bool inEntry_ = false;
};

}  // namespace

std::vector<Entry> read(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) tsv::fail(path, 0, "can not be read");
  Reader reader(path);
  std::string text;
  for (std::size_t line = 1; std::getline(in, text); ++line) {
    if (text.ends_with('\r')) text.pop_back();
    reader.take(text, line);
  }
  return std::move(reader.entries);
}

}  // namespace wordlist
