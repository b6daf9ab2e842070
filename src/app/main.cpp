// tolmen: picks its front-end, builds the application object and waits for its user.
//
// The front-end is TOLMEN_UI (qt, console or script) when set, else qt when a display is there
// (DISPLAY or WAYLAND_DISPLAY) and console otherwise. With qt and TOLMEN_SCRIPT the window plays
// the script (gui/QtScriptUi.h), writing TOLMEN_TRANSCRIPT and, with TOLMEN_SCREENSHOTS=DIR,
// screenshots into DIR. The command line is argv[1..] joined by
// blanks, read by the start as it always was (see shell/CommandLine.h).
//
// Exit status: 0 where the system ends the process; 1 when the last run counted errors, 2 when a
// run could not start (or the front-end or the program's folder could not be had, or a path
// Windows-1252 cannot hold was given), 3 when the last run was cancelled, 4 when a script ended
// inside a loop of dialogs.
//
// `tolmen run ...` (the first argument "run"), `tolmen undo ...`, `tolmen calendar ...`, `tolmen
// --help` and `tolmen --version` are the Linux build's own commands, read before anything else
// (unattended/RunMain.h, UndoCommand.h, CalendarCommand.h); every other command line goes to the
// system as it stands.
//
// SIGTERM and SIGHUP (the session ends) are the system's close of the window: the handler writes a
// byte on a pipe, and the front-end takes it where the window system runs.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "platform/ui/Clock.h"
#include "platform/ui/HeadlessUiFactory.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "screen/ScreenActions.h"
#include "shell/AppInfo.h"
#include "shell/Application.h"
#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"
#include "unattended/CalendarCommand.h"
#include "unattended/RunMain.h"
#include "unattended/UndoCommand.h"

#ifdef TOLMEN_HAVE_QT
#include <QApplication>
#include <QIcon>

#include "gui/MainWindow.h"
#include "gui/QtScriptUi.h"
#include "gui/QtUi.h"
#include "platform/ui/ScriptUi.h"
#endif

namespace {

// The pipe's write end: all a signal handler may touch.
int sessionEndPipe = -1;

void OnSessionEnd(int /*signal*/) {
  const int saved = errno;
  if (sessionEndPipe >= 0) {
    [[maybe_unused]] const ssize_t written = write(sessionEndPipe, "x", 1);
  }
  errno = saved;
}

// Turns SIGTERM and SIGHUP into bytes on a pipe; the read end, or -1 when there is no pipe.
int WatchSessionEnd() {
  int ends[2];
  if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0) return -1;
  sessionEndPipe = ends[1];
  struct sigaction action {};
  action.sa_handler = OnSessionEnd;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGHUP, &action, nullptr);
  return ends[0];
}

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string ChooseFrontEnd() {
  std::string kind = tolmen::LCase(Env("TOLMEN_UI"));
  if (!kind.empty()) return kind;
  const bool display = !Env("DISPLAY").empty() || !Env("WAYLAND_DISPLAY").empty();
#ifdef TOLMEN_HAVE_QT
  if (display) return "qt";
#else
  (void)display;
#endif
  return "console";
}

// The arguments arrive as UTF-8; the command line is Windows-1252 text like every other. Throws
// RuntimeError 52 when an argument (a template's path) holds a character Windows-1252 cannot.
std::string JoinArguments(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) line += ' ';
    line += tolmen::PathFromSystem(argv[i]);
  }
  return line;
}

int Refused(const tolmen::RuntimeError& error) {
  std::cerr << "tolmen: " << tolmen::Cp1252ToUtf8(error.Description()) << "\n";
  return 2;
}

