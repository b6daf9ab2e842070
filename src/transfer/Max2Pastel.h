// Max2Pastel: the run driver. A run is one pass over the Maximizer client list with one set of
// RunOptions; the driver checks the options, opens one record-manager transaction over the whole
// pass, calls the client loop, keeps or throws away what the pass did, reports the result, saves
// the options as templates and lets go of Pastel and Maximizer.
//
// Every entry (the Import button, the command line, the background timer) starts its run through
// StartRun (transfer/RunStart.h): CheckRunOptions has passed, the end-of-run notes, MismatchCount
// and ErrorCount are cleared, RunMode and RunReason set and BeforeRunScreen done before DoImport,
// and AfterRunScreen follows it.
//
// DoImport, step by step:
//   1  the delivery address default code "Delivery"; the log's heading (LogEntry kind 0)
//   2  with recurring billing: "Recurring Billing ON." and the multi-year method in words
//   3  BeginConcurrentTransaction
//   4  category option 1: the new category is inserted into the category file
//   5  RunActive; the run's counters cleared
//   6  TransferClients (it aborts the transaction itself on Cancel)
//   7  "List Clients" back to "All Companies && Individuals"
//   8  a stop: CurrentSection "Choice to Abort or do 2nd Phase"
//   9  CloseDocumentFiles
//   10 CurrentSection "Final Messages"; progress bar, labels and animation at rest
//   11 Cancel (StopRequest 2): "Transfer cancelled at " logged, the cancel message, tab 2, on to 19
//   12 the ending line: "The transfer was stopped at " (End) or "Tolmen Import Completed at "
//   13 the result lines in the log
//   14 RunMode 1: the result dialog, unless nothing at all was done; it offers the log
//   15 RunMode 2: at the end of the template list, the list's dialog
//   16 EndTransaction (after the dialogs: the reading time is inside the transaction)
//   17 TemplateSave to CURRENT.KTF (program folder) and Kelbor.KTF (Pastel folder)
//   18 tab 2
//   19 the log closed (errors passed over from here on)
//   20 the editor on the log when asked for, ClosePasFiles, RunActive off, CloseClientList
// A run-time error before step 19 asks Abort, Retry, Ignore with the error's text and
// "while doing " CurrentSection: Retry repeats the statement, Ignore goes on, Abort goes to 19.
//
// At its end DoImport sets the process's exit status: 3 after Cancel, 1 when the run counted
// errors, 0 otherwise.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

class Tolmen;

void DoImport(Tolmen& app);

// The option checks, in order, the first failure ending the chain: the account number UDF (tab
// 1), the "To Pastel" tab (tab 1; the prefix and suffix sizes are repaired silently and copied
// out with the address choices), the "To Maximizer" links (tab 2), the recurring billing set-up
// (tab 3), the casual billing rules (tab 4). On failure the message has been shown and the wizard
// stands on the tab at fault.
bool CheckRunOptions(Tolmen& app);

// The "To Pastel" part of the chain (its lists filled when they are not yet, the criteria UDF,
// the category UDF, the size repairs and the address choices copied out), without moving the
// wizard: the Next button runs it on tab 1.
bool ToPastelChecks(Tolmen& app);

// True when the options can reach every Maximizer client: "Import Which Data" 1, or 3 or 4 with no
// criteria UDF, or with a criteria UDF but no criteria text.
bool EntireDatabase(Tolmen& app);

// The pause dialog: Yes carries on (StopRequest 0, animation again), No ends the run after the
// client in hand (7), Cancel throws the run away (2). The answer goes straight into StopRequest.
void Abort_Click(Tolmen& app, const std::string& text);
// The Pause button: Abort_Click with an empty text.
void cmdAbort_Click(Tolmen& app);

// The screen during a run: menus, Back, Next and Save disabled, Pause shown, the pages 0 to 4
// disabled, the animation loaded. AfterRunScreen undoes it, restores the heading and clears
// StopRequest and Unattended.
void BeforeRunScreen(Tolmen& app);
void AfterRunScreen(Tolmen& app);

// "One " and the word for plus or minus one; otherwise the number, a blank and the word with "s".
std::string PluralForm(std::int32_t count, const std::string& word);

}  // namespace tolmen
