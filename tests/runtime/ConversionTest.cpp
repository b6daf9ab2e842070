#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

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

// Four hex digits make a 16-bit Integer; a carriage return is not skipped.
TEST(Val, ScansTheLeadingNumber) {
  const struct {
    const char* text;
    double value;
  } cases[] = {{"12abc", 12},      {"", 0},     {"-3.5e2x", -350}, {"&H1F", 31},
               {"&O17", 15},       {"&17", 15}, {"&HFFFF", -1},    {"&H10000", 65536},
               {"&HFFFFFFFF", -1}, {".5", 0.5}, {"1.2.3", 1.2},    {"1 2\t3\n4", 1234},
               {"- 7", -7},        {"+7", 7},   {"--5", 0},        {"abc", 0},
               {"1e", 1},          {"1e+", 1},  {"1,000", 1},      {"1d2", 100},
               {"\r12", 0}};
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
  EXPECT_EQ(Val("  1615 198th Street N.E."), 1615198);
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
  } cases[] = {{2.5, 2},       {3.5, 4},         {-2.5, -2},         {-3.5, -4},
               {0.5, 0},       {32767.4, 32767}, {-32768.5, -32768}, {"12", 12},
               {" 12 ", 12},   {"1,000", 1000},  {"2.5", 2},         {"-1.5", -2},
               {"&HFFFF", -1}, {"1-", -1},       {true, -1},         {Variant(), 0}};
  for (const auto& c : cases) EXPECT_EQ(CInt(c.in), c.cint) << CStr(c.in);
  EXPECT_EQ(CInt(Variant::FromDate(1.5)), 2);

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
  } cases[] = {{32767.5, 6, 0, 6},       {-32768.51, 6, 0, 6}, {32768, 6, 0, 6},
               {"40000", 6, 0, 6},       {"&H10000", 6, 0, 6}, {2147483647.5, 6, 6, 6},
               {-2147483649.0, 6, 6, 6}, {255.5, 0, 0, 6},     {256, 0, 0, 6},
               {-0.51, 0, 0, 6},         {"", 13, 13, 13},     {"abc", 13, 13, 13},
               {"12abc", 13, 13, 13},    {"1e400", 6, 6, 6},   {Variant::Null(), 94, 94, 94}};
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

  const std::pair<Variant, bool> bools[] = {{"True", true},    {"false", false}, {" TRUE ", true},
                                            {"0", false},      {"-1", true},     {0.5, true},
                                            {Variant(), false}};
  for (const auto& [in, out] : bools) EXPECT_EQ(CBool(in), out) << CStr(in);
  EXPECT_EQ(ErrorOf([] { CBool("yes"); }), 13);
  EXPECT_EQ(ErrorOf([] { CBool(""); }), 13);

  const std::pair<Variant, const char*> strs[] = {
      {Variant(), ""},          {true, "True"},   {false, "False"},
      {std::int16_t{-5}, "-5"}, {114.5, "114.5"}, {Variant::FromDate(45366), "15/03/2024"}};
  for (const auto& [in, out] : strs) EXPECT_EQ(CStr(in), out);
  EXPECT_EQ(ErrorOf([] { CStr(Variant::Null()); }), 94);
}

TEST(Variant, KindsAndTheirVarTypeNumbers) {
  const std::pair<Variant, int> kinds[] = {{Variant(), vbEmpty},
                                           {Variant::Null(), vbNull},
                                           {std::int16_t{1}, vbInteger},
                                           {70000, vbLong},
                                           {1L, vbLong},
                                           {1.5, vbDouble},
                                           {Variant::FromDate(1), vbDate},
                                           {"x", vbString},
                                           {std::string("x"), vbString},
                                           {true, vbBoolean},
                                           {std::uint8_t{200}, vbByte}};
  for (const auto& [v, type] : kinds) EXPECT_EQ(v.VarType(), type) << type;
  EXPECT_EQ(Variant(true).Value(), -1);
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_TRUE(Variant::Null().IsNull());
  EXPECT_EQ(ErrorOf([] { Variant v(5000000000L); }), 6);
}

TEST(NumberText, FifteenSignificantDigitsAndNoTrailingZeros) {
  const struct {
    double value;
    const char* text;
  } cases[] = {{100, "100"},       {114.5, "114.5"},      {78.95, "78.95"}, {-0.0, "0"},
               {0, "0"},           {-1.5, "-1.5"},        {1e15, "1E+15"},  {0.0001, "0.0001"},
               {0.00001, "1E-05"}, {-1.5e-7, "-1.5E-07"}, {1e100, "1E+100"}};
  for (const auto& c : cases) EXPECT_EQ(NumberText(c.value), c.text) << c.text;
  EXPECT_EQ(NumberText(999999999999999.9), "1E+15");
  EXPECT_EQ(NumberText(123456789012345), "123456789012345");
  EXPECT_EQ(NumberText(1234567890123456), "1.23456789012346E+15");
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(NumberText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(NumberText(2.0 / 3), "0.666666666666667");
  EXPECT_EQ(NumberText(78.95 * 1.14), "90.003");
}

TEST(NumberText, StrAndHex) {
  const std::pair<double, const char*> strs[] = {
      {5, " 5"}, {-5, "-5"}, {0.5, " .5"}, {-0.5, "-.5"}, {0, " 0"}};
  for (const auto& [value, text] : strs) EXPECT_EQ(Str(value), text) << text;
  const std::pair<Variant, const char*> hexes[] = {
      {255, "FF"}, {-1, "FFFFFFFF"}, {std::int16_t{-1}, "FFFF"}, {31.5, "20"}, {2.5, "2"}};
  for (const auto& [value, text] : hexes) EXPECT_EQ(Hex(value), text) << text;
}

}  // namespace
}  // namespace tolmen
