// The catalogue of Pastel figures as lst2MaxPastel shows it: the rows in order, their exact names
// (a one-digit period behind two blanks), fields and types.
#include "transfer/Pas2MaxCatalogue.h"

#include <gtest/gtest.h>

#include "screen/ListControls.h"

namespace tolmen {
namespace {

TEST(Pas2MaxCatalogueTest, ListShowsTheRowsInOrderWithTheirRowNumbers) {
  ListBox lst2MaxPastel("lst2MaxPastel");
  AddPas2MaxList(lst2MaxPastel);
  ASSERT_EQ(lst2MaxPastel.ListCount(), 76);
  ASSERT_EQ(Pas2MaxCatalogue().size(), 76u);
  for (int row = 0; row < lst2MaxPastel.ListCount(); ++row) {
    EXPECT_EQ(Pas2MaxAt(row).row, row);
    EXPECT_EQ(lst2MaxPastel.List(row), Pas2MaxAt(row).name) << row;
    EXPECT_EQ(lst2MaxPastel.ItemData(row), row);
    // Links find their row by the beginning of the names: no name may begin another one.
    for (int other = 0; other < lst2MaxPastel.ListCount(); ++other) {
      const std::string name = Pas2MaxAt(other).name;
      EXPECT_TRUE(other == row || lst2MaxPastel.List(row).rfind(name, 0) != 0)
          << "\"" << name << "\" begins row " << row;
    }
  }

  struct Case {
    int row;
    const char* name;
    int field;
    int type;
  };
  const Case cases[] = {
      {0, "Pastel Doc Numbers (Billing)", -3, 3},
      {1, "Pastel Doc Dates (Billing)", -2, 0},
      {2, "Account Balance", 0, -1},
      {3, "Account Monthly Aging 0 ('Current')", 0, -2},
      {6, "Account Monthly Aging 3 ('90 days')", 0, -5},
      {7, "Account Monthly Aging 4+ ('120+')", 0, -6},
      {8, "Customer Credit Limit", 75, 2},
      {9, "Account Blocked?  (Y/N)", 68, 9},
      {11, "Payment Terms: 0=Current, 30/60/90/120 days", 64, 2},
      {13, "Last Date customer paid (Date)", 66, 1},
      {15, "Interest After: 0/30/60/90/120 days; -1=None", 76, 2},
      {16, "Both years' Total Sales", 0, -9},
      {17, "Last year's Total Sales", 0, -8},
      {18, "This year's Total Sales", 0, -7},
      {19, "This year Balance Period  1", 4, 2},
      {28, "This year Balance Period 10", 13, 2},
      {31, "This year Balance Period 13", 16, 2},
      {40, "This year Sales, Period  9", 38, 2},
      {44, "This year Sales, Period 13", 42, 2},
      {45, "Last year Balance, Period  1", 17, 2},
      {57, "Last year Balance, Period 13", 29, 2},
      {58, "Last year Sales, Period  1", 43, 2},
      {70, "Last year Sales, Period 13", 55, 2},
      {71, "User Defined Field 1 (16 Chars)", 105, 3},
      {74, "User Defined Field 4 (16 Chars)", 108, 3},
      {75, "User Defined Field 5 (16 Chars)", 109, 3},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(lst2MaxPastel.List(c.row), c.name) << c.row;
    EXPECT_EQ(Pas2MaxAt(c.row).field, c.field) << c.row;
    EXPECT_EQ(Pas2MaxAt(c.row).type, c.type) << c.row;
  }
}

}  // namespace
}  // namespace tolmen
