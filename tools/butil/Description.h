// The record manager utility's description files, which say how -create lays out a file:
// `keyword=value` elements separated by blanks, tabs or line ends, keywords and values without
// regard to case, an optional /* comment */ first. The file part (record=, variable=, key=,
// page=, and elements that do not change a file of this engine) comes first; then every segment
// of every key: position=, length=, duplicates=, modifiable=, type=, optional descending=,
// caseinsensitive= and alternate=/nullkey= (accepted only as "n"), ending with segment= (y: the
// key goes on with another segment).
#pragma once

#include <string>

#include "platform/recordmanager/FileStat.h"

namespace tolmen::butil {

// Reads a description. False with a message naming the element when it cannot be read or asks
// for something the engine does not keep.
bool ParseDescription(const std::string& text, FileDef& def, std::string& error);

// The name butil shows for a key type ("Integer", "Unsigned Binary", ...).
std::string TypeName(uint8_t extendedType);

}  // namespace tolmen::butil
