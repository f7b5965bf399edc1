#include "tsv.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace tsv {
namespace {

/// Length of the UTF-8 sequence at `at`, 0 when it is none.
std::size_t sequence(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  const auto tail = [&](std::size_t i) { return (byte(i) & 0xC0u) == 0x80u; };
  const unsigned lead = byte(at);
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF && tail(at + 1)) return 2;
  if (lead >= 0xE0 && lead <= 0xEF && tail(at + 1) && tail(at + 2)) {
    const unsigned code = (lead & 0x0Fu) << 12 | (byte(at + 1) & 0x3Fu) << 6 | (byte(at + 2) & 0x3Fu);
    return code >= 0x800 && (code < 0xD800 || code > 0xDFFF) ? 3 : 0;
  }
  if (lead >= 0xF0 && lead <= 0xF4 && tail(at + 1) && tail(at + 2) && tail(at + 3)) {
    const unsigned code = (lead & 0x07u) << 18 | (byte(at + 1) & 0x3Fu) << 12;
    return code >= 0x10000 && code < 0x110000 ? 4 : 0;
  }
  return 0;
}

void checkText(const std::string& path, std::size_t line, const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t bytes = sequence(text, at);
    if (bytes == 0) fail(path, line, "not UTF-8");
    const auto c = static_cast<unsigned char>(text[at]);
    if ((c < 0x20 && c != '\t') || c == 0x7F) fail(path, line, "control character");
    at += bytes;
  }
}

std::string unescape(const std::string& path, std::size_t line, std::string_view raw) {
  std::string text;
  for (std::size_t at = 0; at < raw.size(); ++at) {
    if (raw[at] != '\\') {
      text += raw[at];
      continue;
    }
    const char next = ++at < raw.size() ? raw[at] : '\0';
    if (next != 'n' && next != '\\') fail(path, line, "unknown escape");
    text += next == 'n' ? '\n' : '\\';
  }
  return text;
}

std::vector<std::string> split(const std::string& path, std::size_t line, const std::string& text) {
  std::vector<std::string> fields;
  for (std::size_t from = 0;;) {
    const std::size_t to = text.find('\t', from);
    fields.push_back(unescape(path, line, std::string_view(text).substr(from, to - from)));
    if (to == std::string::npos) return fields;
    from = to + 1;
  }
}

}  // namespace

void fail(const std::string& path, std::size_t line, const std::string& message) {
  throw std::runtime_error(path + ":" + std::to_string(line) + ": " + message);
}

std::size_t length(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; }));
}

Table read(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) fail(path, 0, "can not be read");
  Table table;
  table.path = path;
  std::string text;
  for (std::size_t line = 1; std::getline(in, text); ++line) {
    if (text.empty() || text.starts_with("# ")) continue;
    checkText(path, line, text);
    Row row{split(path, line, text), line};
    if (table.columns.empty()) {
      table.columns = std::move(row.fields);
      continue;
    }
    if (row.fields.size() != table.columns.size())
      fail(path, line,
           std::to_string(row.fields.size()) + " columns instead of " + std::to_string(table.columns.size()));
    table.rows.push_back(std::move(row));
  }
  if (in.bad()) fail(path, 0, "can not be read to its end");
  if (table.columns.empty()) fail(path, 0, "has no header line");
  return table;
}

}  // namespace tsv
