#include "gui/FileFilter.h"

namespace tolmen {

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (true) {
    size_t end = text.find(separator, start);
    parts.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) return parts;
    start = end + 1;
  }
}

std::string Trim(const std::string& text) {
  size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Patterns(const std::string& patterns) {
  std::string out;
  for (const std::string& part : Split(patterns, ';')) {
    std::string pattern = Trim(part);
    if (pattern.empty()) continue;
    if (pattern == "*.*") pattern = "*";
    if (!out.empty()) out += ' ';
    out += pattern;
  }
  return out.empty() ? "*" : out;
}

}  // namespace

std::vector<std::string> QtNameFilters(const std::string& filter) {
  std::vector<std::string> parts = Split(filter, '|');
  if (parts.size() == 1) return {Patterns(parts[0])};
  std::vector<std::string> filters;
  for (size_t i = 0; i + 1 < parts.size(); i += 2) {
    std::string description = Trim(parts[i]);
    // The description's own "(*.ktf)" gives way to the translated patterns.
    if (!description.empty() && description.back() == ')') {
      size_t open = description.rfind('(');
      if (open != std::string::npos) description = Trim(description.substr(0, open));
    }
    std::string patterns = Patterns(parts[i + 1]);
    filters.push_back(description.empty() ? patterns : description + " (" + patterns + ")");
  }
  return filters;
}

}  // namespace tolmen
