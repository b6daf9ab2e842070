// Tolmen killed with SIGKILL at any moment of a run leaves every record file of the Pastel set
// all or nothing of the run (several files in one End: tests/recordmanager/CrashEndTest.cpp);
// maxsim killed during a run ends it with the system's error dialog within seconds.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "ScenarioKit.h"
#include "common/CrashKit.h"
#include "platform/recordmanager/EndIntent.h"
#include "shell/ShellState.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

// The records of every record file in `folder`, by file name.
std::map<std::string, std::vector<std::string>> RecordFiles(const std::string& folder) {
  std::map<std::string, std::vector<std::string>> files;
  for (const fs::directory_entry& e : fs::directory_iterator(folder)) {
    const std::string name = e.path().filename().string();
    // SQLite's companions and the engine's intent files are not record files.
    if (!e.is_regular_file() || name.starts_with(".") || name.ends_with("-wal") ||
        name.ends_with("-shm"))
      continue;
    if (auto records = Records(e.path().string())) files[name] = std::move(*records);
  }
  return files;
}

class CrashRunTest : public ScenarioTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(MakeWorld(
        json::array({Company("A", "Acme Trading", "ACM001"), Company("B", "Bravo Ltd", "BRV001"),
                     Company("C", "Cobalt Inc", "COB001")})));
    WriteTemplate();
  }
  // A new category for every debtor of the run, then Transfer; the status of the whole run.
  // Maximizer's list reads its last client twice, which the run counts as an error.
  void WholeRun() {
    EXPECT_EQ(Run(ImportScript({"Yes", "No"}, NewCategory())), kExitRunErrors) << Transcript();
  }
};

// Killed at every moment a whole run offers: at each of its yields and before each of its
// writes to a record file's log. Every record file then opens, holds what it held before the run
// or what a whole run leaves, all files alike, and none of the run's changes while it is still
// in its client loop; and the next run works.
TEST_F(CrashRunTest, KilledAtEveryYieldAndLogWriteEveryRecordFileHoldsAllOrNone) {
  const auto before = RecordFiles(PastelFolder());
  ASSERT_GE(before.size(), 3u);
  const std::string backup = dir_.File("backup");
  fs::copy(PastelFolder(), backup, fs::copy_options::recursive);
  auto restore = [&] {
    app_.reset();  // the last run's engine lets go of the files
    fs::remove_all(PastelFolder());
    fs::copy(backup, PastelFolder(), fs::copy_options::recursive);
  };

  size_t yields = 0, writes = 0, inLoop = 0;  // inLoop: the last yield at the second client
  {
    WalWriteWatch watch;
    watch.Arm([&](const std::string&, size_t) { ++writes; });
    atYield = [&](Tolmen& app) {
      ++yields;
      if (app.run.ClientsScanned == 2) inLoop = yields;
    };
    WholeRun();
    atYield = nullptr;
  }
  const auto after = RecordFiles(PastelFolder());
  ASSERT_NE(after, before);
  ASSERT_GT(inLoop, 0u);
  ASSERT_GT(writes, 0u);
  restore();

  for (const bool atWrite : {false, true}) {
    for (size_t n = 1; n <= (atWrite ? writes : yields); ++n) {
      SCOPED_TRACE(std::string(atWrite ? "write " : "yield ") + std::to_string(n));
      const int status = RunUntilKilled([&](const std::function<void()>& stop) {
        WalWriteWatch watch;
        size_t seen = 0;
        const auto count = [&] {
          if (++seen == n) stop();
        };
        if (atWrite)
          watch.Arm([&](const std::string&, size_t) { count(); });
        else
          atYield = [&](Tolmen&) { count(); };
        WholeRun();
        ::_exit(0);
      });
      atYield = nullptr;
      ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
      const auto now = RecordFiles(PastelFolder());
      if (!atWrite && n <= inLoop)
        EXPECT_TRUE(now == before);
      else
        EXPECT_TRUE(now == before || now == after);
      for (const auto& [name, records] : before)
        EXPECT_FALSE(fs::exists(IntentPath(PastelFolder() + name))) << name;
      if (now != before) restore();
    }
  }

  WholeRun();
  EXPECT_TRUE(Contains(Transcript(), "4 Pastel Debtors (0 new) were written")) << Transcript();
  EXPECT_EQ(RecordFiles(PastelFolder()), after);
  EXPECT_TRUE(HasLine(CategoryFile(), "<4> New Category Description"));
}

TEST_F(CrashRunTest, MaxsimKilledDuringARunEndsItWithTheErrorDialogWithinSeconds) {
  atYield = [this](Tolmen& app) {
    if (app.run.ClientsScanned == 2 && maxsim_) maxsim_->Kill();
  };
  const auto start = std::chrono::steady_clock::now();
  Run(ImportScript({"Yes", "OK", "No"}, NewCategory()));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_TRUE(Contains(Transcript(), "The remote server machine does not exist or is unavailable"))
      << Transcript();
}

}  // namespace
}  // namespace tolmen::test
