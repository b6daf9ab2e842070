// NumberText, Str, Hex and the decimal digits behind them and Format.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "runtime/Conversion.h"
#include "runtime/DecimalDigits.h"

namespace tolmen {

DecimalDigits ToDecimalDigits(double magnitude) {
  DecimalDigits d;
  if (magnitude == 0) return d;
  char buf[40];
  std::snprintf(buf, sizeof buf, "%.14e", magnitude);  // d.dddddddddddddde+XX
  std::string text = buf;
  size_t e = text.find('e');
  d.digits = text.substr(0, 1) + text.substr(2, e - 2);
  d.point = std::atoi(text.c_str() + e + 1) + 1;
  while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
  return d;
}

void RoundDecimal(DecimalDigits& d, int places) {
  int keep = d.point + places;  // digits that stay
  if (keep >= static_cast<int>(d.digits.size())) return;
  if (keep < 0) {
    d.digits.clear();
    d.point = 0;
    return;
  }
  bool up = d.digits[keep] >= '5';
  d.digits.resize(keep);
  if (up) {
    int i = keep - 1;
    while (i >= 0 && d.digits[i] == '9') d.digits[i--] = '0';
    if (i >= 0) {
      ++d.digits[i];
    } else {
      d.digits.insert(d.digits.begin(), '1');
      ++d.point;
    }
  }
  while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
  if (d.digits.empty()) d.point = 0;
}

std::string WholeDigits(const DecimalDigits& d) {
  if (d.IsZero() || d.point <= 0) return "";
  std::string whole = d.digits.substr(0, std::min<size_t>(d.point, d.digits.size()));
  whole.append(d.point - whole.size(), '0');
  return whole;
}

std::string FractionDigits(const DecimalDigits& d, int places) {
  std::string fraction;
  for (int i = 0; i < places; ++i) {
    int index = d.point + i;  // position of the i-th fraction digit in `digits`
    bool inside = !d.IsZero() && index >= 0 && index < static_cast<int>(d.digits.size());
    fraction += inside ? d.digits[index] : '0';
  }
  return fraction;
}

std::string NumberText(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  DecimalDigits d = ToDecimalDigits(std::fabs(value));
  if (d.IsZero()) return "0";
  std::string sign = value < 0 ? "-" : "";
  int exponent = d.point - 1;
  if (exponent >= 15 || exponent < -4) {
    std::string mantissa = d.digits.substr(0, 1);
    if (d.digits.size() > 1) mantissa += "." + d.digits.substr(1);
    char buf[16];
    std::snprintf(buf, sizeof buf, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return sign + mantissa + buf;
  }
  std::string whole = WholeDigits(d);
  int places = static_cast<int>(d.digits.size()) - d.point;
  std::string text = whole.empty() ? "0" : whole;
  if (places > 0) text += "." + FractionDigits(d, places);
  return sign + text;
}

std::string Str(double value) {
  std::string text = NumberText(value);
  if (text.rfind("0.", 0) == 0) text.erase(0, 1);
  if (text.rfind("-0.", 0) == 0) text.erase(1, 1);
  return text[0] == '-' ? text : " " + text;
}

std::string Hex(const Variant& value) {
  std::int32_t n = CLng(value);
  bool sixteen =
      value.VarType() == vbInteger || value.VarType() == vbByte || value.VarType() == vbBoolean;
  auto bits = static_cast<std::uint32_t>(n);
  if (sixteen && n < 0) bits &= 0xFFFF;
  char buf[16];
  std::snprintf(buf, sizeof buf, "%X", bits);
  return buf;
}

}  // namespace tolmen
