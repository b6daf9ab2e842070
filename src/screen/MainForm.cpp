#include "screen/MainForm.h"

namespace tolmen {

MainForm::MainForm() : Form("frmMain", "Tolmen") {
  for (const char* caption :
       {"Open", "To Pastel", "To Maximizer", "Recurring Billing", "Casual Billing", "Transfer"})
    tabDlg.AddTab(caption);
  cmdNext.SetDefault(true);
  cmdAbort.SetVisible(false);

  mnuFile.AddTo(mnuFileTop, 0, "&Open Template...");
  mnuFile.AddTo(mnuFileTop, 1, "&Import Parts of Template...");
  mnuFile.AddTo(mnuFileTop, 2, "&Save Template...");
  mnuFile.AddTo(mnuFileTop, 10, "-");
  mnuFile.AddTo(mnuFileTop, 20, "&View Log File");
  mnuFile.AddTo(mnuFileTop, 21, "&Limit Log File Size...");
  mnuFile.AddTo(mnuFileTop, 30, "-");
  mnuFile.AddTo(mnuFileTop, 40, "Run in &Background...");
  mnuFile.AddTo(mnuFileTop, 45, "-");
  mnuFile.AddTo(mnuFileTop, 50, "Run at &Windows Startup");
  mnuFile.AddTo(mnuFileTop, 51, "Shell to new Copy?");
  mnuFile.AddTo(mnuFileTop, 60, "-");
  mnuFile.AddTo(mnuFileTop, 99, "E&xit");

  // The three pages that can be hidden start shown, as the settings' defaults say.
  for (MenuItem* item : {&mnuViewMaximizer, &mnuViewBillR, &mnuViewBillC}) {
    item->SetChecked(true);
    mnuView.AddItem(*item);
  }

  mnuOptn.AddItem(mnuOptnPastel);
  mnuOptn.AddItem(mnuOptnPas2Max);
  mnuOptn.AddItem(mnuOptnMax2Pas);
  mnuOptn.AddItem(mnuOptnShowMax);
  mnuOptn.AddItem(mnuOptnMultiTop);
  mnuOptn.AddItem(mnuOptnDebug);
  mnuOptnMulti.AddTo(mnuOptnMultiTop, 0, "&Ask Which Method...");
  mnuOptnMulti.AddTo(mnuOptnMultiTop, 1, "&1 Set Date Billed into Future");
  mnuOptnMulti.AddTo(mnuOptnMultiTop, 2, "&2 Use Real Date Billed + Years");
  mnuOptnMulti.AddTo(mnuOptnMultiTop, 3, "&3 Ignore Year of Future Date Billed");

  mnuHelp.AddItem(mnuHelpContents);
  mnuHelp.AddItem(mnuHelpAbout);

  const char* kDateSteps[] = {"Day +", "Day -", "Month +", "Month -"};
  for (int index = 0; index < 4; ++index) updToday.Add(index, kDateSteps[index]);
  Image1.SetVisible(false);
  lblUDFkey.SetVisible(false);
  lblAging.SetVisible(false);
  lblProgress.Add(
      0, "Click the 'Import' button to import the selected Maximizer Clients into Pastel.");
  for (int index = 1; index <= 4; ++index) lblProgress.Add(index).SetVisible(false);
  ProgressBar1.SetMax(1);

  Register(tabDlg);
  Register(cmdBack);
  Register(cmdNext);
  Register(cmdSave);
  Register(cmdAbort);
  Register(cmdHelp);
  RegisterMenu(mnuFileTop);
  Register(mnuFile);
  RegisterMenu(mnuView);
  Register(mnuViewMaximizer);
  Register(mnuViewBillR);
  Register(mnuViewBillC);
  RegisterMenu(mnuOptn);
  Register(mnuOptnPastel);
  Register(mnuOptnPas2Max);
  Register(mnuOptnMax2Pas);
  Register(mnuOptnShowMax);
  Register(mnuOptnDebug);
  Register(mnuOptnMultiTop);
  Register(mnuOptnMulti);
  RegisterMenu(mnuHelp);
  Register(mnuHelpContents);
  Register(mnuHelpAbout);
  Register(lblStatus);
  Register(lblToday);
  Register(txtToday);
  Register(updToday);
  Register(Image1);
  Register(lblUDFkey, tabDlg, kTabToPastel);
  Register(lblAging, tabDlg, kTabToMaximizer);
  Register(lblHeading, tabDlg, kTabTransfer);
  Register(lblProgress, tabDlg, kTabTransfer);
  Register(ProgressBar1, tabDlg, kTabTransfer);
  Register(Animation1, tabDlg, kTabTransfer);
  RegisterPage(OpenPageControls(), kTabOpen);
  RegisterPage(ToPastelPageControls(), kTabToPastel);
  RegisterPage(ToMaximizerPageControls(), kTabToMaximizer);
  RegisterPage(RecurringBillingPageControls(), kTabRecurringBilling);
  RegisterPage(CasualBillingPageControls(), kTabCasualBilling);
  RegisterPage(TransferPageControls(), kTabTransfer);
}

void MainForm::RegisterPage(const PageControls& page, int tab) {
  for (Control* control : page.controls) Register(*control, tabDlg, tab);
  for (ControlArrayBase* array : page.arrays) Register(*array, tabDlg, tab);
}

}  // namespace tolmen
