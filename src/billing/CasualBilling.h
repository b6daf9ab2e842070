// Casual billing: the "Casual Billing" page's list of rules with its commands, the resolution of
// the rules before a run, and the retired billing step of the client loop.
//
// No rule is ever billed: DoBilling2 only says that it no longer works. Resolving the rules
// needs Pastel's inventory, which the posting toolkit cannot read, so a list with rules always
// ends in the resolution's report and keeps the run from starting.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;
class ListBox;

// lstBillType: the documents a rule may raise, with their types as item data; "Batch Invoice"
// selected.
void FillDocumentList(ListBox& list);

// The rule of the page's four steps, or "" after saying which step is missing (the focus goes
// to its control). The price comes from Pastel; a rule without one has no price piece.
std::string GetNewBillItem(Tolmen& app);

// Whether the rules let a run proceed. Passes at once when they were resolved for this list and
// folder and casual billing is still on. An empty list passes with casual billing off. Otherwise
// reads the inventory, checks every rule in turn (UDF, document, code, price, tax code,
// description; a rule's first fault counts) and keeps the rules that pass in
// BillingState::CasualItems; any fault shows one report of them all and turns casual billing
// off. Sets RunState::CasualBillingOn.
bool ResolveCasualItems(Tolmen& app);
// The casual billing step of the checks before a run: ResolveCasualItems, or the test's
// stand-in (RunStages) when one is set.
bool CheckCasualBilling(Tolmen& app);

// The client loop's casual billing step, retired: says so and turns both kinds of billing off.
void DoBilling2(Tolmen& app);

// The page's commands and events.
void cmdBillCAdd_Click(Tolmen& app);
void cmdBillCReplace_Click(Tolmen& app);
void cmdBillCDelete_Click(Tolmen& app);
// Sets the four steps from the selected rule; the parts that cannot be found are reported
// together.
void cmdBillCEdit_Click(Tolmen& app);
// The selected rule becomes the list's tooltip.
void lstBillCSet_Click(Tolmen& app);
void lstPasInventory_Click(Tolmen& app);
// Reads the inventory again.
void lstPasInventory_DblClick(Tolmen& app);

}  // namespace tolmen
