// The price list's texts: a row of lstPrices, and what the "Edit Price" answer means. The answer
// is a price, optionally "/" and a tax percentage (the price then includes that tax), optionally
// "+" and a number of years: "90/14+2".
#pragma once

#include <string>

namespace tolmen {

constexpr const char* kNoBilling = "<no billing>";
constexpr const char* kOneYear = "(1 Year)";

// The period as a row shows it, from the stored "BillingPeriod" text.
std::string PeriodShown(const std::string& years);
// A row of lstPrices for a category and its stored price and years: category, tab, price, tab,
// period; a price of -1 shows kNoBilling with no period.
std::string PriceRow(const std::string& category, const std::string& price,
                     const std::string& years);

enum class PriceEditKind { kCancel, kNotNumber, kSave, kDelete };

struct PriceEdit {
  PriceEditKind kind = PriceEditKind::kCancel;
  std::string price;  // the text to save (kSave) or " 0" (kDelete)
  std::string years;  // kSave: the numeric period to save
  std::string shownPrice;
  std::string shownPeriod;
};

// The meaning of `answer` for a row whose period reads `periodText`. An empty answer cancels; a
// price that is no number is kNotNumber. A price above 0, or exactly -1, is saved, divided by
// (1 + tax / 100) to two decimals when the tax is above 1; any other price deletes the keys.
PriceEdit ParsePriceEntry(const std::string& answer, const std::string& periodText);

// The default answer offered for a row: its price, and " +" and the years when above 1.
std::string PriceEntryDefault(const std::string& price, const std::string& periodText);

}  // namespace tolmen
