// The run driver played through the script front-end, a small fake client loop in the real one's
// place.
#include "transfer/Max2Pastel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "shell/RunLog.h"
#include "shell/ShellFixture.h"
#include "shell/Startup.h"
#include "transfer/AccountCodes.h"
#include "transfer/RunStart.h"

namespace tolmen::testing {
namespace {

class Max2PastelTest : public ShellFixture {
 protected:
  // The application on its main window, with the Import entry on cmdNext as the wizard has it
  // and the Pause button's handler.
  void Prepare(const std::vector<std::string>& script, int clients, bool writeDebtors = true) {
    Start(script);
    FakeStartStages();
    FakeClientLoop(clients, writeDebtors);
    MainForm& form = app_->screen.frmMain;
    form.optImport.Set(0);
    form.cmdAbort.SetOnClick([this] { cmdAbort_Click(*app_); });
    app_->shell.ToPastelFilled = true;
    form.cmdNext.SetOnClick([this] {
      RunEntry entry;
      entry.reason = "by User.";
      entry.copyScreen = true;
      StartRun(*app_, entry);
    });
    form.Show();
  }
  void Play() { ui_->Run(*window_); }
};

TEST_F(Max2PastelTest, RunWithNothingDoneShowsNoDialog) {
  Prepare({"@click cmdNext"}, 3, false);
  Play();
  EXPECT_EQ(clientsDone_, 3);
  EXPECT_EQ(Transcript(), "@ click cmdNext\n");
  const std::string log = Log();
  EXPECT_TRUE(Contains(log, "Tolmen 1.0.0 Run at 15 Jun 2024 12:00 by User.\r\n"));
  EXPECT_TRUE(Contains(log, "\r\nTolmen Import Completed at 15 Jun 2024 12:03\r\n"));
  EXPECT_FALSE(Contains(log, "Pastel Debtors"));
  // Both templates were saved and the wizard holds one.
  EXPECT_EQ(saved_, (std::vector<std::string>{Home() + "CURRENT.KTF", "Kelbor.KTF"}));
  EXPECT_TRUE(app_->shell.TemplateLoaded);
  const MainForm& form = app_->screen.frmMain;
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabToMaximizer);
  EXPECT_EQ(form.optListClients.Value(), 1);
  EXPECT_FALSE(app_->run.RunActive);
  EXPECT_EQ(app_->shell.ExitStatus, kExitOk);
  // The screen is back at rest.
  EXPECT_FALSE(form.cmdAbort.Visible());
  EXPECT_TRUE(form.tabDlg.TabEnabled(MainForm::kTabOpen));
  EXPECT_EQ(form.lblProgress(0).Caption(),
            "Click the 'Import' button to import the selected Maximizer Clients into Pastel.");
}

TEST_F(Max2PastelTest, EndAtTheFirstClientKeepsTheResultDialog) {
  Prepare({"@pause 1", "@click cmdNext", "No", "Yes"}, 3);
  // During the run the screen is locked.
  auto loop = app_->stages.TransferClients;
  app_->stages.TransferClients = [&] {
    const MainForm& form = app_->screen.frmMain;
    EXPECT_TRUE(app_->run.RunActive);
    EXPECT_FALSE(form.mnuFileTop.Enabled());
    EXPECT_FALSE(form.cmdNext.Enabled());
    EXPECT_FALSE(form.tabDlg.TabEnabled(MainForm::kTabOpen));
    EXPECT_TRUE(form.cmdAbort.Visible());
    loop();
  };
  Play();
  EXPECT_EQ(clientsDone_, 1);
  // The dialog's text and the log's lines are the stop scenario's; here: Yes opens the log.
  EXPECT_TRUE(
      Contains(Transcript(), "-> No\n== MsgBox | Tolmen Import Complete: Open Log File? |"));
  EXPECT_TRUE(Contains(Transcript(), "-> Yes\n== Editor " + Home() + "Tolmen.LOG\n"));
  EXPECT_EQ(app_->run.StopRequest, kStopNone);  // cleared again after the run
  const std::string progress = app_->screen.frmMain.lblProgress(2).Caption();
  const std::string shown =
      "Started: 12:00 \xB7 Elapsed: 00:01 \xB7 Est. Finish: 12:03 \xB7 Progress: 33% \xB7 ";
  EXPECT_EQ(progress.substr(0, shown.size()), shown);
}

TEST_F(Max2PastelTest, TheSessionsEndIsRefusedDuringARunWhichGoesOn) {
  Prepare({"@click cmdNext"}, 3, false);
  WireShell(*app_);
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
  ui_->WatchSystemClose(ends[0]);
  bool loadedAfterLoop = false;
  auto loop = app_->stages.TransferClients;
  app_->stages.TransferClients = [&] {
    ASSERT_EQ(write(ends[1], "x", 1), 1);  // SIGTERM as the session ends
    loop();
    loadedAfterLoop = app_->screen.frmMain.IsLoaded();
  };
  Play();
  EXPECT_EQ(clientsDone_, 3);
  EXPECT_TRUE(loadedAfterLoop);
  // Taken at the first yield of the run and refused there, so the end of the script closes.
  char left = 0;
  EXPECT_EQ(read(ends[0], &left, 1), -1);
  EXPECT_FALSE(app_->screen.frmMain.IsLoaded());
  close(ends[0]);
  close(ends[1]);
}

TEST_F(Max2PastelTest, CancelKeepsTheOldTemplateAndYesCarriesOn) {
  Prepare({"@pause 2", "@click cmdNext", "Cancel"}, 3);
  Play();
  EXPECT_EQ(clientsDone_, 2);
  EXPECT_TRUE(Contains(Transcript(), "-> Cancel\n== MsgBox | Tolmen Transfer Cancelled | OK |"));
  EXPECT_TRUE(saved_.empty());
  EXPECT_FALSE(app_->shell.TemplateLoaded);
  EXPECT_EQ(app_->screen.frmMain.tabDlg.Tab(), MainForm::kTabToMaximizer);
  EXPECT_EQ(app_->shell.ExitStatus, kExitRunCancelled);

  Prepare({"@pause 2", "@click cmdNext", "Yes", "No"}, 3);
  Play();
  EXPECT_EQ(clientsDone_, 5);
  EXPECT_TRUE(Contains(Transcript(), "3 Pastel Debtors (0 new) were written to file \n"));
}

TEST_F(Max2PastelTest, ResultLinesAndPluralForms) {
  EXPECT_EQ(PluralForm(-1, "Maximizer Client"), "One Maximizer Client");
  EXPECT_EQ(PluralForm(0, "Maximizer Client"), "0 Maximizer Clients");

  Prepare({"@click cmdNext", "No"}, 3);
  auto loop = app_->stages.TransferClients;
  app_->stages.TransferClients = [&] {
    RunState& run = app_->run;
    run.TransferToMaximizer = 1;
    run.CsvFileName = "/data/MaxCus07.csv";
    run.InvoiceFileName = "/data/MaxInv07.csv";
    run.InvoicingPlanned = true;
    run.MismatchSummaryOn = true;
    loop();
    run.BalancesSent = 3;
    run.BalancesMissed = 2;
    run.AcceptedStatus22 = 4;
    run.InvoiceCount = 2;
    run.EndOfRunNotes = {"INV001 Harrow", "INV002 Finch"};
    LogError(*app_, "a client went wrong");
  };
  Play();
  EXPECT_TRUE(Contains(Log(),
                       "Tolmen Import Completed at 15 Jun 2024 12:03\r\n"
                       "3 Pastel Debtors (2 new) were written to file /data/MaxCus07.csv\r\n"
                       "4 BTrieve Status 22 Errors in maxClients were accepted.\r\n"
                       "2 New Invoices were Created and written to file /data/MaxInv07.csv\r\n"
                       "  INV001 Harrow\r\n"
                       "  INV002 Finch\r\n"
                       "Updated One Maximizer User-Defined Field for 3 Maximizer Clients "
                       "from Pastel.\r\n"));
  EXPECT_TRUE(Contains(Transcript(),
                       "3 Pastel Debtors (2 new) were written to file /data/MaxCus07.csv\n"
                       "1 Errors occurred (View Log File for details).\n"
                       "0 Mismatched Account Codes were found.\n"
                       "2 New Invoices were written to file /data/MaxInv07.csv\n"
                       "PLEASE IMPORT THEM BEFORE RUNNING TOLMEN AGAIN!\n"
                       "Updated One Maximizer User-Defined Field for 3 Maximizer Clients from "
                       "Pastel.\n"
                       "4 BTrieve Status 22 Errors in maxClients were accepted.\n"
                       "Do you want to Open the Log File?\n-> No\n"));
  EXPECT_EQ(app_->shell.ExitStatus, kExitRunErrors);
}

TEST_F(Max2PastelTest, ErrorTrapRetriesOrLeavesThroughTheEnd) {
  Prepare({"@click cmdNext", "Retry", "@click cmdNext", "Abort"}, 0);
  int calls = 0;
  app_->stages.TransferClients = [&] {
    app_->run.CurrentSection = "Progress bar Update";
    if (++calls != 2) throw RuntimeError(13);
  };
  Play();
  const std::string dialog =
      "== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later | "
      "Abort/Retry/Ignore | Exclamation\n"
      "Type mismatch\n"
      "while doing Progress bar Update.\n";
  EXPECT_EQ(Transcript(),
            "@ click cmdNext\n" + dialog + "-> Retry\n@ click cmdNext\n" + dialog + "-> Abort\n");
  EXPECT_EQ(calls, 3);
  // The retried run went to its end and saved its templates; the aborted one did not.
  EXPECT_EQ(saved_.size(), 2u);
  EXPECT_FALSE(app_->run.RunActive);
  EXPECT_FALSE(app_->log.IsOpen());
  EXPECT_EQ(app_->shell.ExitStatus, kExitRunErrors);
}

TEST_F(Max2PastelTest, TemplateListShowsItsDialogAfterTheLastTemplate) {
  Prepare({"Yes"}, 1);
  app_->background.TemplateList = {"/t/a.ktf", "/t/b.ktf"};
  app_->run.RunMode = kRunTemplateList;
  app_->run.TemplatesDone = 0;
  DoImport(*app_);
  EXPECT_EQ(Transcript(), "");
  DoImport(*app_);
  EXPECT_EQ(app_->run.TemplatesDone, 2);
  EXPECT_EQ(Transcript(),
            "== MsgBox | Tolmen Import Complete: Open Log File? | Yes/No | None\n"
            "The Maximizer Clients according to the 2 Templates selected have "
            "been imported into Pastel.\n"
            "Do you want to Open the Log File?\n"
            "-> Yes\n"
            "== Editor " +
                Home() + "Tolmen.LOG\n");
}

TEST_F(Max2PastelTest, CheckRunOptionsStopsAtTheFirstFailure) {
  Start({});
  RunOptions& options = app_->options;
  MainForm& form = app_->screen.frmMain;
  int filled = 0;
  app_->stages.FillToPastelLists = [&] { ++filled; };
  // No account number UDF.
  EXPECT_FALSE(CheckRunOptions(*app_));
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabToPastel);
  EXPECT_TRUE(Contains(Transcript(), "| Tolmen Warning! | OK | Exclamation\n"));

