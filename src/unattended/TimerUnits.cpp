#include "unattended/TimerUnits.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "shell/ConfigFolder.h"

namespace tolmen {
namespace {

namespace fs = std::filesystem;

bool NeedsQuotes(const std::string& text) {
  if (text.empty()) return true;
  for (unsigned char c : text)
    if (c <= ' ' || c == '"' || c == '\'' || c == '\\' || c == ';' || c == 0x7f) return true;
  return false;
}

bool WriteFile(const fs::path& path, const std::string& text, std::string& error) {
  const fs::path temporary = path.string() + ".new";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out.flush()) {
      error = "cannot write " + temporary.string();
      return false;
    }
  }
  std::error_code ec;
  fs::rename(temporary, path, ec);
  if (ec) error = "cannot write " + path.string() + ": " + ec.message();
  return !ec;
}

}  // namespace

std::string SystemdWord(const std::string& text) {
  std::string word;
  for (char c : text) {
    if (c == '%' || c == '$') word += c;
    word += c;
  }
  if (!NeedsQuotes(text)) return word;
  std::string quoted = "\"";
  for (unsigned char c : word) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += static_cast<char>(c);
    } else if (c < ' ' || c == 0x7f) {
      static const char* const kHex = "0123456789abcdef";
      quoted += "\\x";
      quoted += kHex[c >> 4];
      quoted += kHex[c & 15];
    } else {
      quoted += static_cast<char>(c);
    }
  }
  return quoted + "\"";
}

bool IsClockTime(const std::string& text) {
  if (text.size() != 5 || text[2] != ':') return false;
  for (int i : {0, 1, 3, 4})
    if (text[i] < '0' || text[i] > '9') return false;
  const int hours = (text[0] - '0') * 10 + (text[1] - '0');
  const int minutes = (text[3] - '0') * 10 + (text[4] - '0');
  return hours < 24 && minutes < 60;
}

std::string ServiceUnit(const TimerRequest& request) {
  std::string text =
      "[Unit]\n"
      "Description=Tolmen unattended run (tolmen run)\n"
      "\n"
      "[Service]\n"
      "Type=oneshot\n";
  for (const auto& [name, value] : request.environment)
    text += "Environment=" + SystemdWord(name + "=" + value) + "\n";
  text += "ExecStart=" + SystemdWord(request.program) + " run";
  for (const std::string& argument : request.arguments) text += " " + SystemdWord(argument);
  return text + "\n";
}

std::string TimerUnit(const TimerRequest& request) {
  std::string text =
      "[Unit]\n"
      "Description=Start tolmen-run.service on a schedule\n"
      "\n"
      "[Timer]\n";
  if (request.everyMinutes > 0) {
    const std::string every = std::to_string(request.everyMinutes) + "min";
    text += "OnActiveSec=" + every + "\nOnUnitActiveSec=" + every + "\n";
  } else {
    text += "OnCalendar=*-*-* " + request.at + ":00\nPersistent=true\n";
  }
  text += std::string("Unit=") + kServiceName +
          "\n"
          "\n"
          "[Install]\n"
          "WantedBy=timers.target\n";
  return text;
}

std::string UserUnitFolder() {
  const std::string config = ConfigFolder();
  return config.empty() ? "" : config + "/systemd/user/";
}

bool WriteTimerUnits(const std::string& folder, const TimerRequest& request, std::string& error) {
  std::error_code ec;
  fs::create_directories(folder, ec);
  if (ec) {
    error = "cannot create " + folder + ": " + ec.message();
    return false;
  }
  return WriteFile(fs::path(folder) / kServiceName, ServiceUnit(request), error) &&
         WriteFile(fs::path(folder) / kTimerName, TimerUnit(request), error);
}

bool RemoveTimerUnits(const std::string& folder, std::string& error) {
  for (const char* name : {kTimerName, kServiceName}) {
    std::error_code ec;
    fs::remove(fs::path(folder) / name, ec);
    if (ec) {
      error = "cannot remove " + (fs::path(folder) / name).string() + ": " + ec.message();
      return false;
    }
  }
  return true;
}

}  // namespace tolmen
