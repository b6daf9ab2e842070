#include "platform/automation/SpinBudget.h"

#include <algorithm>

namespace tolmen {

namespace {

constexpr int kMaxBackoff = 4096;

}  // namespace

bool SpinBudget::MaySpin() {
  if (skip_ == 0) return true;
  --skip_;
  return false;
}

void SpinBudget::Answered() {
  backoff_ = std::max(backoff_ / 2, 1);
}

void SpinBudget::Missed() {
  backoff_ = std::min(backoff_ * 2, kMaxBackoff);
  skip_ = backoff_;
}

}  // namespace tolmen
