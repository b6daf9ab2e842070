// Whether a run's billing date is a billing day, for each "Bill When" choice.
#include <gtest/gtest.h>

#include <sstream>

#include "billing/BillingDay.h"
#include "common/TempDir.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/DateTime.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

TEST(IsBillingDay, FollowsThePeriodAndTheBillWhenChoice) {
  test::TempDir home;
  VirtualClock clock(DateSerial(2026, 11, 23));
  std::ostringstream transcript;
  ScriptUi ui({}, &transcript, clock, "Tolmen");
  Tolmen app(MakeAppInfo(home.Path().string() + "/", "1.0.0"), ui, clock,
             home.File("settings.ini"));
  MainForm& form = app.screen.frmMain;
  // A new wizard does not bill.
  app.run.BillingDate = DateSerial(2026, 11, 23);
  app.run.InvoicingPlanned = true;
  IsBillingDay(app);
  EXPECT_FALSE(app.run.RecurringBillingOn);
  EXPECT_FALSE(app.run.InvoicingPlanned);

  struct Case {
    int period;
    int billWhen;
    const char* day;  // txtBillOn
    double date;
    bool billingDay;
  } cases[] = {
      {0, 0, "1", DateSerial(2026, 11, 23), false},  // "No Billing" outweighs "Today"
      {2, 0, "1", DateSerial(2026, 11, 23), true},
      {1, 0, "1", DateSerial(2026, 11, 23), true},
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
      // Not a number: the day's digits against the text, as text.
      {2, 3, "abc", DateSerial(2026, 11, 30), false},
      {2, 3, "3rd", DateSerial(2026, 11, 4), true},
      {2, 3, "3rd", DateSerial(2026, 11, 30), false},  // "30" sorts below "3rd"
      {2, 3, "3rd", DateSerial(2026, 11, 25), false},
  };
  for (const Case& c : cases) {
    form.optBillPeriod.Set(c.period);
    form.optBillOn.Set(c.billWhen);
    form.txtBillOn.SetText(c.day);
    app.run.BillingDate = c.date;
    IsBillingDay(app);
    EXPECT_EQ(app.run.RecurringBillingOn, c.billingDay)
        << DateText(c.date) << " period " << c.period << " when " << c.billWhen;
    EXPECT_EQ(app.run.InvoicingPlanned, c.billingDay);
  }
}

}  // namespace
}  // namespace tolmen
