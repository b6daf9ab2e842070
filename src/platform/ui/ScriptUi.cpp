// The script front-end: a user played from a script, with a transcript of what was shown.
#include "platform/ui/ScriptUi.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <ostream>

#include "runtime/Cp1252.h"

namespace tolmen {

namespace {

constexpr int kMinuteMs = 60000;
// How often the dialog answered by default may come straight back before it counts as a loop.
constexpr int kLoopRepeats = 2;

// Reads a whole argument as a number not below `least`.
bool ReadCount(const UiAction& action, long least, long& value) {
  if (action.args.size() != 1) return false;
  const std::string& text = action.args[0];
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size() && value >= least;
}

std::string JoinButtons(int style) {
  std::string joined;
  for (int button : MsgBoxButtons(style)) {
    if (!joined.empty()) joined += '/';
    joined += MsgBoxButtonName(button);
  }
  return joined;
}

}  // namespace

ScriptUi::ScriptUi(const std::vector<std::string>& scriptLines, std::ostream* transcript,
                   Clock& clock, std::string defaultTitle)
    : HeadlessUi(clock, std::move(defaultTitle)),
      script_(ParseScript(scriptLines)),
      transcript_(transcript) {}

ScriptUi::ScriptUi(const std::vector<std::string>& scriptLines,
                   std::unique_ptr<std::ostream> transcript, Clock& clock, std::string defaultTitle)
    : ScriptUi(scriptLines, transcript.get(), clock, std::move(defaultTitle)) {
  ownedTranscript_ = std::move(transcript);
}

std::unique_ptr<ScriptUi> ScriptUi::FromFiles(const std::string& scriptPath,
                                              const std::string& transcriptPath, Clock& clock,
                                              std::string defaultTitle, std::string& error) {
  std::vector<std::string> lines;
  if (!ReadScriptFile(scriptPath, lines, error)) return nullptr;
  std::unique_ptr<std::ostream> transcript;
  if (!transcriptPath.empty()) {
    auto file = std::make_unique<std::ofstream>(transcriptPath, std::ios::binary | std::ios::trunc);
    if (!*file) {
      error = "cannot write the transcript " + transcriptPath;
      return nullptr;
    }
    transcript = std::move(file);
  }
  return std::make_unique<ScriptUi>(lines, std::move(transcript), clock, std::move(defaultTitle));
}

const ScriptLine* ScriptUi::PeekAnswer() const {
  if (Finished() || script_[next_].kind == ScriptLine::Kind::Action) return nullptr;
  return &script_[next_];
}

void ScriptUi::Write(const std::string& line) {
  if (transcript_ == nullptr) return;
  *transcript_ << Cp1252ToUtf8(line) << '\n';
  transcript_->flush();
}

void ScriptUi::WriteLines(const std::string& text) {
  for (const std::string& line : SplitLines(text)) Write(line);
}

void ScriptUi::NoteFocus() {
  if (window_ == nullptr) return;
  const std::string asked = window_->TakeFocusRequest();
  if (!asked.empty()) Write("-- focus " + asked);
}

void ScriptUi::ShowDialog(const std::string& heading, const std::string& text, bool writeText) {
  NoteFocus();
  // Once the script has ended every dialog takes its default. A dialog may come twice in a row
  // (asked once more by the next step); the same dialog back a third time comes back for ever.
  const std::string dialog = heading + '\n' + text;
  if (Finished() && dialog == lastDefaulted_) {
    if (++repeats_ >= kLoopRepeats) {
      Note("script ended inside a loop");
      std::exit(kExitScriptLoop);
    }
  } else {
    repeats_ = 0;
  }
  lastDefaulted_ = Finished() ? dialog : std::string();
  Write(heading);
  if (writeText) WriteLines(text);
}

int ScriptUi::MsgBox(const std::string& prompt, int style, const std::string& title) {
  std::string icon = MsgBoxIconName(style);
  ShowDialog("== MsgBox | " + TitleOr(title) + " | " + JoinButtons(style) + " | " +
                 (icon.empty() ? "None" : icon),
             prompt);

  int answer = MsgBoxDefaultAnswer(style);
  if (const ScriptLine* line = PeekAnswer()) {
    ++next_;
    std::vector<int> buttons = MsgBoxButtons(style);
    bool shown = line->kind == ScriptLine::Kind::Answer &&
                 std::find(buttons.begin(), buttons.end(), line->answer) != buttons.end();
    if (shown)
      answer = line->answer;
    else
      Note("not a button here: " + line->written);
  }
  Write("-> " + MsgBoxButtonName(answer));
  return answer;
}

std::string ScriptUi::InputBox(const std::string& prompt, const std::string& title,
                               const std::string& defaultText) {
  ShowDialog("== InputBox | " + TitleOr(title) + " | " + defaultText, prompt);

  std::string text = defaultText;
  bool cancelled = false;
  if (const ScriptLine* line = PeekAnswer()) {
    ++next_;
    if (line->kind == ScriptLine::Kind::Text)
      text = line->text;
    else if (line->answer == vbCancel)
      cancelled = true;
    else if (line->answer != vbOK)
      Note("not a button here: " + line->written);
  }
  Write(cancelled ? "-> Cancel" : "-> = " + text);
  return cancelled ? "" : text;
}

bool ScriptUi::FileDialog(const FileDialogRequest& request, std::string& path) {
  std::string title = request.title.empty() ? (request.save ? "Save As" : "Open") : request.title;
  ShowDialog("== FileDialog | " + title + " | " + (request.save ? "Save" : "Open"),
             request.initialFolder + request.fileName, false);

  std::string chosen;
  if (const ScriptLine* line = PeekAnswer()) {
    ++next_;
    if (line->kind == ScriptLine::Kind::Text) {
      chosen = line->text;
    } else if (line->answer == vbOK && !request.fileName.empty()) {
      chosen = request.initialFolder + request.fileName;
    } else if (line->answer != vbCancel) {
      Note("not a button here: " + line->written);
    }
  }
  if (chosen.empty()) {
    Write("-> Cancel");
    return false;
  }
  Write("-> " + chosen);
  path = chosen;
  return true;
}

void ScriptUi::Beep() {
  Write("== Beep");
}

void ScriptUi::Yield(long clientOrdinal) {
  RunDueTimers(false);
  PollSystemClose();
  NoteFocus();
  if (pendingPause_ && clientOrdinal == *pendingPause_ && window_ != nullptr) {
    pendingPause_.reset();
    UiAction pause{"click", {"cmdAbort"}, "@click cmdAbort"};
    Write("@ click cmdAbort");
    HandOver(pause, *window_);
  }
}

void ScriptUi::Run(WindowModel& window) {
  WindowModel* outer = window_;
  window_ = &window;
  while (window.IsOpen()) {
    if (PollSystemClose()) continue;
    if (Finished()) {
      window.RequestClose();
      if (window.IsOpen()) Note("window still open at end of script");
      break;
    }
    const ScriptLine& line = script_[next_++];
    if (line.kind != ScriptLine::Kind::Action) {
      Note("no dialog for: " + line.written);
      continue;
    }
    PerformAction(line.action, window);
  }
  window_ = outer;
}

void ScriptUi::PerformAction(const UiAction& action, WindowModel& window) {
  Write("@ " + action.line.substr(1));
  long count = 0;
  if (action.verb == "pause") {
    if (!ReadCount(action, 1, count)) return Note("bad action: " + action.line);
    pendingPause_ = count;
  } else if (action.verb == "minutes") {
    if (!ReadCount(action, 0, count)) return Note("bad action: " + action.line);
    auto minuteTimer = [](const Timer& timer) { return timer.Interval() == kMinuteMs; };
    for (long tick = 0; tick < count && window.IsOpen(); ++tick) {
      SleepUnlessClosing(60);
      if (PollSystemClose()) continue;
      timers_.FireAll(clock_.Now(), minuteTimer);
    }
  } else if (action.verb == "close") {
    if (!action.args.empty()) return Note("bad action: " + action.line);
    window.RequestClose();
  } else {
    HandOver(action, window);
  }
}

void ScriptUi::HandOver(const UiAction& action, WindowModel& window) {
  std::string reason = performer_ ? performer_(action, window) : window.Perform(action);
  if (!reason.empty()) Note("not done: " + reason);
  NoteFocus();
}

bool ScriptUi::PrintText(const std::string& text) {
  Write("== Print");
  WriteLines(text);
  return true;
}

bool ScriptUi::OpenInEditor(const std::string& path) {
  Write("== Editor " + path);
  return true;
}

bool ScriptUi::ShowHelp(const std::string& helpFile, const std::string& page) {
  Write("== Help " + helpFile + " " + page);
  return true;
}

void ScriptUi::TrayAdd(const std::string& tip) {
  Write("== Tray add " + NoteTray(true, tip));
}

void ScriptUi::TrayModify(const std::string& tip) {
  Write("== Tray modify " + NoteTray(true, tip));
}

void ScriptUi::TrayRemove() {
  NoteTray(false, "");
  Write("== Tray remove");
}

}  // namespace tolmen
