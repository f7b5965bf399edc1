#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace base {

/// A civil date and time without a zone, to the second; years 100 to 9999.
struct DateTime {
  std::int64_t seconds = 0;  ///< since 1899-12-30 00:00:00 (so a day number is seconds / 86400)

  static DateTime of(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
  /// The local clock's date and time.
  static DateTime now();
  /// "yyyy-mm-dd[ hh:mm:ss]" as dates stand in the file; nothing when it is not that.
  static std::optional<DateTime> fromIso(std::string_view text);
  /// Day first, "d.m.yyyy[ hh:mm[:ss]]", also with "/" or "-" between; two-digit years 00-49 are 20xx,
  /// 50-99 are 19xx; ISO form too. Nothing when it is no date.
  static std::optional<DateTime> fromText(std::string_view text);

  int year() const;
  int month() const;
  int day() const;
  int hour() const;
  int minute() const;
  int second() const;
  /// 1 Sunday to 7 Saturday.
  int weekday() const;
  DateTime date() const;                  ///< the same day at midnight
  DateTime plusDays(std::int64_t n) const;
  std::string iso() const;                ///< "yyyy-mm-dd hh:mm:ss"
  std::string stamp() const;              ///< "dd.mm.yyyy hh:mm:ss", the form of a time stamp in a text column

  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

/// Formats by the dialect's pattern letters: d dd ddd dddd, m mm mmm mmmm (minutes directly behind
/// hours), yy yyyy, h hh, n nn, s ss; all else stands as it is, "\" and quotes protect. Names of days
/// and months are German unless english.
std::string formatDate(DateTime when, std::string_view pattern, bool english = false);

}  // namespace base
