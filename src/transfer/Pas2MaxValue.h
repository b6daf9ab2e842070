// The texts Pastel2Max writes into the linked UDFs. ReadDebtorFigures takes what the links can
// use from the debtor record; Pas2MaxValue decides a row's text from those figures and the set's
// periods alone, so that the figures of any debtor, current period and year length can be tried.
//
// With P the number of periods in the year and C the current period:
//   balance     the sum over periods 1..P of this year's and last year's balance fields, each
//               first rounded to two decimals through its "0.00" text
//   bucket k    k = 0..3: p = C - k; this year's period p when p > 0, else last year's period
//               P + p (the period counted back from the year's end)
//   bucket 4    m = C - 4; m < 1: last year's periods 1..P + m; otherwise this year's periods
//               1..C - 4 and all P of last year
//   sales       this year's periods 1..P, last year's 1..P, or both sums added
// Buckets and sales are not rounded. Numbers are shown in plain decimal form (NumberText).
#pragma once

#include <array>
#include <optional>
#include <string>

#include "transfer/Pas2MaxCatalogue.h"

namespace tolmen {

class pasDebtor;

// The debtor fields the catalogue reads, as plain values.
struct DebtorFigures {
  // Fields 4 to 55 in field order: this year's balances, last year's balances, this year's
  // sales and last year's sales, periods 1 to 13 each.
  std::array<double, 52> periods{};
  double settlementTerms = 0;             // 63
  double paymentTerms = 0;                // 64
  double discount = 0;                    // 65
  double lastPaidDate = 0;                // 66, a date value
  double lastPaidAmount = 0;              // 67
  std::string blocked;                    // 68, the flag's text ("True" or "False")
  double creditLimit = 0;                 // 75
  double interestAfter = 0;               // 76
  std::array<std::string, 5> userFields;  // 105 to 109, with their padding

  // The number field `field` (4 to 55, 63 to 67, 75, 76; the date 66 as its day count); 0 for
  // any other.
  double Number(int field) const;
  // The text of field 68 or 105 to 109; "" for any other.
  std::string Text(int field) const;
};

constexpr int kFirstPeriodField = 4;
constexpr int kLastPeriodField = 55;

// Reads the fields above from the debtor image as it stands.
DebtorFigures ReadDebtorFigures(pasDebtor& debtor);

double AccountBalance(const DebtorFigures& debtor, int periods);
// REQUIRES: 0 <= bucket <= 4.
double AgingBucket(const DebtorFigures& debtor, int bucket, int currentPeriod, int periods);
// `type` is kPas2MaxSalesThisYear, kPas2MaxSalesLastYear or kPas2MaxSalesBoth.
double SalesTotal(const DebtorFigures& debtor, int type, int periods);

// The text written into the UDF of a link to `row`; nullopt when the row has a negative field
// (its UDF is filled by invoice creation) or a type without a value.
//   date    "yyyy-mm-dd" of the field's date (a blank date is day 0, "1899-12-30")
//   number  the field in plain decimal form
//   text    the field's text with its padding
//   flag    "Y" when the first character's code is not 0, so "Y" for true ("True") and false
//           ("False") alike; "N" only for a text that is empty or starts with a NUL
std::optional<std::string> Pas2MaxValue(const DebtorFigures& debtor, const Pas2MaxRow& row,
                                        int currentPeriod, int periods);

}  // namespace tolmen
