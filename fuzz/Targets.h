// The fuzz targets: each takes one input and runs it through a reader of the system. A target
// returns normally for every input the reader turns away with its own message; anything else
// (a crash, a sanitizer's report, a FuzzFailure, an exception the reader does not promise) is a
// finding. The table serves the libFuzzer executables and the replay test of the normal build.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tolmen::fuzz {

using FuzzEntry = int (*)(const uint8_t* data, size_t size);

int FuzzTemplate(const uint8_t* data, size_t size);
int FuzzAutoRun(const uint8_t* data, size_t size);
int FuzzFieldCodecs(const uint8_t* data, size_t size);
int FuzzDocumentStrings(const uint8_t* data, size_t size);
int FuzzButil(const uint8_t* data, size_t size);
int FuzzSettings(const uint8_t* data, size_t size);
int FuzzMaxsim(const uint8_t* data, size_t size);
int FuzzRecordFile(const uint8_t* data, size_t size);

struct FuzzTarget {
  const char* name;  // the executable is fuzz_<name>, its seeds are under tests/fuzz/<name>/
  FuzzEntry entry;
};

inline constexpr FuzzTarget kFuzzTargets[] = {
    {"template", FuzzTemplate},
    {"autorun", FuzzAutoRun},
    {"fieldcodecs", FuzzFieldCodecs},
    {"documentstrings", FuzzDocumentStrings},
    {"butil", FuzzButil},
    {"settings", FuzzSettings},
    {"maxsim", FuzzMaxsim},
    {"recordfile", FuzzRecordFile},
};

}  // namespace tolmen::fuzz
