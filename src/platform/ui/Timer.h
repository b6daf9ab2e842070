// A form's timer: an interval in milliseconds, an enabled flag and the handler it runs. The
// front-end in charge makes registered timers tick (see Ui::RegisterTimer).
#pragma once

#include <functional>
#include <string>

namespace tolmen {

class Timer {
 public:
  explicit Timer(std::string name) : name_(std::move(name)) {}
  const std::string& Name() const { return name_; }

  int Interval() const { return interval_; }
  void SetInterval(int milliseconds) { interval_ = milliseconds; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool on) { enabled_ = on; }
  // Ticking: true when enabled with an interval above 0.
  bool Active() const { return enabled_ && interval_ > 0; }

  void SetHandler(std::function<void()> handler) { handler_ = std::move(handler); }
  // Runs the handler once, as an elapsed interval does.
  void Fire() {
    if (handler_) handler_();
  }

 private:
  std::string name_;
  int interval_ = 0;
  bool enabled_ = true;
  std::function<void()> handler_;
};

}  // namespace tolmen
