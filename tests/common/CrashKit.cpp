#include "common/CrashKit.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <set>

#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::test {
namespace {

sqlite3_vfs* real = nullptr;
const sqlite3_io_methods* realMethods = nullptr;
sqlite3_io_methods watchedMethods{};
std::map<sqlite3_file*, std::string> logs;  // open logs by file
std::set<std::string> written;
bool armed = false;
std::function<void(const std::string&, size_t)> onWrite;

}  // namespace

int RunUntilKilled(const std::function<void(const std::function<void()>& stop)>& work) {
  int fds[2];
  if (::pipe(fds) != 0) return -1;
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::close(fds[0]);
    const int tell = fds[1];
    work([tell] {
      const char byte = 'k';
      if (::write(tell, &byte, 1) == 1) {
        for (;;) ::pause();
      }
      ::_exit(99);
    });
    ::_exit(0);
  }
  ::close(fds[1]);
  char byte = 0;
  ssize_t n;
  while ((n = ::read(fds[0], &byte, 1)) < 0 && errno == EINTR) {
  }
  if (n == 1) ::kill(pid, SIGKILL);
  ::close(fds[0]);
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

std::optional<std::vector<std::string>> Records(const std::string& path) {
  RecordEngine engine;
  std::string pos(128, ' '), data, key = path;
  int32_t length = 0;
  if (engine.BTRCALL(kOpOpen, pos, data, length, key, 255, 0) != kStatusOk) return std::nullopt;
  std::vector<std::string> records;
  key.assign(255, ' ');
  for (uint16_t op = kOpGetFirst;; op = kOpGetNext) {
    data.assign(65536, ' ');
    length = 65536;
    if (engine.BTRCALL(op, pos, data, length, key, 255, 0) != kStatusOk) break;
    records.push_back(data.substr(0, static_cast<size_t>(length)));
  }
  engine.BTRCALL(kOpClose, pos, data, length, key, 255, 0);
  return records;
}

WalWriteWatch::WalWriteWatch() {
  real = sqlite3_vfs_find(nullptr);
  vfs_ = *real;  // pAppData stays the real VFS's: its methods read it
  vfs_.zName = "tolmen-test-wal-watch";
  vfs_.xOpen = &Open;
  armed = false;
  written.clear();
  sqlite3_vfs_register(&vfs_, 1);
}

WalWriteWatch::~WalWriteWatch() {
  sqlite3_vfs_unregister(&vfs_);
  armed = false;
  onWrite = nullptr;
}

void WalWriteWatch::Arm(std::function<void(const std::string& path, size_t logs)> beforeWrite) {
  written.clear();
  onWrite = std::move(beforeWrite);
  armed = true;
}

int WalWriteWatch::Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out) {
  const int rc = real->xOpen(real, name, file, flags, out);
  if (rc == SQLITE_OK && name && (flags & SQLITE_OPEN_WAL) && file->pMethods &&
      (!realMethods || file->pMethods == realMethods)) {
    realMethods = file->pMethods;
    watchedMethods = *realMethods;
    watchedMethods.xWrite = &Write;
    watchedMethods.xClose = [](sqlite3_file* f) {
      logs.erase(f);
      return realMethods->xClose(f);
    };
    file->pMethods = &watchedMethods;
    logs[file] = name;
  }
  return rc;
}

int WalWriteWatch::Write(sqlite3_file* file, const void* data, int amount, sqlite3_int64 offset) {
  if (armed && onWrite) {
    const std::string& path = logs[file];
    written.insert(path);
    onWrite(path, written.size());
  }
  return realMethods->xWrite(file, data, amount, offset);
}

}  // namespace tolmen::test
