// Background mode: the program waits hidden, with an icon in the notification area, and runs a
// list of templates on a schedule. The schedule lives in AUTORUN.KSF (AutoRunFile.h), is set in
// frmOptions (screen/OptionsDialog.h) and counted by Timer1 once a minute.
//
// Start-up: CheckForAutoRun reads the file at the first activation (unless the command line ruled
// it out). With background mode on and the first template readable, the options are applied, the
// tray shows "Idle", Timer1 ticks each minute and the main window hides.
//
// A tick: Timer1_Timer raises MinuteCounter; a due run (Schedule.h) calls StartTheImport, and for
// "INTERVAL" resets the counter afterwards. Ticks go on counting while a run yields.
//
// StartTheImport, the scheduled run over the list, through the run start's pieces
// (transfer/RunStart.h):
//   1  tray "Active"; Unattended on
//   2  OpenMaximizerOLE; a failure ends here without a word (the tray and Unattended stay)
//   3  the billing date (today unless one was chosen) and its decision; LoadCategories
//   4  TemplatesDone and StopRequest 0; RunMode 2 for more than one template, else 1;
//      ClearRunNotes
//   5  each template in list order while StopRequest is 0: TemplateOpen, SetOptions (the screen
//      is the master copy of a template's options), CheckRunOptions; then RunTemplate on the
//      Transfer page with RunReason "for Template i/n: path". A template that does not open or
//      check is skipped; StartTheImport says nothing about it.
//   6  the tray: for "INTERVAL" the next start, now plus the interval ("hh:mm"), else "Idle"
//   7  after a stop: "<AppTitle> running in background has been aborted!"
//   8  AfterRunScreen
// The import files are those the last wizard Import of the process named: none at its start, so
// that a scheduled run then meets the dialog of the import files.
//
// The tray's double clicks (not while frmOptions is open): the left one shows the window and
// stops Timer1, the right one opens frmOptions. A double click on Image1 while background mode is
// armed hides the window again and lets Timer1 tick.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

// The commands of ShowSystrayIcon.
enum TrayCommand : int { kTrayAdd = 0, kTrayModify = 1, kTrayDelete = 2 };

// Hangs frmOptions' handlers, Timer1, Image1's double click and the tray's messages on the
// screen, and registers Timer1 with the front-end. REQUIRES: `app` outlives its screen.
void WireBackground(Tolmen& app);

void CheckForAutoRun(Tolmen& app);
void Timer1_Timer(Tolmen& app);
void StartTheImport(Tolmen& app);
// Adds, changes or removes the tray icon with the tip of `status` (Schedule.h: TrayTip); every
// call marks the icon shown except kTrayDelete, which marks it gone.
void ShowSystrayIcon(Tolmen& app, int command, const std::string& status);
// The tray icon's mouse message, as frmMain receives it.
void Form_MouseMove(Tolmen& app, int message);
void Image1_DblClick(Tolmen& app);
// OK of frmOptions: a changed dialog is taken over (screen/OptionsDialog.h), then background
// mode is armed (first template read, tray, hidden window, options applied, Timer1) or switched
// off ("Background mode is off."). Refusals leave the dialog open.
void frmOptions_cmdOK_Click(Tolmen& app);

}  // namespace tolmen
