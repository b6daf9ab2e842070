// The "Casual Billing" page: the four steps of a billing rule (UDF, trigger text, document,
// inventory item), the list of rules with its buttons, the two invoice messages, and the page's
// "Hide Tab" button. cboMessage(n) chooses the UDF of message n+1; txtMessage(n) is its free text.
#pragma once

#include "screen/Controls.h"
#include "screen/ListControls.h"
#include "screen/pages/Page.h"

namespace tolmen {

struct CasualBillingPage {
  CasualBillingPage();
  PageControls CasualBillingPageControls();

  Label lblBillCUDFs{"lblBillCUDFs", "Step 1: Maximizer UDF:"};
  ListBox lstBillCUDFs{"lstBillCUDFs"};
  Label lblBillCCode{"lblBillCCode", "Step 2: Text that triggers Billing:"};
  TextBox txtBillCCode{"txtBillCCode"};
  Label lblBillType{"lblBillType", "Step 3: Pastel Document:"};
  ListBox lstBillType{"lstBillType"};
  Label lblPasInventory{"lblPasInventory", "Step 4: Pastel Inventory Item:"};
  ListBox lstPasInventory{"lstPasInventory"};

  Button cmdBillCAdd{"cmdBillCAdd", "&Add"};
  Button cmdBillCReplace{"cmdBillCReplace", "&Replace"};
  Button cmdBillCEdit{"cmdBillCEdit", "&Edit"};
  Button cmdBillCDelete{"cmdBillCDelete", "&Delete"};
  Label lblBillCSet{"lblBillCSet", "Billing List:"};
  ListBox lstBillCSet{"lstBillCSet"};

  ControlArray<Label> lblMessage{"lblMessage"};
  ControlArray<ComboBox> cboMessage{"cboMessage"};
  ControlArray<TextBox> txtMessage{"txtMessage"};

  Button cmdHideBillC{"cmdHideBillC", "Hide Tab"};
};

}  // namespace tolmen
