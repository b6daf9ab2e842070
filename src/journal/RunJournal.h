// The run journal: "runs.jsonl" in the Pastel data folder, one JSON object a line (UTF-8),
// appended and flushed record by record while a run goes, so that a crash loses at most the line
// being written. `tolmen undo` reads it back.
//
// Records, by "type":
//   "udf"   one per UDF write, as it is made: "run" (the run's id), "time", "client" (the
//           Identification), "contact" (the Contact_Number), "udf", "before", "written", "stored"
//           (what Maximizer holds after the write)
//   "run"   one at the end of each run: "run", "time", "template", "entry" (the log heading's
//           reason), "pastel", "maximizer" (the database folder), "status", "counts", "files"
//           (the import files written), "categories" (those the run created, "<N> name")
//   "undo"  one at the end of each undo: "run" (the undo's own id), "undoes", "time", "restored",
//           "conflicts", "files" (renamed to *.undone); the undo's own writes are "udf" records
// A run that crashed has its "udf" records and no "run" record.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace tolmen {

struct UdfWrite;
class MaximizerLink;
class Clock;

constexpr const char* kJournalFile = "runs.jsonl";

class RunJournal {
 public:
  // Opens `folder` + "runs.jsonl" (the folder ends with '/', Windows-1252) for appending; an
  // empty folder opens nothing.
  explicit RunJournal(const std::string& folder);
  bool IsOpen() const { return out_.is_open(); }
  // One record, one line, flushed at once. Does nothing when the file could not be opened.
  void Append(const nlohmann::json& record);

 private:
  std::ofstream out_;
};

// What the "run" record says of a run that has ended (texts Windows-1252).
struct RunSummary {
  std::string templatePath;
  std::string entry;
  std::string maximizer;
  std::string status;  // "ok", "errors", "cancelled"
  std::vector<std::pair<std::string, std::int32_t>> counts;
  std::vector<std::string> files;
  std::vector<std::string> categories;
};

// One run in the journal of its Pastel folder: while the object lives, every UDF write of the
// link is appended as it is made; Finish appends the run's record. A run whose folder is not
// known journals nothing.
// REQUIRES: link and clock outlive the object.
class JournalledRun {
 public:
  JournalledRun(MaximizerLink& link, const Clock& clock, const std::string& pastelFolder);
  ~JournalledRun();
  JournalledRun(const JournalledRun&) = delete;
  JournalledRun& operator=(const JournalledRun&) = delete;

  const std::string& Id() const { return id_; }
  void Finish(const RunSummary& summary);

 private:
  MaximizerLink& link_;
  const Clock& clock_;
  std::string folder_;
  std::string id_;
  RunJournal journal_;
};

// A new run id: the time "yyyymmdd-hhnnss", the process id and four random hex digits.
std::string NewRunId(double now);
// "yyyy-mm-dd hh:nn:ss".
std::string JournalTime(double now);

// The "udf" record of a write (texts turned into UTF-8).
nlohmann::json UdfWriteRecord(const std::string& runId, double now, const UdfWrite& write);

// The records of the journal of `folder`; a line that is no whole JSON object (the last line of a
// run that crashed while writing it) is passed over. No file gives no records.
std::vector<nlohmann::json> ReadJournal(const std::string& folder);

}  // namespace tolmen
