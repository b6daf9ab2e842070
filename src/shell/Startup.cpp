#include "shell/Startup.h"

#include "background/BackgroundMode.h"
#include "background/StartupEntry.h"
#include "billing/CasualBilling.h"
#include "maximizer/OpenMaximizer.h"
#include "pastel/OpenPastel.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "shell/Busy.h"
#include "shell/CommandLine.h"
#include "shell/DebugLevel.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "transfer/Max2Pastel.h"
#include "transfer/Pas2MaxCatalogue.h"

namespace tolmen {
namespace {

constexpr const char* kSettingsSection = "Settings";

bool ReadBoolSetting(Tolmen& app, const std::string& key, bool defaultValue) {
  const std::string text =
      app.settings.GetSetting(kSettingsSection, key, defaultValue ? "True" : "False");
  try {
    return CBool(Variant(text));
  } catch (const RuntimeError&) {
    return defaultValue;
  }
}

std::string BoolText(bool value) {
  return value ? "True" : "False";
}

// Step 8 of the load: the log limit, the pages that may be hidden and the multi-year method.
void ApplyStartSettings(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  ShellState& shell = app.shell;
  try {
    shell.LogFileLimit =
        CLng(Variant(Val(app.settings.GetSetting(kSettingsSection, "LogFileLimit", "1000"))));
  } catch (const RuntimeError&) {
    shell.LogFileLimit = 1000;
  }
  form.mnuFile(21).SetChecked(shell.LogFileLimit > 0);

  const bool billing = ReadBoolSetting(app, "Billing", true);
  form.mnuViewBillR.SetChecked(billing);
  form.tabDlg.SetTabVisible(MainForm::kTabRecurringBilling, billing);
  if (!billing) form.optBillPeriod.Set(0);

  const bool billing2 = ReadBoolSetting(app, "Billing2", true);
  form.mnuViewBillC.SetChecked(billing2);
  form.tabDlg.SetTabVisible(MainForm::kTabCasualBilling, billing2);
  if (!billing2) form.lstBillCSet.Clear();

  const bool toMaximizer = ReadBoolSetting(app, "View2Max", true);
  form.mnuViewMaximizer.SetChecked(toMaximizer);
  form.tabDlg.SetTabVisible(MainForm::kTabToMaximizer, toMaximizer);
  form.chkShowToMaxTab.SetValue(toMaximizer ? 1 : 0);

  try {
    shell.MultiYear = static_cast<int16_t>(
        CInt(Variant(Val(app.settings.GetSetting(kSettingsSection, "MultiYear", "0")))));
  } catch (const RuntimeError&) {
    shell.MultiYear = 0;
  }
  for (int index : form.mnuOptnMulti.Indexes())
    form.mnuOptnMulti(index).SetChecked(index == shell.MultiYear);
}

}  // namespace

void SetStartupSection(Tolmen& app, const std::string& section) {
  app.shell.StartupSection = section;
  if (app.shell.DebugLevel == 4) LogEntry(app, 8, "# Debug: " + section);
}

void ReportShellError(Tolmen& app, const RuntimeError& error, const std::string& where) {
  app.ui.MsgBox(error.Description() + app.info.LineBreak + "while doing " + where + ".",
                vbExclamation, app.info.AppTitle);
}

void WireShell(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.SetOnLoad([&app] { Form_Load(app); });
  form.SetOnUnload([&app] { Form_Unload(app); });
  form.SetOnClose([&app] {
    if (!Form_QueryUnload(app, vbFormControlMenu)) app.screen.frmMain.Unload();
  });
  form.SetOnSystemClose([&app] {
    if (!Form_QueryUnload(app, vbAppWindows)) app.screen.frmMain.Unload();
  });
  form.cmdAbort.SetOnClick([&app] { cmdAbort_Click(app); });
  form.mnuOptnDebug.SetOnClick([&app] { DebugLevelDialog(app); });
  WireBackground(app);
}

void Form_Load(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const AppInfo& info = app.info;
  const int busyBefore = app.shell.BusyCount;
  try {
    SetStartupSection(app, "Starting " + info.AppName);
    app.shell.DebugLevel = ReadDebugLevel(app);
    if (app.shell.DebugLevel != 0) {
      LogEntry(app, 9, "# Debug: Started " + info.AppName);
      DebugLevelDialog(app);
    }
    SetStartupSection(app, "Started " + info.AppName);

    SetBusy(app);
    SetStartupSection(app, "Setting Paths");
    form.txtToday.SetText(FormatDate(app.clock.Now(), "dd mmm yyyy"));

    SetStartupSection(app, "Setting SDK Reference");
    app.toolkit.Class_Initialize();

    // The front-end places the window; the table of accepted statuses is a constant.
    SetStartupSection(app, "Positioning, Versions");
    form.SetCaption(info.AppTitle);
    ApplyStartSettings(app);

    // The category option's handler brings the "To Pastel" boxes in line.
    const int category = form.optCategory.Value();
    if (category < 0)
      form.optCategory.Set(0);
    else
      form.optCategory(category).Click();

    SetStartupSection(app, "Pastel Doc List");
    FillDocumentList(form.lstBillType);
    AddPas2MaxList(form.lst2MaxPastel);

    SetStartupSection(app, "CheckForAutoRun");
    if (IsStartupShortcutThere()) form.mnuFile(50).SetChecked(true);

    app.run.ShowFinalMessage = true;
    app.shell.TemplateDialogFolder = info.AppFolder;
    app.shell.TemplateDialogFilter = "*.KTF";
    form.tabDlg.SetTab(MainForm::kTabOpen);
    SetStartupSection(app, "end Sub Form_Load");
    SetBusy(app, true);
  } catch (const RuntimeError& error) {
    ReportShellError(app, error, app.shell.StartupSection);
    while (app.shell.BusyCount > busyBefore) SetBusy(app, true);
  }
}

void Form_Activate(Tolmen& app) {
  if (app.shell.FirstActivationDone) return;
  try {
    OpenMaximizerOLE(app);
    app.screen.frmMain.cmdBack.SetEnabled(false);
    ParseCommandLine(app);
    if (app.shell.AutoRunAllowed) CheckForAutoRun(app);
  } catch (const RuntimeError& error) {
    ReportShellError(app, error, "Form_Activate");
  }
  app.shell.FirstActivationDone = true;
}

bool Form_QueryUnload(Tolmen& app, int unloadMode) {
  if (!app.run.RunActive) return false;
  return unloadMode == vbFormControlMenu || unloadMode == vbAppWindows;
}

void Form_Unload(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  try {
    if (app.shell.DebugLevel != 0) LogEntry(app, 9, "# Debug: Ended " + app.info.AppTitle);
    if (app.shell.TrayInstalled) {
      app.ui.TrayRemove();
      app.shell.TrayInstalled = false;
    }
    app.settings.SaveSetting(kSettingsSection, "Billing", BoolText(form.mnuViewBillR.Checked()));
    app.settings.SaveSetting(kSettingsSection, "Billing2", BoolText(form.mnuViewBillC.Checked()));
    app.settings.SaveSetting(kSettingsSection, "View2Max",
                             BoolText(form.mnuViewMaximizer.Checked()));
    app.settings.SaveSetting(kSettingsSection, "MultiYear", std::to_string(app.shell.MultiYear));
    ClosePasFiles(app);
    app.toolkit.Class_Terminate();
  } catch (const RuntimeError& error) {
    ReportShellError(app, error, "Form_Unload");
  }
}

}  // namespace tolmen
