#include "background/AutoRunFile.h"

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

#include "runtime/Conversion.h"
#include "runtime/ReplaceFile.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "runtime/Trap.h"

namespace tolmen {
namespace {

// The lines of a file in order; a line past the end reads as empty.
class LineInput {
 public:
  explicit LineInput(const std::vector<std::string>& lines) : lines_(lines) {}
  std::string Next() { return next_ < lines_.size() ? lines_[next_++] : std::string(); }

 private:
  const std::vector<std::string>& lines_;
  size_t next_ = 0;
};

int16_t ReadInteger(const std::string& text) {
  try {
    return static_cast<int16_t>(CInt(Variant(Val(text))));
  } catch (const RuntimeError&) {
    return 0;
  }
}

void ReadTruth(const std::string& text, bool& value) {
  const std::string word = UCase(Trim(text));
  if (word == "#TRUE#" || word == "#FALSE#") {
    value = word == "#TRUE#";
    return;
  }
  try {
    value = CBool(Variant(text));
  } catch (const RuntimeError&) {
    // Not a truth value: the flag keeps what it held.
  }
}

}  // namespace

AutoRunRead ReadAutoRunLines(const std::vector<std::string>& lines, BackgroundState& state,
                             bool& showFinalMessage) {
  LineInput in(lines);
  const std::string header = in.Next();
  if (!EqualsNoCase(header, kAutoRunHeader) && !EqualsNoCase(header, kAutoRunOldHeader))
    return AutoRunRead::kForeign;
  state.BackgroundOn = EqualsNoCase(in.Next(), "TRUE");
  const int16_t count = ReadInteger(in.Next());
  state.TemplateList.clear();
  for (int16_t index = 0; index < count; ++index) state.TemplateList.push_back(in.Next());
  const std::string method = in.Next();
  if (EqualsNoCase(method, kMethodInterval)) {
    state.IntervalMinutes = ReadInteger(in.Next());
    state.UpdateMethod = kMethodInterval;
  } else if (EqualsNoCase(method, kMethodTime)) {
    state.RunTime = in.Next();
    state.UpdateMethod = kMethodTime;
  } else {
    state.RunTime = in.Next();
    state.UpdateMethod.clear();
  }
  ReadTruth(in.Next(), showFinalMessage);
  return AutoRunRead::kRead;
}

AutoRunRead ReadAutoRunFile(const std::string& path, BackgroundState& state,
                            bool& showFinalMessage) {
  std::ifstream file(SystemPath(path), std::ios::binary);
  if (!file) return AutoRunRead::kMissing;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return ReadAutoRunLines(lines, state, showFinalMessage);
}

std::string AutoRunFileText(const BackgroundState& state, bool backgroundOn,
                            bool showFinalMessage) {
  std::string text;
  const auto line = [&text](const std::string& field) { text += field + "\r\n"; };
  line(kAutoRunHeader);
  line(backgroundOn ? "TRUE" : "FALSE");
  line(std::to_string(state.TemplateList.size()));
  for (const std::string& name : state.TemplateList) line(Trim(name));
  if (state.UpdateMethod == kMethodInterval) {
    line(kMethodInterval);
    line(std::to_string(state.IntervalMinutes));
  } else if (state.UpdateMethod == kMethodTime) {
    line(kMethodTime);
    line(state.RunTime);
  } else {
    line("");
    line("");
  }
  line(showFinalMessage ? "True" : "False");
  return text;
}

void WriteAutoRunFile(const std::string& path, const BackgroundState& state, bool backgroundOn,
                      bool showFinalMessage) {
  const std::string text = AutoRunFileText(state, backgroundOn, showFinalMessage);
  // Whole or not at all: a full disk leaves the old file as it was.
  if (const int failure = ReplaceFile(SystemPath(path), text)) {
    // A file being created can only be missing its folder: 76 "Path not found".
    const int number = failure == ENOENT ? ENOTDIR : failure;
    throw ToRuntimeError(std::system_error(number, std::generic_category(), path));
  }
}

}  // namespace tolmen
