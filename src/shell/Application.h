// The life of the application around its main window, the same in every front-end: the window
// is loaded (Form_Load) and shown, activated once (Form_Activate: the command line and its run),
// then the front-end waits for the user until the window has unloaded. A close request goes
// through Form_QueryUnload, the close itself through Form_Unload.
#pragma once

namespace tolmen {

class Tolmen;
class WindowModel;

// Runs the application on its front-end until the main window has unloaded or the process is
// ended from inside (ProcessEnd, as "/Q" does). Returns the process's exit status: 0, or 1, 2 or
// 3 when the last run counted errors, could not start or was cancelled (ShellState::ExitStatus).
int RunApplication(Tolmen& app, WindowModel& window);

}  // namespace tolmen
