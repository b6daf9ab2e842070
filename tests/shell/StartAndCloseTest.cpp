// Start and close: settings, the debugging level, the start-up entry, close during a run.
#include <gtest/gtest.h>

#include "ShellFixture.h"
#include "shell/ConfigFolder.h"
#include "shell/DebugLevel.h"
#include "shell/Registry.h"
#include "shell/Settings.h"
#include "shell/Startup.h"
#include "transfer/Max2Pastel.h"

namespace tolmen::testing {
namespace {

using StartAndCloseTest = ShellFixture;

TEST_F(StartAndCloseTest, SettingsAreReadAtLoadAndSavedAtClose) {
  WriteText(SettingsPath(), "[Settings]\nBilling=False\nMultiYear=2\n");
  Start({});
  EXPECT_EQ(RunApp(), kExitOk);
  const MainForm& form = app_->screen.frmMain;
  // "Billing" off hides the Recurring Billing page and chooses No Billing.
  EXPECT_FALSE(form.tabDlg.TabVisible(MainForm::kTabRecurringBilling));
  EXPECT_FALSE(form.mnuViewBillR.Checked());
  EXPECT_EQ(form.optBillPeriod.Value(), 0);
  EXPECT_TRUE(form.tabDlg.TabVisible(MainForm::kTabCasualBilling));
  EXPECT_TRUE(form.tabDlg.TabVisible(MainForm::kTabToMaximizer));
  // No "LogFileLimit": 1000 and the menu's tick.
  EXPECT_EQ(app_->shell.LogFileLimit, 1000);
  EXPECT_TRUE(form.mnuFile(21).Checked());
  EXPECT_TRUE(form.mnuOptnMulti(2).Checked());
  EXPECT_FALSE(form.mnuOptnMulti(0).Checked());
  EXPECT_EQ(form.Caption(), "Tolmen 1.0.0 for Maximizer 8, 9 and later");
  EXPECT_EQ(form.txtToday.Text(), "15 Jun 2024");
  EXPECT_EQ(form.lstBillType.ListIndex(), 2);
  EXPECT_EQ(form.lstBillType.List(2), "Batch Invoice");
  EXPECT_EQ(form.lstBillType.ItemData(4), 105);
  EXPECT_EQ(form.lst2MaxPastel.ListCount(), 76);  // the Pastel fields of the "To Maximizer" page
  EXPECT_EQ(app_->shell.BusyCount, 0);
  EXPECT_FALSE(form.IsLoaded());

  const std::string stored = ReadFile(SettingsPath());
  for (const char* line :
       {"Billing=False\n", "Billing2=True\n", "View2Max=True\n", "MultiYear=2\n"})
    EXPECT_TRUE(Contains(stored, line)) << line;
}

TEST_F(StartAndCloseTest, AbcInTheLevelDialogSwitchesDebuggingOff) {
  WriteText(SettingsPath(), "[Settings]\nDebugging=2\n");
  Start({"= abc"});
  RunApp();
  EXPECT_EQ(Transcript(),
            "== InputBox | Debugging Vellumator7 | 2\n"
            "Set your Debugging Level:\n0 = No Debugging,\n1 = Vital messages,\n"
            "2 = Most messages,\n3 = GlobalIO too,\n4 = All messages,\n"
            "-1 = Casual Billing & Vital messages Only.\n"
            "-> = abc\n"
            // No Maximizer answers: the first activation says so.
            "== MsgBox | Maximizer Required! | OK | Exclamation\n"
            "Please run Maximizer before running Tolmen!\n"
            "-> OK\n");
  EXPECT_EQ(app_->shell.DebugLevel, 0);
  EXPECT_FALSE(Contains(ReadFile(SettingsPath()), "Debugging"));
  // Level 0 now: no "Ended" line.
  EXPECT_EQ(ReadFile(Home() + "Tolmen.LOG"),
            "2024-06-15 12:00 - # Debug: Started Tolmen\r\n"
            "2024-06-15 12:00 - # DEBUGGING OFF\r\n");
}

TEST_F(StartAndCloseTest, LevelFourLogsTheStartAndIsKept) {
  WriteText(SettingsPath(), "[Settings]\nDebugging=1\n");
  Start({"= 4"});
  RunApp();
  EXPECT_TRUE(Contains(ReadFile(SettingsPath()), "Debugging=4\n"));
  EXPECT_EQ(ReadFile(Home() + "Tolmen.LOG"),
            "2024-06-15 12:00 - # Debug: Started Tolmen\r\n"
            "2024-06-15 12:00 - # DEBUGGING Setting = 4\r\n"
            "# Debug: Started Tolmen\r\n"
            "# Debug: Setting Paths\r\n"
            "# Debug: Setting SDK Reference\r\n"
            "# Debug: Positioning, Versions\r\n"
            "# Debug: Pastel Doc List\r\n"
            "# Debug: CheckForAutoRun\r\n"
            "# Debug: end Sub Form_Load\r\n"
            "2024-06-15 12:00 - # Debug: Ended Tolmen 1.0.0 for Maximizer 8, 9 and later\r\n");
  // Not 0: the log is closed after every entry.
  EXPECT_FALSE(app_->log.IsOpen());

  // An empty answer changes nothing; the menu item asks again.
  Start({"@click mnuOptnDebug", "Cancel"});
  RunApp();
  EXPECT_EQ(app_->shell.DebugLevel, 4);
  EXPECT_TRUE(
      Contains(Transcript(), "@ click mnuOptnDebug\n== InputBox | Debugging Vellumator7 | 4\n"));
}

// The settings file and the autostart entry share the config folder.
TEST(ConfigFolder, ComesFromXdgConfigHomeThenHome) {
  const struct {
    const char* config;
    const char* home;
    const char* folder;
  } cases[] = {
      {"/c/cfg", "/h/user", "/c/cfg"},
      {"/c/cfg//", "/h/user", "/c/cfg"},
      {"", "/h/user", "/h/user/.config"},
      {"", "", ""},
  };
  for (const auto& c : cases) {
    test::ScopedEnv config("XDG_CONFIG_HOME", c.config);
    test::ScopedEnv home("HOME", c.home);
    const std::string folder = c.folder;
    EXPECT_EQ(ConfigFolder(), folder) << c.config << " " << c.home;
    EXPECT_EQ(Settings::DefaultPath(), folder.empty() ? "" : folder + "/Vellumator7/settings.ini");
    EXPECT_EQ(ReadRegistryValue(HKEY_CURRENT_USER, kShellFoldersKey, "Startup"),
              folder.empty() ? "" : folder + "/autostart");
  }
}

TEST_F(StartAndCloseTest, StartupEntryTicksTheFileMenu) {
  test::ScopedEnv config("XDG_CONFIG_HOME", dir_.File("config"));
  EXPECT_EQ(ReadRegistryValue(
                HKEY_CURRENT_USER,
                "software\\microsoft\\windows\\currentversion\\explorer\\shell folders", "STARTUP"),
            dir_.File("config") + "/autostart");
  EXPECT_EQ(ReadRegistryValue(HKEY_CURRENT_USER, kShellFoldersKey, "Desktop"), "");
  EXPECT_EQ(ReadRegistryValue(0x80000002u, kShellFoldersKey, "Startup"), "");

  WriteText(dir_.File("config/autostart/TOLMEN.DESKTOP"), "[Desktop Entry]\n");
  Start({});
  RunApp();
  EXPECT_TRUE(app_->screen.frmMain.mnuFile(50).Checked());
}

TEST_F(StartAndCloseTest, CloseIsRefusedDuringARunExceptFromCodeAndOutside) {
  Start({});
  struct Case {
    bool running;
    int mode;
    bool refused;
  };
  for (const Case& c : {Case{true, vbFormControlMenu, true}, Case{true, vbFormCode, false},
                        Case{true, vbAppWindows, true}, Case{true, vbAppTaskManager, false},
                        Case{false, vbFormControlMenu, false}, Case{false, vbAppWindows, false}}) {
    app_->run.RunActive = c.running;
    EXPECT_EQ(Form_QueryUnload(*app_, c.mode), c.refused) << c.running << " " << c.mode;
  }

  // The close box during a run leaves the window open.
  FakeStartStages();
  app_->stages.TransferClients = [this] {
    window_->RequestClose();
    EXPECT_TRUE(app_->screen.frmMain.IsLoaded());
  };
  app_->run.RunActive = false;
  WireShell(*app_);
  app_->screen.frmMain.Show();
  DoImport(*app_);
  window_->RequestClose();
  EXPECT_FALSE(app_->screen.frmMain.IsLoaded());
}

}  // namespace
}  // namespace tolmen::testing
