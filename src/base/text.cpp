#include "base/text.h"

#include <unicode/uchar.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <memory>

#include "base/error.h"
#include "base/utf8.h"

namespace base {
namespace {

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

bool isAscii(std::string_view text) {
  unsigned char all = 0;
  for (char c : text) all |= static_cast<unsigned char>(c);
  return all < 0x80;
}

char asciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}
char asciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// Byte offset of the character `index` (from 0), or the end of the text.
std::size_t offsetOf(std::string_view text, std::size_t index) {
  std::size_t at = 0;
  while (at < text.size()) {
    if (!isContinuation(text[at])) {
      if (index == 0) return at;
      --index;
    }
    ++at;
  }
  return at;
}

// Maps code point by code point; bytes that are no UTF-8 stay as they are.
template <class Map>
std::string mapped(std::string_view text, Map map) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const char32_t c = nextCodePoint(text, at);
    if (c == invalidCodePoint) {
      result += text[begin];
    } else {
      appendCodePoint(result, static_cast<char32_t>(map(static_cast<UChar32>(c))));
    }
  }
  return result;
}

// One form for all spellings of a text that differ in case alone. Going through the capital first joins
// letters that share one (σ and ς).
UChar32 caseless(UChar32 c) {
  return u_foldCase(u_toupper(c), U_FOLD_CASE_DEFAULT);
}

std::string caseless(std::string_view text) {
  if (!isAscii(text)) return mapped(text, [](UChar32 c) { return caseless(c); });
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), asciiLower);
  return result;
}

std::size_t findFrom(std::string_view text, std::string_view what, std::size_t start) {
  start = std::max<std::size_t>(start, 1);
  const std::size_t from = offsetOf(text, start - 1);
  if (from >= text.size()) return 0;
  const std::size_t at = text.find(what, from);
  return at == std::string_view::npos ? 0 : start + length(text.substr(from, at - from));
}

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter openConverter(const std::string& charset) {
  UErrorCode status = U_ZERO_ERROR;
  // An empty name would mean the process's default set.
  Converter converter(charset.empty() ? nullptr : ucnv_open(charset.c_str(), &status));
  if (!converter || U_FAILURE(status)) throw Error(5, "Unknown character set \"" + charset + "\".");
  return converter;
}

std::string converted(std::string_view bytes, const std::string& from, const std::string& to) {
  const Converter source = openConverter(from);
  const Converter target = openConverter(to);
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(source.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  // UTF-8 can express everything and takes no substitute.
  if (to != "UTF-8") ucnv_setSubstString(target.get(), u"?", 1, &status);
  if (U_FAILURE(status)) throw Error(5, "The character set \"" + to + "\" can not be written.");
  std::string result;
  std::string buffer(8192, '\0');
  std::u16string pivot(4096, u'\0');
  UChar* pivotSource = pivot.data();
  UChar* pivotTarget = pivot.data();
  const char* at = bytes.data();
  for (bool first = true; first || status == U_BUFFER_OVERFLOW_ERROR; first = false) {
    char* out = buffer.data();
    status = U_ZERO_ERROR;
    ucnv_convertEx(target.get(), source.get(), &out, buffer.data() + buffer.size(), &at,
                   bytes.data() + bytes.size(), pivot.data(), &pivotSource, &pivotTarget,
                   pivot.data() + pivot.size(), first, true, &status);
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
      throw Error(5, "The text is not in the character set \"" + from + "\".");
    }
    result.append(buffer.data(), static_cast<std::size_t>(out - buffer.data()));
  }
  return result;
}

}  // namespace

bool isUtf8(std::string_view text) {
  if (isAscii(text)) return true;
  for (std::size_t at = 0; at < text.size();) {
    if (nextCodePoint(text, at) == invalidCodePoint) return false;
  }
  return true;
}

std::size_t length(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

std::string mid(std::string_view text, std::size_t start, std::size_t count) {
  text.remove_prefix(offsetOf(text, std::max<std::size_t>(start, 1) - 1));
  return std::string(text.substr(0, offsetOf(text, count)));
}

std::string left(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, offsetOf(text, count)));
}

std::string right(std::string_view text, std::size_t count) {
  const std::size_t all = length(text);
  return std::string(count >= all ? text : text.substr(offsetOf(text, all - count)));
}

std::size_t inStr(std::string_view text, std::string_view what, std::size_t start) {
  return findFrom(text, what, start);
}

std::size_t inStrIgnoreCase(std::string_view text, std::string_view what, std::size_t start) {
  return findFrom(caseless(text), caseless(what), start);
}

std::string upper(std::string_view text) {
  if (!isAscii(text)) return mapped(text, [](UChar32 c) { return u_toupper(c); });
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), asciiUpper);
  return result;
}

std::string lower(std::string_view text) {
  if (!isAscii(text)) return mapped(text, [](UChar32 c) { return u_tolower(c); });
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), asciiLower);
  return result;
}

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
  std::size_t at = 0;
  const std::size_t common = std::min(a.size(), b.size());
  while (at < common && static_cast<unsigned char>(a[at] | b[at]) < 0x80) {
    if (asciiLower(a[at]) != asciiLower(b[at])) return false;
    ++at;
  }
  if (at == a.size() && at == b.size()) return true;
  return caseless(a.substr(at)) == caseless(b.substr(at));
}

std::string trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = 0; !what.empty() && (at = text.find(what, from)) != std::string_view::npos;) {
    result.append(text.substr(from, at - from)).append(by);
    from = at + what.size();
  }
  return result.append(text.substr(from));
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t at = 0;
       !separator.empty() && (at = text.find(separator, from)) != std::string_view::npos;) {
    parts.emplace_back(text.substr(from, at - from));
    from = at + separator.size();
  }
  parts.emplace_back(text.substr(from));
  return parts;
}

std::vector<std::string> characters(std::string_view text) {
  std::vector<std::string> result;
  for (char c : text) {
    if (isContinuation(c) && !result.empty()) {
      result.back() += c;
    } else {
      result.emplace_back(1, c);
    }
  }
  return result;
}

std::string toUtf8(std::string_view bytes, const std::string& charset) {
  return converted(bytes, charset, "UTF-8");
}

std::string fromUtf8(std::string_view text, const std::string& charset) {
  return converted(text, "UTF-8", charset);
}

}  // namespace base
