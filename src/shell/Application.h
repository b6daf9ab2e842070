// The life of the application around its main window: the window is loaded and shown, the
// front-end waits for the user until the window has unloaded, and the process ends.
#pragma once

namespace tolmen {

class Tolmen;
class WindowModel;

// Runs the application on its front-end until the main window has unloaded or the process is
// ended from inside (ProcessEnd). Returns the process's exit status.
int RunApplication(Tolmen& app, WindowModel& window);

}  // namespace tolmen
