// The number of the RuntimeError a call raises, or 0 when it raises none.
#pragma once

#include "runtime/RuntimeError.h"

namespace tolmen {

template <typename F>
int ErrorOf(F&& call) {
  try {
    call();
  } catch (const RuntimeError& e) {
    return e.Number();
  }
  return 0;
}

}  // namespace tolmen
