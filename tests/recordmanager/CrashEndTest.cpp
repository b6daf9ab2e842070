// A process killed in the middle of End Transaction over several files: the next open finds
// every file with all of the transaction or none of it, and the files work on.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "EngineTestUtil.h"
#include "common/CrashKit.h"
#include "platform/recordmanager/EndIntent.h"

namespace tolmen::test {
namespace {

const char* const kFiles[] = {"a.dat", "b.dat", "c.dat"};

// Every record of a file by its key, read through a fresh engine.
std::map<int32_t, std::string> Contents(const std::string& path) {
  RecordEngine engine;
  Client c(engine);
  std::map<int32_t, std::string> records;
  EXPECT_EQ(c.Open(path), 0) << path;
  for (int16_t st = c.Get(kOpGetFirst); st == 0; st = c.Get(kOpGetNext)) {
    records[IdOf(c.data)] = c.data.substr(0, 16);
  }
  c.Call(kOpClose);
  return records;
}

std::string Changed(int32_t n) {
  std::string r = SmallRecord(n);
  r.replace(4, 3, "NEW");
  return r;
}

TEST(CrashInEnd, EveryFileHoldsAllOrNoneOfTheTransaction) {
  // The files join the transaction a, b, c; End commits c, b and a last. `log` is the how-manieth
  // write-ahead log End writes to when the process is killed (0: not killed).
  struct Case {
    const char* moment;
    size_t log;
    bool all;
  };
  const Case cases[] = {{"End finishes", 0, true},
                        {"the first file's commit", 1, false},
                        {"the second file's commit, one file committed", 2, false},
                        {"the deciding file's commit, two files committed", 3, false}};
  const std::map<int32_t, std::string> before{
      {1, SmallRecord(1)}, {2, SmallRecord(2)}, {3, SmallRecord(3)}};
  const std::map<int32_t, std::string> after{
      {1, SmallRecord(1)}, {2, Changed(2)}, {10, SmallRecord(10)}};
  for (const Case& k : cases) {
    SCOPED_TRACE(k.moment);
    TempDir dir;
    std::vector<std::string> paths;
    {
      RecordEngine engine;
      for (const char* name : kFiles) {
        paths.push_back(dir.File(name));
        Client c(engine);
        ASSERT_EQ(c.Create(paths.back(), SmallIntegerFile()), 0);
        for (int32_t n = 1; n <= 3; ++n) ASSERT_EQ(c.Insert(SmallRecord(n)), 0);
      }
    }

    const int status = RunUntilKilled([&](const std::function<void()>& stop) {
      WalWriteWatch watch;
      RecordEngine engine;
      std::vector<std::unique_ptr<Client>> clients;
      bool ok = true;
      for (const std::string& p : paths) {
        clients.push_back(std::make_unique<Client>(engine));
        ok = ok && clients.back()->Open(p) == 0;
      }
      ok = ok && clients.front()->Call(kOpBeginTransaction) == 0;
      for (auto& client : clients) {
        Client& c = *client;
        ok = ok && c.Insert(SmallRecord(10)) == 0;
        ok = ok && c.GetKey(kOpGetEqual, Le<int32_t>(2)) == 0 && c.Update(Changed(2)) == 0;
        ok = ok && c.GetKey(kOpGetEqual, Le<int32_t>(3)) == 0 && c.Call(kOpDelete) == 0;
      }
      if (!ok) ::_exit(2);
      if (k.log > 0) {
        watch.Arm([&](const std::string&, size_t logs) {
          if (logs == k.log) stop();
        });
      }
      ::_exit(clients.front()->Call(kOpEndTransaction) == 0 ? 0 : 3);
    });
    if (k.log > 0) {
      ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
    } else {
      ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
      // A finished End leaves no intent behind (an open would settle one unseen).
      for (const std::string& p : paths) EXPECT_FALSE(std::filesystem::exists(IntentPath(p))) << p;
    }

    for (const std::string& p : paths) {
      EXPECT_EQ(Contents(p), k.all ? after : before) << p;
      EXPECT_FALSE(std::filesystem::exists(IntentPath(p))) << "settled and removed: " << p;
    }
    // The files work on: a new transaction over all three commits.
    RecordEngine engine;
    std::vector<std::unique_ptr<Client>> clients;
    for (const std::string& p : paths) {
      clients.push_back(std::make_unique<Client>(engine));
      ASSERT_EQ(clients.back()->Open(p), 0);
    }
    ASSERT_EQ(clients[0]->Call(kOpBeginTransaction), 0);
    for (auto& c : clients) EXPECT_EQ(c->Insert(SmallRecord(20)), 0);
    EXPECT_EQ(clients[0]->Call(kOpEndTransaction), 0);
    for (auto& c : clients) EXPECT_EQ(c->GetKey(kOpGetEqual, Le<int32_t>(20)), 0);
  }
}

}  // namespace
}  // namespace tolmen::test
