// frmOptions played by the script front-end through the whole application, the file read at
// start-up, and the start-up entry made and removed from the File menu.
#include <gtest/gtest.h>

#include "common/TestText.h"
#include "shell/ShellFixture.h"

namespace tolmen::testing {
namespace {

class OptionsDialogTest : public ShellFixture {
 protected:
  std::string AutoRun() const { return Home() + "AUTORUN.KSF"; }
  std::string Template() const { return Home() + "a.KTF"; }
  void Play(const std::vector<std::string>& script) {
    Start(script);
    FakeStartStages();
    RunApp();
  }
  // The transcript without the script's echo of its own steps.
  std::string Dialogs() const {
    std::string text;
    for (const std::string& line : test::TextLines(Transcript()))
      if (line.rfind("@ ", 0) != 0) text += line + "\n";
    return text;
  }
};

TEST_F(OptionsDialogTest, OkRefusesWhatCannotRunAndArmsAValidSchedule) {
  WriteText(Template(), "TOLMEN TEMPLATE FILE\r\n");
  Play({"@click mnuFile 40", "@click cmdOK",  // unchanged and off
        "@click mnuFile 40", "@click Check1", "@click cmdOK", "@click cmdRemove",
        "@click cmdBrowse", "= " + Template(), "@click cmdOK",  // no time and no interval
        "@click optMethod 1", "@set txtHours 1", "@set txtMins 90", "@click cmdOK"});
  EXPECT_EQ(Dialogs(),
            "== Tray remove\n"
            "== MsgBox | Not running in Background. | OK | Information\n"
            "Background mode is off.\n"
            "-> OK\n"
            "== MsgBox | No Templates Selected | OK | Exclamation\n"
            "Tolmen cannot run in Background mode unless at least one Template file is "
            "selected.\n"
            "-> OK\n"
            "== MsgBox | Nothing to Remove | OK | Exclamation\n"
            "Please select the item(s) to remove!\n"
            "-> OK\n"
            "== FileDialog | Add Template | Open\n"
            "-> " +
                Template() +
                "\n"
                "== MsgBox | No Update Method Entered | OK | Exclamation\n"
                "A 'Run Time' or 'Interval' must be entered before Tolmen can Run in Background "
                "mode.\n"
                "-> OK\n"
                "== Tray add Tolmen - 14:30\n"
                "== Tray remove\n");  // the window closes at the script's end
  const OptionsForm& form = app_->screen.frmOptions;
  EXPECT_EQ(form.txtHours.Text() + " " + form.txtMins.Text(), "02 30");
  EXPECT_FALSE(form.IsLoaded());
  const BackgroundState& state = app_->background;
  EXPECT_EQ(state.IntervalMinutes, 150);
  EXPECT_EQ(state.RunTime, "14:30");  // noon and the interval
  EXPECT_EQ(ReadFile(AutoRun()), "Tolmen AUTORUN FILE\r\nTRUE\r\n1\r\n" + Template() +
                                     "\r\nINTERVAL\r\n150\r\nTrue\r\n");
  const MainForm& main = app_->screen.frmMain;
  EXPECT_TRUE(app_->shell.AutoRunAllowed);
  EXPECT_TRUE(main.mnuFile(40).Checked());
  EXPECT_EQ(main.Timer1.Interval(), 60000);
  EXPECT_TRUE(main.Image1.Visible());
  EXPECT_EQ(opened_.back(), Template());
}

TEST_F(OptionsDialogTest, TheTrayOpensTheDialogOrTheWindowAndImage1HidesItAgain) {
  WriteText(Template(), "TOLMEN TEMPLATE FILE\r\n");
  WriteText(AutoRun(),
            "Tolmen AUTORUN FILE\r\nTRUE\r\n1\r\n" + Template() + "\r\nTIME\r\n14:00\r\nFalse\r\n");
  Play({"@tray rdblclick", "@tray dblclick",  // the dialog is open: the tray does nothing
        "@set txtTime 7:30", "@select lstTemplates #0", "@click cmdRemove", "@click cmdOK",
        "@click cmdCancel", "@tray dblclick", "@dblclick Image1"});
  const std::string transcript = Transcript();
  EXPECT_EQ(transcript.substr(0, transcript.find("@ tray rdblclick")),
            "== Tray add Tolmen - 14:00\n");
  EXPECT_TRUE(Contains(transcript,
                       "@ click cmdOK\n"
                       "== MsgBox | No Templates Selected | OK | Exclamation\n"));
  EXPECT_EQ(app_->screen.frmOptions.txtTime.Text(), "07:30");  // formatted on leaving
  // Cancel kept the schedule and the file as they were.
  EXPECT_EQ(app_->background.TemplateList, std::vector<std::string>{Template()});
  EXPECT_TRUE(Contains(ReadFile(AutoRun()), "TIME\r\n14:00\r\n"));
  const MainForm& main = app_->screen.frmMain;
  EXPECT_EQ(main.Timer1.Interval(), 60000);
  EXPECT_FALSE(main.IsShown());
}

TEST_F(OptionsDialogTest, NoTemplatesWithTrueLeavesBackgroundModeOffAndOkSaysSo) {
  WriteText(AutoRun(), "Tolmen AUTORUN FILE\r\nTRUE\r\n0\r\nINTERVAL\r\n5\r\nTrue\r\n");
  Play({"@click mnuFile 40", "@click cmdOK", "@click cmdCancel"});
  EXPECT_EQ(Dialogs(),
            "== MsgBox | No Templates Chosen! | OK | Exclamation\n"
            "Tolmen cannot run in Background mode unless at least one Template file is listed.\n"
            "Use the [...] button to add templates to the list.\n"
            "-> OK\n");
  EXPECT_FALSE(app_->shell.AutoRunAllowed);
  EXPECT_EQ(app_->screen.frmMain.Timer1.Interval(), 0);
  EXPECT_TRUE(app_->screen.frmMain.mnuFile(40).Checked());
}

TEST_F(OptionsDialogTest, TheFileMenuMakesAndRemovesTheStartupEntry) {
  test::ScopedEnv config("XDG_CONFIG_HOME", dir_.File("config"));
  const std::string entry = dir_.File("config/autostart/Tolmen.desktop");
  Play({"@click mnuFile 50"});
  EXPECT_TRUE(app_->screen.frmMain.mnuFile(50).Checked());
  const std::string text = ReadFile(entry);
  EXPECT_TRUE(text.rfind("[Desktop Entry]\nType=Application\nName=Tolmen\nExec=\"/", 0) == 0)
      << text;
  EXPECT_TRUE(Contains(text, "test_background\"\n")) << text;

  // The next start finds it ticked; the item removes it.
  Play({"@click mnuFile 50"});
  EXPECT_FALSE(fs::exists(entry));
  EXPECT_FALSE(app_->screen.frmMain.mnuFile(50).Checked());
}

}  // namespace
}  // namespace tolmen::testing
