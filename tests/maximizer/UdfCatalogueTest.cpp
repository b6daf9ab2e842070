// The UDF catalogue of a real maxsim: which list takes which kind, names with commas, selections
// renewed after a load, the choice lists' handlers, and reading and writing a UDF.
#include <filesystem>

#include "common/MaximizerTestKit.h"
#include "maximizer/OpenMaximizer.h"
#include "maximizer/UdfCatalogue.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

// A list's entries: each one's text and item data (the catalogue index).
using Entry = std::pair<std::string, long>;

std::vector<Entry> Entries(const ListControl& list) {
  std::vector<Entry> entries;
  for (const ListItem& item : list.Items()) entries.emplace_back(item.text, item.itemData);
  return entries;
}

class UdfCatalogueTest : public MaximizerTest {
 protected:
  // A book whose UDF list has a comma in a name on its first line and after a date.
  static nlohmann::json Book() {
    nlohmann::json book = DemoBook();
    book["udfs"] = nlohmann::json::parse(R"([
      {"name": "Terms, net", "type": "Alphanumeric"},
      {"name": "Account Number", "type": "Alphanumeric"},
      {"name": "Customer Category", "type": "Table", "items": ["Retail", "Wholesale"]},
      {"name": "Date Billed", "type": "Date"},
      {"name": "Billed, last", "type": "Alphanumeric"},
      {"name": "Credit Limit", "type": "Numeric"}])");
    for (auto& client : book["clients"]) client.erase("udfs");
    return book;
  }
  MainForm& Form() { return app_->screen.frmMain; }
  static std::string Held(const UdfOption& option) {
    return option.name + "#" + std::to_string(option.index);
  }
};

TEST_F(UdfCatalogueTest, EachListHoldsItsKindsAndOptionsAreSelectedAgain) {
  ServeBook(Book());
  Start();
  RunOptions& options = app_->options;
  options.AccountNumber = {"account number", 7};
  options.DateJoined = {"Credit Limit", 9};  // a Numeric UDF: no date list takes it
  options.VatNumber = {"Gone Away", 4};
  options.ImportCriteriaUdf = {"Customer Category", 0};
  options.ImportCriteriaText = "YES";
  options.CustomMessage2Udf = {"Credit Limit", 0};
  Form().txtUserFldVal.SetEnabled(false);
  for (int i = 0; i < 3; ++i) Form().optMismatch(i).SetEnabled(false);
  ASSERT_TRUE(OpenMaximizerOLE(*app_));

  const UdfCatalogue& udfs = app_->udfs;
  ASSERT_EQ(udfs.Count(), 6);
  // "Terms, net": cut at the comma; "net" is no type word and no line came before: no kind.
  // "Billed, last": cut likewise, it keeps the Date kind of the line before.
  std::string catalogue;
  for (int i = 1; i <= 6; ++i) catalogue += udfs.Name(i) + " " + std::to_string(udfs.Kind(i)) + "|";
  EXPECT_EQ(catalogue,
            "Terms 0|Account Number 3|Customer Category 0|Date Billed 1|Billed 1|Credit Limit 2|");
  const std::vector<Entry> all = {{"", 0},
                                  {"Terms", 1},
                                  {"Account Number", 2},
                                  {"Customer Category", 3},
                                  {"Date Billed", 4},
                                  {"Billed", 5},
                                  {"Credit Limit", 6}};
  EXPECT_EQ(Entries(Form().cboCatgrUDF),
            (std::vector<Entry>{{"", 0}, {"Terms", 1}, {"Customer Category", 3}}));
  EXPECT_EQ(Entries(Form().cboUserFields), all);
  const std::vector<Entry> numberOrText = {
      {"", 0}, {"Terms", 1}, {"Account Number", 2}, {"Credit Limit", 6}};
  EXPECT_EQ(Entries(Form().cboAcctCode), numberOrText);
  EXPECT_EQ(Entries(Form().cboVATnumber), numberOrText);
  const std::vector<Entry> dates = {{"", 0}, {"Terms", 1}, {"Date Billed", 4}, {"Billed", 5}};
  EXPECT_EQ(Entries(Form().cboDateJoined), dates);
  EXPECT_EQ(Entries(Form().cboDateBilled), dates);
  EXPECT_EQ(
      Entries(Form().lstBillCUDFs),
      (std::vector<Entry>{
          {"Terms", 1}, {"Account Number", 2}, {"Customer Category", 3}, {"Credit Limit", 6}}));
  EXPECT_EQ(Entries(Form().cboMessage(0)), all);
  EXPECT_EQ(Entries(Form().cboMessage(1)), all);
  EXPECT_EQ(Entries(Form().lst2MaxUDFs), (std::vector<Entry>{{"Terms\t (Table)", 1},
                                                             {"Account Number\t (Alpha)", 2},
                                                             {"Date Billed\t (Date)", 4},
                                                             {"Billed\t (Date)", 5},
                                                             {"Credit Limit\t (Number)", 6}}));
  EXPECT_FALSE(fs::exists(dir_.File("home/UDFs.txt")));

  // Selected again by name, each list's handler renewing its option.
  EXPECT_EQ(Held(options.AccountNumber), "Account Number#2");
  EXPECT_TRUE(app_->run.MismatchSummaryOn);
  EXPECT_TRUE(Form().optMismatch(2).Enabled());
  EXPECT_EQ(options.ImportCriteriaUdf.index, 3);
  EXPECT_TRUE(Form().txtUserFldVal.Enabled());
  EXPECT_EQ(Form().txtUserFldVal.Text(), "YES");
  EXPECT_EQ(options.CustomMessage2Udf.index, 6);
  EXPECT_FALSE(Form().txtMessage(1).Enabled());
  // A name no list entry matches keeps its option, with no selection.
  EXPECT_EQ(Held(options.DateJoined), "Credit Limit#9");
  EXPECT_EQ(Form().cboDateJoined.ListIndex(), -1);
  EXPECT_EQ(options.VatNumber.name, "Gone Away");
  EXPECT_EQ(Form().cboVATnumber.ListIndex(), -1);

  // The handlers on a user's choices.
  Form().cboAcctCode.SetListIndex(0);
  EXPECT_EQ(Held(options.AccountNumber), "#0");
  EXPECT_FALSE(app_->run.MismatchSummaryOn);
  EXPECT_FALSE(Form().optMismatch(0).Enabled());
  Form().cboUserFields.SetListIndex(0);
  EXPECT_FALSE(Form().txtUserFldVal.Enabled());
  Form().cboVATnumber.SetListIndex(3);
  EXPECT_EQ(Held(options.VatNumber), "Credit Limit#6");
  Form().cboVATnumber.SetListIndex(-1);
  EXPECT_EQ(Held(options.VatNumber), "#0");
  Form().cboMessage(1).SetListIndex(0);
  EXPECT_TRUE(Form().txtMessage(1).Enabled());
  Form().cboDateBilled.SetListIndex(2);
  EXPECT_EQ(Held(options.DateBilled), "Date Billed#4");
  Form().cboCatgrUDF.SetListIndex(2);
  EXPECT_EQ(options.CategoryUdf.index, 3);
}

