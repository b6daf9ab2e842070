#include "screen/Controls.h"

namespace tolmen {

void Button::SetDefault(bool on) {
  if (default_ == on) return;
  default_ = on;
  Changed();
}

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw RuntimeError(380);
  if (value == value_) return;
  value_ = value;
  Changed();
  Click();
}

void TextBox::SetText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  if (selStart_ > static_cast<int>(text_.size())) selStart_ = static_cast<int>(text_.size());
  Changed();
  Raise(onChange_);
}

void TextBox::SetLocked(bool on) {
  if (locked_ == on) return;
  locked_ = on;
  Changed();
}

void TextBox::SetSelStart(int position) {
  if (position < 0) throw RuntimeError(380);
  int length = static_cast<int>(text_.size());
  selStart_ = position > length ? length : position;
  ++selStartRevision_;
  Changed();
}

void Label::SetForeColor(long color) {
  if (foreColor_ == color) return;
  foreColor_ = color;
  Changed();
}

void Label::SetBackColor(long color) {
  if (backColor_ == color) return;
  backColor_ = color;
  Changed();
}

void ProgressBar::SetMin(double value) {
  if (min_ == value) return;
  min_ = value;
  Changed();
}

void ProgressBar::SetMax(double value) {
  if (max_ == value) return;
  max_ = value;
  Changed();
}

void ProgressBar::SetValue(double value) {
  if (value_ == value) return;
  value_ = value;
  Changed();
}

}  // namespace tolmen
