// How the record engine sets up SQLite for its files. The defaults are the measured choice; the
// benchmark (bench/engine) can run with others to compare.
//
// Durability: the default journal is WAL with synchronous=NORMAL. Every file
// is whole after a crash at any moment, of the process or of the machine; a power cut may lose
// the last commits, since a commit appends to the -wal file without syncing it. The log is synced
// when SQLite copies it into the file (a checkpoint: every 1,000 pages, and when the last
// connection closes the file), so a closed file is whole and on disk without its companions.
// Delete and Truncate (a rollback journal, for comparison and for bulk loads; tested) keep
// synchronous=FULL, SQLite's default: with a rollback journal NORMAL could damage a file at a
// power cut. The setting follows the journal a file has once opened: a file another process
// keeps in WAL is written as a WAL file.
#pragma once

#include <cstdint>

namespace tolmen {

struct EngineOptions {
  enum class Journal : uint8_t { Delete, Truncate, Wal };
  Journal journal = Journal::Wal;          // PRAGMA journal_mode; PRAGMA synchronous follows it
  int64_t mmapBytes = int64_t{256} << 20;  // PRAGMA mmap_size
  int cacheKiB = 8192;                     // PRAGMA cache_size, per open file
  int busyTimeoutMs = 5000;                // how long a call waits for another process's lock
  int windowRows = 128;                    // the largest read-ahead window of Get Next/Previous
  int windowMilliseconds = 100;            // read-ahead rows older than this are read again
};

// PRAGMA synchronous for a file written with the journal `j`.
constexpr const char* SynchronousName(EngineOptions::Journal j) {
  return j == EngineOptions::Journal::Wal ? "NORMAL" : "FULL";
}

}  // namespace tolmen
