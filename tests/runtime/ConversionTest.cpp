#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "common/ErrorOf.h"
#include "runtime/Conversion.h"

namespace tolmen {
namespace {

TEST(RoundHalfEven, HalvesGoToTheEvenNeighbour) {
  const struct {
    double in, out;
  } cases[] = {{2.5, 2}, {3.5, 4}, {-2.5, -2}, {-3.5, -4},       {0.5, 0},    {1.5, 2},
               {2.4, 2}, {2.6, 3}, {-0.5, 0},  {32767.5, 32768}, {-1.49, -1}, {1e16, 1e16}};
  for (const auto& c : cases) EXPECT_EQ(RoundHalfEven(c.in), c.out) << c.in;
  EXPECT_EQ(Round(0.125, 2), 0.12);
  EXPECT_EQ(Round(0.375, 2), 0.38);
  EXPECT_EQ(Round(78.95 * 1.14, 2), 90);
  EXPECT_EQ(Round(-1.005, 1), -1);
  EXPECT_EQ(Round(2.5), 2);
}

TEST(Val, ScansTheLeadingNumber) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"12abc", 12},
      {"  1615 198th Street N.E.", 1615198},
      {"", 0},
      {"-3.5e2x", -350},
      {"&H1F", 31},
      {"&O17", 15},
      {"&17", 15},
      {"&HFFFF", -1},  // four hex digits make a 16-bit Integer
      {"&H10000", 65536},
      {"&HFFFFFFFF", -1},
      {".5", 0.5},
      {"1.2.3", 1.2},
      {"1 2\t3\n4", 1234},
      {"- 7", -7},
      {"+7", 7},
      {"--5", 0},
      {"abc", 0},
      {"1e", 1},
      {"1e+", 1},
      {"1,000", 1},
      {"1d2", 100},
      {"\r12", 0},  // a carriage return is not skipped
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
  EXPECT_EQ(ErrorOf([] { Val("1e400"); }), 6);
  EXPECT_EQ(ErrorOf([] { Val("&H100000000"); }), 6);
}

TEST(IsNumeric, FollowsTheWholeTextGrammar) {
  const char* numeric[] = {" 12 ", "1e3", "&H10", "&o17", "-1.5",    "1,000",  "1-",
                           "(12)", "+.5", "1.",   "- 1",  "\t7\r\n", "1.5E-3", "1D2"};
  const char* notNumeric[] = {"12abc", "",    ".",   "+",   "1e", "1-2", "--1", "(12",
                              "1 2",   "&HG", "12)", "$12", "&H", " ",   "e5",  "1e400"};
  for (const char* t : numeric) EXPECT_TRUE(IsNumeric(t)) << t;
  for (const char* t : notNumeric) EXPECT_FALSE(IsNumeric(t)) << t;
  EXPECT_TRUE(IsNumeric(Variant()));
  EXPECT_TRUE(IsNumeric(true));
  EXPECT_FALSE(IsNumeric(Variant::Null()));
  EXPECT_FALSE(IsNumeric(Variant::FromDate(45366)));
}

TEST(WholeConversions, RoundHalvesToEvenWithinTheirRange) {
  const struct {
    Variant in;
    int cint;
  } cases[] = {{2.5, 2},
               {3.5, 4},
               {-2.5, -2},
               {-3.5, -4},
               {0.5, 0},
               {32767.4, 32767},
               {-32768.5, -32768},
               {"12", 12},
               {" 12 ", 12},
               {"1,000", 1000},
               {"2.5", 2},
               {"-1.5", -2},
               {"&HFFFF", -1},
               {"1-", -1},
               {true, -1},
               {Variant(), 0},
               {Variant::FromDate(1.5), 2}};
  for (const auto& c : cases) EXPECT_EQ(CInt(c.in), c.cint) << CStr(c.in);

  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  EXPECT_EQ(CLng(-2147483648.5), INT32_MIN);
  EXPECT_EQ(CLng("&HFFFF"), 65535);
  EXPECT_EQ(CLng("&HFFFFFFFF"), -1);
  EXPECT_EQ(CByte(254.5), 254);
  EXPECT_EQ(CByte(-0.5), 0);
  EXPECT_EQ(CByte("&HFF"), 255);
}

