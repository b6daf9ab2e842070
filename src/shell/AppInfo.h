// The process-wide texts: the program's name, title, version, folder, line break and help file.
#pragma once

#include <string>

namespace tolmen {

struct AppInfo {
  std::string AppName = "Tolmen";
  std::string AppVersion;  // major.minor.revision
  std::string AppTitle;    // "Tolmen 1.0.0 for Maximizer 8, 9 and later"
  std::string AppFolder;   // with a trailing '/'
  std::string LineBreak = "\r\n";
  std::string HelpFile;  // AppFolder + AppName + ".chm"; the front-ends find the HTML pages
};

// The program's folder: $TOLMEN_HOME, else ${XDG_DATA_HOME:-~/.local/share}/tolmen/, created
// when missing, always with a trailing '/', as Windows-1252 text. Throws RuntimeError 76 when it
// cannot be created, 52 when Windows-1252 cannot hold it.
std::string ResolveAppFolder();

// Fills the texts for the given folder and version ("1.0.0").
AppInfo MakeAppInfo(const std::string& appFolder, const std::string& version);

}  // namespace tolmen
