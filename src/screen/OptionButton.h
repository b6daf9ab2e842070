// Option buttons (radio buttons). They come in arrays, and an array is one group: switching a
// member on switches the others off, then raises the click event of the one switched on.
// Switching on a button that is already on raises nothing; switching a button off raises nothing.
#pragma once

#include <string>

#include "screen/ControlArray.h"

namespace tolmen {

class OptionArray;

class OptionButton : public CaptionedControl {
 public:
  explicit OptionButton(std::string name, std::string caption = "")
      : CaptionedControl(std::move(name), ControlKind::OptionButton, std::move(caption)) {}
  bool Value() const { return value_; }
  void SetValue(bool on);

 private:
  friend class OptionArray;
  void Store(bool on);

  OptionArray* group_ = nullptr;
  bool value_ = false;
};

class OptionArray : public ControlArray<OptionButton> {
 public:
  explicit OptionArray(std::string name) : ControlArray<OptionButton>(std::move(name)) {}
  // The index of the button that is on, -1 when none is.
  int Value() const;
  // Switches the button at `index` on (error 340 when there is none).
  void Set(int index) { Item(index).SetValue(true); }

 protected:
  void Adopt(OptionButton& button) override { button.group_ = this; }

 private:
  friend class OptionButton;
  void SwitchOthersOff(const OptionButton& on);
};

}  // namespace tolmen
