#include "background/BackgroundMode.h"

#include "background/AutoRunFile.h"
#include "background/Schedule.h"
#include "billing/BillingDay.h"
#include "maximizer/OpenMaximizer.h"
#include "runtime/Format.h"
#include "screen/OptionsDialog.h"
#include "shell/CommandLine.h"
#include "shell/Startup.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "transfer/Categories.h"
#include "transfer/Max2Pastel.h"
#include "transfer/RunStart.h"

namespace tolmen {
namespace {

constexpr int kOneMinute = 60000;
constexpr int kRunInBackground = 40;  // the File menu's "Run in &Background..."

OptionsDialog Dialog(Tolmen& app) {
  return {app.screen.frmOptions, app.background, app.ui, app.info.AppName, app.info.AppFolder};
}

// The first template of the list, "" when the list is empty.
std::string FirstTemplate(const BackgroundState& state) {
  return state.TemplateList.empty() ? std::string() : state.TemplateList.front();
}

// Background mode armed: the options of the first template applied, the tray, the timer, and
// the main window out of sight.
void Arm(Tolmen& app, int trayCommand) {
  MainForm& form = app.screen.frmMain;
  ShowSystrayIcon(app, trayCommand, kTrayIdle);
  form.Image1.SetVisible(true);
  form.Hide();
  SetOptions(app);
  app.shell.AutoRunAllowed = true;
  form.mnuFile(kRunInBackground).SetChecked(true);
  form.Timer1.SetInterval(kOneMinute);
}

}  // namespace

void WireBackground(Tolmen& app) {
  MainForm& main = app.screen.frmMain;
  OptionsForm& form = app.screen.frmOptions;
  app.background.AutoRunFile = app.info.AppFolder + kAutoRunFileName;

  main.Timer1.SetHandler([&app] {
    try {
      Timer1_Timer(app);
    } catch (const RuntimeError& error) {
      ReportShellError(app, error, "Timer1_Timer");
    }
  });
  app.ui.RegisterTimer(main.Timer1);
  main.Image1.SetOnDblClick([&app] { Image1_DblClick(app); });
  main.SetOnTrayMessage([&app](int message) { Form_MouseMove(app, message); });

  form.SetOnLoad([&app] { frmOptions_Load(Dialog(app), app.run.ShowFinalMessage); });
  form.SetOnUnload([&app] { frmOptions_Unload(Dialog(app)); });
  form.Check1.SetOnClick([&app] { Check1_Click(Dialog(app)); });
  form.Check3.SetOnClick([&app] { app.background.OptionsChanged = true; });
  form.optMethod.SetOnClick([&app](int index) { optMethod_Click(Dialog(app), index); });
  form.txtTime.SetOnGotFocus([&app] { txtTime_GotFocus(Dialog(app)); });
  form.txtTime.SetOnChange([&app] { txtTime_Change(Dialog(app)); });
  form.txtTime.SetOnLostFocus([&app] { txtTime_LostFocus(Dialog(app)); });
  for (TextBox* box : {&form.txtHours, &form.txtMins}) {
    box->SetOnChange([&app] { app.background.OptionsChanged = true; });
    box->SetOnLostFocus([&app] { txtInterval_LostFocus(Dialog(app)); });
  }
  form.cmdBrowse.SetOnClick([&app] { cmdBrowse_Click(Dialog(app)); });
  form.cmdRemove.SetOnClick([&app] { cmdRemove_Click(Dialog(app)); });
  form.cmdOK.SetOnClick([&app] { frmOptions_cmdOK_Click(app); });
  form.cmdCancel.SetOnClick([&app] { app.screen.frmOptions.Unload(); });
}

void CheckForAutoRun(Tolmen& app) {
  BackgroundState& state = app.background;
  MainForm& form = app.screen.frmMain;
  state.AutoRunFile = app.info.AppFolder + kAutoRunFileName;
  state.BackgroundOn = false;
  app.shell.AutoRunAllowed = false;
  switch (ReadAutoRunFile(state.AutoRunFile, state, app.run.ShowFinalMessage)) {
    case AutoRunRead::kMissing:
      state.TemplateList.assign(1, "");
      return;
    case AutoRunRead::kForeign:
      LoadDefaults(app);
      return;
    case AutoRunRead::kRead:
      break;
  }
  if (!state.BackgroundOn) {
    form.mnuFile(kRunInBackground).SetChecked(false);
    return;
  }
  form.mnuFile(kRunInBackground).SetChecked(true);
  if (!TemplateOpen(app, FirstTemplate(state))) {
    LoadDefaults(app);
    return;
  }
  form.mnuFile(kRunInBackground).SetEnabled(true);
  Arm(app, kTrayAdd);
}

void Timer1_Timer(Tolmen& app) {
  BackgroundState& state = app.background;
  if (state.MinuteCounter == INT16_MAX) throw RuntimeError(6);
  ++state.MinuteCounter;
  const bool due = ScheduledRunDue(state.UpdateMethod, state.MinuteCounter, state.IntervalMinutes,
                                   FormatDate(app.clock.Now(), "hh:mm"), state.RunTime);
  if (!due) return;
  StartTheImport(app);
  if (state.UpdateMethod == kMethodInterval) state.MinuteCounter = 0;
}

void StartTheImport(Tolmen& app) {
  RunState& run = app.run;
  BackgroundState& state = app.background;
  ShowSystrayIcon(app, kTrayModify, kTrayActive);
  run.Unattended = true;
  if (!OpenMaximizerOLE(app)) return;

  DecideBillingDay(run, app.options, app.clock.Now());
  LoadCategories(app);

  run.TemplatesDone = 0;
  run.StopRequest = kStopNone;
  const size_t count = state.TemplateList.size();
  RunEntry entry;
  entry.mode = count > 1 ? kRunTemplateList : kRunOneTemplate;
  entry.showTransferPage = true;
  ClearRunNotes(run);

  for (size_t index = 0; index < count && run.StopRequest == kStopNone; ++index) {
    const std::string& path = state.TemplateList[index];
    if (!TemplateOpen(app, path)) continue;
    SetOptions(app);
    if (!CheckRunOptions(app)) continue;
    entry.reason =
        "for Template " + std::to_string(index + 1) + "/" + std::to_string(count) + ": " + path;
    RunTemplate(app, entry);
  }

  if (state.UpdateMethod == kMethodInterval) {
    state.RunTime = TimeAfter(app.clock.Now(), state.IntervalMinutes);
    ShowSystrayIcon(app, kTrayModify, state.RunTime);
  } else {
    ShowSystrayIcon(app, kTrayModify, kTrayIdle);
  }
  if (run.StopRequest != kStopNone)
    app.ui.MsgBox(app.info.AppTitle + " running in background has been aborted!");
  AfterRunScreen(app);
}

void ShowSystrayIcon(Tolmen& app, int command, const std::string& status) {
  const std::string tip = TrayTip(app.info.AppName, status, app.background.RunTime);
  switch (command) {
    case kTrayAdd:
      app.ui.TrayAdd(tip);
      break;
    case kTrayModify:
      app.ui.TrayModify(tip);
      break;
    default:
      app.ui.TrayRemove();
      break;
  }
  app.shell.TrayInstalled = command != kTrayDelete;
}

void Form_MouseMove(Tolmen& app, int message) {
  if (app.background.OptionsOpen) return;
  if (message == MainForm::kTrayLeftDoubleClick) {
    app.screen.frmMain.Show();
    app.screen.frmMain.Timer1.SetInterval(0);
  } else if (message == MainForm::kTrayRightDoubleClick) {
    app.screen.frmOptions.Show(true);
  }
}

void Image1_DblClick(Tolmen& app) {
  if (!app.shell.AutoRunAllowed) return;
  app.screen.frmMain.Timer1.SetInterval(kOneMinute);
  app.screen.frmMain.Hide();
}

void frmOptions_cmdOK_Click(Tolmen& app) {
  BackgroundState& state = app.background;
  OptionsForm& form = app.screen.frmOptions;
  MainForm& main = app.screen.frmMain;
  const std::string& appName = app.info.AppName;
  if (state.OptionsChanged &&
      !TakeChangedOptions(Dialog(app), app.clock.Now(), app.run.ShowFinalMessage))
    return;

  if (!state.BackgroundOn) {
    ShowSystrayIcon(app, kTrayDelete, "");
    app.shell.AutoRunAllowed = false;
    main.mnuFile(kRunInBackground).SetChecked(false);
    app.ui.MsgBox("Background mode is off.", vbInformation, "Not running in Background.");
    form.Unload();
    return;
  }
  if (form.lstTemplates.ListCount() == 0) {
    app.ui.MsgBox(appName +
                      " cannot run in Background mode unless at least one Template file is "
                      "listed.\n"
                      "Use the [...] button to add templates to the list.",
                  vbExclamation, "No Templates Chosen!");
    return;
  }
  if (TemplateOpen(app, FirstTemplate(state))) {
    if (state.RunTime.empty() && state.IntervalMinutes == 0) {
      app.ui.MsgBox("A 'Run Time' or 'Interval' must be entered before " + appName +
                        " can Run in Background mode.",
                    vbExclamation, "No Update Method Entered");
      return;
    }
    Arm(app, app.shell.TrayInstalled ? kTrayModify : kTrayAdd);
  }
  form.Unload();
}

}  // namespace tolmen
