#include "shell/Shutdown.h"

#include "pastel/OpenPastel.h"
#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"

namespace tolmen {

void CloseAllFiles(Tolmen& app) { app.log.Close(); }

void ShutDown(Tolmen& app) {
  app.run.CurrentSection = "Sub ShutDown";
  ClosePasFiles(app);
  CloseAllFiles(app);
  throw ProcessEnd{"ShutDown"};
}

}  // namespace tolmen
