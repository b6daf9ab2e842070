// The clocks: TOLMEN_NOW's form, virtual waits, and the real clock's date value.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "platform/ui/Clock.h"

namespace tolmen {
namespace {

struct TimeCase {
  const char* text;
  bool ok;
  double value;
};

TEST(Clock, ParsesTimesOfTheFormYearMonthDayHourMinuteSecond) {
  const TimeCase cases[] = {
      {"2024-03-15 13:45:30", true, 45366 + (13 * 3600 + 45 * 60 + 30) / 86400.0},
      {"2024-03-15 06:00", true, 45366.25},
      {"  2024-03-15  18:00:00 ", true, 45366.75},
      {"1899-12-30 00:00:00", true, 0},
      {"1900-01-01 06:00:00", true, 2.25},
      {"1899-12-29 06:00:00", true, -1.25},  // before the epoch the time still adds up
      {"2000-02-29 00:00:00", true, 36585},
      {"2023-02-29 10:00:00", false, 0},
      {"2024-13-01 10:00:00", false, 0},
      {"2024-03-15 24:00:00", false, 0},
      {"2024-03-15 10:60", false, 0},
      {"2024-03-15 10:00:61", false, 0},
      {"2024-3-15 10:00", false, 0},
      {"2024-03-15", false, 0},
      {"2024-03-15T10:00:00", false, 0},
      {"15/03/2024 10:00", false, 0},
      {"2024-03-15 10:00:00x", false, 0},
      {"", false, 0},
  };
  for (const TimeCase& c : cases) {
    double value = -999;
    EXPECT_EQ(ParseClockTime(c.text, value), c.ok) << c.text;
    if (c.ok) {
      EXPECT_NEAR(value, c.value, 1e-9) << c.text;
    }
  }
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
