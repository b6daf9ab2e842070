#include "runtime/DateParse.h"

#include <optional>
#include <vector>

#include "runtime/Cp1252.h"
#include "runtime/DateTime.h"

namespace tolmen {
namespace {

// The text cut into runs of digits, runs of letters, runs of blanks and single other characters.
struct Token {
  enum Kind { Number, Word, Blank, Mark } kind;
  std::string text;
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::vector<Token> Tokenize(const std::string& text) {
  std::vector<Token> tokens;
  size_t i = 0;
  while (i < text.size()) {
    char c = text[i];
    size_t j = i + 1;
    Token::Kind kind = Token::Mark;
    if (IsDigit(c)) {
      kind = Token::Number;
      while (j < text.size() && IsDigit(text[j])) ++j;
    } else if (IsLetter(c)) {
      kind = Token::Word;
      while (j < text.size() && IsLetter(text[j])) ++j;
    } else if (c == ' ' || c == '\t') {
      kind = Token::Blank;
      while (j < text.size() && (text[j] == ' ' || text[j] == '\t')) ++j;
    }
    tokens.push_back({kind, text.substr(i, j - i)});
    i = j;
  }
  return tokens;
}

int NumberOf(const Token& t) {
  return t.text.size() > 4 ? -1 : std::stoi(t.text);
}

int MonthOfName(const std::string& word) {
  for (int m = 1; m <= 12; ++m) {
    if (EqualsNoCase(word, MonthName(m)) || EqualsNoCase(word, MonthName(m, true))) return m;
  }
  return 0;
}

// The year of a number token by the two-digit window; 0 when it is no year.
int YearOf(const Token& t) {
  int n = NumberOf(t);
  if (n < 0) return 0;
  if (t.text.size() <= 2) return n < 30 ? 2000 + n : 1900 + n;
  return n >= 100 ? n : 0;
}

struct Span {
  const std::vector<Token>& tokens;
  size_t begin;
  size_t end;
  size_t size() const { return end - begin; }
  const Token& operator[](size_t i) const { return tokens[begin + i]; }
};

std::optional<double> DateOf(int year, int month, int day) {
  if (year < 100 || year > 9999 || month < 1 || month > 12) return std::nullopt;
  if (day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
  return DateFromParts(year, month, day);
}

bool IsSeparator(const Token& t) {
  return t.kind == Token::Mark && (t.text == "/" || t.text == "-" || t.text == ".");
}

// "15/03/2024", "2024-03-15": numbers with the same separator twice.
std::optional<double> NumericDate(const Span& s) {
  if (s.size() != 5 || s[0].kind != Token::Number || s[2].kind != Token::Number ||
      s[4].kind != Token::Number || !IsSeparator(s[1]) || s[1].text != s[3].text)
    return std::nullopt;
  if (s[0].text.size() >= 3) {
    if (s[2].text.size() > 2 || s[4].text.size() > 2) return std::nullopt;
    return DateOf(YearOf(s[0]), NumberOf(s[2]), NumberOf(s[4]));
  }
  if (s[2].text.size() > 2) return std::nullopt;
  return DateOf(YearOf(s[4]), NumberOf(s[2]), NumberOf(s[0]));
}

// "15 Mar 2024", "15-Mar-2024": day, month name and year, each separator blanks or one of
// / - . with blanks around it allowed.
std::optional<double> NamedMonthDate(const Span& s) {
  std::vector<const Token*> parts;
  bool separated = true;  // a separator stands between the last part and here
  int marks = 0;
  for (size_t i = 0; i < s.size(); ++i) {
    const Token& t = s[i];
    if (t.kind == Token::Number || t.kind == Token::Word) {
      if (!separated) return std::nullopt;
      parts.push_back(&t);
      separated = false;
      marks = 0;
    } else if (parts.empty() || (t.kind == Token::Mark && (!IsSeparator(t) || ++marks > 1))) {
      return std::nullopt;
    } else {
      separated = true;
    }
  }
  if (separated || parts.size() != 3 || parts[0]->kind != Token::Number ||
      parts[1]->kind != Token::Word || parts[2]->kind != Token::Number || parts[0]->text.size() > 2)
    return std::nullopt;
  int month = MonthOfName(parts[1]->text);
  if (month == 0) return std::nullopt;
  return DateOf(YearOf(*parts[2]), month, NumberOf(*parts[0]));
}

// "14:30", "14:30:15", "2:30 PM": the time as a fraction of a day.
std::optional<double> TimeOf(const Span& s) {
  size_t n = s.size();
  int half = 0;  // 1 AM, 2 PM
  if (n >= 1 && s[n - 1].kind == Token::Word) {
    if (EqualsNoCase(s[n - 1].text, "AM"))
      half = 1;
    else if (EqualsNoCase(s[n - 1].text, "PM"))
      half = 2;
    else
      return std::nullopt;
    n -= (n >= 2 && s[n - 2].kind == Token::Blank) ? 2 : 1;
  }
  if (n != 3 && n != 5) return std::nullopt;
  int values[3] = {0, 0, 0};
  for (size_t i = 0; i < n; ++i) {
    const Token& t = s[i];
    if (i % 2 == 1) {
      if (t.kind != Token::Mark || t.text != ":") return std::nullopt;
    } else {
      if (t.kind != Token::Number || t.text.size() > 2) return std::nullopt;
      values[i / 2] = NumberOf(t);
    }
  }
  int hour = values[0];
  if (half != 0) {
    if (hour < 1 || hour > 12) return std::nullopt;
    hour = hour % 12 + (half == 2 ? 12 : 0);
  }
  if (hour > 23 || values[1] > 59 || values[2] > 59) return std::nullopt;
  return (hour * 3600 + values[1] * 60 + values[2]) / 86400.0;
}

std::optional<double> DateOnly(const Span& s) {
  if (auto d = NumericDate(s)) return d;
  return NamedMonthDate(s);
}

// Joins a date and a time of day with the rule for dates before 30 December 1899.
double Combine(double date, double time) {
  return date < 0 ? date - time : date + time;
}

}  // namespace

bool ParseDate(const std::string& text, double& date) {
  std::vector<Token> tokens = Tokenize(text);
  size_t begin = 0;
  size_t end = tokens.size();
  if (begin < end && tokens[begin].kind == Token::Blank) ++begin;
  if (end > begin && tokens[end - 1].kind == Token::Blank) --end;
  if (begin == end) return false;
  Span all{tokens, begin, end};

  std::optional<double> result = TimeOf(all);
  if (!result) result = DateOnly(all);
  if (!result) {
    // A date and a time, in either order, split at a blank.
    for (size_t cut = begin + 1; cut + 1 < end && !result; ++cut) {
      if (tokens[cut].kind != Token::Blank) continue;
      Span left{tokens, begin, cut};
      Span right{tokens, cut + 1, end};
      std::optional<double> date1 = DateOnly(left);
      std::optional<double> time1 = date1 ? TimeOf(right) : TimeOf(left);
      std::optional<double> date2 = date1 ? date1 : (time1 ? DateOnly(right) : std::nullopt);
      if (date2 && time1) result = Combine(*date2, *time1);
    }
  }
  if (!result) return false;
  date = *result;
  return true;
}

}  // namespace tolmen
