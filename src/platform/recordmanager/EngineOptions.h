// How the record engine sets up SQLite for its files. The defaults are the measured choice; the
// benchmark (bench/engine) can run with others to compare.
#pragma once

#include <cstdint>

namespace tolmen {

struct EngineOptions {
  enum class Journal : uint8_t { Delete, Truncate, Wal };
  Journal journal = Journal::Wal;
  int64_t mmapBytes = int64_t{256} << 20;  // PRAGMA mmap_size
  int cacheKiB = 8192;                     // PRAGMA cache_size, per open file
  int busyTimeoutMs = 5000;                // how long a call waits for another process's lock
  int windowRows = 128;                    // the largest read-ahead window of Get Next/Previous
  int windowMilliseconds = 100;            // read-ahead rows older than this are read again
};

}  // namespace tolmen
