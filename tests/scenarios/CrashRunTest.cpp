// Tolmen killed with SIGKILL in the middle of a run: after the category insert, in the client
// loop, and inside End Transaction while the category file (the one record file a run writes;
// several files in one End are shown in tests/recordmanager/CrashEndTest.cpp) commits. Every
// record file of the Pastel set opens afterwards and holds none of the run's changes, and the
// next run works. And maxsim killed during a run: the run ends with the system's error dialog
// within seconds.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>

#include "ScenarioKit.h"
#include "common/CrashKit.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/EndIntent.h"
#include "platform/recordmanager/RecordEngine.h"
#include "shell/ShellState.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

// Every record of every record file in `folder`, read along its first key through a fresh
// engine, by file name. A file that does not open as a record file is left out.
std::map<std::string, std::vector<std::string>> RecordFiles(const std::string& folder) {
  std::map<std::string, std::vector<std::string>> files;
  RecordEngine engine;
  for (const fs::directory_entry& e : fs::directory_iterator(folder)) {
    const std::string name = e.path().filename().string();
    // SQLite's companions and the engine's intent files are not record files.
    if (!e.is_regular_file() || name.starts_with(".") || name.ends_with("-wal") ||
        name.ends_with("-shm")) {
      continue;
    }
    std::string pos(128, ' '), data, key = e.path().string();
    int32_t length = 0;
    if (engine.BTRCALL(kOpOpen, pos, data, length, key, 255, 0) != kStatusOk) continue;
    std::vector<std::string>& records = files[name];
    key.assign(255, ' ');
    uint16_t op = kOpGetFirst;
    for (;;) {
      data.assign(65536, ' ');
      length = 65536;
      if (engine.BTRCALL(op, pos, data, length, key, 255, 0) != kStatusOk) break;
      records.push_back(data.substr(0, static_cast<size_t>(length)));
      op = kOpGetNext;
    }
    engine.BTRCALL(kOpClose, pos, data, length, key, 255, 0);
  }
  return files;
}

class CrashRunTest : public ScenarioTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(MakeWorld(json::array({
        Client("A", 1, {{"Client_Name", "Acme Trading"}, {"udfs", {{"Account Number", "ACM001"}}}}),
        Client("B", 1, {{"Client_Name", "Bravo Ltd"}, {"udfs", {{"Account Number", "BRV001"}}}}),
        Client("C", 1, {{"Client_Name", "Cobalt Inc"}, {"udfs", {{"Account Number", "COB001"}}}}),
    })));
    WriteTemplate();
  }
  // A new category for every debtor of the run, then Transfer.
  std::vector<std::string> Script(const std::vector<std::string>& answers) const {
    return ImportScript(answers, {"@tab 1", "@click optCategory 1", "@tab 5"});
  }
};

