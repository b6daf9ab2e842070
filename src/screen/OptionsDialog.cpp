#include "screen/OptionsDialog.h"

#include "background/AutoRunFile.h"
#include "background/Schedule.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

constexpr int kMethodTimeButton = 0;
constexpr int kMethodIntervalButton = 1;

void Changed(const OptionsDialog& dialog) {
  dialog.state.OptionsChanged = true;
}

}  // namespace

void frmOptions_Load(const OptionsDialog& dialog, bool showFinalMessage) {
  OptionsForm& form = dialog.form;
  const BackgroundState& state = dialog.state;
  form.lstTemplates.Clear();
  for (const std::string& name : state.TemplateList)
    if (!name.empty()) form.lstTemplates.AddItem(name);
  form.Check1.SetValue(state.BackgroundOn ? 1 : 0);
  if (state.UpdateMethod == kMethodInterval) {
    form.optMethod.Set(kMethodIntervalButton);
    form.txtHours.SetText(Format(Variant(static_cast<double>(state.IntervalMinutes / 60)), "00"));
    form.txtMins.SetText(Format(Variant(static_cast<double>(state.IntervalMinutes % 60)), "00"));
  } else {
    if (state.UpdateMethod == kMethodTime)
      form.optMethod.Set(kMethodTimeButton);
    else
      for (int index : form.optMethod.Indexes()) form.optMethod(index).SetValue(false);
    form.txtTime.SetText(state.RunTime);
  }
  form.Check3.SetValue(showFinalMessage ? 1 : 0);
  dialog.state.OptionsOpen = true;
  dialog.state.OptionsChanged = false;
}

void frmOptions_Unload(const OptionsDialog& dialog) {
  dialog.state.OptionsOpen = false;
}

void Check1_Click(const OptionsDialog& dialog) {
  OptionsForm& form = dialog.form;
  const bool on = form.Check1.Value() == 1;
  for (int index : form.optMethod.Indexes()) form.optMethod(index).SetEnabled(on);
  for (Control* control :
       std::initializer_list<Control*>{&form.lstTemplates, &form.txtTime, &form.txtHours,
                                       &form.txtMins, &form.cmdBrowse, &form.cmdRemove})
    control->SetEnabled(on);
  Changed(dialog);
}

void optMethod_Click(const OptionsDialog& dialog, int index) {
  OptionsForm& form = dialog.form;
  const bool interval = index == kMethodIntervalButton;
  dialog.state.UpdateMethod = interval ? kMethodInterval : kMethodTime;
  form.txtTime.SetEnabled(!interval);
  form.txtHours.SetEnabled(interval);
  form.txtMins.SetEnabled(interval);
  Changed(dialog);
}

void txtTime_GotFocus(const OptionsDialog& dialog) {
  if (dialog.form.txtTime.Text().empty()) dialog.form.txtTime.SetText("12:00");
}

void txtTime_Change(const OptionsDialog& dialog) {
  TextBox& box = dialog.form.txtTime;
  int caret = box.SelStart();
  const std::string completed = CompleteTimeTyping(box.Text(), caret);
  if (completed != box.Text()) {
    box.SetText(completed);
    box.SetSelStart(caret);
  }
  Changed(dialog);
}

void txtTime_LostFocus(const OptionsDialog& dialog) {
  TextBox& box = dialog.form.txtTime;
  box.SetText(Format(Variant(box.Text()), "hh:mm"));
}

void txtInterval_LostFocus(const OptionsDialog& dialog) {
  OptionsForm& form = dialog.form;
  std::string hours = form.txtHours.Text();
  std::string minutes = form.txtMins.Text();
  CarryMinutes(hours, minutes);
  form.txtHours.SetText(hours);
  form.txtMins.SetText(minutes);
}

void cmdBrowse_Click(const OptionsDialog& dialog) {
  FileDialogRequest request;
  request.title = "Add Template";
  request.filter = "Template Files (*.ktf)|*.ktf|All Files (*.*)|*.*";
  request.initialFolder = dialog.appFolder;
  request.defaultExtension = "ktf";
  std::string path;
  if (!dialog.ui.FileDialog(request, path)) return;
  dialog.form.lstTemplates.AddItem(path);
  Changed(dialog);
}

void cmdRemove_Click(const OptionsDialog& dialog) {
  ListBox& list = dialog.form.lstTemplates;
  if (list.SelCount() == 0) {
    dialog.ui.MsgBox("Please select the item(s) to remove!", vbExclamation, "Nothing to Remove");
    return;
  }
  for (int index = list.ListCount() - 1; index >= 0; --index)
    if (list.Selected(index)) list.RemoveItem(index);
  Changed(dialog);
}

bool TakeChangedOptions(const OptionsDialog& dialog, double now, bool& showFinalMessage) {
  OptionsForm& form = dialog.form;
  BackgroundState& state = dialog.state;
  if (form.Check1.Value() != 1) {
    state.BackgroundOn = false;
    form.txtTime.SetText("");
    state.UpdateMethod.clear();
    form.Check3.SetValue(0);
  } else {
    state.BackgroundOn = true;
  }
  try {
    state.IntervalMinutes = static_cast<int16_t>(
        CInt(Variant(Val(form.txtHours.Text()) * 60 + Val(form.txtMins.Text()))));
  } catch (const RuntimeError& error) {
    dialog.ui.MsgBox(error.Description(), vbExclamation, dialog.appName);
    return false;
  }
  state.RunTime = form.txtTime.Text();
  if (state.UpdateMethod == kMethodInterval) state.RunTime = TimeAfter(now, state.IntervalMinutes);
  if (state.BackgroundOn && form.lstTemplates.ListCount() == 0) {
    dialog.ui.MsgBox(dialog.appName +
                         " cannot run in Background mode unless at least one Template file is "
                         "selected.",
                     vbExclamation, "No Templates Selected");
    return false;
  }
  state.TemplateList.clear();
  for (int index = 0; index < form.lstTemplates.ListCount(); ++index)
    state.TemplateList.push_back(form.lstTemplates.List(index));
  showFinalMessage = form.Check3.Value() == 1;
  try {
    SaveAutoRunFile(dialog, showFinalMessage);
  } catch (const RuntimeError& error) {
    dialog.ui.MsgBox(error.Description() + ": " + state.AutoRunFile, vbExclamation, dialog.appName);
    return false;
  }
  return true;
}

void SaveAutoRunFile(const OptionsDialog& dialog, bool showFinalMessage) {
  WriteAutoRunFile(dialog.state.AutoRunFile, dialog.state, dialog.form.Check1.Value() == 1,
                   showFinalMessage);
}

}  // namespace tolmen
