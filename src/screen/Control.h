// The common part of every control of the screen model: its name (and index inside a control
// array), the Enabled and Visible states, the click and double-click handlers, and a revision
// number that a front-end compares to know which controls changed since it last looked.
//
// Events follow the classic controls: code that changes a value (a check box's value, a list's
// index, an option button switched on, a tab selected) raises the control's click event exactly
// as a user's click does, and only when the value really changes. A handler that sets its own
// control to a new value therefore runs again inside itself; one that sets the value it already
// has does not. Unbounded re-entry ends with error 28 "Out of stack space", as it did.
//
// Misuse of a control (an index outside a list, a value a property does not take) throws the
// RuntimeError the classic control raised: 5, 340 (no such member of a control array), 360 (a
// member loaded twice), 380, 381 and 383; a form's error path catches it like any other.
#pragma once

#include <functional>
#include <string>

#include "runtime/RuntimeError.h"

namespace tolmen {

class TabControl;
class Control;

// The control code last asked for the focus on a form; `revision` counts the requests, so that a
// front-end moves the focus only when code asked for it.
struct FocusRequest {
  const Control* control = nullptr;
  unsigned long revision = 0;
};

enum class ControlKind {
  Animation,
  Button,
  CheckBox,
  ComboBox,
  Image,
  Label,
  ListBox,
  MenuItem,
  OptionButton,
  ProgressBar,
  TabControl,
  TextBox,
};

// "check box", "list box", ... for messages.
std::string ControlKindName(ControlKind kind);

class Control {
 public:
  using Handler = std::function<void()>;

  Control(std::string name, ControlKind kind) : name_(std::move(name)), kind_(kind) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name_; }
  // The index inside a control array, -1 for a control of its own.
  int Index() const { return index_; }
  // "cmdNext", or "mnuFile(40)" for a member of an array.
  std::string DisplayName() const;
  ControlKind Kind() const { return kind_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool on);
  bool Visible() const { return visible_; }
  void SetVisible(bool on);
  // The tip shown while the pointer rests on the control.
  const std::string& ToolTipText() const { return toolTip_; }
  void SetToolTipText(const std::string& text);

  // The tab page the control sits on, if any: a user cannot reach it while that page is hidden,
  // disabled or not the one showing.
  const TabControl* PageOwner() const { return pageOwner_; }
  int Page() const { return page_; }
  void SetPage(const TabControl& tabs, int page) {
    pageOwner_ = &tabs;
    page_ = page;
  }

  void SetOnClick(Handler handler) { onClick_ = std::move(handler); }
  bool HasClickHandler() const { return static_cast<bool>(onClick_); }
  void SetOnDblClick(Handler handler) { onDblClick_ = std::move(handler); }
  bool HasDblClickHandler() const { return static_cast<bool>(onDblClick_); }
  // Raise the events as a user's click or double click does. Nothing happens without a handler.
  void Click() { Raise(onClick_); }
  void DblClick() { Raise(onDblClick_); }

  // Raised by every change a front-end shows.
  unsigned long Revision() const { return revision_; }

  // Asks for the focus: the form's focus request names this control (nothing happens for a
  // control on no form).
  void SetFocus();
  void SetFocusRequest(FocusRequest* request) { focusRequest_ = request; }

 protected:
  void Changed() { ++revision_; }
  // Runs a handler under the re-entry guard.
  void Raise(const Handler& handler);

 private:
  template <typename T>
  friend class ControlArray;

  std::string name_;
  ControlKind kind_;
  int index_ = -1;
  bool enabled_ = true;
  bool visible_ = true;
  std::string toolTip_;
  const TabControl* pageOwner_ = nullptr;
  int page_ = -1;
  Handler onClick_;
  Handler onDblClick_;
  int eventDepth_ = 0;
  unsigned long revision_ = 0;
  FocusRequest* focusRequest_ = nullptr;
};

// A control with a caption: buttons, check boxes, labels, option buttons, menu items. An
// ampersand marks the access key; "&&" stands for an ampersand itself.
class CaptionedControl : public Control {
 public:
  CaptionedControl(std::string name, ControlKind kind, std::string caption = "")
      : Control(std::move(name), kind), caption_(std::move(caption)) {}
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

 private:
  std::string caption_;
};

// The text a caption shows: access-key ampersands dropped, "&&" shown as one "&".
std::string StripAccessKeys(const std::string& caption);

// Compares captions as a user types them: without regard to case, and when that fails also
// without the access-key ampersands ("Save Template..." finds "&Save Template...").
bool CaptionMatches(const std::string& caption, const std::string& wanted);

}  // namespace tolmen
