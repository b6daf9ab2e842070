// The recurring billing set-up: the check before a run, the price list of the category UDF with
// its two editors, the billing date buttons, the page's other handlers, and the inventory reads
// the casual billing page uses.
//
// Prices and periods live in the settings store, section "Billing" (the price excluding tax;
// "-1" does not bill) and "BillingPeriod" (years), keyed by the category text.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

constexpr const char* kPriceSection = "Billing";
constexpr const char* kPeriodSection = "BillingPeriod";
// Where the automation link lists the category UDF's values; deleted after reading.
constexpr const char* kCategoryPassingFile = "TheUdftableItem.txt";

// Whether billing may proceed: the category comes from a UDF, the date UDFs are chosen, there are
// prices, the GL code has seven digits and the billing date is accepted. Sets the invoice codes,
// the tax rate, BillingDate and the date UDF fields; passes at once when billing is off or the
// last check passed and nothing changed since. Each failure says why and moves the focus.
bool CheckBillingSetup(Tolmen& app);
// The recurring billing step of the checks before a run: CheckBillingSetup, or the test's
// stand-in (RunStages) when one is set.
bool CheckRecurringBilling(Tolmen& app);

// Fills lstPrices with the values of the category UDF and their prices and periods, unless it
// already holds them and `force` is false. True when there are rows or nothing was to be done.
bool LoadPriceList(Tolmen& app, bool& force);

// The handlers of cmdEditPrice and cmdEditPeriod.
void EditPrice(Tolmen& app);
void EditPeriod(Tolmen& app);

// updToday's buttons: the billing date one day ("d") or one month ("m") up (+1) or down (-1).
void MoveBillingDate(Tolmen& app, const std::string& interval, int step);

// optBillOn: the day box counts for "On or After Specific Date" only.
void optBillOn_Click(Tolmen& app, int index);
// updToday: 0 and 1 move the date in txtToday a day on or back, 2 and 3 a calendar month.
void updToday_Click(Tolmen& app, int index);
// updBillOn: 0 and 1 move the day in txtBillOn one on or back, within 1 to 31; a box without a
// number counts as 0.
void updBillOn_Click(Tolmen& app, int index);
// txtVATcode: the tax rate shown is no longer known.
void txtVATcode_Change(Tolmen& app);

// lstPasInventory from Pastel's inventory, once per set; a read failure says so and leaves the
// list empty and unread.
void ReadInventoryList(Tolmen& app);
// The price of stock item `code`, as "0.00"; "" when not found (`stage` then says what was) or
// on a read failure, which is shown.
std::string GetMultiPrice(Tolmen& app, std::string& code, std::string& stage);
// The description and the tax code of stock item `code`, or a text starting "** " that says
// why there is none.
std::string GetItemDescription(Tolmen& app, const std::string& code);
std::string GetItemTaxCode(Tolmen& app, const std::string& code);

}  // namespace tolmen
