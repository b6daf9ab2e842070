// The screen around a run: the switches before and after it, and the Pause button's dialog.
#include "runtime/Trap.h"
#include "shell/Tolmen.h"
#include "transfer/Max2Pastel.h"

namespace tolmen {
namespace {

constexpr const char* kRunHeading =
    "Click [Pause] to Pause, End, or Cancel the transfer of Customer Data.";
constexpr const char* kIdleHeading =
    "Click the 'Import' button to import the selected Maximizer Clients into Pastel.";
constexpr const char* kAnimation = "KELBOR.AVI";
// The pages a run locks: all but the Transfer page, which shows the run.
constexpr int kLockedPages = 5;

void SwitchRunScreen(Tolmen& app, bool running) {
  MainForm& form = app.screen.frmMain;
  for (MenuItem* menu : {&form.mnuFileTop, &form.mnuView, &form.mnuHelp, &form.mnuOptnPastel})
    menu->SetEnabled(!running);
  if (running) form.cmdBack.SetEnabled(false);
  form.cmdNext.SetEnabled(!running);
  form.cmdSave.SetEnabled(!running);
  form.cmdAbort.SetVisible(running);
  form.lblProgress(0).SetCaption(running ? kRunHeading : kIdleHeading);
  for (int page = 0; page < kLockedPages; ++page) form.tabDlg.SetTabEnabled(page, !running);
}

}  // namespace

void BeforeRunScreen(Tolmen& app) {
  SwitchRunScreen(app, true);
  // A run needs no animation.
  PassOver([&] { app.ui.AnimationOpen(app.info.AppFolder + kAnimation); });
}

void AfterRunScreen(Tolmen& app) {
  app.ui.AnimationStop();
  app.ui.AnimationClose();
  SwitchRunScreen(app, false);
  app.run.StopRequest = kStopNone;
  app.run.Unattended = false;
}

void Abort_Click(Tolmen& app, const std::string& text) {
  RunState& run = app.run;
  const std::string& br = app.info.LineBreak;
  app.ui.AnimationStop();
  // Cancel is a button of its own: it is what the dialog's close box answered.
  const int answer = app.ui.MsgBox(
      "You clicked " + text + " [Pause...]." + run.TaskTitle + "?" + br +
          "Click 'Yes' to carry on" + br + "Click 'No' to end the transfer after this customer",
      vbYesNoCancel + vbQuestion, app.info.AppName + " Transfer Paused");
  run.StopRequest = static_cast<StopKind>(answer);
  if (answer == vbYes) {
    run.StopRequest = kStopNone;
    app.ui.AnimationPlay();
  }
}

void cmdAbort_Click(Tolmen& app) {
  Abort_Click(app, "");
}

}  // namespace tolmen
