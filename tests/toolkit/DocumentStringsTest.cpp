// The document strings: what the header and line checks accept, the amounts a line is completed
// to, the toolkit's state across a document, and the sentences of the status strings.
#include <gtest/gtest.h>

#include "../pastel/PastelTestSet.h"
#include "toolkit/DocumentStrings.h"
#include "toolkit/ToolkitStatus.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen {
namespace {

using testing::PastelSetTest;

TEST(ToolkitStatusText, SentenceForEveryKindOfCode) {
  struct Case {
    const char* status;
    const char* extra;
    const char* text;
  };
  const Case cases[] = {
      {"0|", "", "Operation successful ()"},
      {"0|A1=100|114", "Invoice Posted ", "Invoice Posted  (A1=100|114)"},
      {"1|", "", "File not found ()"},
      {"11|", "", "Invalid period number (1 to 13) ()"},
      {"3|", "ignored", "Record update failed ()"},
      {"5|ACME", "ACME", "Code is not in Pastel ACME (ACME)"},
      {"5", "ACME", "Code is not in Pastel ACME"},
      {"23|", "", "Transaction amount cannot be less that the tax amount ()"},
      {"90|9 End of file", "", "BTrieve Error  (9 End of file)"},
      {"99|", "Type mismatch", "Runtime Error Type mismatch ()"},
      {"8|", "x", "Undefined Error x ()"},
      {"32", "", "Undefined Error "},
      {"abc|d", "", "Operation successful (d)"},
  };
  for (const Case& c : cases) EXPECT_EQ(ToolkitStatusText(c.status, c.extra), c.text) << c.status;
}

TEST(DocumentStrings, LineAmountsAreCompletedInOrder) {
  struct Case {
    LineAmounts given;
    double taxRate;
    LineAmounts done;
  };
  const Case cases[] = {
      {{1, 0, 100, 0}, 0.14, {1, 0, 100, 114}},
      {{0, 0, 0, 0}, 0.14, {1, 0, 0, 0}},           // an empty line
      {{0, 50, 0, 114}, 0.14, {1, 50, 50, 114}},    // cost wins over the inclusive price
      {{1, 0, 78.95, 0}, 0.14, {1, 0, 78.95, 90}},  // 90.003 rounds to 90
      {{1, 0, 0, 90}, 0.14, {1, 0, 78.95, 90}},     // 78.947 rounds to 78.95
      {{3, 0, 100, 114}, 0.14, {3, 0, 100, 114}},   // given prices stand
      {{-2, 0, 5, 0}, 0, {-2, 0, 5, 5}},            // a negative quantity stays
      {{1, 0, 0.125, 0}, 0, {1, 0, 0.125, 0.12}},   // halves go to the even cent
      {{1, 0, 0, 0.375}, 0, {1, 0, 0.38, 0.375}},
  };
  for (const Case& c : cases) {
    const LineAmounts done = CompleteLineAmounts(c.given, c.taxRate);
    EXPECT_EQ(done.quantity, c.done.quantity);
    EXPECT_EQ(done.cost, c.done.cost);
    EXPECT_DOUBLE_EQ(done.exclusive, c.done.exclusive) << c.given.inclusive;
    EXPECT_DOUBLE_EQ(done.inclusive, c.done.inclusive) << c.given.exclusive;
  }
}

// A header string with the given fields (numbered from 1) and the rest empty.
std::string Header(std::map<int, std::string> fields) {
  std::string text;
  for (int field = 1; field <= kHeaderFieldCount; ++field) text += fields[field] + "|";
  return text;
}

class DocumentStringsTest : public PastelSetTest {
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
  struct Case {
    std::string header;
    std::string result;
    std::int32_t incExc;
  };
  const Case cases[] = {
      {"", "", 0},
      {Header({{1, "INV1"}, {4, "ACME"}, {5, "15/03/2024"}, {7, "Y"}, {8, "2.5"}}), "", 1},
      {Header({{1, "no number"}, {4, "CUSTOMERCODE"}, {9, std::string(200, 'm')}, {7, "2"}}), "",
       2},
      {Header({{7, "y"}, {20, "15 Mar 2024"}, {24, "1.5"}}), "", 1},
      {Header({{7, "N"}, {5, "31/02/2024"}}), "Invalid Date", 0},
      {Header({{8, "ten"}}), "Invalid Discount", 0},
      {Header({{20, "2024-13-01"}}), "Invalid Closing Date", 0},
      {Header({{24, "1.2.3"}}), "Invalid Exchange Rate", 0},
  };
  for (const Case& c : cases) {
    Toolkit().IncExc = 0;
    EXPECT_EQ(DefineHeader(c.header), c.result) << c.header;
    EXPECT_EQ(Toolkit().IncExc, c.incExc) << c.header;
    EXPECT_EQ(Toolkit().HeaderText, c.result.empty() ? c.header : "") << c.header;
    EXPECT_DOUBLE_EQ(Toolkit().TaxRate, 0.14);
  }
}

TEST_F(DocumentStringsTest, LinesAreCheckedCountedAndTotalled) {
  struct Case {
    std::string line;
    std::string result;
    double quantity, cost, exclusive, inclusive;
  };
  const Case cases[] = {
      {"|1|100|||01|||1000000|Annual fee|6||CC", "", 1, 0, 100, 114},
      {"a|1|100", "Invalid Cost Price", 0, 0, 0, 0},
      {"|x", "Invalid Quantity", 0, 0, 0, 0},
      {"||1,5", "", 1, 0, 1, 1.14},  // numeric as a whole, read up to the comma
      {"|||z", "Invalid Inclusive Price", 0, 0, 0, 0},
      {"|3|100|114|EA|01|1|x", "", 3, 0, 100, 114},  // only N fields are checked
      {"||78.95", "", 1, 0, 78.95, 90},
      {"", "", 1, 0, 0, 0},
  };
  ASSERT_EQ(DefineHeader(""), "");
  std::int32_t count = 0;
  double exclusive = 0, inclusive = 0;
  for (const Case& c : cases) {
    EXPECT_EQ(DefineLine(c.line), c.result) << c.line;
    if (!c.result.empty()) {
      EXPECT_EQ(Toolkit().LineCount, count) << c.line;
      continue;
    }
    const auto at = static_cast<size_t>(++count);
    EXPECT_EQ(Toolkit().LineCount, count);
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
  EXPECT_EQ(Toolkit().LineTexts.size(), 22u);  // bound 21
  EXPECT_EQ(Toolkit().LineTexts[1], "|1|1");
  EXPECT_EQ(Toolkit().LineExclusive[1], 0);
  EXPECT_EQ(Toolkit().LineQuantity[10], 0);
  EXPECT_EQ(Toolkit().LineExclusive[11], 11);
  EXPECT_DOUBLE_EQ(Toolkit().TotalExclusive, 66);

  ASSERT_EQ(DefineHeader("X"), "");
  EXPECT_EQ(Toolkit().LineCount, 0);
  EXPECT_EQ(Toolkit().TotalExclusive, 0);
  ASSERT_EQ(DefineLine("|2|5"), "");
  EXPECT_EQ(Toolkit().LineTexts.size(), 11u);  // a new document's arrays
  EXPECT_EQ(Toolkit().LineTexts[2], "");
  EXPECT_DOUBLE_EQ(Toolkit().TotalInclusive, 11.4);
}

TEST_F(DocumentStringsTest, DeadRoutinesAnswerAsTheInterfaceSays) {
  std::string batch = "101|15/03/2024|G|1000000";
  EXPECT_EQ(Toolkit().ImportGLBatch(batch, "x"), "");
  EXPECT_EQ(batch, "101|15/03/2024|G|1000000");
  // The date format is never found ("ACCPRMSY" is no table of the toolkit): the general form.
  EXPECT_EQ(Toolkit().FormatDate(DateSerial(2024, 3, 15)), "15/03/2024");
}

}  // namespace
}  // namespace tolmen
