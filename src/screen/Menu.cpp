#include "screen/Menu.h"

namespace tolmen {

void MenuItem::SetChecked(bool on) {
  if (checked_ == on) return;
  checked_ = on;
  Changed();
}

bool MenuItem::Reachable() const {
  for (const MenuItem* item = this; item; item = item->parent_)
    if (!item->Enabled() || !item->Visible()) return false;
  return true;
}

}  // namespace tolmen
