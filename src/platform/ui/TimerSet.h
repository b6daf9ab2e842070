// The registered timers of a headless front-end and when each is next due.
//
// A `Timer` is a plain object that the forms change at will (interval, enabled), so the set looks
// at every timer each time it is asked: a timer found switched on, or with a new interval, starts
// counting its interval from that moment. Times are date values of the front-end's clock.
//
// Handlers may register, unregister, enable or disable timers, yield, and even re-enter the set
// (a scheduled run yields while its own timer is firing); a timer unregistered by an earlier
// handler of the same round is not fired.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/ui/Timer.h"

namespace tolmen {

class TimerSet {
 public:
  using Filter = std::function<bool(const Timer&)>;

  // REQUIRES: the timer outlives its registration. Registering twice keeps one entry.
  void Add(Timer& timer, double now);
  void Remove(Timer& timer);
  bool Contains(const Timer& timer) const;
  size_t Size() const { return entries_.size(); }

  // True when some registered timer ticks (enabled, interval above 0) and passes the filter.
  bool AnyActive(const Filter& filter = nullptr) const;
  // Takes note of timers switched on, off or to a new interval since the last look.
  void Look(double now);
  // The earliest moment an active timer passing the filter is due, if any.
  std::optional<double> NextDue(double now, const Filter& filter = nullptr);
  // Fires, once each, the active timers passing the filter whose interval has run out by `now`;
  // each then counts its interval anew from `now`. Returns how many fired.
  int FireDue(double now, const Filter& filter = nullptr);
  // Fires every active timer passing the filter at once, whatever its schedule, restarting its
  // interval at `now`. Returns how many fired.
  int FireAll(double now, const Filter& filter);

 private:
  struct Entry {
    Timer* timer;
    bool active;
    int interval;
    double due;
  };
  // Brings an entry up to date with its timer; a change restarts the interval at `now`.
  static void Sync(Entry& entry, double now);
  Entry* Find(const Timer* timer);
  int Fire(double now, const Filter& filter, bool onlyDue);

  std::vector<Entry> entries_;
};

}  // namespace tolmen
