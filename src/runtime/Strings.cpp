#include "runtime/Strings.h"

#include <algorithm>

#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"

namespace tolmen {
namespace {

long Length(const std::string& text) {
  return static_cast<long>(text.size());
}

void CheckCompare(int compare) {
  if (compare != vbBinaryCompare && compare != vbTextCompare) throw RuntimeError(5);
}

bool SameByte(char a, char b, int compare) {
  return compare == vbTextCompare ? UCaseChar(a) == UCaseChar(b) : a == b;
}

bool MatchesAt(const std::string& text, long at, const std::string& find, int compare) {
  for (size_t k = 0; k < find.size(); ++k)
    if (!SameByte(text[at + k], find[k], compare)) return false;
  return true;
}

// 0-based index of the first match at or after `from`, or -1.
long FindFrom(const std::string& text, const std::string& find, long from, int compare) {
  for (long i = from; i + Length(find) <= Length(text); ++i)
    if (MatchesAt(text, i, find, compare)) return i;
  return -1;
}

}  // namespace

std::string Left(const std::string& text, long length) {
  if (length < 0) throw RuntimeError(5);
  return text.substr(0, static_cast<size_t>(length));
}

std::string Right(const std::string& text, long length) {
  if (length < 0) throw RuntimeError(5);
  if (length >= Length(text)) return text;
  return text.substr(text.size() - static_cast<size_t>(length));
}

std::string Mid(const std::string& text, long start) {
  return Mid(text, start, Length(text));
}

std::string Mid(const std::string& text, long start, long length) {
  if (start < 1 || length < 0) throw RuntimeError(5);
  if (start > Length(text)) return "";
  return text.substr(static_cast<size_t>(start - 1), static_cast<size_t>(length));
}

long InStr(const std::string& text, const std::string& find) {
  return InStr(1, text, find, vbBinaryCompare);
}

long InStr(long start, const std::string& text, const std::string& find, int compare) {
  if (start < 1) throw RuntimeError(5);
  CheckCompare(compare);
  if (text.empty()) return 0;
  if (find.empty()) return start;
  if (start > Length(text)) return 0;
  return FindFrom(text, find, start - 1, compare) + 1;
}

long InStrRev(const std::string& text, const std::string& find, long start, int compare) {
  if (start == 0 || start < -1) throw RuntimeError(5);
  CheckCompare(compare);
  if (start == -1) start = Length(text);
  if (start > Length(text)) return 0;
  if (find.empty()) return start;
  for (long i = start - Length(find); i >= 0; --i)
    if (MatchesAt(text, i, find, compare)) return i + 1;
  return 0;
}

std::string Trim(const std::string& text) {
  return LTrim(RTrim(text));
}

std::string LTrim(const std::string& text) {
  size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first);
}

std::string RTrim(const std::string& text) {
  size_t last = text.find_last_not_of(' ');
  return last == std::string::npos ? "" : text.substr(0, last + 1);
}

std::string Space(long count) {
  return String(count, ' ');
}

std::string String(long count, char fill) {
  if (count < 0) throw RuntimeError(5);
  return std::string(static_cast<size_t>(count), fill);
}

std::string String(long count, const std::string& fill) {
  if (fill.empty()) throw RuntimeError(5);
  return String(count, fill[0]);
}

std::string Replace(const std::string& text, const std::string& find, const std::string& with,
                    long start, long count, int compare) {
  if (start < 1 || count < -1) throw RuntimeError(5);
  CheckCompare(compare);
  std::string rest = start > Length(text) ? "" : text.substr(static_cast<size_t>(start - 1));
  if (find.empty() || count == 0) return rest;
  std::string out;
  long from = 0;
  long done = 0;
  while (count == -1 || done < count) {
    long at = FindFrom(rest, find, from, compare);
    if (at < 0) break;
    out += rest.substr(static_cast<size_t>(from), static_cast<size_t>(at - from));
    out += with;
    from = at + Length(find);
    ++done;
  }
  return out + rest.substr(static_cast<size_t>(from));
}

std::vector<std::string> Split(const std::string& text, const std::string& delimiter, long limit,
                               int compare) {
  if (limit < -1) throw RuntimeError(5);
  CheckCompare(compare);
  std::vector<std::string> parts;
  if (text.empty() || limit == 0) return parts;
  if (delimiter.empty()) return {text};
  long from = 0;
  while (limit == -1 || static_cast<long>(parts.size()) + 1 < limit) {
    long at = FindFrom(text, delimiter, from, compare);
    if (at < 0) break;
    parts.push_back(text.substr(static_cast<size_t>(from), static_cast<size_t>(at - from)));
    from = at + Length(delimiter);
  }
  parts.push_back(text.substr(static_cast<size_t>(from)));
  return parts;
}

std::string Join(const std::vector<std::string>& parts, const std::string& delimiter) {
  std::string out;
  for (size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) out += delimiter;
    out += parts[i];
  }
  return out;
}

int StrComp(const std::string& a, const std::string& b, int compare) {
  CheckCompare(compare);
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    char x = compare == vbTextCompare ? UCaseChar(a[i]) : a[i];
    char y = compare == vbTextCompare ? UCaseChar(b[i]) : b[i];
    auto ux = static_cast<unsigned char>(x);
    auto uy = static_cast<unsigned char>(y);
    if (ux != uy) return ux < uy ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

int Asc(const std::string& text) {
  if (text.empty()) throw RuntimeError(5);
  return static_cast<unsigned char>(text[0]);
}

std::string Chr(int code) {
  if (code < 0 || code > 255) throw RuntimeError(5);
  return std::string(1, static_cast<char>(code));
}

}  // namespace tolmen
