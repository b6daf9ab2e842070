// Whether the run's billing date is a billing day: decided once per run, before the Import
// confirmation is composed, from the "Billing Period" and "Bill When" choices of the Recurring
// Billing page.
#pragma once

namespace tolmen {

class Tolmen;

// Sets RecurringBillingOn, and InvoicingPlanned to the same value, for run.BillingDate.
void IsBillingDay(Tolmen& app);

// The "Last Weekday of Month" rule: true only when `date` is the last day of its month and that
// day is Monday to Friday. A month that ends on a Saturday or Sunday has no billing day at all,
// because the weekend is stepped back from the last day of the month before.
bool IsLastWeekdayBillingDay(double date);

}  // namespace tolmen
