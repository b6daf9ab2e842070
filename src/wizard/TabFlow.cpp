#include "wizard/TabFlow.h"

#include <cmath>
#include <string>
#include <vector>

#include "billing/BillingSetup.h"
#include "maximizer/OpenMaximizer.h"
#include "pastel/OpenPastel.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "shell/Busy.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "transfer/Categories.h"
#include "transfer/ImportFiles.h"
#include "transfer/Max2Pastel.h"
#include "transfer/Pas2MaxLinks.h"
#include "transfer/RunStart.h"

namespace tolmen {

namespace {

constexpr int kLastTab = MainForm::kTabTransfer;

// The first visible page from `from` on in the direction `step`, skipping up to three hidden
// ones; the last page tried when all of those are hidden.
int VisibleTab(const TabControl& tabs, int from, int step) {
  int tab = from;
  for (int skipped = 0; skipped < 3; ++skipped) {
    if (tab < 0 || tab > kLastTab || tabs.TabVisible(tab)) break;
    tab += step;
  }
  return tab;
}

// The "Next" button's work for the page it leaves; true when the wizard may go on.
bool LeavePage(Tolmen& app, int tab) {
  MainForm& form = app.screen.frmMain;
  switch (tab) {
    case MainForm::kTabOpen: {
      // Both are always called, and both must succeed.
      const bool pastel = OpenPastel(app);
      const bool maximizer = OpenMaximizerOLE(app);
      if (!(pastel && maximizer)) return false;
      if (!app.shell.TemplateLoaded) {
        FillToPastelLists(app);
        RefillAddressBoxes(app);
      }
      return true;
    }
    case MainForm::kTabToPastel:
      if (!OpenMaximizerOLE(app) || !ToPastelChecks(app)) return false;
      SetOptions(app);
      return DatabaseChangeWarning(app);
    case MainForm::kTabToMaximizer:
      return OpenMaximizerOLE(app) && IsPas2MaxOK(app);
    case MainForm::kTabRecurringBilling:
      return OpenMaximizerOLE(app) && CheckBillingSetup(app);
    case MainForm::kTabCasualBilling:
      return OpenMaximizerOLE(app);
    case MainForm::kTabTransfer:
      ImportEntry(app);
      return false;  // the page does not change
    default:
      app.ui.MsgBox("Programming Error: Unknown Tab " + std::to_string(tab), vbOKOnly,
                    form.tabDlg.TabCaption(form.tabDlg.Tab()));
      return false;
  }
}

// The confirmation of the Import entry, each part on lines of its own. The billing decision has
// been made for the billing date.
std::string ConfirmationText(Tolmen& app) {
  std::vector<std::string> lines;
  const RunState& run = app.run;
  if (run.WriteCsv) {
    if (EntireDatabase(app)) {
      app.ui.Beep();
      lines.push_back("Please Note: According to your current Import Criteria ");
      lines.push_back("it is possible for the entire Maximizer Database to be ");
      lines.push_back("imported into Pastel.");
    } else {
      lines.push_back(app.info.AppName +
                      " will use the Pastel Accounts: " + app.pastel.PastelDataPath);
      lines.push_back("with the  Maximizer database: " + app.screen.frmMain.txtDatabaseName.Text());
      lines.push_back("according to the Parameters you have entered.");
    }
    lines.push_back("Debtors will be written to file " + run.CsvFileName);
  } else {
    lines.push_back("Debtors will NOT be written to file for importing into Pastel.");
  }
  if (run.RecurringBillingOn)
    lines.push_back("New Invoices will be written to file " + run.InvoiceFileName);
  if (app.screen.frmMain.mnuOptnMax2Pas.Checked())
    lines.assign(1, "Update from Pastel to Maximizer only.");
  lines.push_back("Click 'Yes' if you are sure you want to continue.");
  return Join(lines, app.info.LineBreak);
}

// The Import entry's own step before the run: the import files numbered, the mismatch summary
// and "Pattern Matching" off for this run, and the question (taken as Yes in an unattended run).
bool ConfirmImport(Tolmen& app) {
  RunState& run = app.run;
  const ImportFileNames names = NumberImportFiles(app.pastel.PastelDataPath);
  run.CsvFileName = names.customer;
  run.InvoiceFileName = names.invoice;
  run.WriteCsv = app.screen.frmMain.chkWritePasFile.Value() == 1;
  run.MismatchSummaryOn = false;
  app.options.PatternMatching = false;
  const std::string text = ConfirmationText(app);

  const double now = app.clock.Now();
  std::string title = "Confirm Import - " + FormatDate(now, "hh:mm d mmmm yyyy");
  if (run.BillingDate != std::floor(now))
    title += " - Recurring Billing " + FormatDate(run.BillingDate, "d mmm yyyy");
  return run.Unattended || app.ui.MsgBox(text, vbYesNo + vbQuestion, title) == vbYes;
}

}  // namespace

void cmdNext_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  SetBusy(app);
  form.lblUDFkey.SetVisible(false);
  const int tab = form.tabDlg.Tab();
  if (LeavePage(app, tab)) {
    const int next = VisibleTab(form.tabDlg, tab + 1, 1);
    if (next >= 0 && next <= kLastTab) form.tabDlg.SetTab(next);
  }
  SetBusy(app, true);
}

