// Whether the run's billing date is a billing day: decided once per run, before the Import
// confirmation is composed, from the "Billing Period", "Bill When" and "Bill on Which day"
// options. The screen is the master copy of these options: the caller copies it into RunOptions
// (SetOptions) first.
#pragma once

#include "templates/RunOptions.h"
#include "transfer/RunState.h"

namespace tolmen {

// The decision for `billingDate`. The first of these that applies decides: "No Billing" never
// bills; "Today" always; "Last Day of Month" when the next day is the 1st; "Last Weekday of
// Month" by IsLastWeekdayBillingDay; otherwise (a specific day, or no "Bill When" choice) when the
// day of the month has reached the day in "Bill on Which day".
bool IsBillingDay(const RunOptions& options, double billingDate);

// The billing date becomes the day of `now` unless one was chosen; RecurringBillingOn and
// InvoicingPlanned are set to IsBillingDay for it.
void DecideBillingDay(RunState& run, const RunOptions& options, double now);

// The "Last Weekday of Month" rule: true only when `date` is the last day of its month and that
// day is Monday to Friday. A month that ends on a Saturday or Sunday has no billing day at all,
// because the weekend is stepped back from the last day of the month before.
bool IsLastWeekdayBillingDay(double date);

}  // namespace tolmen
