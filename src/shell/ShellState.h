// The shell's own state: the debugging level, the settings read at start, what the start is
// doing, the hourglass count, the command line, and the exit status the process will end with.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

// Exit statuses of tolmen. Where the system ends the process the status is 0, unless the last run
// counted errors, was cancelled, or could not start.
inline constexpr int kExitOk = 0;
inline constexpr int kExitRunErrors = 1;
inline constexpr int kExitRunNotStarted = 2;
inline constexpr int kExitRunCancelled = 3;

struct ShellState {
  // Debugging level of the settings "Debugging" (0 none, 1 to 4 more and more, -1 casual billing
  // and vital messages). A level of 4 set by GlobalIO's fatal dialog is not stored.
  int DebugLevel = 0;
  // "LogFileLimit": kilobytes of 1024 bytes the log may reach before it is turned over; 0 none.
  int32_t LogFileLimit = 1000;
  // "MultiYear": the multi-year billing method, 1 to 3; 0 not chosen.
  int16_t MultiYear = 0;

  std::string StartupSection;
  bool AutoRunAllowed = true;
  bool FirstActivationDone = false;
  int BusyCount = 0;
  std::string CommandLine;  // argv[1..] joined by blanks
  // "/Q" was on the command line: the process ends after the command line's run.
  bool QuitAfterRun = false;

  // The wizard holds a template (set by TemplateOpen and the end of a run, cleared when the
  // start template fails), and the lists of the "To Pastel" tab have been filled once.
  bool TemplateLoaded = false;
  bool ToPastelFilled = false;
  // The template file TemplateOpen last read to its end (the run journal names it).
  std::string TemplatePath;
  // Background mode put its icon in the notification area; Form_Unload takes it away.
  bool TrayInstalled = false;

  // Where the template file dialog opens, and its filter.
  std::string TemplateDialogFolder;
  std::string TemplateDialogFilter;

  int ExitStatus = kExitOk;
};

}  // namespace tolmen
