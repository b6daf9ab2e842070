#include "runtime/Conversion.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "runtime/Cp1252.h"
#include "runtime/DateParse.h"
#include "runtime/DateTime.h"
#include "runtime/RuntimeError.h"

namespace tolmen {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int DigitValue(char c, int radix) {
  int v = -1;
  if (c >= '0' && c <= '9')
    v = c - '0';
  else if (c >= 'A' && c <= 'F')
    v = c - 'A' + 10;
  else if (c >= 'a' && c <= 'f')
    v = c - 'a' + 10;
  return v >= 0 && v < radix ? v : -1;
}

// An &H or &O number's value as Val reads it: 16-bit when it fits in 0xFFFF, else 32-bit.
double RadixValue(std::uint32_t bits) {
  if (bits <= 0xFFFF) return static_cast<std::int16_t>(bits);
  return static_cast<std::int32_t>(bits);
}

// Reads the digits of an &H/&O number from text[i] on; false on overflow past 32 bits.
// `skip` says which characters may stand between digits and are passed over.
template <typename Skip>
bool ReadRadixDigits(const std::string& text, size_t& i, int radix, Skip skip, std::uint32_t& bits,
                     int& count) {
  std::uint64_t value = 0;
  bits = 0;
  count = 0;
  while (i < text.size()) {
    if (skip(text[i])) {
      ++i;
      continue;
    }
    int d = DigitValue(text[i], radix);
    if (d < 0) break;
    value = value * radix + d;
    if (value > 0xFFFFFFFFull) return false;
    ++count;
    ++i;
  }
  bits = static_cast<std::uint32_t>(value);
  return true;
}

bool IsValBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// The text's double; Overflow when it does not fit.
NumberTextKind ToDouble(const std::string& plain, double& value) {
  errno = 0;
  value = std::strtod(plain.c_str(), nullptr);
  if (errno == ERANGE && std::isinf(value)) return NumberTextKind::Overflow;
  if (errno == ERANGE) value = 0;  // below the smallest double
  return NumberTextKind::Number;
}

double CheckedNumber(const Variant& value) {
  switch (value.VarType()) {
    case vbNull:
      throw RuntimeError(94);
    case vbString: {
      ParsedNumber parsed = ParseNumberText(value.Text());
      if (parsed.kind == NumberTextKind::NotNumber) throw RuntimeError(13);
      if (parsed.kind == NumberTextKind::Overflow) throw RuntimeError(6);
      return parsed.value;
    }
    default:
      return value.Value();
  }
}

// Rounds and range-checks; a String holding an &H/&O number wraps its bits to the target width.
double WholeNumber(const Variant& value, double low, double high, int radixBits) {
  if (value.IsString()) {
    ParsedNumber parsed = ParseNumberText(value.Text());
    if (parsed.kind == NumberTextKind::Number && parsed.radix) {
      std::uint64_t limit = (std::uint64_t{1} << radixBits) - 1;
      if (parsed.bits > limit) throw RuntimeError(6);
      if (radixBits == 16) return static_cast<std::int16_t>(parsed.bits);
      if (radixBits == 32) return static_cast<std::int32_t>(parsed.bits);
      return parsed.bits;
    }
  }
  double rounded = RoundHalfEven(CheckedNumber(value));
  if (!(rounded >= low && rounded <= high)) throw RuntimeError(6);
  return rounded + 0.0;
}

}  // namespace

double Val(const std::string& text) {
  size_t i = 0;
  auto skipBlanks = [&] {
    while (i < text.size() && IsValBlank(text[i])) ++i;
  };
  skipBlanks();
  if (i < text.size() && text[i] == '&') {
    ++i;
    skipBlanks();
    int radix = 8;
    if (i < text.size() && (text[i] == 'H' || text[i] == 'h')) {
      radix = 16;
      ++i;
    } else if (i < text.size() && (text[i] == 'O' || text[i] == 'o')) {
      ++i;
    }
    std::uint32_t bits = 0;
    int count = 0;
    if (!ReadRadixDigits(text, i, radix, IsValBlank, bits, count)) throw RuntimeError(6);
    return RadixValue(bits);
  }
  // Gather the number's characters without the blanks, then let strtod read them.
  std::string plain;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) plain += text[i++];
  bool point = false;
  int digits = 0;
  for (; i < text.size(); ++i) {
    char c = text[i];
    if (IsValBlank(c)) continue;
    if (IsDigit(c)) {
      plain += c;
      ++digits;
    } else if (c == '.' && !point) {
      plain += c;
      point = true;
    } else {
      break;
    }
  }
  if (digits == 0) return 0;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    std::string exponent = "e";
    size_t j = i + 1;
    while (j < text.size() && IsValBlank(text[j])) ++j;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) exponent += text[j++];
    int expDigits = 0;
    for (; j < text.size(); ++j) {
      if (IsValBlank(text[j])) continue;
      if (!IsDigit(text[j])) break;
      exponent += text[j];
      ++expDigits;
    }
    if (expDigits > 0) plain += exponent;
  }
  double value = 0;
  if (ToDouble(plain, value) == NumberTextKind::Overflow) throw RuntimeError(6);
  return value;
}

