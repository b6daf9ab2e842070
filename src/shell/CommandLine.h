// The command line, and what the wizard shows when the start has no template of its own.
//
// The command line is argv[1..] joined by blanks, read as the system always read it: the switches
// are found by searching the whole text without regard to case, so "/SILENT/QUIT" needs no blank
// and a "/S" inside a template's path is taken for the switch. What is left names a template: a
// name without a backslash is taken in the program's folder; backslashes are path separators.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

// Reads the switches (/QUIT or /Q, /SILENT or /S, /NOAUTO or /N, /C or /1), refuses a line with
// any other "/", and runs a named template: TemplateOpen, SetOptions, then StartRun with
// LoadCategories and the Transfer page (RunMode 1, RunReason "from Command Line: " and the line).
// With "/Q" the process ends after the run (ProcessEnd, without Form_Unload). A template that is
// missing shows a message and leaves the screen as it is; every other way out ends in
// LoadStartTemplate. A template run that cannot start sets the exit status 2.
void ParseCommandLine(Tolmen& app);

// CURRENT.KTF of the program's folder when it exists and reads, else LoadDefaults (a template
// that fails to read also marks the wizard as holding no template).
void LoadStartTemplate(Tolmen& app);

// The factory options: the drive and folder boxes at the root, category option 0, "Pattern
// Matching" and "Individual Client Names" off, "Import Which Data" 3 (marked items), prefix size
// "4", suffix size "2".
void LoadDefaults(Tolmen& app);

}  // namespace tolmen