  options.AccountNumber.name = "Pastel Account";
  options.ImportWhichData = 4;
  EXPECT_FALSE(CheckRunOptions(*app_));
  EXPECT_TRUE(Contains(Transcript(),
                       "== MsgBox | No User Field Specified | OK | None\n"
                       "You have chosen the option of importing Maximizer Clients\n"
                       "dependant upon a User Defined Field Value\n"
                       "but have not indicated which UDF to use.\n\n"
                       "Please select which UDF is to be used as the Import "
                       "Criteria\n"));
  options.ImportWhichData = 1;

  // The later checks, each sending the wizard to its own tab. First a link to a missing UDF.
  form.mnuOptnPas2Max.SetChecked(true);
  form.lst2MaxLinked.AddItem("Account Balance\t => Gone\tNumeric");
  bool recurring = false, casual = false;
  app_->stages.CheckRecurringBilling = [&] { return recurring; };
  app_->stages.CheckCasualBilling = [&] { return casual; };
  form.tabDlg.SetTab(0);
  EXPECT_FALSE(CheckRunOptions(*app_));
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabToMaximizer);
  EXPECT_TRUE(Contains(Transcript(), "<Gone> was not found in the list of Maximizer UDFs."));
  form.lst2MaxLinked.Clear();
  EXPECT_FALSE(CheckRunOptions(*app_));
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabRecurringBilling);
  recurring = true;
  EXPECT_FALSE(CheckRunOptions(*app_));
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabCasualBilling);
  casual = true;
  form.tabDlg.SetTab(0);
  form.cboPostal.SetText("<Selected>");
  EXPECT_TRUE(CheckRunOptions(*app_));
  EXPECT_EQ(form.tabDlg.Tab(), 0);
  EXPECT_EQ(options.PostalAddress, "<Selected>");
  EXPECT_EQ(filled, 5);  // the lists are filled while ToPastelFilled is not set
  app_->shell.ToPastelFilled = true;
  EXPECT_TRUE(CheckRunOptions(*app_));
  EXPECT_EQ(filled, 5);
}

