// The pieces of the template file's text format: the header field, the key and value of a line,
// and the rewriting of old "To Max" and "Bill" values. Pure functions over Windows-1252 bytes.
#pragma once

#include <string>
#include <vector>

namespace tolmen {

inline constexpr const char* kTemplateHeader = "TOLMEN TEMPLATE FILE";
inline constexpr const char* kOldTemplateHeader = "VELLUMATOR 6.0 TEMPLATE FILE";

// The file's bytes cut into lines: a line ends at LF, and a CR before the LF is dropped. A last
// line without an ending counts; an empty file has no lines.
std::vector<std::string> TemplateLines(const std::string& bytes);

// The first field of a line read as a sequential input field: leading blanks and tabs skipped; a
// field that opens with a double quote runs to the next double quote; any other runs to the first
// comma, without its trailing blanks. `rest` receives what stands behind the comma that ends the
// field (empty when no comma follows), which the reader takes as a line of its own.
std::string InputField(const std::string& line, std::string& rest);

// True for the present header and the old one, compared without regard to case.
bool IsTemplateHeader(const std::string& field);

struct TemplateLine {
  std::string key;
  std::string value;
};

// Splits a line (its leading '*' already taken away) at the first ": ", bytes compared exactly;
// without one the whole line is the key. A key that still holds ':' is cut at its first ':',
// and the value is then all that follows that ':' ("Pastel Prefix Size:4" gives "4").
TemplateLine SplitTemplateLine(const std::string& line);

// A "To Max" value as the list holds it: when "Period " (and not "Period  ") stands before the
// first '|' and the number behind it is below 10, that "Period " gets a second blank; then every
// '|' becomes a tab.
std::string ToMaxFromTemplate(const std::string& value);
// A line of the "To Maximizer" list as the template holds it: tabs written as '|'.
std::string ToMaxToTemplate(const std::string& link);

// A casual billing rule of an older template: every "then Invoice" becomes "then Batch Invoice".
std::string BillFromTemplate(const std::string& value);

}  // namespace tolmen
