// The "Recurring Billing" page's handlers (the price editors, "Bill When", the tax code box), the
// Options > Multi-Year Billing menu and the billing date buttons beside "Today is". The
// routines themselves are billing's (billing/BillingSetup.h, billing/MultiYear.h).
#pragma once

namespace tolmen {

class Tolmen;

// Hangs the handlers on frmMain. Each handler passes over a
// run-time error, as a click must not end the program. REQUIRES: `app` outlives its screen.
void WireRecurringBillingControls(Tolmen& app);

}  // namespace tolmen
