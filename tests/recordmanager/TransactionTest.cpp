// Transactions across files, Stop, a process dying inside a transaction, and readers in other
// connections while the engine works.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "EngineTestUtil.h"

namespace tolmen::test {
namespace {

class TwoFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(CreateFile(engine, dir.File("a.dat"), SmallIntegerFile()), 0);
    ASSERT_EQ(CreateFile(engine, dir.File("b.dat"), SmallIntegerFile()), 0);
    ASSERT_EQ(a.Open(dir.File("a.dat")), 0);
    ASSERT_EQ(b.Open(dir.File("b.dat")), 0);
  }
  TempDir dir;
  RecordEngine engine;
  Client a{engine}, b{engine};
};

TEST_F(TwoFiles, OneTransactionCoversBothFiles) {
  EXPECT_EQ(a.Call(kOpEndTransaction), kStatusNoTransaction);
  EXPECT_EQ(a.Call(kOpAbortTransaction), kStatusNoTransaction);
  ASSERT_EQ(a.Call(kOpBeginTransaction + kOpConcurrentBias), 0);
  EXPECT_EQ(a.Call(kOpBeginTransaction), kStatusTransactionActive);
  ASSERT_EQ(a.Insert(SmallRecord(1)), 0);
  ASSERT_EQ(a.Insert(SmallRecord(2)), 0);
  ASSERT_EQ(b.Insert(SmallRecord(1)), 0);
  EXPECT_EQ(Count(a), 2) << "the transaction reads its own writes";
  ASSERT_EQ(a.Call(kOpAbortTransaction), 0);
  EXPECT_EQ(Count(a), 0);
  EXPECT_EQ(Count(b), 0);

  ASSERT_EQ(b.Call(kOpBeginTransaction), 0);
  ASSERT_EQ(a.Insert(SmallRecord(3)), 0);
  ASSERT_EQ(b.Insert(SmallRecord(4)), 0);
  ASSERT_EQ(b.Insert(SmallRecord(5)), 0);
  EXPECT_EQ(b.Insert(SmallRecord(5)), kStatusDuplicateKey) << "a refused write leaves the rest";
  ASSERT_EQ(a.Call(kOpEndTransaction), 0);
  EXPECT_EQ(Count(a), 1);
  EXPECT_EQ(Count(b), 2);

  // A file closed inside the transaction still goes with it.
  ASSERT_EQ(a.Call(kOpBeginTransaction), 0);
  ASSERT_EQ(a.Insert(SmallRecord(6)), 0);
  ASSERT_EQ(b.Insert(SmallRecord(7)), 0);
  ASSERT_EQ(a.Call(kOpClose), 0);
  ASSERT_EQ(b.Call(kOpAbortTransaction), 0);
  ASSERT_EQ(a.Open(dir.File("a.dat")), 0);
  EXPECT_EQ(Count(a), 1);
  EXPECT_EQ(Count(b), 2);
}

TEST_F(TwoFiles, StopRollsBackAndClosesEveryFile) {
  ASSERT_EQ(a.Insert(SmallRecord(1)), 0);
  ASSERT_EQ(a.Call(kOpBeginTransaction), 0);
  ASSERT_EQ(a.Insert(SmallRecord(2)), 0);
  ASSERT_EQ(b.Insert(SmallRecord(3)), 0);
  ASSERT_EQ(a.Call(kOpStop), 0);
  EXPECT_EQ(a.Get(kOpGetFirst), kStatusNotOpen);
  EXPECT_EQ(b.Get(kOpGetFirst), kStatusNotOpen);
  EXPECT_EQ(a.Call(kOpEndTransaction), kStatusNoTransaction);
  ASSERT_EQ(a.Open(dir.File("a.dat")), 0);
  ASSERT_EQ(b.Open(dir.File("b.dat")), 0);
  EXPECT_EQ(Count(a), 1);
  EXPECT_EQ(Count(b), 0);
}

// The crash and concurrency scenarios run under each journal mode the engine offers.
class JournalTest : public ::testing::TestWithParam<EngineOptions::Journal> {
 protected:
  EngineOptions Options(int busyTimeoutMs = 5000) const {
    EngineOptions o;
    o.journal = GetParam();
    o.busyTimeoutMs = busyTimeoutMs;
    return o;
  }
};

