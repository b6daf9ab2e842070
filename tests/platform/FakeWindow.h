// A main window for front-end tests: records the actions it is handed and lets a test decide
// what each one does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ui/Ui.h"

namespace tolmen::testing {

class FakeWindow : public WindowModel {
 public:
  std::string Perform(const UiAction& action) override {
    performed.push_back(action);
    return onPerform ? onPerform(action) : "";
  }
  bool IsOpen() const override { return open; }
  bool IsVisible() const override { return visible; }
  void RequestClose() override {
    ++closeRequests;
    if (!refuseClose) open = false;
  }
  std::string StatusText() const override { return status; }

  std::vector<UiAction> performed;
  std::function<std::string(const UiAction&)> onPerform;
  bool open = true;
  bool visible = true;
  bool refuseClose = false;
  int closeRequests = 0;
  std::string status;
};

}  // namespace tolmen::testing
