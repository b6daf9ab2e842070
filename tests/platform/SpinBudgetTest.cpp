// How many waits on the automation socket go to sleep at once after asking went unanswered.
#include <gtest/gtest.h>

#include "platform/automation/SpinBudget.h"

namespace tolmen {
namespace {

// The waits that go to sleep at once before asking is allowed again.
int SleepingWaits(SpinBudget& budget) {
  int sleeping = 0;
  while (!budget.MaySpin()) ++sleeping;
  return sleeping;
}

TEST(SpinBudget, MissesDoubleTheSleepingWaitsAndAnswersHalveThem) {
  SpinBudget budget;
  for (int i = 0; i < 10; ++i) ASSERT_TRUE(budget.MaySpin());  // answered every time
  budget.Answered();
  EXPECT_TRUE(budget.MaySpin());

  budget.Missed();
  EXPECT_EQ(SleepingWaits(budget), 2);
  budget.Missed();
  EXPECT_EQ(SleepingWaits(budget), 4);
  budget.Missed();
  EXPECT_EQ(SleepingWaits(budget), 8);
  budget.Answered();  // 8 becomes 4
  budget.Missed();    // and 8 again
  EXPECT_EQ(SleepingWaits(budget), 8);
  for (int i = 0; i < 3; ++i) budget.Answered();  // down to 1, where it stays
  budget.Answered();
  budget.Missed();
  EXPECT_EQ(SleepingWaits(budget), 2);

  // A machine that stays busy: the sleeping waits stop growing at 4096.
  for (int i = 0; i < 20; ++i) {
    budget.Missed();
    SleepingWaits(budget);
  }
  budget.Missed();
  EXPECT_EQ(SleepingWaits(budget), 4096);
}

}  // namespace
}  // namespace tolmen
