#include "shell/AppInfo.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen {
namespace {

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string WithSlash(std::string folder) {
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder;
}

}  // namespace

std::string ResolveAppFolder() {
  std::string folder = Env("TOLMEN_HOME");
  if (folder.empty()) {
    std::string data = Env("XDG_DATA_HOME");
    if (data.empty()) data = Env("HOME") + "/.local/share";
    folder = WithSlash(data) + "tolmen";
  }
  // The environment speaks UTF-8; the system holds the folder as Windows-1252 text.
  folder = PathFromSystem(WithSlash(folder));
  std::error_code ec;
  std::filesystem::create_directories(SystemPath(folder), ec);
  if (ec) throw RuntimeError(76, "Path not found: " + folder);
  return folder;
}

AppInfo MakeAppInfo(const std::string& appFolder, const std::string& version) {
  AppInfo info;
  info.AppFolder = WithSlash(appFolder);
  info.AppVersion = version;
  info.AppTitle = info.AppName + " " + version + " for Maximizer 8, 9 and later";
  info.HelpFile = info.AppFolder + info.AppName + ".chm";
  return info;
}

}  // namespace tolmen
