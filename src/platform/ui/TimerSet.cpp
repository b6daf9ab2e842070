// The registered timers of a headless front-end and when each is next due.
#include "platform/ui/TimerSet.h"

#include <algorithm>

namespace tolmen {

namespace {
constexpr double kMillisecondsPerDay = 86400000.0;
// A timer counts as due this close before its moment: a clock moved on by the time to wait can
// land a rounding step short of it.
constexpr double kSlack = 1e-10;  // about 9 microseconds
}  // namespace

void TimerSet::Add(Timer& timer, double now) {
  if (Find(&timer) != nullptr) return;
  Entry entry{&timer, timer.Active(), timer.Interval(),
              now + timer.Interval() / kMillisecondsPerDay};
  entries_.push_back(entry);
}

void TimerSet::Remove(Timer& timer) {
  std::erase_if(entries_, [&](const Entry& e) { return e.timer == &timer; });
}

bool TimerSet::Contains(const Timer& timer) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [&](const Entry& e) { return e.timer == &timer; });
}

bool TimerSet::AnyActive(const Filter& filter) const {
  return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& e) {
    return e.timer->Active() && (!filter || filter(*e.timer));
  });
}

void TimerSet::Sync(Entry& entry, double now) {
  bool active = entry.timer->Active();
  int interval = entry.timer->Interval();
  if (active == entry.active && interval == entry.interval) return;
  if (active) entry.due = now + interval / kMillisecondsPerDay;
  entry.active = active;
  entry.interval = interval;
}

TimerSet::Entry* TimerSet::Find(const Timer* timer) {
  for (Entry& e : entries_)
    if (e.timer == timer) return &e;
  return nullptr;
}

void TimerSet::Look(double now) {
  for (Entry& e : entries_) Sync(e, now);
}

std::optional<double> TimerSet::NextDue(double now, const Filter& filter) {
  std::optional<double> next;
  for (Entry& e : entries_) {
    Sync(e, now);
    if (!e.active || (filter && !filter(*e.timer))) continue;
    if (!next || e.due < *next) next = e.due;
  }
  return next;
}

int TimerSet::FireDue(double now, const Filter& filter) {
  return Fire(now, filter, true);
}

int TimerSet::FireAll(double now, const Filter& filter) {
  return Fire(now, filter, false);
}

int TimerSet::Fire(double now, const Filter& filter, bool onlyDue) {
  // Decide on a snapshot first: handlers may change the set while it is being walked.
  std::vector<Timer*> chosen;
  for (Entry& e : entries_) {
    Sync(e, now);
    if (!e.active || (filter && !filter(*e.timer))) continue;
    if (onlyDue && e.due > now + kSlack) continue;
    chosen.push_back(e.timer);
  }
  int fired = 0;
  for (Timer* timer : chosen) {
    Entry* entry = Find(timer);
    if (entry == nullptr) continue;  // unregistered by an earlier handler
    Sync(*entry, now);
    if (!entry->active) continue;  // switched off by an earlier handler
    // Restart the interval before the handler runs, so that a yield inside it does not fire
    // the same tick again.
    entry->due = now + entry->interval / kMillisecondsPerDay;
    timer->Fire();
    ++fired;
  }
  return fired;
}

}  // namespace tolmen
