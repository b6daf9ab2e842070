#include "billing/BillingDay.h"

#include <cmath>

#include "runtime/Conversion.h"
#include "runtime/DateTime.h"

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

bool IsBillingDay(const RunOptions& options, double billingDate) {
  const double date = std::floor(billingDate);
  if (options.BillingPeriod == 0) return false;  // "No Billing"
  switch (options.BillWhen) {
    case 0:
      return true;
    case 1:
      return Day(date + 1) == 1;
    case 2:
      return IsLastWeekdayBillingDay(date);
    default:
      return OnOrAfterDay(Day(date), options.BillOnWhichDay);
  }
}

void DecideBillingDay(RunState& run, const RunOptions& options, double now) {
  if (run.BillingDate < 1) run.BillingDate = std::floor(now);
  run.RecurringBillingOn = IsBillingDay(options, run.BillingDate);
  run.InvoicingPlanned = run.RecurringBillingOn;
}

}  // namespace tolmen
