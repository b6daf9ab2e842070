// Template files: reading one into the screen (TemplateOpen) and writing the screen into one
// (TemplateSave); SetOptions (SetOptions.h, included here) copies the screen into the run's
// options.
//
// The format is plain Windows-1252 text, one item a line. Line 1 is the header "TOLMEN TEMPLATE
// FILE" (the old "VELLUMATOR 6.0 TEMPLATE FILE" is read as well). Every other line is "Key: value";
// a line beginning '*' is a section mark ("*Tab: To Pastel", "*Pastel Data Folder: /data/set/"),
// where a reading in parts asks whether to take the lines that follow. Lines are written with CR LF
// and read with CR LF or LF.
//
// A template holds the Pastel password in plain text, so it is written with mode 0600, through a
// temporary file in the same folder that then replaces the old one.
#pragma once

#include <string>

#include "templates/SetOptions.h"

namespace tolmen {

class Tolmen;

// Reads the template at `path` into the screen, line by line, with the effects each key has on
// its controls (a control set by code raises its click event, as a user's click does). A "Pastel
// Password" line opens the Pastel set named by the folder line before it.
//
// With `parts` each section mark asks "Do you want to Import this Part:" with Yes/No/Cancel: No
// skips the mark and the lines behind it up to the next mark, Cancel ends the reading.
//
// `ok` is true when the file was read to its end. It is false without a word when the file does
// not exist; false after a dialog when the header is not a template's, when a key is unknown and
// the user answers Cancel, when the user cancels the parts question, or when a value cannot be
// converted (the reading then ends, and what was read stays on the screen). Except for a missing
// file, the tabs are brought in line with the View menu's ticks at the end.
void TemplateOpen(Tolmen& app, const std::string& path, bool parts, bool& ok);
// The same, answering `ok`.
bool TemplateOpen(Tolmen& app, const std::string& path, bool parts = false);

// Writes the screen as a template to `path`, creating or replacing the file. What the reader
// knows and the writer leaves out: "Mismatched Account Nos", the casual billing section with its
// "Bill" lines, and the four "Custom Message" keys. A category to be created (option 1) is saved
// as the existing category "<number> name", so that it is created once only.
// Throws RuntimeError (76 path not found, 75 access, 61 disk full, ...) when the file cannot be
// written; the old file is then left as it was.
void TemplateSave(Tolmen& app, const std::string& path);

}  // namespace tolmen
