// Menu items and menu arrays. A top-level menu ("&File") and a submenu are menu items too; their
// items are listed in order with AddItem. A caption of "-" makes a separator.
//
// Clicking an item only raises its click event; a tick changes when code sets Checked, as with
// the classic menus.
#pragma once

#include <string>
#include <vector>

#include "screen/ControlArray.h"

namespace tolmen {

class MenuItem : public CaptionedControl {
 public:
  explicit MenuItem(std::string name, std::string caption = "")
      : CaptionedControl(std::move(name), ControlKind::MenuItem, std::move(caption)) {}

  bool Checked() const { return checked_; }
  void SetChecked(bool on);
  bool IsSeparator() const { return Caption() == "-"; }

  // The menu this item sits in (nullptr for a top-level menu).
  MenuItem* Parent() const { return parent_; }
  // The items of this menu, in order. The items must live as long as the menu.
  const std::vector<MenuItem*>& Items() const { return items_; }
  void AddItem(MenuItem& item) {
    item.parent_ = this;
    items_.push_back(&item);
  }
  bool IsMenu() const { return !items_.empty(); }
  // True when this item and every menu above it are enabled and visible.
  bool Reachable() const;

 private:
  bool checked_ = false;
  MenuItem* parent_ = nullptr;
  std::vector<MenuItem*> items_;
};

// A menu array: the File menu's items share the name mnuFile and are told apart by index.
class MenuArray : public ControlArray<MenuItem> {
 public:
  explicit MenuArray(std::string name) : ControlArray<MenuItem>(std::move(name)) {}
  // Adds item `index` and lists it in `menu`, behind the items already there.
  MenuItem& AddTo(MenuItem& menu, int index, const std::string& caption) {
    MenuItem& item = Add(index, caption);
    menu.AddItem(item);
    return item;
  }
};

}  // namespace tolmen
