// A transaction over several record files, whole through a crash in the middle of End.
//
// Each file has its own SQLite connection, so End commits the files one after another. Before
// the first commit End writes an intent file beside every file of the transaction (IntentPath):
// a mark, the file that commits last (the deciding file), and for every other file the changes
// that take its part back (SQLite's session extension, inverted). Each file's commit also writes
// the mark into the file. The other files commit first and the deciding file last; then the
// intent files go.
//
// The next open of any of the files finds the intent file and finishes the transaction
// (Recover): when the deciding file holds the mark, every file committed and only the intent
// files are removed; otherwise each other file that holds the mark gets its part taken back. So
// the files come back with all of the transaction or none of it. While End runs it holds a lock
// on the intent files, so that another process opening a file then leaves them alone.
//
// The intent files are not synced: they guard against a crash of the process. A power cut may
// lose the last commits of each file on its own anyway (EngineOptions.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordmanager/EngineOptions.h"

namespace tolmen {

struct EndIntent {
  struct Part {
    std::string path;
    std::string undo;  // an SQLite changeset
  };
  uint32_t mark = 0;
  std::string decider;
  std::vector<Part> parts;

  // Every file of the transaction, the deciding file first.
  std::vector<std::string> Files() const;
};

// "<folder>/.<name>.end" beside the file `path`.
std::string IntentPath(const std::string& path);

std::string EncodeIntent(const EndIntent& intent);
bool DecodeIntent(std::string_view bytes, EndIntent& intent);

// Writes the intent file beside every file of the transaction (each built beside its place and
// renamed into it) and keeps them locked in `locks` (open descriptors). Returns 0, 18 when the
// disk is full, or 2.
int16_t WriteIntent(const EndIntent& intent, std::vector<int>& locks);
// Removes the intent files and lets go of their locks.
void RemoveIntent(const EndIntent& intent, std::vector<int>& locks);

// Takes back the part of every non-deciding file that holds the mark, unless the deciding file
// holds it. Returns 0 or a status; the intent files are left to the caller.
int16_t Settle(const EndIntent& intent, const EngineOptions& options);

// Before a file opens: when an intent file lies beside it and no process is ending that
// transaction, settles it and removes its intent files. Returns 0 or a status.
int16_t Recover(const std::string& path, const EngineOptions& options);

}  // namespace tolmen
