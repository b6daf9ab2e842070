// Date values and their arithmetic. A date is a double counting days since 30 December 1899, with
// the time of day as the fraction. Before that day the value is negative and, as in the classic
// runtime, the fraction still counts forward from midnight: -1.25 is 29 December 1899 06:00 (not
// 28 December 18:00), and -0.75 is the same moment as 0.75. Arithmetic on hours, minutes and
// seconds goes through a straight time line and back, so it is right on both sides of day 0.
// Valid dates run from 1 January 100 to 31 December 9999.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

constexpr int vbUseSystemDayOfWeek = 0;  // taken as Sunday
constexpr int vbSunday = 1;
constexpr int vbMonday = 2;
constexpr int vbTuesday = 3;
constexpr int vbWednesday = 4;
constexpr int vbThursday = 5;
constexpr int vbFriday = 6;
constexpr int vbSaturday = 7;

// A date value taken apart. The time is rounded to the nearest second first, so 23:59:59.6
// becomes midnight of the next day.
struct DateParts {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
  std::int64_t dayNumber = 0;  // days since 30 December 1899 (the date's integer part)
  bool hasTime() const { return hour != 0 || minute != 0 || second != 0; }
};

// Raises RuntimeError(6) "Overflow" for a value outside the valid dates (or not a number).
DateParts SplitDate(double date);
// The value of a valid calendar date and time of day, with the negative-date rule above.
// REQUIRES: month 1-12, day within the month, hour 0-23, minute and second 0-59.
double DateFromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
bool IsLeapYear(int year);
int DaysInMonth(int year, int month);

// Year, month and day with roll-over: month 13 of 2005 is January 2006, month 0 is December of the
// year before, day 0 is the last day of the month before, negative days go back further. Years 0
// to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999, 100 and above stand as they are. A result
// outside the valid dates raises RuntimeError(5).
double DateSerial(int year, int month, int day);
// Hours, minutes and seconds with roll-over (25:00:00 is 1 day and 1 hour).
double TimeSerial(int hour, int minute, int second);

// Adds `number` intervals: "yyyy" years, "q" quarters, "m" months, "d", "y" and "w" days, "ww"
// weeks, "h" hours, "n" minutes, "s" seconds (any case). `number` is first rounded to a whole
// number, halves to even. Months and years keep the day of the month where it exists and take
// the month's last day otherwise (31 January + 1 month is 28 or 29 February). An unknown interval
// or a result outside the valid dates raises RuntimeError(5).
double DateAdd(const std::string& interval, double number, double date);
// The number of interval boundaries from date1 to date2 (negative when date2 is earlier):
// "yyyy" years, "q" quarters, "m" months (31 January to 1 February is 1), "d" and "y" midnights,
// "w" whole weeks, "ww" week starts (the first day of the week), "h", "n", "s".
std::int64_t DateDiff(const std::string& interval, double date1, double date2,
                      int firstDayOfWeek = vbSunday);

// 1 for the first day of the week: with the default, 1 is Sunday and 7 Saturday.
int Weekday(double date, int firstDayOfWeek = vbSunday);
int Day(double date);
int Month(double date);
int Year(double date);
int Hour(double date);
int Minute(double date);
int Second(double date);
// The date alone (the integer part) and the time alone (the fraction, always 0 to below 1).
double DateValue(double date);
double TimeValue(double date);

// English names: MonthName(3) "March", MonthName(3, true) "Mar"; WeekdayName(1) "Sunday".
// Out of range raises RuntimeError(5).
std::string MonthName(int month, bool abbreviate = false);
std::string WeekdayName(int weekday, bool abbreviate = false);

// The plain text of a date, as CStr gives it: "dd/mm/yyyy", "dd/mm/yyyy hh:mm:ss", or "hh:mm:ss"
// alone when the date part is 30 December 1899 (value 0 is "00:00:00").
std::string DateText(double date);

}  // namespace tolmen
