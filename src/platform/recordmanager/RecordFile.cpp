// The session extension of the system's SQLite records a file's changes in a transaction.
#define SQLITE_ENABLE_SESSION 1
#include "platform/recordmanager/RecordFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fmt/format.h>

#include "platform/recordmanager/BtrCodes.h"

namespace tolmen {
namespace {

constexpr const char* kFormat = "tolmen-record-file";
constexpr int kFormatVersion = 1;
constexpr const char* kApplicationId = "1416385094";  // "TlRF"

// Resets a statement when the scope ends, which ends the read it started.
class ResetOnExit {
 public:
  explicit ResetOnExit(sqlite3_stmt* stmt) : stmt_(stmt) {}
  ResetOnExit(const ResetOnExit&) = delete;
  ResetOnExit& operator=(const ResetOnExit&) = delete;
  ~ResetOnExit() { sqlite3_reset(stmt_); }

 private:
  sqlite3_stmt* stmt_;
};

std::string Col(char prefix, size_t key) {
  return prefix + std::to_string(key);
}

// "?N", a numbered SQL parameter.
std::string Param(int n) {
  std::string p = std::to_string(n);
  p.insert(p.begin(), '?');
  return p;
}

const char* JournalName(EngineOptions::Journal j) {
  switch (j) {
    case EngineOptions::Journal::Truncate:
      return "TRUNCATE";
    case EngineOptions::Journal::Wal:
      return "WAL";
    case EngineOptions::Journal::Delete:
      break;
  }
  return "DELETE";
}

bool SyncPath(const std::string& path, int flags) {
  const int fd = ::open(path.c_str(), flags | O_CLOEXEC);
  if (fd < 0) return false;
  const bool ok = ::fsync(fd) == 0;
  ::close(fd);
  return ok;
}

// The schema and first rows of a new file, built once at Create.
std::string SchemaSql(const FileStat& stats, const std::vector<KeyModel>& keys,
                      EngineOptions::Journal journal) {
  std::string sql = "PRAGMA page_size=4096; PRAGMA application_id=";
  sql += kApplicationId;
  sql += "; PRAGMA journal_mode=";
  // A new file is built beside its place and synced before it is renamed into it, so its own
  // journal only needs to serve the statements below.
  sql += journal == EngineOptions::Journal::Wal ? "WAL; PRAGMA synchronous=NORMAL" : "OFF";
  sql +=
      ";\nBEGIN;\n"
      "CREATE TABLE tolmen_file(id INTEGER PRIMARY KEY CHECK (id = 1), format TEXT NOT NULL, "
      "version INTEGER NOT NULL, record_length INTEGER NOT NULL, page_size INTEGER NOT NULL, "
      "file_flags INTEGER NOT NULL, key_count INTEGER NOT NULL, next_seq INTEGER NOT NULL);\n"
      "CREATE TABLE tolmen_segment(key_no INTEGER NOT NULL, seg_no INTEGER NOT NULL, "
      "position INTEGER NOT NULL, length INTEGER NOT NULL, flags INTEGER NOT NULL, "
      "type INTEGER NOT NULL, null_value INTEGER NOT NULL, manual_key INTEGER NOT NULL, "
      "acs INTEGER NOT NULL, PRIMARY KEY (key_no, seg_no)) WITHOUT ROWID;\n"
      "CREATE TABLE tolmen_record(r INTEGER PRIMARY KEY";
  for (size_t k = 0; k < keys.size(); ++k) {
    sql += ", " + Col('k', k) + " BLOB NOT NULL";
    if (keys[k].duplicates) sql += ", " + Col('d', k) + " INTEGER NOT NULL";
  }
  sql += ", v BLOB NOT NULL);\n";
  for (size_t k = 0; k < keys.size(); ++k) {
    sql += keys[k].duplicates ? "CREATE INDEX " : "CREATE UNIQUE INDEX ";
    sql += "tolmen_key" + std::to_string(k) + " ON tolmen_record(" + Col('k', k);
    if (keys[k].duplicates) sql += ", " + Col('d', k);
    sql += ");\n";
  }
  sql += "INSERT INTO tolmen_file VALUES(1, '" + std::string(kFormat) + "', " +
         std::to_string(kFormatVersion) + ", " + std::to_string(stats.recordLength) + ", " +
         std::to_string(stats.pageSize) + ", " + std::to_string(stats.fileFlags) + ", " +
         std::to_string(stats.keyCount) + ", 1);\n";
  size_t at = 0;
  for (size_t k = 0; k < keys.size(); ++k) {
    for (size_t s = 0; s < keys[k].segments.size(); ++s, ++at) {
      const SegmentStat& g = stats.segments[at];
      sql += "INSERT INTO tolmen_segment VALUES(" + std::to_string(k) + ", " + std::to_string(s) +
             ", " + std::to_string(g.position) + ", " + std::to_string(g.length) + ", " +
             std::to_string(g.flags) + ", " + std::to_string(g.type) + ", " +
             std::to_string(g.nullValue) + ", " + std::to_string(g.manualKeyNumber) + ", " +
             std::to_string(g.acsNumber) + ");\n";
    }
  }
  sql += "COMMIT;\n";
  return sql;
}

// The path as an SQLite file URI.
std::string FileUri(const std::string& path, bool immutable) {
  std::string uri = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      uri += fmt::format("%{:02x}", static_cast<unsigned char>(c));
    } else {
      uri += c;
    }
  }
  return immutable ? uri + "?immutable=1" : uri;
}

