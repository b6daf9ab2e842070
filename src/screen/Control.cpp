#include "screen/Control.h"

#include "runtime/Cp1252.h"

namespace tolmen {

namespace {

// Deeper than any honest chain of handlers; the classic runtime ran out of stack about here.
constexpr int kMaxEventDepth = 64;

}  // namespace

std::string StripAccessKeys(const std::string& caption) {
  std::string out;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&') {
      if (i + 1 < caption.size() && caption[i + 1] == '&') {
        out += '&';
        ++i;
      }
      continue;
    }
    out += caption[i];
  }
  return out;
}

std::string ControlKindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Animation:
      return "animation";
    case ControlKind::Button:
      return "button";
    case ControlKind::CheckBox:
      return "check box";
    case ControlKind::ComboBox:
      return "combo box";
    case ControlKind::Image:
      return "image";
    case ControlKind::Label:
      return "label";
    case ControlKind::ListBox:
      return "list box";
    case ControlKind::MenuItem:
      return "menu item";
    case ControlKind::OptionButton:
      return "option button";
    case ControlKind::ProgressBar:
      return "progress bar";
    case ControlKind::TabControl:
      return "tab control";
    case ControlKind::TextBox:
      return "text box";
  }
  return "control";
}

std::string Control::DisplayName() const {
  if (index_ < 0) return name_;
  return name_ + "(" + std::to_string(index_) + ")";
}

void Control::SetEnabled(bool on) {
  if (enabled_ == on) return;
  enabled_ = on;
  Changed();
}

void Control::SetVisible(bool on) {
  if (visible_ == on) return;
  visible_ = on;
  Changed();
}

void Control::SetToolTipText(const std::string& text) {
  if (toolTip_ == text) return;
  toolTip_ = text;
  Changed();
}

void Control::SetFocus() {
  if (focusRequest_ == nullptr) return;
  focusRequest_->control = this;
  ++focusRequest_->revision;
}

void Control::Raise(const Handler& handler) {
  if (!handler) return;
  if (eventDepth_ >= kMaxEventDepth) throw RuntimeError(28);
  struct Depth {
    int& depth;
    explicit Depth(int& d) : depth(d) { ++depth; }
    ~Depth() { --depth; }
  } guard(eventDepth_);
  // A copy, so that a handler may replace itself while it runs.
  Handler run = handler;
  run();
}

void CaptionedControl::SetCaption(const std::string& caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Changed();
}

bool CaptionMatches(const std::string& caption, const std::string& wanted) {
  if (EqualsNoCase(caption, wanted)) return true;
  return EqualsNoCase(StripAccessKeys(caption), StripAccessKeys(wanted));
}

}  // namespace tolmen
