// The Pastel figures offered for linked UDFs: their list, the texts written, the debtor fields
// read.
#include "transfer/Pas2MaxValue.h"

#include <gtest/gtest.h>

#include <optional>

#include "pastel/pasDebtor.h"
#include "runtime/DateTime.h"
#include "screen/ListControls.h"
#include "shell/ShellFixture.h"
#include "transfer/Pas2MaxCatalogue.h"

namespace tolmen::testing {
namespace {

// Every period field holds its own field number, so a bucket shows which field it took and a
// sum which fields it added.
DebtorFigures Numbered() {
  DebtorFigures debtor;
  for (int field = 4; field <= 55; ++field) debtor.periods[static_cast<size_t>(field - 4)] = field;
  debtor.settlementTerms = 2;
  debtor.paymentTerms = 30;
  debtor.discount = 5;
  debtor.lastPaidDate = DateSerial(2024, 3, 5);
  debtor.lastPaidAmount = 0.1 + 0.2;
  debtor.blocked = "True";
  debtor.creditLimit = 20000;
  debtor.interestAfter = -1;
  debtor.userFields = {"Gold customer   ", "", "", "", "last one        "};
  return debtor;
}

// Amounts that round at the third decimal, negative ones, and a period 13 of this year.
DebtorFigures Cents() {
  DebtorFigures debtor;
  auto set = [&](int field, double value) {
    debtor.periods[static_cast<size_t>(field - 4)] = value;
  };
  set(4, 0.125);     // "0.13", where a rounding half to even would give 0.12
  set(17, 0.125);    // "0.13" again
  set(5, 1.005);     // "1.01": the text rounds the 15 digits, not the binary value
  set(18, -2.675);   // "-2.68"
  set(16, 100.004);  // period 13: "100"
  set(28, -350.5);   // last year's period 12
  debtor.blocked = "False";
  return debtor;
}

TEST(Pas2MaxValueTest, TextsFollowTheRowTypeAndThePeriods) {
  const DebtorFigures numbered = Numbered();
  const DebtorFigures cents = Cents();
  DebtorFigures nul;
  nul.blocked = std::string(1, '\0');
  DebtorFigures blankDate;

  struct Case {
    const char* what;
    const DebtorFigures& debtor;
    int row;
    int current;
    int periods;
    std::optional<std::string> text;
  };
  const Case cases[] = {
      {"document numbers: filled by invoices", numbered, 0, 2, 12, std::nullopt},
      {"document dates: filled by invoices", numbered, 1, 2, 12, std::nullopt},
      // C = 2, P = 12: buckets 0 to 3 are fields 5, 4, 28, 27; bucket 4 fields 17 to 26.
      {"bucket 0", numbered, 3, 2, 12, "5"},
      {"bucket 1", numbered, 4, 2, 12, "4"},
      {"bucket 2, p = 0", numbered, 5, 2, 12, "28"},
      {"bucket 3", numbered, 6, 2, 12, "27"},
      {"bucket 4, m = -2", numbered, 7, 2, 12, "215"},
      // C = 1: everything but bucket 0 lies in last year.
      {"C 1 bucket 0", numbered, 3, 1, 12, "4"},
      {"C 1 bucket 1", numbered, 4, 1, 12, "28"},
      {"C 1 bucket 3", numbered, 6, 1, 12, "26"},
      {"C 1 bucket 4: 17..25", numbered, 7, 1, 12, "189"},
      {"C 1 P 13 bucket 1", numbered, 4, 1, 13, "29"},
      {"C 1 P 13 bucket 4: 17..26", numbered, 7, 1, 13, "215"},
      {"C 4 bucket 4, m = 0: 17..28", numbered, 7, 4, 12, "270"},
      {"C 5 bucket 3", numbered, 6, 5, 12, "5"},
      {"C 5 bucket 4, m = 1: 4 and 17..28", numbered, 7, 5, 12, "274"},
      // C = 13 in a 13-period year.
      {"C 13 bucket 0", numbered, 3, 13, 13, "16"},
      {"C 13 bucket 3", numbered, 6, 13, 13, "13"},
      {"C 13 bucket 4: 4..12 and 17..29", numbered, 7, 13, 13, "371"},
      {"balance P 12: 4..15 and 17..28", numbered, 2, 2, 12, "384"},
      {"balance P 13: 4..16 and 17..29", numbered, 2, 2, 13, "429"},
      {"this year's sales P 12", numbered, 18, 2, 12, "426"},
      {"last year's sales P 12", numbered, 17, 2, 12, "582"},
      {"both years' sales P 12", numbered, 16, 2, 12, "1008"},
      {"this year's sales P 13", numbered, 18, 2, 13, "468"},
      {"last year's sales P 13", numbered, 17, 2, 13, "637"},
      {"both years' sales P 13", numbered, 16, 2, 13, "1105"},
      {"credit limit", numbered, 8, 2, 12, "20000"},
      {"settlement terms", numbered, 10, 2, 12, "2"},
      {"payment terms", numbered, 11, 2, 12, "30"},
      {"discount", numbered, 12, 2, 12, "5"},
      {"last amount paid", numbered, 14, 2, 12, "0.3"},
      {"interest after: none", numbered, 15, 2, 12, "-1"},
      {"a period field", numbered, 53, 2, 12, "25"},
      {"last date paid", numbered, 13, 2, 12, "2024-03-05"},
      {"a blank date is day 0", blankDate, 13, 2, 12, "1899-12-30"},
      {"user field 1, padding kept", numbered, 71, 2, 12, "Gold customer   "},
      {"user field 5", numbered, 75, 2, 12, "last one        "},
      {"blocked", numbered, 9, 2, 12, "Y"},
      {"not blocked gives Y as well", cents, 9, 2, 12, "Y"},
      {"a NUL first", nul, 9, 2, 12, "N"},
      // Each balance field is rounded to two decimals first; buckets and fields are not.
      {"balance of rounded fields", cents, 2, 2, 12, "-351.91"},
      {"balance with period 13", cents, 2, 2, 13, "-251.91"},
      {"unrounded bucket", cents, 3, 1, 12, "0.125"},
      {"unrounded bucket, third decimal", cents, 3, 2, 12, "1.005"},
      {"negative bucket", cents, 4, 1, 12, "-350.5"},
      {"negative bucket 4", cents, 7, 1, 12, "-2.55"},
      {"unrounded period field", cents, 19, 2, 12, "0.125"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(Pas2MaxValue(c.debtor, Pas2MaxAt(c.row), c.current, c.periods), c.text) << c.what;
}

// Exact names (a one-digit period behind two blanks), fields and types, in order.
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

class Pas2MaxReadTest : public ShellFixture {};

TEST_F(Pas2MaxReadTest, FiguresComeFromTheirDebtorFields) {
  Start({});
  pasDebtor debtor(*app_);
  for (int field = 4; field <= 55; ++field) debtor.default_(field, field + 0.25);
  const std::pair<int, Variant> fields[] = {
      {63, 2},        {64, 60},        {65, 7},        {66, "2024-03-05"},
      {67, 1234.56},  {68, true},      {75, 20000},    {76, 90},
      {105, "first"}, {106, "second"}, {107, "third"}, {108, "fourth"},
      {109, "fifth"}, {3, "Name"},     {62, "VAT"},    {77, 1},
  };
  for (const auto& [field, value] : fields) debtor.default_(field, value);

  const DebtorFigures figures = ReadDebtorFigures(debtor);
  for (int field = 4; field <= 55; ++field)
    EXPECT_EQ(figures.periods[static_cast<size_t>(field - 4)], field + 0.25) << field;
  EXPECT_EQ(figures.settlementTerms, 2);
  EXPECT_EQ(figures.paymentTerms, 60);
  EXPECT_EQ(figures.discount, 7);
  EXPECT_EQ(figures.lastPaidDate, DateSerial(2024, 3, 5));
  EXPECT_EQ(figures.lastPaidAmount, 1234.56);
  EXPECT_EQ(figures.blocked, "True");
  EXPECT_EQ(figures.creditLimit, 20000);
  EXPECT_EQ(figures.interestAfter, 90);
  const std::array<std::string, 5> user = {"first", "second", "third", "fourth", "fifth"};
  for (size_t i = 0; i < user.size(); ++i)
    EXPECT_EQ(figures.userFields[i], user[i] + std::string(16 - user[i].size(), ' '));

  debtor.default_(68, false);
  EXPECT_EQ(ReadDebtorFigures(debtor).blocked, "False");
}

}  // namespace
}  // namespace tolmen::testing
