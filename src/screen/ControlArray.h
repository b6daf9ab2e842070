// A control array: controls of one kind sharing one name, told apart by an index that need not
// be contiguous (the File menu uses 0, 1, 2, 20, 21, ...). The array's click handler receives the
// index of the member that was clicked, as the classic `Sub mnuFile_Click(Index As Integer)` did.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "screen/Control.h"

namespace tolmen {

class ControlArrayBase {
 public:
  explicit ControlArrayBase(std::string name) : name_(std::move(name)) {}
  virtual ~ControlArrayBase() = default;
  ControlArrayBase(const ControlArrayBase&) = delete;
  ControlArrayBase& operator=(const ControlArrayBase&) = delete;

  const std::string& Name() const { return name_; }
  // The member at `index`, or nullptr.
  virtual Control* Member(int index) const = 0;
  // The indexes in rising order.
  virtual std::vector<int> Indexes() const = 0;
  // The first member whose caption matches (see CaptionMatches), or nullptr.
  Control* FindByCaption(const std::string& caption) const;
  // Puts the members, present and future, on a page of a tab control.
  void SetPage(const TabControl& tabs, int page) {
    pageOwner_ = &tabs;
    page_ = page;
    for (int index : Indexes()) Member(index)->SetPage(tabs, page);
  }
  // Hands the form's focus request to the members, present and future.
  void SetFocusRequest(FocusRequest* request) {
    focusRequest_ = request;
    for (int index : Indexes()) Member(index)->SetFocusRequest(request);
  }

 protected:
  const TabControl* pageOwner_ = nullptr;
  int page_ = -1;
  FocusRequest* focusRequest_ = nullptr;

 private:
  std::string name_;
};

template <typename T>
class ControlArray : public ControlArrayBase {
 public:
  using IndexHandler = std::function<void(int index)>;

  explicit ControlArray(std::string name) : ControlArrayBase(std::move(name)) {}

  // Adds a member (the classic Load statement); the index must be free.
  template <typename... Args>
  T& Add(int index, Args&&... args) {
    if (members_.count(index))
      throw RuntimeError(360,
                         "Object already loaded: " + Name() + "(" + std::to_string(index) + ")");
    auto member = std::make_unique<T>(Name(), std::forward<Args>(args)...);
    T& added = *member;
    static_cast<Control&>(added).index_ = index;
    members_[index] = std::move(member);
    if (pageOwner_) added.SetPage(*pageOwner_, page_);
    added.SetFocusRequest(focusRequest_);
    InstallClick(added);
    Adopt(added);
    return added;
  }

  // The member at `index`; error 340 when there is none.
  T& Item(int index) const {
    auto found = members_.find(index);
    if (found == members_.end())
      throw RuntimeError(340,
                         "Control array element '" + std::to_string(index) + "' doesn't exist");
    return *found->second;
  }
  T& operator()(int index) const { return Item(index); }
  bool Has(int index) const { return members_.count(index) != 0; }
  int Count() const { return static_cast<int>(members_.size()); }
  int LBound() const { return members_.empty() ? 0 : members_.begin()->first; }
  int UBound() const { return members_.empty() ? -1 : members_.rbegin()->first; }

  Control* Member(int index) const override {
    auto found = members_.find(index);
    return found == members_.end() ? nullptr : found->second.get();
  }
  std::vector<int> Indexes() const override {
    std::vector<int> indexes;
    for (const auto& entry : members_) indexes.push_back(entry.first);
    return indexes;
  }

  // One handler for every member, present and future, told the member's index.
  void SetOnClick(IndexHandler handler) {
    onClick_ = std::move(handler);
    for (auto& entry : members_) InstallClick(*entry.second);
  }
  bool HasClickHandler() const { return static_cast<bool>(onClick_); }

 protected:
  // Lets a derived array wire up a new member.
  virtual void Adopt(T&) {}

 private:
  void InstallClick(T& member) {
    if (!onClick_) return;
    int index = member.Index();
    member.SetOnClick([this, index] { onClick_(index); });
  }

  std::map<int, std::unique_ptr<T>> members_;
  IndexHandler onClick_;
};

}  // namespace tolmen
