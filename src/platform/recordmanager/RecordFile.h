// One record file: an SQLite database holding the file's definition and its records, with one
// column per key encoded so that byte order is key order (KeyCodec.h) and an index per key.
//
//   tolmen_file      one row: format, version, record length, page size, file flags, number of
//                    keys, and next_seq, the counter that numbers records and duplicates
//   tolmen_segment   one row per key segment, as Create gave it
//   tolmen_record    r (the record id, never reused), k<N> per key, d<N> per key that allows
//                    duplicates (the record's place among equal values), v (the record)
//
// A unique key has one UNIQUE index on k<N>; a duplicate key an index on (k<N>, d<N>). A record
// gets d = its id when inserted and a fresh number when an update changes that key, so
// duplicates come in insertion order and a record moved into a group joins its end.
//
// An update sets only what changed, so that SQLite leaves the indexes of unchanged keys alone:
// first the record alone, on the condition that every key column still holds the new value
// (one statement, no read before it); when that finds no row, the old row is read and the
// changed key columns are set with the record.
//
// Every statement is prepared once, the first time it is needed, and kept until the file is
// closed. Every call steps its statement and resets it before returning, so between calls no
// statement, and so no read transaction, is open. Writes go between Begin and Commit; the caller
// decides how long a write transaction lasts.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/recordmanager/EngineOptions.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/KeyCodec.h"

struct sqlite3_session;

namespace tolmen {

class RecordFile {
 public:
  // The longest record of a variable-length file.
  static constexpr size_t kMaxRecordBytes = size_t{1} << 20;

  // A record as read along one key.
  struct Row {
    int64_t rid = 0;
    int64_t seq = 0;  // place among equal values (0 on a unique key)
    std::string key;  // encoded key value (filled by Insert and Update, not by reads)
    std::string data;
  };
  // Where a read starts, and its direction. After and Before continue from a record (its key
  // value and place); the others from a key value.
  enum class Scan : uint8_t {
    First,
    Last,
    Greater,
    GreaterOrEqual,
    Less,
    LessOrEqual,
    After,
    Before
  };
  static constexpr bool Forward(Scan s) {
    return s == Scan::First || s == Scan::Greater || s == Scan::GreaterOrEqual || s == Scan::After;
  }

  // Creates the file whole or not at all (it is built beside its place and renamed into it).
  // Returns 0 or a status: the key checks of BuildKeyModels, 25 when it cannot be written.
  static int16_t Create(const std::string& path, const FileStat& stats,
                        const EngineOptions& options);
  // Opens an existing file. Returns 0, 12 (missing), 30 (not a record file of this engine), 2 (a
  // damaged file, for example one cut short) or 46 (not readable).
  static int16_t Open(const std::string& path, const EngineOptions& options,
                      std::unique_ptr<RecordFile>& file);

  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;
  ~RecordFile();

  const FileStat& Stat() const { return stat_; }
  const std::vector<KeyModel>& Keys() const { return keys_; }
  bool Variable() const { return (stat_.fileFlags & kFileVariable) != 0; }
  // Changes with every write and every rollback: rows read before are stale when it has changed.
  uint64_t Generation() const { return generation_; }

  // Reads up to `limit` rows of key `key` from where `scan` says, into rows[0, count). `value` is
  // the encoded key value (not used by First and Last), `seq` the place for After and Before.
  // Returns 0 (count may be 0) or a status.
  int16_t Read(int key, Scan scan, const std::string& value, int64_t seq, int limit,
               std::vector<Row>& rows, size_t& count);
  // The record with this id, along key `key`. `found` false when there is none.
  int16_t ReadById(int key, int64_t rid, Row& row, bool& found);

  // Writes. REQUIRES: InTransaction(). An AUTOINCREMENT field holding 0 is given the next value,
  // in `record` too. `row` receives the record's id, place and encoded value along `key` (no
  // data). Statuses: 5 duplicate on a unique key, 8 record gone, 10 non-modifiable key changed,
  // 46 file not writable, 2 I/O.
  int16_t Insert(char* record, size_t length, int key, Row& row);
  int16_t Update(int64_t rid, char* record, size_t length, int key, Row& row);
  int16_t Delete(int64_t rid);

