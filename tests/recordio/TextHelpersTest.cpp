// The text helpers, from tables of inputs and results.
#include <gtest/gtest.h>

#include <functional>

#include "recordio/TextHelpers.h"

namespace tolmen {
namespace {

using namespace std::string_literals;

TEST(TextHelpers, OneArgumentHelpers) {
  struct Case {
    std::function<std::string(const std::string&)> helper;
    std::string input;
    std::string expected;
  };
  const Case cases[] = {
      {StripField, "\0 a\tb \0"s, "a b"},
      {StripField, "ab\0cd"s, "abcd"},
      {CleanText, "ab\0cd"s, "ab"},
      {CleanText, " \tx  "s, "x"},
      {CleanText, "\0abc"s, ""},
      {StripForLog, "a  b", "ab"},
      {StripForLog, "a   b", "a b"},
      {StripForLog, "x\r\ny\0 z"s, "xy z"},
      {CsvQuote, " Bob \"the\" Smith ", "\"Bob 'the' Smith\""},
      {CsvQuote, "", "\"\""},
      {CsvQuote, "\0\0"s, "\"\0\0\""s},  // trimming touches only blanks
  };
  for (const Case& c : cases) EXPECT_EQ(c.helper(c.input), c.expected) << c.input;
}

TEST(TextHelpers, PaddingTakesTheUntrimmedValueWhenLongEnough) {
  struct Case {
    std::string value;
    long width;
    std::string blanks;
    std::string nuls;
  };
  const Case cases[] = {{"  abc", 3, "  a", "  a"},     {"ab", 4, "ab  ", "ab\0\0"s},
                        {" ab ", 4, "ab  ", "ab\0\0"s}, {"abcd", 4, "abcd", "abcd"},
                        {"  ab", 3, "ab ", "ab\0"s},    {"", 2, "  ", "\0\0"s}};
  for (const Case& c : cases) {
    EXPECT_EQ(PadToWidth(c.value, c.width), c.blanks) << c.value;
    EXPECT_EQ(PadToWidthNul(c.value, c.width), c.nuls) << c.value;
  }
  EXPECT_EQ(RemoveChar("a-b--c", "-"), "abc");
  EXPECT_EQ(RemoveChar("abc", ""), "abc");
}

TEST(TextHelpers, PopFieldTakesFieldsOffTheFront) {
  struct Case {
    std::string source;
    std::string delimiter;
    std::string field, rest;        // PopField
    std::string rawField, rawRest;  // PopFieldRaw
  };
  const Case cases[] = {
      {"a|b|c", "|", "a", "b|c", "a", "b|c"},
      {" a | b ", "|", "a", "b", " a ", " b "},
      {"abc", "|", "abc", "", "abc", ""},
      {"", "|", "", "", "", ""},
      {"|x", "|", "", "x", "", "x"},
      {"0|ABE001", "|", "0", "ABE001", "0", "ABE001"},
      {"key::value", "::", "key", "value", "key", "value"},
      {"aXb", "x", "aXb", "", "aXb", ""},  // exact case
  };
  for (const Case& c : cases) {
    std::string source = c.source;
    EXPECT_EQ(PopField(source, c.delimiter), c.field) << c.source;
    EXPECT_EQ(source, c.rest) << c.source;
    source = c.source;
    EXPECT_EQ(PopFieldRaw(source, c.delimiter), c.rawField) << c.source;
    EXPECT_EQ(source, c.rawRest) << c.source;
  }
  // A string popped past its end keeps giving empty fields.
  std::string answer = "0|a";
  EXPECT_EQ(PopField(answer, "|"), "0");
  EXPECT_EQ(PopField(answer, "|"), "a");
  EXPECT_EQ(PopField(answer, "|"), "");
  EXPECT_EQ(answer, "");
}

}  // namespace
}  // namespace tolmen
