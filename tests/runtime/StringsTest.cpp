#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/ErrorOf.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

// Rows of a result and what it should be.
void ExpectRows(const std::vector<std::pair<std::string, std::string>>& rows) {
  for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].first, rows[i].second) << "row " << i;
}
void ExpectRows(const std::vector<std::pair<long, long>>& rows) {
  for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].first, rows[i].second) << "row " << i;
}

TEST(Strings, CuttingTrimmingAndFilling) {
  ExpectRows({{Left("Pastel", 3), "Pas"},
              {Left("Pastel", 10), "Pastel"},
              {Left("Pastel", 0), ""},
              {Right("Pastel", 3), "tel"},
              {Right("Pastel", 10), "Pastel"},
              {Mid("MaxCus07.csv", 7), "07.csv"},
              {Mid("MaxCus07.csv", 7, 2), "07"},
              {Mid("abc", 4), ""},
              {Mid("abc", 3, 5), "c"},
              {Trim("  a b  "), "a b"},
              {LTrim("  a  "), "a  "},
              {RTrim("  a  "), "  a"},
              {Trim("\ta\t"), "\ta\t"},  // blanks only
              {Trim("   "), ""},
              {Space(3), "   "},
              {String(4, '0'), "0000"},
              {String(2, "xyz"), "xx"}});
  for (const auto& bad : std::vector<std::function<void()>>{
           [] { Mid("abc", 0); }, [] { Mid("abc", 1, -1); }, [] { Left("abc", -1); },
           [] { Right("abc", -1); }, [] { Space(-1); }, [] { String(2, ""); }})
    EXPECT_EQ(ErrorOf(bad), 5);
}

TEST(Strings, Searching) {
  ExpectRows({{InStr("Bob \"the\" Smith", "\""), 5},
              {InStr("abcabc", "x"), 0},
              {InStr(3, "abcabc", "b"), 5},
              {InStr(1, "ABCabc", "bc", vbTextCompare), 2},
              {InStr(1, "ABCabc", "bc"), 5},
              {InStr(1, "\xC9t\xE9", "\xE9", vbTextCompare), 1},  // É and é
              {InStr(2, "abc", ""), 2},
              {InStr(1, "", "a"), 0},
              {InStr(4, "abc", "c"), 0},
              {InStrRev("abcabc", "bc"), 5},
              {InStrRev("abcabc", "bc", 5), 2},  // the match must end by position 5
              {InStrRev("abcabc", "BC", -1, vbTextCompare), 5},
              {InStrRev("abc", "x"), 0},
              {InStrRev("abc", "", 2), 2},
              {InStrRev("abc", "a", 9), 0}});
  EXPECT_EQ(ErrorOf([] { InStr(0, "abc", "a"); }), 5);
  EXPECT_EQ(ErrorOf([] { InStrRev("abc", "a", 0); }), 5);
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
  } cases[] = {{"a|b||c", "|", -1, {"a", "b", "", "c"}},
               {"abc", "|", -1, {"abc"}},
               {"", "|", -1, {}},
               {"a|b|c", "|", 2, {"a", "b|c"}},
               {"a\r\nb\r\n", "\r\n", -1, {"a", "b", ""}},
               {"a b", "", -1, {"a b"}},
               {"a b  c", " ", -1, {"a", "b", "", "c"}}};
  for (const auto& c : cases) {
    EXPECT_EQ(Split(c.text, c.delimiter, c.limit), c.parts) << c.text;
    if (c.limit == -1 && *c.delimiter != '\0') {
      EXPECT_EQ(Join(c.parts, c.delimiter), c.text) << c.text;
    }
  }
  EXPECT_EQ(Split("aXbxc", "x", -1, vbTextCompare), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(Strings, CompareAndCodes) {
  ExpectRows({{StrComp("abc", "abd"), -1},
              {StrComp("abc", "abc"), 0},
              {StrComp("abc", "ab"), 1},
              {StrComp("ABC", "abc"), -1},
              {StrComp("ABC", "abc", vbTextCompare), 0},
              {StrComp("a", "\xE9"), -1},  // bytes compare unsigned
              {StrComp("\xC9", "\xE9", vbTextCompare), 0},
              {Asc("A"), 65},
              {Asc("\xE9"), 233}});
  EXPECT_EQ(Chr(233), "\xE9");
  EXPECT_EQ(Chr(0), std::string(1, '\0'));
  EXPECT_EQ(ErrorOf([] { Asc(""); }), 5);
  EXPECT_EQ(ErrorOf([] { Chr(256); }), 5);
}

TEST(Like, ClassicPatterns) {
  struct Row {
    const char* text;
    const char* pattern;
    bool match;
  };
  const Row rows[] = {{"aBBBa", "a*a", true}, {"F", "[A-Z]", true},    {"F", "[!A-Z]", false},
                      {"a2a", "a#a", true},   {"ab", "a*b*", true},    {"", "*", true},
                      {"", "?", false},       {"abc", "abc", true},    {"abc", "ABC", false},
                      {"a*b", "a[*]b", true}, {"axb", "a[*]b", false}, {"a-", "a[-x]", true},
                      {"ab", "a[]b", true},   {"x", "#", false}};
  const Row wide[] = {{"aM5b", "a[L-P]#[!c-e]", true}, {"BAT123khg", "B?T*", true},
                      {"CAT123khg", "B?T*", false},    {"mississippi", "*iss*ppi", true},
                      {"GOLD member", "*GOLD*", true}, {"silver", "*GOLD*", false}};
  auto check = [](const Row& c) {
    EXPECT_EQ(Like(c.text, c.pattern), c.match) << c.text << " " << c.pattern;
  };
  for (const Row& c : rows) check(c);
  for (const Row& c : wide) check(c);
  EXPECT_TRUE(Like("abc", "ABC", vbTextCompare));
  EXPECT_TRUE(Like("gold", "[F-H]old", vbTextCompare));
  EXPECT_EQ(ErrorOf([] { Like("a", "[a"); }), 93);
  EXPECT_EQ(ErrorOf([] { Like("a", "[z-a]"); }), 93);
}

}  // namespace
}  // namespace tolmen
