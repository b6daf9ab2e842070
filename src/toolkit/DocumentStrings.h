// The strings through which the billing code describes a document to the posting toolkit, and
// the pure decisions the toolkit makes on them.
//
// A string is a row of fields separated by "|", taken off the front one at a time with PopField
// (trimmed; a field past the end is empty). Each field has a name and a width code: a number
// (the width, checked by nobody here), D (a date, as ParseDate reads it) or N (a number, as
// IsNumeric reads it). Only D and N fields can make a string invalid, and only when not empty;
// besides, an "Inc/Exc" whose number is beyond a Long makes a header invalid.
//
// Header string, 31 fields: number, "Delete" (Y), print status, customer, date, order number,
// "Inc/Exc" (Y), discount, three messages, five delivery address lines, sales analysis code,
// settlement terms, job code, closing date, telephone, contact, fax, exchange rate, then a
// description, an exemption reference and five address lines that posting never reads.
// Line string, 12 named fields (cost, quantity, unit selling price, inclusive price, unit, tax
// type, discount type and percentage, code, description, line type, multi-store) and a 13th, the
// cost code, which only posting reads. Example, at 14%: "|1|100|||01|||1000000|Annual fee|6||CC"
// is one item at 100 exclusive and 114 inclusive.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

// Pipe-terminated lists of names and width codes, popped in step with a string's fields.
inline constexpr const char* kHeaderFieldNames =
    "Document Number|Delete|Print Status|Customer Code|Date|Order Number|Inc/Exc|Discount|"
    "Invoice Message 1|Invoice Message 2|Invoice Message 3|Delivery Address 1|"
    "Delivery Address 2|Delivery Address 3|Delivery Address 4|Delivery Address 5|"
    "Sales Analysis Code|Settlement Terms Code|Job Code|Closing Date|Telephone|Contact|Fax|"
    "Exchange Rate|Description|ExemptRef|Address 1|Address 2|Address 3|Address 4|Address 5|";
inline constexpr const char* kHeaderFieldWidths =
    "8|1|1|7|D|15|1|N|30|30|30|30|30|30|30|30|5|2|5|D|16|16|16|N|40|16|30|30|30|30|30|";
inline constexpr int kHeaderFieldCount = 31;

inline constexpr const char* kLineFieldNames =
    "Cost Price|Quantity|Unit Selling Price|Inclusive Price|Unit|Tax Type|Discount Type|"
    "Discount Percentage|Code|Description|Line Type|Multi-store|";
inline constexpr const char* kLineFieldWidths = "N|N|N|N|4|2|1|4|15|40|1|3|";
inline constexpr int kLineFieldCount = 12;

// The ledger batch line, kept as the statement of its format; nothing posts batches.
inline constexpr const char* kBatchFieldNames =
    "Period|Date|GDC|Account Number|Reference|Description|Amount|Tax Type|Tax Amount|"
    "Open Item Type|Job Code|Matching Reference|Discount Amount|Discount Tax Type|"
    "Contra Account|Exchange Rate|Bank Exchange Rate|";
inline constexpr const char* kBatchFieldWidths = "N|D|1|7|8|36|N|N|N|1|5|8|N|N|7|N|N|";

// Document types. Below kBatchedDocuments a document changes the debtor's figures (a credit
// note lowers them); from there on (quotes, orders, batched documents) it does not.
inline constexpr std::int16_t kDocumentInvoice = 3;
inline constexpr std::int16_t kDocumentCreditNote = 4;
inline constexpr std::int16_t kBatchedDocuments = 6;
inline constexpr std::int16_t kDocumentBatchedInvoice = 103;

// Period numbers: kFirstPeriodThisYear + p - 1 is period p of the current financial year;
// numbers below kLastYearPeriods are periods of last year.
inline constexpr std::int16_t kFirstPeriodThisYear = 101;
inline constexpr std::int16_t kLastYearPeriods = 13;

// "Delete" and "Inc/Exc" say yes with the letter Y, in either case; anything else is no.
bool IsYes(const std::string& text);

// The period number of a document dated `documentDate` when the year's first period date is
// `firstPeriodDate`: the difference in calendar months (days do not count) plus 101 when it is
// 0 or more, plus 13 when it is negative. Nothing checks the range: thirteen months before the
// year gives 0, the fourteenth month of the year 114.
std::int16_t DocumentPeriod(double firstPeriodDate, double documentDate);

// A line's four amounts as given (0 for an empty field) and as completed.
struct LineAmounts {
  double quantity = 0;
  double cost = 0;
  double exclusive = 0;
  double inclusive = 0;
};
// In this order: a quantity of 0 becomes 1; an exclusive price of 0 takes the cost; one still 0
// becomes inclusive / (1 + taxRate); an inclusive price of 0 becomes (1 + taxRate) * exclusive.
// Computed prices are rounded to cents, halves to the even cent. `taxRate` is a fraction.
LineAmounts CompleteLineAmounts(LineAmounts given, double taxRate);

}  // namespace tolmen
