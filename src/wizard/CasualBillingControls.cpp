#include "wizard/CasualBillingControls.h"

#include "billing/BillingSetup.h"
#include "billing/CasualBilling.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"

namespace tolmen {

void WireCasualBillingControls(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const auto handler = [&app](void (*routine)(Tolmen&)) {
    return [&app, routine] { PassOver([&app, routine] { routine(app); }); };
  };
  form.cmdBillCAdd.SetOnClick(handler(cmdBillCAdd_Click));
  form.cmdBillCReplace.SetOnClick(handler(cmdBillCReplace_Click));
  form.cmdBillCDelete.SetOnClick(handler(cmdBillCDelete_Click));
  form.cmdBillCEdit.SetOnClick(handler(cmdBillCEdit_Click));
  form.lstBillCSet.SetOnClick(handler(lstBillCSet_Click));
  form.lstPasInventory.SetOnClick(handler(lstPasInventory_Click));
  form.lstPasInventory.SetOnDblClick(handler(lstPasInventory_DblClick));
  form.lstPrices.SetOnDblClick(handler(EditPrice));
}

}  // namespace tolmen
