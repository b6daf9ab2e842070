#include "billing/BillingDay.h"

#include <cmath>

#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "shell/Tolmen.h"

namespace tolmen {

namespace {

// "On or After Specific Date": the day of the month has reached the day in txtBillOn. A day
// text that is no number is compared as text with the day's number.
bool OnOrAfterDay(int day, const std::string& dayText) {
  if (IsNumeric(Variant(dayText))) return day >= CDbl(Variant(dayText));
  return std::to_string(day) >= dayText;
}

}  // namespace

bool IsLastWeekdayBillingDay(double date) {
  const double billingDate = std::floor(date);
  double d = billingDate + 1 - Day(billingDate + 1);
  if (Weekday(d) == vbSunday) d -= 2;
  if (Weekday(d) == vbSaturday) d -= 1;
  return billingDate == d;
}

void IsBillingDay(Tolmen& app) {
  const MainForm& form = app.screen.frmMain;
  RunState& run = app.run;
  const double date = std::floor(run.BillingDate);
  bool on;
  if (form.optBillPeriod(0).Value())
    on = false;
  else if (form.optBillOn(0).Value())
    on = true;
  else if (form.optBillOn(1).Value())
    on = Day(date + 1) == 1;
  else if (form.optBillOn(2).Value())
    on = IsLastWeekdayBillingDay(date);
  else
    on = OnOrAfterDay(Day(date), form.txtBillOn.Text());
  run.RecurringBillingOn = on;
  run.InvoicingPlanned = on;
}

}  // namespace tolmen
