#include "transfer/TransferClients.h"

#include "billing/CasualBilling.h"
#include "billing/ClientDue.h"
#include "billing/Invoice.h"
#include "maximizer/ClientList.h"
#include "maximizer/MaximizerLink.h"
#include "maximizer/UdfCatalogue.h"
#include "platform/automation/MaximizerAutomation.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/BtGlobal.h"
#include "runtime/Conversion.h"
#include "runtime/Strings.h"
#include "runtime/Trap.h"
#include "shell/ProcessEnd.h"
#include "shell/ProgressLine.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "transfer/Categories.h"
#include "transfer/ClientNames.h"
#include "transfer/DebtorRecord.h"
#include "transfer/ImportFiles.h"
#include "transfer/Pas2MaxLinks.h"
#include "transfer/RunTrap.h"

namespace tolmen {

namespace {

constexpr const char* kTaskTitle = "Updating Pastel Debtors and/or Maximizer UDFs";
constexpr const char* kPauseHeading =
    "Click [Pause] to Pause, End, or Cancel the transfer of Customer Data.";

// A label shows "&&" as one ampersand.
std::string ForLabel(const std::string& text) {
  return Replace(text, "&", "&&");
}

void LogLinks(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  LogEntry(app, 8, "Updating Maximizer User-Defined Fields from Pastel: ");
  for (int line = 0; line < form.lst2MaxLinked.ListCount(); ++line)
    LogEntry(app, 8, "  " + std::to_string(line + 1) + ": " + form.lst2MaxLinked.List(line));
  LogEntry(app, 8, form.lblAging.Caption());
  LogEntry(app, 8, "");
}

// One selected client: the debtor, then what the modules of billing and of the push to
// Maximizer add.
void WorkOnClient(Tolmen& app, RunTrap& trap) {
  RunState& run = app.run;
  MainForm& form = app.screen.frmMain;
  run.CurrentSection = "RecordSelected section";
  form.lblProgress(3).SetCaption(ForLabel(run.ClientName));
  app.ui.Yield(run.ClientsScanned);
  if (app.shell.DebugLevel > 1)
    LogEntry(
        app, 8,
        "# Debug: Max2Pastel >>" + std::to_string(run.ClientsProcessed) + " " + run.ClientName);
  long recordType = 0;
  if (!trap([&] { recordType = ClientRecordType(app); })) return;
  // Companies (1) and individuals (2) become debtors; contacts (31, 32) are named only.
  if (recordType != 1 && recordType != 2) return;
  ++run.ClientsProcessed;
  if (!trap([&] { CreateNewDebtorRecord(app); })) return;
  if (app.client.AccountCode.empty()) return;
  run.CurrentSection = "Check Billing section";
  bool billThisClient = false;
  if (run.RecurringBillingOn && !billThisClient) {
    if (!trap([&] { billThisClient = DecideClientDue(app); })) return;
    app.billing.InvoiceNote = " (Renewal)";
  }
  if (billThisClient && !trap([&] { DoBilling1(app); })) return;
  if (run.CasualBillingOn) DoBilling2(app);
  run.CurrentSection = "Pastel2Max1 section";
  if (run.TransferToMaximizer != 0 && !trap([&] { Pastel2Max(app); })) return;
  run.CurrentSection = "Update Kelbor to Now";
}

}  // namespace

std::string CountersLine(Tolmen& app) {
  const RunState& run = app.run;
  std::string line = std::to_string(run.ClientsScanned) + " of " +
                     NumberText(app.screen.frmMain.ProgressBar1.Max()) + ": " +
                     std::to_string(run.DebtorsWritten) + " Debtors, ";
  if (run.TransferToMaximizer != 0)
    line += std::to_string(run.BalancesSent) + " Bals to Max (" +
            std::to_string(run.BalancesMissed) + " missed), ";
  line += std::to_string(run.ErrorCount) + " Errors";
  if (run.MismatchSummaryOn) line += ", " + std::to_string(run.MismatchCount) + " Mismatches";
  if (run.InvoicingPlanned) line += ", " + std::to_string(run.InvoiceCount) + " Invoiced";
  if (run.RepeatCount != 0) line += ", " + std::to_string(run.RepeatCount) + " Repeats";
  return line;
}

bool MatchesImportCriteria(Tolmen& app) {
  const std::string value = GetClientField(app, app.options.ImportCriteriaUdf.index);
  const std::string& wanted = app.options.ImportCriteriaText;
  if (EqualsNoCase(value, wanted)) return true;
  return wanted == "*" && !value.empty();
}

bool RecordSelected(Tolmen& app) {
  const int which = app.options.ImportWhichData;
  if (which == 1) return true;
  if (which == 3) return MatchesImportCriteria(app);
  app.ui.MsgBox("Bad case " + std::to_string(which), vbCritical, "Error in To Pastel tab");
  // The program ends at once: nothing is closed and the transaction is not committed.
  throw ProcessEnd{"Bad case"};
}

void TransferClients(Tolmen& app) {
  if (app.stages.TransferClients) return app.stages.TransferClients();
  RunState& run = app.run;
  MainForm& form = app.screen.frmMain;
  MaximizerLink& link = app.maximizer;
  clsClientsOLE& list = link.ClientList();
  RunTrap trap(app);
  std::string previousId;
  std::string currentId;
  std::string repeatedIds;

  // The start of the pass. The category of options 0 and 1 is every client's from the start.
  SetRunCategory(app);
  run.TaskTitle = kTaskTitle;
  form.lblHeading.SetCaption(kPauseHeading);
  for (int line = 1; line <= 4; ++line) {
    form.lblProgress(line).SetCaption("");
    form.lblProgress(line).SetVisible(true);
  }
  // A stop during the preparation, or Cancel at the import files, aborts the transaction and
  // ends the pass; Abort at an error goes straight to the end of the pass and leaves the
  // transaction to DoImport.
  bool started = trap([&] { OpenClientList(app); });
  if (started && run.StopRequest != kStopNone) {
    AbortTransaction(app);
    started = false;
  }
  if (started) {
    // The stage stays in the heading while the pass runs.
    form.lblHeading.SetCaption("Opening CSV files");
    bool opened = false;
    started = trap([&] { opened = OpenCsvFiles(app); });
    if (started && !opened) {
      AbortTransaction(app);
      started = false;
    }
  }
  if (started) {
    run.StartTime = app.clock.Now();
    app.ui.Yield();
    trap([&] {
      list.Key(1);
      list.KeyBuf = std::string(42, ' ');
      list.IO(run.CurrentClientOnly ? kOpGetEqual : kOpGetFirst);
      // An empty list has no top entry to read: the pass ends before its first turn.
      if (!run.CurrentClientOnly && link.ListCount == 0) list.STATUS_ = kStatusEndOfFile;
    });
    run.ClientsScanned = 0;
    run.ClientsProcessed = 0;
    form.ProgressBar1.SetMin(0);
    form.ProgressBar1.SetMax(run.CurrentClientOnly ? 1 : list.RecordCount());
    run.TransferToMaximizer = form.mnuViewMaximizer.Checked() ? form.lst2MaxLinked.ListCount() : 0;
    if (run.TransferToMaximizer != 0) trap([&] { LogLinks(app); });

    while (list.STATUS_ == kStatusOk && !trap.Aborted()) {
      run.CurrentSection = "Progress bar Update";
      ++run.ClientsScanned;
      form.ProgressBar1.SetValue(run.ClientsScanned);
      form.lblProgress(1).SetCaption(CountersLine(app));
      UpdateProgressLine(app, run.ClientsScanned);
      if (!trap([&] { run.ClientName = ClientDisplayName(app); })) break;
      if (!run.ClientName.empty()) {
        bool selected = false;
        if (!trap([&] { selected = RecordSelected(app); })) break;
        if (selected) {
          WorkOnClient(app, trap);
          if (trap.Aborted()) break;
        } else {
          form.lblProgress(4).SetCaption(ForLabel(run.ClientName));
        }
      }
      run.CurrentSection = "End Main Loop";
      app.ui.Yield(run.ClientsScanned);
      if (app.shell.DebugLevel > 1)
        LogEntry(
            app, 8,
            "# Debug: Max2Pastel <<" + std::to_string(run.ClientsProcessed) + " " + run.ClientName);
      run.CurrentSection = "End Main Loop: Get Next Client";
      if (run.CurrentClientOnly) {
        list.STATUS_ = kStatusEndOfFile;
      } else if (!trap([&] { list.IO(kOpGetNext); })) {
        break;
      }
      run.CurrentSection = "End Main Loop: Got Next Client";
      if (run.StopRequest == kStopEnd) break;
      if (run.StopRequest == kStopCancel) {
        list.STATUS_ = kStatusEndOfFile;
        AbortTransaction(app);
      }
      previousId = currentId;
      if (!trap([&] { currentId = link.Record().GetFieldValue("Identification"); })) break;
      if (EqualsNoCase(previousId, currentId) && !run.CurrentClientOnly) {
        ++run.RepeatCount;
        if (InStr(UCase(repeatedIds), UCase(currentId)) == 0) repeatedIds += ", " + currentId;
      }
    }
  }

  // The end of the pass.
  run.CurrentSection = "After Main Loop";
  if (run.RepeatCount != 0)
    trap([&] {
      LogError(app, std::to_string(run.RepeatCount) + " repeats of the same Maximizer Record" +
                        repeatedIds);
    });
  // From here on errors are passed over.
  PassOver([&] {
    if (!app.importFiles.customer.IsOpen()) return;
    run.CurrentSection = "Closing CSV files";
    CloseCsvFiles(app);
    run.CurrentSection.clear();
  });
  form.lblProgress(3).SetCaption("");
  if (run.DebtorsChanged + run.DebtorsWritten + run.ErrorCount > 0)
    PassOver([&] { LogEntry(app, 8, ""); });
}

}  // namespace tolmen
