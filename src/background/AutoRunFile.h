// AUTORUN.KSF, the schedule of background mode, in the program's folder. One field a line (lines
// end with CR LF when written, CR LF or LF when read):
//
//   line        content
//   1           header: "Tolmen AUTORUN FILE"; "VELLUMATOR FOR MAXIMIZER AUTORUN FILE" is read too
//   2           "TRUE" or "FALSE": background mode on at start-up
//   3           the number of templates n
//   4 .. 3+n    the templates' paths
//   next        the method: "INTERVAL", "TIME" or empty
//   next        its value: minutes for "INTERVAL", "hh:mm" for "TIME", empty otherwise
//   last        notify after update: "True" or "False"
//
// The header, "TRUE" and the method are compared without regard to case. Numbers are read as Val
// reads them (an unreadable one is 0). The truth value is read in the runtime's text forms:
// "True", "False" in any case, "#TRUE#", "#FALSE#" or a number (not 0 is true); any other text
// leaves it as it was. Lines missing at the end of a cut file read as empty.
#pragma once

#include <string>
#include <vector>

#include "background/BackgroundState.h"

namespace tolmen {

inline constexpr const char* kAutoRunFileName = "AUTORUN.KSF";
inline constexpr const char* kAutoRunHeader = "Tolmen AUTORUN FILE";
inline constexpr const char* kAutoRunOldHeader = "VELLUMATOR FOR MAXIMIZER AUTORUN FILE";

enum class AutoRunRead { kMissing, kForeign, kRead };

// Reads the lines of the file into the held state: BackgroundOn, TemplateList, UpdateMethod with
// IntervalMinutes ("INTERVAL") or RunTime (any other method, the value read as the time), and
// `showFinalMessage`. A foreign header changes nothing and answers kForeign.
AutoRunRead ReadAutoRunLines(const std::vector<std::string>& lines, BackgroundState& state,
                             bool& showFinalMessage);
// The same from the file at `path` (Windows-1252); kMissing when it does not exist.
AutoRunRead ReadAutoRunFile(const std::string& path, BackgroundState& state,
                            bool& showFinalMessage);

// The file's text: the new header, `backgroundOn`, TemplateList with blanks around each path
// trimmed, the method with its value, and `showFinalMessage`.
std::string AutoRunFileText(const BackgroundState& state, bool backgroundOn, bool showFinalMessage);
// Replaces the file at `path` with that text. Throws RuntimeError (76 path not found, 75 access,
// 61 disk full) when it cannot be written.
void WriteAutoRunFile(const std::string& path, const BackgroundState& state, bool backgroundOn,
                      bool showFinalMessage);

}  // namespace tolmen