mode_t NewFileMode(const std::string& path) {
  struct stat st;
  if (::stat(path.c_str(), &st) == 0) return st.st_mode & 07777;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

}  // namespace

int16_t StatusFromSqlite(int rc) {
  switch (rc & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
      return kStatusOk;
    case SQLITE_CONSTRAINT:
      return (rc == SQLITE_CONSTRAINT_UNIQUE || rc == SQLITE_CONSTRAINT_PRIMARYKEY)
                 ? kStatusDuplicateKey
                 : kStatusIoError;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return kStatusAccessDenied;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return kStatusFileLocked;
    case SQLITE_NOTADB:
      return kStatusNotARecordFile;
    case SQLITE_FULL:
      return kStatusDiskFull;
    default:
      return kStatusIoError;
  }
}

RecordFile::RecordFile(sqlite3* db, const EngineOptions& options) : db_(db), options_(options) {}

RecordFile::~RecordFile() {
  if (inTransaction_) Rollback();
  EndTracking();
  for (sqlite3_stmt* s : keyStmts_) sqlite3_finalize(s);
  for (sqlite3_stmt* s : fileStmts_) sqlite3_finalize(s);
  for (const auto& [changed, s] : updateStmts_) sqlite3_finalize(s);
  sqlite3_close_v2(db_);
}

int16_t RecordFile::Create(const std::string& path, const FileStat& stats,
                           const EngineOptions& options) {
  std::vector<KeyModel> keys;
  if (int16_t st = BuildKeyModels(stats, keys)) return st;
  const size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  std::string temp = folder + (folder.back() == '/' ? "" : "/") + "." + name + ".XXXXXX";
  const int fd = ::mkstemp(temp.data());
  if (fd < 0) return kStatusCreateIoError;
  const bool moded = ::fchmod(fd, NewFileMode(path)) == 0;
  ::close(fd);
  sqlite3* db = nullptr;
  int rc = sqlite3_open_v2(temp.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (rc == SQLITE_OK)
    rc = sqlite3_exec(db, SchemaSql(stats, keys, options.journal).c_str(), nullptr, nullptr,
                      nullptr);
  const int closed = sqlite3_close(db);
  if (rc != SQLITE_OK || closed != SQLITE_OK || !moded || !SyncPath(temp, O_RDONLY) ||
      ::rename(temp.c_str(), path.c_str()) != 0) {
    ::unlink(temp.c_str());
    return (rc & 0xFF) == SQLITE_FULL ? kStatusDiskFull : kStatusCreateIoError;
  }
  SyncPath(folder, O_RDONLY | O_DIRECTORY);
  return kStatusOk;
}

int16_t RecordFile::Open(const std::string& path, const EngineOptions& options,
                         std::unique_ptr<RecordFile>& file) {
  struct stat st;
  if (::stat(path.c_str(), &st) != 0 || S_ISDIR(st.st_mode)) return kStatusFileNotFound;
  if (::access(path.c_str(), R_OK) != 0) return kStatusAccessDenied;
  // An empty file would pass for a new, empty database.
  if (!S_ISREG(st.st_mode) || st.st_size == 0) return kStatusNotARecordFile;
  const bool writable = ::access(path.c_str(), W_OK) == 0;
  // A WAL file needs its -shm companion, which SQLite cannot make in a folder we may not write
  // to. When neither the file nor its folder is writable for us, nobody changes the file through
  // this account, and SQLite may read it as immutable, without the companion.
  const size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const bool immutable = !writable && ::access(folder.c_str(), W_OK) != 0;
  sqlite3* db = nullptr;
  const int flags = (writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY) |
                    SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_URI;
  const int rc = sqlite3_open_v2(FileUri(path, immutable).c_str(), &db, flags, nullptr);
  std::unique_ptr<RecordFile> f(new RecordFile(db, options));
  if (rc != SQLITE_OK) return StatusFromSqlite(rc);
  if (int16_t s = f->Configure(writable)) return s;
  if (int16_t s = f->LoadStat()) return s;
  // A file cut short: SQLite would only notice when it reads a missing page.
  sqlite3_stmt* q = f->Prepare(
      "SELECT page_count * page_size, journal_mode FROM "
      "pragma_page_count(), pragma_page_size(), pragma_journal_mode()");
  if (!q) return kStatusIoError;
  const int qrc = sqlite3_step(q);
  const int64_t expected = qrc == SQLITE_ROW ? sqlite3_column_int64(q, 0) : 0;
  const auto* journal = reinterpret_cast<const char*>(sqlite3_column_text(q, 1));
  const bool wal = journal && std::strcmp(journal, "wal") == 0;
  sqlite3_finalize(q);
  if (qrc != SQLITE_ROW) return StatusFromSqlite(qrc);
  if (::stat(path.c_str(), &st) != 0) return kStatusIoError;
  if (!wal && st.st_size < expected) return kStatusIoError;
  // The durability follows the journal the file has now: a file that another process keeps in
  // WAL stays in WAL whatever the options asked for (EngineOptions.h).
  if (writable) {
    const std::string sync = std::string("PRAGMA synchronous=") +
                             SynchronousName(wal ? EngineOptions::Journal::Wal : options.journal);
    if (int16_t s = StatusFromSqlite(sqlite3_exec(f->db_, sync.c_str(), nullptr, nullptr, nullptr)))
      return s;
  }
  file = std::move(f);
  return kStatusOk;
}

int16_t RecordFile::Configure(bool writable) {
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, options_.busyTimeoutMs);
  std::string sql = "PRAGMA cache_size=-" + std::to_string(options_.cacheKiB) +
                    "; PRAGMA mmap_size=" + std::to_string(options_.mmapBytes) + ";";
  if (writable) sql += std::string(" PRAGMA journal_mode=") + JournalName(options_.journal) + ";";
  const int rc = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr);
  return StatusFromSqlite(rc);
}

