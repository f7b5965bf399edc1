#include "engine/plan/names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/text.h"

namespace engine::plan {
namespace {

char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

std::string textLiteral(std::string_view text) {
  const bool plain =
      std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  std::string result;
  if (plain) {
    result += '\'';
    for (char c : text) {
      if (c == '\'') result += '\'';
      result += c;
    }
    return result += '\'';
  }
  static constexpr char digits[] = "0123456789abcdef";
  result = "CAST(x'";
  for (char c : text) {
    result += digits[static_cast<unsigned char>(c) >> 4];
    result += digits[static_cast<unsigned char>(c) & 15];
  }
  return result += "' AS TEXT)";
}

std::string realLiteral(double number) {
  if (!std::isfinite(number)) throw Error(errors::overflow, "A number is too large");
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  std::string text(buffer.data(), end);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return number < 0 ? "(" + text + ")" : text;
}

}  // namespace

bool sameName(std::string_view a, std::string_view b) {
  // Names are nearly always plain ASCII; the first letter that is not sends both to the full comparison.
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    if (static_cast<unsigned char>(a[i]) >= 0x80 || static_cast<unsigned char>(b[i]) >= 0x80)
      return base::equalsIgnoreCase(a, b);
    if (lowerAscii(a[i]) != lowerAscii(b[i])) return false;
  }
  return a.size() == b.size();
}

std::vector<std::string> splitName(std::string_view name) {
  std::vector<std::string> parts(1);
  bool bracketed = false;
  for (char c : name) {
    if (c == '[' && !bracketed && parts.back().empty())
      bracketed = true;
    else if (c == ']' && bracketed)
      bracketed = false;
    else if ((c == '.' || c == '!') && !bracketed)
      parts.emplace_back();
    else
      parts.back() += c;
  }
  return parts;
}

std::string joinName(const std::vector<std::string>& path) {
  std::string name;
  for (const std::string& part : path) {
    if (!name.empty()) name += '.';
    name += part;
  }
  return name;
}

std::string literal(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::null:
      return "NULL";
    case Value::Kind::boolean:
      return value.asBoolean() ? "(-1)" : "0";
    case Value::Kind::integer: {
      std::string text = std::to_string(value.asInteger());
      return text.front() == '-' ? "(" + text + ")" : text;
    }
    case Value::Kind::real:
      return realLiteral(value.asReal());
    case Value::Kind::date:
      return "'" + value.asDate().iso() + "'";
    case Value::Kind::text:
      return textLiteral(value.text());
  }
  return "NULL";
}

}  // namespace engine::plan
