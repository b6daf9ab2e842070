#include "billing/PriceEntry.h"

#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"

namespace tolmen {

namespace {

// The part of `text` before the first `mark`, and the part after it ("" when there is none).
std::pair<std::string, std::string> CutAt(const std::string& text, const std::string& mark) {
  const long at = InStr(text, mark);
  if (at == 0) return {text, ""};
  return {Left(text, at - 1), Mid(text, at + 1)};
}

}  // namespace

std::string PeriodShown(const std::string& years) {
  const double value = Val(years);
  if (value != 0 && value != 1) return value > 1 ? years + " Year" : years;
  return kOneYear;
}

std::string PriceRow(const std::string& category, const std::string& price,
                     const std::string& years) {
  if (Val(price) == -1) return category + "\t" + kNoBilling + "\t";
  return category + "\t" + price + "\t" + PeriodShown(years);
}

PriceEdit ParsePriceEntry(const std::string& answer, const std::string& periodText) {
  PriceEdit edit;
  if (Trim(answer).empty()) return edit;
  auto [priceAndTax, yearsText] = CutAt(answer, "+");
  auto [priceText, taxText] = CutAt(priceAndTax, "/");
  priceText = Trim(priceText);
  yearsText = Trim(yearsText);
  std::string period = yearsText.empty() ? periodText : yearsText;
  if (priceText == kNoBilling) priceText = "-1";
  if (!IsNumeric(Variant(priceText))) {
    edit.kind = PriceEditKind::kNotNumber;
    return edit;
  }
  const double price = CDbl(Variant(priceText));
  if (price > 0 || price == -1) {
    const double tax = Val(taxText);
    if (tax > 1) priceText = FormatNumber(price / (1 + tax / 100), "0.00");
    edit.kind = PriceEditKind::kSave;
    edit.years = NumberText(Val(period));
  } else {
    edit.kind = PriceEditKind::kDelete;
    priceText = " 0";
  }
  edit.price = priceText;
  // The row as it now stands; a negative period keeps its text.
  const double years = Val(period);
  if (Val(priceText) == -1) {
    edit.shownPrice = kNoBilling;
  } else {
    edit.shownPrice = priceText;
    if (years == 0)
      edit.shownPeriod = kOneYear;
    else if (years > 0)
      edit.shownPeriod = NumberText(years) + " Year";
    else
      edit.shownPeriod = period;
  }
  return edit;
}

std::string PriceEntryDefault(const std::string& price, const std::string& periodText) {
  const double years = Val(periodText);
  return years > 1 ? price + " +" + NumberText(years) : price;
}

}  // namespace tolmen
