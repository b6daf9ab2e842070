#include "shell/Registry.h"

#include <filesystem>
#include <system_error>

#include "runtime/Cp1252.h"
#include "shell/ConfigFolder.h"

namespace tolmen {
namespace {

std::string StartupFolder() {
  const std::string folder = ConfigFolder();
  return folder.empty() ? "" : Utf8ToCp1252(folder + "/autostart");
}

}  // namespace

std::string ReadRegistryValue(std::uint32_t hive, const std::string& path,
                              const std::string& name) {
  std::string value;
  if (hive == HKEY_CURRENT_USER && EqualsNoCase(path, kShellFoldersKey) &&
      EqualsNoCase(name, "Startup"))
    value = StartupFolder();
  const auto zero = value.find('\0');
  if (zero != std::string::npos) value.resize(zero);
  if (value.size() > 255) value.resize(255);
  return value;
}

bool StartupEntryPresent() {
  std::string folder = ReadRegistryValue(HKEY_CURRENT_USER, kShellFoldersKey, "Startup");
  if (folder.empty()) return false;
  if (folder.back() != '/') folder += '/';
  std::error_code ec;
  std::filesystem::directory_iterator entries(Cp1252ToUtf8(folder), ec);
  if (ec) return false;
  for (auto it = std::filesystem::begin(entries); !ec && it != std::filesystem::end(entries);
       it.increment(ec)) {
    if (EqualsNoCase(Utf8ToCp1252(it->path().filename().string()), kStartupEntryName)) return true;
  }
  return false;
}

}  // namespace tolmen
