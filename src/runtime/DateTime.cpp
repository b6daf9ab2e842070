#include "runtime/DateTime.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"

namespace tolmen {
namespace {

constexpr std::int64_t kFirstDay = -657434;  // 1 January 100
constexpr std::int64_t kLastDay = 2958465;   // 31 December 9999
constexpr std::int64_t kSecondsPerDay = 86400;

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
  std::int64_t q = a / b;
  return (a % b != 0 && (a < 0) != (b < 0)) ? q - 1 : q;
}

// Days since 30 December 1899 of a proleptic Gregorian date (the civil-days algorithm).
std::int64_t DayNumber(std::int64_t y, int m, int d) {
  y -= m <= 2 ? 1 : 0;
  std::int64_t era = FloorDiv(y, 400);
  std::int64_t yoe = y - era * 400;
  std::int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468 + 25569;
}

void CivilDate(std::int64_t dayNumber, int& year, int& month, int& day) {
  std::int64_t z = dayNumber - 25569 + 719468;
  std::int64_t era = FloorDiv(z, 146097);
  std::int64_t doe = z - era * 146097;
  std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  std::int64_t mp = (5 * doy + 2) / 153;
  day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  year = static_cast<int>(yoe + era * 400 + (month <= 2 ? 1 : 0));
}

// Seconds since 30 December 1899 00:00 on a straight time line, the date's time rounded to the
// second. The negative-date rule is undone here: -1.25 is day -1 plus a quarter day.
std::int64_t LinearSeconds(double date) {
  if (!std::isfinite(date)) throw RuntimeError(6);
  double whole = std::trunc(date);
  if (whole < static_cast<double>(kFirstDay) || whole > static_cast<double>(kLastDay))
    throw RuntimeError(6);
  double linear = whole + std::fabs(date - whole);
  return std::llround(linear * kSecondsPerDay);
}

// The date value of a moment on the straight time line, with the negative-date rule applied.
double FromLinearSeconds(std::int64_t seconds) {
  std::int64_t day = FloorDiv(seconds, kSecondsPerDay);
  double time = static_cast<double>(seconds - day * kSecondsPerDay) / kSecondsPerDay;
  if (day < kFirstDay || day > kLastDay) throw RuntimeError(5);
  return day < 0 ? static_cast<double>(day) - time : static_cast<double>(day) + time;
}

std::int64_t MonthIndex(const DateParts& p) {
  return std::int64_t{p.year} * 12 + p.month - 1;
}

// Adds months to a date keeping its time; a day past the new month's end becomes its last day.
double AddMonths(double date, std::int64_t months) {
  DateParts p = SplitDate(date);
  std::int64_t index = MonthIndex(p) + months;
  std::int64_t year = FloorDiv(index, 12);
  int month = static_cast<int>(index - year * 12) + 1;
  if (year < 100 || year > 9999) throw RuntimeError(5);
  int day = std::min(p.day, DaysInMonth(static_cast<int>(year), month));
  std::int64_t seconds =
      DayNumber(year, month, day) * kSecondsPerDay + p.hour * 3600 + p.minute * 60 + p.second;
  return FromLinearSeconds(seconds);
}

std::int64_t WeekStartIndex(std::int64_t dayNumber, int firstDayOfWeek) {
  // Day 1 (31 December 1899) was a Sunday, so a week starting on day f of the week (Sunday 1)
  // starts on the day numbers congruent to f modulo 7.
  return FloorDiv(dayNumber - firstDayOfWeek, 7);
}

int CheckFirstDay(int firstDayOfWeek) {
  if (firstDayOfWeek == vbUseSystemDayOfWeek) return vbSunday;
  if (firstDayOfWeek < vbSunday || firstDayOfWeek > vbSaturday) throw RuntimeError(5);
  return firstDayOfWeek;
}

std::string TwoDigits(int n) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "%02d", n);
  return buf;
}

}  // namespace

DateParts SplitDate(double date) {
  std::int64_t seconds = LinearSeconds(date);
  DateParts p;
  p.dayNumber = FloorDiv(seconds, kSecondsPerDay);
  std::int64_t time = seconds - p.dayNumber * kSecondsPerDay;
  CivilDate(p.dayNumber, p.year, p.month, p.day);
  p.hour = static_cast<int>(time / 3600);
  p.minute = static_cast<int>(time / 60 % 60);
  p.second = static_cast<int>(time % 60);
  return p;
}

double DateFromParts(int year, int month, int day, int hour, int minute, int second) {
  std::int64_t seconds =
      DayNumber(year, month, day) * kSecondsPerDay + hour * 3600 + minute * 60 + second;
  return FromLinearSeconds(seconds);
}

bool IsLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

