// CheckRunOptions and EntireDatabase. Both read the options as SetOptions and the controls'
// handlers left them in RunOptions; the prefix and suffix boxes are read and repaired on the
// screen itself.
#include "billing/BillingSetup.h"
#include "billing/CasualBilling.h"
#include "runtime/Conversion.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"
#include "transfer/AccountCodes.h"
#include "transfer/Categories.h"
#include "transfer/Max2Pastel.h"
#include "transfer/Pas2MaxLinks.h"

namespace tolmen {
bool ToPastelChecks(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  RunOptions& options = app.options;
  const std::string& br = app.info.LineBreak;
  if (!app.shell.ToPastelFilled) FillToPastelLists(app);

  if ((options.ImportWhichData == 3 || options.ImportWhichData == 4) &&
      options.ImportCriteriaUdf.name.empty()) {
    app.ui.MsgBox(Join({"You have chosen the option of importing Maximizer Clients",
                        "dependant upon a User Defined Field Value",
                        "but have not indicated which UDF to use.", "",
                        "Please select which UDF is to be used as the Import Criteria"},
                       br),
                  vbOKOnly, "No User Field Specified");
    return false;
  }
  // The category choice as the screen shows it: SetOptions copies it only after these checks.
  if (form.optCategory.Value() == 2 && options.CategoryUdf.name.empty()) {
    app.ui.MsgBox("No Category Selected!" + br +
                      "Please go back to 'To Pastel' tab and select the correct Category in "
                      "'Use/Create Category from UDF'.",
                  vbOKOnly, "Importing To Pastel");
    return false;
  }

  // The account number sizes are repaired without a word. A prefix that is no number sets the
  // suffix box, as it always has.
  CheckCodeSizes(app);
  options.PrefixSize = CLng(Variant(form.txtPrefix.Text()));
  options.SuffixSize = CLng(Variant(form.txtSuffix.Text()));
  options.PostalAddress = form.cboPostal.Text();
  options.DeliveryAddress = form.cboDelivery.Text();
  return true;
}

bool CheckRunOptions(Tolmen& app) {
  TabControl& tabs = app.screen.frmMain.tabDlg;
  if (app.options.AccountNumber.name.empty()) {
    app.ui.MsgBox("You have not selected a Maximizer UDF linking to the Pastel Account!" +
                      app.info.LineBreak +
                      "Please select a Maximizer UDF that contains the Clients' Pastel Account "
                      "number!",
                  vbExclamation, app.info.AppName + " Warning!");
    tabs.SetTab(MainForm::kTabToPastel);
    return false;
  }
  if (!ToPastelChecks(app)) {
    tabs.SetTab(MainForm::kTabToPastel);
    return false;
  }
  if (!IsPas2MaxOK(app)) {
    tabs.SetTab(MainForm::kTabToMaximizer);
    return false;
  }
  if (!CheckRecurringBilling(app)) {
    tabs.SetTab(MainForm::kTabRecurringBilling);
    return false;
  }
  if (!CheckCasualBilling(app)) {
    tabs.SetTab(MainForm::kTabCasualBilling);
    return false;
  }
  return true;
}

bool EntireDatabase(Tolmen& app) {
  const RunOptions& options = app.options;
  switch (options.ImportWhichData) {
    case 1:
      return true;
    case 3:
    case 4:
      return options.ImportCriteriaUdf.name.empty() || options.ImportCriteriaText.empty();
    default:
      return false;
  }
}

}  // namespace tolmen
