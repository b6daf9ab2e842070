// The session extension of the system's SQLite applies the changes that take a part back.
#define SQLITE_ENABLE_SESSION 1
#include "platform/recordmanager/EndIntent.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/RecordFile.h"

namespace tolmen {
namespace {

constexpr std::string_view kMagic = "TLEND1";

void PutU32(std::string& out, uint32_t v) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}

void PutBytes(std::string& out, std::string_view bytes) {
  PutU32(out, static_cast<uint32_t>(bytes.size()));
  out.append(bytes);
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}
  bool U32(uint32_t& v) {
    if (rest_.size() < 4) return false;
    v = 0;
    for (int i = 3; i >= 0; --i)
      v = v << 8 | static_cast<unsigned char>(rest_[static_cast<size_t>(i)]);
    rest_.remove_prefix(4);
    return true;
  }
  bool Bytes(std::string& out) {
    uint32_t n = 0;
    if (!U32(n) || rest_.size() < n) return false;
    out.assign(rest_.substr(0, n));
    rest_.remove_prefix(n);
    return true;
  }
  bool Done() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

int16_t StatusFromErrno(int error) {
  return error == ENOSPC || error == EFBIG || error == EDQUOT ? kStatusDiskFull : kStatusIoError;
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(n));
  }
  return true;
}

bool ReadAll(int fd, std::string& out) {
  char buffer[65536];
  for (;;) {
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) return true;
    out.append(buffer, static_cast<size_t>(n));
  }
}

// A connection of its own to a file of the transaction, waiting for locks as the engine does.
class Connection {
 public:
  Connection(const std::string& path, const EngineOptions& options) {
    rc_ = sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc_ == SQLITE_OK) sqlite3_busy_timeout(db_, options.busyTimeoutMs);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    if (inTransaction_) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close_v2(db_);
  }
  bool Exec(const std::string& sql) {
    if (rc_ == SQLITE_OK) rc_ = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr);
    return rc_ == SQLITE_OK;
  }
  bool Begin() { return inTransaction_ = Exec("BEGIN IMMEDIATE"); }
  bool Commit() {
    inTransaction_ = false;
    return Exec("COMMIT");
  }
  bool Mark(uint32_t& mark) {
    if (rc_ != SQLITE_OK) return false;
    sqlite3_stmt* stmt = nullptr;
    rc_ = sqlite3_prepare_v2(db_, "PRAGMA user_version", -1, &stmt, nullptr);
    if (rc_ == SQLITE_OK) {
      rc_ = sqlite3_step(stmt);
      if (rc_ == SQLITE_ROW) {
        mark = static_cast<uint32_t>(sqlite3_column_int64(stmt, 0));
        rc_ = SQLITE_OK;
      }
    }
    sqlite3_finalize(stmt);
    return rc_ == SQLITE_OK;
  }
  bool Apply(const std::string& changes) {
    if (rc_ != SQLITE_OK || changes.empty()) return rc_ == SQLITE_OK;
    // The part is taken back whatever happened to its rows since: the file returns to what it
    // held before the transaction.
    auto conflict = [](void*, int type, sqlite3_changeset_iter*) {
      return type == SQLITE_CHANGESET_DATA || type == SQLITE_CHANGESET_CONFLICT
                 ? SQLITE_CHANGESET_REPLACE
                 : SQLITE_CHANGESET_OMIT;
    };
    rc_ = sqlite3changeset_apply(db_, static_cast<int>(changes.size()),
                                 const_cast<char*>(changes.data()), nullptr, conflict, nullptr);
    return rc_ == SQLITE_OK;
  }
  int16_t Status() const { return StatusFromSqlite(rc_); }

 private:
  sqlite3* db_ = nullptr;
  int rc_ = SQLITE_OK;
  bool inTransaction_ = false;
};

