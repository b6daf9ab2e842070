// Text helpers for values taken from record fields and for the lines built from them. All work on
// Windows-1252 bytes; "blank" means the byte 0x20 only, as the classic Trim.
#pragma once

#include <string>

namespace tolmen {

// Every NUL removed, each tab made a blank, blanks trimmed at both ends.
std::string StripField(const std::string& text);
// The text up to its first NUL, each tab made a blank, blanks trimmed at both ends.
std::string CleanText(const std::string& text);

// Let T be the value trimmed. When T has `width` characters or more, the first `width`
// characters of the value as given (untrimmed: "  abc" in 3 is "  a"); otherwise T followed by
// blanks up to `width`.
std::string PadToWidth(const std::string& value, long width);
// The same test; a short T is followed by NUL bytes instead of blanks.
std::string PadToWidthNul(const std::string& value, long width);

// The text with every occurrence of `character` removed ("" removes nothing).
std::string RemoveChar(const std::string& text, const std::string& character);

// For a log line: every pair of blanks removed (not made one blank: "a  b" is "ab", and of three
// blanks one stays), then every NUL, CR and LF removed.
std::string StripForLog(const std::string& text);

// Takes the first field off `source`. The delimiter is appended to a copy of the source and the
// copy is split at its first delimiter (exact, case-sensitive): the part before it is returned
// trimmed, and `source` becomes the rest of itself behind that delimiter, trimmed. A source
// without the delimiter gives all of itself and becomes "".
std::string PopField(std::string& source, const std::string& delimiter);
// As PopField, with nothing trimmed.
std::string PopFieldRaw(std::string& source, const std::string& delimiter);

// A CSV text column: trimmed, each double quote made an apostrophe, wrapped in double quotes.
std::string CsvQuote(const std::string& text);

}  // namespace tolmen
