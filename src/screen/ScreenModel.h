// The screen model: the three forms, and the lookup of a control by name for the front-ends and
// the script actions.
//
// A name is looked up without regard to case. It may carry its form ("frmOptions.cmdOK");
// without one, the form that takes the user's actions now (a modal dialog that is shown) is
// searched first, then frmMain, frmOptions and frmSetup in this order. So "cmdCancel" is the
// button of whichever dialog is open.
#pragma once

#include <string>
#include <vector>

#include "screen/MainForm.h"
#include "screen/OptionsForm.h"
#include "screen/SetupForm.h"

namespace tolmen {

struct ControlRef {
  Form* form = nullptr;
  Control* control = nullptr;         // a control of its own
  ControlArrayBase* array = nullptr;  // or a control array
  bool Found() const { return control || array; }
};

class ScreenModel {
 public:
  ScreenModel() = default;
  ScreenModel(const ScreenModel&) = delete;
  ScreenModel& operator=(const ScreenModel&) = delete;

  MainForm frmMain;
  OptionsForm frmOptions;
  SetupForm frmSetup;

  std::vector<Form*> Forms() { return {&frmMain, &frmOptions, &frmSetup}; }
  Form* FindForm(const std::string& name);
  // A modal dialog that is shown, else frmMain.
  Form* ActiveForm();

  ControlRef Lookup(const std::string& name);
  // A control of its own, or with `index` the member of an array; nullptr when there is none.
  Control* Find(const std::string& name, int index = -1);
  ControlArrayBase* FindArray(const std::string& name);
  // The member of an array whose caption matches (see CaptionMatches); nullptr when none does.
  Control* FindByCaption(const std::string& arrayName, const std::string& caption);
};

}  // namespace tolmen
