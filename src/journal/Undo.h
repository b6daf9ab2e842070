// Undoing a run from its journal: every UDF value the run wrote is put back, last write first,
// where Maximizer still holds what the run left (any other value is a conflict and is left
// alone); the run's import files still in the folder are renamed to "*.undone"; the categories
// it created are reported, not removed (debtors may use them). The undo is journalled as a run of
// its own: its writes as "udf" records, then an "undo" record naming the run, so a second undo of
// the same run finds it and does nothing.
//
// UndoRun, step by step:
//   1  the journal read; the run found (its id, or the last run), else nothing is done
//   2  an "undo" record for the run already there: nothing is done
//   3  Maximizer attached; it must be running with the run's database open
//   4  the whole address book listed ("ListAll"), and walked once from the top: at each record
//      that the run wrote, its writes taken back from the last to the first
//   5  the import files renamed; the "undo" record appended
// With `dryRun` steps 4 and 5 only read: the outcomes say what would be done.
#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/automation/KeptWrites.h"

namespace tolmen {

class Tolmen;

struct UndoStep {
  RecordKey record;
  std::string udf;
  std::string restore;  // the value before the run's write
  std::string expect;   // what Maximizer held after it
};

struct UndoPlan {
  std::string runId;
  std::string problem;         // why nothing is to be done, or ""
  bool alreadyUndone = false;  // the problem is that an undo of the run is in the journal
  std::string maximizer;
  std::vector<UndoStep> steps;  // in the order the run wrote them
  std::vector<std::string> files;
  std::vector<std::string> categories;
};

// What the journal's records say to undo for `runId` ("" for the last run; an undo is no run).
// Writes that changed nothing are left out. Texts Windows-1252.
UndoPlan PlanUndo(const std::vector<nlohmann::json>& records, const std::string& runId);

enum class UndoResult { kRestored, kConflict, kAlreadyBack, kNotFound };

// The step's outcome when Maximizer now holds `now`.
UndoResult DecideUndo(const UndoStep& step, const std::string& now);
const char* UndoResultWord(UndoResult result);

struct UndoOutcome {
  UndoStep step;
  UndoResult result = UndoResult::kNotFound;
  std::string found;  // the value Maximizer held
};

struct UndoReport {
  UndoPlan plan;
  std::string undoId;                // the undo's own run id ("" when nothing was done)
  std::vector<UndoOutcome> steps;    // last write first
  std::vector<std::string> renamed;  // the files renamed (or, in a dry run, to rename)
  bool dryRun = false;
  int Count(UndoResult result) const;
};

// Steps 1 to 5 above, on the journal of `pastelFolder` (ending with '/', Windows-1252).
UndoReport UndoRun(Tolmen& app, const std::string& pastelFolder, const std::string& runId,
                   bool dryRun);

// What to say of a category the run created: it is left in place, and the butil commands that
// would remove it, for the person to decide on.
std::string CategoryRemovalHint(const std::string& pastelFolder, const std::string& category);

}  // namespace tolmen
