// File names as the record manager's callers give them: taken from a key buffer and found
// without regard to case, as on the platform the data comes from.
#pragma once

#include <string>
#include <string_view>

namespace tolmen {

// The path in a key buffer: up to the first NUL, without surrounding blanks, and without the
// double quotes around it; as the file system names it (the buffer holds Windows-1252 text, the
// file system UTF-8).
std::string PathFromKeyBuffer(std::string_view keyBuf);

// The existing file or folder that `path` names when letters are compared without regard to
// case (ASCII), component by component; a component that exists as written is taken as written,
// otherwise the first match in name order. Empty when there is none.
std::string FindPathNoCase(const std::string& path);

// Where a file of this name is to be created: the existing file's own spelling when one matches
// without regard to case (`exists` true), else the folder found without regard to case and the
// name as written. Empty when the folder does not exist.
std::string CreationPathNoCase(const std::string& path, bool& exists);

}  // namespace tolmen
