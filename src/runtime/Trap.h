// The statement trap of a long routine's error path. The routine runs each statement that may
// fail through RunTrapped; when it fails, the routine's answer function decides, usually by
// showing "Abort, Retry, Ignore" with the routine's stage text and the error:
//   Retry  (4, and OK 1)     runs the same statement again;
//   Ignore (5)               goes on with the next statement;
//   Abort  (3, and Cancel 2) tells the routine to leave through its exit path.
// Any other answer counts as Abort. The answers are the message box's own numbers, so an answer
// function can return what Ui::MsgBox returned. Nothing here shows anything itself.
//
//   if (RunTrapped([&] { file.Open(path); }, answer) == TrapResult::Aborted) return Leave();
#pragma once

#include <exception>
#include <functional>

#include "runtime/RuntimeError.h"

namespace tolmen {

enum class TrapResult {
  Done,     // the statement ran to its end (perhaps after retries)
  Ignored,  // it failed and the answer was Ignore
  Aborted,  // it failed and the answer was Abort
};

using TrapStatement = std::function<void()>;
using TrapAnswer = std::function<int(const RuntimeError&)>;

// Runs the statement; on a RuntimeError or another std::exception (see ToRuntimeError) asks
// `answer` and acts on it. Exceptions of other types pass through untouched.
TrapResult RunTrapped(const TrapStatement& statement, const TrapAnswer& answer);

// Runs the statement and passes over any run-time error it raises: a RuntimeError or any other
// std::exception ends the statement there and nothing more happens. Exceptions of other types,
// such as ProcessEnd (the process ending from inside), pass through untouched. For the steps
// that tidy up after a run or a dialog, where a failure must not stop the rest.
void PassOver(const TrapStatement& statement);

// The run-time error a standard exception stands for: std::bad_alloc 7 "Out of memory",
// std::out_of_range 9 "Subscript out of range", std::overflow_error 6 "Overflow",
// std::filesystem::filesystem_error and std::system_error by their error code (no such file 53,
// no such folder 76, disk full or quota 61, exists 58, too many open files 67, bad name 52,
// permission and read-only 75, I/O 57, any other 75), std::ios_base::failure 57 "Device I/O
// error", other std::logic_error 5, anything else 440 with the exception's own text.
RuntimeError ToRuntimeError(const std::exception& error);

}  // namespace tolmen
