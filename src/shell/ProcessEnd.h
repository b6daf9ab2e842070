// Ending the process from deep inside a routine, as the system does after its fatal dialog or
// with "/Q": thrown, and caught by main() (or a test), so that destructors still run.
#pragma once

namespace tolmen {

struct ProcessEnd {
  const char* reason;
};

}  // namespace tolmen
