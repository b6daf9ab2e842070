#include <gtest/gtest.h>

#include <cstdio>
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
  const struct {
    int y, m, d;
    double serial;
  } cases[] = {{1899, 12, 30, 0},      {1899, 12, 29, -1},   {1900, 1, 1, 2},
               {2024, 1, 1, 45292},    {2024, 3, 15, 45366}, {100, 1, 1, -657434},
               {9999, 12, 31, 2958465}};
  for (const auto& c : cases) EXPECT_EQ(DateSerial(c.y, c.m, c.d), c.serial) << c.y;
}

TEST(DateSerial, RollsOverMonthsDaysAndTwoDigitYears) {
  const struct {
    int y, m, d;
    const char* date;
  } cases[] = {
      {2005, 13, 1, "2006-01-01"}, {2024, 0, 1, "2023-12-01"},  {2024, 3, 0, "2024-02-29"},
      {2023, 3, 0, "2023-02-28"},  {2024, 3, -1, "2024-02-28"}, {2024, 1, 366, "2024-12-31"},
      {2024, -1, 1, "2023-11-01"}, {2024, 25, 1, "2026-01-01"}, {2024, 2, 30, "2024-03-01"},
      {24, 3, 15, "2024-03-15"},   {29, 1, 1, "2029-01-01"},    {30, 1, 1, "1930-01-01"},
      {99, 12, 31, "1999-12-31"},  {0, 0, 0, "1999-11-30"},     {100, 1, 1, "0100-01-01"},
      {1999, 12, 32, "2000-01-01"}};
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

// Days at midnight given as "yyyy-mm-dd".
double Day(const char* ymd) {
  int y = 0, m = 0, d = 0;
  std::sscanf(ymd, "%d-%d-%d", &y, &m, &d);
  return DateSerial(y, m, d);
}

TEST(DateAdd, MonthEndsAndLeapYears) {
  const struct {
    const char* interval;
    double number;
    const char *from, *to;
  } cases[] = {{"m", 1, "2024-01-31", "2024-02-29"},    {"m", 1, "2023-01-31", "2023-02-28"},
               {"m", -1, "2024-03-31", "2024-02-29"},   {"m", 2, "2024-01-31", "2024-03-31"},
               {"m", 13, "2024-03-15", "2025-04-15"},   {"yyyy", 1, "2024-02-29", "2025-02-28"},
               {"yyyy", 4, "2024-02-29", "2028-02-29"}, {"yyyy", -100, "2000-02-29", "1900-02-28"},
               {"q", 1, "2023-11-30", "2024-02-29"},    {"d", 1, "2024-02-28", "2024-02-29"},
               {"d", 1, "2023-02-28", "2023-03-01"},    {"d", -1, "2024-03-01", "2024-02-29"},
               {"d", 1.5, "2024-03-01", "2024-03-03"},  {"d", 2.5, "2024-03-01", "2024-03-03"},
               {"ww", 2, "2024-01-01", "2024-01-15"}};  // 1.5 and 2.5 days both round to 2
  for (const auto& c : cases)
    EXPECT_EQ(Ymd(DateAdd(c.interval, c.number, Day(c.from))), std::string(c.to) + " 00:00:00")
        << c.interval << " " << c.number << " " << c.from;
  EXPECT_EQ(Ymd(DateAdd("M", 1, Day("2024-01-31") + 0.4375)), "2024-02-29 10:30:00");
  EXPECT_EQ(Ymd(DateAdd("h", 25, Day("2024-03-15"))), "2024-03-16 01:00:00");
  EXPECT_EQ(Ymd(DateAdd("n", 90, Day("2024-03-15") + 23.0 / 24)), "2024-03-16 00:30:00");
  EXPECT_EQ(Ymd(DateAdd("s", -1, Day("2024-01-01"))), "2023-12-31 23:59:59");
  EXPECT_EQ(ErrorOf([] { DateAdd("x", 1, 0); }), 5);
  EXPECT_EQ(ErrorOf([] { DateAdd("yyyy", 1, DateSerial(9999, 6, 1)); }), 5);
  EXPECT_EQ(ErrorOf([] { DateAdd("d", -1, DateSerial(100, 1, 1)); }), 5);
}

TEST(DateDiff, CountsBoundariesCrossed) {
  const struct {
    const char* interval;
    const char *a, *b;
    long long diff;
  } cases[] = {{"m", "2024-01-31", "2024-02-01", 1},    {"m", "2024-02-01", "2024-02-29", 0},
               {"m", "2024-03-15", "2024-01-15", -2},   {"m", "2023-12-31", "2025-01-01", 13},
               {"yyyy", "2023-12-31", "2024-01-01", 1}, {"yyyy", "2024-01-01", "2024-12-31", 0},
               {"q", "2024-03-31", "2024-04-01", 1},    {"d", "2024-03-01", "2024-02-28", -2},
               {"y", "2023-01-01", "2024-01-01", 365},  {"w", "2024-03-16", "2024-03-17", 0},
               {"ww", "2024-03-16", "2024-03-17", 1},   {"w", "2024-03-01", "2024-03-15", 2}};
  for (const auto& c : cases)
    EXPECT_EQ(DateDiff(c.interval, Day(c.a), Day(c.b)), c.diff) << c.interval << " " << c.a;
  EXPECT_EQ(DateDiff("d", Day("2024-02-28") + 23.0 / 24, Day("2024-03-01") + 1.0 / 24), 2);
  EXPECT_EQ(DateDiff("h", Day("2024-03-01") + 10.99 / 24, Day("2024-03-01") + 11.0 / 24), 1);
  EXPECT_EQ(DateDiff("n", 0.5, 0.5 + 59.0 / 86400), 0);
  EXPECT_EQ(DateDiff("s", 0, 1), 86400);
  // Saturday to Sunday crosses a week start, but none when weeks start on Monday.
  EXPECT_EQ(DateDiff("ww", Day("2024-03-16"), Day("2024-03-17"), vbMonday), 0);
  EXPECT_EQ(ErrorOf([] { DateDiff("x", 0, 1); }), 5);
}

TEST(Weekday, SundayIsOneByDefault) {
  const struct {
    const char* date;
    int first;
    int weekday;
  } cases[] = {{"2024-03-15", vbSunday, 6},   {"2024-03-15", vbMonday, 5},
               {"2024-03-17", vbSunday, 1},   {"2024-03-17", vbMonday, 7},
               {"2024-03-16", vbSaturday, 1}, {"2024-03-17", vbUseSystemDayOfWeek, 1},
               {"2000-01-01", vbSunday, 7},   {"2021-01-31", vbSunday, 1},
               {"0100-01-01", vbSunday, 6}};  // 15 March 2024 is a Friday
  for (const auto& c : cases) EXPECT_EQ(Weekday(Day(c.date), c.first), c.weekday) << c.date;
  EXPECT_EQ(Weekday(0), 7);      // 30 December 1899, a Saturday
  EXPECT_EQ(Weekday(-1.25), 6);  // 29 December 1899
  EXPECT_EQ(Weekday(Day("2024-03-15")), 6);
  EXPECT_EQ(ErrorOf([] { Weekday(0, 8); }), 5);
}

TEST(DateText, DateTimeOrBoth) {
  const std::pair<double, const char*> cases[] = {
      {45366, "15/03/2024"}, {45366.5, "15/03/2024 12:00:00"}, {0, "00:00:00"},
      {0.75, "18:00:00"},    {-1.25, "29/12/1899 06:00:00"},   {-657434, "01/01/0100"}};
  for (const auto& [date, text] : cases) EXPECT_EQ(DateText(date), text);
}

TEST(ParseDate, AcceptsTheDayMonthYearForms) {
  const double d15 = DateSerial(2024, 3, 15);
  const char* sameDay[] = {"15/03/2024",      "15-03-2024",    "15.03.2024", "15 Mar 2024",
                           "15 March 2024",   "15-Mar-2024",   "2024-03-15", "2024/03/15",
                           "  15 mar 2024  ", "15 MARCH 2024", "15/3/24",    "15-Mar-24",
                           "15 - Mar - 2024"};
  const struct {
    const char* text;
    double value;
  } cases[] = {{"1 Mar 2024", DateSerial(2024, 3, 1)},
               {"15/03/30", DateSerial(1930, 3, 15)},
               {"1/1/29", DateSerial(2029, 1, 1)},
               {"31/12/99", DateSerial(1999, 12, 31)},
               {"29/02/2024", DateSerial(2024, 2, 29)},
               {"15/03/2024 14:30", d15 + 14.5 / 24},
               {"15/03/2024 14:30:36", d15 + (14.5 * 3600 + 36) / 86400},
               {"2024-03-15 09:05", d15 + (9 * 60 + 5) / 1440.0},
               {"15 Mar 2024  9:05", d15 + (9 * 60 + 5) / 1440.0},
               {"14:30 15 Mar 2024", d15 + 14.5 / 24},
               {"12:00", 0.5},
               {"00:00", 0},
               {"23:59:59", 86399 / 86400.0},
               {"2:30 PM", 14.5 / 24},
               {"12:15 am", 0.25 / 24},
               {"30/12/1899", 0},
               {"29/12/1899 06:00", -1.25},
               {"1/1/100", -657434},
               {"31/12/9999", 2958465}};
  auto accepted = [](const char* text, double value) {
    double date = -99;
    EXPECT_TRUE(ParseDate(text, date)) << text;
    EXPECT_DOUBLE_EQ(date, value) << text;
  };
  for (const char* text : sameDay) accepted(text, d15);
  for (const auto& c : cases) accepted(c.text, c.value);
}

TEST(ParseDate, RefusesWhatIsNoDate) {
  const char* shortTexts[] = {"", "   ", "abc", "45000", "15/03", "24:00", "12:60", "Mar 2024"};
  const char* longTexts[] = {
      "31/02/2024",  "29/02/2023",     "15/13/2024",      "0/03/2024",        "15/03-2024",
      "15 Mrz 2024", "1/1/0050",       "12/31/2024",      "March 15, 2024",   "15 Ma 2024",
      "2024-3-15-1", "15//2024",       "-15 Mar 2024",    "15 Mar 2024.",     "15Mar2024",
      "15/03/2024x", "15 -- Mar 2024", "15 Mar 2024 Mar", "2024-03-15T10:00", "15/03/2024 25:00",
      "13:00 PM"};
  auto refused = [](const char* text) {
    double date = -99;
    EXPECT_FALSE(ParseDate(text, date)) << text;
    EXPECT_EQ(date, -99) << text;
  };
  for (const char* text : shortTexts) refused(text);
  for (const char* text : longTexts) refused(text);
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
