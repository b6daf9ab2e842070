// The run log: "Tolmen.LOG" in the Pastel data folder (or the program's folder while no Pastel
// folder is known), lines ended by CR LF, appended to. At debugging level 0 the file stays open
// through a run; at any other level it is closed after each entry, so that a crash leaves a
// whole log.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace tolmen {

class Tolmen;

class RunLog {
 public:
  static constexpr const char* kFileName = "Tolmen.LOG";
  static constexpr const char* kOldFileName = "Tolmen0.LOG";

  // The folder the log lives in (with a trailing '/'). Changing it closes an open log.
  void SetFolder(const std::string& folder);
  const std::string& Folder() const { return folder_; }
  std::string Path() const { return folder_ + kFileName; }

  // Appends one line (CR LF added), opening the file first when it is closed. Throws
  // RuntimeError when the file cannot be opened or written.
  void Append(const std::string& line);
  void Close();
  bool IsOpen() const { return file_.is_open(); }

  // Turns the log over when it is longer than limitKb kilobytes: "Tolmen0.LOG" is deleted and
  // "Tolmen.LOG" renamed to it. 0 means no limit. Failures leave the old file in place.
  void Rotate(int32_t limitKb);

 private:
  std::string folder_;
  std::ofstream file_;
};

// Writes one entry of the given kind: 8 the text as it stands, 9 the time as "yyyy-mm-dd hh:mm",
// " - " and the text. Afterwards the file is closed again unless the debugging level is 0.
void LogEntry(Tolmen& app, int16_t kind, const std::string& text);
// Raises ErrorCount and writes "### Error ", the new count, ": " and the text.
void LogError(Tolmen& app, const std::string& text);

}  // namespace tolmen
