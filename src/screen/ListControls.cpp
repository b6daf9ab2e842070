#include "screen/ListControls.h"

#include "runtime/Cp1252.h"

namespace tolmen {

void ListControl::CheckIndex(int index, int number) const {
  if (index < 0 || index >= ListCount()) {
    throw RuntimeError(number);
  }
}

bool ListControl::StoreListIndex(int index) {
  if (index < -1 || index >= ListCount()) throw RuntimeError(380);
  if (index == listIndex_) return false;
  listIndex_ = index;
  Changed();
  return true;
}

void ListControl::SetListIndex(int index) {
  if (!StoreListIndex(index)) return;
  ListIndexChanged();
  Click();
}

std::string ListControl::List(int index) const {
  if (index < 0 || index >= ListCount()) return "";
  return items_[static_cast<size_t>(index)].text;
}

void ListControl::SetList(int index, const std::string& text) {
  CheckIndex(index, 381);
  items_[static_cast<size_t>(index)].text = text;
  Changed();
  if (index == listIndex_) ListIndexChanged();
}

long ListControl::ItemData(int index) const {
  CheckIndex(index, 381);
  return items_[static_cast<size_t>(index)].itemData;
}

void ListControl::SetItemData(int index, long data) {
  CheckIndex(index, 381);
  items_[static_cast<size_t>(index)].itemData = data;
  Changed();
}

int ListControl::AddItem(const std::string& text, int index) {
  if (index < -1 || index > ListCount()) throw RuntimeError(5);
  if (index == -1) {
    index = ListCount();
    if (sorted_) {
      // After every item that sorts before it or equal to it.
      std::string key = UCase(text);
      index = 0;
      while (index < ListCount() && UCase(items_[static_cast<size_t>(index)].text) <= key) ++index;
    }
  }
  items_.insert(items_.begin() + index, ListItem{text, 0, false});
  if (listIndex_ >= index) ++listIndex_;
  newIndex_ = index;
  Changed();
  return index;
}

void ListControl::RemoveItem(int index) {
  CheckIndex(index, 5);
  items_.erase(items_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
    ListIndexChanged();
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  if (newIndex_ >= ListCount()) newIndex_ = -1;
  Changed();
}

void ListControl::Clear() {
  items_.clear();
  listIndex_ = -1;
  newIndex_ = -1;
  ListIndexChanged();
  Changed();
}

int ListControl::FindItem(const std::string& text) const {
  for (size_t i = 0; i < items_.size(); ++i)
    if (EqualsNoCase(items_[i].text, text)) return static_cast<int>(i);
  return -1;
}

bool ListBox::Selected(int index) const {
  CheckIndex(index, 381);
  if (multiSelect_ == kSingle) return index == ListIndex();
  return Items()[static_cast<size_t>(index)].selected;
}

void ListBox::SetSelected(int index, bool on) {
  CheckIndex(index, 381);
  if (multiSelect_ == kSingle) {
    if (on)
      SetListIndex(index);
    else if (index == ListIndex())
      SetListIndex(-1);
    return;
  }
  ListItem& item = MutableItems()[static_cast<size_t>(index)];
  if (item.selected == on) return;
  item.selected = on;
  Changed();
  Click();
}

int ListBox::SelCount() const {
  if (multiSelect_ == kSingle) return ListIndex() >= 0 ? 1 : 0;
  int count = 0;
  for (const ListItem& item : Items()) count += item.selected ? 1 : 0;
  return count;
}

void ListBox::SetListIndex(int index) {
  if (multiSelect_ != kSingle && index >= 0 && index < ListCount()) {
    ListItem& item = MutableItems()[static_cast<size_t>(index)];
    bool marked = !item.selected;
    item.selected = true;
    if (StoreListIndex(index) || marked) {
      Changed();
      Click();
    }
    return;
  }
  ListControl::SetListIndex(index);
}

void ListBox::SetTabStops(const std::vector<int>& stops) {
  if (tabStops_ == stops) return;
  tabStops_ = stops;
  Changed();
}

std::string ComboBox::Text() const {
  if (Editable()) return text_;
  return List(ListIndex());
}

void ComboBox::SetText(const std::string& text) {
  if (!Editable()) {
    int index = FindItem(text);
    if (index < 0) throw RuntimeError(383, "'Text' property is read-only");
    SetListIndex(index);
    return;
  }
  StoreListIndex(FindItem(text));
  if (text == text_) return;
  text_ = text;
  Changed();
  Raise(onChange_);
}

void ComboBox::ListIndexChanged() {
  if (!Editable() || ListIndex() < 0) return;
  std::string text = List(ListIndex());
  if (text == text_) return;
  text_ = text;
  Raise(onChange_);
}

}  // namespace tolmen
