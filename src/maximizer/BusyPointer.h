// The hourglass for the length of a scope, nested with the other users of the count: the pointer
// goes back to normal when the outermost one ends.
#pragma once

#include "shell/Tolmen.h"

namespace tolmen {

class BusyPointer {
 public:
  explicit BusyPointer(Tolmen& app) : app_(app) {
    ++app_.shell.BusyCount;
    app_.ui.SetBusyPointer(true);
  }
  ~BusyPointer() {
    if (--app_.shell.BusyCount < 1) {
      app_.shell.BusyCount = 0;
      app_.ui.SetBusyPointer(false);
    }
  }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Tolmen& app_;
};

}  // namespace tolmen
