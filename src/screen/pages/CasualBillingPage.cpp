#include "screen/pages/CasualBillingPage.h"

namespace tolmen {

CasualBillingPage::CasualBillingPage() {
  lstBillCSet.SetToolTipText("Click item & Wait for Tooltip");
  lstPasInventory.SetToolTipText("Pastel Inventory Item to bill (Click item & Wait for Tooltip)");
  lblMessage.Add(0, "Invoice Message 1:");
  lblMessage.Add(1, "Invoice Message 2:");
  cboMessage.Add(0);
  cboMessage.Add(1);
  txtMessage.Add(0);
  txtMessage.Add(1);
}

PageControls CasualBillingPage::CasualBillingPageControls() {
  return {{&lblBillCUDFs, &lstBillCUDFs, &lblBillCCode, &txtBillCCode, &lblBillType, &lstBillType,
           &lblPasInventory, &lstPasInventory, &cmdBillCAdd, &cmdBillCReplace, &cmdBillCEdit,
           &cmdBillCDelete, &lblBillCSet, &lstBillCSet, &cmdHideBillC},
          {&lblMessage, &cboMessage, &txtMessage}};
}

}  // namespace tolmen
