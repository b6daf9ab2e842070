#include "recordio/TextHelpers.h"

#include "runtime/Strings.h"

namespace tolmen {
namespace {

std::string TabsToBlanks(std::string text) {
  for (char& c : text)
    if (c == '\t') c = ' ';
  return text;
}

std::string Pad(const std::string& value, long width, char fill) {
  const std::string trimmed = Trim(value);
  const auto length = static_cast<long>(trimmed.size());
  if (length >= width) return Left(value, width);
  return trimmed + std::string(static_cast<size_t>(width - length), fill);
}

std::string Pop(std::string& source, const std::string& delimiter, bool trim) {
  const std::string copy = source + delimiter;
  const size_t at = delimiter.empty() ? 0 : copy.find(delimiter);
  std::string field = copy.substr(0, at);
  const size_t rest = at + delimiter.size();
  source = rest < source.size() ? source.substr(rest) : "";
  if (trim) {
    field = Trim(field);
    source = Trim(source);
  }
  return field;
}

}  // namespace

std::string StripField(const std::string& text) {
  std::string out;
  for (char c : text)
    if (c != '\0') out += c;
  return Trim(TabsToBlanks(out));
}

std::string CleanText(const std::string& text) {
  return Trim(TabsToBlanks(text.substr(0, text.find('\0'))));
}

std::string PadToWidth(const std::string& value, long width) {
  return Pad(value, width, ' ');
}

std::string PadToWidthNul(const std::string& value, long width) {
  return Pad(value, width, '\0');
}

std::string RemoveChar(const std::string& text, const std::string& character) {
  return Replace(text, character, "");
}

std::string StripForLog(const std::string& text) {
  std::string out;
  for (char c : Replace(text, "  ", ""))
    if (c != '\0' && c != '\r' && c != '\n') out += c;
  return out;
}

std::string PopField(std::string& source, const std::string& delimiter) {
  return Pop(source, delimiter, true);
}

std::string PopFieldRaw(std::string& source, const std::string& delimiter) {
  return Pop(source, delimiter, false);
}

std::string CsvQuote(const std::string& text) {
  return "\"" + Replace(Trim(text), "\"", "'") + "\"";
}

}  // namespace tolmen