#ifdef TOLMEN_HAVE_QT
// REQUIRES: the arguments were joined once before (JoinArguments refused none).
int RunQt(int argc, char** argv, const tolmen::AppInfo& info, tolmen::Clock& clock) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QString::fromStdString(tolmen::Cp1252ToUtf8(info.AppName)));
  QApplication::setApplicationVersion(TOLMEN_VERSION);
  QApplication::setWindowIcon(QIcon(":/icons/tolmen.svg"));
  std::unique_ptr<tolmen::QtUi> ui;
  if (const std::string script = Env("TOLMEN_SCRIPT"); !script.empty()) {
    std::string error;
    std::unique_ptr<tolmen::ScriptUi> player =
        tolmen::ScriptUi::FromFiles(script, Env("TOLMEN_TRANSCRIPT"), clock, info.AppName, error);
    if (!player) {
      std::cerr << "tolmen: " << error << "\n";
      return 2;
    }
    ui = std::make_unique<tolmen::QtScriptUi>(std::move(player), clock,
                                              QString::fromStdString(Env("TOLMEN_SCREENSHOTS")));
  } else {
    ui = std::make_unique<tolmen::QtUi>(clock);
  }
  ui->SetDefaultTitle(info.AppName);
  tolmen::Tolmen app(info, *ui, clock);
  // Joined again: QApplication has taken out the arguments that were its own.
  app.shell.CommandLine = JoinArguments(argc, argv);
  tolmen::ScreenActions actions(app.screen);
  tolmen::MainWindow window(app.screen, actions);
  window.SetAbout(QString::fromStdString(tolmen::Cp1252ToUtf8(info.AppTitle)), TOLMEN_VERSION);
  ui->Attach(&window);
  if (const int fd = WatchSessionEnd(); fd >= 0) ui->WatchSystemClose(fd);
  const int status = tolmen::RunApplication(app, actions);
  ui->Attach(nullptr);
  return status;
}
#endif

int RunHeadless(const std::string& kind, const std::string& commandLine,
                const tolmen::AppInfo& info, tolmen::Clock& clock) {
  std::string error;
  std::unique_ptr<tolmen::Ui> ui = tolmen::MakeHeadlessUi(kind, clock, info.AppName, error);
  if (!ui) {
    std::cerr << "tolmen: " << error << "\n";
    return 2;
  }
  tolmen::Tolmen app(info, *ui, clock);
  app.shell.CommandLine = commandLine;
  tolmen::ScreenActions actions(app.screen);
  if (const int fd = WatchSessionEnd(); fd >= 0) ui->WatchSystemClose(fd);
  return tolmen::RunApplication(app, actions);
}

// The program's own absolute path, for the timer's service; argv[0] when it cannot be read.
std::string ProgramPath(const char* argv0) {
  std::error_code ec;
  const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::filesystem::absolute(argv0).string() : path.string();
}

// The Linux build's own commands; -1 when the command line is the system's.
int OwnCommand(int argc, char** argv) {
  if (argc < 2) return -1;
  const std::string first = argv[1];
  if (first == "run") {
    std::unique_ptr<tolmen::Clock> clock = tolmen::MakeClockFromEnvironment();
    return tolmen::TolmenRun(argc, argv, ProgramPath(argv[0]), *clock, isatty(STDERR_FILENO) == 1,
                             std::cout, std::cerr);
  }
  if (first == "undo" || first == "calendar") {
    std::unique_ptr<tolmen::Clock> clock = tolmen::MakeClockFromEnvironment();
    return first == "undo" ? tolmen::TolmenUndo(argc, argv, *clock, std::cout, std::cerr)
                           : tolmen::TolmenCalendar(argc, argv, *clock, std::cout, std::cerr);
  }
  if (argc != 2) return -1;
  if (first == "--help" || first == "-h") {
    std::cout << tolmen::TolmenHelpText();
    return 0;
  }
  if (first == "--version") {
    std::cout << "tolmen " << TOLMEN_VERSION << "\n";
    return 0;
  }
  return -1;
}

}  // namespace

int main(int argc, char** argv) {
  if (const int status = OwnCommand(argc, argv); status >= 0) return status;
  std::unique_ptr<tolmen::Clock> clock = tolmen::MakeClockFromEnvironment();
  tolmen::AppInfo info;
  std::string commandLine;
  try {
    info = tolmen::MakeAppInfo(tolmen::ResolveAppFolder(), TOLMEN_VERSION);
    commandLine = JoinArguments(argc, argv);
  } catch (const tolmen::RuntimeError& e) {
    return Refused(e);
  }
  const std::string kind = ChooseFrontEnd();
#ifdef TOLMEN_HAVE_QT
  if (kind == "qt") return RunQt(argc, argv, info, *clock);
#endif
  if (kind == "qt") {
    std::cerr << "tolmen: this build has no Qt front-end\n";
    return 2;
  }
  return RunHeadless(kind, commandLine, info, *clock);
}
