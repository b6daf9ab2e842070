// Whole runs with recurring billing on: whom the run bills, the invoice import file it writes,
// the Date Billed and Date Joined values maxsim stores, and a second run on the same day.
#include <gtest/gtest.h>

#include "ScenarioKit.h"
#include "shell/Settings.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

const json kBillingUdfs = json::array({
    {{"name", "Date Billed"}, {"type", "Date"}},
    {{"name", "Date Joined"}, {"type", "Date"}},
    {{"name", "Doc Numbers"}, {"type", "Alphanumeric"}},
});

class BillingRunTest : public ScenarioTest {
 protected:
  // Prices and periods by category, and the multi-year method, as the settings store holds them.
  void Prices(int method) {
    Settings settings(dir_.File("settings.ini"));
    settings.SaveSetting("Billing", "Retail", "100");
    settings.SaveSetting("Billing", "Farming", "-1");
    settings.SaveSetting("BillingPeriod", "Retail", "3");
    settings.SaveSetting("Settings", "MultiYear", std::to_string(method));
  }
  std::string Billing(const std::string& period) {
    return WriteTemplate(
        BillingChanges({{"Billing Period", period}, {"Date Joined", "Date Joined"}}),
        {"To Max: Pastel Doc Numbers (Billing)| => Doc Numbers| (Alpha)"});
  }
  // The invoice line of ACM001 at a price of 100, 15% tax on code 1. The header's last
  // column holds a NUL byte.
  static std::vector<std::string> AcmeInvoice() {
    return {
        "\"Header\",\"\",\" \",\" "
        "\",\"ACM001\",133,\"23/11/2026\",\"\",\"N\",0,\"\",\"\",\"\",\"\",\"\","
        "\"\",\"\",\"\",\"\",0,\"23/11/2026\",\"\",\"\",\"\",1,\"\",\"\",\"" +
            std::string(1, '\0') + "\"",
        "\"Detail\",0,1,100,115,\"\",\"1\",\"0\",\"0\",\"1000000\",\"Customer Category: Retail "
        "(Renewal)\",\"6\",\"CC\",\"\""};
  }
};

TEST_F(BillingRunTest, MonthlyBillsTheDueClientsOnceADay) {
  ASSERT_NO_FATAL_FAILURE(
      MakeWorld(json::array({
                    Company("C1", "Acme Trading", "ACM001",
                            {{"Customer Category", "Retail"}, {"Date Billed", "15 Oct 2026"}}),
                    Company("C2", "Baker Bros", "BAK001",
                            {{"Customer Category", "Retail"}, {"Date Billed", "5 Nov 2026"}}),
                    Company("C3", "Carrow Farm", "CAR001", {{"Customer Category", "Farming"}}),
                    Company("C4", "Dune Services", "DUN001", {{"Customer Category", "Services"}}),
                    Company("C5", "Eden Nobody", "EDE001"),
                }),
                kBillingUdfs));
  Prices(2);
  Billing("2");
  Run(ImportScript({"Yes", "No"}, {"@click mnuOptnPas2Max"}));

  EXPECT_EQ(PastelFileLines("MaxInv01.csv"), AcmeInvoice());
  EXPECT_EQ(StoredUdf("C1", "Date Billed"), "23 Nov 2026");
  EXPECT_EQ(StoredUdf("C2", "Date Billed"), "05 Nov 2026");
  EXPECT_EQ(StoredUdf("C3", "Date Billed"), json());
  EXPECT_EQ(StoredUdf("C4", "Date Billed"), json());
  EXPECT_EQ(StoredUdf("C1", "Doc Numbers"), "=100|115 ");
  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  for (const char* line :
       {"Recurring Billing ON.",
        "Creating Invoice for a/c ACM001: Acme Trading - Monthly billing, Date Billed 15 Oct 2026",
        "Not Creating Invoice for a/c CAR001: Carrow Farm (Customer Category: Farming)",
        "** ERROR: Not Invoiced: No Category or Bad ID! If Category exists, copy Address Book "
        "entry (Create Duplicate) then delete old entry.",
        "Not Invoiced: No Price for Customer Category: Services",
        "1 New Invoices were Created and written to file "})
    EXPECT_TRUE(HasPart(log, line)) << line;
  EXPECT_FALSE(HasPart(log, "Invoice for a/c BAK001"));

  // The same day again: nobody is due.
  Run(ImportScript({"Yes", "No"}, {"@click mnuOptnPas2Max"}));
  EXPECT_EQ(PastelFileLines("MaxInv02.csv"), std::vector<std::string>{});
  EXPECT_TRUE(HasPart(PastelFileLines("Tolmen.LOG"), "0 New Invoices were Created"));
}

TEST_F(BillingRunTest, MethodOneMovesDateBilledOnByTheCategorysYears) {
  ASSERT_NO_FATAL_FAILURE(
      MakeWorld(json::array({
                    Company("C1", "Acme Trading", "ACM001",
                            {{"Customer Category", "Retail"}, {"Date Joined", "15 Dec 2019"}}),
                    Company("C2", "Baker Bros", "BAK001", {{"Customer Category", "Retail"}}),
                }),
                kBillingUdfs));
  Prices(1);
  Billing("1");
  Run(ImportScript({"Yes", "No"}));

  EXPECT_EQ(StoredUdf("C1", "Date Billed"), "23 Nov 2028");
  EXPECT_EQ(PastelFileLines("MaxInv01.csv"), AcmeInvoice());
  // Never joined: the end of last month, and not due until the month before its anniversary.
  EXPECT_EQ(StoredUdf("C2", "Date Joined"), "31 Oct 2026");
  EXPECT_EQ(StoredUdf("C2", "Date Billed"), json());
  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  EXPECT_TRUE(HasPart(log,
                      "3-year Invoice Batched  (=100|115) Customer Category: Retail "
                      "(Renewal)"))
      << Transcript();
  EXPECT_TRUE(HasLine(log,
                      "Multi-Year Method: Set Date Billed into Future (allows change of "
                      "Category)"));
}

}  // namespace
}  // namespace tolmen::test
