// Casual billing rules are resolved before the run: as Pastel's inventory cannot be read, a
// template with rules is refused with one report of every rule's fault; one without runs.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ScenarioKit.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

class CasualBillingRunTest : public ScenarioTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(
        MakeWorld(json::array({Company("C1", "Acme Trading", "ACM001", {{"Membership", "GOLD"}})}),
                  json::array({{{"name", "Membership"}, {"type", "Alphanumeric"}}})));
  }
  // The scenario template with a "Casual Billing" section holding `rules`.
  void WriteRules(const std::vector<std::string>& rules) {
    const std::string path = WriteTemplate();
    std::ofstream out(path, std::ios::binary | std::ios::app);
    out << "*Tab: Casual Billing\r\n";
    for (const std::string& rule : rules) out << "Bill: " << rule << "\r\n";
  }
};

TEST_F(CasualBillingRunTest, RulesThatDoNotResolveAreReportedOnceEachAndStopTheRun) {
  WriteRules({
      "If <Gone UDF> Contains \"X\" then Batch Invoice <FEE01> Fee",
      "If <Membership> Contains \"GOLD\" then Posted Invoice <FEE01> Fee",
      "If <Membership> Contains \"GOLD\" then Batch Invoice <NOPE> Fee: Price 10.00",
      "If <Membership> Contains \"SILVER\" then Invoice <NOPE> Other",
  });
  Run(ImportScript({"OK", "OK"}));

  const std::string said = Transcript();
  EXPECT_TRUE(Contains(said, "Pastel Error in Function ReadPasInventory")) << said;
  EXPECT_TRUE(Contains(said,
                       "== MsgBox | Tolmen Couldn't Resolve Item! | OK | Exclamation\n"
                       "There are Errors in Casual Billing Item(s):\n"
                       "<Gone UDF> was not found in the list of Maximizer UDFs.\n"
                       "Document Type <Posted Invoice> is not a Pastel Document.\n"
                       "Code <NOPE> was not found in the Pastel Inventory.\n"
                       "-> OK\n"))
      << said;
  const MainForm& form = app_->screen.frmMain;
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabCasualBilling);
  EXPECT_EQ(form.lstBillCSet.List(3),
            "If <Membership> Contains \"SILVER\" then Batch Invoice <NOPE> Other");
  EXPECT_FALSE(app_->run.CasualBillingOn);
  EXPECT_FALSE(std::filesystem::exists(PastelFolder() + "MaxCus01.csv"));
}

TEST_F(CasualBillingRunTest, NoRulesMeanNoCasualBillingAndNoMessage) {
  WriteRules({});
  Run(ImportScript({"Yes", "No"}));

  const std::string said = Transcript();
  for (const char* part : {"ReadPasInventory", "Casual Billing Item", "DoBilling2"})
    EXPECT_FALSE(Contains(said, part)) << said;
  EXPECT_FALSE(app_->run.CasualBillingOn);
  const std::vector<std::string> customers = PastelFileLines("MaxCus01.csv");
  ASSERT_FALSE(customers.empty());
  EXPECT_EQ(customers[0], (Customer{"ACM001", "Acme Trading"}.Line()));
}

}  // namespace
}  // namespace tolmen::test
