#include "screen/Form.h"

#include <stdexcept>

#include "runtime/Cp1252.h"

namespace tolmen {

void Form::SetCaption(const std::string& caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  ++revision_;
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  ++revision_;
  if (onLoad_) onLoad_();
}

void Form::Show(bool modal) {
  Load();
  if (!loaded_) return;  // the load handler unloaded it again
  if (shown_ && modal_ == modal) return;
  shown_ = true;
  modal_ = modal;
  ++revision_;
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  modal_ = false;
  ++revision_;
}

void Form::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  shown_ = false;
  modal_ = false;
  ++revision_;
  if (onUnload_) onUnload_();
}

void Form::RequestClose() {
  if (onClose_) {
    Handler run = onClose_;
    run();
  } else {
    Unload();
  }
}

void Form::RequestSystemClose() {
  if (!onSystemClose_) return RequestClose();
  Handler run = onSystemClose_;
  run();
}

Control* Form::Find(const std::string& name, int index) const {
  std::string key = UCase(name);
  if (index < 0) {
    auto found = controlsByName_.find(key);
    return found == controlsByName_.end() ? nullptr : found->second;
  }
  auto found = arraysByName_.find(key);
  return found == arraysByName_.end() ? nullptr : found->second->Member(index);
}

ControlArrayBase* Form::FindArray(const std::string& name) const {
  auto found = arraysByName_.find(UCase(name));
  return found == arraysByName_.end() ? nullptr : found->second;
}

std::vector<Control*> Form::AllControls() const {
  std::vector<Control*> all = controls_;
  for (ControlArrayBase* array : arrays_)
    for (int index : array->Indexes()) all.push_back(array->Member(index));
  return all;
}

void Form::CheckFree(const std::string& name) const {
  std::string key = UCase(name);
  if (controlsByName_.count(key) || arraysByName_.count(key))
    throw std::logic_error(name_ + " registers " + name + " twice");
}

void Form::Register(Control& control) {
  CheckFree(control.Name());
  controls_.push_back(&control);
  controlsByName_[UCase(control.Name())] = &control;
  control.SetFocusRequest(&focus_);
}

void Form::Register(ControlArrayBase& array) {
  CheckFree(array.Name());
  arrays_.push_back(&array);
  arraysByName_[UCase(array.Name())] = &array;
  array.SetFocusRequest(&focus_);
}

void Form::Register(Control& control, const TabControl& tabs, int page) {
  control.SetPage(tabs, page);
  Register(control);
}

void Form::Register(ControlArrayBase& array, const TabControl& tabs, int page) {
  array.SetPage(tabs, page);
  Register(array);
}

void Form::RegisterMenu(MenuItem& menu) {
  Register(menu);
  menus_.push_back(&menu);
}

}  // namespace tolmen
