#include <gtest/gtest.h>

#include <string>

#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen {
namespace {

TEST(Cp1252, EveryByteSurvivesARoundTripThroughUtf8) {
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  std::string utf8 = Cp1252ToUtf8(all);
  EXPECT_GT(utf8.size(), all.size());
  EXPECT_EQ(Utf8ToCp1252(utf8), all);
}

TEST(Cp1252, KnownCharacters) {
  const struct {
    const char* cp1252;
    const char* utf8;
  } cases[] = {{"\x80", "\xE2\x82\xAC"},  // euro sign
               {"\xE9", "\xC3\xA9"},      // e acute
               {"\x9F", "\xC5\xB8"},      // Y diaeresis
               {"\x81", "\xC2\x81"},      // undefined: the C1 control
               {"R1 234.50", "R1 234.50"}};
  for (const auto& c : cases) {
    EXPECT_EQ(Cp1252ToUtf8(c.cp1252), c.utf8);
    EXPECT_EQ(Utf8ToCp1252(c.utf8), c.cp1252);
  }
  EXPECT_EQ(Utf8ToCp1252("\xE4\xB8\xAD"), "?");  // no byte for it
  EXPECT_EQ(Utf8ToCp1252("a\xC3"), "a\xC3");     // cut short: taken as it stands
}

TEST(SystemPath, PathsWindows1252CannotHoldAreRefusedByName) {
  const struct {
    const char* utf8;
    const char* cp1252;  // when refused: the path the message names
    bool refused;
  } cases[] = {
      {"/home/j\xC3\xB6s\xC3\xA9/d\xC3\xA9mo.KTF", "/home/j\xF6s\xE9/d\xE9mo.KTF", false},
      {"/srv/\xE2\x82\xAC/", "/srv/\x80/", false},
      {"/home/\xCE\xA9/", "/home/?/", true},             // omega: no byte for it
      {"/home/j\xF6s\xE9/", "/home/j\xF6s\xE9/", true},  // not UTF-8: would not come back
  };
  for (const auto& c : cases) {
    if (!c.refused) {
      EXPECT_EQ(PathFromSystem(c.utf8), c.cp1252);
      EXPECT_EQ(SystemPath(c.cp1252), c.utf8);
      continue;
    }
    try {
      PathFromSystem(c.utf8);
      ADD_FAILURE() << c.utf8 << " was taken";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 52);
      EXPECT_EQ(error.Description(), std::string("The path ") + c.cp1252 +
                                         " holds a character outside Windows-1252 and cannot "
                                         "be used");
    }
  }
}

TEST(Cp1252, CaseFoldingOfLetters) {
  EXPECT_EQ(UCase("abc \xE9\xFF\x9A\x9C\x9E"), "ABC \xC9\x9F\x8A\x8C\x8E");
  EXPECT_EQ(LCase("ABC \xC9\x9F\x8A\x8C\x8E"), "abc \xE9\xFF\x9A\x9C\x9E");
  EXPECT_EQ(UCase("\xF7\xDF"), "\xF7\xDF");  // division sign and sharp s have no capital
  EXPECT_EQ(LCase("\xD7"), "\xD7");          // multiplication sign
  EXPECT_TRUE(EqualsNoCase("\xC4rger", "\xE4RGER"));
  EXPECT_FALSE(EqualsNoCase("abc", "abd"));
  EXPECT_FALSE(EqualsNoCase("abc", "ab"));
}

}  // namespace
}  // namespace tolmen
