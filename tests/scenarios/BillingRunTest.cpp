// Whole runs with recurring billing on: whom the run bills, the invoice import file it writes,
// the Date Billed and Date Joined values maxsim stores, and a second run on the same day.
#include <gtest/gtest.h>

#include <algorithm>

#include "ScenarioKit.h"
#include "shell/Settings.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

bool Contains(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}
bool ContainsPart(const std::vector<std::string>& lines, const std::string& part) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const std::string& line) { return line.find(part) != std::string::npos; });
}

const json kBillingUdfs = json::array({
    {{"name", "Date Billed"}, {"type", "Date"}},
    {{"name", "Date Joined"}, {"type", "Date"}},
    {{"name", "Doc Numbers"}, {"type", "Alphanumeric"}},
});

json Member(const std::string& id, const std::string& name, const std::string& account, json udfs) {
  udfs["Account Number"] = account;
  return Client(id, 1, {{"Client_Name", name}, {"udfs", udfs}});
}

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
    return WriteTemplate({{"Category Option", "2"},
                          {"Category UDF", "Customer Category"},
                          {"Billing Period", period},
                          {"Bill When", "0"},
                          {"Date Billed", "Date Billed"},
                          {"Date Joined", "Date Joined"},
                          {"GL Code", "1000000"},
                          {"VAT Code", "1"},
                          {"COST Code", "CC"}},
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
                    Member("C1", "Acme Trading", "ACM001",
                           {{"Customer Category", "Retail"}, {"Date Billed", "15 Oct 2026"}}),
                    Member("C2", "Baker Bros", "BAK001",
                           {{"Customer Category", "Retail"}, {"Date Billed", "5 Nov 2026"}}),
                    Member("C3", "Carrow Farm", "CAR001", {{"Customer Category", "Farming"}}),
                    Member("C4", "Dune Services", "DUN001", {{"Customer Category", "Services"}}),
                    Member("C5", "Eden Nobody", "EDE001", json::object()),
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
  for (const std::string& line : {
           std::string("Recurring Billing ON."),
           std::string("Creating Invoice for a/c ACM001: Acme Trading - Monthly billing, Date "
                       "Billed 15 Oct 2026"),
           std::string("Not Creating Invoice for a/c CAR001: Carrow Farm (Customer Category: "
                       "Farming)"),
           std::string("** ERROR: Not Invoiced: No Category or Bad ID! If Category exists, copy "
                       "Address Book entry (Create Duplicate) then delete old entry."),
           std::string("1 New Invoices were Created and written to file "),
       })
    EXPECT_TRUE(ContainsPart(log, line)) << line;
  EXPECT_TRUE(ContainsPart(log, "Not Invoiced: No Price for Customer Category: Services"));
  EXPECT_FALSE(ContainsPart(log, "Invoice for a/c BAK001"));

  // The same day again: nobody is due.
  Run(ImportScript({"Yes", "No"}, {"@click mnuOptnPas2Max"}));
  EXPECT_EQ(PastelFileLines("MaxInv02.csv"), std::vector<std::string>{});
  EXPECT_TRUE(ContainsPart(PastelFileLines("Tolmen.LOG"), "0 New Invoices were Created"));
}

TEST_F(BillingRunTest, MethodOneMovesDateBilledOnByTheCategorysYears) {
  ASSERT_NO_FATAL_FAILURE(
      MakeWorld(json::array({
                    Member("C1", "Acme Trading", "ACM001",
                           {{"Customer Category", "Retail"}, {"Date Joined", "15 Dec 2019"}}),
                    Member("C2", "Baker Bros", "BAK001", {{"Customer Category", "Retail"}}),
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
  EXPECT_TRUE(ContainsPart(log,
                           "3-year Invoice Batched  (=100|115) Customer Category: Retail "
                           "(Renewal)"))
      << Transcript();
  EXPECT_TRUE(Contains(log,
                       "Multi-Year Method: Set Date Billed into Future (allows change of "
                       "Category)"));
}

}  // namespace
}  // namespace tolmen::test
