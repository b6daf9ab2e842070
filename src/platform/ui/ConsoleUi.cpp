// The console front-end: dialogs as questions on the terminal, progress as one refreshed line.
#include "platform/ui/ConsoleUi.h"

#include <algorithm>
#include <cstdlib>
#include <istream>
#include <ostream>

#include "platform/ui/HelpPage.h"
#include "platform/ui/ProgramLauncher.h"
#include "platform/ui/SignalWatch.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen {

namespace {

std::string Trim(const std::string& text) {
  size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string::npos) return "";
  size_t end = text.find_last_not_of(" \t");
  return text.substr(begin, end - begin + 1);
}

// "[Y]es [N]o [C]ancel"
std::string ButtonKeys(const std::vector<int>& buttons) {
  std::string keys;
  for (int button : buttons) {
    std::string name = MsgBoxButtonName(button);
    if (!keys.empty()) keys += ' ';
    keys += "[" + name.substr(0, 1) + "]" + name.substr(1);
  }
  return keys;
}

int ButtonFromReply(const std::string& reply, const std::vector<int>& buttons) {
  for (int button : buttons) {
    std::string name = MsgBoxButtonName(button);
    if (EqualsNoCase(reply, name) || EqualsNoCase(reply, name.substr(0, 1))) return button;
  }
  return 0;
}

// A file name as a dialog in `folder` would take it.
std::string ResolveFileName(const std::string& typed, const FileDialogRequest& request) {
  std::string path = typed;
  if (path.rfind("~/", 0) == 0) {
    const char* home = std::getenv("HOME");
    if (home != nullptr) path = PathFromSystem(home) + path.substr(1);
  } else if (!path.empty() && path[0] != '/') {
    path = request.initialFolder + path;
  }
  size_t slash = path.rfind('/');
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  if (!request.defaultExtension.empty() && name.find('.') == std::string::npos)
    path += "." + request.defaultExtension;
  return path;
}

}  // namespace

ConsoleUi::ConsoleUi(std::istream& in, std::ostream& out, Clock& clock, std::string defaultTitle,
                     Terminal terminal)
    : HeadlessUi(clock, std::move(defaultTitle)), in_(in), out_(out), terminal_(terminal) {}

