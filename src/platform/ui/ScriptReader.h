// The lines of a user script for the script front-end: answers for dialogs and actions for the
// main window. See ScriptUi.h for what a script says.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/Ui.h"

namespace tolmen {

struct ScriptLine {
  enum class Kind {
    Answer,  // a button word ("Yes", "cancel"); `answer` is 0 when the word names no button
    Text,    // "= TEXT": `text` is what follows the '=' and one blank
    Action,  // "@verb args"
  };
  Kind kind = Kind::Answer;
  int answer = 0;
  std::string text;
  UiAction action;
  std::string written;  // the line as written, without surrounding blanks
};

// Reads script lines (UTF-8, as a file holds them) into answers and actions, Windows-1252 inside.
// Blank lines and lines whose first non-blank is '#' are dropped. A line that is neither an
// action nor "= TEXT" is an answer, even when its word names no button: a dialog still takes it.
std::vector<ScriptLine> ParseScript(const std::vector<std::string>& utf8Lines);

// Reads one action line ("@click mnuFile \"&Save Template...\""). The verb is the word after '@',
// in lower case; blanks separate the arguments, and a double-quoted argument keeps its blanks and
// loses its quotes. For `set` and `select` the second argument is the rest of the line without
// surrounding blanks (its quotes removed when it is quoted whole), and is "" when there is none.
UiAction ParseAction(const std::string& line);

// Reads a script file into its lines (CR LF or LF, a leading byte-order mark dropped). False with
// a message in `error` when the file cannot be read.
bool ReadScriptFile(const std::string& path, std::vector<std::string>& lines, std::string& error);

}  // namespace tolmen
