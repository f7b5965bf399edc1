#include "catalogue.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "tsv.h"

namespace catalogue {
namespace {

constexpr std::string_view reserved[] = {
    "and",      "auto",      "bool",     "break",  "case",     "catch",    "char",     "class",  "const",
    "continue", "default",   "delete",   "do",     "double",   "else",     "enum",     "export", "false",
    "float",    "for",       "friend",   "goto",   "if",       "inline",   "int",      "long",   "module",
    "import",   "namespace", "new",      "not",    "operator", "or",       "private",  "public", "return",
    "short",    "signed",    "static",   "struct", "switch",   "template", "this",     "throw",  "true",
    "try",      "union",     "unsigned", "using",  "virtual",  "void",     "volatile", "while"};

/// Keys are lower-case words joined by "_"; menu keys are the names of the menu items.
bool wellFormed(std::string_view key, bool menu) {
  const auto lower = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); };
  if (menu)
    return key.size() > 3 && key.starts_with("mnu") &&
           std::all_of(key.begin(), key.end(), [&](char c) { return lower(c) || (c >= 'A' && c <= 'Z'); });
  return key.front() >= 'a' && key.front() <= 'z' && key.back() != '_' &&
         key.find("__") == std::string_view::npos &&
         std::all_of(key.begin(), key.end(), [&](char c) { return lower(c) || c == '_'; }) &&
         std::find(std::begin(reserved), std::end(reserved), key) == std::end(reserved);
}

}  // namespace

std::vector<Text> read(const std::string& folder, const std::string& name) {
  const tsv::Table table = tsv::read(folder + "/" + name + ".tsv");
  if (table.columns != std::vector<std::string>{"position", "key", "German", "English"})
    tsv::fail(table.path, 1, "the columns are position, key, German, English");
  std::vector<Text> texts;
  std::set<std::string> keys;
  for (const tsv::Row& row : table.rows) {
    const auto fail = [&](const std::string& message) { tsv::fail(table.path, row.line, message); };
    if (row.fields[0] != std::to_string(texts.size()))
      fail("position " + std::to_string(texts.size()) + " expected");
    Text text{row.fields[1], row.fields[2], row.fields[3]};
    const bool named = !text.key.empty();
    if (named && !wellFormed(text.key, name == "menu")) fail("malformed key " + text.key);
    if (named && !keys.insert(text.key).second) fail("repeated key " + text.key);
    if (named == text.german.empty() || named == text.english.empty())
      fail("a key and both texts, or none of them");
    if (tsv::length(text.german) > maxLength || tsv::length(text.english) > maxLength) fail("overlong text");
    texts.push_back(std::move(text));
  }
  if (texts.empty()) tsv::fail(table.path, 1, "no texts");
  return texts;
}

}  // namespace catalogue