int16_t RecordFile::LoadStat() {
  // A database without the engine's tables is no record file of this engine.
  auto fail = [](int rc) -> int16_t {
    return (rc & 0xFF) == SQLITE_ERROR ? int16_t{kStatusNotARecordFile} : StatusFromSqlite(rc);
  };
  sqlite3_stmt* q = nullptr;
  int rc = sqlite3_prepare_v2(db_,
                              "SELECT format, version, record_length, page_size, file_flags, "
                              "key_count FROM tolmen_file WHERE id = 1",
                              -1, &q, nullptr);
  if (rc != SQLITE_OK) return fail(rc);
  rc = sqlite3_step(q);
  const auto* format = reinterpret_cast<const char*>(sqlite3_column_text(q, 0));
  bool ok = rc == SQLITE_ROW && format && std::strcmp(format, kFormat) == 0 &&
            sqlite3_column_int64(q, 1) == kFormatVersion;
  int64_t head[4] = {};
  for (int i = 0; ok && i < 4; ++i) {
    head[i] = sqlite3_column_int64(q, 2 + i);
    ok = head[i] >= 0 && head[i] <= 0xFFFF;
  }
  sqlite3_finalize(q);
  if (rc != SQLITE_ROW && rc != SQLITE_DONE) return fail(rc);
  if (!ok) return kStatusNotARecordFile;
  stat_.recordLength = static_cast<uint16_t>(head[0]);
  stat_.pageSize = static_cast<uint16_t>(head[1]);
  stat_.fileFlags = static_cast<uint16_t>(head[2]);
  stat_.keyCount = static_cast<uint16_t>(head[3]);

  rc = sqlite3_prepare_v2(db_,
                          "SELECT position, length, flags, type, null_value, manual_key, acs "
                          "FROM tolmen_segment ORDER BY key_no, seg_no",
                          -1, &q, nullptr);
  if (rc != SQLITE_OK) return fail(rc);
  while ((rc = sqlite3_step(q)) == SQLITE_ROW) {
    int64_t v[7];
    for (int i = 0; i < 7; ++i) {
      v[i] = sqlite3_column_int64(q, i);
      if (v[i] < 0 || v[i] > (i < 3 ? 0xFFFF : 0xFF)) ok = false;
    }
    SegmentStat s;
    s.position = static_cast<uint16_t>(v[0]);
    s.length = static_cast<uint16_t>(v[1]);
    s.flags = static_cast<uint16_t>(v[2]);
    s.type = static_cast<uint8_t>(v[3]);
    s.nullValue = static_cast<uint8_t>(v[4]);
    s.manualKeyNumber = static_cast<uint8_t>(v[5]);
    s.acsNumber = static_cast<uint8_t>(v[6]);
    stat_.segments.push_back(s);
  }
  sqlite3_finalize(q);
  if (rc != SQLITE_DONE) return fail(rc);
  if (!ok || BuildKeyModels(stat_, keys_) != kStatusOk) return kStatusNotARecordFile;
  size_t used = 0;
  for (const KeyModel& k : keys_) used += k.segments.size();
  if (used != stat_.segments.size()) return kStatusNotARecordFile;

  keyStmts_.assign(keys_.size() * kKeyStatements, nullptr);
  fileStmts_.assign(kFileStatements, nullptr);
  encoded_.resize(keys_.size());
  oldEncoded_.resize(keys_.size());
  for (const KeyModel& k : keys_) {
    if (!k.modifiable && !EncodingKeepsBytes(k)) compareOldRecord_ = true;
  }
  // The insert names every column: a record table of another shape fails here.
  if (!FileStmt(kInsert)) return kStatusNotARecordFile;
  return kStatusOk;
}

