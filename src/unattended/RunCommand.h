// `tolmen run [options] TEMPLATE...`: each template in turn through the one run start, nobody
// asked, a summary line (or a JSON object) per template on standard output.
//
// For each template, in order:
//   1  the file is there and readable, else "could not start" (the message on standard error)
//   2  Unattended on; TemplateOpen; a failure is "could not start"
//   3  StartRun{copyScreen, loadCategories, decideBillingDay, confirm = the run's own step}: the
//      run's own step numbers the import files as the wizard's Import does (the next MaxCus<NN>
//      and MaxInv<NN> of the Pastel folder, "Write Pastel file" from its box) and refuses the run
//      when a dialog had no safe answer or a signal came before it
//   4  the result read from RunState: counts, the files written, the log's path
// A signal ends the call after the template in hand; "Maximizer Required!" ends it at once.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace tolmen {

class Tolmen;
class UnattendedUi;

// The exit statuses of `tolmen run`, the worst of its templates' (the larger number).
enum RunCallStatus : int {
  kRunCallOk = 0,
  kRunCallErrors = 1,
  kRunCallNotStarted = 2,
  kRunCallCancelled = 3,
  kRunCallUsage = 4,
};

enum class TemplateOutcome { kOk, kErrors, kNotStarted, kEnded, kCancelled };

struct TemplateResult {
  std::string path;  // as given (Windows-1252)
  TemplateOutcome outcome = TemplateOutcome::kNotStarted;
  int32_t debtors = 0;     // DebtorsWritten
  int32_t newDebtors = 0;  // BalancesMissed
  int32_t invoices = 0;
  int32_t errors = 0;   // ErrorCount, the repeat of the list's last line included
  int32_t repeats = 0;  // RepeatCount
  int32_t clientsScanned = 0;
  int32_t clientsSkipped = 0;      // account numbers not accepted
  int32_t udfFields = 0;           // TransferToMaximizer
  int32_t udfClients = 0;          // BalancesSent
  std::vector<std::string> files;  // the import files written
  std::string log;
  std::vector<std::string> messages;  // the dialogs that reported a fault
};

struct RunRequest {
  std::vector<std::string> templates;  // Windows-1252 paths
  bool json = false;
  bool quiet = false;
};

// The errors that make the status 1: every error but the one the pass records at its end when it
// read a client again (the list's last line is read twice in every run over a list).
int32_t ErrorsThatCount(int32_t errors, int32_t repeats);
// The outcome of a run that reached DoImport: cancelled (exit status 3), ended by a dialog,
// errors, or ok.
TemplateOutcome RunOutcome(int doImportStatus, bool endedByDialog, int32_t errorsThatCount);
RunCallStatus StatusOf(TemplateOutcome outcome);
const char* OutcomeWord(TemplateOutcome outcome);

// "TEMPLATE: N debtors, N invoices, N errors, files A B" (UTF-8); a status word follows the name
// for runs that did not end normally.
std::string SummaryLine(const TemplateResult& result);
// One JSON object on one line (UTF-8).
std::string JsonLine(const TemplateResult& result);

// Steps 1 to 4 above for the template at `path`, number index + 1 of `count`; `shown` names it in
// the log heading instead of `path` when not empty (a preview runs a copy).
TemplateResult RunTemplateOfCall(Tolmen& app, UnattendedUi& ui, const std::string& path,
                                 size_t index, size_t count, std::ostream& err,
                                 const std::string& shown = "");

// Runs the templates; the call's exit status. The application has been loaded (Form_Load) and
// `ui` attached to it.
int RunTemplates(Tolmen& app, UnattendedUi& ui, const RunRequest& request, std::ostream& out,
                 std::ostream& err);

}  // namespace tolmen
