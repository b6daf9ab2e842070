// The date engine of Format.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "runtime/Cp1252.h"
#include "runtime/DateTime.h"
#include "runtime/FormatPatterns.h"

namespace tolmen {
namespace {

struct Token {
  enum Kind { Literal, Date, AmPm } kind;
  std::string
      text;  // Literal: what to show; Date: the token in lower case ("mm"); AmPm: as written
  bool minute = false;  // an "m" or "mm" that means minutes
};

bool StartsWithNoCase(const std::string& text, size_t at, const std::string& word) {
  return text.size() - at >= word.size() && EqualsNoCase(text.substr(at, word.size()), word);
}

std::vector<Token> Tokenize(const std::string& p) {
  std::vector<Token> tokens;
  for (size_t i = 0; i < p.size();) {
    char c = p[i];
    char lower = LCaseChar(c);
    if (c == '"') {
      size_t close = p.find('"', i + 1);
      if (close == std::string::npos) close = p.size();
      tokens.push_back({Token::Literal, p.substr(i + 1, close - i - 1)});
      i = close + 1;
      continue;
    }
    if (c == '\\') {
      if (i + 1 < p.size()) tokens.push_back({Token::Literal, std::string(1, p[i + 1])});
      i += 2;
      continue;
    }
    bool ampm = false;
    for (const char* word : {"AM/PM", "AMPM", "A/P"}) {
      if (StartsWithNoCase(p, i, word)) {
        tokens.push_back({Token::AmPm, p.substr(i, std::string(word).size())});
        i += std::string(word).size();
        ampm = true;
        break;
      }
    }
    if (ampm) continue;
    size_t run = 1;
    while (i + run < p.size() && LCaseChar(p[i + run]) == lower) ++run;
    size_t take = 0;
    switch (lower) {
      case 'd':
        take = std::min<size_t>(run, 6);
        break;
      case 'm':
        take = std::min<size_t>(run, 4);
        break;
      case 'y':
        take = run >= 4 ? 4 : run >= 2 ? 2 : 1;
        break;
      case 'h':
      case 'n':
      case 's':
      case 'w':
        take = std::min<size_t>(run, 2);
        break;
      case 'q':
      case 'c':
        take = 1;
        break;
      case 't':
        take = run >= 5 ? 5 : 0;
        break;
      default:
        break;
    }
    if (take == 0) {
      tokens.push_back({Token::Literal, std::string(1, c)});
      ++i;
    } else {
      tokens.push_back({Token::Date, std::string(take, lower)});
      i += take;
    }
  }
  // "m" and "mm" are minutes right after an hour token or right before a seconds token.
  for (size_t i = 0; i < tokens.size(); ++i) {
    Token& t = tokens[i];
    if (t.kind != Token::Date || (t.text != "m" && t.text != "mm")) continue;
    for (size_t j = i; j-- > 0;) {
      if (tokens[j].kind == Token::Literal) continue;
      t.minute = tokens[j].kind == Token::Date && tokens[j].text[0] == 'h';
      break;
    }
    for (size_t j = i + 1; j < tokens.size() && !t.minute; ++j) {
      if (tokens[j].kind == Token::Literal) continue;
      t.minute = tokens[j].kind == Token::Date && tokens[j].text[0] == 's';
      break;
    }
  }
  return tokens;
}

std::string Number(int n, int width) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%0*d", width, n);
  return buf;
}

std::string AmPmText(const std::string& token, bool pm) {
  if (EqualsNoCase(token, "A/P")) {
    char letter = pm ? 'P' : 'A';
    return std::string(1, token[0] == 'a' ? LCaseChar(letter) : letter);
  }
  std::string word = pm ? "PM" : "AM";
  return token[0] == 'a' ? LCase(word) : word;
}

}  // namespace

std::string ApplyDatePattern(double date, const std::string& pattern) {
  std::vector<Token> tokens = Tokenize(pattern);
  DateParts p = SplitDate(date);
  bool twelveHour = false;
  for (const Token& t : tokens) twelveHour = twelveHour || t.kind == Token::AmPm;
  int hour = twelveHour ? (p.hour % 12 == 0 ? 12 : p.hour % 12) : p.hour;
  std::string out;
  for (const Token& t : tokens) {
    if (t.kind == Token::Literal) {
      out += t.text;
      continue;
    }
    if (t.kind == Token::AmPm) {
      out += AmPmText(t.text, p.hour >= 12);
      continue;
    }
    const std::string& k = t.text;
    if (k == "d")
      out += std::to_string(p.day);
    else if (k == "dd")
      out += Number(p.day, 2);
    else if (k == "ddd")
      out += WeekdayName(Weekday(date), true);
    else if (k == "dddd")
      out += WeekdayName(Weekday(date));
    else if (k == "ddddd")
      out += ApplyDatePattern(date, "dd/mm/yyyy");
    else if (k == "dddddd")
      out += ApplyDatePattern(date, "dd mmmm yyyy");
    else if (k == "w")
      out += std::to_string(Weekday(date));
    else if (k == "ww")
      out += std::to_string(DateDiff("ww", DateSerial(p.year, 1, 1), date) + 1);
    else if (k == "m" && t.minute)
      out += std::to_string(p.minute);
    else if (k == "mm" && t.minute)
      out += Number(p.minute, 2);
    else if (k == "m")
      out += std::to_string(p.month);
    else if (k == "mm")
      out += Number(p.month, 2);
    else if (k == "mmm")
      out += MonthName(p.month, true);
    else if (k == "mmmm")
      out += MonthName(p.month);
    else if (k == "q")
      out += std::to_string((p.month - 1) / 3 + 1);
    else if (k == "y")
      out += std::to_string(DateDiff("d", DateSerial(p.year, 1, 1), date) + 1);
    else if (k == "yy")
      out += Number(p.year % 100, 2);
    else if (k == "yyyy")
      out += std::to_string(p.year);
    else if (k == "h")
      out += std::to_string(hour);
    else if (k == "hh")
      out += Number(hour, 2);
    else if (k == "n")
      out += std::to_string(p.minute);
    else if (k == "nn")
      out += Number(p.minute, 2);
    else if (k == "s")
      out += std::to_string(p.second);
    else if (k == "ss")
      out += Number(p.second, 2);
    else if (k == "c")
      out += DateText(date);
    else if (k == "ttttt")
      out += ApplyDatePattern(date, "hh:nn:ss");
  }
  return out;
}

}  // namespace tolmen
