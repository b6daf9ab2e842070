#include "wizard/RecurringBillingControls.h"

#include "billing/BillingSetup.h"
#include "billing/MultiYear.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"

namespace tolmen {

void WireRecurringBillingControls(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.cmdEditPrice.SetOnClick([&app] { PassOver([&app] { EditPrice(app); }); });
  form.cmdEditPeriod.SetOnClick([&app] { PassOver([&app] { EditPeriod(app); }); });
  form.optBillOn.SetOnClick([&app](int index) { optBillOn_Click(app, index); });
  form.updToday.SetOnClick([&app](int index) { updToday_Click(app, index); });
  form.updBillOn.SetOnClick([&app](int index) { updBillOn_Click(app, index); });
  form.txtVATcode.SetOnChange([&app] { txtVATcode_Change(app); });
  form.mnuOptnMulti.SetOnClick(
      [&app](int index) { PassOver([&app, index] { MultiYearChoice(app, index); }); });
}

}  // namespace tolmen
