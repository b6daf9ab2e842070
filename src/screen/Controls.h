// The simple controls of the screen model: button, check box, text box, label, progress bar,
// image and animation. Lists, option buttons, menus and the tab control have files of their own.
#pragma once

#include <string>

#include "screen/Control.h"

namespace tolmen {

// Colours as the classic runtime held them: 0x00BBGGRR, or a system colour with the top bit set.
constexpr long vbBlack = 0x000000;
constexpr long vbRed = 0x0000FF;
constexpr long vbWhite = 0xFFFFFF;
constexpr long vbButtonFace = static_cast<long>(0x8000000F);
constexpr long vbButtonText = static_cast<long>(0x80000012);
// True for the system colours, which a front-end takes from its own palette.
inline bool IsSystemColor(long color) {
  return (color & 0x80000000L) != 0;
}

class Button : public CaptionedControl {
 public:
  explicit Button(std::string name, std::string caption = "")
      : CaptionedControl(std::move(name), ControlKind::Button, std::move(caption)) {}
  // The button Enter presses.
  bool Default() const { return default_; }
  void SetDefault(bool on);

 private:
  bool default_ = false;
};

// Value 0 unchecked, 1 checked, 2 grayed.
class CheckBox : public CaptionedControl {
 public:
  explicit CheckBox(std::string name, std::string caption = "")
      : CaptionedControl(std::move(name), ControlKind::CheckBox, std::move(caption)) {}
  int Value() const { return value_; }
  // Raises the click event when the value changes; error 380 for a value other than 0, 1, 2.
  void SetValue(int value);
  // A user's click: a checked box is cleared, any other becomes checked.
  void Toggle() { SetValue(value_ == 1 ? 0 : 1); }

 private:
  int value_ = 0;
};

// A text box. Change runs when the text changes (from code or typing); GotFocus and LostFocus
// when the user enters and leaves it. SelStart places the caret.
class TextBox : public Control {
 public:
  explicit TextBox(std::string name, std::string text = "")
      : Control(std::move(name), ControlKind::TextBox), text_(std::move(text)) {}
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);
  bool MultiLine() const { return multiLine_; }
  void SetMultiLine(bool on) { multiLine_ = on; }
  bool Locked() const { return locked_; }
  void SetLocked(bool on);
  // A password box shows this character in place of each one typed; empty for a plain box.
  const std::string& PasswordChar() const { return passwordChar_; }
  void SetPasswordChar(const std::string& shown) { passwordChar_ = shown; }
  int SelStart() const { return selStart_; }
  void SetSelStart(int position);
  // Counts SetSelStart calls, so that a front-end moves its caret only when code asked for it.
  unsigned long SelStartRevision() const { return selStartRevision_; }

  void SetOnChange(Handler handler) { onChange_ = std::move(handler); }
  void SetOnGotFocus(Handler handler) { onGotFocus_ = std::move(handler); }
  void SetOnLostFocus(Handler handler) { onLostFocus_ = std::move(handler); }
  void GotFocus() { Raise(onGotFocus_); }
  void LostFocus() { Raise(onLostFocus_); }

 private:
  std::string text_;
  bool multiLine_ = false;
  bool locked_ = false;
  std::string passwordChar_;
  int selStart_ = 0;
  unsigned long selStartRevision_ = 0;
  Handler onChange_;
  Handler onGotFocus_;
  Handler onLostFocus_;
};

// A label. Its caption shows "&&" as one ampersand, as the classic label did.
class Label : public CaptionedControl {
 public:
  explicit Label(std::string name, std::string caption = "")
      : CaptionedControl(std::move(name), ControlKind::Label, std::move(caption)) {}
  long ForeColor() const { return foreColor_; }
  void SetForeColor(long color);
  long BackColor() const { return backColor_; }
  void SetBackColor(long color);

 private:
  long foreColor_ = vbButtonText;
  long backColor_ = vbButtonFace;
};

// A progress bar. Values outside Min..Max are kept as set; a front-end draws them at the nearer
// end, so that a list that grows during a run never stops it.
class ProgressBar : public Control {
 public:
  explicit ProgressBar(std::string name) : Control(std::move(name), ControlKind::ProgressBar) {}
  double Min() const { return min_; }
  void SetMin(double value);
  double Max() const { return max_; }
  void SetMax(double value);
  double Value() const { return value_; }
  void SetValue(double value);

 private:
  double min_ = 0;
  double max_ = 100;
  double value_ = 0;
};

// A picture; the model only knows whether it shows. Its double click is an event.
class Image : public Control {
 public:
  explicit Image(std::string name) : Control(std::move(name), ControlKind::Image) {}
};

// The animation of the Transfer page. The clip itself is opened, played and stopped through the
// Ui (AnimationOpen, AnimationPlay, ...); the model holds only where it shows.
class Animation : public Control {
 public:
  explicit Animation(std::string name) : Control(std::move(name), ControlKind::Animation) {}
};

}  // namespace tolmen
