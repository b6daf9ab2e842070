// The few registry values the system reads, answered from their Linux homes. Only the user's
// Startup folder is known: HKEY_CURRENT_USER, kShellFoldersKey below, value "Startup", which is
// the XDG autostart folder,
// ${XDG_CONFIG_HOME:-~/.config}/autostart (given without a trailing '/', as the registry held the
// folder). A start-up entry there is the file "Tolmen.desktop".
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

class Tolmen;

inline constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001u;
inline constexpr const char* kShellFoldersKey =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
inline constexpr const char* kStartupEntryName = "Tolmen.desktop";

// The value `name` under `path` of `hive`, at most 255 characters and cut at the first zero; ""
// for any value that is not known or cannot be read. Path and name compare without regard to case.
std::string ReadRegistryValue(std::uint32_t hive, const std::string& path, const std::string& name);

// True when an entry named "Tolmen.desktop" (compared without regard to case) stands in the
// Startup folder.
bool StartupEntryPresent();

}  // namespace tolmen
