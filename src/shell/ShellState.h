// The shell's own state: the debugging level, what the start is doing, the hourglass count.
#pragma once

#include <string>

namespace tolmen {

struct ShellState {
  int DebugLevel = 0;
  std::string StartupSection;
  bool AutoRunAllowed = true;
  bool FirstActivationDone = false;
  int BusyCount = 0;
  std::string CommandLine;  // argv[1..] joined by blanks
};

}  // namespace tolmen
