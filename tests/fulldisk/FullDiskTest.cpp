// A full disk under every file the system writes: a clear message, and an old file stays as it
// was. A child's file size limit (SIGXFSZ ignored) fails writes with EFBIG as a full disk would.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "background/AutoRunFile.h"
#include "background/BackgroundState.h"
#include "common/CrashKit.h"
#include "common/TempDir.h"
#include "common/TestText.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/RecordEngine.h"
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/RuntimeError.h"
#include "runtime/Trap.h"
#include "shell/AppInfo.h"
#include "shell/RunLog.h"
#include "shell/Settings.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "transfer/ImportFile.h"

namespace tolmen::test {
namespace {

// Runs `work` in a child process whose files may not grow past `limit` bytes; what it returned.
std::string WithFullDisk(rlim_t limit, const std::function<std::string()>& work) {
  int fds[2];
  if (::pipe(fds) != 0) return "no pipe";
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::close(fds[0]);
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit r{limit, limit};
    std::string result = ::setrlimit(RLIMIT_FSIZE, &r) == 0 ? work() : "no limit";
    const bool told =
        ::write(fds[1], result.data(), result.size()) == static_cast<ssize_t>(result.size());
    ::_exit(told ? 0 : 1);
  }
  ::close(fds[1]);
  std::string result;
  char buffer[4096];
  for (ssize_t n; (n = ::read(fds[0], buffer, sizeof buffer)) > 0;)
    result.append(buffer, static_cast<size_t>(n));
  ::close(fds[0]);
  int status = 0;
  ::waitpid(pid, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  return result;
}

// The message of the error `write` throws, as the system would show it; "no error" when it
// throws none.
std::string Message(const std::function<void()>& write) {
  try {
    write();
  } catch (const std::exception& e) {
    const RuntimeError error = ToRuntimeError(e);
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "no error";
}

// Nothing but the file itself is left in the folder: no temporary file beside it.
std::vector<std::string> Names(const TempDir& dir) {
  std::vector<std::string> names;
  for (const auto& e : std::filesystem::directory_iterator(dir.Path()))
    names.push_back(e.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(FullDisk, FilesRewrittenWholeKeepTheirOldContents) {
  const std::string old(12, 'o');
  TempDir home;
  VirtualClock clock(46349.375);
  ScriptUi ui({}, nullptr, clock, "Tolmen");
  Tolmen app(MakeAppInfo(home.Path().string() + "/", "1.0.0"), ui, clock, home.File("app.ini"));
  struct Writer {
    const char* file;
    std::function<void(const std::string& path)> write;
    const char* message;
  };
  const Writer writers[] = {
      {"settings.ini",
       [](const std::string& path) {
         Settings settings(path);
         settings.SaveSetting("Settings", "Folder", std::string(200, 'x'));
       },
       "61 Disk full: "},
      {"AUTORUN.KSF",
       [](const std::string& path) {
         BackgroundState state;
         state.IntervalMinutes = 15;
         WriteAutoRunFile(path, state, true, false);
       },
       "61 Disk full"},
      {"run.KTF", [&app](const std::string& path) { TemplateSave(app, path); }, "61 Disk full"},
  };
  for (const Writer& w : writers) {
    SCOPED_TRACE(w.file);
    TempDir dir;
    const std::string path = dir.File(w.file);
    std::ofstream(path, std::ios::binary) << old;
    const std::string message =
        WithFullDisk(old.size() + 8, [&] { return Message([&] { w.write(path); }); });
    EXPECT_EQ(message.substr(0, std::string(w.message).size()), w.message) << message;
    EXPECT_EQ(ReadFile(path), old);
    EXPECT_EQ(Names(dir), std::vector<std::string>{w.file});
  }
}

TEST(FullDisk, AppendedFilesKeepWhatTheyHeldAndEndOnAWholeLine) {
  TempDir dir;
  const std::string old = "first run\r\n";
  std::ofstream(dir.File(RunLog::kFileName), std::ios::binary) << old;
  const std::string logMessage = WithFullDisk(old.size() + 16, [&] {
    RunLog log;
    log.SetFolder(dir.Path().string() + "/");
    return Message([&] {
      for (int i = 0; i < 10; ++i) log.Append("a line of the second run");
    });
  });
  EXPECT_EQ(logMessage, "61 Disk full: " + dir.File(RunLog::kFileName));
  EXPECT_EQ(ReadFile(dir.File(RunLog::kFileName)).substr(0, old.size()), old);

  const std::string line = "\"ACM001\",\"Acme Trading\"\r\n";
  const std::string importMessage = WithFullDisk(line.size() * 3 + 5, [&] {
    ImportFile file;
    if (!file.Open(dir.File("MaxCus01.csv"))) return std::string("not opened");
    return Message([&] {
      for (int i = 0; i < 10; ++i) file.Append(line);
    });
  });
  EXPECT_EQ(importMessage, "61 Disk full");
  EXPECT_EQ(ReadFile(dir.File("MaxCus01.csv")), line + line + line) << "whole lines only";
}

TEST(FullDisk, ARecordFileRefusesTheTransactionAndKeepsItsRecords) {
  TempDir dir;
  const std::string path = dir.File("DEBTORS.DAT");
  const FileDef def{100, 4096, false, {KeyDef{false, false, {SegmentDef{1, 8, KeyType::String}}}}};
  // Opens the file (after creating it with `create`) and inserts records `from` to `to` in one
  // transaction when `inTransaction`; the first status that is not 0, or 0.
  const auto insert = [&](bool create, int from, int to, bool inTransaction) {
    RecordEngine engine;
    std::string pos(128, ' '), data = BuildCreateBuffer(def), key = path;
    auto call = [&](uint16_t op, std::string record) {
      data = std::move(record);
      auto length = static_cast<int32_t>(data.size());
      return engine.BTRCALL(op, pos, data, length, key, 255, 0);
    };
    int16_t status = create ? call(kOpCreate, data) : 0;
    key = path;
    if (status == 0) status = call(kOpOpen, "");
    if (status == 0 && inTransaction) status = call(kOpBeginTransaction, "");
    key.assign(255, ' ');
    for (int n = from; n < to && status == 0; ++n) {
      std::string record = std::to_string(10000000 + n);
      record.resize(100, '.');
      status = call(kOpInsert, record);
    }
    if (status == 0 && inTransaction) status = call(kOpEndTransaction, "");
    return status;
  };
  ASSERT_EQ(insert(true, 0, 10, false), 0);
  const auto before = Records(path);
  ASSERT_EQ(before->size(), 10u);
  // Room for the file, its log index (32 KiB) and a little of its log.
  const auto size = std::filesystem::file_size(path);
  EXPECT_EQ(WithFullDisk(std::max<rlim_t>(size, 32768) + 32768,
                         [&] { return std::to_string(insert(false, 10, 2000, true)); }),
            std::to_string(kStatusDiskFull));
  EXPECT_EQ(Records(path), before);
}

}  // namespace
}  // namespace tolmen::test
