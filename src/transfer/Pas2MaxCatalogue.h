// The Pastel figures that can be linked to Maximizer UDFs: 76 rows, numbered from 0, each with
// its name as lst2MaxPastel shows it, the debtor field it reads (pasDebtor.h) and how its value
// is computed (Pas2MaxValue.h). The list shows the rows in catalogue order, each with its row
// number as item data.
#pragma once

#include <span>
#include <string>

namespace tolmen {

class ListBox;
class ListControl;

// Row types: how a row's value is computed and shown.
constexpr int kPas2MaxNone = 0;            // no value of its own (the document dates)
constexpr int kPas2MaxDate = 1;            // a date field, "yyyy-mm-dd"
constexpr int kPas2MaxNumber = 2;          // a number field
constexpr int kPas2MaxText = 3;            // a text field
constexpr int kPas2MaxFlag = 9;            // a flag, "Y" or "N"
constexpr int kPas2MaxBalance = -1;        // the account balance over both years
constexpr int kPas2MaxAging0 = -2;         // ageing bucket 0 ('Current'); bucket k is -2 - k
constexpr int kPas2MaxAging4 = -6;         // ageing bucket 4 ('120+')
constexpr int kPas2MaxSalesThisYear = -7;  // this year's total sales
constexpr int kPas2MaxSalesLastYear = -8;  // last year's total sales
constexpr int kPas2MaxSalesBoth = -9;      // both years' total sales

// Field numbers of the two rows whose UDFs invoice creation fills; 0 is a row without a field.
constexpr int kPas2MaxDocNumbersField = -3;
constexpr int kPas2MaxDocDatesField = -2;

constexpr int kPas2MaxRows = 76;

struct Pas2MaxRow {
  int row;
  const char* name;
  int field;  // debtor field; negative for a special value, 0 when unused
  int type;   // kPas2Max*
};

// The whole catalogue, in row order.
std::span<const Pas2MaxRow> Pas2MaxCatalogue();
// REQUIRES: 0 <= row < kPas2MaxRows.
const Pas2MaxRow& Pas2MaxAt(int row);

// Adds `text` at the end of the list (or its sorted place) and gives the new item `data`.
void AddListItemData(ListControl& list, const std::string& text, long data);
// Adds the row's name to the list, with the row number as item data.
void AddPas2Max(ListBox& lst2MaxPastel, const Pas2MaxRow& row);
// Adds every row of the catalogue, in order. The list is expected empty and unsorted.
void AddPas2MaxList(ListBox& lst2MaxPastel);

}  // namespace tolmen