TEST(WholeConversions, RaiseOverflowTypeMismatchAndInvalidUseOfNull) {
  const struct {
    Variant in;
    int cint, clng, cbyte;
  } cases[] = {
      {32767.5, 6, 0, 6},       {-32768.51, 6, 0, 6}, {32768, 6, 0, 6},
      {"40000", 6, 0, 6},       {"&H10000", 6, 0, 6}, {2147483647.5, 6, 6, 6},
      {-2147483649.0, 6, 6, 6}, {255.5, 0, 0, 6},     {256, 0, 0, 6},
      {-0.51, 0, 0, 6},         {"", 13, 13, 13},     {"abc", 13, 13, 13},
      {"12abc", 13, 13, 13},    {"1e400", 6, 6, 6},   {Variant::Null(), 94, 94, 94},
  };
  for (const auto& c : cases) {
    std::string name = c.in.IsNull() ? "Null" : CStr(c.in);
    EXPECT_EQ(ErrorOf([&] { CInt(c.in); }), c.cint) << name;
    EXPECT_EQ(ErrorOf([&] { CLng(c.in); }), c.clng) << name;
    EXPECT_EQ(ErrorOf([&] { CByte(c.in); }), c.cbyte) << name;
  }
}

TEST(Conversions, OtherKinds) {
  EXPECT_EQ(CDbl("1,234.5"), 1234.5);
  EXPECT_EQ(CDbl("(12)"), -12);
  EXPECT_EQ(CDbl(" -3.5e2 "), -350);
  EXPECT_EQ(ErrorOf([] { CDbl("1e400"); }), 6);
  EXPECT_EQ(ErrorOf([] { CDbl("x"); }), 13);

  EXPECT_TRUE(CBool("True"));
  EXPECT_FALSE(CBool("false"));
  EXPECT_TRUE(CBool(" TRUE "));
  EXPECT_FALSE(CBool("0"));
  EXPECT_TRUE(CBool("-1"));
  EXPECT_TRUE(CBool(0.5));
  EXPECT_FALSE(CBool(Variant()));
  EXPECT_EQ(ErrorOf([] { CBool("yes"); }), 13);
  EXPECT_EQ(ErrorOf([] { CBool(""); }), 13);

  EXPECT_EQ(CStr(Variant()), "");
  EXPECT_EQ(CStr(true), "True");
  EXPECT_EQ(CStr(false), "False");
  EXPECT_EQ(CStr(std::int16_t{-5}), "-5");
  EXPECT_EQ(CStr(114.5), "114.5");
  EXPECT_EQ(CStr(Variant::FromDate(45366)), "15/03/2024");
  EXPECT_EQ(ErrorOf([] { CStr(Variant::Null()); }), 94);
}

TEST(Variant, KindsAndTheirVarTypeNumbers) {
  EXPECT_EQ(Variant().VarType(), vbEmpty);
  EXPECT_EQ(Variant::Null().VarType(), vbNull);
  EXPECT_EQ(Variant(std::int16_t{1}).VarType(), vbInteger);
  EXPECT_EQ(Variant(70000).VarType(), vbLong);
  EXPECT_EQ(Variant(1L).VarType(), vbLong);
  EXPECT_EQ(Variant(1.5).VarType(), vbDouble);
  EXPECT_EQ(Variant::FromDate(1).VarType(), vbDate);
  EXPECT_EQ(Variant("x").VarType(), vbString);
  EXPECT_EQ(Variant(std::string("x")).VarType(), vbString);
  EXPECT_EQ(Variant(true).VarType(), vbBoolean);
  EXPECT_EQ(Variant(std::uint8_t{200}).VarType(), vbByte);
  EXPECT_EQ(Variant(true).Value(), -1);
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_TRUE(Variant::Null().IsNull());
  EXPECT_EQ(ErrorOf([] { Variant v(5000000000L); }), 6);
}

TEST(NumberText, FifteenSignificantDigitsAndNoTrailingZeros) {
  const struct {
    double value;
    const char* text;
  } cases[] = {
      {100, "100"},
      {114.5, "114.5"},
      {78.95, "78.95"},
      {0.1 + 0.2, "0.3"},
      {-0.0, "0"},
      {0, "0"},
      {-1.5, "-1.5"},
      {1e15, "1E+15"},
      {999999999999999.9, "1E+15"},
      {123456789012345, "123456789012345"},
      {1234567890123456, "1.23456789012346E+15"},
      {0.0001, "0.0001"},
      {0.00001, "1E-05"},
      {-1.5e-7, "-1.5E-07"},
      {1e100, "1E+100"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {78.95 * 1.14, "90.003"},
  };
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text) << c.text;
}

TEST(NumberText, StrAndHex) {
  EXPECT_EQ(Str(5), " 5");
  EXPECT_EQ(Str(-5), "-5");
  EXPECT_EQ(Str(0.5), " .5");
  EXPECT_EQ(Str(-0.5), "-.5");
  EXPECT_EQ(Str(0), " 0");
  EXPECT_EQ(Hex(255), "FF");
  EXPECT_EQ(Hex(-1), "FFFFFFFF");
  EXPECT_EQ(Hex(std::int16_t{-1}), "FFFF");
  EXPECT_EQ(Hex(31.5), "20");
  EXPECT_EQ(Hex(2.5), "2");
}

}  // namespace
}  // namespace tolmen
