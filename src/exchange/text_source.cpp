#include "exchange/text_source.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/error.h"
#include "base/text.h"

namespace exchange {

namespace {

constexpr int badSource = 3274;  // the documented number for a foreign source that is not as expected

std::string readAll(const std::string& path) {
  if (!std::filesystem::exists(path)) throw base::Error(53, "The file " + path + " does not exist.");
  if (!std::filesystem::is_regular_file(path)) throw base::Error(3044, path + " is no file.");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw base::Error(70, "The file " + path + " may not be read.");
  std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (file.bad()) throw base::Error(70, "The file " + path + " could not be read to its end.");
  return bytes;
}

/// The ICU name of a character set of the dialog; other names are taken as ICU knows them.
std::string icuName(const std::string& set) {
  if (base::equalsIgnoreCase(set, "ANSI")) return "windows-1252";
  if (base::equalsIgnoreCase(set, "OEM")) return "ibm-850";
  if (base::equalsIgnoreCase(set, "Unicode")) return "UTF-16LE";
  return set;
}

/// Drops a byte order mark; one of UTF-8 or UTF-16 decides the character set, whatever was said.
std::string decode(const std::string& bytes, std::string set, const std::string& path) {
  std::string_view content = bytes;
  const auto starts = [&](std::string_view mark) { return content.substr(0, mark.size()) == mark; };
  if (starts("\xEF\xBB\xBF")) {
    set = "UTF-8";
    content.remove_prefix(3);
  } else if (starts("\xFF\xFE")) {
    set = "UTF-16LE";
    content.remove_prefix(2);
  } else if (starts("\xFE\xFF")) {
    set = "UTF-16BE";
    content.remove_prefix(2);
  }
  if (!base::equalsIgnoreCase(set, "UTF-8")) return base::toUtf8(content, icuName(set));
  if (base::isUtf8(content)) return std::string(content);
  std::int64_t line = 1;
  for (std::size_t from = 0; from < content.size(); ++line) {
    const std::size_t end = std::min(content.find('\n', from), content.size());
    if (!base::isUtf8(content.substr(from, end - from))) break;
    from = end + 1;
  }
  throw base::Error(badSource,
                    "Line " + std::to_string(line) + " of " + path +
                        " is no UTF-8 text. Choose the character set that the file was written in.");
}

}  // namespace

TextSource::TextSource(const std::string& path, const TextLayout& layout)
    : path_(path),
      text_(decode(readAll(path), layout.characterSet, path)),
      separator_(layout.separator.empty() ? "\t" : layout.separator) {
  if (const auto nul = text_.find('\0'); nul != std::string::npos)
    fail(1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(nul), '\n'),
         "holds a NUL character; it is no text file or has another character set");
  Row first;
  if (readFields(first)) {
    for (std::size_t n = 0; n < first.size(); ++n)
      columns_.push_back(layout.header && first[n] ? base::trim(*first[n]) : "F" + std::to_string(n + 1));
    if (!layout.header) {
      at_ = 0;
      line_ = 1;
    }
  }
  firstRow_ = at_;
  checkAll();
}

void TextSource::checkAll() {
  const std::int64_t firstLine = line_;
  Row row;
  for (;;) {
    const std::int64_t started = line_;
    if (!readFields(row)) break;
    if (row.size() > columns_.size())
      fail(started, "has " + std::to_string(row.size()) + " fields, but there are only " +
                        std::to_string(columns_.size()) + " columns");
    ++rowCount_;
  }
  at_ = firstRow_;
  line_ = firstLine;
}

std::optional<std::size_t> TextSource::find(const std::string& column) const {
  for (std::size_t n = 0; n < columns_.size(); ++n)
    if (base::equalsIgnoreCase(columns_[n], column)) return n;
  std::size_t place = 0;
  const auto [end, error] = std::from_chars(column.data(), column.data() + column.size(), place);
  if (error != std::errc() || end != column.data() + column.size() || place < 1 || place > columns_.size())
    return {};
  return place - 1;
}

bool TextSource::next(Row& row) {
  if (!readFields(row)) return false;
  row.resize(columns_.size());
  return true;
}

void TextSource::skipEmptyLines() {
  for (; at_ < text_.size() && (text_[at_] == '\n' || text_[at_] == '\r'); ++at_)
    if (text_[at_] == '\n') ++line_;
}

/// The content of a quoted field; stands behind the closing quote then.
std::string TextSource::readQuoted() {
  const std::int64_t started = line_;
  std::string field;
  for (++at_;; ++at_) {
    if (at_ >= text_.size()) fail(started, "begins a quoted field that never ends");
    if (text_[at_] == '"' && text_.compare(at_++, 2, "\"\"") != 0) return field;
    if (text_[at_] == '\n') ++line_;
    field += text_[at_];
  }
}

bool TextSource::atRowEnd() const {
  return at_ >= text_.size() || text_[at_] == '\n';
}

std::optional<std::string> TextSource::readField() {
  const bool quoted = at_ < text_.size() && text_[at_] == '"';
  std::string field = quoted ? readQuoted() : std::string();
  // What stands between a closing quote and the separator belongs to the field as it is.
  while (!atRowEnd() && text_.compare(at_, separator_.size(), separator_) != 0) field += text_[at_++];
  if (atRowEnd() && !field.empty() && field.back() == '\r') field.pop_back();
  if (field.empty() && !quoted) return std::nullopt;
  return field;
}

bool TextSource::readFields(Row& row) {
  skipEmptyLines();
  if (at_ >= text_.size()) return false;
  row.clear();
  for (;;) {
    row.push_back(readField());
    if (atRowEnd()) break;
    at_ += separator_.size();
  }
  if (at_ < text_.size()) {
    ++at_;
    ++line_;
  }
  return true;
}

void TextSource::fail(std::int64_t line, const std::string& what) const {
  throw base::Error(badSource, "Line " + std::to_string(line) + " of " + path_ + " " + what + ".");
}

}  // namespace exchange
