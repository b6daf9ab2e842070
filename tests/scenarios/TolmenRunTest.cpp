// `tolmen run` against a real maxsim and Pastel set: templates given as plain paths, no
// questions, a summary or JSON line per template and the call's exit status.
#include <gtest/gtest.h>

#include <signal.h>
#include <stdlib.h>

#include <filesystem>

#include "ScenarioKit.h"
#include "shell/Tolmen.h"
#include "unattended/RunMain.h"

namespace tolmen::test {
namespace {

class TolmenRunTest : public ScenarioTest {
 protected:
  // Acme and Bravo have account numbers; Al has none, so one is proposed.
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(
        MakeWorld(json::array({Company("A", "Acme Trading", "ACM001"), Company("L", "Al"),
                               Company("B", "Bravo Ltd", "BRV001")})));
  }

  std::vector<std::string> OutLines() const { return TextLines(out_.str()); }

  const std::string kAcme = Customer{"ACM001", "Acme Trading"}.Line();
  const std::string kAl = Customer{"AL0001", "Al"}.Line();
  const std::string kBravo = Customer{"BRV001", "Bravo Ltd"}.Line();
};

TEST_F(TolmenRunTest, TwoTemplatesTakeTheNextFileNumbersAndSummarise) {
  const std::string first = WriteTemplate();
  const std::string second = Home() + "second.KTF";
  std::filesystem::copy_file(first, second);

  EXPECT_EQ(RunCall({first, second}, {true}), kRunCallOk) << err_.str();

  // Maximizer's list reads its last client twice: the repeat is counted as an error in the
  // summary, but alone it leaves the status at 0.
  const std::string pastel = PastelFolder();
  EXPECT_EQ(OutLines(),
            (std::vector<std::string>{
                first + ": 4 debtors, 0 invoices, 1 errors, files " + pastel + "MaxCus01.csv",
                second + ": 4 debtors, 0 invoices, 1 errors, files " + pastel + "MaxCus02.csv"}));
  EXPECT_FALSE(Contains(err_.str(), "Confirm Import"));
}

TEST_F(TolmenRunTest, AProposedCodeIsTakenOnlyWithAcceptCodes) {
  const std::string path = WriteTemplate();
  EXPECT_EQ(RunCall({path}), kRunCallOk) << err_.str();
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"), (std::vector<std::string>{kAcme, kBravo, kBravo}));
  EXPECT_TRUE(HasPart(PastelFileLines("Tolmen.LOG"), "Skipped: Pastel Account Number for Al?"));
  EXPECT_EQ(StoredUdf("L", "Account Number"), json());

  EXPECT_EQ(RunCall({path}, {true}), kRunCallOk) << err_.str();
  EXPECT_EQ(PastelFileLines("MaxCus02.csv"),
            (std::vector<std::string>{kAcme, kAl, kBravo, kBravo}));
  EXPECT_EQ(StoredUdf("L", "Account Number"), json("AL0001"));
}

TEST_F(TolmenRunTest, AMissingTemplateIsReportedAndTheNextStillRunsInJson) {
  const std::string path = WriteTemplate();
  const std::string missing = Home() + "missing.KTF";
  EXPECT_EQ(RunCall({missing, path}, {true}, true), kRunCallNotStarted);
  EXPECT_TRUE(Contains(err_.str(), missing + ": no such file")) << err_.str();

  const std::vector<std::string> lines = OutLines();
  ASSERT_EQ(lines.size(), 2u) << out_.str();
  const json gone = json::parse(lines[0]);
  EXPECT_EQ(gone["template"], missing);
  EXPECT_EQ(gone["status"], "not started");
  const json ran = json::parse(lines[1]);
  EXPECT_EQ(ran["status"], "ok") << lines[1] << err_.str();
  EXPECT_EQ(ran["counts"]["debtors"], 4);
  EXPECT_EQ(ran["counts"]["errors"], 1);
  EXPECT_EQ(ran["counts"]["errors_counted"], 0);
  EXPECT_EQ(ran["files"], json::array({PastelFolder() + "MaxCus01.csv"}));
  EXPECT_EQ(ran["log"], PastelFolder() + "Tolmen.LOG");
}

TEST_F(TolmenRunTest, WithoutMaximizerTheCallEndsAtOnce) {
  const std::string path = WriteTemplate();
  ::setenv("MAXIMIZER_SOCKET", dir_.File("nobody.sock").c_str(), 1);
  EXPECT_EQ(RunCall({path, path}), kRunCallNotStarted);
  EXPECT_EQ(OutLines(), std::vector<std::string>{path + ": not started"});
  EXPECT_TRUE(Contains(err_.str(), "Please run Maximizer before running Tolmen!")) << err_.str();
}

TEST_F(TolmenRunTest, SigtermCancelsTheRunRollsBackItsCategoryAndKeepsItsLines) {
  const std::vector<std::string> categories = CategoryFile();
  const std::string path = WriteTemplate({{"Category Option", "1"}});
  // The signal comes once the first client's line stands.
  atYield = [](Tolmen& app) {
    if (app.run.ClientsScanned == 1 && app.run.CurrentSection == "End Main Loop") raise(SIGTERM);
  };
  EXPECT_EQ(RunCall({path, path}, {true}), kRunCallCancelled);
  // The line written so far stays, in the new category; the second template does not start.
  const std::string acme = Customer{"ACM001", "Acme Trading", "", "", "", "", 4}.Line();
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"), std::vector<std::string>{acme});
  EXPECT_EQ(OutLines(), std::vector<std::string>{path +
                                                 ": cancelled, 1 debtors, 0 invoices, 0 "
                                                 "errors, files " +
                                                 PastelFolder() + "MaxCus01.csv"});
  EXPECT_TRUE(Contains(err_.str(), "terminated: cancelling the run")) << err_.str();
  // The new category was inserted inside the run's transaction, which the cancel threw away.
  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  EXPECT_TRUE(HasLine(log, "Created new Customer Category <" +
                               std::to_string(categories.size() + 1) +
                               "> New Category Description"));
  EXPECT_EQ(CategoryFile(), categories);
}

}  // namespace
}  // namespace tolmen::test
