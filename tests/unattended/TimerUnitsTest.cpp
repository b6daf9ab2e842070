// The timer units of `tolmen run --install-timer` and the command's usage errors.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <sstream>

#include "common/TempDir.h"
#include "common/TestText.h"
#include "unattended/RunMain.h"
#include "unattended/TimerUnits.h"

namespace tolmen::test {
namespace {

TEST(TimerUnitsTest, WordsAreQuotedSoSystemdExpandsNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {"/home/me/monthly.KTF", "/home/me/monthly.KTF"},
      {"/home/me/My Templates/a.KTF", "\"/home/me/My Templates/a.KTF\""},
      {"100%", "100%%"},
      {"$HOME", "$$HOME"},
      {"say \"hi\"\\", "\"say \\\"hi\\\"\\\\\""},
      {"", "\"\""},
  };
  for (const auto& [text, word] : cases) EXPECT_EQ(SystemdWord(text), word) << text;
  for (const char* good : {"00:00", "06:30", "23:59"}) EXPECT_TRUE(IsClockTime(good)) << good;
  for (const char* bad : {"24:00", "6:30", "06:60", "0630", "ab:cd"})
    EXPECT_FALSE(IsClockTime(bad)) << bad;
}

TEST(TimerUnitsTest, UsageErrorsExitFour) {
  const std::vector<std::vector<const char*>> bad = {
      {"tolmen", "run"},
      {"tolmen", "run", "--install-timer", "a.KTF"},
      {"tolmen", "run", "--every", "5", "a.KTF"},
      {"tolmen", "run", "--install-timer", "--at", "25:00", "a.KTF"},
      {"tolmen", "run", "--install-timer", "--every", "5", "--at", "06:00", "a.KTF"},
      {"tolmen", "run", "--remove-timer", "a.KTF"},
      {"tolmen", "run", "--bogus", "a.KTF"},
  };
  std::ostringstream out, err;
  for (const auto& args : bad) {
    RunCommandLine fresh;
    EXPECT_EQ(ParseRunCommandLine(static_cast<int>(args.size()), args.data(), fresh, out, err),
              kRunCallUsage)
        << args.size();
  }
  RunCommandLine line;
  const char* args[] = {"tolmen", "run", "--print-timer", "--at", "06:30", "--json", "a.KTF"};
  EXPECT_EQ(ParseRunCommandLine(7, args, line, out, err), -1) << err.str();
  EXPECT_EQ(line.action, RunCommandLine::Action::kPrintTimer);
  EXPECT_TRUE(line.request.json);
}

TEST(TimerUnitsTest, InstalledUnitsRunTheTemplatesAndVerify) {
  TempDir dir("tolmen-timer-");
  TimerRequest request;
  request.program = "/bin/true";
  request.arguments = {"--json", "/home/me/My Templates/a.KTF"};
  request.environment = {{"TOLMEN_HOME", "/home/me/tolmen"}};
  request.everyMinutes = 15;
  const std::string folder = dir.File("user") + "/";
  std::string error;
  ASSERT_TRUE(WriteTimerUnits(folder, request, error)) << error;
  const std::string service = ReadFile(folder + kServiceName);
  EXPECT_NE(service.find("\nExecStart=/bin/true run --json \"/home/me/My Templates/a.KTF\"\n"),
            std::string::npos)
      << service;
  EXPECT_NE(service.find("\nEnvironment=TOLMEN_HOME=/home/me/tolmen\n"), std::string::npos);
  const std::string timer = ReadFile(folder + kTimerName);
  EXPECT_NE(timer.find("OnUnitActiveSec=15min\n"), std::string::npos) << timer;
  request.everyMinutes = 0;
  request.at = "06:30";
  EXPECT_NE(TimerUnit(request).find("OnCalendar=*-*-* 06:30:00\n"), std::string::npos);

  if (std::system("command -v systemd-analyze >/dev/null 2>&1") == 0) {
    const std::string command = "systemd-analyze verify --man=no '" + folder + kServiceName +
                                "' '" + folder + kTimerName + "' >'" + dir.File("out") + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << ReadFile(dir.File("out"));
  }

  ASSERT_TRUE(RemoveTimerUnits(folder, error)) << error;
  EXPECT_FALSE(std::filesystem::exists(folder + kServiceName));
  EXPECT_FALSE(std::filesystem::exists(folder + kTimerName));
}

}  // namespace
}  // namespace tolmen::test