ParsedNumber ParseNumberText(const std::string& text) {
  ParsedNumber result;
  size_t i = 0;
  size_t end = text.size();
  while (i < end && IsSpace(text[i])) ++i;
  while (end > i && IsSpace(text[end - 1])) --end;
  if (i == end) return result;

  if (text[i] == '&') {
    ++i;
    int radix = 8;
    if (i < end && (text[i] == 'H' || text[i] == 'h')) {
      radix = 16;
      ++i;
    } else if (i < end && (text[i] == 'O' || text[i] == 'o')) {
      ++i;
    }
    int count = 0;
    auto never = [](char) { return false; };
    if (!ReadRadixDigits(text, i, radix, never, result.bits, count)) {
      result.kind = NumberTextKind::Overflow;
      return result;
    }
    if (count == 0 || i != end) return result;
    result.kind = NumberTextKind::Number;
    result.radix = true;
    result.value = RadixValue(result.bits);
    return result;
  }

  bool negative = false;
  bool sign = false;
  bool parens = false;
  for (; i < end; ++i) {
    char c = text[i];
    if (IsSpace(c)) continue;
    if ((c == '+' || c == '-') && !sign) {
      sign = true;
      negative = c == '-';
    } else if (c == '(' && !parens) {
      parens = true;
    } else {
      break;
    }
  }
  std::string plain;
  int digits = 0;
  bool point = false;
  for (; i < end; ++i) {
    char c = text[i];
    if (IsDigit(c)) {
      plain += c;
      ++digits;
    } else if (c == ',' && !point) {
      // thousands separator: dropped
    } else if (c == '.' && !point) {
      plain += c;
      point = true;
    } else {
      break;
    }
  }
  if (digits == 0) return result;
  if (i < end && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    plain += 'e';
    ++i;
    if (i < end && (text[i] == '+' || text[i] == '-')) plain += text[i++];
    int expDigits = 0;
    while (i < end && IsDigit(text[i])) {
      plain += text[i++];
      ++expDigits;
    }
    if (expDigits == 0) return result;
  }
  bool closed = false;
  for (; i < end; ++i) {
    char c = text[i];
    if (IsSpace(c)) continue;
    if ((c == '+' || c == '-') && !sign) {
      sign = true;
      negative = c == '-';
    } else if (c == ')' && parens && !closed) {
      closed = true;
    } else {
      return result;
    }
  }
  if (parens != closed) return result;
  if (parens) negative = !negative;
  result.kind = ToDouble(plain, result.value);
  if (negative) result.value = -result.value;
  return result;
}

double RoundHalfEven(double value) {
  if (!std::isfinite(value)) return value;
  double lower = std::floor(value);
  double diff = value - lower;
  if (diff > 0.5) return lower + 1;
  if (diff < 0.5) return lower;
  return std::fmod(lower, 2.0) == 0 ? lower : lower + 1;
}

double Round(double value, int places) {
  if (places < 0) throw RuntimeError(5);
  if (places == 0) return RoundHalfEven(value);
  double scale = std::pow(10.0, places);
  double scaled = value * scale;
  if (!std::isfinite(scaled)) return value;
  return RoundHalfEven(scaled) / scale;
}

int CInt(const Variant& value) {
  return static_cast<int>(WholeNumber(value, -32768, 32767, 16));
}

std::int32_t CLng(const Variant& value) {
  return static_cast<std::int32_t>(WholeNumber(value, -2147483648.0, 2147483647.0, 32));
}

int CByte(const Variant& value) {
  return static_cast<int>(WholeNumber(value, 0, 255, 8));
}

double CDbl(const Variant& value) {
  return CheckedNumber(value) + 0.0;
}

bool CBool(const Variant& value) {
  if (value.IsString()) {
    std::string text = value.Text();
    size_t first = text.find_first_not_of(' ');
    size_t last = text.find_last_not_of(' ');
    std::string word = first == std::string::npos ? "" : text.substr(first, last - first + 1);
    if (EqualsNoCase(word, "True")) return true;
    if (EqualsNoCase(word, "False")) return false;
  }
  return CheckedNumber(value) != 0;
}

std::string CStr(const Variant& value) {
  switch (value.VarType()) {
    case vbEmpty:
      return "";
    case vbNull:
      throw RuntimeError(94);
    case vbBoolean:
      return value.Value() != 0 ? "True" : "False";
    case vbDate:
      return DateText(value.Value());
    case vbString:
      return value.Text();
    default:
      return NumberText(value.Value());
  }
}

double CDate(const Variant& value) {
  switch (value.VarType()) {
    case vbNull:
      throw RuntimeError(94);
    case vbString: {
      double date = 0;
      if (ParseDate(value.Text(), date)) return date;
      ParsedNumber parsed = ParseNumberText(value.Text());
      if (parsed.kind != NumberTextKind::Number) throw RuntimeError(13);
      SplitDate(parsed.value);  // raises 6 outside the valid dates
      return parsed.value;
    }
    default:
      SplitDate(value.Value());  // raises 6 outside the valid dates
      return value.Value();
  }
}

bool IsNumeric(const Variant& value) {
  switch (value.VarType()) {
    case vbNull:
    case vbDate:
      return false;
    case vbString:
      return ParseNumberText(value.Text()).kind == NumberTextKind::Number;
    default:
      return true;
  }
}

bool IsDate(const Variant& value) {
  if (value.VarType() == vbDate) return true;
  double date = 0;
  return value.IsString() && ParseDate(value.Text(), date);
}

}  // namespace tolmen
