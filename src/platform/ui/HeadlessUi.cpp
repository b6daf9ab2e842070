// What the console and script front-ends share.
#include "platform/ui/HeadlessUi.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "runtime/SystemPath.h"

namespace tolmen {

namespace {

constexpr int kMinuteMs = 60000;

bool IsShortTimer(const Timer& timer) {
  return timer.Interval() < kMinuteMs;
}

}  // namespace

HeadlessUi::HeadlessUi(Clock& clock, std::string defaultTitle)
    : clock_(clock), defaultTitle_(std::move(defaultTitle)) {}

void HeadlessUi::RegisterTimer(Timer& timer) {
  timers_.Add(timer, clock_.Now());
}

void HeadlessUi::UnregisterTimer(Timer& timer) {
  timers_.Remove(timer);
}

void HeadlessUi::Wait(double seconds) {
  timers_.Look(clock_.Now());
  clock_.Sleep(seconds);
  Yield(0);
}

bool HeadlessUi::PollSystemClose() {
  if (systemCloseFd_ < 0) return false;
  bool asked = false;
  char bytes[16];
  while (read(systemCloseFd_, bytes, sizeof bytes) > 0) asked = true;
  if (asked && window_ != nullptr) window_->RequestSystemClose();
  return asked;
}

void HeadlessUi::SleepUnlessClosing(double seconds) {
  if (clock_.IsVirtual() || systemCloseFd_ < 0) return clock_.Sleep(seconds);
  const double end = clock_.Now() + seconds / 86400.0;
  for (;;) {
    const int ms = static_cast<int>(std::ceil(std::max(0.0, (end - clock_.Now()) * 86400000.0)));
    pollfd ready{systemCloseFd_, POLLIN, 0};
    // Another signal cuts the wait short too; it goes on for the rest of the time.
    if (ms <= 0 || poll(&ready, 1, ms) >= 0) return;
  }
}

bool HeadlessUi::AnimationOpen(const std::string& path) {
  AnimationClose();
  std::ifstream clip(SystemPath(path), std::ios::binary);
  if (!clip.good()) return false;
  animationPath_ = path;
  return true;
}

void HeadlessUi::AnimationClose() {
  animationPath_.clear();
  animationPlaying_ = false;
}

std::string HeadlessUi::TitleOr(const std::string& title) const {
  return title.empty() ? defaultTitle_ : title;
}

void HeadlessUi::RunDueTimers(bool minuteTimersToo) {
  if (clock_.IsVirtual()) {
    std::optional<double> next = timers_.NextDue(clock_.Now(), IsShortTimer);
    if (!next) return;
    double now = clock_.Now();
    if (*next > now) clock_.Sleep((*next - now) * 86400.0);
    timers_.FireDue(clock_.Now(), IsShortTimer);
  } else if (minuteTimersToo) {
    timers_.FireDue(clock_.Now());
  } else {
    timers_.FireDue(clock_.Now(), IsShortTimer);
  }
}

std::string HeadlessUi::NoteTray(bool shown, const std::string& tip) {
  std::string kept = tip;
  while (!kept.empty() && (kept.back() == ' ' || kept.back() == '\0')) kept.pop_back();
  trayShown_ = shown;
  trayTip_ = shown ? kept : "";
  return kept;
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  if (text.empty()) return lines;
  std::string line;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\r' || c == '\n') {
      lines.push_back(line);
      line.clear();
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      line += c;
    }
  }
  lines.push_back(line);
  return lines;
}

}  // namespace tolmen
