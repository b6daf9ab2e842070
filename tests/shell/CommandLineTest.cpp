// The command line as the start reads it, over the whole application life.
#include <gtest/gtest.h>

#include "ShellFixture.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "transfer/Max2Pastel.h"

namespace tolmen::testing {
namespace {

class CommandLineTest : public ShellFixture {
 protected:
  std::string CurrentTemplate() const { return Home() + "CURRENT.KTF"; }
  // An application on `commandLine` with the start's fakes, and CURRENT.KTF present when asked.
  void Launch(const std::string& commandLine, bool withCurrent = true,
              const std::vector<std::string>& script = {}) {
    if (withCurrent) WriteText(CurrentTemplate(), "TOLMEN TEMPLATE FILE\r\n");
    Start(script, commandLine);
    FakeStartStages();
  }
};

TEST_F(CommandLineTest, SilentQuitWithoutBlankRunsTheTemplateAndEndsAtOnce) {
  WriteText(Home() + "monthly.KTF", "TOLMEN TEMPLATE FILE\r\n");
  Launch("/SILENT/QUIT monthly.KTF");
  bool loopRan = false;
  app_->stages.TransferClients = [&] { loopRan = true; };
  EXPECT_EQ(RunApp(), kExitOk);
  EXPECT_TRUE(loopRan);
  EXPECT_FALSE(app_->run.ShowFinalMessage);
  EXPECT_FALSE(app_->run.CurrentClientOnly);
  EXPECT_EQ(app_->run.RunReason, "from Command Line: /SILENT/QUIT monthly.KTF");
  // Only the named template was read: the start template was never reached, nor the auto-run.
  EXPECT_EQ(opened_, std::vector<std::string>{Home() + "monthly.KTF"});
  EXPECT_FALSE(AutoRunLooked());
  // Nothing was done, so no dialog; the process ended without Form_Unload: no settings saved.
  EXPECT_EQ(Transcript(), "");
  EXPECT_TRUE(app_->screen.frmMain.IsLoaded());
  EXPECT_FALSE(fs::exists(SettingsPath()));
  EXPECT_TRUE(Contains(Log(),
                       "Tolmen 1.0.0 Run at 15 Jun 2024 12:00 from Command Line: "
                       "/SILENT/QUIT monthly.KTF\r\n"));
}

TEST_F(CommandLineTest, UnknownParameterIsRefusedAndTheStartGoesOnWithCurrentKtf) {
  Launch("/X /C");
  EXPECT_EQ(RunApp(), kExitOk);
  EXPECT_EQ(Transcript(),
            "== MsgBox | Tolmen Command Line Ignored | OK | Critical\n"
            "Command Line contains unknown Parameter(s).\n"
            "Command Line: /X\n"
            "You may use:  /SILENT /QUIT /NOAUTO /C\n"
            "-> OK\n");
  // The switch read before the refusal stays in force.
  EXPECT_TRUE(app_->run.CurrentClientOnly);
  EXPECT_EQ(opened_, std::vector<std::string>{CurrentTemplate()});
  EXPECT_TRUE(AutoRunLooked());
  EXPECT_TRUE(fs::exists(SettingsPath()));
}

TEST_F(CommandLineTest, MissingTemplateIsReportedAndCurrentKtfIsNotRead) {
  Launch("/q nothere.ktf");
  EXPECT_EQ(RunApp(), kExitRunNotStarted);
  EXPECT_EQ(Transcript(),
            "== MsgBox | Tolmen Start-Up Error | OK | Exclamation\n"
            "The Template " +
                Home() +
                "nothere.ktf specified in the Command Line does not exist!\n"
                "-> OK\n");
  EXPECT_TRUE(opened_.empty());
  EXPECT_FALSE(AutoRunLooked());
  // The form as it starts: the defaults were not loaded either.
  EXPECT_EQ(app_->screen.frmMain.Dir1.Text(), "");
  EXPECT_EQ(app_->screen.frmMain.optImport.Value(), 2);
  // "/q" asked to quit after a run, but there was none: the window closed normally.
  EXPECT_TRUE(fs::exists(SettingsPath()));
}

TEST_F(CommandLineTest, NoAutoLoadsCurrentKtfWithoutLookingAtTheAutoRunFile) {
  Launch("/N");
  EXPECT_EQ(RunApp(), kExitOk);
  EXPECT_EQ(opened_, std::vector<std::string>{CurrentTemplate()});
  EXPECT_FALSE(AutoRunLooked());
  EXPECT_EQ(Transcript(), "");

  // Without "/N" (and with nothing else) the auto-run file is looked at; without CURRENT.KTF
  // the factory options are loaded.
  fs::remove(CurrentTemplate());
  opened_.clear();
  Launch("", false);
  EXPECT_EQ(RunApp(), kExitOk);
  EXPECT_TRUE(AutoRunLooked());
  EXPECT_TRUE(opened_.empty());
  const MainForm& form = app_->screen.frmMain;
  EXPECT_EQ(form.Dir1.Text(), "/");
  EXPECT_EQ(form.optImport.Value(), 2);  // "Import Which Data" 3
  EXPECT_EQ(form.optCategory.Value(), 0);
  EXPECT_EQ(form.txtPrefix.Text(), "4");
  EXPECT_EQ(form.txtSuffix.Text(), "2");
}

TEST_F(CommandLineTest, SlashSInsideAPathIsTakenForTheSwitch) {
  // A path written with backslashes; the "/S" of "My/Stuff" is read as /SILENT and removed.
  const std::string root = Replace(dir_.Path().string(), "/", "\\");
  WriteText(dir_.File("Mytuff/year.ktf"), "TOLMEN TEMPLATE FILE\r\n");
  Launch(root + "\\My/Stuff\\year.ktf", false);
  EXPECT_EQ(RunApp(), kExitOk);
  EXPECT_FALSE(app_->run.ShowFinalMessage);
  ASSERT_FALSE(opened_.empty());
  EXPECT_EQ(opened_.front(), dir_.File("Mytuff/year.ktf"));
  // The run happened (no client loop wired: nothing done), then the start template was sought.
  EXPECT_TRUE(Contains(Log(), "from Command Line: " + root + "\\My/Stuff\\year.ktf"));
}

TEST_F(CommandLineTest, ExitStatusFollowsTheCommandLineRun) {
  struct Case {
    std::vector<std::string> script;  // the answer at the pause of client 1, if any
    bool logsAnError;
    int status;
  };
  for (const Case& c :
       {Case{{}, false, kExitOk}, Case{{}, true, kExitRunErrors},
        Case{{"Cancel"}, false, kExitRunCancelled}, Case{{"No"}, true, kExitRunErrors}}) {
    WriteText(Home() + "monthly.KTF", "TOLMEN TEMPLATE FILE\r\n");
    Launch("/Q monthly.KTF", false, c.script);
    FakeClientLoop(2, false);
    auto loop = app_->stages.TransferClients;
    app_->stages.TransferClients = [&] {
      if (!c.script.empty()) cmdAbort_Click(*app_);
      if (c.logsAnError) LogError(*app_, "a client went wrong");
      loop();
    };
    EXPECT_EQ(RunApp(), c.status) << c.script.size() << " " << c.logsAnError;
  }
}

}  // namespace
}  // namespace tolmen::testing
