#include "engine/sql/date_literal.h"

namespace engine::sql {
namespace {

struct Reader {
  std::string_view rest;

  void blanks() {
    while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
  }
  bool take(char c) {
    if (rest.empty() || rest.front() != c) return false;
    rest.remove_prefix(1);
    return true;
  }
  /// A number of at most four digits; tells how many there were, 0 for none.
  std::size_t number(int& value) {
    std::size_t digits = 0;
    value = 0;
    while (digits < 4 && digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9')
      value = 10 * value + (rest[digits++] - '0');
    rest.remove_prefix(digits);
    return digits;
  }
};

int daysOf(int month, int year) {
  if (month == 2) return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

struct Day {
  int year = 1899, month = 12, day = 30;
};

std::optional<Day> readDay(Reader& in) {
  int first = 0, second = 0, third = 0;
  const std::size_t firstDigits = in.number(first);
  if (firstDigits == 0 || in.rest.empty()) return std::nullopt;
  const char separator = in.rest.front();
  if (separator != '-' && separator != '/' && separator != '.') return std::nullopt;
  in.take(separator);
  if (in.number(second) == 0 || !in.take(separator)) return std::nullopt;
  const std::size_t thirdDigits = in.number(third);
  if (thirdDigits == 0) return std::nullopt;

  Day day;
  if (firstDigits == 4) {
    day = {first, second, third};
  } else {
    day = {third, first, second};
    if (thirdDigits <= 2) day.year += day.year < 50 ? 2000 : 1900;
  }
  if (day.year < 100 || day.month < 1 || day.month > 12 || day.day < 1 ||
      day.day > daysOf(day.month, day.year))
    return std::nullopt;
  return day;
}

struct Time {
  int hour = 0, minute = 0, second = 0;
};

std::optional<Time> readTime(Reader& in) {
  Time time;
  if (in.number(time.hour) == 0 || !in.take(':') || in.number(time.minute) == 0) return std::nullopt;
  if (in.take(':') && in.number(time.second) == 0) return std::nullopt;
  in.blanks();
  if (in.rest.size() == 2 && (in.rest[1] | 0x20) == 'm' && time.hour >= 1 && time.hour <= 12) {
    const int half = in.rest[0] | 0x20;
    if (half != 'a' && half != 'p') return std::nullopt;
    time.hour = time.hour % 12 + (half == 'p' ? 12 : 0);
    in.rest = {};
  }
  if (time.hour > 23 || time.minute > 59 || time.second > 59) return std::nullopt;
  return time;
}

}  // namespace

std::optional<base::DateTime> readDateLiteral(std::string_view content) {
  Reader in{content};
  in.blanks();
  Day day;
  Time time;
  const bool timeAlone = in.rest.substr(0, 3).find(':') != std::string_view::npos;
  if (!timeAlone) {
    const auto read = readDay(in);
    if (!read) return std::nullopt;
    day = *read;
    if (!in.rest.empty() && !in.take(' ') && !in.take('T')) return std::nullopt;
    in.blanks();
  }
  if (!in.rest.empty()) {
    const auto read = readTime(in);
    if (!read) return std::nullopt;
    time = *read;
  }
  in.blanks();
  if (!in.rest.empty()) return std::nullopt;
  return base::DateTime::of(day.year, day.month, day.day, time.hour, time.minute, time.second);
}

}  // namespace engine::sql
