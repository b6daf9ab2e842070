#include "transfer/RunStart.h"

#include "billing/BillingDay.h"
#include "maximizer/OpenMaximizer.h"
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

void RunTemplate(Tolmen& app, const RunEntry& entry) {
  RunState& run = app.run;
  run.StopRequest = kStopNone;
  if (entry.showTransferPage) app.screen.frmMain.tabDlg.SetTab(MainForm::kTabTransfer);
  BeforeRunScreen(app);
  if (entry.showTransferPage) app.ui.Yield();
  run.RunMode = entry.mode;
  run.RunReason = entry.reason;
  DoImport(app);
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
