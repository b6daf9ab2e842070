// The "To Pastel" page: the customer category, which clients are imported, the name and address
// choices, the account number and its sizes, the VAT number and the mismatch choice.
//
// chkToPastel holds the page's check boxes under the indexes the log and the templates use:
// 0 "Pattern Matching", 2 "Individual Client Names", 3 "Add Company Name to Address", 4 "Add
// Client Name to Address". txtCategory(0) is the new category's description, (1) its number.
#pragma once

#include "screen/Controls.h"
#include "screen/ListControls.h"
#include "screen/OptionButton.h"
#include "screen/pages/Page.h"

namespace tolmen {

struct ToPastelPage {
  ToPastelPage();
  PageControls ToPastelPageControls();

  Label fraCategory{"fraCategory", "Pastel Customer Category"};
  OptionArray optCategory{"optCategory"};
  ComboBox cboCategories{"cboCategories"};
  ControlArray<TextBox> txtCategory{"txtCategory"};
  ComboBox cboCatgrUDF{"cboCatgrUDF"};

  // "Import Which Data": the button's index plus 1.
  Label fraImport{"fraImport", "Import Which Data"};
  OptionArray optImport{"optImport"};
  Label lblUserFields{"lblUserFields", "Maximizer UDF:"};
  ComboBox cboUserFields{"cboUserFields"};
  Label lblUserFldVal{"lblUserFldVal", "Value:"};
  TextBox txtUserFldVal{"txtUserFldVal"};

  ControlArray<CheckBox> chkToPastel{"chkToPastel"};

  Label lblPostal{"lblPostal", "Pastel Postal Address:"};
  ComboBox cboPostal{"cboPostal", ComboBox::kDropdownCombo};
  Label lblDelivery{"lblDelivery", "Pastel Delivery Address:"};
  ComboBox cboDelivery{"cboDelivery", ComboBox::kDropdownCombo};

  Label lblAcctCode{"lblAcctCode", "Account Number UDF:"};
  ComboBox cboAcctCode{"cboAcctCode"};
  Label lblPrefix{"lblPrefix", "Prefix Size:"};
  TextBox txtPrefix{"txtPrefix", "4"};
  Label lblSuffix{"lblSuffix", "Suffix Size:"};
  TextBox txtSuffix{"txtSuffix", "2"};
  Label lblVATnumber{"lblVATnumber", "VAT Number UDF:"};
  ComboBox cboVATnumber{"cboVATnumber"};

  // "Mismatched Account Nos": the index of the button.
  Label fraMismatch{"fraMismatch", "Mismatched Account Nos"};
  OptionArray optMismatch{"optMismatch"};
};

}  // namespace tolmen
