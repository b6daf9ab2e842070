// The number engine of Format.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "runtime/DecimalDigits.h"
#include "runtime/FormatPatterns.h"

namespace tolmen {
namespace {

struct Item {
  enum Kind { Digit, Point, Literal, Comma, Separator, GroupSeparator, Exponent } kind;
  std::string text;       // Literal: what to show; Digit: "0" or "#"; Exponent: "E+", "e-", ...
  bool fraction = false;  // a Digit behind the decimal point
};

struct Section {
  std::vector<Item> items;
  int wholePlaces = 0;     // digit placeholders before the point
  int minWhole = 0;        // of those, from the first '0' on: digits always shown
  int fractionPlaces = 0;  // digit placeholders behind the point
  bool grouping = false;
  int scale = 0;  // divisions by 1000
  int percent = 0;
  bool exponent = false;
  int exponentMinDigits = 0;
};

bool IsPlaceholder(char c) {
  return c == '0' || c == '#';
}

// The position of the decimal point: the last '.' outside quotes and escapes. Earlier ones are
// group separators, as a blank can be.
size_t DecimalPointAt(const std::string& p) {
  size_t at = std::string::npos;
  for (size_t i = 0; i < p.size(); ++i) {
    if (p[i] == '"') {
      size_t close = p.find('"', i + 1);
      i = close == std::string::npos ? p.size() : close;
    } else if (p[i] == '\\') {
      ++i;
    } else if (p[i] == '.') {
      at = i;
    }
  }
  return at;
}

Section ParseSection(const std::string& p) {
  Section s;
  size_t decimalPoint = DecimalPointAt(p);
  bool point = false;
  bool inExponent = false;
  for (size_t i = 0; i < p.size(); ++i) {
    char c = p[i];
    if (c == '"') {
      size_t close = p.find('"', i + 1);
      if (close == std::string::npos) close = p.size();
      s.items.push_back({Item::Literal, p.substr(i + 1, close - i - 1)});
      i = close;
    } else if (c == '\\') {
      if (i + 1 < p.size()) s.items.push_back({Item::Literal, std::string(1, p[++i])});
    } else if (IsPlaceholder(c) && inExponent) {
      if (c == '0') ++s.exponentMinDigits;
    } else if (IsPlaceholder(c)) {
      s.items.push_back({Item::Digit, std::string(1, c), point});
      if (point)
        ++s.fractionPlaces;
      else
        ++s.wholePlaces;
    } else if (c == '.' && i == decimalPoint && !inExponent) {
      s.items.push_back({Item::Point, "."});
      point = true;
    } else if (c == '.' && !point && !inExponent) {
      s.items.push_back({Item::Separator, "."});
    } else if (c == ',' && !point && !inExponent) {
      s.items.push_back({Item::Comma, ","});
    } else if (c == '%') {
      ++s.percent;
      s.items.push_back({Item::Literal, "%"});
    } else if ((c == 'E' || c == 'e') && !inExponent && i + 2 < p.size() &&
               (p[i + 1] == '+' || p[i + 1] == '-') && IsPlaceholder(p[i + 2])) {
      s.items.push_back({Item::Exponent, p.substr(i, 2)});
      s.exponent = inExponent = true;
      ++i;
    } else if (c == ' ' && !point && !inExponent) {
      s.items.push_back({Item::Separator, " "});
    } else {
      s.items.push_back({Item::Literal, std::string(1, c)});
    }
  }
  // Commas, blanks and extra points of the whole part take their meaning from the placeholders
  // around them.
  int wholeSeen = 0;
  for (Item& item : s.items) {
    if (item.kind == Item::Digit && !item.fraction) {
      if (item.text == "0" && s.minWhole == 0) s.minWhole = s.wholePlaces - wholeSeen;
      ++wholeSeen;
    } else if (item.kind == Item::Comma) {
      if (wholeSeen < s.wholePlaces)
        s.grouping = true;  // a placeholder follows
      else if (wholeSeen > 0)
        ++s.scale;
      item.kind = Item::Literal;
      item.text.clear();
    } else if (item.kind == Item::Separator) {
      item.kind = wholeSeen < s.wholePlaces ? Item::GroupSeparator : Item::Literal;
    }
  }
  return s;
}

// Splits at ';' outside quotes and escapes.
std::vector<std::string> SplitSections(const std::string& pattern) {
  std::vector<std::string> sections(1);
  for (size_t i = 0; i < pattern.size(); ++i) {
    char c = pattern[i];
    if (c == ';') {
      sections.emplace_back();
      continue;
    }
    sections.back() += c;
    if (c == '\\' && i + 1 < pattern.size()) {
      sections.back() += pattern[++i];
    } else if (c == '"') {
      size_t close = pattern.find('"', i + 1);
      if (close == std::string::npos) close = pattern.size() - 1;
      sections.back() += pattern.substr(i + 1, close - i);
      i = close;
    }
  }
  return sections;
}

std::string FormatMagnitude(double magnitude, const Section& s) {
  magnitude *= std::pow(100.0, s.percent);
  magnitude /= std::pow(1000.0, s.scale);
  DecimalDigits d = ToDecimalDigits(magnitude);
  int exponent = 0;
  if (s.exponent && !d.IsZero()) {
    exponent = d.point - s.wholePlaces;
    d.point = s.wholePlaces;
    RoundDecimal(d, s.fractionPlaces);
    if (d.point > s.wholePlaces) {  // rounding carried into a new digit: 9.99 -> 10.0
      d.point = s.wholePlaces;
      ++exponent;
    }
  } else {
    RoundDecimal(d, s.fractionPlaces);
  }
  std::string whole = WholeDigits(d);
  if (static_cast<int>(whole.size()) < s.minWhole) whole.insert(0, s.minWhole - whole.size(), '0');
  std::string fraction = FractionDigits(d, s.fractionPlaces);

  // Trailing '#' placeholders of the fraction show nothing for zeros.
  std::vector<bool> shown(s.fractionPlaces, true);
  {
    int f = s.fractionPlaces;
    for (auto it = s.items.rbegin(); it != s.items.rend(); ++it) {
      if (it->kind != Item::Digit || !it->fraction) continue;
      --f;
      if (it->text != "#" || fraction[f] != '0') break;
      shown[f] = false;
    }
  }

  std::string out;
  int offset = static_cast<int>(whole.size()) - s.wholePlaces;
  int remaining = static_cast<int>(whole.size());
  int emitted = 0;
  int placeholder = 0;
  int fractionIndex = 0;
  auto emitDigit = [&](char c) {
    out += c;
    ++emitted;
    --remaining;
    if (s.grouping && remaining > 0 && remaining % 3 == 0) out += ',';
  };
  for (const Item& item : s.items) {
    switch (item.kind) {
      case Item::Digit:
        if (item.fraction) {
          if (shown[fractionIndex]) out += fraction[fractionIndex];
          ++fractionIndex;
        } else {
          int last = placeholder + offset;
          for (int k = placeholder == 0 ? 0 : last; k <= last; ++k)
            if (k >= 0) emitDigit(whole[k]);
          ++placeholder;
        }
        break;
      case Item::Point:
        if (s.wholePlaces == 0)
          for (char c : whole) emitDigit(c);
        out += '.';
        break;
      case Item::GroupSeparator:
        if (emitted > 0 && remaining > 0) out += item.text;
        break;
      case Item::Exponent: {
        out += item.text[0];
        if (exponent < 0)
          out += '-';
        else if (item.text[1] == '+')
          out += '+';
        std::string digits = std::to_string(std::abs(exponent));
        if (static_cast<int>(digits.size()) < s.exponentMinDigits)
          digits.insert(0, s.exponentMinDigits - digits.size(), '0');
        out += digits;
        break;
      }
      default:
        out += item.text;
    }
  }
  return out;
}

}  // namespace

std::string ApplyNumberPattern(double value, const std::string& pattern) {
  std::vector<std::string> sections = SplitSections(pattern);
  bool negative = value < 0;
  if (negative && sections.size() >= 2 && !sections[1].empty())
    return FormatMagnitude(-value, ParseSection(sections[1]));
  if (value == 0 && sections.size() >= 3 && !sections[2].empty())
    return FormatMagnitude(0, ParseSection(sections[2]));
  std::string text = FormatMagnitude(std::fabs(value), ParseSection(sections[0]));
  return negative ? "-" + text : text;
}

}  // namespace tolmen
