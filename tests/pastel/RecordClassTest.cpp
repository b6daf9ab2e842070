// The record classes on real record files made by pasteldata's library code: fields land at
// their offsets with their widths, the conversions of default_, the odd fields, the protocol.
#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "PastelTestSet.h"
#include "common/ErrorOf.h"
#include "pastel/pasDCParm.h"
#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasGParm.h"
#include "pastel/pasHisDetail.h"
#include "pastel/pasHisHeader.h"
#include "pastel/pasStk.h"
#include "pastel/pasTaxParameters.h"
#include "recordio/FieldCodecs.h"
#include "runtime/Conversion.h"

namespace tolmen {
namespace {

using namespace std::string_literals;
using testing::DemoSet;
using testing::PastelSetTest;
using json = nlohmann::json;

std::string B(std::initializer_list<int> bytes) {
  std::string out;
  for (int b : bytes) out += static_cast<char>(b);
  return out;
}

std::string Padded(const std::string& text, size_t width) {
  return text + std::string(width - text.size(), ' ');
}

class RecordClassTest : public PastelSetTest {};

TEST_F(RecordClassTest, FieldsLandAtTheirOffsetsWithTheirWidths) {
  struct Case {
    std::string file;
    std::string field;
    json value;
    size_t offset;
    std::string bytes;  // built here, not by the codecs
  };
  const std::string email(60, 'e');
  const Case cases[] = {
      {"AccMasD.dat", "2", "ZZZ9", 2, "ZZZ9  "},
      {"AccMasD.dat", "3", "Abc", 8, Padded("Abc", 40)},
      {"AccMasD.dat", "4", 1.5, 48, B({0, 0, 0, 0, 0, 0, 0xF8, 0x3F})},
      {"AccMasD.dat", "16", 2.0, 144, B({0, 0, 0, 0, 0, 0, 0, 0x40})},  // period 13
      {"AccMasD.dat", "68", true, 650, B({1})},
      {"AccMasD.dat", "75", 5000, 660, B({0x88, 0x13, 0, 0})},
      {"AccMasD.dat", "76", -1, 664, B({0xFF, 0xFF})},
      {"AccMasD.dat", "124", "02/05/2024 09:15:00", 1071, "02/05/2024 09:15:00"},
      {"AccMasD.dat", "127", "2024-05-02", 1092, B({2, 5, 0xE8, 7})},
      {"accDeliv.dat", "5", "021 555 0101 ext9", 30, "021 555 0101 ext"},  // 17th lost
      {"accDeliv.dat", "13", email, 228, email.substr(0, 50)},
      {"accdcat.dat", "2", "Retail", 2, Padded("Retail", 30)},
      {"accprmgl.dat", "8", 4, 28, B({4, 0})},
      {"accprmgl.dat", "49", "2025-02-28", 208, B({28, 2, 0xE9, 7})},
      {"accprmgl.dat", "89", 4, 784, B({4, 0})},
      {"accprmgl.dat", "681", 1, 786, B({1})},
      {"accprmgl.dat", "660", "Co", 3524, Padded("Co", 40)},
      {"accprmgl.dat", "680", "xyz", 3887, "xyz"},
      {"accprmdc.dat", "3", 2.5, 2, B({0, 0, 0x20, 0x40})},
      {"accprmdc.dat", "9", 5000, 21, B({0x88, 0x13, 0, 0})},
      {"accprmdc.dat", "67", "second", 904, Padded("second", 10)},  // column 2, row 0
      {"accprmdc.dat", "393", true, 1649, B({1, 0})},  // a flag on two bytes sets the first
      {"AccUser.dat", "3", "MANAGER", 9, Padded("MANAGER", 10)},
      {"AccPrmsy.dat", "13", "9\u0001\u0005", 991, B({'9', 1, 5})},
      {"Accprmtx.dat", "8", 1400, 22, B({0x78, 0x05})},
      {"ACCHISTH.DAT", "41", "end", 443, Padded("end", 20)},
      {"ACCHISTL.DAT", "26", "2024-05-02", 180, B({2, 5, 0xE8, 7, ' ', ' ', ' ', ' '})},
  };
  // Each file's one record holds every field given for it.
  std::map<std::string, json> records;
  for (const Case& c : cases) records[c.file][c.field] = c.value;
  for (auto& [file, record] : records) Files()[file] = json::array({record});
  MakeSet();
  for (const Case& c : cases) {
    EXPECT_EQ(FirstRecord(c.file).substr(c.offset, c.bytes.size()), c.bytes)
        << c.file << " field " << c.field;
  }
}

TEST_F(RecordClassTest, DefaultConvertsAsTheRuntimeDid) {
  Start({});
  pasDebtor debtor(*app_);
  const std::string before = debtor.Image();
  // Field numbers outside the table: an empty value, nothing changed.
  EXPECT_TRUE(debtor.default_(0).IsEmpty());
  EXPECT_TRUE(debtor.default_(128).IsEmpty());
  debtor.default_(128, "x");
  debtor.default_(-1, "x");
  EXPECT_EQ(debtor.Image(), before);

  struct Case {
    int field;
    Variant value;
    std::string bytes;
    size_t offset;
  };
  const Case cases[] = {
      {4, "", std::string(8, '\0'), 48},  // an empty text is 0.0
      {1, "12abc", B({12, 0}), 0},        // leading-number scan
      {1, 2.5, B({2, 0}), 0},             // halves to even
      {1, 3.5, B({4, 0}), 0},
      {1, "-7.5", B({0xF8, 0xFF}), 0},
      {75, "1e3", B({0xE8, 0x03, 0, 0}), 660},
      {127, "", B({0, 0, 0, 0}), 1092},  // the one way to a blank date
      {127, Variant::FromDate(0), B({0x1E, 0x0C, 0x6B, 0x07}), 1092},
      {127, "15 Mar 2005", B({0x0F, 0x03, 0xD5, 0x07}), 1092},
      {127, 45000.0, B({0, 0, 0, 0}), 1092},  // a plain number is no date
      {68, "True", B({1}), 650},
      {68, 1, B({1}), 650},    // its truth value is the canonical -1
      {68, "Y", B({0}), 650},  // no truth value: false
      {3, "Bob", Padded("Bob", 40), 8},
  };
  for (const Case& c : cases) {
    debtor.default_(c.field, c.value);
    EXPECT_EQ(debtor.Image().substr(c.offset, c.bytes.size()), c.bytes) << "field " << c.field;
  }
  EXPECT_EQ(debtor.default_(3).Text(), Padded("Bob", 40));  // padding comes back

  for (const Variant& tooBig : {Variant(70000), Variant("32768")})
    EXPECT_EQ(ErrorOf([&] { debtor.default_(1, tooBig); }), 6) << CStr(tooBig);
  debtor.default_(127, "");
  EXPECT_EQ(debtor.default_(127).VarType(), vbDate);
  EXPECT_EQ(debtor.default_(127).Value(), 0);
}

TEST_F(RecordClassTest, ParameterFilesOddFields) {
  Start({});
  pasDCParm dc(*app_);
  // Two columns of five, interleaved.
  const std::pair<int, size_t> places[] = {{66, 854}, {67, 904}, {68, 864},  {69, 914},
                                           {75, 944}, {76, 954}, {77, 1004}, {85, 1044}};
  for (const auto& [field, offset] : places) {
    const std::string text = "F" + std::to_string(field);
    dc.default_(field, text);
    EXPECT_EQ(dc.Image().substr(offset, 10), Padded(text, 10)) << field;
    EXPECT_EQ(dc.default_(field).Text(), Padded(text, 10));
  }
  EXPECT_TRUE(dc.default_(5).IsEmpty());
  dc.default_(393, true);
  EXPECT_FALSE(CBool(dc.default_(393)));  // read on two bytes: never true
  EXPECT_EQ(dc.MaxFields(), 390);

  pasGParm gl(*app_);
  gl.default_(50, "2024-01-31");
  EXPECT_EQ(gl.default_(63).Text(), B({31, 1, 0xE8, 7}));  // field 50's bytes as text
  EXPECT_EQ(gl.default_(76).Text(), B({31, 1, 0xE8, 7}));
  gl.default_(681, 2);
  EXPECT_EQ(gl.Image().substr(786, 1), B({2}));
  EXPECT_EQ(gl.MaxFields(), 680);
  EXPECT_EQ(transcript_.str(), "");
  EXPECT_EQ(CInt(gl.default_(9)), 0);  // thirteen bytes through CvI
  EXPECT_NE(transcript_.str().find("Illegal function call in CvI%()"), std::string::npos);

  pasStk stock(*app_);
  EXPECT_TRUE(stock.default_(25).IsEmpty());
  EXPECT_EQ(stock.MaxFields(), 27);
  pasHisDetail detail(*app_);
  EXPECT_EQ(detail.ClassName, "clsStk");
  // Eight zero bytes are no blank: day 0, month 0, year 0 roll over.
  EXPECT_EQ(detail.default_(26).Value(), DateSerial(1999, 11, 30));
}

TEST_F(RecordClassTest, TaxTableIsReadOnlyAndBounded) {
  MakeSet();
  pasTaxParameters tax(*app_);
  EXPECT_EQ(tax.DBLen, 2765);
  EXPECT_EQ(tax.Image().size(), 2688u);
  tax.FOpen(Folder() + "Accprmtx.dat");
  ASSERT_EQ(tax.STATUS_, 0);
  EXPECT_EQ(tax.DBLen, 2757);
  EXPECT_EQ(tax.TaxPercentage(1), 1500);
  EXPECT_EQ(tax.TaxPercentage(3), 1400);
  EXPECT_EQ(CInt(tax.default_(8)), 1400);
  tax.default_(8, 99);
  EXPECT_EQ(tax.TaxPercentage(3), 1400);
  for (int code : {0, 100}) EXPECT_EQ(ErrorOf([&] { tax.TaxPercentage(code); }), 9) << code;
}

TEST_F(RecordClassTest, RecordCountReadsThroughItsHexText) {
  for (const auto& [records, count] : {std::pair{261, 21}, std::pair{300, 300}, std::pair{3, 3}}) {
    set_ = DemoSet();
    json debtors = json::array();
    for (int i = 0; i < records; ++i) debtors.push_back({{"2", "D" + std::to_string(10000 + i)}});
    Files()["AccMasD.dat"] = debtors;
    Start({});
    MakeSet();
    pasDebtor debtor(*app_);
    EXPECT_EQ(debtor.RecordCount(), 0);  // not open: the record manager is not asked
    EXPECT_EQ(debtor.STATUS_, 0);
    debtor.FileName = Folder() + "AccMasD.dat";
    debtor.OPEN_();
    EXPECT_EQ(debtor.RecordCount(), count) << records;
    debtor.CLOSE_();
    EXPECT_EQ(debtor.RecordCount(), 0);
  }
}

TEST_F(RecordClassTest, ProtocolOpensWalksSearchesAndWrites) {
  MakeSet();
  pasDcodeFile categories(*app_);
  categories.OPEN_();  // no file name: nothing happens
  EXPECT_FALSE(categories.IsOpen);
  categories.FileName = "\"" + Folder() + "ACCDCAT.DAT\"";
  categories.OPEN_();
  ASSERT_TRUE(categories.IsOpen);
  std::vector<std::string> seen;
  for (categories.GET_LOWEST(); categories.STATUS_ == 0; categories.GET_NEXT())
    seen.push_back(std::to_string(CInt(categories.default_(1))) + " " +
                   categories.default_(2).Text());
  EXPECT_EQ(categories.STATUS_, 9);
  EXPECT_EQ(seen,
            (std::vector<std::string>{"1 " + Padded("Retail", 30), "2 " + Padded("Wholesale", 30),
                                      "3 " + Padded("Retail Sales", 30)}));
  categories.default_(1, 7);
  categories.default_(2, "New");
  categories.INSERT();
  EXPECT_EQ(categories.STATUS_, 0);
  categories.CLOSE_();
  EXPECT_FALSE(categories.IsOpen);
  categories.OPEN_();  // reopens by FileName
  categories.GET_EQUAL(MkI(7));
  EXPECT_EQ(categories.STATUS_, 0);
  EXPECT_EQ(categories.default_(2).Text(), Padded("New", 30));

  pasDebtor debtor(*app_);
  debtor.FOpen(Folder() + "AccMasD.dat", std::nullopt, std::string("OWNER"));
  EXPECT_EQ(debtor.STATUS_, 0);
  EXPECT_EQ(debtor.DBLen, debtor.RecordLength);
  EXPECT_EQ(debtor.default_(2).Text(), "ABE001");  // positioned on the first record
  debtor.GET_EQUAL("CAR001");
  EXPECT_EQ(debtor.STATUS_, 0);
  EXPECT_EQ(CLng(debtor.default_(75)), 20000);
  debtor.GET_LESS_THAN_OR_EQUAL("CZZZZZ");
  EXPECT_EQ(debtor.default_(2).Text(), "CAR001");
  debtor.GET_EQUAL("NONE01");
  EXPECT_EQ(debtor.STATUS_, 4);

  // The debtor never writes through the record manager.
  debtor.DELETE();
  EXPECT_NE(transcript_.str().find("Can't Delete Pastel Debtor!"), std::string::npos);
  EXPECT_NE(transcript_.str().find("| Exclamation"), std::string::npos);
  debtor.default_(2, "NEW001");
  debtor.STATUS_ = 77;
  debtor.INSERT();  // WriteCsv is off: no line, status 0
  EXPECT_EQ(debtor.STATUS_, 0);
  EXPECT_EQ(debtor.RecordCount(), 4);
  debtor.GET_EQUAL("NEW001");
  EXPECT_EQ(debtor.STATUS_, 4);
}

}  // namespace
}  // namespace tolmen
