// Runs stopped from the Pause dialog: Cancel throws away what the run did in Pastel but keeps the
// import file's lines; End keeps everything done so far and finishes the run as usual.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ScenarioKit.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

class StopRunTest : public ScenarioTest {
 protected:
  // Two companies with codes in Maximizer. The templates of the last run lie in the program's
  // folder and the Pastel folder.
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(MakeWorld(json::array(
        {Company("A", "Acme Trading", "ACM001"), Company("B", "Bravo Ltd", "BRV001")})));
    const std::string path = WriteTemplate();
    oldTemplate_ = ReadFile(path);
    std::filesystem::copy_file(path, Home() + "CURRENT.KTF");
    std::filesystem::copy_file(path, PastelFolder() + "Kelbor.KTF");
  }

  const std::vector<std::string> kDemoCategories = {"<1> Retail", "<2> Wholesale",
                                                    "<3> Retail Sales"};
  const std::string kAcme = Customer{"ACM001", "Acme Trading", "", "", "", "", 4}.Line();
  std::string oldTemplate_;
};

TEST_F(StopRunTest, CancelDuringTheFirstClientKeepsItsLineAndRollsPastelBack) {
  // The user clicks Pause while the first client is being worked on; the click is taken at the
  // next yield, once that client's line stands.
  atYield = [](Tolmen& app) {
    if (app.run.ClientsScanned == 1 && app.run.CurrentSection == "End Main Loop")
      app.screen.frmMain.cmdAbort.Click();
  };
  const int status = Run(ImportScript({"Yes", "Cancel", "OK"}, NewCategory()));

  EXPECT_EQ(PastelFileLines("MaxCus01.csv"), std::vector<std::string>{kAcme});
  EXPECT_EQ(CategoryFile(), kDemoCategories);  // category <4> went with the transaction
  EXPECT_EQ(ReadFile(Home() + "CURRENT.KTF"), oldTemplate_);
  EXPECT_EQ(ReadFile(PastelFolder() + "Kelbor.KTF"), oldTemplate_);

  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  ASSERT_GE(log.size(), 6u);
  EXPECT_EQ(log[5], "Create New Customer Category: <4> New Category Description");
  EXPECT_EQ(LastLines(log, 6), (std::vector<std::string>{
                                   "Created new Customer Category <4> New Category Description",
                                   "1 tries to get Maximizer Record Count (2).",
                                   "2 tries to get to top Maximizer Record <A>",
                                   // the debtor line went to the import file, which is kept
                                   "Created  Pastel Customer - a/c ACM001: Acme Trading",
                                   "",
                                   "Transfer cancelled at 23 Nov 2026 09:00",
                               }))
      << ::testing::PrintToString(log);
  const std::string transcript = Transcript();
  EXPECT_TRUE(Contains(transcript,
                       "== MsgBox | Tolmen Transfer Paused | Yes/No/Cancel | Question\n"
                       "You clicked  [Pause...].Updating Pastel Debtors and/or Maximizer "
                       "UDFs?\n"
                       "Click 'Yes' to carry on\n"
                       "Click 'No' to end the transfer after this customer\n"
                       "-> Cancel\n"
                       "== MsgBox | Tolmen Transfer Cancelled | OK | Exclamation\n"
                       "The transfer has been cancelled in Updating Pastel Debtors and/or "
                       "Maximizer UDFs.\n"
                       "-> OK\n"))
      << transcript;
  EXPECT_FALSE(Contains(transcript, "Import Complete"));
  EXPECT_EQ(status, 3);
}

TEST_F(StopRunTest, EndAtTheFirstClientCommitsAndReports) {
  // Pause at the first client, and No: the run ends after that client.
  const int status = Run(ImportScript({"Yes", "No", "No"}, NewCategory({"@pause 1"})));

  const std::string file = PastelFolder() + "MaxCus01.csv";
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"), std::vector<std::string>{kAcme});
  std::vector<std::string> categories = kDemoCategories;
  categories.push_back("<4> New Category Description");
  EXPECT_EQ(CategoryFile(), categories);

  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  EXPECT_EQ(LastLines(log, 4), (std::vector<std::string>{
                                   "Created  Pastel Customer - a/c ACM001: Acme Trading",
                                   "",
                                   "The transfer was stopped at 23 Nov 2026 09:00",
                                   "1 Pastel Debtors (0 new) were written to file " + file,
                               }))
      << ::testing::PrintToString(log);
  EXPECT_TRUE(Contains(Transcript(),
                       "== MsgBox | Tolmen Import Complete: Open Log File? | Yes/No | "
                       "Information\n"
                       "1 Pastel Debtors (0 new) were written to file " +
                           file + "\nDo you want to Open the Log File?\n-> No\n"))
      << Transcript();

  // Both templates are the run's options now: the new category is an existing one.
  for (const std::string& saved : {Home() + "CURRENT.KTF", PastelFolder() + "Kelbor.KTF"}) {
    const std::vector<std::string> lines = CrLfLines(ReadFile(saved));
    EXPECT_TRUE(HasLine(lines, "Category Option: 0")) << saved;
    EXPECT_TRUE(HasLine(lines, "Existing Customer Category: <4> New Category Description"))
        << saved;
  }
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tolmen::test
