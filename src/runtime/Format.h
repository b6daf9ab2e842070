// Format, the classic runtime's picture formatting of numbers and dates.
//
// The pattern decides how a value is shown: a pattern with a digit placeholder (0 or #) outside
// quotes and escapes is a number pattern; otherwise one with a date token (d m y h n s w q c) is a
// date pattern. A number shown through a date pattern is read as a date value ("hh:mm" of 0.5 is
// "12:00") and a date through a number pattern as its day count. An empty pattern gives the plain
// text: NumberText for numbers, DateText for dates.
//
// Number patterns: 0 (digit or zero) and # (digit or nothing); '.' the decimal point; ',' between
// or before digit placeholders turns on thousands grouping, after the last one divides by 1000;
// '%' multiplies by 100 and shows itself; E+ E- e+ e- before placeholders give an exponent;
// "text" and \c are shown as written, like any other character. Rounding is half away from zero
// on the number's 15 significant decimal digits (2.5 "0" is "3", 0.125 "0.00" is "0.13"). Digits
// beyond the whole-part placeholders are shown in front of the first one. A trailing # of the
// fraction shows nothing for a zero ("0.##" of 1 is "1."). Up to three sections separated by ';'
// serve positive (and all), negative (shown without the sign) and zero values; an empty negative
// section falls back to the first. With one section a negative number gets a leading "-", also
// when it rounds to zero ("-0.00", as the classic runtime shows it).
//
// A blank that stands in the whole part before its last digit placeholder is a group separator:
// it shows only when digits stand on both sides of it. So "\R ### ##0.00" (a currency pattern
// with a blank as separator) shows 1234.5 as "R1 234.50" and 234.5 as "R234.50"; the blank behind
// \R never shows, just as the ',' in "\R,###,##0.00" only switches grouping on ("R1,234.50").
// A pattern with several '.' takes the last as its decimal point and each earlier one as a group
// separator of the same kind, so the currency pattern with '.' as separator, "\R.###.##0.00",
// shows 1234.5 as "R1.234.50". Other blanks and literals show always.
//
// Date patterns (tokens in any case): d dd (day), ddd dddd (Mon, Monday), ddddd (dd/mm/yyyy),
// dddddd (dd mmmm yyyy), w (weekday, Sunday 1), ww (week of the year), m mm (month; minutes when
// they follow an hour token or precede a seconds token, literals between allowed), mmm mmmm
// (Mar, March), q (quarter), y (day of the year), yy yyyy, h hh (hour), n nn (minute), s ss
// (second), AM/PM am/pm A/P a/p AMPM (12-hour clock), c (DateText), ttttt (hh:mm:ss). '/' and
// ':' are shown as they stand. Months and days are named in English.
#pragma once

#include <string>

#include "runtime/Variant.h"

namespace tolmen {

// A Variant by its kind: numbers and Booleans (-1, 0) as numbers, a Date as a date, a String
// that is numeric as a number (or, under a date pattern, a String that is a date as that date),
// any other String as it stands; Empty as 0 (and "" with an empty pattern); Null as "".
std::string Format(const Variant& value, const std::string& pattern = "");
// A double taken as a number (an empty pattern gives NumberText).
std::string FormatNumber(double value, const std::string& pattern);
// A double taken as a date value (an empty pattern gives DateText).
std::string FormatDate(double date, const std::string& pattern);

}  // namespace tolmen
