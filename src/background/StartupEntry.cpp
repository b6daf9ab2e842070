#include "background/StartupEntry.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "runtime/Cp1252.h"
#include "runtime/SystemPath.h"
#include "shell/Registry.h"

namespace fs = std::filesystem;

namespace tolmen {
namespace {

// The running program, as the file system names it.
std::string ProgramPath() {
  std::error_code error;
  const fs::path self = fs::read_symlink("/proc/self/exe", error);
  return error ? std::string("tolmen") : self.string();
}

std::string QuotedExec(const std::string& program) {
  std::string quoted = "\"";
  for (char c : program) {
    if (c == '"' || c == '`' || c == '$') {
      quoted += '\\';
      quoted += c;
    } else if (c == '\\') {
      quoted += "\\\\\\\\";  // escaped for the quoting, then for the string
    } else if (c == '%') {
      quoted += "%%";
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

}  // namespace

std::string StartupEntryText(const std::string& appName, const std::string& program) {
  return "[Desktop Entry]\nType=Application\nName=" + appName + "\nExec=" + QuotedExec(program) +
         "\nX-GNOME-Autostart-enabled=true\n";
}

bool SetStartupShortcut(const std::string& appName, int create) {
  const std::string folder = ReadRegistryValue(HKEY_CURRENT_USER, kShellFoldersKey, "Startup");
  if (folder.empty()) return false;
  const fs::path entry = fs::path(SystemPath(folder)) / kStartupEntryName;
  std::error_code error;
  if (create != 1) {
    for (fs::directory_iterator it(entry.parent_path(), error), end; !error && it != end;
         it.increment(error))
      if (EqualsNoCase(it->path().filename().string(), kStartupEntryName))
        fs::remove(it->path(), error);
    return !IsStartupShortcutThere();
  }
  fs::create_directories(entry.parent_path(), error);
  std::ofstream out(entry, std::ios::binary | std::ios::trunc);
  // The entry is UTF-8, as desktop entries are.
  out << StartupEntryText(Cp1252ToUtf8(appName), ProgramPath());
  out.close();
  return out.good() && IsStartupShortcutThere();
}

bool IsStartupShortcutThere() {
  return StartupEntryPresent();
}

}  // namespace tolmen
