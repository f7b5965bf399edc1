#include "base/value.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "support/error_of.h"

namespace {

using base::DateTime;
using base::formatDate;
using base::Value;

TEST(ValueTest, ReadsNumbersFromTextAsTheDialectDoes) {
  EXPECT_EQ(Value("12").asInteger(), 12);
  EXPECT_EQ(Value(" -1 ").asInteger(), -1);
  EXPECT_EQ(Value("+7").asInteger(), 7);
  EXPECT_EQ(Value("9223372036854775807").asInteger(), INT64_MAX);
  EXPECT_EQ(Value(2.5).asInteger(), 2);
  EXPECT_EQ(Value(3.5).asInteger(), 4);
  EXPECT_EQ(Value("1e3").asInteger(), 1000);
  EXPECT_EQ(errorOf([] { Value("1e30").asInteger(); }), 6);
  for (const char* text : {"", "zwölf", "1x", "--1", "+-1", "nan", "inf"}) {
    EXPECT_EQ(errorOf([&] { Value(text).asInteger(); }), 13) << text;
  }
  EXPECT_EQ(errorOf([] { Value().asInteger(); }), 94);
  EXPECT_EQ(errorOf([] { Value().asText(); }), 94);
  EXPECT_EQ(errorOf([] { Value().asDate(); }), 94);
  EXPECT_EQ(Value().textOrEmpty(), "");
  EXPECT_EQ(Value(true).asInteger(), -1);
  EXPECT_EQ(Value(true).asText(), "-1");
  EXPECT_TRUE(Value("-1").asBoolean());
  EXPECT_TRUE(Value("True").asBoolean());
  EXPECT_FALSE(Value("0").asBoolean());
  EXPECT_EQ(Value(0.1 + 0.2).asText(), "0.3");
}

TEST(ValueTest, DatesAreDayNumbersAndStamps) {
  const DateTime when = DateTime::of(2024, 2, 29, 13, 5, 9);
  EXPECT_EQ(when.iso(), "2024-02-29 13:05:09");
  EXPECT_EQ(Value(when).asText(), "29.02.2024 13:05:09");
  EXPECT_EQ(Value(DateTime::of(1900, 1, 1)).asInteger(), 2);
  EXPECT_EQ(Value("29.2.2024 13:05:09").asDate(), when);
  EXPECT_EQ(Value(2.5).asDate(), DateTime::of(1900, 1, 1, 12));
  EXPECT_EQ(errorOf([] { Value("gestern").asDate(); }), 13);
  EXPECT_EQ(errorOf([] { Value(1e12).asDate(); }), 6);
}

TEST(DateTimeTest, ReadsTextDayFirst) {
  EXPECT_EQ(DateTime::fromText("3.4.2021"), DateTime::of(2021, 4, 3));
  EXPECT_EQ(DateTime::fromText("03/04/49 7:08"), DateTime::of(2049, 4, 3, 7, 8));
  EXPECT_EQ(DateTime::fromText("03-04-50"), DateTime::of(1950, 4, 3));
  EXPECT_EQ(DateTime::fromText("2021-04-03 01:02:03"), DateTime::of(2021, 4, 3, 1, 2, 3));
  for (const char* text : {"", "30.2.2021", "29.02.2023", "1.13.2020", "1.2", "1.2/2020", "1.2.2020x",
                           "1.2.2020 24:00", "1.2.2020 1", "2020-1-1", "1.2.99999"}) {
    EXPECT_FALSE(DateTime::fromText(text)) << text;
  }
  EXPECT_FALSE(DateTime::fromIso("3.4.2021"));
}

TEST(DateTimeTest, CalendarHoldsAcrossCenturies) {
  DateTime day = DateTime::of(1895, 12, 30);
  int weekday = day.weekday();
  EXPECT_EQ(weekday, 2);  // a Monday
  for (int i = 0; i < 60000; ++i, weekday = weekday % 7 + 1) {
    ASSERT_EQ(day, DateTime::of(day.year(), day.month(), day.day()));
    ASSERT_EQ(day.weekday(), weekday);
    ASSERT_EQ(DateTime::fromIso(day.iso().substr(0, 10)), day);
    day = day.plusDays(1);
  }
  const DateTime before = DateTime::of(1890, 5, 6, 23, 59, 58);
  EXPECT_EQ(before.iso(), "1890-05-06 23:59:58");
  EXPECT_EQ(before.date(), DateTime::of(1890, 5, 6));
  EXPECT_EQ(errorOf([] { DateTime::of(2023, 2, 29); }), 5);
}

TEST(DateTimeTest, FormatsByPatternLetters) {
  const DateTime when = DateTime::of(2024, 3, 5, 7, 8, 9);
  EXPECT_EQ(formatDate(when, "dd.mm.yyyy hh:mm:ss"), "05.03.2024 07:08:09");
  EXPECT_EQ(formatDate(when, "mm-dd-yy hh:nn"), "03-05-24 07:08");
  EXPECT_EQ(formatDate(when, "d/m/yy h:m:s"), "5/3/24 7:8:9");
  EXPECT_EQ(formatDate(when, "hh dd mm"), "07 05 03");
  EXPECT_EQ(formatDate(when, "dddd, d. mmmm yyyy"), "Dienstag, 5. März 2024");
  EXPECT_EQ(formatDate(when, "ddd d mmm", true), "Tue 5 Mar");
  EXPECT_EQ(formatDate(when, "ddd mmm"), "Di Mär");
  EXPECT_EQ(formatDate(when, "\\d\"dm\"d \"open"), "ddm5 open");
}

}  // namespace
