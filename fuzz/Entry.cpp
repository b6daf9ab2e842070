// libFuzzer's entry of one fuzz executable; TOLMEN_FUZZ_ENTRY names the target's function.
#include "Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  return tolmen::fuzz::TOLMEN_FUZZ_ENTRY(data, size);
}
