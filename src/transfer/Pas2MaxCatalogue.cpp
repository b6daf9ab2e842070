#include "transfer/Pas2MaxCatalogue.h"

#include <array>

#include "screen/ListControls.h"

namespace tolmen {
namespace {

// A period number takes two positions in a row's name, so a single digit stands behind two
// blanks ("Period  1", "Period 13").
constexpr std::array<Pas2MaxRow, kPas2MaxRows> kCatalogue{{
    {0, "Pastel Doc Numbers (Billing)", kPas2MaxDocNumbersField, kPas2MaxText},
    {1, "Pastel Doc Dates (Billing)", kPas2MaxDocDatesField, kPas2MaxNone},
    {2, "Account Balance", 0, kPas2MaxBalance},
    {3, "Account Monthly Aging 0 ('Current')", 0, kPas2MaxAging0},
    {4, "Account Monthly Aging 1 ('30 days')", 0, kPas2MaxAging0 - 1},
    {5, "Account Monthly Aging 2 ('60 days')", 0, kPas2MaxAging0 - 2},
    {6, "Account Monthly Aging 3 ('90 days')", 0, kPas2MaxAging0 - 3},
    {7, "Account Monthly Aging 4+ ('120+')", 0, kPas2MaxAging4},
    {8, "Customer Credit Limit", 75, kPas2MaxNumber},
    {9, "Account Blocked?  (Y/N)", 68, kPas2MaxFlag},
    {10, "Settlement terms code", 63, kPas2MaxNumber},
    {11, "Payment Terms: 0=Current, 30/60/90/120 days", 64, kPas2MaxNumber},
    {12, "Default Discount (%)", 65, kPas2MaxNumber},
    {13, "Last Date customer paid (Date)", 66, kPas2MaxDate},
    {14, "Last Amount customer paid", 67, kPas2MaxNumber},
    {15, "Interest After: 0/30/60/90/120 days; -1=None", 76, kPas2MaxNumber},
    {16, "Both years' Total Sales", 0, kPas2MaxSalesBoth},
    {17, "Last year's Total Sales", 0, kPas2MaxSalesLastYear},
    {18, "This year's Total Sales", 0, kPas2MaxSalesThisYear},
    {19, "This year Balance Period  1", 4, kPas2MaxNumber},
    {20, "This year Balance Period  2", 5, kPas2MaxNumber},
    {21, "This year Balance Period  3", 6, kPas2MaxNumber},
    {22, "This year Balance Period  4", 7, kPas2MaxNumber},
    {23, "This year Balance Period  5", 8, kPas2MaxNumber},
    {24, "This year Balance Period  6", 9, kPas2MaxNumber},
    {25, "This year Balance Period  7", 10, kPas2MaxNumber},
    {26, "This year Balance Period  8", 11, kPas2MaxNumber},
    {27, "This year Balance Period  9", 12, kPas2MaxNumber},
    {28, "This year Balance Period 10", 13, kPas2MaxNumber},
    {29, "This year Balance Period 11", 14, kPas2MaxNumber},
    {30, "This year Balance Period 12", 15, kPas2MaxNumber},
    {31, "This year Balance Period 13", 16, kPas2MaxNumber},
    {32, "This year Sales, Period  1", 30, kPas2MaxNumber},
    {33, "This year Sales, Period  2", 31, kPas2MaxNumber},
    {34, "This year Sales, Period  3", 32, kPas2MaxNumber},
    {35, "This year Sales, Period  4", 33, kPas2MaxNumber},
    {36, "This year Sales, Period  5", 34, kPas2MaxNumber},
    {37, "This year Sales, Period  6", 35, kPas2MaxNumber},
    {38, "This year Sales, Period  7", 36, kPas2MaxNumber},
    {39, "This year Sales, Period  8", 37, kPas2MaxNumber},
    {40, "This year Sales, Period  9", 38, kPas2MaxNumber},
    {41, "This year Sales, Period 10", 39, kPas2MaxNumber},
    {42, "This year Sales, Period 11", 40, kPas2MaxNumber},
    {43, "This year Sales, Period 12", 41, kPas2MaxNumber},
    {44, "This year Sales, Period 13", 42, kPas2MaxNumber},
    {45, "Last year Balance, Period  1", 17, kPas2MaxNumber},
    {46, "Last year Balance, Period  2", 18, kPas2MaxNumber},
    {47, "Last year Balance, Period  3", 19, kPas2MaxNumber},
    {48, "Last year Balance, Period  4", 20, kPas2MaxNumber},
    {49, "Last year Balance, Period  5", 21, kPas2MaxNumber},
    {50, "Last year Balance, Period  6", 22, kPas2MaxNumber},
    {51, "Last year Balance, Period  7", 23, kPas2MaxNumber},
    {52, "Last year Balance, Period  8", 24, kPas2MaxNumber},
    {53, "Last year Balance, Period  9", 25, kPas2MaxNumber},
    {54, "Last year Balance, Period 10", 26, kPas2MaxNumber},
    {55, "Last year Balance, Period 11", 27, kPas2MaxNumber},
    {56, "Last year Balance, Period 12", 28, kPas2MaxNumber},
    {57, "Last year Balance, Period 13", 29, kPas2MaxNumber},
    {58, "Last year Sales, Period  1", 43, kPas2MaxNumber},
    {59, "Last year Sales, Period  2", 44, kPas2MaxNumber},
    {60, "Last year Sales, Period  3", 45, kPas2MaxNumber},
    {61, "Last year Sales, Period  4", 46, kPas2MaxNumber},
    {62, "Last year Sales, Period  5", 47, kPas2MaxNumber},
    {63, "Last year Sales, Period  6", 48, kPas2MaxNumber},
    {64, "Last year Sales, Period  7", 49, kPas2MaxNumber},
    {65, "Last year Sales, Period  8", 50, kPas2MaxNumber},
    {66, "Last year Sales, Period  9", 51, kPas2MaxNumber},
    {67, "Last year Sales, Period 10", 52, kPas2MaxNumber},
    {68, "Last year Sales, Period 11", 53, kPas2MaxNumber},
    {69, "Last year Sales, Period 12", 54, kPas2MaxNumber},
    {70, "Last year Sales, Period 13", 55, kPas2MaxNumber},
    {71, "User Defined Field 1 (16 Chars)", 105, kPas2MaxText},
    {72, "User Defined Field 2 (16 Chars)", 106, kPas2MaxText},
    {73, "User Defined Field 3 (16 Chars)", 107, kPas2MaxText},
    {74, "User Defined Field 4 (16 Chars)", 108, kPas2MaxText},
    {75, "User Defined Field 5 (16 Chars)", 109, kPas2MaxText},
}};

}  // namespace

std::span<const Pas2MaxRow> Pas2MaxCatalogue() {
  return kCatalogue;
}

const Pas2MaxRow& Pas2MaxAt(int row) {
  return kCatalogue.at(static_cast<size_t>(row));
}

void AddListItemData(ListControl& list, const std::string& text, long data) {
  list.AddItem(text);
  list.SetItemData(list.NewIndex(), data);
}

void AddPas2Max(ListBox& lst2MaxPastel, const Pas2MaxRow& row) {
  AddListItemData(lst2MaxPastel, row.name, row.row);
}

void AddPas2MaxList(ListBox& lst2MaxPastel) {
  for (const Pas2MaxRow& row : kCatalogue) AddPas2Max(lst2MaxPastel, row);
}

}  // namespace tolmen
