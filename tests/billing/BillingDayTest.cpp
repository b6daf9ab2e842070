// Whether a run's billing date is a billing day, for each "Bill When" choice.
#include <gtest/gtest.h>

#include "billing/BillingDay.h"
#include "runtime/DateTime.h"

namespace tolmen {
namespace {

TEST(IsBillingDay, FollowsThePeriodAndTheBillWhenChoice) {
  struct Case {
    int period;
    int billWhen;     // 4: no "Bill When" button is on
    const char* day;  // "Bill on Which day", the box's text
    double date;
    bool billingDay;
  } cases[] = {
      {0, 0, "1", DateSerial(2026, 11, 23), false},  // "No Billing" outweighs "Today"
      {2, 0, "1", DateSerial(2026, 11, 23), true},
      {1, 0, "1", DateSerial(2026, 11, 23), true},
      {3, 0, "1", DateSerial(2026, 11, 23), true},  // no period button on is not "No Billing"
      // "Last Day of Month"
      {2, 1, "1", DateSerial(2026, 11, 30), true},
      {2, 1, "1", DateSerial(2026, 11, 29), false},
      {2, 1, "1", DateSerial(2026, 2, 28), true},
      {2, 1, "1", DateSerial(2024, 2, 28), false},  // a leap year
      {2, 1, "1", DateSerial(2024, 2, 29), true},
      // "Last Weekday of Month": only a last day that is Monday to Friday
      {2, 2, "1", DateSerial(2026, 11, 30), true},  // Monday
      {2, 2, "1", DateSerial(2026, 12, 31), true},  // Thursday
      {2, 2, "1", DateSerial(2021, 1, 29), false},  // Friday; January 2021 ends on a Sunday
      {2, 2, "1", DateSerial(2021, 1, 31), false},
      {2, 2, "1", DateSerial(2026, 2, 27), false},  // Friday; February 2026 ends on a Saturday
      {2, 2, "1", DateSerial(2026, 2, 28), false},
      {2, 2, "1", DateSerial(2026, 12, 30), false},  // the day before a weekday month end
      // A specific day bills on that day and on every later day of the month.
      {2, 3, "15", DateSerial(2026, 11, 14), false},
      {2, 3, "15", DateSerial(2026, 11, 15), true},
      {2, 3, "15", DateSerial(2026, 11, 30), true},
      {2, 3, "31", DateSerial(2026, 11, 30), false},  // never in a month of 30 days
      {2, 3, " 7 ", DateSerial(2026, 11, 7), true},
      {2, 4, "15", DateSerial(2026, 11, 15), true},  // no choice counts as a specific day
      // Not a number: the day's digits against the text, as text.
      {2, 3, "abc", DateSerial(2026, 11, 30), false},
      {2, 3, "3rd", DateSerial(2026, 11, 4), true},
      {2, 3, "3rd", DateSerial(2026, 11, 30), false},  // "30" sorts below "3rd"
      {2, 3, "3rd", DateSerial(2026, 11, 25), false},
  };
  for (const Case& c : cases) {
    RunOptions options;
    options.BillingPeriod = static_cast<int16_t>(c.period);
    options.BillWhen = static_cast<int16_t>(c.billWhen);
    options.BillOnWhichDay = c.day;
    EXPECT_EQ(IsBillingDay(options, c.date + 0.75), c.billingDay)
        << DateText(c.date) << " period " << c.period << " when " << c.billWhen;
  }
}

TEST(IsBillingDay, TheRunDecidesForItsBillingDateOrToday) {
  RunOptions options;  // a new wizard does not bill
  RunState run;
  run.InvoicingPlanned = true;
  DecideBillingDay(run, options, DateSerial(2026, 11, 23) + 0.5);
  EXPECT_EQ(run.BillingDate, DateSerial(2026, 11, 23));
  EXPECT_FALSE(run.RecurringBillingOn);
  EXPECT_FALSE(run.InvoicingPlanned);

  options.BillingPeriod = 2;
  options.BillWhen = 1;  // "Last Day of Month": a chosen date stands
  run.BillingDate = DateSerial(2026, 11, 30);
  DecideBillingDay(run, options, DateSerial(2026, 11, 23));
  EXPECT_EQ(run.BillingDate, DateSerial(2026, 11, 30));
  EXPECT_TRUE(run.RecurringBillingOn);
  EXPECT_TRUE(run.InvoicingPlanned);
}

}  // namespace
}  // namespace tolmen
