// The "Recurring Billing" page: the billing period, when to bill, the date UDFs, the price list
// per category with its editors, the invoice line's codes, and the page's "Hide Tab" button.
// The billing date itself is frmMain's "Today is" box.
#pragma once

#include "screen/Controls.h"
#include "screen/ListControls.h"
#include "screen/OptionButton.h"
#include "screen/pages/Page.h"

namespace tolmen {

struct RecurringBillingPage {
  RecurringBillingPage();
  PageControls RecurringBillingPageControls();

  // "Billing Period": 0 "No Billing", 1 "Annually", 2 "Monthly".
  Label fraBillPeriod{"fraBillPeriod", "Billing Period"};
  OptionArray optBillPeriod{"optBillPeriod"};
  // "Bill When": 0 to 3; txtBillOn holds the day of the month for 3.
  Label fraBillOn{"fraBillOn", "Bill When"};
  OptionArray optBillOn{"optBillOn"};
  TextBox txtBillOn{"txtBillOn", "1"};
  // The day box's buttons: 0 a day later, 1 a day earlier; enabled with txtBillOn.
  ControlArray<Button> updBillOn{"updBillOn"};

  Label lblDateJoined{"lblDateJoined", "Date Joined UDF:"};
  ComboBox cboDateJoined{"cboDateJoined"};
  Label lblDateBilled{"lblDateBilled", "Date Billed UDF:"};
  ComboBox cboDateBilled{"cboDateBilled"};

  Label lblPriceList{"lblPriceList", "Price List:"};
  ListBox lstPrices{"lstPrices"};
  Button cmdEditPrice{"cmdEditPrice", "Edit &Price..."};
  Button cmdEditPeriod{"cmdEditPeriod", "Edit P&eriod..."};

  Label lblGLcode{"lblGLcode", "GL Code:"};
  TextBox txtGLcode{"txtGLcode"};
  Label lblVATcode{"lblVATcode", "VAT Code:"};
  TextBox txtVATcode{"txtVATcode"};
  TextBox txtVatFrac{"txtVatFrac"};
  Label lblCOSTcode{"lblCOSTcode", "Cost Code:"};
  TextBox txtCOSTcode{"txtCOSTcode"};
  CheckBox chkInvoice{"chkInvoice", "Post directly to Statement (do not Batch Invoice)"};

  Button cmdHideBillR{"cmdHideBillR", "Hide Tab"};
};

}  // namespace tolmen
