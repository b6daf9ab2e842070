// The user's configuration folder, where the settings store and the autostart entry live.
#pragma once

#include <string>

namespace tolmen {

// ${XDG_CONFIG_HOME:-$HOME/.config} in UTF-8, without a trailing '/'; a variable that is set but
// empty counts as unset. "" when neither variable gives a folder.
std::string ConfigFolder();

}  // namespace tolmen
