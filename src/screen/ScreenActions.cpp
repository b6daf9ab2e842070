#include "screen/ScreenActions.h"

#include <cctype>
#include <initializer_list>

#include "runtime/Cp1252.h"

namespace tolmen {

namespace {

bool IsNumber(const std::string& text) {
  size_t start = (!text.empty() && text[0] == '-') ? 1 : 0;
  if (text.size() <= start || text.size() > start + 9) return false;
  for (size_t i = start; i < text.size(); ++i)
    if (!std::isdigit(static_cast<unsigned char>(text[i]))) return false;
  return true;
}

// The arguments from `first` on, joined by blanks: a value may be written without quotes.
std::string Rest(const std::vector<std::string>& args, size_t first) {
  std::string out;
  for (size_t i = first; i < args.size(); ++i) {
    if (i > first) out += ' ';
    out += args[i];
  }
  return out;
}

// The entry of a list named by "#N" or by its text; -1 with `error` set when there is none.
int ListEntry(const ListControl& list, const std::string& entry, bool byNumber,
              std::string& error) {
  int index = -1;
  if (byNumber && IsNumber(entry)) {
    index = std::stoi(entry);
  } else if (entry.size() > 1 && entry[0] == '#' && IsNumber(entry.substr(1))) {
    index = std::stoi(entry.substr(1));
  } else {
    index = list.FindItem(entry);
    if (index < 0) error = list.DisplayName() + " has no entry \"" + entry + "\"";
    return index;
  }
  if (index < 0 || index >= list.ListCount()) {
    error = list.DisplayName() + " has no entry " + std::to_string(index) + " (it has " +
            std::to_string(list.ListCount()) + ")";
    return -1;
  }
  return index;
}

}  // namespace

std::string ScreenActions::Perform(const UiAction& action) {
  const std::string verb = LCase(action.verb);
  const std::vector<std::string>& args = action.args;
  try {
    if (verb == "close") {
      if (Form* active = model_.ActiveForm(); active != &model_.frmMain)
        return active->Name() + " is open";
      RequestClose();
      return "";
    }
    if (verb == "tray") {
      if (tray_) {
        tray_(args);
        return "";
      }
      if (!model_.frmMain.HasTrayHandler()) return "no handler for tray";
      return TrayMessage(args);
    }
    if (verb == "tab") {
      if (args.empty()) return "tab: which page?";
      Target target{&model_.frmMain, &model_.frmMain.tabDlg, 0, ""};
      if (std::string why = Unreachable(target); !why.empty()) return why;
      return SelectTab(model_.frmMain.tabDlg, args[0]);
    }
    if (verb != "click" && verb != "dblclick" && verb != "set" && verb != "select")
      return "unknown action " + action.verb;
    if (args.empty()) return verb + ": which control?";
    Target target = Resolve(args);
    if (!target.error.empty()) return target.error;
    if (std::string why = Unreachable(target); !why.empty()) return why;
    if (verb == "click") return Click(target, args);
    if (verb == "dblclick") return DblClick(target, args);
    if (verb == "set") return Set(target, args);
    return Select(target, args);
  } catch (const RuntimeError& error) {
    return "error " + std::to_string(error.Number()) + " " + error.Description();
  }
}

ScreenActions::Located ScreenActions::Locate(const UiAction& action) {
  const std::string verb = LCase(action.verb);
  const std::vector<std::string>& args = action.args;
  Located located;
  Target target;
  if (verb == "tab") {
    if (args.empty()) {
      located.refusal = "tab: which page?";
      return located;
    }
    target = Target{&model_.frmMain, &model_.frmMain.tabDlg, 0, ""};
  } else if (verb == "click" || verb == "dblclick" || verb == "set" || verb == "select") {
    if (args.empty()) {
      located.refusal = verb + ": which control?";
      return located;
    }
    target = Resolve(args);
    if (!target.error.empty()) {
      located.refusal = target.error;
      return located;
    }
  } else {
    return located;
  }
  located.refusal = Unreachable(target);
  located.control = target.control;
  located.hasEntry = args.size() > target.nextArg;
  located.entry = Rest(args, target.nextArg);
  return located;
}

std::string ScreenActions::TrayMessage(const std::vector<std::string>& args) {
  static const std::map<std::string, int> kMessages = {
      {"click", MainForm::kTrayLeftUp},
      {"dblclick", MainForm::kTrayLeftDoubleClick},
      {"context", MainForm::kTrayRightUp},
      {"rdblclick", MainForm::kTrayRightDoubleClick}};
  const auto found = kMessages.find(args.empty() ? "" : LCase(args[0]));
  if (found == kMessages.end()) return "tray: click, dblclick, context or rdblclick?";
  model_.frmMain.TrayMessage(found->second);
  return "";
}

ScreenActions::Target ScreenActions::Resolve(const std::vector<std::string>& args) {
  Target target;
  ControlRef ref = model_.Lookup(args[0]);
  if (!ref.Found()) {
    target.error = "unknown control " + args[0];
    return target;
  }
  target.form = ref.form;
  target.control = ref.control;
  if (ref.control) return target;
  if (args.size() < 2) {
    target.error = ref.array->Name() + " is a control array: name a member";
    return target;
  }
  const std::string& which = args[1];
  target.nextArg = 2;
  if (IsNumber(which)) {
    target.control = ref.array->Member(std::stoi(which));
    if (!target.control) target.error = ref.array->Name() + " has no member " + which;
  } else {
    target.control = ref.array->FindByCaption(which);
    if (!target.control) target.error = ref.array->Name() + " has no member \"" + which + "\"";
  }
  return target;
}

std::string ScreenActions::Unreachable(const Target& target) const {
  Form* form = target.form;
  Control* control = target.control;
  if (!form->IsShown()) return form->Name() + " is not shown";
  Form* active = model_.ActiveForm();
  if (active != form) return active->Name() + " is open";
  if (auto* item = dynamic_cast<MenuItem*>(control)) {
    for (const MenuItem* up = item; up; up = up->Parent()) {
      if (!up->Visible()) return up->DisplayName() + " is not visible";
      if (!up->Enabled()) return up->DisplayName() + " is disabled";
    }
    if (item->IsSeparator()) return item->DisplayName() + " is a separator";
    return "";
  }
  if (!control->Visible()) return control->DisplayName() + " is not visible";
  if (!control->Enabled()) return control->DisplayName() + " is disabled";
  if (const TabControl* tabs = control->PageOwner()) {
    int page = control->Page();
    std::string where = control->DisplayName() + " is on page " + std::to_string(page) + " of " +
                        tabs->Name() + ", which ";
    if (!tabs->Visible() || !tabs->TabVisible(page)) return where + "is hidden";
    if (!tabs->Enabled() || !tabs->TabEnabled(page)) return where + "is disabled";
    if (tabs->Tab() != page) return where + "is not showing";
  }
  return "";
}

std::string ScreenActions::Click(const Target& target, const std::vector<std::string>& args) {
  Control* control = target.control;
  bool hasEntry = args.size() > target.nextArg;
  std::string entry = Rest(args, target.nextArg);
  if (auto* box = dynamic_cast<CheckBox*>(control)) {
    box->Toggle();
    return "";
  }
  if (auto* option = dynamic_cast<OptionButton*>(control)) {
    option->SetValue(true);
    return "";
  }
  if (auto* tabs = dynamic_cast<TabControl*>(control)) {
    if (!hasEntry) return "click " + tabs->Name() + ": which page?";
    return SelectTab(*tabs, entry);
  }
  if (auto* list = dynamic_cast<ListControl*>(control)) {
    if (!hasEntry) return "click " + list->DisplayName() + ": which entry?";
    std::string error;
    int index = ListEntry(*list, entry, true, error);
    if (index < 0) return error;
    if (auto* box = dynamic_cast<ListBox*>(list); box && box->MultiSelect() != ListBox::kSingle)
      box->SetSelected(index, !box->Selected(index));
    else
      list->SetListIndex(index);
    return "";
  }
  if (!control->HasClickHandler()) return "no handler for " + control->DisplayName();
  control->Click();
  return "";
}

std::string ScreenActions::DblClick(const Target& target, const std::vector<std::string>& args) {
  Control* control = target.control;
  if (auto* list = dynamic_cast<ListControl*>(control); list && args.size() > target.nextArg) {
    std::string error;
    int index = ListEntry(*list, Rest(args, target.nextArg), true, error);
    if (index < 0) return error;
    list->SetListIndex(index);
  }
  if (!control->HasDblClickHandler())
    return "no double-click handler for " + control->DisplayName();
  control->DblClick();
  return "";
}

std::string ScreenActions::Set(const Target& target, const std::vector<std::string>& args) {
  Control* control = target.control;
  std::string value = Rest(args, target.nextArg);
  if (auto* text = dynamic_cast<TextBox*>(control)) {
    if (text->Locked()) return text->DisplayName() + " is locked";
    text->GotFocus();
    text->SetText(value);
    text->LostFocus();
    return "";
  }
  if (auto* box = dynamic_cast<CheckBox*>(control)) {
    if (value != "0" && value != "1" && value != "2")
      return "set " + box->DisplayName() + ": the value must be 0, 1 or 2";
    box->SetValue(value[0] - '0');
    return "";
  }
  if (auto* combo = dynamic_cast<ComboBox*>(control)) {
    if (combo->Editable()) {
      combo->SetText(value);
      return "";
    }
    return Select(target, args);
  }
  return "cannot set a " + ControlKindName(control->Kind()) + " (" + control->DisplayName() + ")";
}

std::string ScreenActions::Select(const Target& target, const std::vector<std::string>& args) {
  auto* list = dynamic_cast<ListControl*>(target.control);
  if (!list)
    return "cannot select in a " + ControlKindName(target.control->Kind()) + " (" +
           target.control->DisplayName() + ")";
  if (args.size() <= target.nextArg) return "select " + list->DisplayName() + ": which entry?";
  std::string error;
  int index = ListEntry(*list, Rest(args, target.nextArg), false, error);
  if (index < 0) return error;
  list->SetListIndex(index);
  return "";
}

std::string ScreenActions::SelectTab(TabControl& tabs, const std::string& page) {
  if (!IsNumber(page)) return tabs.Name() + ": no page " + page;
  int index = std::stoi(page);
  if (index < 0 || index >= tabs.TabCount()) return tabs.Name() + " has no page " + page;
  if (!tabs.TabVisible(index)) return "page " + page + " of " + tabs.Name() + " is hidden";
  if (!tabs.TabEnabled(index)) return "page " + page + " of " + tabs.Name() + " is disabled";
  tabs.SetTab(index);
  return "";
}

bool ScreenActions::IsOpen() const {
  return isOpen_ ? isOpen_() : model_.frmMain.IsLoaded();
}

bool ScreenActions::IsVisible() const {
  return isVisible_ ? isVisible_() : model_.frmMain.IsShown();
}

void ScreenActions::RequestClose() {
  if (close_)
    close_();
  else
    model_.frmMain.RequestClose();
}

void ScreenActions::RequestSystemClose() {
  model_.frmMain.RequestSystemClose();
}

std::string ScreenActions::TakeFocusRequest() {
  std::string asked;
  for (const Form* form : model_.Forms()) {
    const FocusRequest& focus = form->Focus();
    unsigned long& seen = focusSeen_[form];
    if (focus.revision == seen) continue;
    seen = focus.revision;
    if (focus.control != nullptr) asked = focus.control->DisplayName();
  }
  return asked;
}

std::string ScreenActions::StatusText() const {
  const MainForm& main = model_.frmMain;
  std::string out;
  for (const Label* label : std::initializer_list<const Label*>{
           &main.lblStatus, &main.lblProgress(1), &main.lblProgress(2)}) {
    if (!label->Visible() || label->Caption().empty()) continue;
    if (!out.empty()) out += " | ";
    out += StripAccessKeys(label->Caption());
  }
  return out;
}

}  // namespace tolmen