sqlite3_stmt* RecordFile::Prepare(const std::string& sql) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v3(db_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr) !=
      SQLITE_OK) {
    sqlite3_finalize(stmt);
    return nullptr;
  }
  return stmt;
}

sqlite3_stmt* RecordFile::KeyStmt(int key, KeyStatement which) {
  sqlite3_stmt*& slot = keyStmts_[static_cast<size_t>(key) * kKeyStatements + which];
  if (!slot) slot = Prepare(KeySql(key, which));
  return slot;
}

sqlite3_stmt* RecordFile::FileStmt(FileStatement which) {
  sqlite3_stmt*& slot = fileStmts_[which];
  if (!slot) slot = Prepare(FileSql(which));
  return slot;
}

// Parameters of the key statements: ?1 the row limit (the id for kById), ?2 the encoded key
// value, ?3 the place among duplicates.
std::string RecordFile::KeySql(int key, KeyStatement which) const {
  const auto n = static_cast<size_t>(key);
  const bool dup = keys_[n].duplicates;
  const std::string k = Col('k', n), d = Col('d', n);
  if (which == kDistinct) return "SELECT count(DISTINCT " + k + ") FROM tolmen_record";
  if (which == kPlace) return "SELECT " + d + " FROM tolmen_record WHERE r = ?1";
  const std::string select = "SELECT r, " + (dup ? d : std::string("0")) + ", v FROM tolmen_record";
  const std::string up = " ORDER BY " + k + (dup ? ", " + d : "") + " LIMIT ?1";
  const std::string down =
      " ORDER BY " + k + " DESC" + (dup ? ", " + d + " DESC" : "") + " LIMIT ?1";
  switch (which) {
    case kFirst:
      return select + up;
    case kLast:
      return select + down;
    case kGreater:
      return select + " WHERE " + k + " > ?2" + up;
    case kGreaterOrEqual:
      return select + " WHERE " + k + " >= ?2" + up;
    case kLess:
      return select + " WHERE " + k + " < ?2" + down;
    case kLessOrEqual:
      return select + " WHERE " + k + " <= ?2" + down;
    case kAfter:
      return dup ? select + " WHERE (" + k + ", " + d + ") > (?2, ?3)" + up
                 : select + " WHERE " + k + " > ?2" + up;
    case kBefore:
      return dup ? select + " WHERE (" + k + ", " + d + ") < (?2, ?3)" + down
                 : select + " WHERE " + k + " < ?2" + down;
    default:
      return select + " WHERE r = ?1";
  }
}

