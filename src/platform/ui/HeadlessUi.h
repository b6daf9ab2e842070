// What the console and script front-ends share: the clock, the default title, the registered
// timers, and the window-system state that has nothing to show without a screen (clipboard, busy
// pointer, animation, tray), kept so that tests can read it.
//
// Timers without a screen: on a real clock a yield fires every timer whose interval has run out.
// On a virtual clock time stands still while the system works, so a yield fires only timers of
// less than a minute, and first moves the clock on to the earliest of them: a loop that yields
// until a one-second timer has ticked is a wait of one second. Minute timers on a virtual clock
// tick only when the front-end says so (the script's @minutes, the console's background loop).
#pragma once

#include <string>

#include "platform/ui/Clock.h"
#include "platform/ui/TimerSet.h"
#include "platform/ui/Ui.h"

namespace tolmen {

class HeadlessUi : public Ui {
 public:
  // REQUIRES: the clock outlives the front-end.
  HeadlessUi(Clock& clock, std::string defaultTitle);

  void RegisterTimer(Timer& timer) override;
  void UnregisterTimer(Timer& timer) override;
  void SetMainWindow(WindowModel* window) override { window_ = window; }
  void WatchSystemClose(int fd) override { systemCloseFd_ = fd; }
  // Sleeps on the clock (a virtual one moves on), then yields. Timers switched on before the
  // wait count from its start.
  void Wait(double seconds) override;

  void SetClipboardText(const std::string& text) override { clipboard_ = text; }
  std::string ClipboardText() override { return clipboard_; }

  bool HasTray() override { return true; }
  void SetBusyPointer(bool busy) override { busy_ = busy; }
  // Opens a clip when the file can be read; nothing is shown.
  bool AnimationOpen(const std::string& path) override;
  void AnimationPlay() override { animationPlaying_ = !animationPath_.empty(); }
  void AnimationStop() override { animationPlaying_ = false; }
  void AnimationClose() override;

  // State for tests and callers that want to know.
  bool BusyPointer() const { return busy_; }
  const std::string& AnimationPath() const { return animationPath_; }  // "" when closed
  bool AnimationPlaying() const { return animationPlaying_; }
  bool TrayShown() const { return trayShown_; }
  const std::string& TrayTip() const { return trayTip_; }
  Clock& GetClock() { return clock_; }
  const TimerSet& Timers() const { return timers_; }

 protected:
  // The title a dialog shows: its own, else the application's name.
  std::string TitleOr(const std::string& title) const;
  // Lets timers tick as a yield does (see the top of this file). `minuteTimersToo` also fires
  // long timers that are due; it is ignored on a virtual clock.
  void RunDueTimers(bool minuteTimersToo);
  // Records a tray call; the tip loses the padding (trailing blanks and NULs) it may carry.
  // Returns the tip as kept.
  std::string NoteTray(bool shown, const std::string& tip);
  // When the session asked the program to end since the last look, asks the main window for the
  // system's close. True when it was asked.
  bool PollSystemClose();
  // Sleeps on the clock; on the real clock a request to end cuts the sleep short.
  void SleepUnlessClosing(double seconds);

  Clock& clock_;
  std::string defaultTitle_;
  TimerSet timers_;
  WindowModel* window_ = nullptr;

 private:
  int systemCloseFd_ = -1;
  std::string clipboard_;
  bool busy_ = false;
  std::string animationPath_;
  bool animationPlaying_ = false;
  bool trayShown_ = false;
  std::string trayTip_;
};

// Splits a text into its lines at CR LF, CR or LF. An empty text has no lines; a text ending in
// a line break ends with an empty line.
std::vector<std::string> SplitLines(const std::string& text);

}  // namespace tolmen
