// Posting documents on a real set made from the demo description: the import lines of a
// document, the debtor's figures, the period numbers, and the tolmen-toolkit command.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>

#include "../pastel/PastelTestSet.h"
#include "common/TestText.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasGParm.h"
#include "runtime/Conversion.h"
#include "toolkit/DocumentStrings.h"
#include "toolkit/quilletToolkit.h"
#include "transfer/ImportFiles.h"

namespace tolmen {
namespace {

using test::ReadFile;
using testing::PastelSetTest;

std::string Header(std::map<int, std::string> fields) {
  std::string text;
  for (int field = 1; field <= kHeaderFieldCount; ++field) text += fields[field] + "|";
  return text;
}

const std::string kNul(1, '\0');

// The Header line of a document for ACME with nothing but its date and period.
std::string HeaderLine(const std::string& date, int period) {
  return "\"Header\",\"\",\" \",\" \",\"ACME  \"," + std::to_string(period) + ",\"" + date +
         "\",\"\",\"N\",0,\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",0,\"" + date +
         "\",\"\",\"\",\"\",1,\"\",\"\",\"" + kNul + "\"\r\n";
}
const std::string kRenewal = "|1|100|||01|||1000000|Renewal|6||CC";
const std::string kRenewalDetail =
    "\"Detail\",0,1,100,114,\"\",\"1\",\"0\",\"0\",\"1000000\",\"Renewal\",\"6\",\"CC\",\"\"\r\n";

class DocumentPostingTest : public PastelSetTest {
 protected:
  // The set with ABE001's figures of the fields a posting reads, then opened as a run has it:
  // the GL parameters loaded, the debtor on ABE001, the import files open and writing.
  void SetUp() override {
    PastelSetTest::SetUp();
    const std::initializer_list<std::pair<int, double>> figures = {
        {28, 500}, {54, 400}, {103, 300}, {29, 7}};
    for (auto [field, value] : figures) Files()["AccMasD.dat"][0][std::to_string(field)] = value;
    MakeSet();
    app_->billing.BillingVATRate = 14;
    pasGParm& gparm = app_->pastelFiles.GParm();
    gparm.FileName = Folder() + pasGParm::kFileName;
    gparm.OPEN_();
    gparm.GET_LOWEST();
    gparm.CLOSE_();
    pasDebtor& debtor = Debtor();
    debtor.FileName = Folder() + pasDebtor::kFileName;
    debtor.OPEN_();
    debtor.GET_EQUAL("ABE001");
    RunState& run = app_->run;
    run.CsvFileName = Folder() + "MaxCus01.csv";
    run.InvoiceFileName = Folder() + "MaxInv01.csv";
    run.RecurringBillingOn = run.WriteCsv = true;
    ASSERT_TRUE(OpenCsvFiles(*app_));
  }
  pasDebtor& Debtor() { return app_->pastelFiles.Debtor(); }
  double Figure(int field) { return CDbl(Debtor().default_(field)); }

