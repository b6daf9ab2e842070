// WAL with synchronous=NORMAL; SQLite's syncs are counted through a VFS wrapping the default one.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <utility>

#include "EngineTestUtil.h"

namespace tolmen::test {
namespace {

// While it lives, the default VFS is one that counts the xSync calls on the files it opens.
class SyncCounter {
 public:
  SyncCounter() {
    real_ = sqlite3_vfs_find(nullptr);
    vfs_ = *real_;  // pAppData stays the real VFS's: its methods read it
    vfs_.zName = "tolmen-test-sync-counter";
    vfs_.xOpen = &Open;
    syncs_ = 0;
    sqlite3_vfs_register(&vfs_, 1);
  }
  ~SyncCounter() { sqlite3_vfs_unregister(&vfs_); }
  SyncCounter(const SyncCounter&) = delete;
  SyncCounter& operator=(const SyncCounter&) = delete;
  int Take() { return std::exchange(syncs_, 0); }

 private:
  static int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out) {
    const int rc = real_->xOpen(real_, name, file, flags, out);
    if (rc == SQLITE_OK && file->pMethods && (!methods_ || file->pMethods == methods_)) {
      methods_ = file->pMethods;
      counting_ = *methods_;
      counting_.xSync = [](sqlite3_file* f, int syncFlags) {
        ++syncs_;
        return methods_->xSync(f, syncFlags);
      };
      file->pMethods = &counting_;
    }
    return rc;
  }
  static inline sqlite3_vfs* real_ = nullptr;
  static inline const sqlite3_io_methods* methods_ = nullptr;
  static inline sqlite3_io_methods counting_{};
  static inline int syncs_ = 0;
  sqlite3_vfs vfs_{};
};

TEST(Durability, CommitsAppendToTheLogUnsyncedAndAClosedFileIsWholeOnItsOwn) {
  SyncCounter counter;
  TempDir dir;
  const std::string path = dir.File("clients.dat");
  RecordEngine engine;
  Client f(engine);
  ASSERT_EQ(f.Create(path, SmallIntegerFile()), 0);
  ASSERT_EQ(f.Insert(SmallRecord(0)), 0);  // the log's first commit syncs its header
  counter.Take();
  for (int32_t n = 1; n <= 20; ++n) ASSERT_EQ(f.Insert(SmallRecord(n)), 0);
  ASSERT_EQ(f.Update(SmallRecord(20)), 0);
  EXPECT_EQ(counter.Take(), 0) << "a commit outside a transaction syncs nothing";

  // Another connection sees the file in WAL mode and reads the commits while the file is open.
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  sqlite3_stmt* q = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(raw,
                               "SELECT (SELECT count(*) FROM tolmen_record), journal_mode "
                               "FROM pragma_journal_mode()",
                               -1, &q, nullptr),
            SQLITE_OK);
  ASSERT_EQ(sqlite3_step(q), SQLITE_ROW);
  EXPECT_EQ(sqlite3_column_int(q, 0), 21);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(q, 1)), "wal");
  sqlite3_finalize(q);
  sqlite3_close(raw);

  // Close copies the log into the file and syncs it; the file alone then holds every record.
  ASSERT_EQ(f.Call(kOpClose), 0);
  EXPECT_GT(counter.Take(), 0) << "the checkpoint at Close syncs";
  EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
  const std::string copy = dir.File("copy.dat");
  std::filesystem::copy_file(path, copy);
  Client c(engine);
  ASSERT_EQ(c.Open(copy, -2), 0);
  EXPECT_EQ(Count(c), 21);

  // A rollback journal keeps synchronous=FULL: every commit syncs.
  EngineOptions rollback;
  rollback.journal = EngineOptions::Journal::Delete;
  RecordEngine other(rollback);
  Client d(other);
  ASSERT_EQ(d.Create(dir.File("rollback.dat"), SmallIntegerFile()), 0);
  counter.Take();
  for (int32_t n = 1; n <= 5; ++n) ASSERT_EQ(d.Insert(SmallRecord(n)), 0);
  EXPECT_GE(counter.Take(), 5);
}

}  // namespace
}  // namespace tolmen::test
