#include "shell/Application.h"

#include "shell/ProcessEnd.h"
#include "shell/Startup.h"
#include "shell/Tolmen.h"
#include "wizard/WizardHandlers.h"

namespace tolmen {

int RunApplication(Tolmen& app, WindowModel& window) {
  WireMainForm(app);
  WireShell(app);
  app.ui.SetMainWindow(&window);
  try {
    app.screen.frmMain.Show();
    Form_Activate(app);
    if (app.screen.frmMain.IsLoaded()) app.ui.Run(window);
  } catch (const ProcessEnd&) {
    // Ended from inside, as the system ends its process.
  }
  app.ui.SetMainWindow(nullptr);
  return app.shell.ExitStatus;
}

}  // namespace tolmen
