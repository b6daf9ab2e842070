// Starting another program (the text editor) from an argument vector, never through a shell, so
// that no folder or file name can smuggle in a command.
#pragma once

#include <string>
#include <vector>

namespace tolmen {

// Runs argv[0] (looked up on PATH) with the given arguments on the same terminal and waits for it
// to end. True when it started, whatever its exit status (left in `exitStatus`, 128 + the signal
// number when a signal ended it); false with the reason in `error` when it could not start.
bool RunProgram(const std::vector<std::string>& argv, int& exitStatus, std::string& error);

// True when `name` is an executable file on PATH (or, holding a '/', is one itself).
bool ProgramOnPath(const std::string& name);

// The editor a terminal user expects: $VISUAL, else $EDITOR (split at blanks into program and
// arguments), else xdg-open when it is on PATH, else nano.
std::vector<std::string> EditorCommand();

}  // namespace tolmen
