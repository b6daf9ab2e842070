// Where a help page lies on disk. The help pages are HTML files installed under
// share/tolmen/help/ beside the executable's bin/ folder; the system names a page inside its help
// file as "::/html/06 Open Tab.htm", which is found as share/tolmen/help/html/06 Open Tab.htm.
#pragma once

#include <string>

namespace tolmen {

// The help folder for an executable at `executablePath` (with a trailing '/').
std::string HelpFolderFor(const std::string& executablePath);
// The file of a page ("::/html/06 Open Tab.htm"; an empty page is the index) under the running
// executable's help folder, or "" when it is not there.
std::string FindHelpPage(const std::string& page);

}  // namespace tolmen
