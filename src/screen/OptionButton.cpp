#include "screen/OptionButton.h"

namespace tolmen {

void OptionButton::Store(bool on) {
  if (value_ == on) return;
  value_ = on;
  Changed();
}

void OptionButton::SetValue(bool on) {
  if (value_ == on) return;
  if (on && group_) group_->SwitchOthersOff(*this);
  Store(on);
  if (on) Click();
}

int OptionArray::Value() const {
  for (int index : Indexes())
    if (Item(index).Value()) return index;
  return -1;
}

void OptionArray::SwitchOthersOff(const OptionButton& on) {
  for (int index : Indexes()) {
    OptionButton& button = Item(index);
    if (&button != &on) button.Store(false);
  }
}

}  // namespace tolmen
