#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "base/text.h"
#include "engine/text/functions_table.h"

namespace engine::text {
namespace {

constexpr int divisionByZero = 11;

// A whole number stays one, so that 2^53 and above keep their last digit.
bool isWhole(const Value& value) {
  return value.kind() == Value::Kind::integer;
}

Value wholeIfItFits(double number) {
  if (number == std::floor(number) && std::abs(number) < 9007199254740992.0) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

// A date as the file holds it, with its time.
std::optional<base::DateTime> isoDate(const Value& value) {
  if (!value.isText() || value.text().size() != 19) return std::nullopt;
  return base::DateTime::fromIso(value.text());
}

// A date counts as its day number.
double real(const Value& value) {
  const auto date = isoDate(value);
  return date ? Value(*date).asReal() : value.asReal();
}

Value inRange(const Value& value, std::int64_t least, std::int64_t most) {
  const auto date = isoDate(value);
  const std::int64_t number = date ? Value(*date).asInteger() : value.asInteger();
  if (number < least || number > most) throw Error(errors::overflow, "The number is too large.");
  return number;
}

Value abs(Arguments a) {
  if (!isWhole(a[0])) return std::abs(real(a[0]));
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  return std::abs(inRange(a[0], -most, most).asInteger());
}
Value intPart(Arguments a) {
  return isWhole(a[0]) ? a[0] : wholeIfItFits(std::floor(real(a[0])));
}
Value fix(Arguments a) {
  return isWhole(a[0]) ? a[0] : wholeIfItFits(std::trunc(real(a[0])));
}
Value round(Arguments a) {
  const std::int64_t digits = a.size() > 1 ? a[1].asInteger() : 0;
  if (digits < 0 || digits > 22) refuseArgument("round");
  if (isWhole(a[0])) return a[0];
  const double scale = std::pow(10.0, static_cast<double>(digits));
  return wholeIfItFits(std::nearbyint(real(a[0]) * scale) / scale);
}
Value sgn(Arguments a) {
  const double number = real(a[0]);
  return number < 0 ? -1 : number > 0 ? 1 : 0;
}
Value sqr(Arguments a) {
  if (real(a[0]) < 0) refuseArgument("sqr");
  return std::sqrt(real(a[0]));
}

// The number a text begins with, blanks skipped; 0 when it begins with none.
Value val(Arguments a) {
  std::string text = base::replaceAll(a[0].asText(), " ", "");
  const char* begin = text.data();
  if (text.starts_with("+")) ++begin;
  double number = 0;
  const auto result = std::from_chars(begin, text.data() + text.size(), number);
  return result.ec == std::errc{} && std::isfinite(number) ? wholeIfItFits(number) : Value(0);
}
Value str(Arguments a) {
  const double number = real(a[0]);
  const std::string text = isWhole(a[0]) ? a[0].asText() : wholeIfItFits(number).asText();
  return number < 0 ? text : " " + text;
}

Value cstr(Arguments a) {
  return a[0].asText();
}
Value clng(Arguments a) {
  return inRange(a[0], -2147483648LL, 2147483647LL);
}
Value cint(Arguments a) {
  return inRange(a[0], -32768, 32767);
}
Value cdbl(Arguments a) {
  return real(a[0]);
}
Value cbool(Arguments a) {
  return a[0].asBoolean();
}

Value isNull(Arguments a) {
  return a[0].isNull();
}
Value isNumeric(Arguments a) {
  if (!a[0].isText()) return !a[0].isNull();
  try {
    a[0].asReal();
    return true;
  } catch (const Error&) {
    return false;  // the question itself: a text that is no number
  }
}
Value nz(Arguments a) {
  return !a[0].isNull() ? a[0] : a.size() > 1 ? a[1] : Value("");
}
Value iif(Arguments a) {
  return !a[0].isNull() && a[0].asBoolean() ? a[1] : a[2];
}
Value choose(Arguments a) {
  const std::int64_t place = a[0].asInteger();
  return place >= 1 && place < static_cast<std::int64_t>(a.size()) ? a[static_cast<std::size_t>(place)]
                                                                   : Value();
}

constexpr Function functions[] = {
    {"abs", 1, 1, abs},
    {"int", 1, 1, intPart},
    {"fix", 1, 1, fix},
    {"round", 1, 2, round},
    {"sgn", 1, 1, sgn},
    {"sqr", 1, 1, sqr},
    {"val", 1, 1, val, false},
    {"str", 1, 1, str},
    {"cstr", 1, 1, cstr, false},
    {"clng", 1, 1, clng, false},
    {"cint", 1, 1, cint, false},
    {"cdbl", 1, 1, cdbl, false},
    {"cbool", 1, 1, cbool, false},
    {"isnull", 1, 1, isNull, false},
    {"isnumeric", 1, 1, isNumeric, false},
    {"nz", 1, 2, nz, false},
    {"iif", 3, 3, iif, false},
    {"choose", 2, 64, choose},
};

bool anyNull(Arguments a) {
  return a[0].isNull() || a[1].isNull();
}

base::DateTime shifted(base::DateTime date, double days) {
  return Value(Value(date).asReal() + days).asDate();
}

Value concat(Arguments a) {
  std::string text;
  for (const Value& one : a) text += one.textOrEmpty();
  return text;
}
Value plus(Arguments a) {
  if (anyNull(a)) return {};
  if (a[0].isText() && a[1].isText()) return a[0].text() + a[1].text();
  if (const auto date = isoDate(a[0])) return shifted(*date, a[1].asReal());
  if (const auto date = isoDate(a[1])) return shifted(*date, a[0].asReal());
  std::int64_t sum = 0;
  if (isWhole(a[0]) && isWhole(a[1]) && !__builtin_add_overflow(a[0].asInteger(), a[1].asInteger(), &sum))
    return sum;
  return wholeIfItFits(a[0].asReal() + a[1].asReal());
}
Value minus(Arguments a) {
  if (anyNull(a)) return {};
  const auto left = isoDate(a[0]), right = isoDate(a[1]);
  if (left && right) return wholeIfItFits(static_cast<double>(left->seconds - right->seconds) / 86400.0);
  if (left) return shifted(*left, -a[1].asReal());
  std::int64_t rest = 0;
  if (isWhole(a[0]) && isWhole(a[1]) && !__builtin_sub_overflow(a[0].asInteger(), a[1].asInteger(), &rest))
    return rest;
  return wholeIfItFits(a[0].asReal() - a[1].asReal());
}

[[noreturn]] void refuseZero() {
  throw Error(divisionByZero, "Division by zero.");
}

Value divide(Arguments a) {
  if (anyNull(a)) return {};
  if (a[1].asReal() == 0) refuseZero();
  return wholeIfItFits(a[0].asReal() / a[1].asReal());
}
// Both sides are rounded first.
Value wholeDivide(Arguments a) {
  if (anyNull(a)) return {};
  const std::int64_t divisor = a[1].asInteger();
  if (divisor == 0) refuseZero();
  return divisor == -1 ? wholeIfItFits(-a[0].asReal()) : Value(a[0].asInteger() / divisor);
}
Value remainder(Arguments a) {
  if (anyNull(a)) return {};
  const std::int64_t divisor = a[1].asInteger();
  if (divisor == 0) refuseZero();
  return divisor == -1 ? Value(0) : Value(a[0].asInteger() % divisor);
}
Value power(Arguments a) {
  if (anyNull(a)) return {};
  const double result = std::pow(a[0].asReal(), a[1].asReal());
  if (std::isnan(result)) refuseArgument("^");
  if (std::isinf(result)) throw Error(errors::overflow, "The number is too large.");
  return wholeIfItFits(result);
}

constexpr Function operators[] = {
    {"concat", 1, 100, concat, false},
    {"plus", 2, 2, plus},
    {"minus", 2, 2, minus},
    {"div", 2, 2, divide},
    {"idiv", 2, 2, wholeDivide},
    {"mod", 2, 2, remainder},
    {"pow", 2, 2, power},
};

}  // namespace

std::span<const Function> numberFunctions() {
  return functions;
}
std::span<const Function> operatorFunctions() {
  return operators;
}

}  // namespace engine::text
