// The console front-end over string streams: questions, progress and the main loop.
#include <gtest/gtest.h>
#include <signal.h>

#include <sstream>

#include "FakeWindow.h"
#include "common/TestText.h"
#include "platform/ui/ConsoleUi.h"
#include "platform/ui/Timer.h"

namespace tolmen {
namespace {

using testing::FakeWindow;

constexpr double kStart = 45366.5;
constexpr double kSecond = 1.0 / 86400.0;

// A console front-end on a virtual clock, reading `in` and writing `out`.
class ConsoleUiTest : public ::testing::Test {
 protected:
  VirtualClock clock{kStart};
  std::istringstream in;
  std::ostringstream out;
  ConsoleUi ui{in, out, clock, "Tolmen", {}};
};

TEST_F(ConsoleUiTest, AnswersByLetterOrNameWithDefaultsForEmptyLinesAndEndOfInput) {
  in.str("n\n\nmaybe\nRETRY\n\n/abs/x.ktf\nTemplates/run\n");
  EXPECT_EQ(ui.MsgBox("Save the\r\nchanges?", vbYesNo + vbQuestion), vbNo);
  EXPECT_EQ(out.str(), "Tolmen\nSave the\nchanges?\n[Y]es [N]o (default Yes): No\n");
  EXPECT_EQ(ui.MsgBox("x", vbYesNoCancel + vbDefaultButton2, "T"), vbNo);  // empty line
  EXPECT_EQ(ui.MsgBox("x", vbAbortRetryIgnore), vbRetry);  // asked again after "maybe"
  EXPECT_NE(out.str().find("(default Abort): maybe\n[A]bort [R]etry [I]gnore (default Abort): "
                           "Retry\n"),
            std::string::npos);
  EXPECT_EQ(ui.InputBox("Prefix:", "", "CL"), "CL");

  FileDialogRequest open;
  open.initialFolder = "/home/u/";
  open.defaultExtension = "ktf";
  std::string path;
  ASSERT_TRUE(ui.FileDialog(open, path));
  EXPECT_EQ(path, "/abs/x.ktf");
  ASSERT_TRUE(ui.FileDialog(open, path));
  EXPECT_EQ(path, "/home/u/Templates/run.ktf");

  // End of input: defaults for message boxes, Cancel for the rest, without reading again.
  EXPECT_EQ(ui.MsgBox("x", vbOKCancel + vbDefaultButton2), vbCancel);
  EXPECT_TRUE(ui.InputEnded());
  EXPECT_EQ(ui.MsgBox("x", vbYesNo), vbYes);
  EXPECT_EQ(ui.InputBox("Code:", "", "ABC"), "");
  EXPECT_FALSE(ui.FileDialog(open, path));
}

TEST(ConsoleUi, ProgressIsWrittenWhenTheStatusChanges) {
  VirtualClock clock(kStart);
  std::istringstream in;
  std::ostringstream plain, term;
  ConsoleUi plainUi(in, plain, clock, "Tolmen", {false, false});
  ConsoleUi termUi(in, term, clock, "Tolmen", {false, true});
  FakeWindow window;
  plainUi.SetMainWindow(&window);
  termUi.SetMainWindow(&window);
  for (const char* status : {"Client 1 of 2", "Client 1 of 2", "Client 2 of 2"}) {
    window.status = status;
    plainUi.Yield(1);
    termUi.Yield(1);
  }
  termUi.MsgBox("Done.");
  EXPECT_EQ(plain.str(), "Client 1 of 2\nClient 2 of 2\n");
  EXPECT_EQ(term.str(),
            "\rClient 1 of 2\x1b[K\rClient 2 of 2\x1b[K\nTolmen\nDone.\n[O]K (default OK): OK\n");
}

TEST_F(ConsoleUiTest, RunClosesAWindowNobodyWaitsFor) {
  Timer minute("Timer1");
  minute.SetInterval(60000);
  ui.RegisterTimer(minute);
  FakeWindow shown;  // visible: no background mode, timer or not
  ui.Run(shown);
  EXPECT_FALSE(shown.open);
  EXPECT_EQ(clock.Now(), kStart);

  FakeWindow stubborn;
  stubborn.refuseClose = true;
  ui.Run(stubborn);
  EXPECT_EQ(stubborn.closeRequests, 1);
  EXPECT_NE(out.str().find("The window did not close.\n"), std::string::npos);
}

TEST_F(ConsoleUiTest, BackgroundModeTicksUntilTheWindowUnloads) {
  FakeWindow window;
  window.visible = false;
  Timer minute("Timer1"), off("Off");
  minute.SetInterval(60000);
  off.SetInterval(30000);
  off.SetEnabled(false);
  std::vector<double> ticks;
  minute.SetHandler([&] {
    ticks.push_back(clock.Now());
    ui.TrayModify(ticks.size() < 2 ? "Tolmen - Idle" : "Tolmen - Busy");
    if (ticks.size() == 3) window.open = false;
  });
  int offTicks = 0;
  off.SetHandler([&] { ++offTicks; });
  ui.RegisterTimer(minute);
  ui.RegisterTimer(off);
  ui.Run(window);
  ASSERT_EQ(ticks.size(), 3u);
  EXPECT_NEAR(ticks[2], kStart + 180 * kSecond, 1e-9);
  EXPECT_EQ(offTicks, 0);
  EXPECT_EQ(window.closeRequests, 0);
  EXPECT_EQ(out.str(),
            "Running in the background; Ctrl+C ends.\nTray: Tolmen - Idle\nTray: Tolmen - Busy\n");
}

TEST(ConsoleUi, BackgroundModeEndsOnSigterm) {
  RealClock clock;
  std::istringstream in;
  std::ostringstream out;
  ConsoleUi ui(in, out, clock, "Tolmen", {});
  FakeWindow window;
  window.visible = false;
  Timer fast("Fast");
  fast.SetInterval(20);
  int ticks = 0;
  fast.SetHandler([&] {
    if (++ticks == 2) raise(SIGTERM);  // blocked while the loop runs: it ends the loop instead
  });
  ui.RegisterTimer(fast);
  ui.Run(window);
  EXPECT_EQ(ticks, 2);
  EXPECT_FALSE(window.open);
  EXPECT_NE(out.str().find("Signal received; closing.\n"), std::string::npos);
  sigset_t blocked, pending;
  pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
  sigpending(&pending);
  EXPECT_FALSE(sigismember(&blocked, SIGTERM));
  EXPECT_FALSE(sigismember(&pending, SIGTERM));
}

TEST_F(ConsoleUiTest, EditorStartsFromAnArgumentVector) {
  test::ScopedEnv visual("VISUAL", "true --ignored");
  EXPECT_TRUE(ui.OpenInEditor("/tmp/a; rm -rf x"));  // one argument, never a shell
  setenv("VISUAL", "/nonexistent/editor", 1);
  EXPECT_FALSE(ui.OpenInEditor("/tmp/log"));
  EXPECT_NE(out.str().find("Cannot open /tmp/log in an editor: /nonexistent/editor: "),
            std::string::npos);
}

}  // namespace
}  // namespace tolmen
