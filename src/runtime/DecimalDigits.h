// The decimal digits of a double as the runtime shows them: rounded to 15 significant digits,
// so that 0.1 + 0.2 shows as 0.3 and 2.675 rounds as 2.675 does on paper. Used by NumberText
// and Format.
#pragma once

#include <string>

namespace tolmen {

struct DecimalDigits {
  std::string digits;  // no leading or trailing zeros; empty for zero
  int point = 0;       // the value is 0.<digits> times 10 to the power `point`
  bool IsZero() const { return digits.empty(); }
};

// REQUIRES: `magnitude` is finite and not negative.
DecimalDigits ToDecimalDigits(double magnitude);

// Rounds half away from zero to `places` digits behind the decimal point (places may be
// negative: -3 rounds to thousands).
void RoundDecimal(DecimalDigits& d, int places);

// The whole part's digits ("" when below 1) and `places` digits of the fraction, zero-padded.
// REQUIRES: `d` already rounded to `places`.
std::string WholeDigits(const DecimalDigits& d);
std::string FractionDigits(const DecimalDigits& d, int places);

}  // namespace tolmen
