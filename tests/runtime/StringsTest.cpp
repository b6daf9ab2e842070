#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/ErrorOf.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

TEST(Strings, CuttingByPosition) {
  EXPECT_EQ(Left("Pastel", 3), "Pas");
  EXPECT_EQ(Left("Pastel", 10), "Pastel");
  EXPECT_EQ(Left("Pastel", 0), "");
  EXPECT_EQ(Right("Pastel", 3), "tel");
  EXPECT_EQ(Right("Pastel", 10), "Pastel");
  EXPECT_EQ(Mid("MaxCus07.csv", 7), "07.csv");
  EXPECT_EQ(Mid("MaxCus07.csv", 7, 2), "07");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abc", 3, 5), "c");
  EXPECT_EQ(ErrorOf([] { Mid("abc", 0); }), 5);
  EXPECT_EQ(ErrorOf([] { Mid("abc", 1, -1); }), 5);
  EXPECT_EQ(ErrorOf([] { Left("abc", -1); }), 5);
  EXPECT_EQ(ErrorOf([] { Right("abc", -1); }), 5);
}

TEST(Strings, Searching) {
  EXPECT_EQ(InStr("Bob \"the\" Smith", "\""), 5);
  EXPECT_EQ(InStr("abcabc", "x"), 0);
  EXPECT_EQ(InStr(3, "abcabc", "b"), 5);
  EXPECT_EQ(InStr(1, "ABCabc", "bc", vbTextCompare), 2);
  EXPECT_EQ(InStr(1, "ABCabc", "bc"), 5);
  EXPECT_EQ(InStr(1, "\xC9t\xE9", "\xE9", vbTextCompare), 1);  // É and é
  EXPECT_EQ(InStr(2, "abc", ""), 2);
  EXPECT_EQ(InStr(1, "", "a"), 0);
  EXPECT_EQ(InStr(4, "abc", "c"), 0);
  EXPECT_EQ(ErrorOf([] { InStr(0, "abc", "a"); }), 5);
  EXPECT_EQ(InStrRev("abcabc", "bc"), 5);
  EXPECT_EQ(InStrRev("abcabc", "bc", 5), 2);  // the match must end by position 5
  EXPECT_EQ(InStrRev("abcabc", "BC", -1, vbTextCompare), 5);
  EXPECT_EQ(InStrRev("abc", "x"), 0);
  EXPECT_EQ(InStrRev("abc", "", 2), 2);
  EXPECT_EQ(InStrRev("abc", "a", 9), 0);
  EXPECT_EQ(ErrorOf([] { InStrRev("abc", "a", 0); }), 5);
}

TEST(Strings, TrimmingAndFilling) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a  "), "a  ");
  EXPECT_EQ(RTrim("  a  "), "  a");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");  // blanks only
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Space(3), "   ");
  EXPECT_EQ(String(4, '0'), "0000");
  EXPECT_EQ(String(2, "xyz"), "xx");
  EXPECT_EQ(ErrorOf([] { Space(-1); }), 5);
  EXPECT_EQ(ErrorOf([] { String(2, ""); }), 5);
}

TEST(Strings, ReplaceSplitJoin) {
  EXPECT_EQ(Replace("Bob \"the\" Smith", "\"", "'"), "Bob 'the' Smith");
  EXPECT_EQ(Replace("aXbxc", "x", "-", 1, -1, vbTextCompare), "a-b-c");
  EXPECT_EQ(Replace("aaaa", "a", "b", 1, 2), "bbaa");
  EXPECT_EQ(Replace("abcabc", "a", "", 3),
            "cbc");  // the result starts at `start`
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("aaa", "aa", "a"), "aa");

  const struct {
    const char* text;
    const char* delimiter;
    long limit;
    std::vector<std::string> parts;
  } cases[] = {
      {"a|b||c", "|", -1, {"a", "b", "", "c"}},
      {"abc", "|", -1, {"abc"}},
      {"", "|", -1, {}},
      {"a|b|c", "|", 2, {"a", "b|c"}},
      {"a\r\nb\r\n", "\r\n", -1, {"a", "b", ""}},
      {"a b", "", -1, {"a b"}},
      {"a b  c", " ", -1, {"a", "b", "", "c"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Split(c.text, c.delimiter, c.limit), c.parts) << c.text;
    if (c.limit == -1 && *c.delimiter != '\0') {
      EXPECT_EQ(Join(c.parts, c.delimiter), c.text) << c.text;
    }
  }
  EXPECT_EQ(Split("aXbxc", "x", -1, vbTextCompare), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(Strings, CompareAndCodes) {
  EXPECT_EQ(StrComp("abc", "abd"), -1);
  EXPECT_EQ(StrComp("abc", "abc"), 0);
  EXPECT_EQ(StrComp("abc", "ab"), 1);
  EXPECT_EQ(StrComp("ABC", "abc"), -1);
  EXPECT_EQ(StrComp("ABC", "abc", vbTextCompare), 0);
  EXPECT_EQ(StrComp("a", "\xE9"), -1);  // bytes compare unsigned
  EXPECT_EQ(StrComp("\xC9", "\xE9", vbTextCompare), 0);
  EXPECT_EQ(Asc("A"), 65);
  EXPECT_EQ(Asc("\xE9"), 233);
  EXPECT_EQ(Chr(233), "\xE9");
  EXPECT_EQ(Chr(0), std::string(1, '\0'));
  EXPECT_EQ(ErrorOf([] { Asc(""); }), 5);
  EXPECT_EQ(ErrorOf([] { Chr(256); }), 5);
}

TEST(Like, ClassicPatterns) {
  const struct {
    const char* text;
    const char* pattern;
    bool match;
  } cases[] = {
      {"aBBBa", "a*a", true},
      {"F", "[A-Z]", true},
      {"F", "[!A-Z]", false},
      {"a2a", "a#a", true},
      {"aM5b", "a[L-P]#[!c-e]", true},
      {"BAT123khg", "B?T*", true},
      {"CAT123khg", "B?T*", false},
      {"ab", "a*b*", true},
      {"", "*", true},
      {"", "?", false},
      {"abc", "abc", true},
      {"abc", "ABC", false},
      {"a*b", "a[*]b", true},
      {"axb", "a[*]b", false},
      {"a-", "a[-x]", true},
      {"ab", "a[]b", true},
      {"mississippi", "*iss*ppi", true},
      {"x", "#", false},
      {"GOLD member", "*GOLD*", true},
      {"silver", "*GOLD*", false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Like(c.text, c.pattern), c.match) << c.text << " " << c.pattern;
  EXPECT_TRUE(Like("abc", "ABC", vbTextCompare));
  EXPECT_TRUE(Like("gold", "[F-H]old", vbTextCompare));
  EXPECT_EQ(ErrorOf([] { Like("a", "[a"); }), 93);
  EXPECT_EQ(ErrorOf([] { Like("a", "[z-a]"); }), 93);
}

}  // namespace
}  // namespace tolmen
