// Windows-1252, the system's text encoding, and its meeting with UTF-8 at the edges.
#pragma once

#include <string>

namespace tolmen {

// Each byte becomes its character in UTF-8; the five bytes Windows-1252 leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the C1 controls of the same number.
std::string Cp1252ToUtf8(const std::string& text);
// Each character becomes its Windows-1252 byte; one without a byte becomes '?', and malformed
// UTF-8 bytes are taken as Windows-1252 bytes as they stand.
std::string Utf8ToCp1252(const std::string& text);

// Case folding of Windows-1252 letters (A-Z, the accented capitals, S/Z/OE with caron, Y with
// diaeresis).
char UCaseChar(char c);
char LCaseChar(char c);
std::string UCase(const std::string& text);
std::string LCase(const std::string& text);
// Compares without regard to case; true when equal.
bool EqualsNoCase(const std::string& a, const std::string& b);

}  // namespace tolmen
