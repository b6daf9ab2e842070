// frmSetup, the Pastel debtor settings dialog: how a new debtor's document, statement and terms
// message options are filled. Modal when shown; its logic fills and reads the three combos.
#pragma once

#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/ListControls.h"

namespace tolmen {

class SetupForm : public Form {
 public:
  SetupForm();

  Label lblDocument{"lblDocument", "Document:"};
  ComboBox cboDocument{"cboDocument"};
  Label lblStatement{"lblStatement", "Statement:"};
  ComboBox cboStatement{"cboStatement"};
  Label lblMessage{"lblMessage", "Terms Message:"};
  ComboBox cboMessage{"cboMessage"};
  Button cmdOk{"cmdOk", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};
};

}  // namespace tolmen
