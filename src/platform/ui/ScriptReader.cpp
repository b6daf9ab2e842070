// The lines of a user script: answers for dialogs and actions for the main window.
#include "platform/ui/ScriptReader.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "runtime/Cp1252.h"

namespace tolmen {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string Trim(const std::string& text) {
  size_t begin = 0, end = text.size();
  while (begin < end && IsBlank(text[begin])) ++begin;
  while (end > begin && IsBlank(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

// Takes the next argument from `pos`: a word up to a blank, or a quoted text up to its closing
// quote (an unclosed quote runs to the end of the line). False when only blanks remain.
bool NextArgument(const std::string& text, size_t& pos, std::string& arg) {
  while (pos < text.size() && IsBlank(text[pos])) ++pos;
  if (pos >= text.size()) return false;
  arg.clear();
  if (text[pos] == '"') {
    size_t close = text.find('"', pos + 1);
    if (close == std::string::npos) close = text.size();
    arg = text.substr(pos + 1, close - pos - 1);
    pos = close < text.size() ? close + 1 : close;
    return true;
  }
  while (pos < text.size() && !IsBlank(text[pos])) arg += text[pos++];
  return true;
}

std::string LowerAscii(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

}  // namespace

UiAction ParseAction(const std::string& line) {
  UiAction action;
  action.line = Trim(line);
  std::string body =
      action.line.empty() || action.line[0] != '@' ? action.line : action.line.substr(1);
  size_t pos = 0;
  while (pos < body.size() && IsBlank(body[pos])) ++pos;
  while (pos < body.size() && !IsBlank(body[pos])) action.verb += body[pos++];
  action.verb = LowerAscii(action.verb);

  std::string arg;
  if (action.verb == "set" || action.verb == "select") {
    if (!NextArgument(body, pos, arg)) return action;
    action.args.push_back(arg);
    std::string value = Trim(body.substr(pos));
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
      value = value.substr(1, value.size() - 2);
    action.args.push_back(value);
    return action;
  }
  while (NextArgument(body, pos, arg)) action.args.push_back(arg);
  return action;
}

std::vector<ScriptLine> ParseScript(const std::vector<std::string>& utf8Lines) {
  std::vector<ScriptLine> script;
  for (const std::string& raw : utf8Lines) {
    std::string line = Utf8ToCp1252(raw);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string trimmed = Trim(line);
    if (trimmed.empty() || trimmed[0] == '#') continue;

    ScriptLine entry;
    entry.written = trimmed;
    if (trimmed[0] == '@') {
      entry.kind = ScriptLine::Kind::Action;
      entry.action = ParseAction(trimmed);
    } else if (trimmed[0] == '=') {
      // The text keeps its own blanks: only the one blank after '=' goes, and the line's end is
      // taken as written.
      entry.kind = ScriptLine::Kind::Text;
      size_t at = line.find('=') + 1;
      if (at < line.size() && line[at] == ' ') ++at;
      entry.text = line.substr(at);
    } else {
      entry.kind = ScriptLine::Kind::Answer;
      entry.answer = MsgBoxAnswerFromName(trimmed);
    }
    script.push_back(std::move(entry));
  }
  return script;
}

bool ReadScriptFile(const std::string& path, std::vector<std::string>& lines, std::string& error) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    error = "cannot read the script " + path + ": it is a folder";
    return false;
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    error = "cannot read the script " + path + ": " + std::strerror(errno);
    return false;
  }
  std::stringstream buffer;
  buffer << file.rdbuf();
  std::string content = buffer.str();
  if (content.rfind("\xEF\xBB\xBF", 0) == 0) content.erase(0, 3);

  lines.clear();
  std::istringstream in(content);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return true;
}

}  // namespace tolmen