  // The number of records and, per key, of distinct key values.
  int16_t Statistics(uint32_t& records, std::vector<uint32_t>& uniqueValues);

  // A write transaction on this file: Begin takes SQLite's write lock (waiting as the options
  // say), Commit stores the record counter and commits, Rollback undoes everything since Begin.
  int16_t Begin();
  int16_t Commit();
  void Rollback();
  bool InTransaction() const { return inTransaction_; }

  // A transaction over several files (EndIntent.h). Track records this file's changes from now
  // until the transaction ends; Undo gives the changes that take them back. Mark stores the
  // record counter and writes the transaction's mark into the file (SQLite's user_version), so
  // that after a crash the file tells whether its commit happened.
  int16_t Track();
  int16_t Undo(std::string& changes);
  int16_t Mark(uint32_t mark);
  // The file's full path.
  std::string Path() const;

 private:
  enum KeyStatement : int {
    kFirst,
    kLast,
    kGreater,
    kGreaterOrEqual,
    kLess,
    kLessOrEqual,
    kAfter,
    kBefore,
    kById,
    kDistinct,
    kPlace,
    kKeyStatements
  };
  enum FileStatement : int {
    kInsert,
    kUpdateData,
    kOldRow,
    kDelete,
    kCount,
    kBegin,
    kCommit,
    kRollback,
    kLoadSeq,
    kStoreSeq,
    kFileStatements
  };

  RecordFile(sqlite3* db, const EngineOptions& options);
  int16_t Configure(bool writable);
  int16_t LoadStat();
  sqlite3_stmt* KeyStmt(int key, KeyStatement which);
  sqlite3_stmt* FileStmt(FileStatement which);
  sqlite3_stmt* Prepare(const std::string& sql);
  std::string KeySql(int key, KeyStatement which) const;
  std::string FileSql(FileStatement which) const;
  // The update setting the keys marked in `changed` and the record.
  sqlite3_stmt* UpdateStmt(const std::vector<bool>& changed);
  // The update of the record alone, when no key changed. Returns kStatusOk with `done` false
  // when the row is gone or a key column differs.
  int16_t UpdateData(int64_t rid, const char* record, size_t length, int key, Row& row, bool& done);
  int16_t ReadRow(sqlite3_stmt* stmt, Row& row) const;
  int16_t CheckRecord(size_t length) const;
  int16_t AssignAutoIncrements(char* record);
  void EncodeKeys(const char* record);
  int16_t Exec(FileStatement which);
  int16_t Failed(int rc);
  // Steps a write, keeping the errno it ended with for StatusOf.
  int Step(sqlite3_stmt* stmt);
  // The status for a result code of the last write.
  int16_t StatusOf(int rc) const;
  int16_t StoreSeq();
  void EndTracking();

  sqlite3* db_;
  EngineOptions options_;
  FileStat stat_;
  std::vector<KeyModel> keys_;
  std::vector<sqlite3_stmt*> keyStmts_;
  std::vector<sqlite3_stmt*> fileStmts_;
  std::map<std::vector<bool>, sqlite3_stmt*> updateStmts_;
  // A key that may not change and whose encoding loses bytes: an update compares the old record.
  bool compareOldRecord_ = false;
  std::vector<std::string> encoded_;  // scratch: the keys of the record being written
  std::vector<std::string> oldEncoded_;
  Row scratch_;
  uint64_t generation_ = 0;
  sqlite3_session* session_ = nullptr;
  bool inTransaction_ = false;
  int64_t nextSeq_ = 0;
  int64_t storedSeq_ = 0;
  int stepErrno_ = 0;
  // The counter gave a number in this transaction that no new record keeps: a duplicate's new
  // place, or a deleted record's. Only then does Commit store it.
  bool seqTaken_ = false;
};

// The status for an SQLite result code.
int16_t StatusFromSqlite(int rc);

}  // namespace tolmen