// The size boxes' own check and the check before a run repair the suffix box alike, silently; the
// run then takes both boxes as numbers.
TEST_F(Max2PastelTest, AccountSizesAreRepairedSilently) {
  struct Case {
    const char* prefix;
    const char* suffix;
    const char* repaired;
    int32_t prefixSize, suffixSize;  // a prefix size of -1: the prefix cannot be a size
  };
  const Case cases[] = {
      {"4", "2", "2", 4, 2},
      {"4", "y", "2", 4, 2},
      {"5", "", "2", 5, 2},
      // A prefix that is no number sets the suffix box to "4" first: "x4" reads 0, below 2, so
      // the suffix becomes 6 - 0; "" joined with "4" reads 4.
      {"x", "3", "6", -1, 0},
      {"", "", "4", -1, 0},
      // Prefix and suffix read together below 2: 6 minus the prefix. "10" is not below 2.
      {"0", "1", "6", 0, 6},
      {"0", "0", "6", 0, 6},
      {"1", "0", "0", 1, 0},
      // No rule on the sum.
      {"1", "1", "1", 1, 1},
      {"3", "9", "9", 3, 9},
  };
  Start({});
  app_->options.AccountNumber.name = "Pastel Account";
  app_->options.ImportWhichData = 1;
  MainForm& form = app_->screen.frmMain;
  for (const Case& c : cases) {
    const std::string what = std::string(c.prefix) + "|" + c.suffix;
    form.txtPrefix.SetText(c.prefix);
    form.txtSuffix.SetText(c.suffix);
    CheckCodeSizes(*app_);
    EXPECT_EQ(form.txtSuffix.Text(), c.repaired) << what;
    EXPECT_EQ(form.txtPrefix.Text(), c.prefix) << what;

    form.txtSuffix.SetText(c.suffix);
    if (c.prefixSize < 0) {
      EXPECT_THROW(ToPastelChecks(*app_), RuntimeError) << what;
    } else {
      EXPECT_TRUE(ToPastelChecks(*app_)) << what;
      EXPECT_EQ(app_->options.PrefixSize, c.prefixSize) << what;
      EXPECT_EQ(app_->options.SuffixSize, c.suffixSize) << what;
    }
    EXPECT_EQ(form.txtSuffix.Text(), c.repaired) << what;
  }
  EXPECT_EQ(Transcript(), "");
}

}  // namespace
}  // namespace tolmen::testing
