// Whole runs with "To Maximizer" links: which figures reach which UDFs of which clients, as
// maxsim stores them, and a template whose links name a UDF the address book lacks.
#include <gtest/gtest.h>

#include <tuple>

#include "ScenarioKit.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

// The UDFs the links name: some texts and a date, the rest numbers.
json LinkUdfs() {
  json udfs = json::array();
  for (const char* name : {"Balance", "Current", "Days 30", "Days 60", "Days 120", "Credit Limit",
                           "Sales", "Score", "LY3"})
    udfs.push_back({{"name", name}, {"type", "Numeric"}});
  for (const char* name : {"Doc Numbers", "Blocked", "Tag"})
    udfs.push_back({{"name", name}, {"type", "Alphanumeric"}});
  udfs.push_back({{"name", "Last Paid"}, {"type", "Date"}});
  return udfs;
}

// The template's links, one of each kind of row, two in the forms of older templates: the
// credit limit by its old key, and a one-digit period with one blank.
const std::vector<std::string> kLinks = {
    "To Max: Pastel Doc Numbers (Billing)| => Doc Numbers| (Alpha)",
    "To Max: Account Balance| => Balance| (Number)",
    "To Max: Account Monthly Aging 0 ('Current')| => Current| (Number)",
    "To Max: Account Monthly Aging 1 ('30 days')| => Days 30| (Number)",
    "To Max: Account Monthly Aging 2 ('60 days')| => Days 60| (Number)",
    "To Max: Account Monthly Aging 4+ ('120+')| => Days 120| (Number)",
    "Cr Limit UDF: Credit Limit",
    "To Max: Last Date customer paid (Date)| => Last Paid| (Date)",
    "To Max: Account Blocked?  (Y/N)| => Blocked| (Alpha)",
    "To Max: This year's Total Sales| => Sales| (Number)",
    "To Max: User Defined Field 1 (16 Chars)| => Tag| (Alpha)",
    "To Max: User Defined Field 2 (16 Chars)| => Score| (Number)",
    "To Max: Last year Balance, Period 3| => LY3| (Number)",
};

class LinksRunTest : public ScenarioTest {
 protected:
  void SetUp() override {
    // Period 2 of a twelve-period year; new debtors get a credit limit of 2500.
    pastel_["files"]["accprmgl.dat"][0]["8"] = 2;
    pastel_["files"]["accprmgl.dat"][0]["681"] = 0;
    pastel_["files"]["accprmdc.dat"][0]["9"] = 2500;
    json& debtors = pastel_["files"]["AccMasD.dat"];
    debtors.push_back({{"2", "ACM001"}, {"3", "Acme Trading"}, {"4", 999}, {"75", 100}});
    // This year: periods 1 to 3; last year: periods 1, 2, 3, 10, 11, 12 and 13.
    debtors.push_back({{"2", "BAL01"},  {"3", "Carrow Links"},
                       {"4", 100.004},  {"5", 50.5},
                       {"6", 25},       {"17", 1},
                       {"18", 2},       {"19", 4},
                       {"26", 3},       {"27", 5},
                       {"28", 6},       {"29", 7},
                       {"30", 1000},    {"31", 234.5},
                       {"43", 99},      {"66", "2026-10-15"},
                       {"68", false},   {"75", 7500},
                       {"105", "GOLD"}, {"106", "ABC"}});
    ASSERT_NO_FATAL_FAILURE(MakeWorld(
        json::array({Company("C1", "Acme Trading", "ACM001"), Company("C2", "Baker New", "NEW01"),
                     Company("C3", "Carrow Links", "BAL01", {{"Score", "5"}})}),
        LinkUdfs()));
  }
};

TEST_F(LinksRunTest, FiguresReachTheLinkedUdfs) {
  WriteTemplate({}, kLinks);
  Run(ImportScript({"Yes", "No"}, {"@click mnuOptnPas2Max"}));

  const json none;  // the UDF was never written
  const std::vector<std::tuple<const char*, const char*, json>> expected = {
      // A six-character code: the debtor image as the run filled it, whatever Pastel holds.
      {"C1", "Balance", "0"},
      {"C1", "Current", "0"},
      {"C1", "Credit Limit", "2500"},
      {"C1", "Last Paid", "30 Dec 1899"},
      {"C1", "Blocked", "Y"},
      {"C1", "Tag", none},  // the fresh image's empty text clears it
      // A shorter code not in Pastel: nothing is written.
      {"C2", "Balance", none},
      {"C2", "Credit Limit", none},
      {"C2", "Blocked", none},
      // A shorter code in Pastel: its figures. Twelve periods, so period 13 counts nowhere; the
      // balance rounds each period to cents, the buckets do not.
      {"C3", "Balance", "196.5"},
      {"C3", "Current", "50.5"},
      {"C3", "Days 30", "100.004"},
      {"C3", "Days 60", "6"},
      {"C3", "Days 120", "10"},
      {"C3", "Credit Limit", "7500"},
      {"C3", "Last Paid", "15 Oct 2026"},
      {"C3", "Blocked", "Y"},
      {"C3", "Sales", "1234.5"},
      {"C3", "Tag", "GOLD            "},
      {"C3", "LY3", "4"},
      {"C3", "Score", "5"},  // "ABC" is no number: Maximizer keeps what it had
      {"C3", "Doc Numbers", none},
  };
  for (const auto& [id, udf, value] : expected) EXPECT_EQ(StoredUdf(id, udf), value) << id << udf;

  // Maximizer's list reads its last client twice.
  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  for (const char* line :
       {"Updating Maximizer User-Defined Fields from Pastel: ",
        "  2: Account Balance\t => Balance\t (Number)",
        "  7: Customer Credit Limit\t => Credit Limit",
        "  13: Last year Balance, Period  3\t => LY3\t (Number)",
        "Updated 13 Maximizer User-Defined Fields for 3 Maximizer Clients from Pastel."})
    EXPECT_TRUE(HasLine(log, line)) << line;
  EXPECT_TRUE(Contains(Transcript(), "4 Pastel Debtors (1 new) were written to file "))
      << Transcript();
}

TEST_F(LinksRunTest, AUdfTheBookLacksStopsTheRunOnTheLinksPage) {
  WriteTemplate({}, {"To Max: Account Balance| => Balance| (Number)",
                     "To Max: Customer Credit Limit| => Gone| (Number)"});
  Run(ImportScript({"OK"}, {"@click mnuOptnPas2Max"}));

  EXPECT_TRUE(Contains(Transcript(),
                       "== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later Couldn't Resolve "
                       "Item! | OK | None\n"
                       "There are Errors in 'To Maximizer' Item(s):\n\n"
                       "<Gone> was not found in the list of Maximizer UDFs.\n"
                       "You may be using a template intended for another\n"
                       "Maximizer database that has different User-Defined Fields.\n"
                       "Make sure that you are using the correct Maximizer, or delete this "
                       "Link.\n-> OK\n"))
      << Transcript();
  EXPECT_EQ(app_->screen.frmMain.tabDlg.Tab(), MainForm::kTabToMaximizer);
  EXPECT_FALSE(Contains(Transcript(), "Confirm Import"));
  EXPECT_EQ(StoredUdf("C3", "Balance"), json());
}

}  // namespace
}  // namespace tolmen::test
