#include "pastel/pasDebtor.h"

#include "pastel/PastelFiles.h"
#include "shell/Tolmen.h"
#include "transfer/ImportFiles.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 2, K::Integer},     // category number
    {2, 2, 2, 6, K::Text},        // account code, key 0
    {3, 3, 8, 40, K::Text},       // name
    {4, 16, 48, 8, K::Double},    // this year's balances: field 3 + p
    {17, 29, 152, 8, K::Double},  // last year's balances: field 16 + p
    {30, 42, 256, 8, K::Double},  // this year's sales: field 29 + p
    {43, 55, 360, 8, K::Double},  // last year's sales: field 42 + p
    {56, 60, 464, 30, K::Text},   // postal address
    {61, 61, 614, 2, K::Integer},
    {62, 62, 616, 16, K::Text},    // VAT number
    {63, 65, 632, 2, K::Integer},  // settlement terms, payment terms, discount
    {66, 66, 638, 4, K::Date},     // last payment date
    {67, 67, 642, 8, K::Double},   // last payment amount
    {68, 70, 650, 1, K::Flag},
    {71, 71, 653, 1, K::Text},
    {72, 72, 654, 1, K::Flag},
    {73, 73, 655, 3, K::Text},
    {74, 74, 658, 2, K::Integer},
    {75, 75, 660, 4, K::Long},  // credit limit
    {76, 78, 664, 2, K::Integer},
    {79, 91, 670, 8, K::Double},
    {92, 104, 774, 8, K::Double},
    {105, 109, 878, 16, K::Text},  // user defined fields
    {110, 114, 958, 8, K::Double},
    {115, 116, 998, 2, K::Integer},
    {117, 117, 1002, 13, K::Text},
    {118, 118, 1015, 10, K::Text},
    {119, 119, 1025, 16, K::Text},
    {120, 120, 1041, 8, K::Text},
    {121, 121, 1049, 1, K::Text},
    {122, 122, 1050, 5, K::Text},
    {123, 123, 1055, 16, K::Text},
    {124, 124, 1071, 19, K::Text},  // change stamp "dd/mm/yyyy hh:mm:ss"
    {125, 126, 1090, 1, K::Text},
    {127, 127, 1092, 4, K::Date},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasDebtor::pasDebtor(Tolmen& app) : PastelRecord(app, "clsDebtor", kRecordLength, 125, kLayout) {}

void pasDebtor::DELETE() {
  app_.ui.MsgBox("Can't Delete Pastel Debtor!", vbExclamation);
}

void pasDebtor::WriteLine() {
  STATUS_ = kStatusOk;
  if (!app_.run.WriteCsv) return;
  WriteCustomerLine(app_, DebtorCsvLine(*this, app_.pastelFiles.Delivery()));
}

}  // namespace tolmen
