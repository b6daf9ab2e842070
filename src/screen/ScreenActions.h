// The main window as the console and script front-ends see it: user actions performed on the
// screen model, the window's open and visible states, its close box, and the status line.
//
// Actions (verbs without regard to case; control names as in ScreenModel::Lookup):
//   click CONTROL [INDEX]    a button, menu item, label or image runs its click handler; a check
//                            box toggles; an option button is switched on; a list or combo box
//                            selects entry INDEX; a tab control selects page INDEX. For a control
//                            array INDEX names the member, by number or by its caption
//                            (`click mnuFile "&Save Template..."`). A number is always an index.
//   dblclick CONTROL [INDEX] the double-click handler (a list selects entry INDEX first).
//   set CONTROL VALUE        a text box's text (entering and leaving the box as a user does), a
//                            check box's value 0, 1 or 2, a combo box's text.
//   select CONTROL TEXT      the list or combo entry with that text (without regard to case), or
//                            "#N" for the entry at index N (counting from 0, as ListIndex does).
//   tab N                    selects page N of frmMain's tabDlg, as a click on it.
//   close                    the main window's close box.
//   tray WHAT                a click on the notification icon; WHAT ("click", "dblclick",
//                            "context", "rdblclick": the left button let go, its double click,
//                            the right button let go, its double click) is handed on to the tray
//                            hook when one is set, else to frmMain as the icon's mouse message.
//
// An action a user could not do is refused with the reason: the control is disabled or not
// visible, sits in a disabled menu or on a page that is not showing, or its form is hidden or
// behind a modal dialog. A click on a control without a handler is refused as "no handler for
// cmdNext", so that a transcript shows it. Value changes (check box, option, list) are done even
// when no handler is attached, since the value is what the user changed.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/ui/Ui.h"
#include "screen/ScreenModel.h"

namespace tolmen {

class ScreenActions : public WindowModel {
 public:
  explicit ScreenActions(ScreenModel& model) : model_(model) {}

  std::string Perform(const UiAction& action) override;
  // Default: frmMain is loaded.
  bool IsOpen() const override;
  // Default: frmMain is shown.
  bool IsVisible() const override;
  // Default: frmMain.RequestClose(), which unloads it unless the form has a close handler.
  void RequestClose() override;
  // frmMain's close as the desktop session ends (Form::RequestSystemClose).
  void RequestSystemClose() override;
  // The last control of any form asked for the focus since the last call.
  std::string TakeFocusRequest() override;
  // The visible, non-empty texts of the status label, the counters and the progress line,
  // joined by " | ", as the labels show them.
  std::string StatusText() const override;

  void SetIsOpenHook(std::function<bool()> hook) { isOpen_ = std::move(hook); }
  void SetIsVisibleHook(std::function<bool()> hook) { isVisible_ = std::move(hook); }
  void SetCloseHook(std::function<void()> hook) { close_ = std::move(hook); }
  void SetTrayHook(std::function<void(const std::vector<std::string>& args)> hook) {
    tray_ = std::move(hook);
  }

  // The control a click, dblclick, set, select or tab names, for a front-end that acts on widgets
  // of its own: `control` with the rest of the arguments in `entry` (the member's entry, the
  // value, the page), or the reason Perform would refuse it in `refusal`. Other verbs name no
  // control: `control` stays nullptr and `refusal` empty.
  struct Located {
    Control* control = nullptr;
    bool hasEntry = false;
    std::string entry;
    std::string refusal;
  };
  Located Locate(const UiAction& action);

 private:
  struct Target {
    Form* form = nullptr;
    Control* control = nullptr;
    size_t nextArg = 1;  // the first argument not used to name the control
    std::string error;
  };

  Target Resolve(const std::vector<std::string>& args);
  std::string Unreachable(const Target& target) const;
  std::string Click(const Target& target, const std::vector<std::string>& args);
  std::string DblClick(const Target& target, const std::vector<std::string>& args);
  std::string Set(const Target& target, const std::vector<std::string>& args);
  std::string Select(const Target& target, const std::vector<std::string>& args);
  std::string SelectTab(TabControl& tabs, const std::string& page);
  std::string TrayMessage(const std::vector<std::string>& args);

  ScreenModel& model_;
  std::function<bool()> isOpen_;
  std::function<bool()> isVisible_;
  std::function<void()> close_;
  std::function<void(const std::vector<std::string>&)> tray_;
  std::map<const Form*, unsigned long> focusSeen_;
};

}  // namespace tolmen