TEST_P(JournalTest, AProcessDyingInsideATransactionLeavesTheFileWhole) {
  TempDir dir;
  const std::string path = dir.File("crash.dat");
  {
    RecordEngine engine(Options());
    Client f(engine);
    ASSERT_EQ(f.Create(path, SmallIntegerFile(1000)), 0);
    for (int32_t n = 0; n < 10; ++n) ASSERT_EQ(f.Insert(SmallRecord(n, 1000)), 0);
  }
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    // A small page cache makes SQLite write pages out before the commit.
    EngineOptions small = Options();
    small.cacheKiB = 64;
    RecordEngine engine(small);
    Client f(engine);
    int ok = f.Open(path) == 0 && f.Call(kOpBeginTransaction) == 0;
    for (int32_t n = 10; ok && n < 3000; ++n) ok = f.Insert(SmallRecord(n, 1000)) == 0;
    ::_exit(ok ? 0 : 1);  // dies without ending the transaction
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  namespace fs = std::filesystem;
  const bool leftover = fs::exists(path + "-journal") ||
                        (fs::exists(path + "-wal") && fs::file_size(path + "-wal") > 1000000);
  ASSERT_TRUE(leftover) << "the crash left uncommitted pages behind";
  RecordEngine engine(Options());
  Client f(engine);
  ASSERT_EQ(f.Open(path), 0);
  EXPECT_EQ(Count(f), 10);
  ASSERT_EQ(f.Get(kOpGetLast), 0);
  EXPECT_EQ(f.data, SmallRecord(9, 1000));
}

TEST_P(JournalTest, NoReadIsLeftOpenBetweenCallsAndOthersReadWhatIsCommitted) {
  TempDir dir;
  const std::string path = dir.File("shared.dat");
  RecordEngine engine(Options());
  Client f(engine);
  ASSERT_EQ(f.Create(path, SmallIntegerFile()), 0);
  for (int32_t n = 0; n < 100; ++n) ASSERT_EQ(f.Insert(SmallRecord(n)), 0);
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
  sqlite3_busy_timeout(raw, 0);
  // A reader in the middle of a transaction would keep a writer from locking the file out
  // (rollback journal), or a checkpoint from emptying the log (WAL).
  auto nobodyReading = [raw] {
    bool checkpointed = false;
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(raw, "PRAGMA wal_checkpoint(TRUNCATE)", -1, &stmt, nullptr);
    if (sqlite3_step(stmt) == SQLITE_ROW) checkpointed = sqlite3_column_int(stmt, 0) == 0;
    sqlite3_finalize(stmt);
    return checkpointed &&
           sqlite3_exec(raw, "BEGIN EXCLUSIVE; COMMIT;", nullptr, nullptr, nullptr) == SQLITE_OK;
  };
  ASSERT_EQ(f.Get(kOpGetFirst), 0);
  for (int i = 0; i < 3; ++i) ASSERT_EQ(f.Get(kOpGetNext), 0);
  EXPECT_TRUE(nobodyReading()) << "in the middle of a scan, with rows read ahead";
  ASSERT_EQ(f.Insert(SmallRecord(1000)), 0);
  ASSERT_EQ(f.Get(kOpGetFirst), 0);
  EXPECT_TRUE(nobodyReading()) << "after a write and a read";
  EXPECT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(500)), kStatusKeyNotFound);
  EXPECT_EQ(f.Get(kOpStat, 0, 512), 0);
  EXPECT_TRUE(nobodyReading()) << "after a failed Get Equal and a Stat";
  ASSERT_EQ(f.Get(kOpGetNext), 0);
  EXPECT_EQ(f.data, SmallRecord(1));

  // While another connection writes, a write here waits for it and then reports the lock.
  ASSERT_EQ(sqlite3_exec(raw, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  RecordEngine other(Options(50));
  Client g(other);
  ASSERT_EQ(g.Open(path), 0);
  EXPECT_EQ(g.Insert(SmallRecord(2000)), kStatusFileLocked);
  ASSERT_EQ(sqlite3_exec(raw, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(g.Insert(SmallRecord(2000)), 0);
  sqlite3_close(raw);

  // Another engine reads the committed records while a transaction here is open.
  ASSERT_EQ(f.Call(kOpBeginTransaction), 0);
  ASSERT_EQ(f.Insert(SmallRecord(3000)), 0);
  RecordEngine reader(Options(0));
  Client r(reader);
  ASSERT_EQ(r.Open(path, -2), 0);
  EXPECT_EQ(Count(r), 102);
  ASSERT_EQ(f.Call(kOpEndTransaction), 0);
  EXPECT_EQ(Count(r), 103);
}

INSTANTIATE_TEST_SUITE_P(Modes, JournalTest,
                         ::testing::Values(EngineOptions::Journal::Wal,
                                           EngineOptions::Journal::Delete),
                         [](const auto& p) {
                           return p.param == EngineOptions::Journal::Wal ? "Wal" : "Delete";
                         });

}  // namespace
}  // namespace tolmen::test
