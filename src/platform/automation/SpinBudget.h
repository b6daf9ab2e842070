// Whether a wait on the automation socket starts by asking for the other end's line without
// sleeping. Asking without sleeping saves the cost of being put to sleep and woken, which on a
// virtual machine is larger than the whole call. It pays only while the other end runs on a
// processor of its own; on a busy machine the asking takes processor time that the other end and
// other programs need, and sleeping is better. So each wait whose asking went unanswered doubles
// the number of waits that go to sleep at once (up to 4096), and each wait answered while asking
// halves it.
#pragma once

namespace tolmen {

class SpinBudget {
 public:
  // True when this wait may start by asking without sleeping.
  bool MaySpin();
  // The line came while asking.
  void Answered();
  // Nothing came while asking: the wait went to sleep after all.
  void Missed();

 private:
  int backoff_ = 1;
  int skip_ = 0;
};

}  // namespace tolmen
