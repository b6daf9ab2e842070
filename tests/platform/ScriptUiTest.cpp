// The script front-end: answers, actions, timers and the transcript's exact form.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "FakeWindow.h"
#include "common/TempDir.h"
#include "common/TestText.h"
#include "platform/ui/HeadlessUiFactory.h"
#include "platform/ui/ScriptReader.h"
#include "platform/ui/ScriptUi.h"
#include "platform/ui/Timer.h"

namespace tolmen {
namespace {

using testing::FakeWindow;

constexpr double kStart = 45366.5;  // 15 March 2024 12:00
constexpr double kSecond = 1.0 / 86400.0;

class ScriptUiTest : public ::testing::Test {
 protected:
  VirtualClock clock{kStart};
  std::ostringstream out;
};

TEST_F(ScriptUiTest, TranscriptShowsEachDialogByteForByte) {
  ScriptUi ui({"no", "= Dupont & Fils", "= /data/pastel/Kelbor.KTF"}, &out, clock, "Tolmen");

  EXPECT_EQ(ui.MsgBox("Caf\xE9 closed.\r\nSave changes?\rSure?\n",
                      vbYesNoCancel + vbQuestion + vbDefaultButton3),
            vbNo);
  EXPECT_EQ(ui.InputBox("Company name:", "New Debtor", "ACME"), "Dupont & Fils");
  FileDialogRequest save;
  save.save = true;
  save.title = "Save Template";
  std::string path;
  EXPECT_TRUE(ui.FileDialog(save, path));
  EXPECT_EQ(path, "/data/pastel/Kelbor.KTF");
  // The script has ended: defaults from here on.
  EXPECT_EQ(ui.MsgBox("Done", vbOKOnly + vbInformation, "Finished"), vbOK);
  EXPECT_EQ(ui.InputBox("Code:", "", "CASH01"), "CASH01");
  path = "unchanged";
  EXPECT_FALSE(ui.FileDialog(FileDialogRequest{}, path));
  EXPECT_EQ(path, "unchanged");

  EXPECT_EQ(out.str(),
            "== MsgBox | Tolmen | Yes/No/Cancel | Question\n"
            "Caf\xC3\xA9 closed.\nSave changes?\nSure?\n\n"
            "-> No\n"
            "== InputBox | New Debtor | ACME\nCompany name:\n-> = Dupont & Fils\n"
            "== FileDialog | Save Template | Save\n-> /data/pastel/Kelbor.KTF\n"
            "== MsgBox | Finished | OK | Information\nDone\n-> OK\n"
            "== InputBox | Tolmen | CASH01\nCode:\n-> = CASH01\n"
            "== FileDialog | Open | Open\n-> Cancel\n");
}

TEST_F(ScriptUiTest, EachDialogTakesTheAnswersItCanAndDefaultsOtherwise) {
  ScriptUi ui({"  YES ", "Retry", "= text", "cancel", "OK", "Cancel", "ok", "Maybe"}, &out, clock,
              "Tolmen");
  EXPECT_EQ(ui.MsgBox("a", vbYesNo), vbYes);
  EXPECT_EQ(ui.MsgBox("b", vbOKCancel + vbDefaultButton2), vbCancel);  // Retry is not shown
  EXPECT_EQ(ui.MsgBox("c", vbYesNo), vbYes);                           // text is no button
  EXPECT_EQ(ui.InputBox("d", "", "def"), "");
  EXPECT_EQ(ui.InputBox("e", "", "def"), "def");
  std::string path;
  EXPECT_FALSE(ui.FileDialog(FileDialogRequest{}, path));
  FileDialogRequest proposed;
  proposed.initialFolder = "/home/u/";
  proposed.fileName = "CURRENT.KTF";
  EXPECT_TRUE(ui.FileDialog(proposed, path));
  EXPECT_EQ(path, "/home/u/CURRENT.KTF");
  EXPECT_EQ(ui.InputBox("f", "", "def"), "def");  // Maybe: noted, default text
  EXPECT_TRUE(ui.Finished());
  EXPECT_EQ(ui.MsgBox("g", vbAbortRetryIgnore + vbDefaultButton2), vbRetry);

  std::string t = out.str();
  EXPECT_NE(t.find("== MsgBox | Tolmen | OK/Cancel | None\nb\n!! not a button here: Retry\n"
                   "-> Cancel\n"),
            std::string::npos);
  EXPECT_NE(t.find("c\n!! not a button here: = text\n-> Yes\n"), std::string::npos);
  EXPECT_NE(t.find("d\n-> Cancel\n"), std::string::npos);
  EXPECT_NE(t.find("f\n!! not a button here: Maybe\n-> = def\n"), std::string::npos);
}

// cmdAsk's box meets an action and takes its default; the "No" after cmdGhost meets no dialog.
TEST_F(ScriptUiTest, SessionOfActionsAndDialogs) {
  ScriptUi ui(
      {"# open a template, import, then look around", "@click mnuFile \"&Open Template...\"",
       "= /tmp/a b.ktf", "", "@click cmdAsk", "@click cmdImport", "Yes", "OK",
       "@set txtName  Jean Dupont ", "@click cmdGhost", "No", "@select cboCategories #3"},
      &out, clock, "Tolmen");
  FakeWindow window;
  std::vector<int> answers;
  std::string opened;
  window.onPerform = [&](const UiAction& a) -> std::string {
    if (a.verb == "click" && a.args[0] == "mnuFile") ui.FileDialog(FileDialogRequest{}, opened);
    if (a.verb == "click" && a.args[0] == "cmdAsk")
      answers.push_back(ui.MsgBox("Sure?", vbYesNo + vbDefaultButton2));
    if (a.verb == "click" && a.args[0] == "cmdImport") {
      answers.push_back(ui.MsgBox("Start?", vbYesNo + vbQuestion));
      answers.push_back(ui.MsgBox("Done.", vbInformation, "Import"));
    }
    if (a.args[0] == "cmdGhost") return "unknown control cmdGhost";
    return "";
  };
  ui.Run(window);

  EXPECT_EQ(opened, "/tmp/a b.ktf");
  EXPECT_EQ(answers, (std::vector<int>{vbNo, vbYes, vbOK}));
  ASSERT_EQ(window.performed.size(), 6u);
  EXPECT_EQ(window.performed[3].verb, "set");
  EXPECT_EQ(window.performed[3].args, (std::vector<std::string>{"txtName", "Jean Dupont"}));
  EXPECT_FALSE(window.open);
  EXPECT_EQ(window.closeRequests, 1);

  EXPECT_EQ(out.str(),
            "@ click mnuFile \"&Open Template...\"\n"
            "== FileDialog | Open | Open\n-> /tmp/a b.ktf\n"
            "@ click cmdAsk\n"
            "== MsgBox | Tolmen | Yes/No | None\nSure?\n-> No\n"
            "@ click cmdImport\n"
            "== MsgBox | Tolmen | Yes/No | Question\nStart?\n-> Yes\n"
            "== MsgBox | Import | OK | Information\nDone.\n-> OK\n"
            "@ set txtName  Jean Dupont\n"
            "@ click cmdGhost\n"
            "!! not done: unknown control cmdGhost\n"
            "!! no dialog for: No\n"
            "@ select cboCategories #3\n");
}

struct ActionCase {
  const char* line;
  const char* verb;
  std::vector<std::string> args;
};

TEST(ScriptReader, ActionsSplitIntoVerbAndArguments) {
  const ActionCase cases[] = {
      {"@click cmdImport", "click", {"cmdImport"}},
      {"@Click  mnuFile   40 ", "click", {"mnuFile", "40"}},
      {"@click mnuFile \"&Save Template...\"", "click", {"mnuFile", "&Save Template..."}},
      {"@click lst \"a  b\" 2", "click", {"lst", "a  b", "2"}},
      {"@click lst \"open end", "click", {"lst", "open end"}},
      {"@dblclick Image1", "dblclick", {"Image1"}},
      {"@set txtPrefix 4", "set", {"txtPrefix", "4"}},
      {"@set txtPath \" /a b/ \"", "set", {"txtPath", " /a b/ "}},
      {"@set txtPath", "set", {"txtPath", ""}},
      {"@select \"cbo X\" Sales and \"Marketing\"", "select", {"cbo X", "Sales and \"Marketing\""}},
      {"@tab 5", "tab", {"5"}},
      {"@close", "close", {}},
      {"@", "", {}}};
  for (const ActionCase& c : cases) {
    UiAction action = ParseAction(c.line);
    EXPECT_EQ(action.verb, c.verb) << c.line;
    EXPECT_EQ(action.args, c.args) << c.line;
  }
  // Script lines arrive as UTF-8 and are held as Windows-1252.
  std::vector<ScriptLine> lines =
      ParseScript({"= Caf\xC3\xA9", "  # note", "\t", "@set t \xC3\xA9"});
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].text, "Caf\xE9");
  EXPECT_EQ(lines[1].action.args[1], "\xE9");
}

