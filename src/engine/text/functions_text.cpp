#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/utf8.h"
#include "engine/text/collation.h"
#include "engine/text/functions_table.h"

namespace engine::text {
namespace {

// The order for comparisons that belong to no file.
const std::string neutralOrder = "vc_0409";

// The compare argument: 0 asks for the exact form, all else for the one without case.
bool exact(Arguments a, std::size_t position) {
  return a.size() > position && a[position].asInteger() == 0;
}

std::string repeated(const std::string& what, std::size_t count) {
  if (count > 0x1000000) refuseArgument("string");
  std::string text;
  text.reserve(what.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += what;
  return text;
}

// The text in the form that is compared; it has as many characters as the text.
std::string comparable(const std::string& text, bool byteExact) {
  return byteExact ? text : base::lower(base::upper(text));
}

Value len(Arguments a) {
  return static_cast<std::int64_t>(base::length(a[0].asText()));
}
Value left(Arguments a) {
  return base::left(a[0].asText(), countArgument(a[1], 0, "left"));
}
Value right(Arguments a) {
  return base::right(a[0].asText(), countArgument(a[1], 0, "right"));
}
Value mid(Arguments a) {
  const std::size_t start = countArgument(a[1], 1, "mid");
  return base::mid(a[0].asText(), start, a.size() > 2 ? countArgument(a[2], 0, "mid") : std::string::npos);
}
Value trim(Arguments a) {
  return base::trim(a[0].asText());
}
Value ltrim(Arguments a) {
  std::string text = a[0].asText();
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  return text;
}
Value rtrim(Arguments a) {
  std::string text = a[0].asText();
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}
Value ucase(Arguments a) {
  return base::upper(a[0].asText());
}
Value lcase(Arguments a) {
  return base::lower(a[0].asText());
}

// instr([start,] text, what [, compare]); the compare argument needs the start.
Value instr(Arguments a) {
  const std::size_t at = a.size() > 2 ? 1 : 0;
  if (a[at].isNull() || a[at + 1].isNull()) return {};
  const std::size_t start = at == 1 ? countArgument(a[0], 1, "instr") : 1;
  const std::string text = a[at].asText(), what = a[at + 1].asText();
  const std::size_t found =
      exact(a, 3) ? base::inStr(text, what, start) : base::inStrIgnoreCase(text, what, start);
  return static_cast<std::int64_t>(found);
}

// instrrev(text, what [, start [, compare]]); start is the last position looked at, -1 the end.
Value instrrev(Arguments a) {
  if (a[1].isNull()) return {};
  std::string text = a[0].asText();
  if (a.size() > 2 && a[2].asInteger() != -1) text = base::left(text, countArgument(a[2], 1, "instrrev"));
  const std::string heap = comparable(text, exact(a, 3));
  const std::size_t at = heap.rfind(comparable(a[1].asText(), exact(a, 3)));
  if (at == std::string::npos || heap.empty()) return 0;
  return static_cast<std::int64_t>(base::length(std::string_view(heap).substr(0, at)) + 1);
}

// replace(text, find, by [, start [, count [, compare]]]); the result begins at the start.
Value replace(Arguments a) {
  if (a[1].isNull() || a[2].isNull()) return {};
  const std::size_t start = a.size() > 3 ? countArgument(a[3], 1, "replace") : 1;
  std::int64_t left = a.size() > 4 ? a[4].asInteger() : -1;
  const std::string text = base::mid(a[0].asText(), start), find = a[1].asText(), by = a[2].asText();
  if (find.empty()) return text;
  const std::string heap = comparable(text, exact(a, 5)), needle = comparable(find, exact(a, 5));
  // Both forms have the same characters but not the same bytes, so both are walked side by side.
  std::string result;
  std::size_t inText = 0, inHeap = 0;
  const auto skipTo = [&](std::size_t end, bool keep) {
    const std::size_t begin = inText;
    while (inHeap < end) {
      base::nextCodePoint(heap, inHeap);
      base::nextCodePoint(text, inText);
    }
    if (keep) result.append(text, begin, inText - begin);
  };
  for (; left != 0; --left) {
    const std::size_t at = heap.find(needle, inHeap);
    if (at == std::string::npos) break;
    skipTo(at, true);
    skipTo(at + needle.size(), false);
    result += by;
  }
  skipTo(heap.size(), true);
  return result;
}

Value string(Arguments a) {
  if (a[1].isNull()) return {};
  const std::string one = a[1].isText() ? base::left(a[1].text(), 1) : std::string();
  if (!one.empty()) return repeated(one, countArgument(a[0], 0, "string"));
  if (a[1].isText()) refuseArgument("string");
  std::string character;
  base::appendCodePoint(character, static_cast<char32_t>(a[1].asInteger() & 0xFF));
  return repeated(character, countArgument(a[0], 0, "string"));
}
Value space(Arguments a) {
  return repeated(" ", countArgument(a[0], 0, "space"));
}

Value strcomp(Arguments a) {
  if (a[1].isNull()) return {};
  const std::string x = a[0].asText(), y = a[1].asText();
  const int order = exact(a, 2) ? x.compare(y) : compare(neutralOrder, x, y);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

Value strreverse(Arguments a) {
  std::string result;
  const auto all = base::characters(a[0].asText());
  for (auto one = all.rbegin(); one != all.rend(); ++one) result += *one;
  return result;
}

// The characters 128 to 159 are those of the Western code page, as in the files the dialect comes from.
Value chr(Arguments a) {
  const std::int64_t code = a[0].asInteger();
  if (code < 0 || code > 255) refuseArgument("chr");
  return base::toUtf8(std::string(1, static_cast<char>(code)), "windows-1252");
}
Value chrw(Arguments a) {
  std::int64_t code = a[0].asInteger();
  if (code < 0 && code >= -32768) code += 65536;
  if (code < 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) refuseArgument("chrw");
  std::string text;
  base::appendCodePoint(text, static_cast<char32_t>(code));
  return text;
}
Value asc(Arguments a) {
  const std::string first = base::left(a[0].asText(), 1);
  if (first.empty()) refuseArgument("asc");
  return static_cast<int>(static_cast<unsigned char>(base::fromUtf8(first, "windows-1252").front()));
}
Value ascw(Arguments a) {
  const std::string text = a[0].asText();
  std::size_t at = 0;
  if (text.empty()) refuseArgument("ascw");
  return static_cast<std::int64_t>(base::nextCodePoint(text, at));
}

constexpr Function table[] = {
    {"len", 1, 1, len},           {"left", 2, 2, left},
    {"right", 2, 2, right},       {"mid", 2, 3, mid},
    {"trim", 1, 1, trim},         {"ltrim", 1, 1, ltrim},
    {"rtrim", 1, 1, rtrim},       {"ucase", 1, 1, ucase},
    {"lcase", 1, 1, lcase},       {"instr", 2, 4, instr},
    {"instrrev", 2, 4, instrrev}, {"replace", 3, 6, replace},
    {"string", 2, 2, string},     {"space", 1, 1, space},
    {"strcomp", 2, 3, strcomp},   {"strreverse", 1, 1, strreverse},
    {"chr", 1, 1, chr, false},    {"chrw", 1, 1, chrw, false},
    {"asc", 1, 1, asc, false},    {"ascw", 1, 1, ascw, false},
};

}  // namespace

std::span<const Function> textFunctions() {
  return table;
}

}  // namespace engine::text
