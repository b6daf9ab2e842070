#include "wizard/ViewMenu.h"

#include <string>
#include <vector>

#include "runtime/Strings.h"
#include "shell/Tolmen.h"
#include "wizard/TabFlow.h"

namespace tolmen {

namespace {

// Asks before a page goes; true for Yes.
bool ReallyHide(Tolmen& app, const std::vector<std::string>& lines, const std::string& title) {
  return app.ui.MsgBox(Join(lines, app.info.LineBreak), vbYesNo + vbQuestion, title) == vbYes;
}

// The tick flips and the page follows it. A page that goes while it shows is left first, as
// Next leaves it.
void FlipTick(Tolmen& app, MenuItem& item, int tab) {
  MainForm& form = app.screen.frmMain;
  if (item.Checked() && form.tabDlg.Tab() == tab) cmdNext_Click(app);
  item.SetChecked(!item.Checked());
  form.tabDlg.SetTabVisible(tab, item.Checked());
}

}  // namespace

void mnuViewMaximizer_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  if (form.mnuViewMaximizer.Checked()) {
    if (!ReallyHide(
            app,
            {"Do you really want to Hide To Maximizer?", "(to re-enable, use View > To Maximizer)"},
            "Disable To Maximizer?"))
      return;
  }
  FlipTick(app, form.mnuViewMaximizer, MainForm::kTabToMaximizer);
  form.chkShowToMaxTab.SetValue(form.mnuViewMaximizer.Checked() ? 1 : 0);
}

void mnuViewBillR_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  if (form.mnuViewBillR.Checked()) {
    if (!ReallyHide(app,
                    {"Do you really want to Hide Recurring Billing?",
                     "(to re-enable, use View > Recurring Billing)"},
                    "Disable Recurring Billing?"))
      return;
    form.optBillPeriod.Set(0);
  }
  FlipTick(app, form.mnuViewBillR, MainForm::kTabRecurringBilling);
}

void mnuViewBillC_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  if (form.mnuViewBillC.Checked()) {
    std::vector<std::string> lines = {"Do you really want to Hide Casual Billing?"};
    if (form.lstBillCSet.ListCount() > 0)
      lines.push_back("The items in the Billing List will be Lost.");
    lines.push_back("(to re-enable, use View > Casual Billing)");
    if (!ReallyHide(app, lines, "Disable Casual Billing?")) return;
    form.lstBillCSet.Clear();
  }
  FlipTick(app, form.mnuViewBillC, MainForm::kTabCasualBilling);
}

void chkShowToMaxTab_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.mnuViewMaximizer.SetChecked(form.chkShowToMaxTab.Value() == 1);
  form.tabDlg.SetTabVisible(MainForm::kTabToMaximizer, form.mnuViewMaximizer.Checked());
}

void TabsFollowViewMenu(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.tabDlg.SetTabVisible(MainForm::kTabToMaximizer, form.mnuViewMaximizer.Checked());
  form.tabDlg.SetTabVisible(MainForm::kTabRecurringBilling, form.mnuViewBillR.Checked());
  form.tabDlg.SetTabVisible(MainForm::kTabCasualBilling, form.mnuViewBillC.Checked());
}

}  // namespace tolmen
