// The Like operator's pattern matcher.
#include <vector>

#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

// One element of a compiled pattern.
struct Element {
  enum Kind { Byte, AnyByte, Digit, AnyRun, List } kind = Byte;
  char byte = 0;
  bool negate = false;
  std::vector<std::pair<char, char>> ranges;  // List: inclusive byte ranges
};

char Fold(char c, int compare) {
  return compare == vbTextCompare ? UCaseChar(c) : c;
}

unsigned char U(char c) {
  return static_cast<unsigned char>(c);
}

std::vector<Element> Compile(const std::string& pattern, int compare) {
  std::vector<Element> elements;
  for (size_t i = 0; i < pattern.size(); ++i) {
    char c = pattern[i];
    Element e;
    if (c == '?') {
      e.kind = Element::AnyByte;
    } else if (c == '*') {
      e.kind = Element::AnyRun;
    } else if (c == '#') {
      e.kind = Element::Digit;
    } else if (c == '[') {
      size_t close = pattern.find(']', i + 1);
      if (close == std::string::npos) throw RuntimeError(93);
      std::string list = pattern.substr(i + 1, close - i - 1);
      e.kind = Element::List;
      size_t k = 0;
      if (!list.empty() && list[0] == '!') {
        e.negate = true;
        k = 1;
      }
      if (k == list.size()) {
        // "[]" matches nothing and is dropped; "[!]" is a literal '!'.
        if (e.negate) {
          Element bang;
          bang.byte = '!';
          elements.push_back(bang);
        }
        i = close;
        continue;
      }
      for (; k < list.size(); ++k) {
        char low = Fold(list[k], compare);
        char high = low;
        if (k + 2 < list.size() && list[k + 1] == '-') {
          high = Fold(list[k + 2], compare);
          if (U(high) < U(low)) throw RuntimeError(93);
          k += 2;
        }
        e.ranges.emplace_back(low, high);
      }
      i = close;
    } else {
      e.kind = Element::Byte;
      e.byte = Fold(c, compare);
    }
    elements.push_back(e);
  }
  return elements;
}

bool MatchesOne(const Element& e, char c) {
  switch (e.kind) {
    case Element::Byte:
      return e.byte == c;
    case Element::AnyByte:
      return true;
    case Element::Digit:
      return c >= '0' && c <= '9';
    case Element::List: {
      bool in = false;
      for (const auto& [low, high] : e.ranges) in = in || (U(c) >= U(low) && U(c) <= U(high));
      return in != e.negate;
    }
    default:
      return false;
  }
}

}  // namespace

bool Like(const std::string& text, const std::string& pattern, int compare) {
  if (compare != vbBinaryCompare && compare != vbTextCompare) throw RuntimeError(5);
  std::vector<Element> elements = Compile(pattern, compare);
  std::string folded = text;
  for (char& c : folded) c = Fold(c, compare);
  // Greedy matching with one backtrack point: the last '*' seen.
  size_t t = 0;
  size_t p = 0;
  size_t starP = std::string::npos;
  size_t starT = 0;
  while (t < folded.size()) {
    if (p < elements.size() && elements[p].kind == Element::AnyRun) {
      starP = p++;
      starT = t;
    } else if (p < elements.size() && MatchesOne(elements[p], folded[t])) {
      ++p;
      ++t;
    } else if (starP != std::string::npos) {
      p = starP + 1;
      t = ++starT;
    } else {
      return false;
    }
  }
  while (p < elements.size() && elements[p].kind == Element::AnyRun) ++p;
  return p == elements.size();
}

}  // namespace tolmen
