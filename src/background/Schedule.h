// Background mode's decisions, as pure functions of what they read: whether a tick of Timer1
// runs the template list, the tray's tip, the next start of an interval, and the texts of
// frmOptions' time and interval boxes.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

// A tick of the minute timer, once the counter has been raised: "INTERVAL" runs when the count
// equals the interval (so an interval of 0 never runs), "TIME" when the time of day `nowHhMm`
// ("hh:mm") equals `runTime`, any other method never.
bool ScheduledRunDue(const std::string& method, int16_t minuteCounter, int16_t intervalMinutes,
                     const std::string& nowHhMm, const std::string& runTime);

// The tray's tip for a status: "Active" gives `appName` + " - Busy", any other status `appName`
// + " - " + `runTime`; held in the 64-character tip field, ended by a zero and padded with blanks.
std::string TrayTip(const std::string& appName, const std::string& status,
                    const std::string& runTime);
inline constexpr const char* kTrayActive = "Active";
inline constexpr const char* kTrayIdle = "Idle";
inline constexpr size_t kTrayTipSize = 64;

// The time of day `minutes` after `now` (a date value), as "hh:mm".
std::string TimeAfter(double now, int minutes);

// The time box while the user types: a text of exactly two characters gets a leading "0" when
// its value is below 10, and ":00" when it does not end in ":" yet, with the caret behind the
// hours (`caret` is set then). Any other text comes back as it is.
std::string CompleteTimeTyping(const std::string& text, int& caret);

// The interval boxes on leaving: both formatted "00", minutes above 59 with 60 taken off once and
// carried into the hours ("1" and "90" become "02" and "30").
void CarryMinutes(std::string& hours, std::string& minutes);

}  // namespace tolmen
