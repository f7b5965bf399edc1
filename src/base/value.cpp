#include "base/value.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "base/error.h"
#include "base/text.h"

namespace base {
namespace {

[[noreturn]] void refuseNull() {
  throw Error(94, "A value is needed here, but the field is empty (Null).");
}

[[noreturn]] void refuseType(const std::string& text, const char* wanted) {
  throw Error(13, "\"" + text + "\" is no " + wanted + ".");
}

std::optional<double> number(std::string_view text) {
  const std::string trimmed = trim(text);
  const char* begin = trimmed.data();
  const char* const end = begin + trimmed.size();
  if (begin != end && *begin == '+' && begin + 1 != end && begin[1] != '-') ++begin;
  double result = 0;
  const auto [stop, code] = std::from_chars(begin, end, result);
  if (code != std::errc{} || stop != end || !std::isfinite(result)) return std::nullopt;
  return result;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t result = 0;
  const auto [stop, code] = std::from_chars(text.data(), text.data() + text.size(), result);
  if (code != std::errc{} || stop != text.data() + text.size()) return std::nullopt;
  return result;
}

// Halves go to the even neighbour, as everywhere in the dialect.
std::int64_t rounded(double value) {
  const double whole = std::nearbyint(value);
  if (!(whole >= -9223372036854775808.0 && whole < 9223372036854775808.0)) {
    throw Error(6, "The number is too large.");
  }
  return static_cast<std::int64_t>(whole);
}

std::string decimal(double value) {
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15).ptr;
  return std::string(buffer, end);
}

}  // namespace

std::int64_t Value::asInteger() const {
  switch (kind()) {
    case Kind::null:
      refuseNull();
    case Kind::boolean:
      return std::get<bool>(data_) ? -1 : 0;
    case Kind::integer:
      return std::get<std::int64_t>(data_);
    case Kind::real:
      return rounded(std::get<double>(data_));
    case Kind::date:
      return rounded(asReal());
    case Kind::text:
      break;
  }
  if (const auto whole = wholeNumber(text())) return *whole;
  if (const auto any = number(text())) return rounded(*any);
  refuseType(text(), "number");
}

double Value::asReal() const {
  switch (kind()) {
    case Kind::null:
      refuseNull();
    case Kind::boolean:
      return std::get<bool>(data_) ? -1 : 0;
    case Kind::integer:
      return static_cast<double>(std::get<std::int64_t>(data_));
    case Kind::real:
      return std::get<double>(data_);
    case Kind::date:
      return static_cast<double>(std::get<DateTime>(data_).seconds) / 86400.0;
    case Kind::text:
      break;
  }
  if (const auto any = number(text())) return *any;
  refuseType(text(), "number");
}

bool Value::asBoolean() const {
  if (kind() == Kind::text) {
    if (equalsIgnoreCase(text(), "true")) return true;
    if (equalsIgnoreCase(text(), "false")) return false;
  }
  return asReal() != 0;
}

DateTime Value::asDate() const {
  switch (kind()) {
    case Kind::null:
      refuseNull();
    case Kind::date:
      return std::get<DateTime>(data_);
    case Kind::text:
      if (const auto date = DateTime::fromText(text())) return *date;
      refuseType(text(), "date");
    default:
      break;
  }
  const double days = asReal();
  // The years 100 to 9999.
  if (!(days >= -657434 && days < 2958466)) throw Error(6, "The number is too large for a date.");
  return DateTime{rounded(days * 86400.0)};
}

std::string Value::asText() const {
  switch (kind()) {
    case Kind::null:
      refuseNull();
    case Kind::boolean:
      return std::get<bool>(data_) ? "-1" : "0";
    case Kind::integer:
      return std::to_string(std::get<std::int64_t>(data_));
    case Kind::real:
      return decimal(std::get<double>(data_));
    case Kind::date:
      return std::get<DateTime>(data_).stamp();
    case Kind::text:
      break;
  }
  return text();
}

std::string Value::textOrEmpty() const {
  return isNull() ? std::string() : asText();
}

}  // namespace base