  std::string Post(std::int16_t type, std::string header, std::vector<std::string> lines) {
    quilletToolkit& toolkit = app_->toolkit;
    EXPECT_EQ(toolkit.DefineDocumentHeader(header), "");
    for (std::string& line : lines) EXPECT_EQ(toolkit.DefineDocumentLine(line), "");
    return toolkit.ImportDocument(type, 0);
  }
  // The invoice file and the number of customer lines.
  std::pair<std::string, long> Written() {
    CloseCsvFiles(*app_);
    const std::string customer = ReadFile(app_->run.CsvFileName);
    return {ReadFile(app_->run.InvoiceFileName),
            std::count(customer.begin(), customer.end(), '\n')};
  }
};

TEST_F(DocumentPostingTest, PostedAndBatchedInvoicesWriteTheSameLinesButOnlyOneDebtorLine) {
  const std::string header = Header({{1, "INV1"}, {4, "ACME"}, {5, "15/03/2024"}, {18, "0"}});
  EXPECT_EQ(Post(kDocumentInvoice, header, {kRenewal}), "0|INV1=100|114");
  EXPECT_EQ(Figure(4), 114);  // period 101: balance field 4, sales 30, field 79
  EXPECT_EQ(Figure(30), 100);
  EXPECT_EQ(Figure(79), 114);
  EXPECT_EQ(Post(kDocumentBatchedInvoice, header, {kRenewal}), "0|INV1=100|114");
  EXPECT_EQ(Figure(4), 114);
  // A deletion writes its header alone and drops the lines.
  EXPECT_EQ(Post(kDocumentInvoice, Header({{2, "Y"}, {4, "ACME"}, {5, "15/03/2024"}}), {kRenewal}),
            "0|=100|114");
  EXPECT_EQ(app_->toolkit.LineCount, 0);
  EXPECT_EQ(Figure(4), 114);

  const std::string pair = HeaderLine("15/03/2024", 101) + kRenewalDetail;
  EXPECT_EQ(Written(), std::make_pair(pair + pair + HeaderLine("15/03/2024", 101), 1L));
  EXPECT_EQ(ReadFile(app_->run.CsvFileName).substr(0, 9), "\"ABE001\",");
}

TEST_F(DocumentPostingTest, LastYearsPeriod12MovesTheFiguresOneFieldOn) {
  EXPECT_EQ(Post(kDocumentInvoice, Header({{1, "INV2"}, {4, "ACME"}, {5, "29/02/2024"}}),
                 {kRenewal, kRenewal}),
            "0|INV2=200|228");
  EXPECT_EQ(app_->toolkit.PeriodCode, 12);
  // Each line reads fields 28, 54 and 103, which never change, and overwrites the next ones:
  // the second line's sum replaces the first's.
  EXPECT_EQ(Figure(28), 500);
  EXPECT_EQ(Figure(29), 500 + 114);
  EXPECT_EQ(Figure(55), 400 + 100);
  EXPECT_EQ(Figure(104), 300 + 114);
  EXPECT_EQ(Debtor().default_(124).Text(), "15/06/2024 12:00:00");
  // One debtor line for each document line.
  EXPECT_EQ(Written(),
            std::make_pair(HeaderLine("29/02/2024", 12) + kRenewalDetail + kRenewalDetail, 2L));
}

TEST_F(DocumentPostingTest, CreditNoteLowersPeriod103ByUnitAmountsWhateverTheQuantity) {
  const std::string description = "Credit for \"late\" delivery of the spring catalogue";
  const std::string header =
      "CN1|||ACME|2 May 2024|PO 7|||Thanks|||||||Durban||30|||031 1|Ann|031 2";
  EXPECT_EQ(Post(kDocumentCreditNote, header,
                 {"|3|100|||01|||ITEM-CODE-LONGER-THAN-15|" + description + "|6|ABCD|CC"}),
            "0|CN1=300|342");
  EXPECT_EQ(Figure(6), 1200.5 - 114);
  EXPECT_EQ(Figure(32), -100);
  EXPECT_EQ(Figure(81), -114);
  app_->run.WriteCsv = false;  // the figures still move, but no line is written
  EXPECT_EQ(Post(kDocumentInvoice, Header({{4, "ACME"}, {5, "2 May 2024"}}), {kRenewal}),
            "0|=100|114");
  EXPECT_EQ(Figure(6), 1200.5);
  // The fax stands before the contact in the record and in the line.
  EXPECT_EQ(Written().first,
            "\"Header\",\"\",\" \",\" \",\"ACME  \",103,\"02/05/2024\",\"PO 7\",\"N\",0,"
            "\"Thanks\",\"\",\"\",\"\",\"\",\"\",\"\",\"Durban\",\"\",30,\"02/05/2024\","
            "\"031 1\",\"031 2\",\"Ann\",1,\"\",\"\",\"" +
                kNul + "\"\r\n" +
                "\"Detail\",0,3,100,114,\"\",\"1\",\"0\",\"0\",\"ITEM-CODE-LONGE\","
                "\"Credit for 'late' delivery of the spring\",\"6\",\"CC\",\"ABC\"\r\n");
}

TEST_F(DocumentPostingTest, PeriodNumbersBeforeInAndAfterTheFinancialYear) {
  // The year's first period ends 31 March 2024.
  const std::pair<const char*, int> cases[] = {
      {"01/02/2023", 0},   {"31/03/2023", 1},   {"01/02/2024", 12},  {"01/03/2024", 101},
      {"31/03/2024", 101}, {"01/04/2024", 102}, {"28/02/2025", 112}, {"30/04/2025", 114},
  };
  for (auto [date, period] : cases) {
    EXPECT_EQ(Post(kDocumentBatchedInvoice, Header({{4, "ACME"}, {5, date}}), {kRenewal}),
              "0|=100|114");
    EXPECT_EQ(app_->toolkit.PeriodCode, period) << date;
  }
  EXPECT_EQ(Figure(4), 0);  // batched: no figure moved
}

TEST_F(DocumentPostingTest, CommandPostsPrintsTheStatusAndRefusesBadStrings) {
  const auto run = [&](const std::string& arguments, std::string& out) {
    const std::string command = "TOLMEN_NOW='2024-06-15 12:00:00' " + std::string(TOLMEN_BIN_DIR) +
                                "/tolmen-toolkit post '" + Folder() + "' " + arguments + " 2>&1";
    FILE* pipe = ::popen(command.c_str(), "r");
    out.clear();
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
    return WEXITSTATUS(::pclose(pipe));
  };
  const std::string header = "--header 'INV1|N||ABE001|15/03/2024' ";
  std::string out;
  // Tax code 3 of the set is 14%. The run's pair is 01, so the command takes 02, then 03.
  EXPECT_EQ(run(header + "--line '" + kRenewal + "' --line '|3|78.95' --tax-code 3", out), 0);
  EXPECT_EQ(out, "0|INV1=336.85|384\n");
  EXPECT_EQ(run(header + "--line '|1|100' --type 103 --tax 0", out), 0);
  EXPECT_EQ(out, "0|INV1=100|100\n");
  const std::string invoice = ReadFile(Folder() + "MaxInv02.csv");
  EXPECT_EQ(invoice.substr(invoice.find("\"Detail\"")),
            kRenewalDetail +
                "\"Detail\",0,3,78.95,90,\"\",\"0\",\"0\",\"0\",\"\",\"\",\"0\",\"\",\"\"\r\n");
  EXPECT_EQ(ReadFile(Folder() + "MaxCus02.csv").substr(0, 9), "\"ABE001\",");
  EXPECT_NE(ReadFile(Folder() + "MaxInv03.csv").find("\"Detail\",0,1,100,100,"), std::string::npos);
  EXPECT_EQ(ReadFile(Folder() + "MaxCus03.csv"), "");  // there, so that a run takes 04

  EXPECT_EQ(run("--header 'X|N||ABE001|31/02/2024'", out), 1);
  EXPECT_EQ(out, "tolmen-toolkit: the header string is refused: Invalid Date\n");
  EXPECT_EQ(run(header + "--line '|1' --line '|x'", out), 1);
  EXPECT_EQ(out, "tolmen-toolkit: line 2 is refused: Invalid Quantity\n");
  EXPECT_EQ(run("--header 'X|N||NOBODY|15/03/2024'", out), 1);
  EXPECT_EQ(out, "tolmen-toolkit: Code is not in Pastel NOBODY\n");
  EXPECT_EQ(run("--line x", out), 4);
}

}  // namespace
}  // namespace tolmen
