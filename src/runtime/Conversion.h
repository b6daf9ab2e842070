// The classic runtime's conversions: Val, CInt, CLng, CByte, CDbl, CBool, CStr, CDate, IsNumeric,
// IsDate, and the plain text of a number.
//
// Numbers in text. Two grammars, as in the classic runtime:
// - Val scans a leading number and stops at the first character that cannot continue it, skipping
//   blanks, tabs and line feeds anywhere ("  1615 198th Street" is 1615198). It reads &H (hex) and
//   &O or & (octal) numbers too, which stand for a 16-bit Integer when they fit in 4 hex digits
//   ("&HFFFF" is -1) and for a 32-bit Long otherwise.
// - IsNumeric and the conversions of a String (CDbl, CInt, CLng, CByte, CBool) take the whole
//   text as one number: blanks (and tabs, CR, LF) around it; one sign, either leading ("-1.5",
//   "- 1.5") or trailing ("1-" is -1); or parentheses for a negative ("(12)" is -12); digits with
//   commas taken as thousands separators anywhere before the decimal point ("1,000" is 1000);
//   one decimal point; an exponent E or D with an optional sign and at least one digit ("1e3");
//   or, on their own, &H and &O numbers. At least one digit is needed: "", ".", "+", "12abc" and
//   "1e" are not numeric. The decimal point is always '.', whatever the machine's locale.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/Variant.h"

namespace tolmen {

double Val(const std::string& text);

// Rounds to the nearest whole number, halves to the even one: 2.5 -> 2, 3.5 -> 4, -2.5 -> -2.
double RoundHalfEven(double value);
// The classic Round: to `places` decimals with halves to even, on the value scaled by 10^places
// as a double (Round(0.125, 2) is 0.12, Round(0.375, 2) is 0.38). Unlike Format it does not look
// at decimal digits first. Negative places raise RuntimeError(5).
double Round(double value, int places = 0);

// Whole-number conversions, rounding halves to even. Out of range raises RuntimeError(6)
// "Overflow": CInt takes -32768.5 to 32767.49..., CLng the 32-bit range, CByte 0 to 255. A String
// that is not numeric raises RuntimeError(13) "Type mismatch"; Null raises 94; Empty is 0; a
// Boolean is -1 or 0; a Date its day count.
int CInt(const Variant& value);
std::int32_t CLng(const Variant& value);
int CByte(const Variant& value);
// A numeric String's value; other kinds as above. An &H or &O text means what Val makes of it.
double CDbl(const Variant& value);
// "True" and "False" in any case (blanks around allowed) or a numeric text (not 0 is true);
// another String raises 13.
bool CBool(const Variant& value);
// Empty "", Boolean "True"/"False", numbers as NumberText, Date as DateText, Null raises 94.
std::string CStr(const Variant& value);
// A Date or number as it stands (outside the valid dates raises 6); a String through ParseDate,
// or, when it is no date but a numeric text, that number as a day count ("0" is 0, as the
// classic CDate takes numbers in text; IsDate("0") stays false); any other String raises 13;
// Empty 0; Null raises 94.
double CDate(const Variant& value);

// Empty and every number kind are numeric, Null and Date are not, a String by the grammar above.
bool IsNumeric(const Variant& value);
// A Date, or a String that ParseDate accepts.
bool IsDate(const Variant& value);

// How a text reads under the IsNumeric grammar.
enum class NumberTextKind { Number, NotNumber, Overflow };
struct ParsedNumber {
  NumberTextKind kind = NumberTextKind::NotNumber;
  double value = 0;        // the number; for &H/&O as Val reads it
  bool radix = false;      // an &H or &O number
  std::uint32_t bits = 0;  // its bits, for conversions that wrap them (CInt("&HFFFF") is -1)
};
ParsedNumber ParseNumberText(const std::string& text);

// The plain text of a double: up to 15 significant digits, no trailing zeros, '.' as the decimal
// point, and an exponent only outside 1e-4 <= |x| < 1e15: 114.5 -> "114.5", 0.1 + 0.2 -> "0.3",
// -0 -> "0", 1e15 -> "1E+15", 0.00001 -> "1E-05", 1.5e-7 -> "1.5E-07".
std::string NumberText(double value);
// As NumberText with a leading blank for a number that is not negative, and no zero before the
// decimal point: 5 -> " 5", -5 -> "-5", 0.5 -> " .5".
std::string Str(double value);
// Upper-case hexadecimal of the value rounded to a Long (CLng). A negative Integer, Byte or
// Boolean shows its 16 bits (-1 -> "FFFF"), any other negative its 32 bits ("FFFFFFFF").
std::string Hex(const Variant& value);

}  // namespace tolmen