void cmdBack_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const int previous = VisibleTab(form.tabDlg, form.tabDlg.Tab() - 1, -1);
  if (previous >= 0) form.tabDlg.SetTab(previous);
}

void tabDlg_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const int tab = form.tabDlg.Tab();
  if (tab == MainForm::kTabOpen) {
    form.cmdBack.SetEnabled(false);
    form.cmdNext.SetCaption("&Next >>");
    return;
  }
  if (!OpenMaximizerOLE(app)) return;  // the buttons stay as they were
  form.cmdBack.SetEnabled(true);
  form.cmdNext.SetCaption("&Next >>");
  switch (tab) {
    case MainForm::kTabToPastel:
      LoadCategories(app);
      FillToPastelLists(app);
      DatabaseChangeWarning(app);
      break;
    case MainForm::kTabToMaximizer:
      SetListTabStops(form.lst2MaxUDFs, 1);
      SetListTabStops(form.lst2MaxLinked, 2);
      break;
    case MainForm::kTabRecurringBilling:
      SetListTabStops(form.lstPrices, 0);
      if (form.optBillPeriod.Value() >= 0) form.optBillPeriod(form.optBillPeriod.Value()).Click();
      break;
    case MainForm::kTabCasualBilling:
      form.lstPasInventory.Click();
      // The free-text boxes follow their message UDF boxes.
      for (int index : form.cboMessage.Indexes()) form.cboMessage(index).Click();
      break;
    case MainForm::kTabTransfer:
      for (int line = 1; line <= 4; ++line) form.lblProgress(line).SetVisible(false);
      form.lblProgress(0).SetVisible(true);
      form.Image1.SetVisible(true);
      form.ProgressBar1.SetValue(0);
      form.lblHeading.SetCaption(form.optBillPeriod.Value() <= 0 ? "Import" : "Import and Billing");
      form.cmdNext.SetCaption("&Import");
      break;
    default:
      break;
  }
}

void cmdSave_Click(Tolmen& app) {
  app.screen.frmMain.mnuFile(2).Click();
}

void ImportEntry(Tolmen& app) {
  RunEntry entry;
  entry.reason = "by User.";
  entry.copyScreen = true;
  entry.decideBillingDay = true;
  entry.confirm = [&app] { return ConfirmImport(app); };
  StartRun(app, entry);
}

void RefillAddressBoxes(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  for (ComboBox* box : {&form.cboPostal, &form.cboDelivery}) {
    const std::string chosen = box->Text();
    box->Clear();
    for (const char* choice : {"", "<Selected>", "<First Alternate>", "*Main Address"})
      box->AddItem(choice);
    box->SetText(chosen);
  }
}

bool DatabaseChangeWarning(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  RunOptions& options = app.options;
  if (app.wizard.DatabaseWarned && app.wizard.DatabaseWarnedFor == options.TemplateDatabasePath)
    return true;
  if (!EqualsNoCase(form.Dir1.Text(), options.TemplatePastelFolder)) return true;
  const std::string now = form.txtDatabasePath.Text();
  if (EqualsNoCase(options.TemplateDatabasePath, now)) return true;
  app.wizard.DatabaseWarned = true;
  app.wizard.DatabaseWarnedFor = options.TemplateDatabasePath;
  const int answer =
      app.ui.MsgBox(Join({"In your previous run you were using the Maximizer database:",
                          options.TemplateDatabasePath, "Now you are using:", now, "Is this OK?"},
                         app.info.LineBreak),
                    vbYesNo, app.info.AppName + " Warning: Maximizer Database change!");
  if (answer == vbYes) return true;
  form.tabDlg.SetTab(MainForm::kTabOpen);
  return false;
}

void SetListTabStops(ListBox& list, int mode) {
  switch (mode) {
    case 1:
      list.SetTabStops({80, 100, 120});
      break;
    case 2:
      list.SetTabStops({125, 165, 215});
      break;
    default:
      list.SetTabStops({100, 140, 160});
      break;
  }
}

}  // namespace tolmen
