#include "screen/ScreenModel.h"

#include "runtime/Cp1252.h"

namespace tolmen {

Form* ScreenModel::FindForm(const std::string& name) {
  for (Form* form : Forms())
    if (EqualsNoCase(form->Name(), name)) return form;
  return nullptr;
}

Form* ScreenModel::ActiveForm() {
  for (Form* form : Forms())
    if (form != &frmMain && form->IsModal()) return form;
  return &frmMain;
}

ControlRef ScreenModel::Lookup(const std::string& name) {
  std::vector<Form*> order;
  std::string bare = name;
  size_t dot = name.find('.');
  if (dot != std::string::npos) {
    Form* form = FindForm(name.substr(0, dot));
    if (!form) return {};
    order.push_back(form);
    bare = name.substr(dot + 1);
  } else {
    order.push_back(ActiveForm());
    for (Form* form : Forms())
      if (form != order.front()) order.push_back(form);
  }
  for (Form* form : order) {
    if (Control* control = form->Find(bare)) return ControlRef{form, control, nullptr};
    if (ControlArrayBase* array = form->FindArray(bare)) return ControlRef{form, nullptr, array};
  }
  return {};
}

Control* ScreenModel::Find(const std::string& name, int index) {
  ControlRef ref = Lookup(name);
  if (index < 0) return ref.control;
  return ref.array ? ref.array->Member(index) : nullptr;
}

ControlArrayBase* ScreenModel::FindArray(const std::string& name) {
  return Lookup(name).array;
}

Control* ScreenModel::FindByCaption(const std::string& arrayName, const std::string& caption) {
  ControlArrayBase* array = FindArray(arrayName);
  return array ? array->FindByCaption(caption) : nullptr;
}

}  // namespace tolmen
