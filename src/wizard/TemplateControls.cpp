#include "wizard/TemplateControls.h"

#include "billing/BillingSetup.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"
#include "templates/PastelSetup.h"
#include "transfer/Categories.h"

namespace tolmen {

void optCategory_Click(Tolmen& app, int index) {
  MainForm& form = app.screen.frmMain;
  const bool newCategory = index == 1;
  form.txtCategory(0).SetEnabled(newCategory);
  form.txtCategory(1).SetEnabled(newCategory);
  form.cboCategories.SetEnabled(index == 0);
  form.cboCatgrUDF.SetEnabled(index == 2);
  if (newCategory) {
    form.txtCategory(0).SetText("New Category Description");
    // The next free number, as the category list was last loaded from the file.
    form.txtCategory(1).SetText(std::to_string(NextCategoryNumber(app)));
    form.txtCategory(0).SetFocus();
  }
}

void optImport_Click(Tolmen& app, int index) {
  MainForm& form = app.screen.frmMain;
  app.options.ImportWhichData = static_cast<int16_t>(index + 1);
  const bool marked = index >= 2;
  form.lblUserFields.SetEnabled(marked);
  form.cboUserFields.SetEnabled(marked);
  const bool value = marked && !app.options.ImportCriteriaUdf.name.empty();
  form.lblUserFldVal.SetEnabled(value);
  form.txtUserFldVal.SetEnabled(value);
}

void optBillPeriod_Click(Tolmen& app, int index) {
  MainForm& form = app.screen.frmMain;
  const bool billing = index > 0;
  for (Control* control :
       std::initializer_list<Control*>{&form.fraBillOn, &form.cboDateJoined, &form.cboDateBilled,
                                       &form.lstPrices, &form.cmdEditPrice, &form.cmdEditPeriod,
                                       &form.txtGLcode, &form.txtVATcode, &form.txtCOSTcode})
    control->SetEnabled(billing);
  if (billing) {
    bool force = true;
    PassOver([&] { LoadPriceList(app, force); });
  } else {
    form.lstPrices.Clear();
    app.billing.BillingChecked = true;
  }
}

void WireTemplateControls(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.optCategory.SetOnClick([&app](int index) { optCategory_Click(app, index); });
  form.optImport.SetOnClick([&app](int index) { optImport_Click(app, index); });
  form.optBillPeriod.SetOnClick([&app](int index) { optBillPeriod_Click(app, index); });
  form.mnuOptnPastel.SetOnClick([&app] { mnuOptnPastel_Click(app); });

  SetupForm& setup = app.screen.frmSetup;
  setup.SetOnLoad([&app] { frmSetup_Load(app); });
  setup.cmdOk.SetOnClick([&app] { frmSetup_cmdOk_Click(app); });
  setup.cmdCancel.SetOnClick([&app] { frmSetup_cmdCancel_Click(app); });
}

}  // namespace tolmen
