#include "shell/ConfigFolder.h"

#include <cstdlib>

namespace tolmen {

std::string ConfigFolder() {
  std::string folder;
  if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config) {
    folder = config;
  } else {
    const char* home = std::getenv("HOME");
    if (!home || !*home) return "";
    folder = std::string(home) + "/.config";
  }
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

}  // namespace tolmen
