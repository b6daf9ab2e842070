// Paths where the system meets the file system. Inside, a path is Windows-1252 text like every
// other text (templates, messages and the log hold it so); the file system's names are UTF-8.
#pragma once

#include <string>

namespace tolmen {

// The file system's name for a path of the system: its UTF-8. Used where a file is opened,
// listed, created, renamed or removed.
std::string SystemPath(const std::string& path);

// True when Windows-1252 holds every character of the UTF-8 text, so that it comes back as it was.
bool FitsCp1252(const std::string& utf8);

// A path that comes in as UTF-8 (the environment, the command line, a file dialog, a directory
// listing) as the system's text. Throws RuntimeError 52 when Windows-1252 cannot hold it: "The
// path ", the path with '?' for each character it cannot hold, " holds a character outside
// Windows-1252 and cannot be used".
std::string PathFromSystem(const std::string& utf8);

}  // namespace tolmen
