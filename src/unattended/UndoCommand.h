// `tolmen undo [RUN-ID | --last] [--dry-run] [--json] PASTEL_DIR`: a run's UDF writes put back
// and its import files set aside, from the run journal of the Pastel folder (journal/Undo.h).
// Without a RUN-ID the last run is undone. Exit status: 0 done (or nothing left to do: the run
// was undone already), 1 some values were not put back (conflicts, clients not found), 2 nothing
// could be done (no journal, no such run, Maximizer not running or on another database), 4 usage.
#pragma once

#include <iosfwd>
#include <string>

namespace tolmen {

class Clock;
struct UndoReport;

// The report as text (UTF-8), and as one JSON object on one line.
std::string UndoText(const UndoReport& report, const std::string& pastelFolder);
std::string UndoJson(const UndoReport& report, const std::string& pastelFolder);
// The exit status of the report.
int UndoStatus(const UndoReport& report);

// The whole command (argv[1] is "undo").
int TolmenUndo(int argc, const char* const* argv, Clock& clock, std::ostream& out,
               std::ostream& err);

}  // namespace tolmen