// Insert and Update share their parameters: ?1 the id, then per key its value and, for a key
// with duplicates, its place; the record last.
std::string RecordFile::FileSql(FileStatement which) const {
  std::string cols = "r", values = "?1", same;
  int p = 1;
  std::string old = "SELECT v";
  for (size_t k = 0; k < keys_.size(); ++k) {
    for (int pass = 0; pass < (keys_[k].duplicates ? 2 : 1); ++pass) {
      const std::string c = Col(pass == 0 ? 'k' : 'd', k);
      const std::string param = Param(++p);
      cols += ", " + c;
      values += ", " + param;
      // The unary + keeps SQLite on the row id rather than a key's index.
      if (pass == 0) same += " AND +" + c + " = " + param;
      if (pass == 1) old += ", " + c;
    }
  }
  const std::string v = Param(++p);
  switch (which) {
    case kInsert:
      return "INSERT INTO tolmen_record(" + cols + ", v) VALUES(" + values + ", " + v + ")";
    case kUpdateData:
      return "UPDATE tolmen_record SET v = " + v + " WHERE r = ?1" + same;
    case kOldRow:
      return old + " FROM tolmen_record WHERE r = ?1";
    case kDelete:
      return "DELETE FROM tolmen_record WHERE r = ?1";
    case kCount:
      return "SELECT count(*) FROM tolmen_record";
    case kBegin:
      return "BEGIN IMMEDIATE";
    case kCommit:
      return "COMMIT";
    case kRollback:
      return "ROLLBACK";
    case kLoadSeq:
      return "SELECT next_seq, coalesce((SELECT max(r) FROM tolmen_record), 0) + 1 "
             "FROM tolmen_file WHERE id = 1";
    default:
      return "UPDATE tolmen_file SET next_seq = ?1 WHERE id = 1";
  }
}

sqlite3_stmt* RecordFile::UpdateStmt(const std::vector<bool>& changed) {
  sqlite3_stmt*& slot = updateStmts_[changed];
  if (slot) return slot;
  std::string sets;
  int p = 1;
  for (size_t k = 0; k < keys_.size(); ++k) {
    for (int pass = 0; pass < (keys_[k].duplicates ? 2 : 1); ++pass) {
      const std::string param = Param(++p);
      if (changed[k]) sets += Col(pass == 0 ? 'k' : 'd', k) + " = " + param + ", ";
    }
  }
  slot = Prepare("UPDATE tolmen_record SET " + sets + "v = " + Param(++p) + " WHERE r = ?1");
  return slot;
}

int16_t RecordFile::CheckRecord(size_t length) const {
  if (length < stat_.recordLength) return kStatusDataBufferTooShort;
  if (!Variable() && length != stat_.recordLength) return kStatusDataBufferTooShort;
  if (length > kMaxRecordBytes) return kStatusDataBufferTooShort;
  return kStatusOk;
}

// The key statements select r, the place among duplicates, and v. The encoded key is not read:
// encoding it again from the record is cheaper than fetching the column.
int16_t RecordFile::ReadRow(sqlite3_stmt* stmt, Row& row) const {
  row.rid = sqlite3_column_int64(stmt, 0);
  row.seq = sqlite3_column_int64(stmt, 1);
  const void* v = sqlite3_column_blob(stmt, 2);
  const auto vn = static_cast<size_t>(sqlite3_column_bytes(stmt, 2));
  if (!v || CheckRecord(vn) != kStatusOk) return kStatusIoError;  // not written by this engine
  row.data.assign(static_cast<const char*>(v), vn);
  return kStatusOk;
}

