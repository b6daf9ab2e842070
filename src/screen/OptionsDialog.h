// frmOptions' handlers that read and write only the dialog and the schedule it shows: the load,
// the check box that switches background mode, the method buttons, the time and interval boxes,
// Add and Remove Template, and the part of OK that takes a changed dialog over into the schedule
// and AUTORUN.KSF. What OK then does to the program (the first template, the tray, the timer,
// the hidden window) is background mode's (background/BackgroundMode.h).
//
// Every handler that changes the dialog marks the schedule changed; the load clears the mark.
#pragma once

#include <string>

#include "background/BackgroundState.h"
#include "platform/ui/Ui.h"
#include "screen/OptionsForm.h"

namespace tolmen {

// What the dialog works on. REQUIRES: every member outlives the handler call.
struct OptionsDialog {
  OptionsForm& form;
  BackgroundState& state;
  Ui& ui;
  std::string appName;
  std::string appFolder;  // where Add Template's file dialog opens, with its trailing '/'
};

// Fills the list from TemplateList (an empty name is not listed), ticks Check1 from
// BackgroundOn, sets the method's button and shows the interval as hours and minutes or the time
// (an empty method leaves both buttons off and shows the time), ticks Check3 from
// `showFinalMessage`; then the dialog counts as open and unchanged.
void frmOptions_Load(const OptionsDialog& dialog, bool showFinalMessage);
void frmOptions_Unload(const OptionsDialog& dialog);

// Enables or disables the method buttons, the list, the three boxes and the two list buttons
// together, as Check1 is ticked or not.
void Check1_Click(const OptionsDialog& dialog);
// 0 "&Time", 1 "&Interval": the update method, and the boxes of that method enabled.
void optMethod_Click(const OptionsDialog& dialog, int index);
// The time box: "12:00" in an empty box on entering; the completion of Schedule.h while typing;
// formatted "hh:mm" on leaving.
void txtTime_GotFocus(const OptionsDialog& dialog);
void txtTime_Change(const OptionsDialog& dialog);
void txtTime_LostFocus(const OptionsDialog& dialog);
// The interval boxes on leaving: "00" and the minutes carried (Schedule.h).
void txtInterval_LostFocus(const OptionsDialog& dialog);
// A template chosen in the file dialog is added to the list.
void cmdBrowse_Click(const OptionsDialog& dialog);
// Removes the selected rows, or says "Please select the item(s) to remove!".
void cmdRemove_Click(const OptionsDialog& dialog);

// OK's steps for a changed dialog: BackgroundOn from Check1 (unticked also empties the time box
// and the method and clears Check3), IntervalMinutes from the hours and minutes, RunTime from the
// time box or, for an interval, `now` plus the interval; background mode without templates is
// refused with a message; else the list becomes TemplateList, Check3 `showFinalMessage`, and
// AUTORUN.KSF is written. False when the dialog stays open (the refusal, or a file error, which
// is shown).
bool TakeChangedOptions(const OptionsDialog& dialog, double now, bool& showFinalMessage);
// Writes AUTORUN.KSF: background mode as Check1 shows it, the held schedule and
// `showFinalMessage`. Throws RuntimeError when the file cannot be written.
void SaveAutoRunFile(const OptionsDialog& dialog, bool showFinalMessage);

}  // namespace tolmen