TEST_F(ScriptUiTest, PauseClicksAbortAtItsClientOnly) {
  ScriptUi ui({"@pause 3", "@click cmdImport", "Yes"}, &out, clock, "Tolmen");
  FakeWindow window;
  std::vector<long> pausedAt;
  int pauseAnswer = 0;
  long client = 0;
  window.onPerform = [&](const UiAction& a) -> std::string {
    if (a.args[0] == "cmdImport") {
      for (client = 1; client <= 5; ++client) ui.Yield(client);
      ui.Yield(0);
      ui.Yield(3);  // a later yield of the same ordinal: already done
    }
    if (a.args[0] == "cmdAbort") {
      pausedAt.push_back(client);
      pauseAnswer = ui.MsgBox("Stop the transfer?", vbYesNo);
    }
    return "";
  };
  ui.Yield(3);  // before the script has said anything
  ui.Run(window);
  EXPECT_EQ(pausedAt, std::vector<long>{3});
  EXPECT_EQ(pauseAnswer, vbYes);
  EXPECT_FALSE(ui.PendingPause());
  EXPECT_NE(out.str().find("@ pause 3\n@ click cmdImport\n@ click cmdAbort\n== MsgBox"),
            std::string::npos);

  std::ostringstream badOut;
  ScriptUi bad({"@pause x", "@minutes -1", "@close now"}, &badOut, clock, "Tolmen");
  FakeWindow other;
  bad.Run(other);
  EXPECT_EQ(badOut.str(),
            "@ pause x\n!! bad action: @pause x\n@ minutes -1\n!! bad action: @minutes -1\n"
            "@ close now\n!! bad action: @close now\n");
  EXPECT_TRUE(other.performed.empty());
}