double DateSerial(int year, int month, int day) {
  std::int64_t y = year;
  if (y >= 0 && y <= 29)
    y += 2000;
  else if (y >= 30 && y <= 99)
    y += 1900;
  std::int64_t index = y * 12 + (std::int64_t{month} - 1);
  std::int64_t y2 = FloorDiv(index, 12);
  int m2 = static_cast<int>(index - y2 * 12) + 1;
  if (y2 < 99 || y2 > 10000) throw RuntimeError(5);
  std::int64_t n = DayNumber(y2, m2, 1) + (std::int64_t{day} - 1);
  if (n < kFirstDay || n > kLastDay) throw RuntimeError(5);
  return static_cast<double>(n);
}

double TimeSerial(int hour, int minute, int second) {
  return FromLinearSeconds(std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second);
}

double DateAdd(const std::string& interval, double number, double date) {
  std::string unit = LCase(interval);
  double rounded = RoundHalfEven(number);
  if (!std::isfinite(rounded) || std::fabs(rounded) > 1e12) throw RuntimeError(5);
  auto n = static_cast<std::int64_t>(rounded);
  if (unit == "yyyy") return AddMonths(date, n * 12);
  if (unit == "q") return AddMonths(date, n * 3);
  if (unit == "m") return AddMonths(date, n);
  std::int64_t step = 0;
  if (unit == "d" || unit == "y" || unit == "w")
    step = kSecondsPerDay;
  else if (unit == "ww")
    step = 7 * kSecondsPerDay;
  else if (unit == "h")
    step = 3600;
  else if (unit == "n")
    step = 60;
  else if (unit == "s")
    step = 1;
  else
    throw RuntimeError(5);
  if (std::fabs(rounded) * static_cast<double>(step) > 1e15) throw RuntimeError(5);
  return FromLinearSeconds(LinearSeconds(date) + n * step);
}

std::int64_t DateDiff(const std::string& interval, double date1, double date2, int firstDayOfWeek) {
  std::string unit = LCase(interval);
  DateParts a = SplitDate(date1);
  DateParts b = SplitDate(date2);
  if (unit == "yyyy") return b.year - a.year;
  if (unit == "q")
    return (std::int64_t{b.year} * 4 + (b.month - 1) / 3) -
           (std::int64_t{a.year} * 4 + (a.month - 1) / 3);
  if (unit == "m") return MonthIndex(b) - MonthIndex(a);
  if (unit == "d" || unit == "y") return b.dayNumber - a.dayNumber;
  if (unit == "w") return (b.dayNumber - a.dayNumber) / 7;
  if (unit == "ww") {
    int first = CheckFirstDay(firstDayOfWeek);
    return WeekStartIndex(b.dayNumber, first) - WeekStartIndex(a.dayNumber, first);
  }
  std::int64_t sa = LinearSeconds(date1);
  std::int64_t sb = LinearSeconds(date2);
  if (unit == "h") return FloorDiv(sb, 3600) - FloorDiv(sa, 3600);
  if (unit == "n") return FloorDiv(sb, 60) - FloorDiv(sa, 60);
  if (unit == "s") return sb - sa;
  throw RuntimeError(5);
}

int Weekday(double date, int firstDayOfWeek) {
  int first = CheckFirstDay(firstDayOfWeek);
  std::int64_t n = SplitDate(date).dayNumber;
  return static_cast<int>(n - first - FloorDiv(n - first, 7) * 7) + 1;
}

int Day(double date) {
  return SplitDate(date).day;
}
int Month(double date) {
  return SplitDate(date).month;
}
int Year(double date) {
  return SplitDate(date).year;
}
int Hour(double date) {
  return SplitDate(date).hour;
}
int Minute(double date) {
  return SplitDate(date).minute;
}
int Second(double date) {
  return SplitDate(date).second;
}

double DateValue(double date) {
  SplitDate(date);                // range check
  return std::trunc(date) + 0.0;  // + 0.0 turns -0 into 0
}

double TimeValue(double date) {
  SplitDate(date);
  return std::fabs(date - std::trunc(date));
}

std::string MonthName(int month, bool abbreviate) {
  if (month < 1 || month > 12) throw RuntimeError(5);
  std::string name = kMonths[month - 1];
  return abbreviate ? name.substr(0, 3) : name;
}

std::string WeekdayName(int weekday, bool abbreviate) {
  if (weekday < 1 || weekday > 7) throw RuntimeError(5);
  std::string name = kWeekdays[weekday - 1];
  return abbreviate ? name.substr(0, 3) : name;
}

std::string DateText(double date) {
  DateParts p = SplitDate(date);
  std::string time = TwoDigits(p.hour) + ":" + TwoDigits(p.minute) + ":" + TwoDigits(p.second);
  if (p.dayNumber == 0) return time;
  char buf[16];
  std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", p.day, p.month, p.year);
  return p.hasTime() ? std::string(buf) + " " + time : std::string(buf);
}

}  // namespace tolmen
