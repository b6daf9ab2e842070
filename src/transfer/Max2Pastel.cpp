#include "transfer/Max2Pastel.h"

#include <cmath>
#include <vector>

#include "maximizer/ClientList.h"
#include "pastel/OpenPastel.h"
#include "pastel/pasDcodeFile.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/BtGlobal.h"
#include "recordio/StatusCatalogue.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "runtime/Trap.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "transfer/RunTrap.h"
#include "transfer/TransferClients.h"

namespace tolmen {
namespace {

constexpr const char* kCurrentTemplate = "CURRENT.KTF";
constexpr const char* kPastelTemplate = "Kelbor.KTF";

std::string Now(Tolmen& app) {
  return FormatDate(app.clock.Now(), "d mmm yyyy hh:mm");
}

std::string MultiYearWords(int method) {
  switch (method) {
    case 1:
      return "Multi-Year Method: Set Date Billed into Future (allows change of Category)";
    case 2:
      return "Multi-Year Method: Use Real Date Billed & add No of Years of Special (Category must "
             "not change)";
    case 3:
      return "Multi-Year Method: Use Real Date Billed + Years, but Ignore Year of Future Date "
             "Billed (re-invoice) (Changing Method)";
    default:
      return "Multi-Year Method: Error (should already have Asked User).";
  }
}

// Step 2: the billing lines.
void LogRecurringBilling(Tolmen& app, RunTrap& trap) {
  const RunState& run = app.run;
  trap([&] {
    std::string line = "Recurring Billing ON.";
    if (std::floor(run.BillingDate) != std::floor(app.clock.Now()))
      line += "  Date: " + FormatDate(run.BillingDate, "d mmm yyyy");
    LogEntry(app, 8, line);
  });
  trap([&] { LogEntry(app, 8, MultiYearWords(app.shell.MultiYear)); });
}

// Step 4: the new category of option 1, written at the start of the run so that every client
// of the run can be given it.
void InsertNewCategory(Tolmen& app, RunTrap& trap) {
  MainForm& form = app.screen.frmMain;
  RunState& run = app.run;
  int16_t status = 0;
  if (!trap([&] {
        run.CurrentCategoryNumber = static_cast<int16_t>(CInt(Variant(form.txtCategory(1).Text())));
        run.CurrentCategoryText = form.txtCategory(0).Text();
        pasDcodeFile& categories = app.pastelFiles.DcodeFile();
        categories.default_(1, Variant(run.CurrentCategoryNumber));
        categories.default_(2, Variant(run.CurrentCategoryText));
        categories.INSERT();
        status = categories.STATUS_;
      }))
    return;
  const std::string entry =
      "<" + std::to_string(run.CurrentCategoryNumber) + "> " + run.CurrentCategoryText;
  if (status != kStatusOk) {
    trap([&] { LogError(app, StatusText(status) + " in DoImport adding Category " + entry); });
    return;
  }
  run.CategoriesCreated.push_back(entry);
  trap([&] {
    form.txtCategory(0).SetText("");
    form.txtCategory(1).SetText("");
  });
  trap([&] { form.optCategory.Set(0); });
  trap([&] {
    form.cboCategories.AddItem(entry);
    form.cboCategories.SetListIndex(form.cboCategories.NewIndex());
  });
  trap([&] { LogEntry(app, 1, ""); });
}

std::string DebtorsLine(const RunState& run) {
  return std::to_string(run.DebtorsWritten) + " Pastel Debtors (" +
         std::to_string(run.BalancesMissed) + " new) were written to file " + run.CsvFileName;
}

std::string Status22Line(const RunState& run) {
  return std::to_string(run.AcceptedStatus22) +
         " BTrieve Status 22 Errors in maxClients were accepted.";
}

std::string ToMaximizerLine(const RunState& run) {
  return "Updated " + PluralForm(run.TransferToMaximizer, "Maximizer User-Defined Field") +
         " for " + PluralForm(run.BalancesSent, "Maximizer Client") + " from Pastel.";
}

// Step 13: the result lines of the log.
void LogResults(Tolmen& app, RunTrap& trap) {
  const RunState& run = app.run;
  if (run.DebtorsChanged > 0 || run.DebtorsWritten >= 1)
    trap([&] { LogEntry(app, 8, DebtorsLine(run)); });
  if (run.AcceptedStatus22 != 0) trap([&] { LogEntry(app, 8, Status22Line(run)); });
  if (run.InvoicingPlanned)
    trap([&] {
      LogEntry(app, 8,
               std::to_string(run.InvoiceCount) + " New Invoices were Created" +
                   " and written to file " + run.InvoiceFileName);
    });
  if (run.InvoiceCount != 0)
    for (const std::string& note : run.EndOfRunNotes) trap([&] { LogEntry(app, 8, "  " + note); });
  if (run.TransferToMaximizer != 0) trap([&] { LogEntry(app, 8, ToMaximizerLine(run)); });
}

// Step 14: the result dialog of a run of one template. True when the user asks for the log.
bool ResultDialog(Tolmen& app) {
  const RunState& run = app.run;
  const int sum = run.DebtorsChanged + run.DebtorsWritten + run.BalancesMissed +
                  run.DebtorsSkipped + run.DebtorsLater + run.ErrorCount;
  if (sum < 1 && !run.InvoicingPlanned && !run.MismatchSummaryOn) return false;

  std::vector<std::string> lines{DebtorsLine(run)};
  if (run.ErrorCount > 0)
    lines.push_back(std::to_string(run.ErrorCount) +
                    " Errors occurred (View Log File for details).");
  if (run.MismatchSummaryOn) {
    lines.push_back(std::to_string(run.MismatchCount) + " Mismatched Account Codes were " +
                    (app.options.MismatchMode != 0 ? "fixed in Maximizer." : "found."));
    if (run.MismatchCount > 0)
      lines.push_back("(For details, search the Log File for the word \"Mismatch\")");
  }
  if (run.InvoicingPlanned) {
    lines.push_back(std::to_string(run.InvoiceCount) + " New Invoices were written to file " +
                    run.InvoiceFileName);
    if (run.InvoiceCount > 0) lines.push_back("PLEASE IMPORT THEM BEFORE RUNNING TOLMEN AGAIN!");
  }
  if (run.TransferToMaximizer != 0) lines.push_back(ToMaximizerLine(run));
  if (run.AcceptedStatus22 != 0) lines.push_back(Status22Line(run));
  lines.push_back("Do you want to Open the Log File?");
  return app.ui.MsgBox(Join(lines, app.info.LineBreak), vbYesNo + vbInformation + vbDefaultButton2,
                       app.info.AppName + " Import Complete: Open Log File?") == vbYes;
}

// Step 15: the dialog at the end of a template list. True when the user asks for the log.
bool ListDialog(Tolmen& app) {
  RunState& run = app.run;
  ++run.TemplatesDone;
  if (run.TemplatesDone != static_cast<int>(app.background.TemplateList.size()) ||
      !run.ShowFinalMessage)
    return false;
  std::vector<std::string> lines{"The Maximizer Clients according to the " +
                                 std::to_string(run.TemplatesDone) +
                                 " Templates selected have been imported into Pastel."};
  if (run.ErrorCount > 0) lines.push_back("Errors occurred (View Log File for details).");
  if (run.MismatchCount != 0)
    lines.push_back(std::to_string(run.MismatchCount) +
                    " Mismatched Account Codes were found/fixed.");
  lines.push_back("Do you want to Open the Log File?");
  return app.ui.MsgBox(Join(lines, app.info.LineBreak), vbYesNo + vbDefaultButton2,
                       app.info.AppName + " Import Complete: Open Log File?") == vbYes;
}

}  // namespace

std::string PluralForm(std::int32_t count, const std::string& word) {
  if (count == 1 || count == -1) return "One " + word;
  return std::to_string(count) + " " + word + "s";
}

void DoImport(Tolmen& app) {
  RunState& run = app.run;
  MainForm& form = app.screen.frmMain;
  RunTrap trap(app);
  bool openLog = false;
  bool cancelled = false;

  [&] {
    if (!trap([&] {
          run.DeliveryDefaultCode = "Delivery";
          run.CurrentSection = "Starting Sub DoImport";
          LogEntry(app, 0, "");
        }))
      return;
    if (run.RecurringBillingOn) LogRecurringBilling(app, trap);
    trap([&] { BeginConcurrentTransaction(app); });
    if (app.options.CreateCategory) InsertNewCategory(app, trap);
    if (trap.Aborted()) return;

    run.RunActive = true;
    run.DebtorsChanged = 0;
    run.DebtorsWritten = 0;
    run.BalancesMissed = 0;
    run.DebtorsSkipped = 0;
    run.DebtorsLater = 0;
    run.AcceptedStatus22 = 0;
    run.BalancesSent = 0;
    run.InvoiceCount = 0;

    trap([&] { TransferClients(app); });
    trap([&] { form.optListClients.Set(1); });
    // After a stop the system once offered a second phase; only the stage's name is left.
    if (run.StopRequest != kStopNone) run.CurrentSection = "Choice to Abort or do 2nd Phase";
    trap([&] {
      if (!app.toolkit.DocumentFilesOpen()) return;
      app.toolkit.CloseDocumentFiles();
      if (app.shell.DebugLevel < 0) LogEntry(app, 8, "# Debug: CloseDocumentFiles");
    });
    if (trap.Aborted()) return;

    run.CurrentSection = "Final Messages";
    trap([&] {
      form.ProgressBar1.SetValue(0);
      for (int index = 1; index <= 4; ++index) form.lblProgress(index).SetVisible(false);
      app.ui.AnimationStop();
    });

    if (run.StopRequest == kStopCancel) {
      cancelled = true;
      trap([&] { LogEntry(app, 8, "Transfer cancelled at " + Now(app)); });
      trap([&] {
        app.ui.MsgBox("The transfer has been cancelled in " + run.TaskTitle + ".", vbExclamation,
                      app.info.AppName + " Transfer Cancelled");
      });
      trap([&] { form.tabDlg.SetTab(MainForm::kTabToMaximizer); });
      return;
    }

    trap([&] {
      LogEntry(app, 8,
               (run.StopRequest == kStopEnd ? std::string("The transfer was stopped at ")
                                            : app.info.AppName + " Import Completed at ") +
                   Now(app));
    });
    LogResults(app, trap);
    if (run.RunMode == kRunOneTemplate) trap([&] { openLog = ResultDialog(app); });
    if (run.RunMode == kRunTemplateList) trap([&] { openLog = ListDialog(app); });
    trap([&] { EndTransaction(app); });
    trap([&] { TemplateSave(app, app.info.AppFolder + kCurrentTemplate); });
    trap([&] { TemplateSave(app, app.pastel.PastelDataPath + kPastelTemplate); });
    if (trap.Aborted()) return;
    app.shell.TemplateLoaded = true;
    trap([&] { form.tabDlg.SetTab(MainForm::kTabToMaximizer); });
  }();

  // From here on errors are passed over.
  PassOver([&] { app.log.EndRun(); });
  if (openLog) PassOver([&] { app.ui.OpenInEditor(app.log.Path()); });
  PassOver([&] { ClosePasFiles(app); });
  run.RunActive = false;
  PassOver([&] { CloseClientList(app); });

  if (cancelled)
    app.shell.ExitStatus = kExitRunCancelled;
  else if (run.ErrorCount > 0 || trap.Aborted())
    app.shell.ExitStatus = kExitRunErrors;
  else
    app.shell.ExitStatus = kExitOk;
}

}  // namespace tolmen
