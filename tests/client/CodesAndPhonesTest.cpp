// The routines of a client's conversion that need no address book: the account code increment
// and its string helpers, and the phone classes.
#include <gtest/gtest.h>

#include <array>

#include "transfer/AccountCodes.h"
#include "transfer/Addresses.h"

namespace tolmen {
namespace {

TEST(NextAccountCode, StepsTheLastPositionAndCarriesLeft) {
  struct Case {
    const char* code;
    const char* next;
  } cases[] = {
      {"SMIT08", "SMIT09"},   {"SMIT07", "SMIT08"}, {"AL0099", "AL0100"},
      {"ABCD99", "ABCE00"},  // the carry runs into the prefix
      {"999999", "000000"},  // all digits: the seventh digit falls off
      {"000123", "000124"},   {"ZZ", "AA"},         {"zz", "aa"},
      {"Az", "Ba"},           {"A9Z", "B0A"},       {"AB-9", "AC-0"},  // a dash passes the carry on
      {"AB-", "AC-"},         {"9 9", "100"},     // a blank dropped: the digits' "1" in front
      {"Z Z", "AAA"},         {"AB 9", "0AC0"},   // stopped early, blank dropped, zero-padded
      {"  ABC  ", "ABD"},     {"AB\tC", "AB D"},  // cleaned first: trimmed, tab made a blank
      {"ABC\xE9", "ABD\xE9"},                     // a byte above "z" stays
  };
  for (const Case& c : cases) EXPECT_EQ(NextAccountCode(c.code), c.next) << c.code;
  // A NUL inside the code is dropped; it does not end the code.
  EXPECT_EQ(NextAccountCode(std::string("AB\0C", 4)), "ABD");
}

TEST(AccountCodeText, HelpersKeepWhatTheNameOffers) {
  EXPECT_EQ(KeepAlphanumerics("O'Brien & Sons (Pty)"), "OBrien  Sons Pty");
  EXPECT_EQ(KeepAlphanumerics("  Caf\xE9 Noir 24/7 "), "Caf Noir 247");
  EXPECT_EQ(StripChar("OBrien  Sons Pty", " "), "OBrienSonsPty");
  EXPECT_EQ(StripChar("aAbBa", "a"), "AbB");
  EXPECT_EQ(FixLength("ABC", 6), "ABC   ");
  EXPECT_EQ(FixLength("  ABC  ", 6), "ABC   ");
  EXPECT_EQ(FixLength("ABCDEFG", 6), "ABCDEF");
  EXPECT_EQ(FixLength(" ABCDEF", 6), " ABCDE");  // long enough trimmed: cut as given
}

PhoneEntry Phone(const char* number, const char* description, const char* extension = "") {
  return {number, extension, description};
}

TEST(ClassifyPhoneEntries, DescriptionsDecideTheClass) {
  struct Case {
    std::array<PhoneEntry, 4> entries;
    const char* classes;  // telephone | fax | cell | e-mail
  } cases[] = {
      // A later entry of a class wins.
      {{Phone("011 1", "Fax"), Phone("011 2", "fax"), {}, {}}, " | 011 2 |  | "},
      // Anything else is other, with its first letter.
      {{Phone("012 345", "Home"), {}, {}, {}}, "012 345 (H) |  |  | "},
      // Tel. and Mobile are other; the telephone takes the last other.
      {{Phone("1", "Tel."), Phone("2", "Mobile"), {}, {}}, "2 (M) |  |  | "},
      // Extensions go with telephone, fax and other, never with cell.
      {{Phone("10", "main", "5"), Phone("20", "FAX", "6"), Phone("30", "Mob", "7"),
        Phone("40", "", "8")},
       "10 x 5 | 20 x 6 | 30 | "},
      // An entry without a number is passed over.
      {{Phone("", "Tel"), Phone("555", "CEL"), Phone("", "Fax"), Phone("a@b", "E-MAI")},
       " |  | 555 | a@b"},
      // An other without description has no letter.
      {{Phone("777", "", "1"), Phone("888", "Cell"), {}, {}}, "777 x 1 |  | 888 | "},
  };
  for (const Case& c : cases) {
    const PhoneClasses got = ClassifyPhoneEntries(c.entries);
    EXPECT_EQ(got.telephone + " | " + got.fax + " | " + got.cell + " | " + got.email, c.classes);
  }
}

}  // namespace
}  // namespace tolmen