TEST_F(UdfCatalogueTest, UdfsAreReadTrimmedAndWrittenOnTheCurrentClient) {
  ServeBook(Book());
  Start();
  ASSERT_TRUE(OpenMaximizerOLE(*app_));
  ASSERT_EQ(maxsim_.Ctl({"select", "240118/0002"}).status, 0);
  ASSERT_EQ(maxsim_.Ctl({"busy", "1"}).status, 0);
  maxsim_.TakeJournal();

  SetClientField(*app_, 4, "5/3/2026");
  SetClientField(*app_, 2, "  SMI001  ");
  SetClientField(*app_, 6, "lots");  // refused by Maximizer, silently
  SetClientField(*app_, 0, "nowhere");
  EXPECT_EQ(GetClientField(*app_, 4), "05 Mar 2026");
  EXPECT_EQ(GetClientField(*app_, 2), "SMI001");
  EXPECT_EQ(GetClientField(*app_, 6), "");
  EXPECT_EQ(GetClientField(*app_, 0), "");
  EXPECT_EQ(GetClientField(*app_, 0, "City"), "Durban");
  EXPECT_EQ(GetClientField(*app_, 4, "Last_Name"), "Smith");
  EXPECT_EQ(maxsim_.TakeJournal(),
            (std::vector<std::string>{
                "GetBusyIndicator()", "GetBusyIndicator()",
                "SetFieldValue(\"Date Billed\", \"5/3/2026\")", "GetBusyIndicator()",
                "SetFieldValue(\"Account Number\", \"  SMI001  \")", "GetBusyIndicator()",
                "SetFieldValue(\"Credit Limit\", \"lots\")", "GetBusyIndicator()",
                "GetFieldValue(\"Date Billed\")", "GetBusyIndicator()",
                "GetFieldValue(\"Account Number\")", "GetBusyIndicator()",
                "GetFieldValue(\"Credit Limit\")", "GetBusyIndicator()", "GetFieldValue(\"City\")",
                "GetBusyIndicator()", "GetFieldValue(\"Last_Name\")"}));
  EXPECT_THROW(GetClientField(*app_, 7), RuntimeError);
}

TEST_F(UdfCatalogueTest, FindInListAnswersZeroOrMinusOneWhenNothingMatches) {
  Start();
  ListBox& list = Form().lstBillCUDFs;
  for (const char* text : {"Alpha", "Beta", "Gamma Ray"}) list.AddItem(text);
  int clicks = 0;
  list.SetOnClick([&] { ++clicks; });

  EXPECT_EQ(FindInList("delta", list), 0);  // nothing selected: 0, as if found first
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(FindInList("BETA", list), 1);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(FindInList("delta", list), -1);  // a selection above 0 stays, and -1 says not found
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(FindInList("gamma", list), -1);  // whole entries only
  EXPECT_EQ(FindInList("gamma", list, true), 2);
  EXPECT_EQ(FindInList("alpha", list), 0);  // found at the top: 0 again
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(FindInList("delta", list), 0);
}

}  // namespace
}  // namespace tolmen::test
