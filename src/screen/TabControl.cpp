#include "screen/TabControl.h"

namespace tolmen {

int TabControl::AddTab(const std::string& caption) {
  pages_.push_back(Page{caption, true, true});
  Changed();
  return TabCount() - 1;
}

void TabControl::SetTab(int index) {
  if (index < 0 || index >= TabCount()) throw RuntimeError(380);
  if (index == tab_) return;
  previousTab_ = tab_;
  tab_ = index;
  Changed();
  Click();
}

TabControl::Page& TabControl::At(int index) {
  if (index < 0 || index >= TabCount()) throw RuntimeError(381);
  return pages_[static_cast<size_t>(index)];
}

const TabControl::Page& TabControl::At(int index) const {
  if (index < 0 || index >= TabCount()) throw RuntimeError(381);
  return pages_[static_cast<size_t>(index)];
}

const std::string& TabControl::TabCaption(int index) const {
  return At(index).caption;
}

void TabControl::SetTabCaption(int index, const std::string& caption) {
  Page& page = At(index);
  if (page.caption == caption) return;
  page.caption = caption;
  Changed();
}

bool TabControl::TabVisible(int index) const {
  return At(index).visible;
}

void TabControl::SetTabVisible(int index, bool on) {
  Page& page = At(index);
  if (page.visible == on) return;
  page.visible = on;
  Changed();
}

bool TabControl::TabEnabled(int index) const {
  return At(index).enabled;
}

void TabControl::SetTabEnabled(int index, bool on) {
  Page& page = At(index);
  if (page.enabled == on) return;
  page.enabled = on;
  Changed();
}

}  // namespace tolmen
