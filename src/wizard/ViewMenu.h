// The View menu: each of its three ticks stands for a page that can be hidden ("To Maximizer",
// "Recurring Billing", "Casual Billing"). Removing a tick asks first; No leaves everything as it
// was. Putting a tick back asks nothing. The pages' "Hide Tab" buttons run the same handlers, and
// the check box chkShowToMaxTab sets the "To Maximizer" tick directly, without the question.
#pragma once

namespace tolmen {

class Tolmen;

void mnuViewMaximizer_Click(Tolmen& app);
void mnuViewBillR_Click(Tolmen& app);
void mnuViewBillC_Click(Tolmen& app);
void chkShowToMaxTab_Click(Tolmen& app);

// The tab pages 2, 3 and 4 shown or hidden as their View ticks say.
void TabsFollowViewMenu(Tolmen& app);

}  // namespace tolmen
