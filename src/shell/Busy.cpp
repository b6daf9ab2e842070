#include "shell/Busy.h"

#include "shell/Tolmen.h"

namespace tolmen {

void SetBusy(Tolmen& app) {
  ++app.shell.BusyCount;
  app.ui.SetBusyPointer(true);
}

void SetBusy(Tolmen& app, bool /*end*/) {
  if (--app.shell.BusyCount < 1) {
    app.shell.BusyCount = 0;
    app.ui.SetBusyPointer(false);
  }
}

}  // namespace tolmen
