// SIGINT and SIGTERM blocked and readable through a signalfd for as long as the watch lives, so a
// front-end takes them at its own moments and a signal never interrupts a file in the middle of a
// line. Signals that were blocked before are left alone; those taken over are drained before the
// old mask comes back, so a signal that arrived meanwhile is not delivered late.
#pragma once

#include <signal.h>

namespace tolmen {

class SignalWatch {
 public:
  SignalWatch();
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;

  // Waits up to `seconds` (0: only looks) for a signal; its number, or 0 when none came.
  int Wait(double seconds);

 private:
  int Take();

  sigset_t previous_;
  int fd_ = -1;
};

}  // namespace tolmen
