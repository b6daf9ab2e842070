// The run log: "Tolmen.LOG" in the Pastel data folder, or in the program's folder while no Pastel
// folder is known; lines ended by CR LF, appended to. The previous generation is "Tolmen0.LOG" in
// the same folder.
//
// At debugging level 0 the file stays open through a run, from its heading (kind 0) until
// DoImport closes it; at any other level it is closed after each entry, so that a crash leaves a
// whole log. The folder is chosen whenever the file is opened, except that the heading fixes it
// for the rest of the run.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace tolmen {

class Tolmen;
class OptionArray;

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

  // The folder stays as it is until EndRun (set by the heading of a run).
  void FixFolder() { folderFixed_ = true; }
  bool FolderFixed() const { return folderFixed_; }
  // The end of a run: the file is closed and the folder is free again.
  void EndRun() {
    Close();
    folderFixed_ = false;
  }

 private:
  std::string folder_;
  std::ofstream file_;
  bool folderFixed_ = false;
};

// Writes one entry of the run log. The kinds:
//   0   a new run: the log is closed, turned over when longer than the limit, opened, and the
//       heading written (an empty line; AppName, AppVersion, " Run at ", the time, RunReason; a
//       line of "=" as long; the Maximizer database; the Pastel folder; the category option;
//       which clients are imported; the ticked "To Pastel" check boxes; the account number UDF;
//       an empty line)
//   1   "Created new Customer Category <", CurrentCategoryNumber, "> ", CurrentCategoryText
//   2   "Created  Pastel Customer - a/c ", debtor field 2, ": ", ClientName
//   3   "Changed Pastel Customer  - a/c ", debtor field 2, ": ", ClientName
//   6   "Locked Debtor Record - a/c ", debtor field 2, ": ", ClientName
//   7   "Locked Delivery Address - a/c ", delivery field 1, " Address Code MAIN" when delivery
//       field 2 is blank, else " Address Code " and field 2
//   8   the text as it stands
//   9   the time as "yyyy-mm-dd hh:mm", " - ", the text
//   10  the text, "Changed Maximizer Client - a/c ", debtor field 2, ": ", ClientName, " <ID ",
//       ClientId, "> "
//   11  "Created Max Client - a/c ", debtor field 2, ": ", ClientName; when BalancesMissed is
//       exactly 1 an empty line and "Add Pastel Debtors to Maximizer:" come first
// Kinds 4, 5, negative ones and those above 11 write nothing; kinds other than 8, 9 and 10 ignore
// the text. Afterwards the file is closed again unless the debugging level is 0. Errors of the
// file reach the caller as RuntimeError.
void LogEntry(Tolmen& app, int16_t kind, const std::string& text);
// The log the next entry goes to: the open log or the run's, else "Tolmen.LOG" in the Pastel data
// folder that is open, or in the program's folder while none is.
std::string LogFilePath(const Tolmen& app);
// Raises ErrorCount and writes "### Error ", the new count, ": " and the text.
void LogError(Tolmen& app, const std::string& text);

// The index of the first option button from `first` to `last` that is on; `last` + 1 when none
// is. A missing member in between raises RuntimeError 340, as indexing the array does.
int FindSetOption(const OptionArray& options, int first, int last);

}  // namespace tolmen
