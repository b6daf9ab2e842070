#include <gtest/gtest.h>

#include <string>

#include "common/ErrorOf.h"
#include "runtime/Conversion.h"
#include "runtime/DateParse.h"
#include "runtime/DateTime.h"

namespace tolmen {
namespace {

std::string Ymd(double date) {
  DateParts p = SplitDate(date);
  char buf[32];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day, p.hour,
                p.minute, p.second);
  return buf;
}

TEST(DateSerial, KnownDayNumbers) {
  EXPECT_EQ(DateSerial(1899, 12, 30), 0);
  EXPECT_EQ(DateSerial(1899, 12, 29), -1);
  EXPECT_EQ(DateSerial(1900, 1, 1), 2);
  EXPECT_EQ(DateSerial(2024, 1, 1), 45292);
  EXPECT_EQ(DateSerial(2024, 3, 15), 45366);
  EXPECT_EQ(DateSerial(100, 1, 1), -657434);
  EXPECT_EQ(DateSerial(9999, 12, 31), 2958465);
}

TEST(DateSerial, RollsOverMonthsDaysAndTwoDigitYears) {
  const struct {
    int y, m, d;
    const char* date;
  } cases[] = {
      {2005, 13, 1, "2006-01-01"},  {2024, 0, 1, "2023-12-01"},  {2024, 3, 0, "2024-02-29"},
      {2023, 3, 0, "2023-02-28"},   {2024, 3, -1, "2024-02-28"}, {2024, 1, 366, "2024-12-31"},
      {2024, -1, 1, "2023-11-01"},  {2024, 25, 1, "2026-01-01"}, {2024, 2, 30, "2024-03-01"},
      {24, 3, 15, "2024-03-15"},    {29, 1, 1, "2029-01-01"},    {30, 1, 1, "1930-01-01"},
      {99, 12, 31, "1999-12-31"},   {0, 0, 0, "1999-11-30"},     {100, 1, 1, "0100-01-01"},
      {1999, 12, 32, "2000-01-01"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Ymd(DateSerial(c.y, c.m, c.d)), std::string(c.date) + " 00:00:00")
        << c.y << "/" << c.m << "/" << c.d;
  EXPECT_EQ(ErrorOf([] { DateSerial(10000, 1, 1); }), 5);
  EXPECT_EQ(ErrorOf([] { DateSerial(9999, 12, 32); }), 5);
  EXPECT_EQ(ErrorOf([] { DateSerial(100, 1, 0); }), 5);
  EXPECT_EQ(ErrorOf([] { DateSerial(-1, 1, 1); }), 5);
}

TEST(DateValues, BeforeTheBaseDayTheTimeCountsForward) {
  // -1.25 is 29 December 1899 06:00, not 28 December 18:00.
  EXPECT_EQ(Ymd(-1.25), "1899-12-29 06:00:00");
  EXPECT_EQ(Ymd(-0.75), "1899-12-30 18:00:00");  // same day as 0.75
  EXPECT_EQ(DateFromParts(1899, 12, 29, 6), -1.25);
  EXPECT_EQ(DateValue(-1.25), -1);
  EXPECT_EQ(TimeValue(-1.25), 0.25);
  EXPECT_EQ(DateAdd("h", 6, -1), -1.25);
  EXPECT_EQ(DateAdd("d", 1, -1.25), 0.25);
  EXPECT_EQ(DateAdd("h", -6, 0), -1.75);
  EXPECT_EQ(DateDiff("d", -1.25, 0.5), 1);
  EXPECT_EQ(DateDiff("h", -1.25, -1.5), 6);
  EXPECT_EQ(TimeSerial(-1, 0, 0), -1 - 23.0 / 24);
  EXPECT_EQ(TimeSerial(25, 0, 0), 1 + 1.0 / 24);
  // Seconds round to the nearest; 23:59:59.6 is the next midnight.
  EXPECT_EQ(Ymd(45366 + 86399.6 / 86400), "2024-03-16 00:00:00");
  EXPECT_EQ(Second(TimeSerial(10, 0, 7) + 0.4 / 86400), 7);
  EXPECT_EQ(ErrorOf([] { SplitDate(3e6); }), 6);
  EXPECT_EQ(ErrorOf([] { Day(-700000); }), 6);
}

TEST(DateAdd, MonthEndsAndLeapYears) {
  const double jan31 = DateSerial(2024, 1, 31);
  const struct {
    const char* interval;
    double number;
    double date;
    const char* result;
  } cases[] = {
      {"m", 1, jan31, "2024-02-29 00:00:00"},
      {"m", 1, DateSerial(2023, 1, 31), "2023-02-28 00:00:00"},
      {"m", -1, DateSerial(2024, 3, 31), "2024-02-29 00:00:00"},
      {"m", 2, jan31, "2024-03-31 00:00:00"},
      {"m", 13, DateSerial(2024, 3, 15), "2025-04-15 00:00:00"},
      {"M", 1, jan31 + 0.4375, "2024-02-29 10:30:00"},
      {"yyyy", 1, DateSerial(2024, 2, 29), "2025-02-28 00:00:00"},
      {"yyyy", 4, DateSerial(2024, 2, 29), "2028-02-29 00:00:00"},
      {"yyyy", -100, DateSerial(2000, 2, 29), "1900-02-28 00:00:00"},
      {"q", 1, DateSerial(2023, 11, 30), "2024-02-29 00:00:00"},
      {"d", 1, DateSerial(2024, 2, 28), "2024-02-29 00:00:00"},
      {"d", 1, DateSerial(2023, 2, 28), "2023-03-01 00:00:00"},
      {"d", -1, DateSerial(2024, 3, 1), "2024-02-29 00:00:00"},
      {"d", 1.5, DateSerial(2024, 3, 1), "2024-03-03 00:00:00"},  // 1.5 rounds to 2
      {"d", 2.5, DateSerial(2024, 3, 1), "2024-03-03 00:00:00"},  // 2.5 rounds to 2
      {"ww", 2, DateSerial(2024, 1, 1), "2024-01-15 00:00:00"},
      {"h", 25, DateSerial(2024, 3, 15), "2024-03-16 01:00:00"},
      {"n", 90, DateSerial(2024, 3, 15) + 23.0 / 24, "2024-03-16 00:30:00"},
      {"s", -1, DateSerial(2024, 1, 1), "2023-12-31 23:59:59"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Ymd(DateAdd(c.interval, c.number, c.date)), c.result)
        << c.interval << " " << c.number << " " << Ymd(c.date);
  EXPECT_EQ(ErrorOf([] { DateAdd("x", 1, 0); }), 5);
  EXPECT_EQ(ErrorOf([] { DateAdd("yyyy", 1, DateSerial(9999, 6, 1)); }), 5);
  EXPECT_EQ(ErrorOf([] { DateAdd("d", -1, DateSerial(100, 1, 1)); }), 5);
}

TEST(DateDiff, CountsBoundariesCrossed) {
  const struct {
    const char* interval;
    double a, b;
    long long diff;
  } cases[] = {
      {"m", DateSerial(2024, 1, 31), DateSerial(2024, 2, 1), 1},
      {"m", DateSerial(2024, 2, 1), DateSerial(2024, 2, 29), 0},
      {"m", DateSerial(2024, 3, 15), DateSerial(2024, 1, 15), -2},
      {"m", DateSerial(2023, 12, 31), DateSerial(2025, 1, 1), 13},
      {"yyyy", DateSerial(2023, 12, 31), DateSerial(2024, 1, 1), 1},
      {"yyyy", DateSerial(2024, 1, 1), DateSerial(2024, 12, 31), 0},
      {"q", DateSerial(2024, 3, 31), DateSerial(2024, 4, 1), 1},
      {"d", DateSerial(2024, 2, 28) + 23.0 / 24, DateSerial(2024, 3, 1) + 1.0 / 24, 2},
      {"d", DateSerial(2024, 3, 1), DateSerial(2024, 2, 28), -2},
      {"y", DateSerial(2023, 1, 1), DateSerial(2024, 1, 1), 365},
      {"w", DateSerial(2024, 3, 16), DateSerial(2024, 3, 17), 0},
      {"ww", DateSerial(2024, 3, 16), DateSerial(2024, 3, 17), 1},  // Saturday to Sunday
      {"w", DateSerial(2024, 3, 1), DateSerial(2024, 3, 15), 2},
      {"h", DateSerial(2024, 3, 1) + 10.99 / 24, DateSerial(2024, 3, 1) + 11.0 / 24, 1},
      {"n", 0.5, 0.5 + 59.0 / 86400, 0},
      {"s", 0, 1, 86400},
  };
  for (const auto& c : cases)
    EXPECT_EQ(DateDiff(c.interval, c.a, c.b), c.diff)
        << c.interval << " " << Ymd(c.a) << " " << Ymd(c.b);
  // With weeks starting on Monday, Saturday to Sunday crosses no week start.
  EXPECT_EQ(DateDiff("ww", DateSerial(2024, 3, 16), DateSerial(2024, 3, 17), vbMonday), 0);
  EXPECT_EQ(ErrorOf([] { DateDiff("x", 0, 1); }), 5);
}

TEST(Weekday, SundayIsOneByDefault) {
  const struct {
    double date;
    int first;
    int weekday;
  } cases[] = {
      {DateSerial(2024, 3, 15), vbSunday, 6},  // a Friday
      {DateSerial(2024, 3, 15), vbMonday, 5},
      {DateSerial(2024, 3, 17), vbSunday, 1},
      {DateSerial(2024, 3, 17), vbMonday, 7},
      {DateSerial(2024, 3, 16), vbSaturday, 1},
      {DateSerial(2024, 3, 17), vbUseSystemDayOfWeek, 1},
      {0, vbSunday, 7},      // 30 December 1899, a Saturday
      {-1.25, vbSunday, 6},  // 29 December 1899
      {DateSerial(2000, 1, 1), vbSunday, 7},
      {DateSerial(2021, 1, 31), vbSunday, 1},
      {DateSerial(100, 1, 1), vbSunday, 6},
  };
  for (const auto& c : cases) EXPECT_EQ(Weekday(c.date, c.first), c.weekday) << Ymd(c.date);
  EXPECT_EQ(Weekday(DateSerial(2024, 3, 15)), 6);
  EXPECT_EQ(ErrorOf([] { Weekday(0, 8); }), 5);
}

TEST(DateText, DateTimeOrBoth) {
  EXPECT_EQ(DateText(45366), "15/03/2024");
  EXPECT_EQ(DateText(45366.5), "15/03/2024 12:00:00");
  EXPECT_EQ(DateText(0), "00:00:00");
  EXPECT_EQ(DateText(0.75), "18:00:00");
  EXPECT_EQ(DateText(-1.25), "29/12/1899 06:00:00");
  EXPECT_EQ(DateText(-657434), "01/01/0100");
}

TEST(ParseDate, AcceptsTheDayMonthYearForms) {
  const double d15 = DateSerial(2024, 3, 15);
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"15/03/2024", d15},
      {"15-03-2024", d15},
      {"15.03.2024", d15},
      {"15 Mar 2024", d15},
      {"15 March 2024", d15},
      {"15-Mar-2024", d15},
      {"2024-03-15", d15},
      {"2024/03/15", d15},
      {"  15 mar 2024  ", d15},
      {"15 MARCH 2024", d15},
      {"15/3/24", d15},
      {"15-Mar-24", d15},
      {"1 Mar 2024", DateSerial(2024, 3, 1)},
      {"15/03/30", DateSerial(1930, 3, 15)},
      {"1/1/29", DateSerial(2029, 1, 1)},
      {"31/12/99", DateSerial(1999, 12, 31)},
      {"29/02/2024", DateSerial(2024, 2, 29)},
      {"15/03/2024 14:30", d15 + 14.5 / 24},
      {"15/03/2024 14:30:36", d15 + (14.5 * 3600 + 36) / 86400},
      {"2024-03-15 09:05", d15 + (9 * 60 + 5) / 1440.0},
      {"15 Mar 2024  9:05", d15 + (9 * 60 + 5) / 1440.0},
      {"15 - Mar - 2024", d15},
      {"14:30 15 Mar 2024", d15 + 14.5 / 24},
      {"12:00", 0.5},
      {"00:00", 0},
      {"23:59:59", 86399 / 86400.0},
      {"2:30 PM", 14.5 / 24},
      {"12:15 am", 0.25 / 24},
      {"30/12/1899", 0},
      {"29/12/1899 06:00", -1.25},
      {"1/1/100", -657434},
      {"31/12/9999", 2958465},
  };
  for (const auto& c : cases) {
    double date = -99;
    EXPECT_TRUE(ParseDate(c.text, date)) << c.text;
    EXPECT_DOUBLE_EQ(date, c.value) << c.text;
  }
}

TEST(ParseDate, RefusesWhatIsNoDate) {
  const char* cases[] = {
      "",
      "   ",
      "Mar 2024",
      "15/03",
      "31/02/2024",
      "29/02/2023",
      "45000",
      "15/13/2024",
      "0/03/2024",
      "15/03-2024",
      "15 Mrz 2024",
      "2024-03-15T10:00",
      "24:00",
      "12:60",
      "15/03/2024 25:00",
      "13:00 PM",
      "15/03/2024x",
      "abc",
      "15 Mar 2024 Mar",
      "1/1/0050",
      "12/31/2024",
      "March 15, 2024",
      "15 Ma 2024",
      "2024-3-15-1",
      "15//2024",
      "-15 Mar 2024",
      "15 Mar 2024.",
      "15Mar2024",
      "15 -- Mar 2024",
  };
  for (const char* text : cases) {
    double date = -99;
    EXPECT_FALSE(ParseDate(text, date)) << text;
    EXPECT_EQ(date, -99) << text;
  }
}

TEST(ParseDate, IsDateAndCDateUseIt) {
  EXPECT_TRUE(IsDate("15 Mar 2024"));
  EXPECT_FALSE(IsDate("Mar 2024"));
  EXPECT_TRUE(IsDate(Variant::FromDate(0)));
  EXPECT_FALSE(IsDate(45366.0));
  EXPECT_EQ(CDate("1 Mar 2024"), DateSerial(2024, 3, 1));
  EXPECT_EQ(CDate(45366.5), 45366.5);
  EXPECT_EQ(CDate(Variant()), 0);
  EXPECT_EQ(ErrorOf([] { CDate("31/02/2024"); }), 13);
  EXPECT_EQ(CDate("0"), 0);  // a number in text is taken as a day count
  EXPECT_EQ(CDate(" 45366.5 "), 45366.5);
  EXPECT_FALSE(IsDate("0"));
  EXPECT_EQ(ErrorOf([] { CDate("abc"); }), 13);
  EXPECT_EQ(ErrorOf([] { CDate("9e9"); }), 6);
  EXPECT_EQ(ErrorOf([] { CDate(Variant::Null()); }), 94);
  EXPECT_EQ(ErrorOf([] { CDate(1e7); }), 6);
}

}  // namespace
}  // namespace tolmen
