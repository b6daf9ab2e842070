// The document strings: what the header and line checks accept, the amounts a line is completed
// to, the toolkit's state across a document, and the sentences of the status strings.
#include <gtest/gtest.h>

#include "../pastel/PastelTestSet.h"
#include "toolkit/ToolkitStatus.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen {
namespace {

TEST(ToolkitStatusText, SentenceForEveryKindOfCode) {
  const std::array<const char*, 3> cases[] = {
      {"0|", "", "Operation successful ()"},
      {"0|A1=100|114", "Invoice Posted ", "Invoice Posted  (A1=100|114)"},
      {"11|", "", "Invalid period number (1 to 13) ()"},
      {"3|", "ignored", "Record update failed ()"},
      {"5", "ACME", "Code is not in Pastel ACME"},
      {"23|", "", "Transaction amount cannot be less that the tax amount ()"},
      {"90|9 End of file", "", "BTrieve Error  (9 End of file)"},
      {"99|", "Type mismatch", "Runtime Error Type mismatch ()"},
      {"8|", "x", "Undefined Error x ()"},
      {"abc|d", "", "Operation successful (d)"},
  };
  for (const auto& [status, extra, text] : cases)
    EXPECT_EQ(ToolkitStatusText(status, extra), text) << status;
}

class DocumentStringsTest : public testing::PastelSetTest {
 protected:
  void SetUp() override {
    PastelSetTest::SetUp();
    Start({});
    app_->billing.BillingVATRate = 14;
  }
  quilletToolkit& Toolkit() { return app_->toolkit; }
  std::string DefineHeader(std::string text) { return Toolkit().DefineDocumentHeader(text); }
  std::string DefineLine(std::string text) { return Toolkit().DefineDocumentLine(text); }
};

TEST_F(DocumentStringsTest, HeaderChecksOnlyDatesAndNumbers) {
  const std::string to20(19, '|'), to24(23, '|');  // the pipes in front of fields 20 and 24
  const std::tuple<std::string, std::string, std::int32_t> cases[] = {
      {"", "", 0},
      {"INV1|N||ACME|15/03/2024||Y|2.5", "", 1},
      {"no number|||CUSTOMERCODE||" + std::string(200, 'm') + "|2", "", 2},
      {"||||15 Mar 2024||y", "", 1},
      {"||||31/02/2024||N", "Invalid Date", 0},
      {"|||||||ten", "Invalid Discount", 0},
      {to20 + "2024-13-01", "Invalid Closing Date", 0},
      {to24 + "1.2.3", "Invalid Exchange Rate", 0},
  };
  for (const auto& [header, result, incExc] : cases) {
    Toolkit().IncExc = 0;
    EXPECT_EQ(DefineHeader(header), result) << header;
    EXPECT_EQ(Toolkit().IncExc, incExc) << header;
    EXPECT_EQ(Toolkit().HeaderText, result.empty() ? header : "") << header;
    EXPECT_DOUBLE_EQ(Toolkit().TaxRate, 0.14);
  }
}

TEST_F(DocumentStringsTest, LinesAreCheckedCompletedCountedAndTotalled) {
  struct Case {
    std::string line;
    std::string result;
    double quantity, cost, exclusive, inclusive;
  };
  const Case cases[] = {
      {"|1|100|||01|||1000000|Annual fee|6||CC", "", 1, 0, 100, 114},
      {"a|1|100", "Invalid Cost Price", 0, 0, 0, 0},
      {"|x", "Invalid Quantity", 0, 0, 0, 0},
      {"||1..5", "Invalid Unit Selling Price", 0, 0, 0, 0},
      {"|||z", "Invalid Inclusive Price", 0, 0, 0, 0},
      {"||78.95", "", 1, 0, 78.95, 90},              // 90.003
      {"|||90", "", 1, 0, 78.95, 90},                // 78.947
      {"50|||114", "", 1, 50, 50, 114},              // the cost wins over the inclusive price
      {"|3|100|114|EA|01|1|x", "", 3, 0, 100, 114},  // only N fields are checked
      {"|-2|5", "", -2, 0, 5, 5.7},
      {"|0", "", 1, 0, 0, 0},
  };
  ASSERT_EQ(DefineHeader(""), "");
  std::int32_t count = 0;
  double exclusive = 0, inclusive = 0;
  for (const Case& c : cases) {
    EXPECT_EQ(DefineLine(c.line), c.result) << c.line;
    if (c.result.empty()) ++count;
    EXPECT_EQ(Toolkit().LineCount, count) << c.line;
    if (!c.result.empty()) continue;
    const auto at = static_cast<size_t>(count);
    EXPECT_EQ(Toolkit().LineTexts[at], c.line);
    EXPECT_EQ(Toolkit().LineQuantity[at], c.quantity) << c.line;
    EXPECT_EQ(Toolkit().LineCost[at], c.cost) << c.line;
    EXPECT_DOUBLE_EQ(Toolkit().LineExclusive[at], c.exclusive) << c.line;
    EXPECT_DOUBLE_EQ(Toolkit().LineInclusive[at], c.inclusive) << c.line;
    exclusive += c.quantity * c.exclusive;
    inclusive += c.quantity * c.inclusive;
  }
  EXPECT_DOUBLE_EQ(Toolkit().TotalExclusive, exclusive);
  EXPECT_DOUBLE_EQ(Toolkit().TotalInclusive, inclusive);
}

TEST_F(DocumentStringsTest, EleventhLineWipesEarlierAmountsAndANewHeaderDropsTheLines) {
  ASSERT_EQ(DefineHeader(""), "");
  for (int line = 1; line <= 11; ++line) ASSERT_EQ(DefineLine("|1|" + std::to_string(line)), "");
  EXPECT_EQ(Toolkit().LineTexts[1], "|1|1");
  EXPECT_EQ(Toolkit().LineExclusive[1], 0);
  EXPECT_EQ(Toolkit().LineQuantity[10], 0);
  EXPECT_EQ(Toolkit().LineExclusive[11], 11);
  EXPECT_DOUBLE_EQ(Toolkit().TotalExclusive, 66);

  ASSERT_EQ(DefineHeader("X"), "");
  EXPECT_EQ(Toolkit().TotalExclusive, 0);
  ASSERT_EQ(DefineLine("|2|5"), "");
  EXPECT_EQ(Toolkit().LineTexts[2], "");  // a new document's arrays
  EXPECT_DOUBLE_EQ(Toolkit().TotalInclusive, 11.4);
}

}  // namespace
}  // namespace tolmen
