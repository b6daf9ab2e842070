#include "transfer/RunStart.h"

#include <filesystem>
#include <system_error>

#include "billing/BillingDay.h"
#include "journal/RunJournal.h"
#include "maximizer/OpenMaximizer.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"
#include "templates/SetOptions.h"
#include "transfer/Categories.h"
#include "transfer/Max2Pastel.h"

namespace tolmen {

void ClearRunNotes(RunState& run) {
  run.EndOfRunNotes.clear();
  run.MismatchCount = 0;
  run.ErrorCount = 0;
}

namespace {

// The journal's record of a run that DoImport has ended. The categories it inserted count only
// when the run was not cancelled: Cancel rolls the inserts back.
RunSummary SummaryOf(Tolmen& app) {
  const RunState& run = app.run;
  RunSummary summary;
  summary.templatePath = app.shell.TemplatePath;
  summary.entry = run.RunReason;
  summary.maximizer = app.maximizer.DatabasePath;
  const int status = app.shell.ExitStatus;
  summary.status = status == kExitRunCancelled ? "cancelled"
                   : status == kExitRunErrors  ? "errors"
                                               : "ok";
  summary.counts = {
      {"debtors", run.DebtorsWritten},         {"new_debtors", run.BalancesMissed},
      {"invoices", run.InvoiceCount},          {"errors", run.ErrorCount},
      {"udf_fields", run.TransferToMaximizer}, {"clients_scanned", run.ClientsScanned}};
  for (const std::string* file : {&run.CsvFileName, &run.InvoiceFileName}) {
    std::error_code ec;
    if (!file->empty() && std::filesystem::is_regular_file(SystemPath(*file), ec))
      summary.files.push_back(*file);
  }
  if (status != kExitRunCancelled) summary.categories = run.CategoriesCreated;
  return summary;
}

}  // namespace

void RunTemplate(Tolmen& app, const RunEntry& entry) {
  RunState& run = app.run;
  run.StopRequest = kStopNone;
  if (entry.showTransferPage) app.screen.frmMain.tabDlg.SetTab(MainForm::kTabTransfer);
  BeforeRunScreen(app);
  if (entry.showTransferPage) app.ui.Yield();
  run.RunMode = entry.mode;
  run.RunReason = entry.reason;
  run.CategoriesCreated.clear();
  JournalledRun journal(app.maximizer, app.clock, app.pastel.PastelDataPath);
  DoImport(app);
  journal.Finish(SummaryOf(app));
}

bool StartRun(Tolmen& app, const RunEntry& entry) {
  if (!OpenMaximizerOLE(app)) return false;
  if (entry.copyScreen) SetOptions(app);
  if (!CheckRunOptions(app)) return false;
  if (entry.loadCategories) LoadCategories(app);
  ClearRunNotes(app.run);
  if (entry.decideBillingDay) DecideBillingDay(app.run, app.options, app.clock.Now());
  if (entry.confirm && !entry.confirm()) return false;
  RunTemplate(app, entry);
  AfterRunScreen(app);
  return true;
}

}  // namespace tolmen
