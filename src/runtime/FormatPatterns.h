// The two pattern engines behind Format (runtime/Format.h describes the patterns).
#pragma once

#include <string>

namespace tolmen {

// True when the pattern holds a digit placeholder, false when it holds a date token and none;
// a pattern with neither counts as a number pattern.
bool IsNumberPattern(const std::string& pattern);
// REQUIRES: the pattern is not empty.
std::string ApplyNumberPattern(double value, const std::string& pattern);
std::string ApplyDatePattern(double date, const std::string& pattern);

}  // namespace tolmen
