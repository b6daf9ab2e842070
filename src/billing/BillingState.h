// What billing keeps between its steps for the life of the process.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolmen {

// The "Billing Period" buttons (optBillPeriod), and the "Category Option" button that takes the
// category from a UDF, which billing needs.
enum BillingPeriodKind : int { kNoBillingPeriod = 0, kBillAnnually = 1, kBillMonthly = 2 };
constexpr int kCategoryFromUdf = 2;

// One resolved casual billing rule, at the index of its row in lstBillCSet; a row that did not
// resolve keeps an empty entry.
struct CasualItem {
  std::int16_t documentType = 0;  // the ItemData of the document in lstBillType
  std::int16_t udfKey = 0;        // the ItemData of the UDF in lstBillCUDFs
  std::string trigger;
  std::int16_t reserved = 0;  // kept beside the others; nothing fills it
  std::string udfName;
  std::string lineString;  // the DefineDocumentLine string
};

struct BillingState {
  // The casual billing page's inventory list has been read from Pastel; picking another folder
  // or drive clears it, so that the list is read again from the new set.
  bool InventoryLoaded = false;
  // The percentage of the billing tax type, to two decimals; the posting toolkit's documents
  // take their tax rate from it.
  double BillingVATRate = 0;

  // The last CheckBillingSetup passed; any edit of prices, periods, "Bill When" or the tax code
  // clears it so that the check runs again before the next run.
  bool BillingChecked = false;
  // The category UDF lstPrices was last filled for; 0 until then.
  std::int16_t PriceListField = 0;
  // The invoice line's codes as CheckBillingSetup (trimmed) or DoBilling1 (as typed) took them.
  std::string BillingGLCode;
  std::string BillingVATCode;
  std::string BillingCostCode;
  // The UDFs of the date combos' selected entries; 0 for none.
  std::int16_t DateBilledField = 0;
  std::int16_t DateJoinedField = 0;
  // Why the client in hand is due (DecideClientDue), the note that ends the description of its
  // invoice line (" (Renewal)" for a recurring invoice), and that description.
  std::string BillingNote;
  std::string InvoiceNote;
  std::string ItemDescription;

  // The casual billing rules as the last ResolveCasualItems resolved them, and the rules and
  // Pastel folder they were resolved for (empty: not resolved since).
  std::vector<CasualItem> CasualItems;
  std::string CasualResolvedFor;
};

}  // namespace tolmen
