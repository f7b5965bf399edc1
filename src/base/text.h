#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text as the rules see it: UTF-8, positions and lengths in code points counted from 1,
/// case mapping one to one (ß stays ß), so that a mapped text keeps its length.
namespace base {

bool isUtf8(std::string_view text);
std::size_t length(std::string_view text);
/// The `count` characters from position `start` (from 1) on; shorter at the end, empty behind it.
std::string mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);
std::string left(std::string_view text, std::size_t count);
std::string right(std::string_view text, std::size_t count);
/// The position of the first `what` at or behind `start`, 0 when there is none; byte-exact.
std::size_t inStr(std::string_view text, std::string_view what, std::size_t start = 1);
/// The same without regard to case.
std::size_t inStrIgnoreCase(std::string_view text, std::string_view what, std::size_t start = 1);
std::string upper(std::string_view text);
std::string lower(std::string_view text);
bool equalsIgnoreCase(std::string_view a, std::string_view b);
/// Without blanks (only U+0020) at both ends.
std::string trim(std::string_view text);
std::string replaceAll(std::string_view text, std::string_view what, std::string_view by);
/// The parts between the separators; an empty text is one empty part.
std::vector<std::string> split(std::string_view text, std::string_view separator);
/// The code points as one string each.
std::vector<std::string> characters(std::string_view text);
/// Text of one of the named character sets ("windows-1252", "UTF-16LE", ...) as UTF-8 and back.
/// Throws Error 5 for an unknown set or for bytes that are none of it; what the set can not express
/// becomes "?". A byte order mark stays in the text as U+FEFF, except that "UTF-16" and "UTF-32" use it up.
std::string toUtf8(std::string_view bytes, const std::string& charset);
std::string fromUtf8(std::string_view text, const std::string& charset);

}  // namespace base