bool ConsoleUi::ReadUtf8Line(std::string& line) {
  if (inputEnded_ || !std::getline(in_, line)) {
    inputEnded_ = true;
    return false;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

bool ConsoleUi::ReadLine(std::string& line) {
  if (!ReadUtf8Line(line)) return false;
  line = Utf8ToCp1252(line);
  return true;
}

void ConsoleUi::EchoAnswer(const std::string& answer, bool typed) {
  if (typed && terminal_.input) return;  // the terminal has shown it already
  Print(answer + "\n");
}

void ConsoleUi::Print(const std::string& text) {
  out_ << Cp1252ToUtf8(text);
}

void ConsoleUi::PrintHeading(const std::string& title, const std::string& text) {
  EndProgressLine();
  Print(title + "\n");
  for (const std::string& line : SplitLines(text)) Print(line + "\n");
}

int ConsoleUi::MsgBox(const std::string& prompt, int style, const std::string& title) {
  PrintHeading(TitleOr(title), prompt);
  std::vector<int> buttons = MsgBoxButtons(style);
  int fallback = MsgBoxDefaultAnswer(style);
  std::string question = ButtonKeys(buttons) + " (default " + MsgBoxButtonName(fallback) + "): ";
  while (true) {
    Print(question);
    out_.flush();
    std::string reply;
    if (!ReadLine(reply)) {
      EchoAnswer(MsgBoxButtonName(fallback), false);
      return fallback;
    }
    reply = Trim(reply);
    int chosen = reply.empty() ? fallback : ButtonFromReply(reply, buttons);
    if (chosen != 0) {
      EchoAnswer(MsgBoxButtonName(chosen), true);
      return chosen;
    }
    EchoAnswer(reply, true);
  }
}

std::string ConsoleUi::InputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) {
  PrintHeading(TitleOr(title), prompt);
  Print(defaultText.empty() ? "> " : "[" + defaultText + "] > ");
  out_.flush();
  std::string reply;
  if (!ReadLine(reply)) {
    EchoAnswer("(cancelled)", false);
    return "";
  }
  EchoAnswer(reply, true);
  return reply.empty() ? defaultText : reply;
}

bool ConsoleUi::FileDialog(const FileDialogRequest& request, std::string& path) {
  std::string title = request.title.empty() ? (request.save ? "Save As" : "Open") : request.title;
  PrintHeading(title, request.initialFolder.empty() ? "" : "Folder: " + request.initialFolder);
  Print(request.fileName.empty() ? "File name > " : "File name [" + request.fileName + "] > ");
  out_.flush();
  std::string typed;
  if (!ReadUtf8Line(typed)) {
    EchoAnswer("(cancelled)", false);
    return false;
  }
  std::string reply = Utf8ToCp1252(typed);
  EchoAnswer(reply, true);
  try {
    reply = Trim(PathFromSystem(typed));
    if (reply.empty()) reply = request.fileName;
    if (reply.empty()) return false;
    path = ResolveFileName(reply, request);
  } catch (const RuntimeError& refused) {  // a path Windows-1252 cannot hold
    Print(refused.Description() + "\n");
    return false;
  }
  return true;
}

void ConsoleUi::Beep() {
  if (terminal_.output) {
    out_ << '\a';
    out_.flush();
  }
}

void ConsoleUi::Yield(long /*clientOrdinal*/) {
  RunDueTimers(!clock_.IsVirtual());
  PollSystemClose();
  ShowProgress();
}

void ConsoleUi::ShowProgress() {
  if (window_ == nullptr) return;
  std::string status = window_->StatusText();
  if (status == lastStatus_) return;
  lastStatus_ = status;
  for (char& c : status)
    if (c == '\r' || c == '\n') c = ' ';
  if (terminal_.output) {
    out_ << '\r' << Cp1252ToUtf8(status) << "\x1b[K";
    progressLineOpen_ = true;
  } else {
    out_ << Cp1252ToUtf8(status) << '\n';
  }
  out_.flush();
}

void ConsoleUi::EndProgressLine() {
  if (!progressLineOpen_) return;
  out_ << '\n';
  progressLineOpen_ = false;
}

void ConsoleUi::Run(WindowModel& window) {
  WindowModel* outer = window_;
  window_ = &window;
  if (window.IsOpen() && !window.IsVisible() && timers_.AnyActive()) RunInBackground(window);
  if (window.IsOpen()) {
    window.RequestClose();
    if (window.IsOpen()) {
      EndProgressLine();
      out_ << "The window did not close.\n";
    }
  }
  EndProgressLine();
  out_.flush();
  window_ = outer;
}

void ConsoleUi::RunInBackground(WindowModel& window) {
  EndProgressLine();
  out_ << "Running in the background; Ctrl+C ends.\n";
  out_.flush();
  SignalWatch signals;
  auto waiting = [&] { return window.IsOpen() && !window.IsVisible() && timers_.AnyActive(); };
  while (waiting()) {
    if (PollSystemClose()) continue;
    timers_.FireDue(clock_.Now());
    ShowProgress();
    if (!waiting()) break;
    std::optional<double> next = timers_.NextDue(clock_.Now());
    double seconds = next ? (*next - clock_.Now()) * 86400.0 : 1.0;
    bool signalled;
    if (clock_.IsVirtual()) {
      signalled = signals.Wait(0) != 0;
      if (!signalled) clock_.Sleep(std::max(seconds, 0.0));
    } else {
      signalled = signals.Wait(seconds) != 0;
    }
    if (signalled) {
      EndProgressLine();
      out_ << "Signal received; closing.\n";
      break;
    }
  }
}

bool ConsoleUi::PrintText(const std::string& text) {
  EndProgressLine();
  out_ << "--- Printed text ---\n";
  for (const std::string& line : SplitLines(text)) Print(line + "\n");
  out_.flush();
  return true;
}

bool ConsoleUi::OpenInEditor(const std::string& path) {
  EndProgressLine();
  std::vector<std::string> command = EditorCommand();
  command.push_back(SystemPath(path));
  out_.flush();
  int status = 0;
  std::string error;
  if (RunProgram(command, status, error)) return true;
  Print("Cannot open " + path + " in an editor: " + Utf8ToCp1252(error) + "\n");
  return false;
}

bool ConsoleUi::ShowHelp(const std::string& /*helpFile*/, const std::string& page) {
  EndProgressLine();
  std::string file = FindHelpPage(SystemPath(page));
  if (file.empty()) {
    Print("Help page not found: " + page + "\n");
    return false;
  }
  out_ << "Help: " << file << '\n';
  return true;
}

void ConsoleUi::TrayAdd(const std::string& tip) {
  TrayModify(tip);
}

void ConsoleUi::TrayModify(const std::string& tip) {
  std::string before = TrayShown() ? TrayTip() : "";
  std::string kept = NoteTray(true, tip);
  if (kept == before) return;
  EndProgressLine();
  Print("Tray: " + kept + "\n");
}

void ConsoleUi::TrayRemove() {
  NoteTray(false, "");
}

}  // namespace tolmen
