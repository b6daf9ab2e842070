// The classic runtime's string helpers, on Windows-1252 bytes: a "character" is one byte and
// positions count from 1. Text comparison (vbTextCompare) ignores the case of Windows-1252 letters
// and otherwise compares byte values.
#pragma once

#include <string>
#include <vector>

#include "runtime/Cp1252.h"  // UCase, LCase

namespace tolmen {

constexpr int vbBinaryCompare = 0;
constexpr int vbTextCompare = 1;

// A negative length raises RuntimeError(5); a length past the end takes what there is.
std::string Left(const std::string& text, long length);
std::string Right(const std::string& text, long length);
// From `start` (1-based) to the end, or `length` bytes of it. A start below 1 or a negative length
// raises 5; a start past the end gives "".
std::string Mid(const std::string& text, long start);
std::string Mid(const std::string& text, long start, long length);

// The position of `find` in `text` from `start` on, 0 when absent. An empty `text` gives 0, an
// empty `find` gives `start`, a start past the end of `text` gives 0; a start below 1 raises 5.
long InStr(const std::string& text, const std::string& find);
long InStr(long start, const std::string& text, const std::string& find,
           int compare = vbBinaryCompare);
// The position of the last `find` that lies wholly within the first `start` bytes (-1: all of
// them). An empty `find` gives `start` (the length for -1); a start past the end gives 0; a start
// of 0 or below -1 raises 5.
long InStrRev(const std::string& text, const std::string& find, long start = -1,
              int compare = vbBinaryCompare);

// Blanks (byte 0x20) only, as the classic runtime: tabs and line ends stay.
std::string Trim(const std::string& text);
std::string LTrim(const std::string& text);
std::string RTrim(const std::string& text);

// `count` blanks, or `count` copies of a byte (the first byte of `fill`; "" raises 5). A negative
// count raises 5.
std::string Space(long count);
std::string String(long count, char fill);
std::string String(long count, const std::string& fill);

// Replaces `find` by `with` in the part of `text` from `start` on, at most `count` times (-1: all),
// and returns that part only (start 3 drops the first two bytes). An empty `find` changes nothing.
std::string Replace(const std::string& text, const std::string& find, const std::string& with,
                    long start = 1, long count = -1, int compare = vbBinaryCompare);
// "" gives no element; a text without the delimiter, or an empty delimiter, gives one element.
// `limit` caps the number of elements (-1: no cap), the last taking the rest.
std::vector<std::string> Split(const std::string& text, const std::string& delimiter = " ",
                               long limit = -1, int compare = vbBinaryCompare);
std::string Join(const std::vector<std::string>& parts, const std::string& delimiter = " ");

// -1, 0 or 1 as a sorts before, equal to, or after b (bytes compared as unsigned values).
int StrComp(const std::string& a, const std::string& b, int compare = vbBinaryCompare);

// The first byte's value 0-255; "" raises 5.
int Asc(const std::string& text);
// The byte of a value 0-255; anything else raises 5.
std::string Chr(int code);

// The classic pattern matcher: ? any one byte, * any run (also none), # one digit, [abc] [a-z]
// one byte of the list, [!a-z] one byte not in it; [ ] * ? # stand for themselves inside
// brackets, and '-' first or last in a list is itself. A '[' without its ']' or a descending
// range raises 93 "Invalid pattern string". Binary by default; vbTextCompare ignores case.
bool Like(const std::string& text, const std::string& pattern, int compare = vbBinaryCompare);

}  // namespace tolmen
