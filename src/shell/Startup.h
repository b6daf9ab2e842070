// The main window's life: load, first activation, close request and unload, and what the start
// is doing (StartupSection). The front-ends raise these in the order load, first activation,
// close request, close (see Application.h).
#pragma once

#include <string>

namespace tolmen {

class Tolmen;
class RuntimeError;

// Why a close was asked for, as Form_QueryUnload is told.
inline constexpr int vbFormControlMenu = 0;  // the window's close box or control menu
inline constexpr int vbFormCode = 1;         // the program's own Unload
inline constexpr int vbAppWindows = 2;       // the desktop session ends
inline constexpr int vbAppTaskManager = 3;   // the process is told to end from outside

// Hangs the shell's handlers on frmMain: load, unload, the close box (Form_QueryUnload with
// vbFormControlMenu, then Unload), the end of the desktop session (the same with vbAppWindows),
// the Pause button, the debugging level menu item, and background mode (WireBackground).
void WireShell(Tolmen& app);

// Load: the settings and levels, the "Today is" box, the caption, the tabs and ticks the settings
// ask for, the document type list, the start-up entry's tick, tab 0. Errors are shown with the
// start-up section they happened in.
void Form_Load(Tolmen& app);
// The first activation only: OpenMaximizerOLE (its result is not looked at), Back disabled,
// ParseCommandLine, CheckForAutoRun when the auto-run file is allowed. A "/Q" run ends the process
// from here (ProcessEnd).
void Form_Activate(Tolmen& app);
// True when the close is refused: while a run is active, for the close box (0) and the end of
// the session (2); a close from code (1) or from outside (3) always goes through.
bool Form_QueryUnload(Tolmen& app, int unloadMode);
// Unload: "# Debug: Ended " at a level other than 0, the tray icon removed, "Billing",
// "Billing2", "View2Max" and "MultiYear" saved, the Pastel files closed, the toolkit released.
void Form_Unload(Tolmen& app);

// Sets StartupSection; at debugging level 4 the new value is logged behind "# Debug: ".
void SetStartupSection(Tolmen& app, const std::string& section);

// The shell's error path: the error's text, a line break, "while doing ", `where` and ".", with
// an exclamation icon and the program's title.
void ReportShellError(Tolmen& app, const RuntimeError& error, const std::string& where);

}  // namespace tolmen
