#include "wizard/WizardHandlers.h"

#include <array>

#include "maximizer/MaximizerControls.h"
#include "maximizer/OpenMaximizer.h"
#include "pastel/OpenPastel.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "wizard/CasualBillingControls.h"
#include "wizard/FileMenu.h"
#include "wizard/RecurringBillingControls.h"
#include "wizard/TabFlow.h"
#include "wizard/TemplateControls.h"
#include "wizard/ToMaximizerControls.h"
#include "wizard/ViewMenu.h"

namespace tolmen {

void cmdHelp_Click(Tolmen& app) {
  static constexpr std::array<const char*, 6> kPages = {
      "::/html/06 Open Tab.htm",       "::/html/07 To Pastel.htm",
      "::/html/08 To Maximizer.htm",   "::/html/09 Recurring Billing.htm",
      "::/html/10 Casual Billing.htm", "::/html/11 Transfer Tab.htm"};
  const int tab = app.screen.frmMain.tabDlg.Tab();
  if (tab < 0 || tab >= static_cast<int>(kPages.size())) {
    app.ui.MsgBox("Program Error: Unknown Tab " + std::to_string(tab));
    return;
  }
  app.ui.ShowHelp(app.info.HelpFile, kPages[static_cast<size_t>(tab)]);
}

void WireMainForm(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  WireTemplateControls(app);
  WireMaximizerControls(app);
  WireToMaximizerControls(app);
  WireRecurringBillingControls(app);
  WireCasualBillingControls(app);
  form.cmdHelp.SetOnClick([&app] { cmdHelp_Click(app); });
  form.mnuHelpContents.SetOnClick([&app] { cmdHelp_Click(app); });
  form.cmdNext.SetOnClick([&app] { cmdNext_Click(app); });
  form.cmdBack.SetOnClick([&app] { cmdBack_Click(app); });
  form.cmdSave.SetOnClick([&app] { cmdSave_Click(app); });
  form.tabDlg.SetOnClick([&app] { tabDlg_Click(app); });
  form.mnuFile.SetOnClick([&app](int index) { mnuFile_Click(app, index); });
  form.mnuViewMaximizer.SetOnClick([&app] { mnuViewMaximizer_Click(app); });
  form.mnuViewBillR.SetOnClick([&app] { mnuViewBillR_Click(app); });
  form.mnuViewBillC.SetOnClick([&app] { mnuViewBillC_Click(app); });
  form.cmdHideBillR.SetOnClick([&app] { mnuViewBillR_Click(app); });
  form.cmdHideBillC.SetOnClick([&app] { mnuViewBillC_Click(app); });
  form.chkShowToMaxTab.SetOnClick([&app] { chkShowToMaxTab_Click(app); });
  // The two direction ticks of the Options menu are plain ticks that the run reads.
  for (MenuItem* tick : {&form.mnuOptnPas2Max, &form.mnuOptnMax2Pas})
    tick->SetOnClick([tick] { tick->SetChecked(!tick->Checked()); });
  form.Dir1.SetOnChange([&app] { Dir1_Change(app); });
  form.Drive1.SetOnChange([&app] { Drive1_Change(app); });
}

}  // namespace tolmen
