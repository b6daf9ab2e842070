// The start-up entry: "Tolmen.desktop" in the user's Startup folder, which is the XDG autostart
// folder (shell/Registry.h), so that the desktop starts the program when the user logs in.
#pragma once

#include <string>

namespace tolmen {

// The desktop entry's text: Type, Name (`appName`), Exec (`program`, quoted as desktop entries
// quote: between double quotes, with '"', '`', '$' and '\' escaped by a backslash, the
// backslashes of that then doubled, and '%' written "%%"), ended by LF.
std::string StartupEntryText(const std::string& appName, const std::string& program);

// 1 creates the entry, starting the running program without arguments; any other value removes
// every entry of that name, whatever the case of its letters. True when the folder now holds what
// was asked for.
bool SetStartupShortcut(const std::string& appName, int create);

// True when the Startup folder holds an entry "Tolmen.desktop", compared without regard to case.
bool IsStartupShortcutThere();

}  // namespace tolmen