// Locks an open intent file without waiting; false when a process ending the transaction holds it.
bool TryLock(int fd) {
  return ::flock(fd, LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

std::vector<std::string> EndIntent::Files() const {
  std::vector<std::string> files{decider};
  for (const Part& p : parts) files.push_back(p.path);
  return files;
}

std::string IntentPath(const std::string& path) {
  const size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  return folder + "." + name + ".end";
}

std::string EncodeIntent(const EndIntent& intent) {
  std::string out(kMagic);
  PutU32(out, intent.mark);
  PutBytes(out, intent.decider);
  PutU32(out, static_cast<uint32_t>(intent.parts.size()));
  for (const EndIntent::Part& p : intent.parts) {
    PutBytes(out, p.path);
    PutBytes(out, p.undo);
  }
  return out;
}

bool DecodeIntent(std::string_view bytes, EndIntent& intent) {
  if (bytes.substr(0, kMagic.size()) != kMagic) return false;
  Reader in(bytes.substr(kMagic.size()));
  uint32_t count = 0;
  if (!in.U32(intent.mark) || !in.Bytes(intent.decider) || !in.U32(count)) return false;
  intent.parts.clear();
  for (uint32_t i = 0; i < count; ++i) {
    EndIntent::Part p;
    if (!in.Bytes(p.path) || !in.Bytes(p.undo)) return false;
    intent.parts.push_back(std::move(p));
  }
  return in.Done() && !intent.decider.empty();
}

int16_t WriteIntent(const EndIntent& intent, std::vector<int>& locks) {
  const std::string bytes = EncodeIntent(intent);
  for (const std::string& file : intent.Files()) {
    const std::string target = IntentPath(file);
    std::string temp = target + ".XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) return StatusFromErrno(errno);
    // Locked before it has its name, so that no process settles it while this End runs.
    if (::flock(fd, LOCK_EX) != 0 || !WriteAll(fd, bytes) ||
        ::rename(temp.c_str(), target.c_str()) != 0) {
      const int error = errno;
      ::close(fd);
      ::unlink(temp.c_str());
      return StatusFromErrno(error);
    }
    locks.push_back(fd);
  }
  return kStatusOk;
}

void RemoveIntent(const EndIntent& intent, std::vector<int>& locks) {
  for (const std::string& file : intent.Files()) ::unlink(IntentPath(file).c_str());
  for (const int fd : locks) ::close(fd);
  locks.clear();
}

int16_t Settle(const EndIntent& intent, const EngineOptions& options) {
  uint32_t mark = 0;
  {
    Connection decider(intent.decider, options);
    if (!decider.Mark(mark)) return decider.Status();
  }
  if (mark == intent.mark) return kStatusOk;  // the deciding file committed, so did every file
  for (const EndIntent::Part& p : intent.parts) {
    Connection file(p.path, options);
    if (!file.Begin() || !file.Mark(mark)) return file.Status();
    if (mark != intent.mark) continue;  // its commit did not happen
    if (!file.Apply(p.undo) || !file.Exec("PRAGMA user_version = 0") || !file.Commit()) {
      return file.Status();
    }
  }
  return kStatusOk;
}

int16_t Recover(const std::string& path, const EngineOptions& options) {
  const std::string intentPath = IntentPath(path);
  const int fd = ::open(intentPath.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return kStatusOk;  // none: the usual case
  struct stat opened, named;
  std::string bytes;
  EndIntent intent;
  int16_t status = kStatusOk;
  // Left alone: one locked by a running End, one replaced since it was opened, one not ours.
  if (TryLock(fd) && ::fstat(fd, &opened) == 0 && ::stat(intentPath.c_str(), &named) == 0 &&
      opened.st_ino == named.st_ino && opened.st_dev == named.st_dev && ReadAll(fd, bytes) &&
      DecodeIntent(bytes, intent)) {
    status = Settle(intent, options);
    if (status == kStatusOk) {
      for (const std::string& file : intent.Files()) {
        const std::string other = IntentPath(file);
        if (other == intentPath) continue;
        const int o = ::open(other.c_str(), O_RDONLY | O_CLOEXEC);
        if (o < 0) continue;
        if (TryLock(o)) ::unlink(other.c_str());
        ::close(o);
      }
      ::unlink(intentPath.c_str());
    }
  }
  ::close(fd);
  return status;
}

}  // namespace tolmen
