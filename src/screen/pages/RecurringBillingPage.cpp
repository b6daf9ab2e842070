#include "screen/pages/RecurringBillingPage.h"

namespace tolmen {

RecurringBillingPage::RecurringBillingPage() {
  optBillPeriod.Add(0, "No Billing");
  optBillPeriod.Add(1, "Annually");
  optBillPeriod.Add(2, "Monthly");
  optBillOn.Add(0, "Today");
  optBillOn.Add(1, "Last Day of Month");
  optBillOn.Add(2, "Last Weekday of Month");
  optBillOn.Add(3, "On or After Specific Date:");
  // A new wizard does no billing; when billing is chosen it bills on the day of the run.
  optBillPeriod.Set(0);
  optBillOn.Set(0);
  updBillOn.Add(0, "+").SetEnabled(false);
  updBillOn.Add(1, "-").SetEnabled(false);
  txtVatFrac.SetLocked(true);
  chkInvoice.SetToolTipText(
      "Tick for immediate Posting; untick for Invoice batch (which you must post, but can edit "
      "first)");
}

PageControls RecurringBillingPage::RecurringBillingPageControls() {
  return {{&fraBillPeriod, &fraBillOn,     &txtBillOn,    &lblDateJoined, &cboDateJoined,
           &lblDateBilled, &cboDateBilled, &lblPriceList, &lstPrices,     &cmdEditPrice,
           &cmdEditPeriod, &lblGLcode,     &txtGLcode,    &lblVATcode,    &txtVATcode,
           &txtVatFrac,    &lblCOSTcode,   &txtCOSTcode,  &chkInvoice,    &cmdHideBillR},
          {&optBillPeriod, &optBillOn, &updBillOn}};
}

}  // namespace tolmen
