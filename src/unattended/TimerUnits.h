// The systemd user timer of `tolmen run --install-timer`: tolmen-run.service runs `tolmen run`
// on the templates, tolmen-run.timer starts it every N minutes or daily at HH:MM. Both live in
// ${XDG_CONFIG_HOME:-~/.config}/systemd/user/. Nothing is enabled here: the user types the
// systemctl command printed.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tolmen {

struct TimerRequest {
  std::string program;                 // absolute path of tolmen (UTF-8)
  std::vector<std::string> arguments;  // after "run": options and absolute template paths (UTF-8)
  // The variables the run needs, as the installing shell has them: the program's folder, the
  // Maximizer socket, the configuration and data folders.
  std::vector<std::pair<std::string, std::string>> environment;
  int everyMinutes = 0;  // > 0: every so many minutes
  std::string at;        // else daily at "HH:MM"
};

inline constexpr const char* kServiceName = "tolmen-run.service";
inline constexpr const char* kTimerName = "tolmen-run.timer";

// One word of an ExecStart= or Environment= line: as it is when it needs no quoting, else in
// double quotes with backslash, double quote and control characters escaped; "%" is doubled and
// "$" doubled, so systemd expands nothing.
std::string SystemdWord(const std::string& text);
// True for "HH:MM" with HH 00-23 and MM 00-59.
bool IsClockTime(const std::string& text);

std::string ServiceUnit(const TimerRequest& request);
std::string TimerUnit(const TimerRequest& request);

// ${XDG_CONFIG_HOME:-~/.config}/systemd/user/ (UTF-8, trailing '/'); "" without a home.
std::string UserUnitFolder();

// Writes both units into `folder` (created when missing); false with the reason in `error`.
bool WriteTimerUnits(const std::string& folder, const TimerRequest& request, std::string& error);
// Removes both units; false with the reason when a unit was there and could not be removed.
bool RemoveTimerUnits(const std::string& folder, std::string& error);

}  // namespace tolmen
