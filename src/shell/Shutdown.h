// Going down: closing every file the program holds open, and ending the process.
#pragma once

namespace tolmen {

class Tolmen;

// Closes every open text file of the program (the run log, the import files).
void CloseAllFiles(Tolmen& app);
// "Sub ShutDown": closes the Pastel files and ends the process (throws ProcessEnd).
[[noreturn]] void ShutDown(Tolmen& app);

}  // namespace tolmen
