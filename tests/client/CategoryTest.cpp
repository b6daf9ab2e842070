// Customer categories: the list built from a real category file, categories found or created from
// a client's Table UDF in maxsim, the limit of 99, and the run's transaction over the inserts.
#include <gtest/gtest.h>

#include "ClientFixture.h"
#include "pastel/pasDebtor.h"
#include "recordio/BtGlobal.h"
#include "runtime/Conversion.h"
#include "transfer/Categories.h"
#include "transfer/ClientState.h"
#include "transfer/DebtorRecord.h"
#include "transfer/ImportFiles.h"

namespace tolmen::test {
namespace {

json WithCategory(const std::string& id, const std::string& category) {
  json client = Client(id, 1, {{"Client_Name", "Client " + id}});
  if (!category.empty()) client["udfs"] = {{"Customer Category", category}};
  return client;
}

class CategoryTest : public ClientTest {
 protected:
  void Begin(const json& clients) {
    ClientTest::Begin(clients, {});
    app_->options.CategoryOption = 2;
    app_->options.CategoryFromUdf = true;
    app_->options.CategoryUdf = Udf("Customer Category");
  }
  ComboBox& List() { return app_->screen.frmMain.cboCategories; }
  std::vector<std::string> Entries() {
    std::vector<std::string> entries;
    for (const ListItem& item : List().Items()) entries.push_back(item.text);
    return entries;
  }
  // The category the client gets, as "<N> TEXT".
  std::string CategoryOf(const std::string& id) {
    Select(id);
    GetPasCategoryCode(*app_);
    return "<" + std::to_string(app_->run.CurrentCategoryNumber) + "> " +
           app_->run.CurrentCategoryText;
  }
  int Count(const std::string& text) { return Occurrences(Log(), text); }
};

TEST_F(CategoryTest, FoundByTextOrCreatedUpTo99) {
  json categories = json::array();
  for (int number = 1; number <= 98; ++number)
    categories.push_back(
        {{"1", number}, {"2", number == 3 ? "Retail Sales" : "Group " + std::to_string(number)}});
  Files()["accdcat.dat"] = categories;
  ASSERT_NO_FATAL_FAILURE(Begin({WithCategory("R1", "Retail"), WithCategory("F1", "Farming"),
                                 WithCategory("S1", "Services"), WithCategory("W1", "Wholesale"),
                                 WithCategory("E1", "")}));
  LoadCategories(*app_);
  ASSERT_EQ(List().ListCount(), 99);
  EXPECT_EQ(List().Text(), "<0> NONE");
  EXPECT_EQ(NextCategoryNumber(*app_), 99);
  EXPECT_TRUE(app_->screen.frmMain.optCategory(1).Enabled());

  EXPECT_EQ(CategoryOf("R1"), "<3> Retail");  // "> Retail" is found in "<3> Retail Sales"
  EXPECT_EQ(CategoryOf("R1"), "<3> Retail");
  EXPECT_EQ(CategoryOf("F1"), "<99> TOO MANY CATEGORIES!");  // written as the last one
  EXPECT_EQ(CategoryOf("S1"), "<99> Services");              // beyond it: 99, nothing written
  EXPECT_EQ(CategoryOf("W1"), "<99> Wholesale");
  EXPECT_EQ(CategoryOf("E1"), "<0> ");  // "> " alone is found in the first entry
  EXPECT_EQ(app_->run.ErrorCount, 0);
  EXPECT_EQ(Count("Created new Customer Category"), 1);
  EXPECT_EQ(Count("Created new Customer Category <99> TOO MANY CATEGORIES!\r\n"), 1);

  // The file holds the 99th category; the list shows it, and no number is left.
  List().SetListIndex(3);
  LoadCategories(*app_);
  const std::vector<std::string> entries = Entries();
  ASSERT_EQ(entries.size(), 100u);
  EXPECT_EQ(entries[3], "<3> Retail Sales");
  EXPECT_EQ(entries[99], "<99> TOO MANY CATEGORIES!");
  EXPECT_EQ(List().Text(), "<3> Retail Sales");
  EXPECT_EQ(NextCategoryNumber(*app_), 100);
  EXPECT_FALSE(app_->screen.frmMain.optCategory(1).Enabled());
}

TEST_F(CategoryTest, NewCategoriesBelongToTheRunsTransaction) {
  // The demo's categories: 1 Retail, 2 Wholesale, 3 Retail Sales.
  json clients = {WithCategory("F1", "Farming"), WithCategory("F2", "Farming")};
  clients[0]["udfs"]["Account Number"] = "FAR001";
  ASSERT_NO_FATAL_FAILURE(Begin(clients));
  app_->options.AccountNumber = Udf("Account Number");
  app_->run.WriteCsv = false;
  LoadCategories(*app_);
  EXPECT_EQ(Entries(), (std::vector<std::string>{"<0> NONE", "<1> Retail", "<2> Wholesale",
                                                 "<3> Retail Sales"}));
  EXPECT_EQ(NextCategoryNumber(*app_), 4);

  BeginConcurrentTransaction(*app_);
  Select("F1");
  CreateNewDebtorRecord(*app_);
  EXPECT_EQ(CStr(app_->pastelFiles.Debtor().default_(1)), "4");
  EXPECT_EQ(CategoryOf("F2"), "<4> Farming");  // the same text again: no second insert
  EXPECT_EQ(Entries().back(), "<4> Farming");
  AbortTransaction(*app_);  // Cancel

  LoadCategories(*app_);
  EXPECT_EQ(Entries().size(), 4u);
  EXPECT_EQ(NextCategoryNumber(*app_), 4);

  BeginConcurrentTransaction(*app_);
  app_->run.CurrentCategoryText.clear();
  EXPECT_EQ(CategoryOf("F2"), "<4> Farming");
  EndTransaction(*app_);
  LoadCategories(*app_);
  EXPECT_EQ(Entries().back(), "<4> Farming");
  EXPECT_EQ(NextCategoryNumber(*app_), 5);
  EXPECT_EQ(Count("Created new Customer Category <4> Farming\r\n"), 2);
  EXPECT_EQ(app_->run.ErrorCount, 0);
}

}  // namespace
}  // namespace tolmen::test