TEST_F(ScriptUiTest, MinutesTickActiveMinuteTimersSixtySecondsApart) {
  ScriptUi ui({"@minutes 3", "@minutes 5"}, &out, clock, "Tolmen");
  FakeWindow window;
  Timer minute("Timer1"), off("Off"), second("Timer2"), idle("Idle");
  minute.SetInterval(60000);
  off.SetInterval(60000);
  off.SetEnabled(false);
  second.SetInterval(1000);
  idle.SetInterval(0);
  std::vector<double> ticks;
  int others = 0;
  minute.SetHandler([&] {
    ticks.push_back(clock.Now());
    if (ticks.size() == 5) window.open = false;  // the form unloads in its fifth minute
  });
  for (Timer* t : {&off, &second, &idle}) t->SetHandler([&] { ++others; });
  for (Timer* t : {&minute, &off, &second, &idle}) ui.RegisterTimer(*t);

  ui.Run(window);
  ASSERT_EQ(ticks.size(), 5u);
  EXPECT_EQ(others, 0);
  EXPECT_NEAR(ticks[0], kStart + 60 * kSecond, 1e-9);
  for (size_t i = 1; i < ticks.size(); ++i)
    EXPECT_NEAR(ticks[i] - ticks[i - 1], 60 * kSecond, 1e-9);
  EXPECT_NEAR(clock.Now(), kStart + 300 * kSecond, 1e-9);  // no ticks after the window closed
  EXPECT_EQ(window.closeRequests, 0);
  EXPECT_TRUE(ui.Finished());
}

