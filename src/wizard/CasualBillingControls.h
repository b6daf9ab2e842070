// The "Casual Billing" page's handlers: the rule list's four commands, its tooltip, the inventory
// list's click and double click; and the double click on the price list of the "Recurring
// Billing" page, which edits a price. The routines are billing's (billing/CasualBilling.h).
#pragma once

namespace tolmen {

class Tolmen;

// Hangs the handlers on frmMain. Each handler passes over a run-time error, as a click must not
// end the program. REQUIRES: `app` outlives its screen.
void WireCasualBillingControls(Tolmen& app);

}  // namespace tolmen
