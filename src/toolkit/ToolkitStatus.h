// The sentences for the toolkit's status strings ("<code>|<detail>"). The code is the numeric
// value of the string's leading text (so a string that does not start with a number counts as
// 0); the detail is everything behind the first pipe.
#pragma once

#include <string>

namespace tolmen {

// The code's text, then " (", the detail and ")" when the string holds a pipe at all ("0|" gives
// "Operation successful ()"). For code 0 a non-empty `extra` replaces the text; codes 5, 90 and
// 99 append it ("BTrieve Error " + extra). A code without a text (8 among them) reads
// "Undefined Error " + extra.
std::string ToolkitStatusText(const std::string& status, const std::string& extra = "");

}  // namespace tolmen
