// The error trap of the run's long routines (DoImport, TransferClients): each statement that may
// fail runs through it, and a failure asks Abort, Retry, Ignore with the error's text, a line
// break, "while doing ", the stage (CurrentSection) and ".". Retry runs the statement again,
// Ignore goes on with the next; once the user has chosen Abort every later statement is passed
// over, so the routine falls through to its exit path.
#pragma once

#include "runtime/Trap.h"
#include "shell/Tolmen.h"

namespace tolmen {

class RunTrap {
 public:
  explicit RunTrap(Tolmen& app) : app_(app) {}
  // True when the statement ran (or was ignored after failing); false once aborted.
  bool operator()(const TrapStatement& statement) {
    if (aborted_) return false;
    const TrapResult result =
        RunTrapped(statement, [this](const RuntimeError& error) { return Ask(error); });
    aborted_ = result == TrapResult::Aborted;
    return !aborted_;
  }
  bool Aborted() const { return aborted_; }

 private:
  int Ask(const RuntimeError& error) {
    return app_.ui.MsgBox(
        error.Description() + app_.info.LineBreak + "while doing " + app_.run.CurrentSection + ".",
        vbAbortRetryIgnore + vbExclamation, app_.info.AppTitle);
  }

  Tolmen& app_;
  bool aborted_ = false;
};

}  // namespace tolmen
