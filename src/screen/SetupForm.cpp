#include "screen/SetupForm.h"

namespace tolmen {

SetupForm::SetupForm() : Form("frmSetup", "Pastel Debtor Settings") {
  cmdOk.SetDefault(true);

  Register(lblDocument);
  Register(cboDocument);
  Register(lblStatement);
  Register(cboStatement);
  Register(lblMessage);
  Register(cboMessage);
  Register(cmdOk);
  Register(cmdCancel);
}

}  // namespace tolmen
