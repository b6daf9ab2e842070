// Which of Maximizer's clients a run walks (the current client alone, an empty list), and which
// import file it writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "ScenarioKit.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

class ListRunTest : public ScenarioTest {
 protected:
  static json Book() {
    return json::array({Company("A", "Acme Trading", "ACM001"), Company("B", "Bravo Ltd", "BRV001"),
                        Company("C", "Cobalt CC", "COB001")});
  }
  static bool Called(const std::vector<std::string>& journal, const std::string& call) {
    return std::any_of(journal.begin(), journal.end(),
                       [&](const std::string& line) { return line.rfind(call, 0) == 0; });
  }
};

TEST_F(ListRunTest, CurrentClientOnlyTakesTheSelectedClientOnce) {
  ASSERT_NO_FATAL_FAILURE(MakeWorld(Book()));
  WriteTemplate();
  ASSERT_NO_FATAL_FAILURE(Maximizer({"select", "B"}));
  TakeJournal();
  // Started with /C, the user runs a template from the wizard.
  const int status = Run(ImportScript({"Yes", "No"}), "/C");

  EXPECT_EQ(PastelFileLines("MaxCus01.csv"),
            (std::vector<std::string>{Customer{"BRV001", "Bravo Ltd"}.Line()}));
  // Maximizer is neither listed nor scrolled, so nothing is waited for; no repeat is seen.
  EXPECT_EQ(LinesFrom(PastelFileLines("Tolmen.LOG"), 10),
            (std::vector<std::string>{
                "Created  Pastel Customer - a/c BRV001: Bravo Ltd",
                "",
                "Tolmen Import Completed at 23 Nov 2026 09:00",
                "1 Pastel Debtors (0 new) were written to file " + PastelFolder() + "MaxCus01.csv",
            }));
  // Between the alarm and the first read of the client, nothing readies the list: no window,
  // no list, no count; and nothing ever scrolls.
  const std::vector<std::string> journal = TakeJournal();
  const auto alarm = std::find(journal.begin(), journal.end(), "SetAlarm(\"Off\")");
  const auto read = std::find(alarm, journal.end(), "GetFieldValue(\"Identification\")");
  ASSERT_NE(read, journal.end()) << ::testing::PrintToString(journal);
  EXPECT_EQ(std::vector<std::string>(alarm, read),
            (std::vector<std::string>{"SetAlarm(\"Off\")", "GetBusyIndicator()"}));
  EXPECT_FALSE(Called(journal, "ScrollList"));
  EXPECT_FALSE(Called(journal, "ListAll"));
  EXPECT_EQ(app_->screen.frmMain.ProgressBar1.Max(), 1);
  EXPECT_EQ(status, 0);
}

TEST_F(ListRunTest, AnEmptyListWritesEmptyImportFiles) {
  ASSERT_NO_FATAL_FAILURE(
      MakeWorld(Book(), json::array({{{"name", "Date Billed"}, {"type", "Date"}}})));
  WriteTemplate({{"List Clients", "0"}});  // the list Maximizer shows, which is empty
  ASSERT_NO_FATAL_FAILURE(Maximizer({"list"}));
  std::ofstream(PastelFolder() + "MaxInv01.csv") << "left from an older run\r\n";
  const int status = Run(ImportScript({"Yes"}));

  EXPECT_TRUE(fs::exists(PastelFolder() + "MaxCus01.csv"));
  EXPECT_EQ(ReadFile(PastelFolder() + "MaxCus01.csv"), "");
  // A run without invoices leaves no invoice file of its number.
  EXPECT_FALSE(fs::exists(PastelFolder() + "MaxInv01.csv"));
  EXPECT_EQ(LinesFrom(PastelFileLines("Tolmen.LOG"), 10),
            (std::vector<std::string>{
                "0 tries to get Maximizer Record Count (0).",
                "2 tries to get to top Maximizer Record <>",
                "Tolmen Import Completed at 23 Nov 2026 09:00",
            }));
  // Nothing was written and nothing went wrong: no result dialog.
  EXPECT_FALSE(Contains(Transcript(), "Import Complete")) << Transcript();
  EXPECT_EQ(status, 0);

  // With billing on for the day (and set up as the check before the run asks) the invoice file
  // of the run's number comes into being as well, and stays empty.
  WriteTemplate(BillingChanges({{"List Clients", "0"}}));
  Run(ImportScript({"Yes", "No"}));
  for (const char* name : {"MaxCus02.csv", "MaxInv02.csv"}) {
    EXPECT_TRUE(fs::exists(PastelFolder() + name)) << name;
    EXPECT_EQ(ReadFile(PastelFolder() + name), "") << name;
  }
  EXPECT_EQ(
      LastLines(PastelFileLines("Tolmen.LOG"), 6),
      (std::vector<std::string>{
          "Recurring Billing ON.",
          "Multi-Year Method: Error (should already have Asked User).",
          "0 tries to get Maximizer Record Count (0).",
          "2 tries to get to top Maximizer Record <>",
          "Tolmen Import Completed at 23 Nov 2026 09:00",
          "0 New Invoices were Created and written to file " + PastelFolder() + "MaxInv02.csv",
      }));
  // Invoicing was planned, so the result is shown although nothing was written.
  EXPECT_TRUE(Contains(Transcript(),
                       "0 New Invoices were written to file " + PastelFolder() + "MaxInv02.csv"))
      << Transcript();
}

TEST_F(ListRunTest, EachRunTakesTheNextFileNumberUpTo100) {
  ASSERT_NO_FATAL_FAILURE(MakeWorld(json::array({Book()[0]})));
  WriteTemplate();
  // A list of one client: its line is read twice.
  const std::vector<std::string> lines(2, Customer{"ACM001", "Acme Trading"}.Line());
  std::ofstream(PastelFolder() + "MaxCus07.csv") << "older\r\n";

  struct Case {
    const char* planted;  // put in the folder before the run
    const char* written;
  } cases[] = {
      {nullptr, "MaxCus08.csv"},
      {"MaxCus99.csv", "MaxCus100.csv"},
      // "MaxCus100.csv" sorts below "MaxCus99.csv": the number stays, the file is replaced
      {nullptr, "MaxCus100.csv"},
  };
  for (const Case& c : cases) {
    if (c.planted != nullptr) std::ofstream(PastelFolder() + c.planted) << "older\r\n";
    Run(ImportScript({"Yes", "No"}));
    EXPECT_EQ(PastelFileLines(c.written), lines) << c.written;
    EXPECT_TRUE(Contains(Transcript(),
                         "Debtors will be written to file " + PastelFolder() + c.written + "\n"))
        << Transcript();
  }
  EXPECT_EQ(ReadFile(PastelFolder() + "MaxCus07.csv"), "older\r\n");
  EXPECT_EQ(ReadFile(PastelFolder() + "MaxCus99.csv"), "older\r\n");
  EXPECT_FALSE(fs::exists(PastelFolder() + "MaxCus09.csv"));
  EXPECT_FALSE(fs::exists(PastelFolder() + "MaxCus101.csv"));
}

}  // namespace
}  // namespace tolmen::test
