// The real and the virtual clock, and reading TOLMEN_NOW.
#include "platform/ui/Clock.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <thread>

namespace tolmen {

namespace {

using std::chrono::sys_days;

constexpr double kSecondsPerDay = 86400.0;

// Days from 30 December 1899 to the given civil date.
long DaysSinceEpoch(const std::chrono::year_month_day& date) {
  static constexpr sys_days kEpoch{std::chrono::year{1899} / 12 / 30};
  return static_cast<long>((sys_days{date} - kEpoch).count());
}

// A date value from a day count and the seconds into that day. Before the epoch the time of day
// still counts forwards from midnight, so it is subtracted from the (negative) day number.
double DateValue(long days, double secondsOfDay) {
  double fraction = secondsOfDay / kSecondsPerDay;
  return days >= 0 ? static_cast<double>(days) + fraction : static_cast<double>(days) - fraction;
}

// Reads exactly `width` digits at `pos`.
bool ReadDigits(const std::string& text, size_t& pos, size_t width, int& value) {
  if (pos + width > text.size()) return false;
  value = 0;
  for (size_t i = 0; i < width; ++i) {
    char c = text[pos + i];
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  pos += width;
  return true;
}

bool Expect(const std::string& text, size_t& pos, char c) {
  if (pos >= text.size() || text[pos] != c) return false;
  ++pos;
  return true;
}

}  // namespace

double RealClock::Now() const {
  auto now = std::chrono::system_clock::now();
  std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  // to_time_t may round; take the sub-second part from what it kept.
  auto whole = std::chrono::system_clock::from_time_t(seconds);
  double subsecond = std::chrono::duration<double>(now - whole).count();
  if (subsecond < 0) {
    --seconds;
    subsecond += 1.0;
  }
  std::tm local{};
  localtime_r(&seconds, &local);
  std::chrono::year_month_day date{std::chrono::year{local.tm_year + 1900},
                                   std::chrono::month{static_cast<unsigned>(local.tm_mon + 1)},
                                   std::chrono::day{static_cast<unsigned>(local.tm_mday)}};
  double secondsOfDay = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + subsecond;
  return DateValue(DaysSinceEpoch(date), secondsOfDay);
}

void RealClock::Sleep(double seconds) {
  if (seconds > 0) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

bool ParseClockTime(const std::string& text, double& value) {
  size_t begin = text.find_first_not_of(" \t");
  size_t end = text.find_last_not_of(" \t");
  if (begin == std::string::npos) return false;
  std::string s = text.substr(begin, end - begin + 1);

  size_t pos = 0;
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (!ReadDigits(s, pos, 4, year) || !Expect(s, pos, '-') || !ReadDigits(s, pos, 2, month) ||
      !Expect(s, pos, '-') || !ReadDigits(s, pos, 2, day))
    return false;
  if (!Expect(s, pos, ' ')) return false;
  while (pos < s.size() && s[pos] == ' ') ++pos;
  if (!ReadDigits(s, pos, 2, hour) || !Expect(s, pos, ':') || !ReadDigits(s, pos, 2, minute))
    return false;
  if (pos < s.size() && (!Expect(s, pos, ':') || !ReadDigits(s, pos, 2, second))) return false;
  if (pos != s.size()) return false;
  if (hour > 23 || minute > 59 || second > 59) return false;

  std::chrono::year_month_day date{std::chrono::year{year},
                                   std::chrono::month{static_cast<unsigned>(month)},
                                   std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return false;
  value = DateValue(DaysSinceEpoch(date), hour * 3600.0 + minute * 60.0 + second);
  return true;
}

std::unique_ptr<Clock> MakeClockFromEnvironment() {
  const char* now = std::getenv("TOLMEN_NOW");
  if (now != nullptr && *now != '\0') {
    double value = 0;
    if (ParseClockTime(now, value)) return std::make_unique<VirtualClock>(value);
    std::cerr << "TOLMEN_NOW=\"" << now
              << "\" is not a time of the form YYYY-MM-DD HH:MM:SS; using the real clock\n";
  }
  return std::make_unique<RealClock>();
}

}  // namespace tolmen
