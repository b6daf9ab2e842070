// The field codecs against byte images built by hand, with the script front-end catching the
// length messages.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "platform/ui/ScriptUi.h"
#include "recordio/FieldCodecs.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/RuntimeError.h"

namespace tolmen {
namespace {

std::string B(std::initializer_list<int> bytes) {
  std::string out;
  for (int b : bytes) out += static_cast<char>(b);
  return out;
}

// Each number codec as a decoder to a double and an encoder from one.
using Decoder = double (*)(Ui&, const std::string&);
using Encoder = std::string (*)(double);
const Decoder DecB = [](Ui& ui, const std::string& b) -> double { return CvB(ui, b); };
const Decoder DecI = [](Ui& ui, const std::string& b) -> double { return CvI(ui, b); };
const Decoder DecL = [](Ui& ui, const std::string& b) -> double { return CvL(ui, b); };
const Decoder DecS = [](Ui& ui, const std::string& b) -> double { return CvS(ui, b); };
const Decoder DecD = [](Ui& ui, const std::string& b) -> double { return CvD(ui, b); };
const Encoder EncB = [](double v) { return MkB(static_cast<uint8_t>(v)); };
const Encoder EncI = [](double v) { return MkI(static_cast<int16_t>(v)); };
const Encoder EncL = [](double v) { return MkL(static_cast<int32_t>(v)); };
const Encoder EncS = [](double v) { return MkS(static_cast<float>(v)); };

class FieldCodecsTest : public ::testing::Test {
 protected:
  VirtualClock clock_{45366.5};
  std::ostringstream transcript_;
  ScriptUi ui_{{}, &transcript_, clock_, "Tolmen"};
};

TEST_F(FieldCodecsTest, NumbersAreLittleEndianBothWays) {
  struct Case {
    std::string bytes;
    double value;
    Decoder decode;
    Encoder encode;
  };
  const Case cases[] = {{B({0x01}), 1, DecB, EncB},
                        {B({0xFF}), 255, DecB, EncB},
                        {B({0x78, 0x05}), 1400, DecI, EncI},
                        {B({0xFF, 0xFF}), -1, DecI, EncI},
                        {B({0x00, 0x80}), -32768, DecI, EncI},
                        {B({0x88, 0x13, 0x00, 0x00}), 5000, DecL, EncL},
                        {B({0x00, 0x00, 0x00, 0x80}), -2147483648.0, DecL, EncL},
                        {B({0x00, 0x00, 0x20, 0x40}), 2.5, DecS, EncS},
                        {B({0, 0, 0, 0, 0, 0, 0xF8, 0x3F}), 1.5, DecD, MkD},
                        {B({0, 0, 0, 0, 0x10, 0xC2, 0xB2, 0x40}), 4802.0625, DecD, MkD}};
  for (const Case& c : cases) {
    EXPECT_EQ(c.decode(ui_, c.bytes), c.value) << c.value;
    EXPECT_EQ(c.encode(c.value), c.bytes) << c.value;
  }
  EXPECT_EQ(transcript_.str(), "") << "no length message for the right widths";
}

TEST_F(FieldCodecsTest, WrongLengthShowsItsMessageAndGivesZero) {
  struct Case {
    Decoder decode;
    std::string bytes;
    std::string message;
  };
  const Case cases[] = {{DecB, "", "Illegal function call in CvB()"},
                        {DecI, B({1, 2, 3}), "Illegal function call in CvI%()"},
                        {DecL, B({1, 2}), "Illegal function call in CvL&()"},
                        {DecS, std::string(8, '\x01'), "Illegal function call in CvS!()"},
                        {DecD, std::string(7, '\x01'), "Illegal function call in CvD#()"}};
  for (const Case& c : cases) {
    transcript_.str("");
    EXPECT_EQ(c.decode(ui_, c.bytes), 0);
    EXPECT_EQ(transcript_.str(), "== MsgBox | Tolmen | OK | None\n" + c.message + "\n-> OK\n");
  }
}

TEST_F(FieldCodecsTest, DatesDecodeWithRollOverAndBlanks) {
  struct Case {
    std::string bytes;
    double expected;
  };
  const Case cases[] = {
      {"", 0},
      {std::string(4, '\0'), 0},
      {B({0x0F, 0x03, 0xD5, 0x07}), DateSerial(2005, 3, 15)},
      {B({0x1E, 0x0C, 0x6B, 0x07}), 0},                       // 30 December 1899 itself
      {B({0x01, 0x0D, 0xD5, 0x07}), DateSerial(2006, 1, 1)},  // month 13 of 2005
      {B({0x1F, 0x02, 0xE8, 0x07}), DateSerial(2024, 3, 2)},  // 31 February 2024
      {B({0x02, 0x05, 0x05, 0x00}), DateSerial(2005, 5, 2)},  // year 5
      {B({0x02, 0x05, 0x5F, 0x00}), DateSerial(1995, 5, 2)},  // year 95
      {std::string(8, '\0'), DateSerial(1999, 11, 30)},       // eight bytes are never blank
      {B({0x0F, 0x03, 0xD5, 0x07, 0x20, 0x20, 0x20, 0x20}), DateSerial(2005, 3, 15)},
      {B({0x01, 0x01, 0x10, 0x27}), 0},  // year 10000: no date, no message
  };
  for (const Case& c : cases) EXPECT_EQ(CvDate(ui_, c.bytes), c.expected) << c.expected;
  EXPECT_EQ(transcript_.str(), "");
}

TEST_F(FieldCodecsTest, DatesEncodeWithoutTimeAndZeroIsNotBlank) {
  EXPECT_EQ(MkDate(DateSerial(2005, 3, 15)), B({0x0F, 0x03, 0xD5, 0x07}));
  EXPECT_EQ(MkDate(DateSerial(2005, 3, 15) + 0.75), B({0x0F, 0x03, 0xD5, 0x07}));
  EXPECT_EQ(MkDate(0), B({0x1E, 0x0C, 0x6B, 0x07}));
  // A blank decodes to 0, and 0 encodes as a real date: the blank does not survive.
  EXPECT_NE(MkDate(CvDate(ui_, ZeroBytes(4))), ZeroBytes(4));
  EXPECT_THROW(MkDate(3e6), RuntimeError);
}

TEST_F(FieldCodecsTest, TimesFlagsAndHelpers) {
  EXPECT_DOUBLE_EQ(CvTime(B({99, 30, 15, 10})), TimeSerial(10, 15, 30));
  EXPECT_EQ(CvTime(ZeroBytes(4)), 0);
  EXPECT_EQ(CvTime(""), 0);

  const std::pair<std::string, bool> flags[] = {{B({0x01}), true},  {B({0x00}), false},
                                                {B({0x02}), false}, {B({0xFF}), false},
                                                {"Y", false},       {B({0x01, 0x00}), false}};
  for (const auto& [bytes, value] : flags) EXPECT_EQ(CvBool(bytes), value);
  EXPECT_EQ(MkBool(-1), B({0x01}));
  EXPECT_EQ(MkBool(1), B({0x00}));
  EXPECT_EQ(MkBool(0), B({0x00}));

  EXPECT_EQ(ZeroBytes(0), "");
  EXPECT_EQ(ZeroBytes(3), std::string(3, '\0'));
  EXPECT_THROW(ZeroBytes(-1), RuntimeError);

  for (const Variant& yes :
       {Variant("True"), Variant(" false "), Variant("0"), Variant(), Variant(2.5), Variant(true)})
    EXPECT_TRUE(IsBoolean(yes)) << CStr(yes);
  for (const Variant& no : {Variant("Y"), Variant(""), Variant::Null()})
    EXPECT_FALSE(IsBoolean(no));
}

}  // namespace
}  // namespace tolmen
