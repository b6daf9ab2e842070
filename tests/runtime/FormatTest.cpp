#include <gtest/gtest.h>

#include <string>

#include "runtime/DateTime.h"
#include "runtime/Format.h"

namespace tolmen {
namespace {

struct Case {
  const char* pattern;
  const char* text;
};

TEST(FormatDate, PatternsOnAFixedMoment) {
  // Tuesday 5 March 2024 09:07:03: one-digit day, hour, minute and second tell d from dd.
  const double moment = DateFromParts(2024, 3, 5, 9, 7, 3);
  const Case shortCases[] = {
      {"hh:mm:ss", "09:07:03"}, {"MM/DD/YY", "03/05/24"}, {"mm:ss", "07:03"},
      {"h:n:s", "9:7:3"},       {"d/m/yy", "5/3/24"},     {"w ww q y", "3 10 1 65"},
      {"h:mm a/p", "9:07 a"},   {"\\d\\a\\y d", "day 5"}, {"ddddd", "05/03/2024"}};
  const Case longCases[] = {{"d mmm yyyy hh:mm", "5 Mar 2024 09:07"},
                            {"dd mmm yyyy", "05 Mar 2024"},
                            {"dd mmmm yyyy  hh:mm", "05 March 2024  09:07"},
                            {"yyyy-mm-dd hh:mm", "2024-03-05 09:07"},
                            {"yyyy/mm/dd", "2024/03/05"},
                            {"hh:mm d mmmm yyyy", "09:07 5 March 2024"},
                            {"dd/mm/yyyy hh:mm:ss", "05/03/2024 09:07:03"},
                            {"DD/MM/YYYY", "05/03/2024"},
                            {"ddd dddd", "Tue Tuesday"},
                            {"hh:mm AM/PM", "09:07 AM"},
                            {"\"Date: \"dd/mm/yyyy", "Date: 05/03/2024"},
                            {"c", "05/03/2024 09:07:03"},
                            {"", "05/03/2024 09:07:03"}};
  for (const Case& c : shortCases) EXPECT_EQ(FormatDate(moment, c.pattern), c.text) << c.pattern;
  for (const Case& c : longCases) EXPECT_EQ(FormatDate(moment, c.pattern), c.text) << c.pattern;
}

TEST(FormatDate, OtherMoments) {
  EXPECT_EQ(FormatDate(DateFromParts(2024, 3, 5, 21, 7), "hh:mm AM/PM"), "09:07 PM");
  EXPECT_EQ(FormatDate(DateFromParts(2024, 3, 5, 0, 30), "h:mm am/pm"), "12:30 am");
  EXPECT_EQ(FormatDate(0, "dd mmm yyyy"), "30 Dec 1899");
  EXPECT_EQ(FormatDate(-1.25, "dd/mm/yyyy hh:mm"), "29/12/1899 06:00");
  // An elapsed time of more than a day shows only the hours of the day.
  EXPECT_EQ(FormatDate(1.5 + 2.0 / 24, "hh:mm"), "14:00");
  EXPECT_EQ(FormatNumber(0.5, "hh:mm"), "12:00");
}

TEST(FormatNumber, Patterns) {
  struct Row {
    double value;
    const char* pattern;
    const char* text;
  };
  const Row rows[] = {{0.5, "#0%", "50%"},     {1, "#0%", "100%"},        {0.123, "#0%", "12%"},
                      {0.125, "#0%", "13%"},   {0, "#0%", "0%"},          {1, "00", "01"},
                      {100, "00", "100"},      {7.5, "00", "08"},         {2.5, "0", "3"},
                      {3.5, "0", "4"},         {-2.5, "0", "-3"},         {0.4, "0", "0"},
                      {0.125, "0.00", "0.13"}, {2.675, "0.00", "2.68"},   {-0.001, "0.00", "-0.00"},
                      {0, "#,##0.00", "0.00"}, {12, "#,##0.00", "12.00"}, {114.04, "0.0", "114.0"},
                      {0.05, "0.0", "0.1"},    {-0.05, "0.0", "-0.1"},    {1, "0.##", "1."},
                      {1.5, "0.##", "1.5"},    {0.5, "#.##", ".5"},       {5, "0##", "005"},
                      {1234567, "0,", "1235"}, {-5, "0;(0)", "(5)"},      {-5, "0;;", "-5"},
                      {114.5, "", "114.5"}};
  const Row wide[] = {{1234.5, "0.00", "1234.50"},       {1234567.891, "#,##0.00", "1,234,567.89"},
                      {999.995, "#,##0.00", "1,000.00"}, {-1234.5, "#,##0.00", "-1,234.50"},
                      {0, "0;(0);\\z\\e\\r\\o", "zero"}, {12345, "0.00E+00", "1.23E+04"},
                      {0.00012, "0.0E-00", "1.2E-04"},   {99999, "0.0E+0", "1.0E+5"},
                      {42, "\"No. \"0", "No. 42"}};
  auto check = [](const Row& c) {
    EXPECT_EQ(FormatNumber(c.value, c.pattern), c.text) << c.value << " " << c.pattern;
  };
  for (const Row& c : rows) check(c);
  for (const Row& c : wide) check(c);
  EXPECT_EQ(FormatNumber(78.95 * 1.14, "0.00"), "90.00");
}

// The patterns a set of accounts' currency settings make: escaped symbol,
// separator, decimals.
TEST(FormatNumber, CurrencyPatterns) {
  const struct {
    const char* pattern;
    double value;
    const char* text;
  } cases[] = {{"\\R,###,##0.00", 0, "R0.00"},
               {"\\R,###,##0.00", 5, "R5.00"},
               {"\\R ### ##0.00", 0.5, "R0.50"},
               {"\\R,###,##0.00", 1234.5, "R1,234.50"},
               {"\\R,###,##0.00", 1234567.5, "R1,234,567.50"},
               {"\\R,###,##0.00", -1234.5, "-R1,234.50"},
               {"\\R,###,##0.", 1234.5, "R1,235."},
               {"\\R ### ##0.00", 1234.5, "R1 234.50"},
               {"\\R ### ##0.00", 234.5, "R234.50"},
               {"\\R ### ##0.00", 123456.78, "R123 456.78"},
               {"\\R ### ##0.00", 1234567.5, "R1234 567.50"},
               {"\\R.###.##0.00", 1234.5, "R1.234.50"},
               {"\\R.###.##0.00", 234.5, "R234.50"},
               {"\\K\\s\\h,###,##0.00", 1234.5, "Ksh1,234.50"}};
  for (const auto& c : cases)
    EXPECT_EQ(FormatNumber(c.value, c.pattern), c.text) << c.pattern << " " << c.value;
}

TEST(Format, VariantKinds) {
  EXPECT_EQ(Format("12.5", "0.00"), "12.50");
  EXPECT_EQ(Format("abc", "0.00"), "abc");
  EXPECT_EQ(Format("15 Mar 2024", "yyyy-mm-dd"), "2024-03-15");
  EXPECT_EQ(Format("abc", ""), "abc");
  EXPECT_EQ(Format(Variant::FromDate(45366.5)), "15/03/2024 12:00:00");
  EXPECT_EQ(Format(Variant::FromDate(45366.5), "0.00"), "45366.50");
  EXPECT_EQ(Format(true), "True");
  EXPECT_EQ(Format(true, "0"), "-1");
  EXPECT_EQ(Format(Variant(), "0.00"), "0.00");
  EXPECT_EQ(Format(Variant()), "");
  EXPECT_EQ(Format(Variant::Null(), "0"), "");
  EXPECT_EQ(Format(114.5), "114.5");
  EXPECT_EQ(Format(1, "00"), "01");
}

}  // namespace
}  // namespace tolmen
