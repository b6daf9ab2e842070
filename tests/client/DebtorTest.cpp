// Clients of a real maxsim turned into customer lines of a real MaxCus file: account codes from the
// UDF or the prompt, names, the two addresses, phones and e-mail, and the defaults of the set.
#include <gmock/gmock.h>

#include "ClientFixture.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Strings.h"
#include "transfer/Addresses.h"
#include "transfer/Categories.h"
#include "transfer/DebtorRecord.h"
#include "transfer/ImportFiles.h"

namespace tolmen::test {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;

// A customer line as Pastel's import reads it: the columns that come from the client, the rest
// as every new debtor has them.
std::string CustomerLine(const std::string& code, const std::string& name,
                         const std::vector<std::string>& postal, const std::string& telephone,
                         const std::string& fax, const std::string& contact,
                         const std::vector<std::string>& delivery, int category,
                         const std::string& cell, const std::string& email) {
  const auto q = [](const std::string& text) { return "\"" + text + "\""; };
  std::string line = q(code) + "," + q(name);
  for (const std::string& part : postal) line += "," + q(part);
  line += "," + q(telephone) + "," + q(fax) + "," + q(contact) + ",\"1\",\"0\",\"1\",\"\"";
  for (const std::string& part : delivery) line += "," + q(part);
  line += ",\"N\",\"0\",\"N\",\"1\",\"\"," + q(std::to_string(category)) + ",\"00\",\"0\",\"\"";
  line += ",\"\",\"\",\"\",\"\",\"\"";  // user defined fields 1 to 5
  line += ",\"\0\0\",\"\""s;            // the two bytes of field 61, and a blank
  line += "," + q(cell) + "," + q(email);
  for (int column = 38; column <= 44; ++column) line += ",\"\"";
  return line + "\r\n";
}

const std::vector<std::string> kNoLines(5, "");

class DebtorTest : public ClientTest {
 protected:
  void SetUp() override {
    ClientTest::SetUp();
    for (const char* code : {"SMIT07", "SMIT08"})
      Files()["AccMasD.dat"].push_back({{"2", code}, {"3", "Another Smith"}});
    json& defaults = Files()["accprmdc.dat"][0];
    defaults["42"] = 3;
    defaults["44"] = 4;
    defaults["46"] = 5;
  }
  // Options of a run that writes the customer file, and the file opened.
  void Prepare() {
    RunOptions& options = app_->options;
    options.AccountNumber = Udf("Account Number");
    options.VatNumber = Udf("VAT Number");
    options.PrefixSize = 4;
    options.SuffixSize = 2;
    options.CategoryOption = 0;
    options.CategoryNumber = 2;
    options.CategoryName = "Wholesale";
    SetRunCategory(*app_);
    app_->run.WriteCsv = true;
    app_->run.CsvFileName = NumberImportFiles(Folder()).customer;
    ASSERT_TRUE(OpenCsvFiles(*app_));
  }
  std::string Written() {
    CloseCsvFiles(*app_);
    return ReadFile(app_->run.CsvFileName);
  }
  std::string Field(int field) { return CStr(app_->pastelFiles.Debtor().default_(field)); }
};

TEST_F(DebtorTest, ACompanyAndAPersonBecomeCustomerLines) {
  ASSERT_NO_FATAL_FAILURE(Begin(Clients({"A1", "S2"}), {"OK"}));
  ASSERT_NO_FATAL_FAILURE(Prepare());
  RunOptions& options = app_->options;
  options.PostalAddress = "<Selected>";
  options.DeliveryAddress = "Warehouse";
  options.NameInAddress = 2;  // "Add Company Name to Address"
  options.PrintMessage = 2;
  options.PrintStatement = 0;
  options.PrintDocument = 1;

  Select("A1");
  CreateNewDebtorRecord(*app_);
  EXPECT_EQ(app_->client.AccountCode, "ACM001");
  EXPECT_EQ(app_->client.CodeToStore, "");
  EXPECT_EQ(app_->client.NewRecordFlag, 0);
  // The settings cross over, 0 taking the set's default; the VAT number UDF makes no difference.
  EXPECT_EQ(Trim(Field(62)), "");
  std::string fields;
  for (int field : {78, 115, 116, 69, 71, 75, 64, 117, 124}) fields += Field(field) + "|";
  EXPECT_EQ(fields, "2|4|1|True|Y|5000|30|NNNNNNNNNNNNN|15/06/2024 12:00:00|");
  EXPECT_EQ(app_->pastelFiles.Debtor().default_(127).Value(), DateSerial(2024, 6, 15));
  EXPECT_EQ(CStr(app_->pastelFiles.Delivery().default_(1)), "ACM001");

  Select("S2");
  CreateNewDebtorRecord(*app_);
  EXPECT_EQ(app_->client.AccountCode, "SMIT09");
  EXPECT_EQ(app_->client.CodeToStore, "SMIT09");

  const std::string acme = CustomerLine(
      "ACM001", "Acme Trading (Pty) Ltd",
      {"Acme Trading (Pty) Ltd", "Head Office", "12 Main Road", "Industria",
       "2093  Johannesburg, Gauteng, S"},  // 30 of "2093  Johannesburg, Gauteng, South Africa"
      "011 555 0100 x 2", "011 555 0102", "",
      {"Dispatch", "7 Depot Street", "Wadeville", "Germiston", "Gauteng, South Africa, 1401"}, 2,
      "", "accounts@acme.example");
  const std::string smith = CustomerLine(
      "SMIT09", "Smith, Mr John",
      {"4 Oak Avenue", "Durban", "KwaZulu-Natal", "South Africa", "4001"}, "012 345 6789 x 1", "",
      "Smith, John", kNoLines, 2, "", std::string(41, 'j') + "@x.examp?");  // 49 of 51
  EXPECT_EQ(Written(), acme + smith);

  EXPECT_EQ(app_->run.DebtorsWritten, 2);
  EXPECT_EQ(app_->run.ErrorCount, 0);
}

// A code shorter than six is taken as it stands; a cancelled prompt writes nothing and stores
// nothing, and the run goes on.
TEST_F(DebtorTest, AShortCodeIsKeptAndACancelledPromptSkipsTheClient) {
  ASSERT_NO_FATAL_FAILURE(Begin(Clients({"B1", "O1"}), {"Cancel"}));
  ASSERT_NO_FATAL_FAILURE(Prepare());
  Select("B1");
  CreateNewDebtorRecord(*app_);
  Select("O1");
  CreateNewDebtorRecord(*app_);
  EXPECT_EQ(app_->client.AccountCode, "");
  EXPECT_EQ(app_->client.NewRecordFlag, -1);
  EXPECT_EQ(app_->run.StopRequest, kStopNone);
  EXPECT_EQ(Written(),
            CustomerLine("ABC   ", "Bravo Ltd", kNoLines, "", "", "", kNoLines, 2, "", ""));
  EXPECT_EQ(app_->run.DebtorsWritten, 1);
  EXPECT_EQ(app_->run.ErrorCount, 0);
  EXPECT_THAT(Log(), HasSubstr("Created  Pastel Customer - a/c ABC   : Bravo Ltd\r\n"));
  EXPECT_EQ(maxsim_->StoredUdf("O1", "Account Number"), nullptr);
  EXPECT_THAT(Transcript(),
              HasSubstr("| OBRI01\nPastel Account Number for O'Brien & Sons (Pty)?\n-> Cancel"));
}

TEST_F(DebtorTest, NamesByRecordType) {
  ASSERT_NO_FATAL_FAILURE(Begin(Clients({"C1", "I1", "I2", "I3", "K1", "K2", "X1"}), {}));
  struct Case {
    const char* id;
    const char* display;
    const char* displayIndividual;  // with "Individual Client Names"
    const char* lastFirst;
    const char* nameLine;
    const char* contact;
  } cases[] = {
      {"C1", "Harbour Co", "Harbour Co", "Harbour Co", "", ""},
      {"I1", "Smith Plumbing", "Smith, Mr John", "Smith, Mr John", "Mr John Smith", "Smith, John"},
      {"I2", "Ndlovu", "Ndlovu", "Ndlovu", "Ndlovu", "Ndlovu, "},
      {"I3", "?", "?", "", "", ", "},
      {"K1", "Naidoo, Ms Priya", "Naidoo, Ms Priya", "Naidoo, Ms Priya", "", "Naidoo, Priya"},
      {"K2", "Vanderbijlpark-Smith, Johannes", "Vanderbijlpark-Smith, Johannes",
       "Vanderbijlpark-Smith, Johannes", "", "Johannes"},
      {"X1", "?", "?", "Other", "", "Other, "},
  };
  for (const Case& c : cases) {
    Select(c.id);
    app_->options.IndividualClientNames = false;
    EXPECT_EQ(ClientDisplayName(*app_), c.display) << c.id;
    app_->options.IndividualClientNames = true;
    EXPECT_EQ(ClientDisplayName(*app_), c.displayIndividual) << c.id;
    EXPECT_EQ(LastFirstName(*app_), c.lastFirst) << c.id;
    EXPECT_EQ(AddressNameLine(*app_), c.nameLine) << c.id;
    EXPECT_EQ(DeliveryContact(*app_), c.contact) << c.id;
  }

  // The first line of the postal address: the person's name, or with the company option (alone
  // or with the other) a company's name and an individual's company only.
  app_->options.PostalAddress = "<Selected>";
  app_->client.NewRecordFlag = -1;
  struct FirstLine {
    const char* id;
    int nameInAddress;
    const char* line;
  } firstLines[] = {
      {"I1", 1, "Mr John Smith"},
      {"C1", 1, ""},
      {"I1", 2, "Smith Plumbing"},
      {"I1", 3, "Smith Plumbing"},
      {"I2", 3, ""},
      {"C1", 3, "Harbour Co"},
      {"I1", 0, ""},
  };
  for (const FirstLine& f : firstLines) {
    Select(f.id);
    app_->options.NameInAddress = static_cast<int16_t>(f.nameInAddress);
    DoDebtorContactInfo(*app_);
    EXPECT_EQ(Trim(Field(56)), f.line) << f.id << " " << f.nameInAddress;
  }
}

TEST_F(DebtorTest, AddressChoices) {
  ASSERT_NO_FATAL_FAILURE(Begin(Clients({"A1", "M1", "S2"}), {}));
  const std::string first = "Acme Trading (Pty) Ltd";
  using Lines = std::array<std::string, 5>;
  const Lines warehouse = {first, "Dispatch", "7 Depot Street", "Wadeville",
                           "Germiston, Gauteng, South Africa, 1401"};
  const Lines main = {first, "Head Office", "12 Main Road", "Industria",
                      "2093  Johannesburg, Gauteng, South Africa"};
  const Lines smith = {"4 Oak Avenue", "Durban", "KwaZulu-Natal", "South Africa", "4001"};
  struct Case {
    const char* id;
    const char* choice;
    std::string firstLine;
    bool found;
    Lines lines;
  } cases[] = {
      // Seven parts: state and country join line 5; the postal code goes in front of it here...
      {"A1", "<Selected>", first, true, main},
      // ...and behind it when the address is chosen by name (without regard to case).
      {"A1", "wAREHOUSE", first, true, warehouse},
      {"A1", "<First Alternate>", first, true, warehouse},
      {"A1", "Main", "", true, {"12 Main Road", "Johannesburg", "", "", ""}},
      {"A1", "*Main Address", first, false, {first, "", "", "", ""}},
      {"A1", "", first, false, {first, "", "", "", ""}},
      {"M1", "<First Alternate>", "", false, {}},
      {"S2", "<First Alternate>", "", false, {}},
      {"S2", "<Selected>", "", true, smith},
  };
  for (const Case& c : cases) {
    Select(c.id);
    EXPECT_EQ(GetAddressLines(*app_, c.choice, c.firstLine), c.found) << c.id << c.choice;
    EXPECT_EQ(app_->client.AddressLines, c.lines) << c.id << c.choice;
  }

  // A new delivery record without its address: the lines are blanked, the rest filled.
  pasDelivery& delivery = app_->pastelFiles.Delivery();
  for (int field = 8; field <= 12; ++field) delivery.default_(field, "left over");
  app_->options.DeliveryAddress = "<First Alternate>";
  app_->client.NewRecordFlag = -1;
  app_->pastelFiles.Debtor().default_(2, "MAI001");
  Select("M1");
  DoDeliveryInfo(*app_, true);
  for (int field = 8; field <= 12; ++field)
    EXPECT_EQ(Trim(CStr(delivery.default_(field))), "") << field;
  EXPECT_EQ(CStr(delivery.default_(1)), "MAI001");
  EXPECT_EQ(CStr(delivery.default_(2)), "   ");
}

}  // namespace
}  // namespace tolmen::test
