#include "platform/ui/SignalWatch.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

namespace tolmen {

SignalWatch::SignalWatch() {
  sigset_t wanted;
  sigemptyset(&wanted);
  sigaddset(&wanted, SIGINT);
  sigaddset(&wanted, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &wanted, &previous_);
  sigset_t taken;
  sigemptyset(&taken);
  for (int sig : {SIGINT, SIGTERM})
    if (!sigismember(&previous_, sig)) sigaddset(&taken, sig);
  fd_ = signalfd(-1, &taken, SFD_NONBLOCK | SFD_CLOEXEC);
}

SignalWatch::~SignalWatch() {
  if (fd_ >= 0) {
    while (Take() != 0) {
    }
    close(fd_);
  }
  pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
}

int SignalWatch::Wait(double seconds) {
  if (fd_ < 0) return 0;
  const int ms = static_cast<int>(std::ceil(std::max(0.0, std::min(seconds, 3600.0)) * 1000.0));
  pollfd p{fd_, POLLIN, 0};
  if (poll(&p, 1, ms) > 0) return Take();
  return 0;
}

int SignalWatch::Take() {
  signalfd_siginfo info;
  if (read(fd_, &info, sizeof info) != static_cast<ssize_t>(sizeof info)) return 0;
  return static_cast<int>(info.ssi_signo);
}

}  // namespace tolmen
