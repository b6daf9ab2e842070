// The per-user settings store: named text values in sections, under the application name
// "Vellumator7". On Linux it is an INI file,
// ${XDG_CONFIG_HOME:-~/.config}/Vellumator7/settings.ini. Section and key names are compared
// without regard to case; any text round-trips (characters an INI line cannot hold are escaped);
// every change is written at once, atomically (a temporary file renamed over the old one).
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tolmen {

class Settings {
 public:
  // The store's file; nothing is read until the first access.
  explicit Settings(std::string path) : path_(std::move(path)) {}
  // The file named by the environment (see above); "" when there is no config folder (neither
  // XDG_CONFIG_HOME nor HOME set), a store that reads as empty and cannot be written.
  static std::string DefaultPath();

  const std::string& Path() const { return path_; }

  std::string GetSetting(const std::string& section, const std::string& key,
                         const std::string& defaultValue = "");
  // Throws RuntimeError when the file cannot be written; the store is then left as it was.
  void SaveSetting(const std::string& section, const std::string& key, const std::string& value);
  // Removes a key; a key that is not there is passed over.
  void DeleteSetting(const std::string& section, const std::string& key);

 private:
  struct Entry {
    std::string section, key, value;
  };
  void Load();
  void Store();
  Entry* Find(const std::string& section, const std::string& key);

  std::string path_;
  bool loaded_ = false;
  std::vector<Entry> entries_;  // in file order
};

// INI escaping: backslash, CR, LF, NUL, '=', '[', ']', ';' and '#' and leading or trailing blanks
// become backslash sequences ("\\", "\r", "\n", "\0", "\x3D" ...).
std::string EscapeIni(const std::string& text);
std::string UnescapeIni(const std::string& text);

}  // namespace tolmen
