// List box and combo box: items with text and item data, the list index (-1 for none), sorted
// insertion, multi-selection for list boxes, tab stops for list boxes with columns, and the
// combo box's text.
//
// Indexes count from 0. Setting ListIndex raises the click event when it changes, as a user's
// click does; AddItem, RemoveItem and Clear raise nothing. The selection follows its item when
// items are inserted or removed before it; removing the selected item leaves no selection.
#pragma once

#include <string>
#include <vector>

#include "screen/Control.h"

namespace tolmen {

struct ListItem {
  std::string text;
  long itemData = 0;
  bool selected = false;  // multi-selection lists only
};

class ListControl : public Control {
 public:
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::vector<ListItem>& Items() const { return items_; }

  int ListIndex() const { return listIndex_; }
  // -1 .. ListCount()-1, else error 380. Raises the click event when it changes.
  virtual void SetListIndex(int index);

  // The text of item `index`; "" outside the list, as the classic List property gave.
  std::string List(int index) const;
  // Error 381 outside the list.
  void SetList(int index, const std::string& text);
  long ItemData(int index) const;
  void SetItemData(int index, long data);

  // Adds an item at the end, at its sorted place, or at `index` (0..ListCount(), else error 5).
  // Returns the new item's index, which NewIndex() keeps.
  int AddItem(const std::string& text, int index = -1);
  // Error 5 outside the list.
  void RemoveItem(int index);
  void Clear();
  int NewIndex() const { return newIndex_; }

  // Sorted lists keep their items in order without regard to case.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool on) { sorted_ = on; }

  // The index of the first item with this text, compared without regard to case; -1 if none.
  int FindItem(const std::string& text) const;

 protected:
  ListControl(std::string name, ControlKind kind) : Control(std::move(name), kind) {}
  std::vector<ListItem>& MutableItems() { return items_; }
  void CheckIndex(int index, int number) const;
  // Sets the index without an event; true when it changed.
  bool StoreListIndex(int index);
  // Called after ListIndex changed, before the click event.
  virtual void ListIndexChanged() {}

 private:
  std::vector<ListItem> items_;
  int listIndex_ = -1;
  int newIndex_ = -1;
  bool sorted_ = false;
};

class ListBox : public ListControl {
 public:
  // 0 one item at a time, 1 simple (each click toggles), 2 extended (shift and control keys).
  enum MultiSelectMode { kSingle = 0, kSimple = 1, kExtended = 2 };

  explicit ListBox(std::string name) : ListControl(std::move(name), ControlKind::ListBox) {}

  int MultiSelect() const { return multiSelect_; }
  void SetMultiSelect(int mode) { multiSelect_ = mode; }
  // In a single-selection list, item `index` is selected when it is the ListIndex.
  bool Selected(int index) const;
  // Single selection: selecting sets ListIndex, deselecting the ListIndex clears it. Multiple:
  // the item's own mark, with a click event when it changes. Error 381 outside the list.
  void SetSelected(int index, bool on);
  int SelCount() const;
  // In a multi-selection list, also selects the item.
  void SetListIndex(int index) override;

  // Column positions in dialog units (a quarter of the average character width).
  const std::vector<int>& TabStops() const { return tabStops_; }
  void SetTabStops(const std::vector<int>& stops);

 private:
  int multiSelect_ = kSingle;
  std::vector<int> tabStops_;
};

// Style 0 is a drop-down combo with a text of its own; style 2 a drop-down list whose text is
// the selected item's.
class ComboBox : public ListControl {
 public:
  enum Style { kDropdownCombo = 0, kDropdownList = 2 };

  explicit ComboBox(std::string name, int style = kDropdownList)
      : ListControl(std::move(name), ControlKind::ComboBox), style_(style) {}
  int ComboStyle() const { return style_; }
  bool Editable() const { return style_ != kDropdownList; }

  std::string Text() const;
  // Drop-down combo: the text itself (raising Change), and the ListIndex of the item of that
  // text, without a click. Drop-down list: selects the item of that text (raising click), and an
  // unknown text is error 383.
  void SetText(const std::string& text);
  void SetOnChange(Handler handler) { onChange_ = std::move(handler); }

 protected:
  void ListIndexChanged() override;

 private:
  int style_;
  std::string text_;
  Handler onChange_;
};

}  // namespace tolmen
