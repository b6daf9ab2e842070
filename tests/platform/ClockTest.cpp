// The clocks: TOLMEN_NOW's form, virtual waits, and the real clock's date value.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <utility>

#include "platform/ui/Clock.h"

namespace tolmen {
namespace {

TEST(Clock, ParsesTimesOfTheFormYearMonthDayHourMinuteSecond) {
  const std::pair<const char*, double> good[] = {
      {"2024-03-15 13:45:30", 45366 + (13 * 3600 + 45 * 60 + 30) / 86400.0},
      {"2024-03-15 06:00", 45366.25},
      {"  2024-03-15  18:00:00 ", 45366.75},
      {"1899-12-30 00:00:00", 0},
      {"1900-01-01 06:00:00", 2.25},
      {"1899-12-29 06:00:00", -1.25},  // before the epoch the time still adds up
      {"2000-02-29 00:00:00", 36585}};
  for (const auto& [text, expected] : good) {
    double value = -999;
    EXPECT_TRUE(ParseClockTime(text, value)) << text;
    EXPECT_NEAR(value, expected, 1e-9) << text;
  }
  const char* bad[] = {"2023-02-29 10:00:00", "2024-13-01 10:00:00", "2024-03-15 24:00:00",
                       "2024-03-15 10:60",    "2024-03-15 10:00:61", "2024-3-15 10:00",
                       "2024-03-15",          "2024-03-15T10:00:00", "15/03/2024 10:00",
                       "2024-03-15 10:00:00x"};
  for (const char* text : bad) {
    double value = -999;
    EXPECT_FALSE(ParseClockTime(text, value)) << text;
  }
  double value = -999;
  EXPECT_FALSE(ParseClockTime("", value));
}

TEST(Clock, EnvironmentChoosesTheClock) {
  setenv("TOLMEN_NOW", "2024-03-15 09:30:00", 1);
  std::unique_ptr<Clock> clock = MakeClockFromEnvironment();
  ASSERT_TRUE(clock->IsVirtual());
  EXPECT_NEAR(clock->Now(), 45366 + 9.5 / 24, 1e-9);
  clock->Sleep(90);  // moves on at once
  EXPECT_NEAR(clock->Now(), 45366 + 9.5 / 24 + 90 / 86400.0, 1e-9);

  setenv("TOLMEN_NOW", "next Tuesday", 1);
  EXPECT_FALSE(MakeClockFromEnvironment()->IsVirtual());
  unsetenv("TOLMEN_NOW");
  EXPECT_FALSE(MakeClockFromEnvironment()->IsVirtual());
}

TEST(Clock, RealClockAgreesWithTheSystemTime) {
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  // 25569 is 1 January 1970 as a day count.
  double expected = 25569 + static_cast<double>(t + local.tm_gmtoff) / 86400.0;
  EXPECT_NEAR(RealClock().Now(), expected, 5.0 / 86400.0);
}

}  // namespace
}  // namespace tolmen
