// AUTORUN.KSF read from tables of lines and written back, and the schedule's decisions.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include "background/AutoRunFile.h"
#include "background/Schedule.h"
#include "common/TempDir.h"
#include "common/TestText.h"
#include "runtime/DateTime.h"
#include "runtime/RuntimeError.h"

namespace tolmen {
namespace {

// The state a read leaves, in one line: on/off, templates, method, interval, run time, notify.
std::string Outcome(const BackgroundState& state, bool notify) {
  std::string text = state.BackgroundOn ? "on" : "off";
  for (const std::string& path : state.TemplateList) text += " " + path;
  return text + " | " + state.UpdateMethod + " " + std::to_string(state.IntervalMinutes) + " " +
         state.RunTime + " | " + (notify ? "notify" : "quiet");
}

TEST(AutoRunFileTest, ReadsEveryLineAsTheTableSays) {
  struct Case {
    std::vector<std::string> lines;
    std::string outcome;  // ShowFinalMessage is true before the read
  };
  const Case cases[] = {
      {{"Tolmen AUTORUN FILE", "TRUE", "2", "/t/a.ktf", "/t/b.ktf", "INTERVAL", "3", "False"},
       "on /t/a.ktf /t/b.ktf | INTERVAL 3  | quiet"},
      // The old header, in any case.
      {{"Vellumator for Maximizer AUTORUN file", "true", "1", "/t/a.ktf", "time", "14:00", "True"},
       "on /t/a.ktf | TIME 0 14:00 | notify"},
      {{"Tolmen AUTORUN FILE", "TRUE", "0", "INTERVAL", "15", "#FALSE#"},
       "on | INTERVAL 15  | quiet"},
      // An empty method reads its value as the time.
      {{"Tolmen AUTORUN FILE", "FALSE", "1", "/t/a.ktf", "", "09:30", "0"},
       "off /t/a.ktf |  0 09:30 | quiet"},
      // An unknown method; truth as a number.
      {{"Tolmen AUTORUN FILE", "yes", "1", "/t/a.ktf", "HOURLY", "2", "-1"},
       "off /t/a.ktf |  0 2 | notify"},
      // Truth text not readable keeps the flag; a cut file reads empty.
      {{"Tolmen AUTORUN FILE", "TRUE", "1", "/t/a.ktf", "INTERVAL"},
       "on /t/a.ktf | INTERVAL 0  | notify"},
  };
  for (const Case& c : cases) {
    BackgroundState state;
    bool notify = true;
    EXPECT_EQ(ReadAutoRunLines(c.lines, state, notify), AutoRunRead::kRead) << c.outcome;
    EXPECT_EQ(Outcome(state, notify), c.outcome);
  }
  BackgroundState state;
  bool notify = true;
  EXPECT_EQ(ReadAutoRunLines({"TOLMEN TEMPLATE FILE", "TRUE"}, state, notify),
            AutoRunRead::kForeign);
  EXPECT_EQ(Outcome(state, notify), "off |  0  | notify");
}

TEST(AutoRunFileTest, AFileWithTheOldHeaderIsWrittenBackWithTheNewOne) {
  test::TempDir dir("tolmen-autorun-");
  const std::string path = dir.File("AUTORUN.KSF");
  BackgroundState state;
  bool notify = true;
  EXPECT_EQ(ReadAutoRunFile(path, state, notify), AutoRunRead::kMissing);

  std::ofstream(path, std::ios::binary)
      << "VELLUMATOR FOR MAXIMIZER AUTORUN FILE\nTRUE\n1\n  /t/a.ktf  \nTIME\n06:15\nFalse\n";
  ASSERT_EQ(ReadAutoRunFile(path, state, notify), AutoRunRead::kRead);
  WriteAutoRunFile(path, state, state.BackgroundOn, notify);
  EXPECT_EQ(test::ReadFile(path),
            "Tolmen AUTORUN FILE\r\nTRUE\r\n1\r\n/t/a.ktf\r\nTIME\r\n06:15\r\nFalse\r\n");

  // Off, no method: two empty lines stand for the method and its value.
  state.UpdateMethod.clear();
  state.TemplateList.clear();
  EXPECT_EQ(AutoRunFileText(state, false, true),
            "Tolmen AUTORUN FILE\r\nFALSE\r\n0\r\n\r\n\r\nTrue\r\n");
  state.UpdateMethod = kMethodInterval;
  state.IntervalMinutes = 150;
  EXPECT_EQ(AutoRunFileText(state, true, true),
            "Tolmen AUTORUN FILE\r\nTRUE\r\n0\r\nINTERVAL\r\n150\r\nTrue\r\n");

  EXPECT_THROW(WriteAutoRunFile(dir.File("no/such/AUTORUN.KSF"), state, true, true), RuntimeError);
}

TEST(ScheduleTest, TicksTheBoxesAndTheTrayTip) {
  // A run is due on equality only: an interval of 0 never comes, the count starts at 1.
  EXPECT_FALSE(ScheduledRunDue("INTERVAL", 2, 3, "09:02", "09:02"));
  EXPECT_TRUE(ScheduledRunDue("INTERVAL", 3, 3, "09:03", ""));
  EXPECT_FALSE(ScheduledRunDue("INTERVAL", 1, 0, "09:01", ""));
  EXPECT_TRUE(ScheduledRunDue("TIME", 6, 0, "14:00", "14:00"));
  EXPECT_FALSE(ScheduledRunDue("", 3, 3, "14:00", "14:00"));

  // Typed text of two characters is completed, as literally as the rule says ("09" too).
  for (const auto& [typed, shown, caret] :
       {std::tuple{"14", "14:00", 2}, std::tuple{"9:", "09:", -1}, std::tuple{"09", "009:00", 2}}) {
    int at = -1;
    EXPECT_EQ(CompleteTimeTyping(typed, at), shown);
    EXPECT_EQ(at, caret) << typed;
  }
  // Minutes above 59 lose 60 once, into the hours.
  for (const auto& [hours, minutes, shown] :
       {std::tuple{"1", "90", "02:30"}, std::tuple{"3", "150", "04:90"}}) {
    std::string h = hours, m = minutes;
    CarryMinutes(h, m);
    EXPECT_EQ(h + ":" + m, shown);
  }

  EXPECT_EQ(TimeAfter(DateFromParts(2026, 11, 23, 23, 50, 0), 15), "00:05");
  const std::string busy = TrayTip("Tolmen", "Active", "14:00");
  EXPECT_EQ(busy.size(), kTrayTipSize);
  EXPECT_EQ(busy.substr(0, 15), std::string("Tolmen - Busy\0 ", 15));
  EXPECT_EQ(TrayTip("Tolmen", "Idle", "14:00").substr(0, 15), std::string("Tolmen - 14:00\0", 15));
  EXPECT_EQ(TrayTip(std::string(70, 'x'), "Idle", ""), std::string(64, 'x'));
}

}  // namespace
}  // namespace tolmen
