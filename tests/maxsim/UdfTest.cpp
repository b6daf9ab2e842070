// UDFs by type, the UDF list, table items and addresses through the automation objects.
#include <gtest/gtest.h>

#include "Attached.h"
#include "common/TestText.h"
#include "runtime/RuntimeError.h"

namespace tolmen::test {
namespace {

using UdfTest = AttachedTest;

struct UdfCase {
  const char* udf;
  const char* written;
  const char* readBack;  // what the UDF holds afterwards
};

TEST_F(UdfTest, ValuesThatDoNotSuitTheTypeAreRefusedSilently) {
  // Acme holds: Account Number ACM001, Customer Category Wholesale, Date Joined 15 Jan 2024,
  // Credit Limit 25000; Date Billed is empty.
  const UdfCase cases[] = {
      {"Date Billed", "2024-03-15", "15 Mar 2024"},
      {"Date Billed", "15-Mar-2024 14:30", "15 Mar 2024"},
      {"Date Joined", "31/02/2024", "15 Jan 2024"},  // no such day
      {"Date Joined", "soon", "15 Jan 2024"},
      {"Credit Limit", " 1250.50 ", "1250.5"},
      {"Credit Limit", "-3", "-3"},
      {"Credit Limit", "12abc", "-3"},
      {"Credit Limit", "&H10", "-3"},
      {"Customer Category", "retail", "Retail"},  // the item's own spelling
      {"Customer Category", "Gold", "Retail"},
      {"Account Number", "ACM 001/B", "ACM 001/B"},
      {"account number", "", ""},  // names in any case; empty clears
      {"Discount, %", "7", "7"},
  };
  for (const UdfCase& c : cases) {
    record_->SetFieldValue(c.udf, c.written);
    EXPECT_EQ(record_->GetFieldValue(c.udf), c.readBack) << c.udf << " <- " << c.written;
  }
}

TEST_F(UdfTest, UdfListWithACommaInsideANameAndATablesItems) {
  EXPECT_EQ(app_->GetListOfUdf(),
            "Account Number,Alphanumeric\r\n"
            "Customer Category,Table\r\n"
            "Import to Pastel,Table\r\n"
            "Date Joined,Date\r\n"
            "Date Billed,Date\r\n"
            "Credit Limit,Numeric\r\n"
            "Discount, %,Numeric\r\n"
            "VAT Number,Alphanumeric\r\n"
            "Pastel Balance,Numeric\r\n"
            "Invoice Message,Alphanumeric\r\n"
            "Aging Current,Numeric\r\n"
            "Aging 30 Days,Numeric\r\n");

  const std::string file = maxsim_.Folder().File("items.txt");
  app_->ListOfCategories(file, "\"Customer Category\"", "Items");
  EXPECT_EQ(ReadFile(file), "Retail\r\nWholesale\r\nFarming\r\nServices\r\n");
  app_->ListOfCategories(file, "\"import to pastel\"", "Items");
  EXPECT_EQ(ReadFile(file), "Yes\r\nNo\r\n");
  // A key that names no Table UDF gives an empty file.
  app_->ListOfCategories(file, "\"Credit Limit\"", "Items");
  EXPECT_EQ(ReadFile(file), "");
  EXPECT_THROW(app_->ListOfCategories(file, "\"Customer Category\"", "Colours"), RuntimeError);
  EXPECT_THROW(app_->ListOfCategories(maxsim_.Folder().File("no/such/folder/x.txt"),
                                      "\"Customer Category\"", "Items"),
               RuntimeError);
}

TEST_F(UdfTest, AddressesByNameAndId) {
  // Acme, the first client: a main address and an alternate.
  EXPECT_EQ(record_->GetAddressList(), "Main|1\r\nWarehouse|2\r\n");
  EXPECT_EQ(record_->GetAddressID(), "1");
  std::string id = "2";
  EXPECT_EQ(record_->GetAddressField(id, "division"), "Dispatch");
  EXPECT_EQ(record_->GetAddressField(id, "city"), "Germiston");
  EXPECT_EQ(record_->GetAddressField(id, "zip_/_postal_code"), "1401");
  EXPECT_EQ(record_->GetAddressField(id, "address_line_2"), "");
  EXPECT_EQ(id, "2");
  id = " 1";
  EXPECT_EQ(record_->GetAddressField(id, "State_/_Province"), "Gauteng");
  EXPECT_EQ(id, "1");
  id = "9";
  EXPECT_EQ(record_->GetAddressField(id, "city"), "");
  id = "-1";
  EXPECT_EQ(record_->GetAddressField(id, "city"), "");

  // Bluegum, the second in the list, has none.
  record_->ScrollList("LineDown");
  EXPECT_EQ(record_->GetAddressList(), "");
  EXPECT_EQ(record_->GetAddressID(), "-1");
}

}  // namespace
}  // namespace tolmen::test
