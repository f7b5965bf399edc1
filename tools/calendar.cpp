#include "calendar.h"

#include <chrono>
#include <string>
#include <vector>

namespace calendar {
namespace {

using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::weekday;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr int firstYear = 1990, lastYear = 2060;

constexpr const char* dayNames[] = {"Montag",  "Dienstag", "Mittwoch", "Donnerstag",
                                    "Freitag", "Samstag",  "Sonntag"};
constexpr const char* monthNames[] = {"Januar", "Februar", "März",      "April",   "Mai",      "Juni",
                                      "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
constexpr const char* monthAbbreviations[] = {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun",
                                              "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};

constexpr const char* createStatement =
    "CREATE TABLE [WZeit] ([date_key] LONG,[full_date] DATE,[day_num_of_week] SHORT,[day_num_of_month] SHORT,"
    "[day_num_of_quarter] SHORT,[day_num_of_year] SHORT,[day_of_week_name] "
    "TEXT(10),[day_of_week_abbreviation] TEXT(2),"
    "[week_num_of_month] SHORT,[week_num_of_quarter] SHORT,[week_num_of_year] SHORT,[month_num_of_year] "
    "SHORT,"
    "[month_name] TEXT(10),[month_name_abbreviation] TEXT(3),[month_begin_date] DATE,[month_end_date] DATE,"
    "[quarter_num_of_year] SHORT,[quarter_begin_date] DATE,[quarter_end_date] DATE,[year_num] SHORT,"
    "[year_begin_date] DATE,[year_end_date] DATE)";

/// 1 Monday to 7 Sunday.
int weekdayNumber(sys_days day) {
  return static_cast<int>(weekday(day).iso_encoding());
}

int daysSince(sys_days from, sys_days day) {
  return static_cast<int>((day - from).count()) + 1;
}

/// The week of ISO 8601: the one that holds the Thursday, counted within the Thursday's year.
int isoWeek(sys_days day) {
  const sys_days thursday = day + days(4 - weekdayNumber(day));
  const sys_days newYear = sys_days(year_month_day(thursday).year() / 1 / 1);
  return (daysSince(newYear, thursday) - 1) / 7 + 1;
}

/// Weeks that have begun since `from`, by Mondays.
int weekSince(sys_days from, sys_days day) {
  return (daysSince(from, day) + weekdayNumber(from) - 2) / 7 + 1;
}

base::DateTime dateTime(sys_days day) {
  const year_month_day d(day);
  return base::DateTime::of(int(d.year()), static_cast<int>(unsigned(d.month())),
                            static_cast<int>(unsigned(d.day())));
}

/// The values of a day's row, in the order of the columns.
std::vector<engine::Value> row(sys_days day) {
  const year_month_day date(day);
  const int yearNumber = int(date.year()), monthNumber = static_cast<int>(unsigned(date.month())),
            dayNumber = static_cast<int>(unsigned(date.day()));
  const int quarter = (monthNumber - 1) / 3 + 1;
  const sys_days monthBegin = sys_days(date.year() / date.month() / 1);
  const sys_days monthEnd = sys_days(date.year() / date.month() / std::chrono::last);
  const sys_days quarterBegin = sys_days(date.year() / month(static_cast<unsigned>(quarter * 3 - 2)) / 1);
  const sys_days quarterEnd =
      sys_days(date.year() / month(static_cast<unsigned>(quarter * 3)) / std::chrono::last);
  const sys_days yearBegin = sys_days(date.year() / 1 / 1), yearEnd = sys_days(date.year() / 12 / 31);
  const std::string dayName = dayNames[weekdayNumber(day) - 1];
  return {yearNumber * 10000 + monthNumber * 100 + dayNumber,
          dateTime(day),
          weekdayNumber(day),
          dayNumber,
          daysSince(quarterBegin, day),
          daysSince(yearBegin, day),
          dayName,
          dayName.substr(0, 2),
          weekSince(monthBegin, day),
          weekSince(quarterBegin, day),
          isoWeek(day),
          monthNumber,
          monthNames[monthNumber - 1],
          monthAbbreviations[monthNumber - 1],
          dateTime(monthBegin),
          dateTime(monthEnd),
          quarter,
          dateTime(quarterBegin),
          dateTime(quarterEnd),
          yearNumber,
          dateTime(yearBegin),
          dateTime(yearEnd)};
}

}  // namespace

void makeTable(engine::Database& db) {
  db.Execute(createStatement);
  db.Execute("CREATE INDEX [date_key] ON [WZeit] ([date_key])");
  engine::Recordset rows = db.OpenRecordset("WZeit", engine::RecordsetKind::table);
  const sys_days end = sys_days(year(lastYear + 1) / 1 / 1);
  for (sys_days day = sys_days(year(firstYear) / 1 / 1); day < end; day += days(1)) {
    const std::vector<engine::Value> values = row(day);
    rows.AddNew();
    for (std::size_t n = 0; n < values.size(); ++n) rows.set(n, values[n]);
    rows.Update();
  }
}

}  // namespace calendar
