// Casual billing rules as text: a rule cut into its pieces, and the checks of the stock item a
// rule bills. Tables of rule texts and item readings.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "billing/CasualRule.h"
#include "templates/TemplateLine.h"

namespace tolmen {
namespace {

std::vector<std::string> Documents() {
  std::vector<std::string> names;
  for (const CasualDocument& document : kCasualDocuments) names.push_back(document.name);
  return names;
}

struct ParseCase {
  const char* name;
  std::string rule;
  CasualBill pieces;
};

TEST(CasualRuleTest, ParseCasualBillCutsARuleIntoItsPieces) {
  const ParseCase cases[] = {
      {"with a price",
       "If <Membership> Contains \"GOLD\" then Batch Invoice <FEE01> Annual fee: Price 100.00",
       {"Membership", "GOLD", "Batch Invoice", 2, "FEE01", "Annual fee: Price 100.00"}},
      {"without a price",
       "If <Membership> Contains \"GOLD\" then Quote <FEE01> Annual fee",
       {"Membership", "GOLD", "Quote", 0, "FEE01", "Annual fee"}},
      {"a colon in the description",
       "If <Level> Contains \"A\" then Sales Order <K9> Fee: June: Price 5.00",
       {"Level", "A", "Sales Order", 1, "K9", "Fee: June: Price 5.00"}},
      {"an old template's \"then Invoice\"",
       BillFromTemplate("If <Membership> Contains \"GOLD\" then Invoice <FEE01> Fee"),
       {"Membership", "GOLD", "Batch Invoice", 2, "FEE01", "Fee"}},
      {"\"then Invoice\" not rewritten is no document",
       "If <Membership> Contains \"GOLD\" then Invoice <FEE01> Fee",
       {"Membership", "GOLD", "Invoice", -1, "FEE01", "Fee"}},
      {"the trigger and the pieces are trimmed, the document's case ignored",
       "If <Club UDF>  Contains \" a b \"  then  batch credit note < C 1 >  Two words ",
       {"Club UDF", "a b", "batch credit note", 3, "C 1", "Two words"}},
      {"a colon in the code cuts at \": \", which is not there",
       "If <U> Contains \"x\" then Quote <AB:1> Thing",
       {"U", "x", "Quote", 0, "AB:1> Thing", ""}},
      {"the UDF name starts at the fifth character, whatever comes before",
       "If<Membership> Contains \"G\" then Quote <F> x",
       {"embership", "G", "Quote", 0, "F", "x"}},
      {"no inventory code",
       "If <U> Contains \"x\" then Batch Debit Note",
       {"U", "x", "Batch Debit Note", 4, "", ""}},
  };
  for (const ParseCase& c : cases)
    EXPECT_EQ(ParseCasualBill(c.rule, Documents()), c.pieces) << c.name;
}

TEST(CasualRuleTest, AStockItemIsBilledOnlyWithAPriceAboveZeroATaxCodeAndADescription) {
  const StockItemFacts good{"", "100.00", "1", "Annual fee"};
  struct Case {
    StockItemFacts item;
    std::string fault;
  };
  const std::string cannot = "Code <FEE01> can not be Invoiced: ";
  const Case cases[] = {
      {good, ""},
      {{"FEE02 not found, got FEE01", "", "1", "Annual fee"},
       cannot + "Price Error: FEE02 not found, got FEE01"},
      {{"", "-5.00", "1", "Annual fee"}, cannot + "Bad Price (-5.00)"},
      {{"", "0.00", "1", "Annual fee"}, cannot + "Bad Price (0.00)"},
      {{"", "", "1", "Annual fee"}, cannot + "Bad Price ()"},
      {{"", "0.01", "** Missing VAT Code for FEE01", "** Missing Description for FEE01"},
       cannot + "VAT Code Error: ** Missing VAT Code for FEE01"},
      {{"", "0.01", "1", "** Missing Description for FEE01"},
       cannot + "Description Error: ** Missing Description for FEE01"},
  };
  for (const Case& c : cases) EXPECT_EQ(StockItemFault("FEE01", c.item), c.fault) << c.fault;
  EXPECT_EQ(CasualLineString("FEE01", good), "|1|100.00|||1|||FEE01|Annual fee|4|");
}

}  // namespace
}  // namespace tolmen
