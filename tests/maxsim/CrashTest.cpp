// maxsim killed with SIGKILL in the middle of UDF writes: its store opens whole, holding every
// write it answered and, for the write in flight, the old value or the new one.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <string>
#include <thread>

#include "Attached.h"

namespace tolmen::test {
namespace {

using CrashTest = AttachedTest;

std::string IntegrityCheck(const std::string& path) {
  sqlite3* db = nullptr;
  std::string result = "cannot open";
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK) {
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &stmt, nullptr) == SQLITE_OK &&
        sqlite3_step(stmt) == SQLITE_ROW) {
      result = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
    }
    sqlite3_finalize(stmt);
  }
  sqlite3_close(db);
  return result;
}

TEST_F(CrashTest, KilledDuringUdfWritesTheStoreOpensWholeWithEveryAnsweredWrite) {
  const std::string id = record_->GetFieldValue("Identification");
  // The kill comes after a different delay each round, so that it falls at different moments of
  // a write: before it, while the store commits, while the client file commits, after it.
  for (int round = 0; round < 6; ++round) {
    SCOPED_TRACE(round);
    if (round > 0) {
      ASSERT_TRUE(maxsim_.Start());
      attach_ = MaxAttachObject::Attach(maxsim_.Socket(), clock_);
      record_ = attach_->GetCurrentRecordObject();
    }
    const int base = 1000 * (round + 1);
    int answered = 0;
    std::thread killer([&] {
      std::this_thread::sleep_for(std::chrono::microseconds(2000 + 1700 * round));
      maxsim_.Kill();
    });
    try {
      for (int n = 1; n < 100000; ++n) {
        record_->SetFieldValue("Credit Limit", std::to_string(base + n));
        answered = n;
      }
    } catch (const std::exception&) {
      // the link broke: maxsim is gone
    }
    killer.join();

    EXPECT_EQ(IntegrityCheck(maxsim_.Database() + "/maxsim.db"), "ok");
    const nlohmann::json stored = maxsim_.StoredUdf(id, "Credit Limit");
    ASSERT_TRUE(stored.is_string()) << stored;
    const int value = std::stoi(stored.get<std::string>());
    if (answered > 0) {
      EXPECT_TRUE(value == base + answered || value == base + answered + 1)
          << value << " after " << answered << " answered writes";
    }
  }
}

}  // namespace
}  // namespace tolmen::test
