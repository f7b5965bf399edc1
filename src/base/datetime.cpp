#include "base/datetime.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "base/error.h"
#include "base/text.h"

namespace base {
namespace {

namespace ch = std::chrono;

constexpr std::int64_t secondsPerDay = 86400;
constexpr ch::sys_days dayZero = ch::year{1899} / 12 / 30;

std::optional<DateTime> make(int year, int month, int day, int hour, int minute, int second) {
  const ch::year_month_day date{ch::year{year}, ch::month{static_cast<unsigned>(month)},
                                ch::day{static_cast<unsigned>(day)}};
  const bool timeOk = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  if (year < 100 || year > 9999 || !date.ok() || !timeOk) return std::nullopt;
  const std::int64_t days = (ch::sys_days{date} - dayZero).count();
  return DateTime{days * secondsPerDay + hour * 3600 + minute * 60 + second};
}

std::int64_t dayNumber(DateTime when) {
  const std::int64_t days = when.seconds / secondsPerDay;
  return when.seconds % secondsPerDay < 0 ? days - 1 : days;
}

ch::year_month_day civil(DateTime when) {
  return ch::year_month_day{dayZero + ch::days{dayNumber(when)}};
}

int secondOfDay(DateTime when) {
  return static_cast<int>(when.seconds - dayNumber(when) * secondsPerDay);
}

// A number of minDigits to maxDigits digits at the front of `text`, which is cut off; -1 when there is none.
int takeNumber(std::string_view& text, std::size_t minDigits, std::size_t maxDigits) {
  std::size_t digits = 0;
  while (digits < text.size() && text[digits] >= '0' && text[digits] <= '9') ++digits;
  if (digits < minDigits || digits > maxDigits) return -1;
  int number = 0;
  std::from_chars(text.data(), text.data() + digits, number);
  text.remove_prefix(digits);
  return number;
}

bool take(std::string_view& text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

struct Time {
  int hour = 0, minute = 0, second = 0;
};

// The rest of a date's text: nothing, or " h:mm[:ss]".
std::optional<Time> restAsTime(std::string_view text, std::size_t hourDigits, bool secondsRequired) {
  Time time;
  if (text.empty()) return time;
  if (!take(text, ' ')) return std::nullopt;
  time.hour = takeNumber(text, hourDigits, 2);
  if (time.hour < 0 || !take(text, ':')) return std::nullopt;
  time.minute = takeNumber(text, 2, 2);
  if (time.minute < 0) return std::nullopt;
  if (take(text, ':')) {
    time.second = takeNumber(text, 2, 2);
    if (time.second < 0) return std::nullopt;
  } else if (secondsRequired) {
    return std::nullopt;
  }
  if (!text.empty()) return std::nullopt;
  return time;
}

}  // namespace

DateTime DateTime::of(int year, int month, int day, int hour, int minute, int second) {
  const auto result = make(year, month, day, hour, minute, second);
  if (!result) throw Error(5, "This is no date.");
  return *result;
}

DateTime DateTime::now() {
  const std::time_t clock = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&clock, &local) == nullptr) throw Error(5, "The clock can not be read.");
  // A leap second counts as the one before it.
  const int second = local.tm_sec > 59 ? 59 : local.tm_sec;
  return of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, second);
}

std::optional<DateTime> DateTime::fromIso(std::string_view text) {
  const int year = takeNumber(text, 4, 4);
  if (year < 0 || !take(text, '-')) return std::nullopt;
  const int month = takeNumber(text, 2, 2);
  if (month < 0 || !take(text, '-')) return std::nullopt;
  const int day = takeNumber(text, 2, 2);
  if (day < 0) return std::nullopt;
  const auto time = restAsTime(text, 2, true);
  if (!time) return std::nullopt;
  return make(year, month, day, time->hour, time->minute, time->second);
}

std::optional<DateTime> DateTime::fromText(std::string_view text) {
  const std::string trimmed = trim(text);
  if (auto iso = fromIso(trimmed)) return iso;
  std::string_view rest = trimmed;
  const int day = takeNumber(rest, 1, 2);
  if (day < 0 || rest.empty()) return std::nullopt;
  const char separator = rest.front();
  if (separator != '.' && separator != '/' && separator != '-') return std::nullopt;
  rest.remove_prefix(1);
  const int month = takeNumber(rest, 1, 2);
  if (month < 0 || !take(rest, separator)) return std::nullopt;
  const std::size_t before = rest.size();
  int year = takeNumber(rest, 1, 4);
  if (year < 0) return std::nullopt;
  if (before - rest.size() <= 2) year += year < 50 ? 2000 : 1900;
  const auto time = restAsTime(rest, 1, false);
  if (!time) return std::nullopt;
  return make(year, month, day, time->hour, time->minute, time->second);
}

