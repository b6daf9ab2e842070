// Crashes on purpose: a piece of work run in a child process that is killed with SIGKILL at a
// moment it chooses, and a watch on SQLite's writes to pick such a moment inside a commit.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tolmen::test {

// Runs `work` in a forked child. When the child calls `stop`, it tells the parent and waits; the
// parent kills it with SIGKILL there and then. Returns the child's wait status (WIFSIGNALED with
// SIGKILL when it was stopped; its exit status otherwise: 0 when `work` returned).
int RunUntilKilled(const std::function<void(const std::function<void()>& stop)>& work);

// Every record of the record file at `path`, along its first key, read through a fresh engine;
// nothing when it does not open as a record file.
std::optional<std::vector<std::string>> Records(const std::string& path);

// While it lives, SQLite's default VFS calls `beforeWrite(path)` before each write to a write-ahead
// log ("-wal" file), and counts the logs written to since it was armed.
class WalWriteWatch {
 public:
  WalWriteWatch();
  ~WalWriteWatch();
  WalWriteWatch(const WalWriteWatch&) = delete;
  WalWriteWatch& operator=(const WalWriteWatch&) = delete;

  // Starts counting; `beforeWrite` is called only while armed, with the number of distinct logs
  // written to so far, this one included.
  void Arm(std::function<void(const std::string& path, size_t logs)> beforeWrite);

 private:
  static int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out);
  static int Write(sqlite3_file* file, const void* data, int amount, sqlite3_int64 offset);
  sqlite3_vfs vfs_{};
};

}  // namespace tolmen::test
