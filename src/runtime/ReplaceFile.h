// Rewriting a file whole or not at all.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace tolmen {

// The mode a new file gets: 0666 less the process's umask.
inline constexpr mode_t kModeDefault = static_cast<mode_t>(-1);

// Writes `bytes` as the file `path` (the file system's name): into a new temporary file beside
// it, synced, which then replaces the old file in one step. The new file has `mode`, or with
// kModeDefault the old file's mode (a new file's default when there is none). On failure (a full
// disk, for one) the temporary file is removed and the old file stays as it was. Returns 0 or
// the errno of the failure.
int ReplaceFile(const std::string& path, std::string_view bytes, mode_t mode = kModeDefault);

// True for the errors of a full disk: no space, a quota, a file grown to its limit.
bool DiskFullErrno(int error);

}  // namespace tolmen