int16_t RecordFile::Read(int key, Scan scan, const std::string& value, int64_t seq, int limit,
                         std::vector<Row>& rows, size_t& count) {
  static constexpr KeyStatement kFor[] = {kFirst, kLast,        kGreater, kGreaterOrEqual,
                                          kLess,  kLessOrEqual, kAfter,   kBefore};
  count = 0;
  sqlite3_stmt* stmt = KeyStmt(key, kFor[static_cast<int>(scan)]);
  if (!stmt) return kStatusIoError;
  ResetOnExit reset(stmt);
  sqlite3_bind_int(stmt, 1, limit);
  if (scan != Scan::First && scan != Scan::Last) {
    sqlite3_bind_blob(stmt, 2, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
  }
  if ((scan == Scan::After || scan == Scan::Before) && keys_[static_cast<size_t>(key)].duplicates) {
    sqlite3_bind_int64(stmt, 3, seq);
  }
  if (rows.size() < static_cast<size_t>(limit)) rows.resize(static_cast<size_t>(limit));
  while (count < static_cast<size_t>(limit)) {
    const int rc = sqlite3_step(stmt);
    if (rc == SQLITE_DONE) break;
    if (rc != SQLITE_ROW) return StatusFromSqlite(rc);
    if (int16_t st = ReadRow(stmt, rows[count])) return st;
    ++count;
  }
  return kStatusOk;
}

int16_t RecordFile::ReadById(int key, int64_t rid, Row& row, bool& found) {
  found = false;
  sqlite3_stmt* stmt = KeyStmt(key, kById);
  if (!stmt) return kStatusIoError;
  ResetOnExit reset(stmt);
  sqlite3_bind_int64(stmt, 1, rid);
  const int rc = sqlite3_step(stmt);
  if (rc == SQLITE_DONE) return kStatusOk;
  if (rc != SQLITE_ROW) return StatusFromSqlite(rc);
  found = true;
  return ReadRow(stmt, row);
}

void RecordFile::EncodeKeys(const char* record) {
  for (size_t k = 0; k < keys_.size(); ++k) {
    encoded_[k].clear();
    EncodeRecordKey(keys_[k], record, encoded_[k]);
  }
}

int16_t RecordFile::AssignAutoIncrements(char* record) {
  for (size_t k = 0; k < keys_.size(); ++k) {
    if (keys_[k].autoIncrement < 0) continue;
    const SegmentStat& seg = keys_[k].segments[static_cast<size_t>(keys_[k].autoIncrement)];
    if (ReadAutoIncrement(seg, record) != 0) continue;
    // The largest value ends the key's order (starts it, when the key descends).
    const Scan scan = (seg.flags & kKeyDescending) ? Scan::First : Scan::Last;
    std::vector<Row> top(1);
    size_t count = 0;
    if (int16_t st = Read(static_cast<int>(k), scan, {}, 0, 1, top, count)) return st;
    int64_t highest = count ? ReadAutoIncrement(seg, top[0].data.data()) : 0;
    if (highest < 0) highest = -highest;
    WriteAutoIncrement(seg, highest + 1, record);
  }
  return kStatusOk;
}

int16_t RecordFile::Insert(char* record, size_t length, int key, Row& row) {
  if (int16_t st = CheckRecord(length)) return st;
  if (int16_t st = AssignAutoIncrements(record)) return st;
  EncodeKeys(record);
  sqlite3_stmt* stmt = FileStmt(kInsert);
  if (!stmt) return kStatusIoError;
  const int64_t rid = nextSeq_++;
  int p = 1;
  sqlite3_bind_int64(stmt, p, rid);
  for (size_t k = 0; k < keys_.size(); ++k) {
    sqlite3_bind_blob(stmt, ++p, encoded_[k].data(), static_cast<int>(encoded_[k].size()),
                      SQLITE_STATIC);
    if (keys_[k].duplicates) sqlite3_bind_int64(stmt, ++p, rid);
  }
  sqlite3_bind_blob(stmt, ++p, record, static_cast<int>(length), SQLITE_STATIC);
  const int rc = Step(stmt);
  sqlite3_reset(stmt);
  if (rc != SQLITE_DONE) return Failed(rc);
  ++generation_;
  if (key >= 0) {
    row.rid = rid;
    row.seq = keys_[static_cast<size_t>(key)].duplicates ? rid : 0;
    row.key = encoded_[static_cast<size_t>(key)];
  }
  return kStatusOk;
}

int16_t RecordFile::UpdateData(int64_t rid, const char* record, size_t length, int key, Row& row,
                               bool& done) {
  done = false;
  sqlite3_stmt* stmt = FileStmt(kUpdateData);
  if (!stmt) return kStatusIoError;
  int p = 1;
  sqlite3_bind_int64(stmt, p, rid);
  for (size_t k = 0; k < keys_.size(); ++k) {
    sqlite3_bind_blob(stmt, ++p, encoded_[k].data(), static_cast<int>(encoded_[k].size()),
                      SQLITE_STATIC);
    if (keys_[k].duplicates) ++p;
  }
  sqlite3_bind_blob(stmt, ++p, record, static_cast<int>(length), SQLITE_STATIC);
  const int rc = Step(stmt);
  sqlite3_reset(stmt);
  if (rc != SQLITE_DONE) return Failed(rc);
  if (sqlite3_changes(db_) == 0) return kStatusOk;  // gone, or a key changed
  ++generation_;
  done = true;
  if (key < 0) return kStatusOk;
  row.rid = rid;
  row.seq = 0;
  row.key = encoded_[static_cast<size_t>(key)];
  if (keys_[static_cast<size_t>(key)].duplicates) {
    // The place did not change; it is read only when the caller moves along that key.
    sqlite3_stmt* place = KeyStmt(key, kPlace);
    if (!place) return kStatusIoError;
    ResetOnExit reset(place);
    sqlite3_bind_int64(place, 1, rid);
    if (sqlite3_step(place) != SQLITE_ROW) return kStatusIoError;
    row.seq = sqlite3_column_int64(place, 0);
  }
  return kStatusOk;
}

int16_t RecordFile::Update(int64_t rid, char* record, size_t length, int key, Row& row) {
  if (int16_t st = CheckRecord(length)) return st;
  if (int16_t st = AssignAutoIncrements(record)) return st;
  EncodeKeys(record);
  if (!compareOldRecord_) {
    bool done = false;
    if (int16_t st = UpdateData(rid, record, length, key, row, done)) return st;
    if (done) return kStatusOk;
  }
  sqlite3_stmt* old = FileStmt(kOldRow);
  if (!old) return kStatusIoError;
  std::vector<int64_t> oldSeq(keys_.size(), 0);
  {
    ResetOnExit reset(old);
    sqlite3_bind_int64(old, 1, rid);
    const int rc = Step(old);
    if (rc == SQLITE_DONE) return kStatusInvalidPositioning;  // the record is gone
    if (rc != SQLITE_ROW) return StatusFromSqlite(rc);
    const char* was = static_cast<const char*>(sqlite3_column_blob(old, 0));
    if (!was || CheckRecord(static_cast<size_t>(sqlite3_column_bytes(old, 0))) != kStatusOk) {
      return kStatusIoError;
    }
    int col = 0;
    for (size_t k = 0; k < keys_.size(); ++k) {
      if (!keys_[k].modifiable) {
        for (const SegmentStat& s : keys_[k].segments) {
          if (std::memcmp(was + s.position - 1, record + s.position - 1, s.length) != 0) {
            return kStatusKeyNotModifiable;
          }
        }
      }
      oldEncoded_[k].clear();
      EncodeRecordKey(keys_[k], was, oldEncoded_[k]);
      if (keys_[k].duplicates) oldSeq[k] = sqlite3_column_int64(old, ++col);
    }
  }
  std::vector<bool> changed(keys_.size());
  for (size_t k = 0; k < keys_.size(); ++k) changed[k] = encoded_[k] != oldEncoded_[k];
  sqlite3_stmt* stmt = UpdateStmt(changed);
  if (!stmt) return kStatusIoError;
  int p = 1;
  sqlite3_bind_int64(stmt, p, rid);
  int64_t keySeq = 0;
  for (size_t k = 0; k < keys_.size(); ++k) {
    sqlite3_bind_blob(stmt, ++p, encoded_[k].data(), static_cast<int>(encoded_[k].size()),
                      SQLITE_STATIC);
    if (keys_[k].duplicates) {
      // A record whose value changes joins the end of its new group of equal values.
      const int64_t seq = changed[k] ? nextSeq_++ : oldSeq[k];
      if (changed[k]) seqTaken_ = true;
      sqlite3_bind_int64(stmt, ++p, seq);
      if (static_cast<int>(k) == key) keySeq = seq;
    }
  }
  sqlite3_bind_blob(stmt, ++p, record, static_cast<int>(length), SQLITE_STATIC);
  const int rc = Step(stmt);
  sqlite3_reset(stmt);
  if (rc != SQLITE_DONE) return Failed(rc);
  ++generation_;
  if (key >= 0) {
    row.rid = rid;
    row.seq = keySeq;
    row.key = encoded_[static_cast<size_t>(key)];
  }
  return kStatusOk;
}

int16_t RecordFile::Delete(int64_t rid) {
  sqlite3_stmt* stmt = FileStmt(kDelete);
  if (!stmt) return kStatusIoError;
  sqlite3_bind_int64(stmt, 1, rid);
  const int rc = Step(stmt);
  sqlite3_reset(stmt);
  if (rc != SQLITE_DONE) return Failed(rc);
  ++generation_;
  seqTaken_ = true;  // the record's number is not to come back
  return sqlite3_changes(db_) == 0 ? kStatusInvalidPositioning : kStatusOk;
}

int16_t RecordFile::Statistics(uint32_t& records, std::vector<uint32_t>& uniqueValues) {
  auto count = [](sqlite3_stmt* stmt, uint32_t& n) -> int16_t {
    if (!stmt) return kStatusIoError;
    ResetOnExit reset(stmt);
    const int rc = sqlite3_step(stmt);
    if (rc != SQLITE_ROW) return StatusFromSqlite(rc);
    n = static_cast<uint32_t>(sqlite3_column_int64(stmt, 0));
    return kStatusOk;
  };
  if (int16_t st = count(FileStmt(kCount), records)) return st;
  uniqueValues.assign(keys_.size(), records);
  for (size_t k = 0; k < keys_.size(); ++k) {
    if (!keys_[k].duplicates) continue;
    if (int16_t st = count(KeyStmt(static_cast<int>(k), kDistinct), uniqueValues[k])) return st;
  }
  return kStatusOk;
}

int16_t RecordFile::Failed(int rc) {
  // Some errors (a full disk, for one) make SQLite roll the whole transaction back.
  if (inTransaction_ && sqlite3_get_autocommit(db_)) {
    inTransaction_ = false;
    ++generation_;
  }
  return StatusOf(rc);
}

int RecordFile::Step(sqlite3_stmt* stmt) {
  errno = 0;
  const int rc = sqlite3_step(stmt);
  stepErrno_ = errno;
  return rc;
}

int16_t RecordFile::StatusOf(int rc) const {
  // SQLite reports a write refused for a file size limit (or a quota, on some file systems) as
  // an I/O error; the write's errno tells a full disk.
  if ((rc & 0xFF) == SQLITE_IOERR &&
      (stepErrno_ == ENOSPC || stepErrno_ == EFBIG || stepErrno_ == EDQUOT)) {
    return kStatusDiskFull;
  }
  return StatusFromSqlite(rc);
}

int16_t RecordFile::Exec(FileStatement which) {
  sqlite3_stmt* stmt = FileStmt(which);
  if (!stmt) return kStatusIoError;
  const int rc = Step(stmt);
  sqlite3_reset(stmt);
  return rc == SQLITE_DONE || rc == SQLITE_ROW ? int16_t{kStatusOk} : StatusOf(rc);
}

int16_t RecordFile::Begin() {
  if (int16_t st = Exec(kBegin)) return st;
  sqlite3_stmt* stmt = FileStmt(kLoadSeq);
  int rc = stmt ? sqlite3_step(stmt) : SQLITE_ERROR;
  if (rc == SQLITE_ROW) {
    // The stored counter, or past the largest id when inserts since did not store it.
    storedSeq_ = sqlite3_column_int64(stmt, 0);
    nextSeq_ = std::max<int64_t>(storedSeq_, sqlite3_column_int64(stmt, 1));
  }
  seqTaken_ = false;
  if (stmt) sqlite3_reset(stmt);
  inTransaction_ = true;
  if (rc != SQLITE_ROW) {
    Rollback();
    return StatusFromSqlite(rc == SQLITE_DONE ? SQLITE_CORRUPT : rc);
  }
  return kStatusOk;
}

int16_t RecordFile::StoreSeq() {
  // Numbers that went to new records only are found again from the largest record id.
  if (!seqTaken_ || nextSeq_ == storedSeq_) return kStatusOk;
  sqlite3_stmt* stmt = FileStmt(kStoreSeq);
  if (!stmt) return kStatusIoError;
  sqlite3_bind_int64(stmt, 1, nextSeq_);
  const int rc = Step(stmt);
  sqlite3_reset(stmt);
  if (rc != SQLITE_DONE) return Failed(rc);
  storedSeq_ = nextSeq_;
  return kStatusOk;
}

int16_t RecordFile::Commit() {
  if (int16_t st = StoreSeq()) return st;
  if (int16_t st = Exec(kCommit)) return st;
  inTransaction_ = false;
  EndTracking();
  return kStatusOk;
}

void RecordFile::Rollback() {
  Exec(kRollback);  // fails harmlessly when SQLite has already rolled back
  inTransaction_ = false;
  ++generation_;
  EndTracking();
}

int16_t RecordFile::Track() {
  if (session_) return kStatusOk;
  if (sqlite3session_create(db_, "main", &session_) != SQLITE_OK) {
    session_ = nullptr;
    return kStatusIoError;
  }
  if (sqlite3session_attach(session_, nullptr) != SQLITE_OK) {
    EndTracking();
    return kStatusIoError;
  }
  return kStatusOk;
}

void RecordFile::EndTracking() {
  if (session_) sqlite3session_delete(session_);
  session_ = nullptr;
}

int16_t RecordFile::Undo(std::string& changes) {
  changes.clear();
  if (!session_) return kStatusIoError;
  int n = 0, inverseBytes = 0;
  void* forward = nullptr;
  void* inverse = nullptr;
  int rc = sqlite3session_changeset(session_, &n, &forward);
  if (rc == SQLITE_OK && n > 0) rc = sqlite3changeset_invert(n, forward, &inverseBytes, &inverse);
  if (rc == SQLITE_OK && inverse) {
    changes.assign(static_cast<const char*>(inverse), static_cast<size_t>(inverseBytes));
  }
  sqlite3_free(forward);
  sqlite3_free(inverse);
  return rc == SQLITE_OK ? int16_t{kStatusOk} : StatusFromSqlite(rc);
}

int16_t RecordFile::Mark(uint32_t mark) {
  if (int16_t st = StoreSeq()) return st;
  const std::string sql = "PRAGMA user_version = " + std::to_string(mark);
  errno = 0;
  const int rc = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr);
  stepErrno_ = errno;
  return rc == SQLITE_OK ? int16_t{kStatusOk} : Failed(rc);
}

std::string RecordFile::Path() const {
  const char* name = sqlite3_db_filename(db_, "main");
  return name ? name : "";
}

}  // namespace tolmen
