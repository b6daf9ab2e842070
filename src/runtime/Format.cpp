#include "runtime/Format.h"

#include "runtime/Conversion.h"
#include "runtime/DateParse.h"
#include "runtime/DateTime.h"
#include "runtime/FormatPatterns.h"

namespace tolmen {

bool IsNumberPattern(const std::string& pattern) {
  bool dateToken = false;
  for (size_t i = 0; i < pattern.size(); ++i) {
    char c = pattern[i];
    if (c == '"') {
      size_t close = pattern.find('"', i + 1);
      i = close == std::string::npos ? pattern.size() : close;
    } else if (c == '\\') {
      ++i;
    } else if (c == '0' || c == '#') {
      return true;
    } else if (std::string("dDmMyYhHnNsSwWqQcC").find(c) != std::string::npos) {
      dateToken = true;
    }
  }
  return !dateToken;
}

std::string FormatNumber(double value, const std::string& pattern) {
  if (pattern.empty()) return NumberText(value);
  return IsNumberPattern(pattern) ? ApplyNumberPattern(value, pattern)
                                  : ApplyDatePattern(value, pattern);
}

std::string FormatDate(double date, const std::string& pattern) {
  if (pattern.empty()) return DateText(date);
  return IsNumberPattern(pattern) ? ApplyNumberPattern(date, pattern)
                                  : ApplyDatePattern(date, pattern);
}

std::string Format(const Variant& value, const std::string& pattern) {
  switch (value.VarType()) {
    case vbNull:
      return "";
    case vbEmpty:
      return pattern.empty() ? "" : FormatNumber(0, pattern);
    case vbBoolean:
      return pattern.empty() ? CStr(value) : FormatNumber(value.Value(), pattern);
    case vbDate:
      return FormatDate(value.Value(), pattern);
    case vbString: {
      const std::string& text = value.Text();
      if (pattern.empty()) return text;
      double date = 0;
      if (!IsNumberPattern(pattern) && ParseDate(text, date)) return FormatDate(date, pattern);
      if (IsNumeric(value)) return FormatNumber(CDbl(value), pattern);
      return text;
    }
    default:
      return FormatNumber(value.Value(), pattern);
  }
}

}  // namespace tolmen
