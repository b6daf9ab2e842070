// What the three forms share: name and caption, the loaded and shown states, the close request,
// the menu bar, and the lookup of their controls by name.
//
// A form's controls are its public members under their own names. Each is registered once in
// the form's constructor, so that a front-end and the script actions can find it by name:
// adding a control is one member line and one Register line.
//
// Life of a form, as with the classic forms: Show() loads a form that is not loaded (running its
// load handler) and shows it; Hide() only hides it; Unload() hides it and marks it not loaded
// (running its unload handler). RequestClose() is the window's close box: it runs the close
// handler when one is set, otherwise it unloads. RequestSystemClose() is the same close asked by
// the end of the desktop session.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "screen/Control.h"
#include "screen/ControlArray.h"
#include "screen/Menu.h"

namespace tolmen {

class Form {
 public:
  using Handler = std::function<void()>;

  Form(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

  bool IsLoaded() const { return loaded_; }
  bool IsShown() const { return shown_; }
  // A modal form takes every user action until it is hidden.
  bool IsModal() const { return shown_ && modal_; }
  void Load();
  void Show(bool modal = false);
  void Hide();
  void Unload();
  void RequestClose();
  // The close the desktop session's end asks for: its own handler when one is set, else the
  // close box's.
  void RequestSystemClose();
  void SetOnLoad(Handler handler) { onLoad_ = std::move(handler); }
  void SetOnUnload(Handler handler) { onUnload_ = std::move(handler); }
  void SetOnClose(Handler handler) { onClose_ = std::move(handler); }
  void SetOnSystemClose(Handler handler) { onSystemClose_ = std::move(handler); }

  // Finds a control by name without regard to case: a control of its own when `index` is -1,
  // else the member `index` of a control array. nullptr when there is none.
  Control* Find(const std::string& name, int index = -1) const;
  ControlArrayBase* FindArray(const std::string& name) const;
  // The controls of their own, the arrays, and both with the arrays' members, in the order
  // they were registered.
  const std::vector<Control*>& Controls() const { return controls_; }
  const std::vector<ControlArrayBase*>& Arrays() const { return arrays_; }
  std::vector<Control*> AllControls() const;
  // The top-level menus, left to right.
  const std::vector<MenuItem*>& Menus() const { return menus_; }

  // Raised by changes of the caption and of the loaded and shown states.
  unsigned long Revision() const { return revision_; }
  // The control of this form that code last asked for the focus (Control::SetFocus).
  const FocusRequest& Focus() const { return focus_; }

 protected:
  void Register(Control& control);
  void Register(ControlArrayBase& array);
  // The same, for a control on a page of a tab control.
  void Register(Control& control, const TabControl& tabs, int page);
  void Register(ControlArrayBase& array, const TabControl& tabs, int page);
  // Registers a top-level menu and appends it to the menu bar.
  void RegisterMenu(MenuItem& menu);

 private:
  void CheckFree(const std::string& name) const;

  std::string name_;
  std::string caption_;
  bool loaded_ = false;
  bool shown_ = false;
  bool modal_ = false;
  Handler onLoad_;
  Handler onUnload_;
  Handler onClose_;
  Handler onSystemClose_;
  std::vector<Control*> controls_;
  std::vector<ControlArrayBase*> arrays_;
  std::vector<MenuItem*> menus_;
  std::map<std::string, Control*> controlsByName_;
  std::map<std::string, ControlArrayBase*> arraysByName_;
  unsigned long revision_ = 0;
  FocusRequest focus_;
};

}  // namespace tolmen
