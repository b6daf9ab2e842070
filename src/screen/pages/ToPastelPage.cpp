#include "screen/pages/ToPastelPage.h"

namespace tolmen {

ToPastelPage::ToPastelPage() {
  optCategory.Add(0, "Use Existing Customer Category");
  optCategory.Add(1, "Create New Customer Category");
  optCategory.Add(2, "Use/Create Category from UDF*");
  txtCategory.Add(0).SetToolTipText("Description of the new Customer Category");
  txtCategory.Add(1).SetToolTipText("Number of the new Customer Category");

  optImport.Add(0, "All Items");
  optImport.Add(1, "New Items");
  optImport.Add(2, "Marked Items");
  optImport.Add(3, "New Marked Items");

  chkToPastel.Add(0, "Compare New Client Names with Existing Customers to prevent duplication");
  chkToPastel.Add(2,
                  "Import Individual Clients by Name (as \"LastName, Mr/Ms FirstName Initial\")");
  chkToPastel.Add(3, "Company Name to Postal Address");
  chkToPastel.Add(4, "Add Individual Client Name or");

  txtPrefix.SetToolTipText("Length of Prefix (alphabetic part) of New Account Number");
  txtSuffix.SetToolTipText("Length of Suffix (numeric part) of New Account Number");

  optMismatch.Add(0, "Log only").SetToolTipText("Write Mismatches to Log File, do not change data");
  optMismatch.Add(1, "Ask what to do").SetToolTipText("Ask what to do for every Mismatch");
  optMismatch.Add(2, "Fix Obvious Errors, Log the Rest")
      .SetToolTipText("In case of Mismatches, fix Maximizer account code UDF");

  // The form as it was designed: an existing category, the marked clients (no criteria UDF chosen
  // yet, so no value to match) and mismatches only logged. Every group has a button on, so a
  // template saved before anything was loaded opens again.
  optCategory.Set(0);
  optImport.Set(2);
  lblUserFldVal.SetEnabled(false);
  txtUserFldVal.SetEnabled(false);
  optMismatch.Set(0);
}

PageControls ToPastelPage::ToPastelPageControls() {
  return {{&fraCategory,   &cboCategories, &cboCatgrUDF, &fraImport, &lblUserFields, &cboUserFields,
           &lblUserFldVal, &txtUserFldVal, &lblPostal,   &cboPostal, &lblDelivery,   &cboDelivery,
           &lblAcctCode,   &cboAcctCode,   &lblPrefix,   &txtPrefix, &lblSuffix,     &txtSuffix,
           &lblVATnumber,  &cboVATnumber,  &fraMismatch},
          {&optCategory, &txtCategory, &optImport, &chkToPastel, &optMismatch}};
}

}  // namespace tolmen
