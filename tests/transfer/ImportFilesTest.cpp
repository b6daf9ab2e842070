// The import files written through the record classes' INSERT into real files.
#include "transfer/ImportFiles.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "common/ErrorOf.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasHisDetail.h"
#include "pastel/pasHisHeader.h"
#include "shell/ShellFixture.h"

namespace tolmen::testing {
namespace {

class ImportFilesTest : public ShellFixture {
 protected:
  void SetUp() override {
    fs::create_directories(Folder());
    Start({});
  }
  std::string Folder() const { return dir_.File("set") + "/"; }
  void Touch(const std::string& name) { std::ofstream(Folder() + name) << "x"; }
  // Every field blank, as a new debtor or document is built, then `fields` set.
  static void Fill(PastelRecord& record,
                   std::initializer_list<std::pair<int32_t, Variant>> fields) {
    for (int32_t field : record.Layout().Fields()) record.default_(field, Variant(std::string()));
    for (const auto& [field, value] : fields) record.default_(field, value);
  }
};

TEST_F(ImportFilesTest, NumberingFollowsTheHighestCustomerFileWithoutRegardToCase) {
  EXPECT_EQ(NumberImportFiles(Folder()).customer, Folder() + "MaxCus01.csv");
  EXPECT_EQ(NumberImportFiles(Folder()).invoice, Folder() + "MaxInv01.csv");
  Touch("MaxCus07.csv");
  Touch("maxcus03.CSV");
  Touch("MaxInv12.csv");  // the invoice file takes the customer file's number
  EXPECT_EQ(NumberImportFiles(Folder()).customer, Folder() + "MaxCus08.csv");
  EXPECT_EQ(NumberImportFiles(Folder()).invoice, Folder() + "MaxInv08.csv");
}

TEST_F(ImportFilesTest, CustomerAndInvoiceLinesAsPastelReadsThem) {
  app_->run.CsvFileName = Folder() + "MaxCus01.csv";
  app_->run.InvoiceFileName = Folder() + "MaxInv01.csv";
  app_->run.RecurringBillingOn = true;
  app_->run.WriteCsv = true;
  ASSERT_TRUE(OpenCsvFiles(*app_));
  EXPECT_EQ(app_->run.CurrentSection, "");

  pasDebtor& debtor = app_->pastelFiles.Debtor();
  pasDelivery& delivery = app_->pastelFiles.Delivery();
  Fill(debtor, {{1, 7}, {2, "SMI"}, {3, "Bob \"the\" Smith"}, {56, "  12 High St "}, {105, "u1"}});
  Fill(delivery, {{5, "011 555"}, {13, "bob@example.com"}});
  debtor.STATUS_ = 9;
  debtor.INSERT();
  EXPECT_EQ(debtor.STATUS_, 0);

  pasHisHeader header(*app_);
  Fill(header, {{3, "SMI001"}, {4, "05/03/2024"}, {5, "PO 1"}, {17, 30}, {20, 103}, {27, 2.5}});
  header.INSERT();
  pasHisDetail detail(*app_);
  Fill(detail, {{4, "ITEM1"},
                {7, 4},
                {10, " EA"},
                {11, 1},
                {14, "Annual fee"},
                {15, 10},
                {16, 1},
                {17, 114.5},
                {18, 130.53}});
  detail.UPDATE();

  app_->run.WriteCsv = false;  // nothing more reaches either file
  debtor.INSERT();
  header.INSERT();
  detail.INSERT();
  CloseCsvFiles(*app_);
  EXPECT_FALSE(app_->importFiles.customer.IsOpen());
  EXPECT_FALSE(app_->importFiles.invoice.IsOpen());
  CloseCsvFiles(*app_);  // a second close does nothing

  const std::string nul2("\0\0", 2);
  EXPECT_EQ(ReadFile(app_->run.CsvFileName),
            "\"SMI   \",\"Bob 'the' Smith\",\"12 High St\",\"\",\"\",\"\",\"\",\"011 555\",\"\","
            "\"\",\"1\",\"0\",\"1\",\"\",\"\",\"\",\"\",\"\",\"\",\"N\",\"0\",\"N\",\"1\",\"\","
            "\"7\",\"00\",\"0\",\"\",\"u1\",\"\",\"\",\"\",\"\",\"" +
                nul2 + "\",\"\",\"\",\"bob@example.com\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
  const std::string header18(1, '\0');
  EXPECT_EQ(
      ReadFile(app_->run.InvoiceFileName),
      "\"Header\",\"\",\" \",\" \",\"SMI001\",103,\"05/03/2024\",\"PO 1\",\"N\",2.5,\"\","
      "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",30,\"05/03/2024\",\"\",\"\",\"\",1,\"\",\"\",\"" +
          header18 +
          "\"\r\n"
          "\"Detail\",10,1,114.5,130.53,\"EA\",\"1\",\"0\",\"0\",\"ITEM1\",\"Annual fee\","
          "\"4\",\"\",\"\"\r\n");
}

TEST_F(ImportFilesTest, AFileThatCannotOpenShowsTheSectionAndTheErrorTextAndAsksUntilCancelled) {
  Start({"OK", "Cancel"});
  app_->run.CsvFileName = Folder() + "missing/MaxCus01.csv";
  EXPECT_FALSE(OpenCsvFiles(*app_));
  const std::string dialog =
      "== MsgBox | Tolmen | OK/Cancel | None\n"
      "Opening CSV files\nPath not found\nPlease fix the Error and Click OK, or Cancel the run.\n";
  EXPECT_EQ(Transcript(), dialog + "-> OK\n" + dialog + "-> Cancel\n");
  EXPECT_FALSE(app_->importFiles.customer.IsOpen());
  // Writing a line with no file open is the caller's error.
  EXPECT_THROW(WriteCustomerLine(*app_, "x"), RuntimeError);
}

TEST_F(ImportFilesTest, ALineWithoutRoomIsTakenBackAndWrittenOnceOnRetry) {
  ImportFile& file = app_->importFiles.customer;
  // A full disk: each line is error 61 for the run's trap.
  ASSERT_TRUE(file.Open("/dev/full"));
  for (int line = 0; line < 2; ++line) {
    try {
      WriteCustomerLine(*app_, "\"SMI001\",\"Smith\"");
      ADD_FAILURE() << "a line went to a full disk";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 61);
      EXPECT_EQ(error.Description(), "Disk full");
    }
  }

  // A file that may not grow past 40 bytes: the second line goes in only in part, and that part
  // comes out again. With room made, Retry writes the line whole, once.
  const std::string path = Folder() + "MaxCus01.csv";
  const std::string first(20, 'a'), second(30, 'b');
  ASSERT_TRUE(file.Open(path));
  WriteCustomerLine(*app_, first);
  rlimit saved{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
  const rlimit small{40, saved.rlim_max};
  const auto oldHandler = ::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const int error = ErrorOf([&] { WriteCustomerLine(*app_, second); });
  ::setrlimit(RLIMIT_FSIZE, &saved);
  ::signal(SIGXFSZ, oldHandler);
  EXPECT_EQ(error, 61);
  EXPECT_EQ(ReadFile(path), first + "\r\n");
  WriteCustomerLine(*app_, second);
  CloseCsvFiles(*app_);
  EXPECT_EQ(ReadFile(path), first + "\r\n" + second + "\r\n");
}

}  // namespace
}  // namespace tolmen::testing
