// The time of day. `RealClock` reads the system's local time; `VirtualClock` stands at a fixed
// moment (TOLMEN_NOW="YYYY-MM-DD HH:MM:SS") and moves only when the system waits, by the time
// waited, without sleeping. Times are date values: days since 30 December 1899, time of day as
// the fraction.
#pragma once

#include <memory>
#include <string>

namespace tolmen {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual double Now() const = 0;
  // Waits: the real clock sleeps, the virtual one moves on.
  virtual void Sleep(double seconds) = 0;
  virtual bool IsVirtual() const = 0;
};

class RealClock final : public Clock {
 public:
  double Now() const override;
  void Sleep(double seconds) override;
  bool IsVirtual() const override { return false; }
};

class VirtualClock final : public Clock {
 public:
  explicit VirtualClock(double now) : now_(now) {}
  double Now() const override { return now_; }
  void Sleep(double seconds) override { now_ += seconds / 86400.0; }
  bool IsVirtual() const override { return true; }
  void Set(double now) { now_ = now; }

 private:
  double now_;
};

// Parses "YYYY-MM-DD HH:MM:SS" (the seconds may be left out); false when the text is no such time.
bool ParseClockTime(const std::string& text, double& value);
// The virtual clock when TOLMEN_NOW is set (a malformed value is reported on stderr and the real
// clock is used), else the real clock.
std::unique_ptr<Clock> MakeClockFromEnvironment();

}  // namespace tolmen
