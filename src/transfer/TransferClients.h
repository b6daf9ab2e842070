// TransferClients: the pass over Maximizer's client list, inside the run's transaction.
//
// Start: the task title and the Transfer page's heading; OpenClientList readies Maximizer (only
// the alarm for the current client alone); a stop during that wait aborts the transaction and
// ends the pass; OpenCsvFiles (Cancel there aborts and ends the pass); StartTime; the first
// entry read (the current client, or the top of the list); the counters and the progress bar; the
// "To Max" links in the log.
// One turn per list entry while the list class's STATUS_ is 0: the counters line, the progress
// line, the display name, the selection test and, for companies (1) and individuals (2), the
// debtor; billing and the push of Pastel's figures follow as their modules land; then the yield,
// the next entry, the stop request (End leaves at once, Cancel aborts the transaction and ends
// the loop at its test) and the repeat detection.
// End: the repeats logged as an error, the import files closed, the current-client label
// cleared, and an empty log line when anything was written or went wrong.
// A run-time error asks Abort, Retry, Ignore; Abort goes to the closing of the files.
//
// The Transfer page's five text places: lblHeading (heading), lblProgress(1) (counters),
// lblProgress(2) (estimate), lblProgress(3) (current client), lblProgress(4) (skipped client).
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

void TransferClients(Tolmen& app);

// By "Import Which Data": 1 every client; 3 the clients whose criteria UDF matches; 2 and 4 end
// the program after the "Bad case " message.
bool RecordSelected(Tolmen& app);
// The criteria UDF's value equals "Import Criteria Text" (case ignored), or the text is "*" and
// the value is not empty.
bool MatchesImportCriteria(Tolmen& app);

// The counters line of the Transfer page.
std::string CountersLine(Tolmen& app);

}  // namespace tolmen
