// The document strings: the pure decisions, and the toolkit's routines that check and hold them.
#include "toolkit/DocumentStrings.h"

#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen {
namespace {

// The first field of the lists that rejects its value, or "" when every field passes. `onField`
// sees each field's name and value as it is popped.
template <typename OnField>
std::string FirstInvalidField(std::string text, std::string names, std::string widths, int count,
                              OnField onField) {
  for (int field = 1; field <= count; ++field) {
    const std::string value = PopField(text, "|");
    const std::string name = PopField(names, "|");
    const std::string width = UCase(PopField(widths, "|"));
    if (width == "D" && !value.empty() && !IsDate(value)) return name;
    if (width == "N" && !value.empty() && !IsNumeric(value)) return name;
    onField(name, width, value);
  }
  return "";
}

// An array whose first bound is 1: lines 1 to `upper`.
template <typename T>
void Redim(std::vector<T>& array, std::int32_t upper, bool preserve) {
  if (!preserve) array.clear();
  array.resize(static_cast<size_t>(upper) + 1);
}

}  // namespace

bool IsYes(const std::string& text) {
  return UCase(text) == "Y";
}

std::int16_t DocumentPeriod(double firstPeriodDate, double documentDate) {
  const auto months = DateDiff("m", firstPeriodDate, documentDate);
  return static_cast<std::int16_t>(months +
                                   (months >= 0 ? kFirstPeriodThisYear : kLastYearPeriods));
}

LineAmounts CompleteLineAmounts(LineAmounts given, double taxRate) {
  LineAmounts a = given;
  if (a.quantity == 0) a.quantity = 1;
  if (a.exclusive == 0) a.exclusive = a.cost;
  if (a.exclusive == 0) a.exclusive = Round(a.inclusive / (1 + taxRate), 2);
  if (a.inclusive == 0) a.inclusive = Round((1 + taxRate) * a.exclusive, 2);
  return a;
}

std::string quilletToolkit::DefineDocumentHeader(std::string& header) {
  TaxRate = app_.billing.BillingVATRate / 100;
  TotalExclusive = 0;
  TotalInclusive = 0;
  LineCount = 0;
  HeaderText = header;
  // An "Inc/Exc" number beyond a Long cannot be held: the field is invalid, as a bad date is.
  bool incExcOverflows = false;
  std::string invalid =
      FirstInvalidField(header, kHeaderFieldNames, kHeaderFieldWidths, kHeaderFieldCount,
                        [&](const std::string& name, const std::string&, const std::string& value) {
                          if (name != "Inc/Exc") return;
                          try {
                            IncExc = CLng(Variant(Val(value)));
                          } catch (const RuntimeError&) {
                            incExcOverflows = true;
                          }
                          if (IsYes(value)) IncExc = 1;
                        });
  if (invalid.empty() && incExcOverflows) invalid = "Inc/Exc";
  if (invalid.empty()) return "";
  HeaderText.clear();
  return "Invalid " + invalid;
}

std::string quilletToolkit::DefineDocumentLine(std::string& line) {
  LineAmounts given;
  const std::string invalid = FirstInvalidField(
      line, kLineFieldNames, kLineFieldWidths, kLineFieldCount,
      [&](const std::string& name, const std::string& width, const std::string& value) {
        if (width != "N") return;
        if (name == "Cost Price") given.cost = Val(value);
        if (name == "Quantity") given.quantity = Val(value);
        if (name == "Unit Selling Price") given.exclusive = Val(value);
        if (name == "Inclusive Price") given.inclusive = Val(value);
      });
  if (!invalid.empty()) return "Invalid " + invalid;

  ++LineCount;
  const auto upper = static_cast<std::int32_t>(LineTexts.size()) - 1;
  if (LineCount == 1 || LineCount > upper) {
    // A new document's arrays hold ten lines. Growing keeps the line strings but starts the
    // amount arrays empty: the amounts of the earlier lines are lost, their totals are not.
    const std::int32_t bound = LineCount == 1 ? 10 : LineCount + 10;
    Redim(LineTexts, bound, LineCount > 1);
    for (auto* amounts : {&LineQuantity, &LineCost, &LineExclusive, &LineInclusive})
      Redim(*amounts, bound, false);
  }
  const LineAmounts a = CompleteLineAmounts(given, TaxRate);
  const auto at = static_cast<size_t>(LineCount);
  LineQuantity[at] = a.quantity;
  LineCost[at] = a.cost;
  LineExclusive[at] = a.exclusive;
  LineInclusive[at] = a.inclusive;
  TotalExclusive += a.exclusive * a.quantity;
  TotalInclusive += a.quantity * a.inclusive;
  LineTexts[at] = line;
  return "";
}

std::string quilletToolkit::FormatDate(double date) {
  if (DateFormatText.empty()) {
    std::string table = "ACCPRMSY", key = "1";
    std::int32_t field = 14;
    std::string answer = GetField(table, 0, key, field);
    PopField(answer, "|");
    DateFormatText = answer;
  }
  const std::string yearWidth = Mid(DateFormatText, 1, 1);
  const std::string order = Mid(DateFormatText, 2, 1);
  const std::string s = Mid(DateFormatText, 3, 1);
  std::string pattern;
  if (order == "1") pattern = "MM" + s + "DD" + s + "YY";
  if (order == "2") pattern = "DD" + s + "MM" + s + "YY";
  if (order == "3") pattern = "YY" + s + "MM" + s + "DD";
  if (yearWidth == "2") pattern = Replace(pattern, "YY", "YYYY");
  return Format(Variant::FromDate(date), pattern);
}

std::string quilletToolkit::ImportGLBatch(std::string& /*batch*/, const std::string& /*unused*/) {
  return "";
}

}  // namespace tolmen