int DateTime::year() const {
  return static_cast<int>(civil(*this).year());
}
int DateTime::month() const {
  return static_cast<int>(static_cast<unsigned>(civil(*this).month()));
}
int DateTime::day() const {
  return static_cast<int>(static_cast<unsigned>(civil(*this).day()));
}
int DateTime::hour() const {
  return secondOfDay(*this) / 3600;
}
int DateTime::minute() const {
  return secondOfDay(*this) / 60 % 60;
}
int DateTime::second() const {
  return secondOfDay(*this) % 60;
}

int DateTime::weekday() const {
  return static_cast<int>(ch::weekday{dayZero + ch::days{dayNumber(*this)}}.c_encoding()) + 1;
}

DateTime DateTime::date() const {
  return DateTime{dayNumber(*this) * secondsPerDay};
}
DateTime DateTime::plusDays(std::int64_t n) const {
  return DateTime{seconds + n * secondsPerDay};
}

std::string DateTime::iso() const {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", year(), month(), day(), hour(),
                minute(), second());
  return buffer;
}

std::string DateTime::stamp() const {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%02d.%02d.%04d %02d:%02d:%02d", day(), month(), year(), hour(),
                minute(), second());
  return buffer;
}

namespace {

struct Names {
  std::array<const char*, 12> months;
  std::array<const char*, 7> days;  // from Sunday on
  std::size_t shortDay;             // characters of a day's short name
};

constexpr Names german{{"Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August", "September",
                        "Oktober", "November", "Dezember"},
                       {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"},
                       2};
constexpr Names englishNames{{"January", "February", "March", "April", "May", "June", "July", "August",
                              "September", "October", "November", "December"},
                             {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
                             3};

std::string padded(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string named(const char* name, bool whole, std::size_t shortLength) {
  return whole ? std::string(name) : left(name, shortLength);
}

// One run of the same pattern letter; empty for a run that means nothing.
std::string field(DateTime when, char letter, std::size_t count, bool behindHour, const Names& names) {
  const auto month = static_cast<std::size_t>(when.month() - 1);
  const auto weekday = static_cast<std::size_t>(when.weekday() - 1);
  switch (letter) {
    case 'd':
      if (count <= 2) return padded(when.day(), count);
      return named(names.days[weekday], count > 3, names.shortDay);
    case 'm':
      if (count <= 2) return padded(behindHour ? when.minute() : when.month(), count);
      return named(names.months[month], count > 3, 3);
    case 'y':
      return count <= 2 ? padded(when.year() % 100, 2) : padded(when.year(), 4);
    case 'h':
      return padded(when.hour(), count > 1 ? 2 : 1);
    case 'n':
      return padded(when.minute(), count > 1 ? 2 : 1);
    case 's':
      return padded(when.second(), count > 1 ? 2 : 1);
    default:
      return {};
  }
}

}  // namespace

std::string formatDate(DateTime when, std::string_view pattern, bool english) {
  const Names& names = english ? englishNames : german;
  std::string result;
  char lastField = 0;
  for (std::size_t at = 0; at < pattern.size();) {
    const char c = pattern[at];
    const char letter = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    if (c == '\\' && at + 1 < pattern.size()) {
      result += pattern[at + 1];
      at += 2;
    } else if (c == '"') {
      const std::size_t end = pattern.find('"', at + 1);
      const std::size_t stop = end == std::string_view::npos ? pattern.size() : end;
      result += pattern.substr(at + 1, stop - at - 1);
      at = stop + 1;
    } else if (std::string_view("dmyhns").find(letter) != std::string_view::npos) {
      std::size_t count = 0;
      while (at + count < pattern.size() && (pattern[at + count] | 0x20) == letter) ++count;
      result += field(when, letter, count, lastField == 'h', names);
      lastField = letter;
      at += count;
    } else {
      result += c;
      ++at;
    }
  }
  return result;
}

}  // namespace base
