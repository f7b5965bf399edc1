#include <algorithm>
#include <cmath>
#include <string>

#include "base/text.h"
#include "engine/text/functions_table.h"

namespace engine::text {
namespace {

using base::DateTime;

// A time without a date stands on the first day of the calendar.
std::optional<DateTime> timeAlone(const std::string& text) {
  if (text.find(':') == std::string::npos) return std::nullopt;
  return DateTime::fromText("30.12.1899 " + base::trim(text));
}

DateTime asDate(const Value& value) {
  if (value.isText()) {
    if (const auto time = timeAlone(value.text())) return *time;
  }
  return value.asDate();
}

Value cdate(Arguments a) {
  return asDate(a[0]);
}
Value datevalue(Arguments a) {
  return asDate(a[0]).date();
}
Value timevalue(Arguments a) {
  const DateTime when = asDate(a[0]);
  return DateTime{when.seconds - when.date().seconds};
}
Value isDate(Arguments a) {
  if (!a[0].isText()) return false;
  return DateTime::fromText(a[0].text()).has_value() || timeAlone(a[0].text()).has_value();
}

Value now(Arguments) {
  return DateTime::now();
}
Value today(Arguments) {
  return DateTime::now().date();
}
Value timeNow(Arguments) {
  const DateTime when = DateTime::now();
  return DateTime{when.seconds - when.date().seconds};
}

Value year(Arguments a) {
  return asDate(a[0]).year();
}
Value month(Arguments a) {
  return asDate(a[0]).month();
}
Value day(Arguments a) {
  return asDate(a[0]).day();
}
Value hour(Arguments a) {
  return asDate(a[0]).hour();
}
Value minute(Arguments a) {
  return asDate(a[0]).minute();
}
Value second(Arguments a) {
  return asDate(a[0]).second();
}
Value weekday(Arguments a) {
  const std::int64_t first = a.size() > 1 ? a[1].asInteger() : 1;  // 1 Sunday, 2 Monday
  if (first < 1 || first > 7) refuseArgument("weekday");
  return (asDate(a[0]).weekday() - first + 7) % 7 + 1;
}

// Months and days beyond their range carry over.
DateTime serial(std::int64_t y, std::int64_t m, std::int64_t d) {
  if (y >= 0 && y < 100) y += y < 50 ? 2000 : 1900;
  if (std::abs(y) > 10000 || std::abs(m) > 200000 || std::abs(d) > 4000000) refuseArgument("dateserial");
  std::int64_t months = y * 12 + m - 1;
  const std::int64_t years = months >= 0 ? months / 12 : (months - 11) / 12;
  months -= years * 12;
  return DateTime::of(static_cast<int>(years), static_cast<int>(months) + 1, 1).plusDays(d - 1);
}
Value dateserial(Arguments a) {
  return serial(a[0].asInteger(), a[1].asInteger(), a[2].asInteger());
}
Value timeserial(Arguments a) {
  for (const Value& one : a) {
    if (std::abs(one.asInteger()) > 100000000) refuseArgument("timeserial");
  }
  return DateTime{a[0].asInteger() * 3600 + a[1].asInteger() * 60 + a[2].asInteger()};
}

DateTime plusMonths(DateTime when, std::int64_t n) {
  const DateTime first = serial(when.year(), when.month() + n, 1);
  const DateTime last = serial(first.year(), first.month() + 1, 0);
  return DateTime{first.plusDays(std::min(when.day(), last.day()) - 1).seconds + when.seconds -
                  when.date().seconds};
}

std::string interval(const Value& value) {
  return base::lower(value.asText());
}

Value dateadd(Arguments a) {
  const std::string unit = interval(a[0]);
  if (a[1].isNull() || a[2].isNull()) return {};
  const std::int64_t n = a[1].asInteger();
  const DateTime when = asDate(a[2]);
  if (std::abs(n) > 100000000000) refuseArgument("dateadd");
  DateTime result = when;
  if (unit == "yyyy" || unit == "q" || unit == "m") {
    result = plusMonths(when, n * (unit == "m" ? 1 : unit == "q" ? 3 : 12));
  } else if (unit == "d" || unit == "y" || unit == "w") {
    result = when.plusDays(n);
  } else if (unit == "ww") {
    result = when.plusDays(n * 7);
  } else if (unit == "h" || unit == "n" || unit == "s") {
    result.seconds += n * (unit == "h" ? 3600 : unit == "n" ? 60 : 1);
  } else {
    refuseArgument("dateadd");
  }
  // Through the day number, which refuses what leaves the calendar.
  return Value(static_cast<double>(result.date().seconds / 86400)).asDate() == result.date() ? Value(result)
                                                                                             : Value();
}

// The number of borders between two dates.
Value datediff(Arguments a) {
  const std::string unit = interval(a[0]);
  if (a[1].isNull() || a[2].isNull()) return {};
  const DateTime from = asDate(a[1]), to = asDate(a[2]);
  const std::int64_t days = (to.date().seconds - from.date().seconds) / 86400;
  const std::int64_t months = (to.year() - from.year()) * 12 + to.month() - from.month();
  const auto units = [](DateTime when, std::int64_t seconds) {
    return (when.seconds - (when.seconds % seconds + seconds) % seconds) / seconds;
  };
  if (unit == "yyyy") return to.year() - from.year();
  if (unit == "q") return (to.year() - from.year()) * 4 + (to.month() - 1) / 3 - (from.month() - 1) / 3;
  if (unit == "m") return months;
  if (unit == "d" || unit == "y") return days;
  if (unit == "w") return days / 7;
  if (unit == "ww") return (days - to.weekday() + from.weekday()) / 7;
  if (unit == "h") return units(to, 3600) - units(from, 3600);
  if (unit == "n") return units(to, 60) - units(from, 60);
  if (unit == "s") return to.seconds - from.seconds;
  refuseArgument("datediff");
}

Value datepart(Arguments a) {
  const std::string unit = interval(a[0]);
  if (a[1].isNull()) return {};
  const DateTime when = asDate(a[1]);
  const DateTime newYear = DateTime::of(when.year(), 1, 1);
  const std::int64_t dayOfYear = (when.date().seconds - newYear.seconds) / 86400 + 1;
  if (unit == "yyyy") return when.year();
  if (unit == "q") return (when.month() - 1) / 3 + 1;
  if (unit == "m") return when.month();
  if (unit == "y") return dayOfYear;
  if (unit == "d") return when.day();
  if (unit == "w") return when.weekday();
  if (unit == "ww")
    return (dayOfYear + newYear.weekday() - 2) / 7 + 1;  // weeks from Sunday; 1 January in the first
  if (unit == "h") return when.hour();
  if (unit == "n") return when.minute();
  if (unit == "s") return when.second();
  refuseArgument("datepart");
}

// A number by a pattern of 0 # . , and %, with texts before and behind it.
std::string formatNumber(double number, const std::string& pattern) {
  const std::size_t begin = pattern.find_first_of("0#.");
  if (begin == std::string::npos) return pattern;
  const std::size_t end = pattern.find_last_of("0#.") + 1;
  const std::string digits = pattern.substr(begin, end - begin);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const bool percent = pattern.find('%') != std::string::npos;
  const auto places = static_cast<int>(std::count_if(digits.begin() + static_cast<std::ptrdiff_t>(point),
                                                     digits.end(), [](char c) { return c != '.'; }));
  const auto least = static_cast<std::size_t>(
      std::count(digits.begin(), digits.begin() + static_cast<std::ptrdiff_t>(point), '0'));
  // Halves go away from zero here, unlike everywhere else in the dialect.
  const double scale = std::pow(10.0, places);
  const double rounded = std::round(std::abs(number) * (percent ? 100 : 1) * scale) / scale;
  char buffer[400];
  const int length = std::snprintf(buffer, sizeof buffer, "%.*f", std::min(places, 30), rounded);
  std::string text(buffer, static_cast<std::size_t>(std::clamp(length, 0, 399)));
  std::size_t whole = std::min(text.find('.'), text.size());
  for (std::size_t i = digits.size(); i > point + 1 && digits[i - 1] == '#' && text.back() == '0'; --i)
    text.pop_back();
  if (point == digits.size() && whole < text.size()) text.erase(whole);
  if (least == 0 && whole == 1 && text[0] == '0') text.erase(0, 1), whole = 0;
  if (whole < least) text.insert(0, least - whole, '0'), whole = least;
  if (digits.find(',') < point) {
    for (std::size_t i = whole; i > 3; i -= 3) text.insert(i - 3, ",");
  }
  return (number < 0 && rounded != 0 ? "-" : "") + pattern.substr(0, begin) + text + pattern.substr(end);
}

Value format(Arguments a) {
  if (a[0].isNull()) return "";
  if (a.size() < 2 || a[1].isNull()) return a[0].asText();
  const std::string pattern = a[1].asText();
  const bool forDates = pattern.find_first_of("dmyhnsDMYHNS") != std::string::npos;
  if (a[0].isText()) {
    const auto date = DateTime::fromText(a[0].text());
    if (date && forDates) return base::formatDate(*date, pattern);
    if (forDates && !timeAlone(a[0].text())) return a[0];
  }
  if (forDates) return base::formatDate(asDate(a[0]), pattern);
  try {
    return formatNumber(a[0].asReal(), pattern);
  } catch (const Error& error) {
    if (error.number() == errors::typeMismatch)
      return a[0];  // a text stays what it is under a number's pattern
    throw;
  }
}

constexpr Function table[] = {
    {"cdate", 1, 1, cdate},
    {"datevalue", 1, 1, datevalue},
    {"timevalue", 1, 1, timevalue},
    {"isdate", 1, 1, isDate, false},
    {"now", 0, 0, now, false, true},
    {"date", 0, 0, today, false, true},
    {"time", 0, 0, timeNow, false, true},
    {"year", 1, 1, year},
    {"month", 1, 1, month},
    {"day", 1, 1, day},
    {"hour", 1, 1, hour},
    {"minute", 1, 1, minute},
    {"second", 1, 1, second},
    {"weekday", 1, 2, weekday},
    {"dateserial", 3, 3, dateserial, false},
    {"timeserial", 3, 3, timeserial, false},
    {"dateadd", 3, 3, dateadd, false},
    {"datediff", 3, 5, datediff, false},
    {"datepart", 2, 4, datepart, false},
    {"format", 1, 2, format, false},
};

}  // namespace

std::span<const Function> dateFunctions() {
  return table;
}

}  // namespace engine::text
