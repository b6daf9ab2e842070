// The one date recogniser of the system. IsDate, CDate and every routine that reads a date from
// text go through ParseDate, so that all of them agree on what a date is.
//
// Accepted (leading and trailing blanks ignored, month names in English and in any case):
//   day-month-year with '/', '-' or '.':   "15/03/2024", "15-03-2024", "15.03.2024"
//   year-month-day with the same:          "2024-03-15", "2024/03/15"
//   day, month name, year:                 "15 Mar 2024", "1 March 2024", "15-Mar-2024"
//   a time "h:mm" or "h:mm:ss" (24-hour, or 12-hour followed by AM or PM), alone ("12:00" is
//   0.5) or behind the date after blanks ("15/03/2024 14:30"), or in front of it.
// A month name is written out in full or as its first three letters. Years of one or two digits
// are 2000 to 2029 (0-29) and 1930 to 1999 (30-99); three or four digits stand as written
// (100 to 9999). The day must exist in its month ("31/02/2024" is refused) and both separators of
// a numeric date must be the same. Not dates: a month and year without a day ("Mar 2024"), a
// day and month without a year ("15/03"), a plain number ("45000"), month-first orders.
#pragma once

#include <string>

namespace tolmen {

// True and the date value in `date` when the text is a date; false and `date` untouched if not.
bool ParseDate(const std::string& text, double& date);

}  // namespace tolmen
