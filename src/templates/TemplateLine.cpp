#include "templates/TemplateLine.h"

#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Strings.h"

namespace tolmen {

std::vector<std::string> TemplateLines(const std::string& bytes) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < bytes.size()) {
    size_t end = bytes.find('\n', start);
    if (end == std::string::npos) end = bytes.size();
    std::string line = bytes.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

std::string InputField(const std::string& line, std::string& rest) {
  rest.clear();
  size_t at = line.find_first_not_of(" \t");
  if (at == std::string::npos) return "";
  std::string field;
  size_t comma;
  if (line[at] == '"') {
    size_t close = line.find('"', at + 1);
    if (close == std::string::npos) return line.substr(at + 1);
    field = line.substr(at + 1, close - at - 1);
    comma = line.find(',', close + 1);
  } else {
    comma = line.find(',', at);
    field = line.substr(at, comma == std::string::npos ? std::string::npos : comma - at);
    size_t last = field.find_last_not_of(" \t");
    field.erase(last == std::string::npos ? 0 : last + 1);
  }
  if (comma != std::string::npos) rest = line.substr(comma + 1);
  return field;
}

bool IsTemplateHeader(const std::string& field) {
  return EqualsNoCase(field, kTemplateHeader) || EqualsNoCase(field, kOldTemplateHeader);
}

TemplateLine SplitTemplateLine(const std::string& line) {
  TemplateLine split;
  const size_t separator = line.find(": ");
  if (separator == std::string::npos) {
    split.key = line;
  } else {
    split.key = line.substr(0, separator);
    split.value = line.substr(separator + 2);
  }
  const size_t colon = split.key.find(':');
  if (colon != std::string::npos) {
    // Everything behind the key's first colon belongs to the value, the ": " included.
    split.value = line.substr(colon + 1);
    split.key.erase(colon);
  }
  return split;
}

std::string ToMaxFromTemplate(const std::string& value) {
  const std::string head = value.substr(0, value.find('|'));
  const size_t period = head.find("Period ");
  if (period != std::string::npos && head.find("Period  ") == std::string::npos &&
      Val(head.substr(period + 7)) < 10)
    return Replace(value.substr(0, period) + "Period  " + value.substr(period + 7), "|", "\t");
  return Replace(value, "|", "\t");
}

std::string ToMaxToTemplate(const std::string& link) {
  return Replace(link, "\t", "|");
}

std::string BillFromTemplate(const std::string& value) {
  return Replace(value, "then Invoice", "then Batch Invoice");
}

}  // namespace tolmen
