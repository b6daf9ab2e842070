// What background mode holds while the process lives: the schedule read from AUTORUN.KSF or set
// in frmOptions, and the minute count of Timer1. The flags it shares with the rest of the system
// live where those are: AutoRunAllowed and TrayInstalled (the tray icon is shown) in ShellState,
// ShowFinalMessage in RunState.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolmen {

// The update methods of the schedule; an empty method never runs.
inline constexpr const char* kMethodInterval = "INTERVAL";
inline constexpr const char* kMethodTime = "TIME";

struct BackgroundState {
  std::string AutoRunFile;  // the program's folder and "AUTORUN.KSF"
  bool BackgroundOn = false;
  // The templates to run, in list order. A missing file leaves one empty entry, which the
  // dialog does not list and whose template cannot be read.
  std::vector<std::string> TemplateList;
  std::string UpdateMethod;  // kMethodInterval, kMethodTime or ""
  int16_t IntervalMinutes = 0;
  std::string RunTime;  // "hh:mm": the daily time, or the next start of an interval
  int16_t MinuteCounter = 0;

  // frmOptions is open (from the end of its load to its unload): the tray's clicks do nothing.
  bool OptionsOpen = false;
  // The user changed something in frmOptions since it was loaded: OK saves the file.
  bool OptionsChanged = false;
};

}  // namespace tolmen