TEST_F(CrashRunTest, AKilledRunLeavesEveryRecordFileAsItWasAndTheNextRunWorks) {
  struct Moment {
    const char* name;
    // Called at each yield of the run in the child; calls stop() at the moment.
    std::function<void(Tolmen&, WalWriteWatch&, const std::function<void()>&)> atYield;
  };
  const Moment moments[] = {
      {"just after the category insert, at the first client",
       [](Tolmen& app, WalWriteWatch&, const std::function<void()>& stop) {
         if (app.run.CurrentCategoryNumber == 4) stop();
       }},
      {"in the client loop, at the second client",
       [](Tolmen& app, WalWriteWatch&, const std::function<void()>& stop) {
         if (app.run.ClientsScanned == 2) stop();
       }},
      {"in End Transaction, while the category file commits",
       [](Tolmen&, WalWriteWatch& watch, const std::function<void()>& stop) {
         // Armed again at each yield: it counts the logs written after the last one, End's.
         watch.Arm([stop](const std::string&, size_t) { stop(); });
       }},
  };
  const auto before = RecordFiles(PastelFolder());
  ASSERT_GE(before.size(), 3u);
  for (const Moment& m : moments) {
    SCOPED_TRACE(m.name);
    const int status = RunUntilKilled([&](const std::function<void()>& stop) {
      WalWriteWatch watch;
      atYield = [&](Tolmen& app) { m.atYield(app, watch, stop); };
      Run(Script({"Yes", "No"}));
      ::_exit(0);
    });
    atYield = nullptr;
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
    EXPECT_EQ(RecordFiles(PastelFolder()), before);
    for (const auto& [name, records] : before) {
      EXPECT_FALSE(fs::exists(IntentPath(PastelFolder() + name))) << name;
    }
  }

  // A whole run: Maximizer's list reads its last client twice, which the run counts as an error.
  EXPECT_EQ(Run(Script({"Yes", "No"})), kExitRunErrors) << Transcript();
  EXPECT_NE(Transcript().find("4 Pastel Debtors (0 new) were written"), std::string::npos)
      << Transcript();
  const auto after = RecordFiles(PastelFolder());
  EXPECT_EQ(after.size(), before.size());
  EXPECT_NE(after, before);
  const std::vector<std::string> categories = CategoryFile();
  EXPECT_NE(std::find(categories.begin(), categories.end(), "<4> New Category Description"),
            categories.end())
      << ::testing::PrintToString(categories);
}

TEST_F(CrashRunTest, MaxsimKilledDuringARunEndsItWithTheErrorDialogWithinSeconds) {
  atYield = [this](Tolmen& app) {
    if (app.run.ClientsScanned == 2 && maxsim_) maxsim_->Kill();
  };
  const auto start = std::chrono::steady_clock::now();
  Run(Script({"Yes", "OK", "No"}));
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  EXPECT_LT(seconds, 10.0);
  EXPECT_NE(Transcript().find("The remote server machine does not exist or is unavailable"),
            std::string::npos)
      << Transcript();
}

// Killed at every moment a whole run offers: at each of its yields and before each of its
// writes to a record file's log. Every record file holds what it held before the run or what a
// whole run leaves, all files alike.
TEST_F(CrashRunTest, KilledAtEveryYieldAndLogWriteEveryRecordFileHoldsAllOrNone) {
  const auto before = RecordFiles(PastelFolder());
  const std::string backup = dir_.File("backup");
  fs::copy(PastelFolder(), backup, fs::copy_options::recursive);
  auto restore = [&] {
    app_.reset();  // the last run's engine lets go of the files
    fs::remove_all(PastelFolder());
    fs::copy(backup, PastelFolder(), fs::copy_options::recursive);
  };

  size_t yields = 0, writes = 0;
  {
    WalWriteWatch watch;
    watch.Arm([&](const std::string&, size_t) { ++writes; });
    atYield = [&](Tolmen&) { ++yields; };
    ASSERT_EQ(Run(Script({"Yes", "No"})), kExitRunErrors) << Transcript();
    atYield = nullptr;
  }
  const auto after = RecordFiles(PastelFolder());
  ASSERT_NE(after, before);
  ASSERT_GT(yields, 0u);
  ASSERT_GT(writes, 0u);
  restore();

  for (const bool atWrite : {false, true}) {
    for (size_t n = 1; n <= (atWrite ? writes : yields); ++n) {
      SCOPED_TRACE(std::string(atWrite ? "write " : "yield ") + std::to_string(n));
      const int status = RunUntilKilled([&](const std::function<void()>& stop) {
        WalWriteWatch watch;
        size_t seen = 0;
        if (atWrite) {
          watch.Arm([&](const std::string&, size_t) {
            if (++seen == n) stop();
          });
        } else {
          atYield = [&](Tolmen&) {
            if (++seen == n) stop();
          };
        }
        Run(Script({"Yes", "No"}));
        ::_exit(0);
      });
      atYield = nullptr;
      ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
      const auto now = RecordFiles(PastelFolder());
      EXPECT_TRUE(now == before || now == after);
      if (now != before) restore();
    }
  }
}

}  // namespace
}  // namespace tolmen::test
