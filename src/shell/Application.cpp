#include "shell/Application.h"

#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"
#include "wizard/WizardHandlers.h"

namespace tolmen {

int RunApplication(Tolmen& app, WindowModel& window) {
  WireMainForm(app);
  app.screen.frmMain.SetCaption(app.info.AppTitle);
  app.screen.frmMain.Show();
  app.ui.SetMainWindow(&window);
  try {
    app.ui.Run(window);
  } catch (const ProcessEnd&) {
    // Ended from inside, as the system ends its process.
  }
  app.ui.SetMainWindow(nullptr);
  return 0;
}

}  // namespace tolmen
