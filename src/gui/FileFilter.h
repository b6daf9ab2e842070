// The file dialog's filter, from the classic form "Templates (*.ktf)|*.ktf|All Files (*.*)|*.*"
// (description and patterns in pairs, patterns separated by ';') to Qt's name filters
// ("Templates (*.ktf)", "All Files (*)"). "*.*" becomes "*", which on Linux also takes names
// without a dot. A filter without '|' is a pattern list of its own ("*.KTF").
#pragma once

#include <string>
#include <vector>

namespace tolmen {

std::vector<std::string> QtNameFilters(const std::string& filter);

}  // namespace tolmen
