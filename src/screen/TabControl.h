// A tab control: pages with caption, visible and enabled flags, and the selected page `Tab`.
// Selecting another page, by code or by the user, raises the click event; PreviousTab() then
// tells the page that was selected before. Hiding the selected page leaves it selected: the
// wizard moves away from a page itself before it hides it.
#pragma once

#include <string>
#include <vector>

#include "screen/Control.h"

namespace tolmen {

class TabControl : public Control {
 public:
  struct Page {
    std::string caption;
    bool visible = true;
    bool enabled = true;
  };

  explicit TabControl(std::string name) : Control(std::move(name), ControlKind::TabControl) {}

  // Appends a page; returns its index.
  int AddTab(const std::string& caption);
  int TabCount() const { return static_cast<int>(pages_.size()); }
  const std::vector<Page>& Pages() const { return pages_; }

  int Tab() const { return tab_; }
  // 0 .. TabCount()-1, else error 380. Raises the click event when it changes.
  void SetTab(int index);
  int PreviousTab() const { return previousTab_; }

  // Each of these is error 381 for an index outside the pages.
  const std::string& TabCaption(int index) const;
  void SetTabCaption(int index, const std::string& caption);
  bool TabVisible(int index) const;
  void SetTabVisible(int index, bool on);
  bool TabEnabled(int index) const;
  void SetTabEnabled(int index, bool on);

 private:
  Page& At(int index);
  const Page& At(int index) const;

  std::vector<Page> pages_;
  int tab_ = 0;
  int previousTab_ = 0;
};

}  // namespace tolmen
