// The debugging level: read from the settings at start, changed by the level dialog.
//
// What each level does, tested on the signed value:
//   not 0      the log is closed after every entry; the start asks for the level; "# Debug:
//              Started " and "# Debug: Ended " lines; accepted status-22 events are logged
//   above 1    "# Debug: > " and "# Debug: < " lines of the main routines, the client lines
//   above 2    a line per GlobalIO call with all its buffers
//   above 3    a line on entering GlobalIO
//   equal to 4 the start-up sections ("# Debug: Setting Paths", ...)
//   below 0    "# Debug: CloseDocumentFiles" and the billing lines that ask for it
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

// The level as the settings hold it ("Debugging", 0 when absent), read as a number.
int ReadDebugLevel(Tolmen& app);

// The input box titled "Debugging Vellumator7" with the present level as its default. An empty
// answer changes nothing; otherwise the answer's numeric value (Val: "abc" is 0) becomes the level.
// A level other than 0 is stored and logged "# DEBUGGING Setting = " and the level; 0 deletes the
// setting (errors passed over) and logs "# DEBUGGING OFF". Both log lines carry the time. A value
// outside the 16-bit range leaves the level as it was.
void DebugLevelDialog(Tolmen& app);

// The prompt of the dialog, one line per level, joined by the line break.
std::string DebugLevelPrompt(const std::string& lineBreak);

}  // namespace tolmen
