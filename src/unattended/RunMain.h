// The `tolmen run` command as the executable starts it: the options read with CLI11, then the
// templates run (RunCommand.h) or the timer written, printed or removed (TimerUnits.h). Also the
// texts of `tolmen --help` and `tolmen --version`.
//
//   tolmen run [--json] [--quiet] [--accept-codes] TEMPLATE...
//   tolmen run --preview [--json] [--quiet] [--accept-codes] TEMPLATE...
//   tolmen run --install-timer (--every MINUTES | --at HH:MM) [run options] TEMPLATE...
//   tolmen run --print-timer (--every MINUTES | --at HH:MM) [run options] TEMPLATE...
//   tolmen run --remove-timer
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "unattended/RunCommand.h"
#include "unattended/UnattendedUi.h"

namespace tolmen {

class Tolmen;
class Clock;

struct RunCommandLine {
  enum class Action { kRun, kPreview, kInstallTimer, kPrintTimer, kRemoveTimer };
  Action action = Action::kRun;
  RunRequest request;
  bool acceptCodes = false;
  int everyMinutes = 0;
  std::string at;
  std::vector<std::string> templatesUtf8;  // as typed
};

// Reads `argv` (argv[0] the program, argv[1] "run"). -1 when the command is to be carried out;
// otherwise the exit status, the help or the usage error printed (0 after --help, 4).
int ParseRunCommandLine(int argc, const char* const* argv, RunCommandLine& line, std::ostream& out,
                        std::ostream& err);

// What the system does before its window shows (Form_Load, with the handlers wired), and after
// it closes (Form_Unload): the settings read and saved, Pastel let go.
void LoadForRun(Tolmen& app);
void UnloadAfterRun(Tolmen& app);

// The whole command: templates run on a fresh application object with `settings`, or the timer.
// `program` is tolmen's absolute path for the timer's service.
int TolmenRun(int argc, const char* const* argv, const std::string& program, Clock& clock,
              bool stderrTerminal, std::ostream& out, std::ostream& err);

// The text of `tolmen --help`.
std::string TolmenHelpText();

}  // namespace tolmen
