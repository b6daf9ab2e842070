#include "screen/OptionsForm.h"

namespace tolmen {

OptionsForm::OptionsForm() : Form("frmOptions", "Vellumator Background Mode Options") {
  optMethod.Add(0, "&Time");
  optMethod.Add(1, "&Interval");
  lstTemplates.SetMultiSelect(ListBox::kExtended);
  cmdOK.SetDefault(true);

  Register(Check1);
  Register(Check3);
  Register(optMethod);
  Register(lblTime);
  Register(txtTime);
  Register(lblHours);
  Register(txtHours);
  Register(lblMins);
  Register(txtMins);
  Register(lblTemplates);
  Register(lstTemplates);
  Register(cmdBrowse);
  Register(cmdRemove);
  Register(cmdOK);
  Register(cmdCancel);
}

}  // namespace tolmen
