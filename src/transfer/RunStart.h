// Starting a run: what every entry does before DoImport and around it. The Import button, the
// command line and the tests call StartRun; a timer run over a template list calls its pieces
// (ClearRunNotes once for the list, RunTemplate for each template, AfterRunScreen at the end).
//
// StartRun, step by step:
//   1  OpenMaximizerOLE; a failure ends here quietly
//   2  with copyScreen: SetOptions, the screen copied into RunOptions
//   3  CheckRunOptions; a failure (its message shown, the wizard on the tab at fault) ends here
//   4  with loadCategories: LoadCategories
//   5  ClearRunNotes: the end-of-run notes, MismatchCount and ErrorCount
//   6  with decideBillingDay: the billing date (today unless one was chosen) and its decision
//   7  confirm, when given; false ends here
//   8  RunTemplate: StopRequest cleared; with showTransferPage the Transfer page selected;
//      BeforeRunScreen; with showTransferPage a yield; RunMode and RunReason; DoImport inside
//      the run journal of the Pastel folder (journal/RunJournal.h): each UDF write as it is
//      made, the run's record after DoImport
//   9  AfterRunScreen
//
// The entries differ in these ways only:
//   entry             copyScreen  loadCategories  decideBillingDay  showTransferPage  confirm
//   Import button     yes         no              yes               no                the question
//   command line      no (*)      yes             no                yes               none
//   tolmen run        yes         yes             yes               no                its own (**)
// (*) the command line reads its template and runs SetOptions before it calls StartRun.
// (**) no question: the import files numbered as the Import button numbers them
//      (unattended/RunCommand.cpp).
#pragma once

#include <functional>
#include <string>

#include "transfer/RunState.h"

namespace tolmen {

class Tolmen;
struct RunOptions;

struct RunEntry {
  std::string reason;  // RunReason, the log heading's last words
  RunModeKind mode = kRunOneTemplate;
  bool copyScreen = false;
  bool loadCategories = false;
  bool decideBillingDay = false;
  bool showTransferPage = false;
  std::function<bool()> confirm;
};

// Steps 1 to 9 above. True when DoImport ran.
bool StartRun(Tolmen& app, const RunEntry& entry);

// Step 8 above, for one template of a list; the caller has cleared the notes and restores the
// screen after the list.
void RunTemplate(Tolmen& app, const RunEntry& entry);

// Clears the end-of-run notes, MismatchCount and ErrorCount: once per entry, so that the errors of
// a template list add up.
void ClearRunNotes(RunState& run);

}  // namespace tolmen
