#include "background/Schedule.h"

#include "background/BackgroundState.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"

namespace tolmen {

namespace {
constexpr double kMinutesPerDay = 1440.0;
}  // namespace

bool ScheduledRunDue(const std::string& method, int16_t minuteCounter, int16_t intervalMinutes,
                     const std::string& nowHhMm, const std::string& runTime) {
  if (method == kMethodInterval) return minuteCounter == intervalMinutes;
  if (method == kMethodTime) return nowHhMm == runTime;
  return false;
}

std::string TrayTip(const std::string& appName, const std::string& status,
                    const std::string& runTime) {
  const std::string text =
      appName + (status == kTrayActive ? std::string(" - Busy") : " - " + runTime);
  std::string tip = Left(text + '\0', static_cast<long>(kTrayTipSize));
  tip.resize(kTrayTipSize, ' ');
  return tip;
}

std::string TimeAfter(double now, int minutes) {
  return FormatDate(now + minutes / kMinutesPerDay, "hh:mm");
}

std::string CompleteTimeTyping(const std::string& text, int& caret) {
  if (text.size() != 2) return text;
  std::string completed = text;
  if (Val(completed) < 10) completed = "0" + completed;
  if (Right(completed, 1) != ":") {
    completed += ":00";
    caret = 2;
  }
  return completed;
}

void CarryMinutes(std::string& hours, std::string& minutes) {
  if (Val(minutes) > 59) {
    minutes = NumberText(Val(minutes) - 60);
    hours = NumberText(Val(hours) + 1);
  }
  hours = Format(Variant(hours), "00");
  minutes = Format(Variant(minutes), "00");
}

}  // namespace tolmen
