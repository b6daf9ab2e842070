// Whom a recurring run bills, what a price entry means, and the multi-year menu: tables of fixed
// dates and answers.
#include <gtest/gtest.h>

#include "billing/ClientDue.h"
#include "billing/MultiYear.h"
#include "billing/PriceEntry.h"
#include "platform/ui/Ui.h"
#include "runtime/DateTime.h"

namespace tolmen {
namespace {

TEST(IsClientDue, DecidesFromTheDatesTheMethodAndTheYears) {
  struct Case {
    bool monthly;
    int method;
    const char* billed;
    const char* joined;
    int years;
    double today;
    bool due;
    const char* note;  // "" where the note is not the point
  } cases[] = {
      // Monthly: never billed, and the same-month guard, across years too.
      {true, 1, "", "", 0, DateSerial(2024, 4, 2), true, "Monthly billing, Billed <never>"},
      {true, 1, "rubbish", "", 0, DateSerial(2024, 4, 2), true, ""},
      {true, 1, "30 Dec 1899", "", 0, DateSerial(2024, 4, 2), true,
       "Monthly billing, Billed {never}"},
      {true, 1, "28 Mar 2024", "", 0, DateSerial(2024, 4, 2), true,
       "Monthly billing, Billed 28 Mar 2024"},
      {true, 2, "28 Mar 2024", "", 0, DateSerial(2024, 3, 31), false, "Billed 28 Mar 2024"},
      {true, 2, "15 Mar 2023", "", 0, DateSerial(2024, 3, 20), true, ""},
      // Annual: the month before the anniversary of joining.
      {false, 2, "", "15 Jun 2020", 0, DateSerial(2024, 5, 10), true,
       "Joined 15 Jun 2020, Billed <never>"},
      {false, 2, "", "15 Jun 2020", 0, DateSerial(2024, 6, 10), false, ""},
      {false, 2, "", "20 Jan 2020", 0, DateSerial(2024, 12, 1), true, ""},  // across the year
      {false, 2, "10 May 2024", "15 Jun 2020", 0, DateSerial(2024, 5, 20), false, ""},
      // Method 1: a forward Date Billed holds back whatever the month of joining.
      {false, 1, "31 Mar 2025", "15 May 2020", 3, DateSerial(2024, 4, 10), false,
       "Billed 31 Mar 2025"},
      {false, 1, "15 Apr 2021", "15 May 2020", 3, DateSerial(2024, 4, 10), true, ""},
      // Method 2: a future Date Billed passes; the years decide in calendar years.
      {false, 2, "31 Mar 2025", "15 May 2020", 1, DateSerial(2024, 4, 10), true, ""},
      {false, 2, "20 Nov 2023", "15 Dec 2020", 2, DateSerial(2024, 11, 10), false, ""},
      {false, 2, "20 Nov 2023", "15 Dec 2020", 2, DateSerial(2025, 11, 10), true, ""},
      {false, 2, "31 Mar 2025", "15 May 2020", 3, DateSerial(2024, 4, 10), false, ""},
      // Method 3 (and 0): a Date Billed not before the billing date no longer blocks.
      {false, 3, "31 Mar 2025", "15 May 2020", 3, DateSerial(2024, 4, 10), true, ""},
      {false, 0, "31 Mar 2025", "15 May 2020", 3, DateSerial(2024, 4, 10), true, ""},
      {false, 3, "20 Apr 2022", "15 May 2020", 3, DateSerial(2024, 4, 10), false, ""},
      // The Date Joined that reads as 0 is missing.
      {false, 2, "", "30 Dec 1899", 0, DateSerial(2024, 5, 10), false,
       "Joined <missing>, Billed <never>"},
  };
  for (const Case& c : cases) {
    DueFacts facts{c.billed, c.joined, "Billed", "Joined", c.years, c.method, c.monthly, c.today};
    const DueDecision decision = IsClientDue(facts);
    EXPECT_EQ(decision.due, c.due) << c.billed << " / " << c.joined << " on " << DateText(c.today);
    if (*c.note) {
      EXPECT_EQ(decision.note, c.note);
    }
  }
}

TEST(IsClientDue, AnEmptyDateJoinedIsFilledWithTheEndOfLastMonth) {
  DueFacts facts{"", "", "Billed", "Joined", 0, 2, false, DateSerial(2024, 5, 10)};
  DueDecision decision = IsClientDue(facts);
  EXPECT_FALSE(decision.due);
  EXPECT_TRUE(decision.writeJoined);
  EXPECT_EQ(decision.joined, DateSerial(2024, 4, 30));
  // Not reached when the guard decides first.
  facts.dateBilledText = "1 May 2024";
  EXPECT_FALSE(IsClientDue(facts).writeJoined);
}

TEST(ParsePriceEntry, ReadsPriceTaxAndYears) {
  struct Case {
    const char* answer;
    const char* period;  // the row's period text
    PriceEditKind kind;
    const char* price;
    const char* years;
    const char* shownPrice;
    const char* shownPeriod;
  } cases[] = {
      {"90/14", "(1 Year)", PriceEditKind::kSave, "78.95", "0", "78.95", "(1 Year)"},
      {"100+2", "(1 Year)", PriceEditKind::kSave, "100", "2", "100", "2 Year"},
      {"90/14+3", "2 Year", PriceEditKind::kSave, "78.95", "3", "78.95", "3 Year"},
      {"120", "2 Year", PriceEditKind::kSave, "120", "2", "120", "2 Year"},
      {"-1", "(1 Year)", PriceEditKind::kSave, "-1", "0", "<no billing>", ""},
      {"<no billing>", "", PriceEditKind::kSave, "-1", "0", "<no billing>", ""},
      {"0", "2 Year", PriceEditKind::kDelete, " 0", "", " 0", "2 Year"},
      {"-5", "(1 Year)", PriceEditKind::kDelete, " 0", "", " 0", "(1 Year)"},
      {"abc", "(1 Year)", PriceEditKind::kNotNumber, "", "", "", ""},
      {"90/1", "(1 Year)", PriceEditKind::kSave, "90", "0", "90", "(1 Year)"},
      {"  ", "(1 Year)", PriceEditKind::kCancel, "", "", "", ""},
  };
  for (const Case& c : cases) {
    const PriceEdit edit = ParsePriceEntry(c.answer, c.period);
    EXPECT_EQ(edit.kind, c.kind) << c.answer;
    EXPECT_EQ(edit.price, c.price) << c.answer;
    EXPECT_EQ(edit.years, c.years) << c.answer;
    EXPECT_EQ(edit.shownPrice, c.shownPrice) << c.answer;
    EXPECT_EQ(edit.shownPeriod, c.shownPeriod) << c.answer;
  }
  EXPECT_EQ(PriceEntryDefault("100", "3 Year"), "100 +3");
  EXPECT_EQ(PriceEntryDefault("100", "(1 Year)"), "100");
}

TEST(PriceRow, ShowsTheStoredPriceAndPeriod) {
  EXPECT_EQ(PriceRow("Gold", " 0", " 1"), "Gold\t 0\t(1 Year)");
  EXPECT_EQ(PriceRow("Gold", "120", "0"), "Gold\t120\t(1 Year)");
  EXPECT_EQ(PriceRow("Gold", "120", "3"), "Gold\t120\t3 Year");
  EXPECT_EQ(PriceRow("Gold", "120", "-2"), "Gold\t120\t-2");
  EXPECT_EQ(PriceRow("Gold", "-1", "3"), "Gold\t<no billing>\t");
}

TEST(MultiYearChoice, MethodsAndTicks) {
  EXPECT_EQ(MultiYearAfter(0, 0, vbYes), 1);
  EXPECT_EQ(MultiYearAfter(0, 0, vbNo), 2);
  EXPECT_EQ(MultiYearAfter(0, 0, vbCancel), 3);
  EXPECT_EQ(MultiYearAfter(2, 1, 0), 2);
  EXPECT_EQ(MultiYearAfter(3, 3, 0), 0);
  EXPECT_EQ(MultiYearAfter(3, 1, 0), 3);
  EXPECT_EQ(MultiYearAfter(4, 1, 0), std::nullopt);
  EXPECT_EQ(MultiYearTicks(0), (std::array<bool, 4>{true, false, false, false}));
  EXPECT_EQ(MultiYearTicks(1), (std::array<bool, 4>{false, true, false, false}));
  EXPECT_EQ(MultiYearTicks(3), (std::array<bool, 4>{false, false, true, true}));
}

}  // namespace
}  // namespace tolmen