TEST_F(ScriptUiTest, RunEndsWithTheWindowOrTheScript) {
  ScriptUi ui({"@close", "@click cmdNext"}, &out, clock, "Tolmen");
  FakeWindow window;
  ui.Run(window);  // the window unloads at @close: the rest stays unread
  EXPECT_TRUE(window.performed.empty());
  EXPECT_FALSE(ui.Finished());

  std::ostringstream stubbornOut;
  ScriptUi stubbornUi({"@click cmdNext"}, &stubbornOut, clock, "Tolmen");
  FakeWindow stubborn;
  stubborn.refuseClose = true;
  stubbornUi.Run(stubborn);
  EXPECT_EQ(stubborn.closeRequests, 1);
  EXPECT_EQ(stubbornOut.str(), "@ click cmdNext\n!! window still open at end of script\n");
}

TEST_F(ScriptUiTest, ShortTimerTicksWhenYieldedForOnAVirtualClock) {
  ScriptUi ui({}, nullptr, clock, "Tolmen");
  Timer wait("Timer2"), minute("Timer1");
  wait.SetInterval(1000);
  wait.SetHandler([&] { wait.SetEnabled(false); });
  minute.SetInterval(60000);
  int minuteTicks = 0;
  minute.SetHandler([&] { ++minuteTicks; });
  ui.RegisterTimer(wait);
  ui.RegisterTimer(minute);
  ui.Yield();
  EXPECT_FALSE(wait.Enabled());
  EXPECT_NEAR(clock.Now(), kStart + kSecond, 1e-9);
  ui.Yield();  // nothing short is waiting: time stands
  EXPECT_NEAR(clock.Now(), kStart + kSecond, 1e-9);
  wait.SetEnabled(true);  // the next one-second wait counts from now
  ui.Wait(0.25);
  EXPECT_FALSE(wait.Enabled());
  EXPECT_NEAR(clock.Now(), kStart + 2 * kSecond, 1e-9);
  EXPECT_EQ(minuteTicks, 0);
}

TEST_F(ScriptUiTest, FactoryReadsScriptAndWritesTranscriptFiles) {
  test::TempDir dir("tolmen-ui-");
  std::ofstream(dir.File("play.txt"), std::ios::binary) << "\xEF\xBB\xBFretry\r\n@close\r\n";
  test::ScopedEnv script("TOLMEN_SCRIPT", dir.File("play.txt"));
  test::ScopedEnv transcript("TOLMEN_TRANSCRIPT", dir.File("out.txt"));

  std::string error;
  std::unique_ptr<Ui> ui = MakeHeadlessUi("Script", clock, "Tolmen", error);
  ASSERT_NE(ui, nullptr) << error;
  EXPECT_EQ(ui->MsgBox("Locked", vbRetryCancel + vbExclamation), vbRetry);
  FakeWindow window;
  ui->Run(window);
  ui->TrayAdd("Tolmen - Idle" + std::string(8, '\0'));
  ui->PrintText("Line 1\r\nLine 2");
  EXPECT_EQ(ui->PrinterName(), "Transcript");
  EXPECT_EQ(test::ReadFile(dir.File("out.txt")),
            "== MsgBox | Tolmen | Retry/Cancel | Exclamation\nLocked\n-> Retry\n@ close\n"
            "== Tray add Tolmen - Idle\n== Print\nLine 1\nLine 2\n");

  setenv("TOLMEN_SCRIPT", dir.File("missing.txt").c_str(), 1);
  EXPECT_EQ(MakeHeadlessUi("script", clock, "Tolmen", error), nullptr);
  EXPECT_NE(error.find("missing.txt"), std::string::npos);
  unsetenv("TOLMEN_SCRIPT");
  EXPECT_EQ(MakeHeadlessUi("script", clock, "Tolmen", error), nullptr);
  EXPECT_EQ(MakeHeadlessUi("telepathy", clock, "Tolmen", error), nullptr);
}

}  // namespace
}  // namespace tolmen
