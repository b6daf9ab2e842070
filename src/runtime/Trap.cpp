#include "runtime/Trap.h"

#include <cerrno>
#include <filesystem>
#include <ios>
#include <new>
#include <stdexcept>
#include <system_error>

namespace tolmen {
namespace {

// The message box answers (the same numbers as the Ui's vbOK .. vbIgnore).
constexpr int kOK = 1;
constexpr int kRetry = 4;
constexpr int kIgnore = 5;

int NumberForErrno(int code) {
  switch (code) {
    case ENOENT:
      return 53;
    case ENOTDIR:
      return 76;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:  // the file may grow no more: full, as far as the writer can tell
      return 61;
    case EEXIST:
      return 58;
    case EMFILE:
    case ENFILE:
      return 67;
    case ENAMETOOLONG:
    case EINVAL:
      return 52;
    case EIO:
      return 57;
    default:
      return 75;  // EACCES, EPERM, EROFS, EISDIR, EBUSY, ...
  }
}

}  // namespace

RuntimeError ToRuntimeError(const std::exception& error) {
  if (auto* runtime = dynamic_cast<const RuntimeError*>(&error)) return *runtime;
  if (dynamic_cast<const std::bad_alloc*>(&error)) return RuntimeError(7);
  if (dynamic_cast<const std::out_of_range*>(&error)) return RuntimeError(9);
  if (dynamic_cast<const std::overflow_error*>(&error)) return RuntimeError(6);
  if (dynamic_cast<const std::ios_base::failure*>(&error)) return RuntimeError(57);
  if (auto* system = dynamic_cast<const std::system_error*>(&error)) {
    const std::error_code& code = system->code();
    if (code.category() == std::generic_category() || code.category() == std::system_category())
      return RuntimeError(NumberForErrno(code.value()));
    return RuntimeError(75);
  }
  if (dynamic_cast<const std::logic_error*>(&error)) return RuntimeError(5);
  return RuntimeError(440, error.what());
}

TrapResult RunTrapped(const TrapStatement& statement, const TrapAnswer& answer) {
  for (;;) {
    int reply = 0;
    try {
      statement();
      return TrapResult::Done;
    } catch (const std::exception& error) {
      reply = answer(ToRuntimeError(error));
    }
    if (reply == kRetry || reply == kOK) continue;
    return reply == kIgnore ? TrapResult::Ignored : TrapResult::Aborted;
  }
}

void PassOver(const TrapStatement& statement) {
  try {
    statement();
  } catch (const std::exception&) {
    // passed over
  }
}

}  // namespace tolmen
