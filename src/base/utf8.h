#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Single code points of UTF-8 text, for loops that look at every character.
namespace base {

/// What nextCodePoint gives for a byte that is no UTF-8.
inline constexpr char32_t invalidCodePoint = 0xFFFFFFFF;

/// The code point at byte `at`, which must be inside the text; moves `at` behind it, by one byte where the
/// bytes are no UTF-8 (cut off, overlong, a surrogate, beyond U+10FFFF).
inline char32_t nextCodePoint(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) -> char32_t { return static_cast<unsigned char>(text[i]); };
  const char32_t lead = byte(at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  const std::size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || at + size > text.size()) {
    ++at;
    return invalidCodePoint;
  }
  char32_t code = lead & (0xFFU >> (size + 1));
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) {
      ++at;
      return invalidCodePoint;
    }
    code = (code << 6) | (byte(at + i) & 0x3F);
  }
  const bool overlong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
  if (overlong || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) {
    ++at;
    return invalidCodePoint;
  }
  at += size;
  return code;
}

/// Appends a valid code point.
inline void appendCodePoint(std::string& text, char32_t code) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | (code >> 6));
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

}  // namespace base
