// What each page of frmMain's tab control lists of its own controls, so that the form can
// register them on their page. A page is a plain struct of controls under their own names;
// frmMain inherits the six of them, so a control is reached as frmMain.cboAcctCode.
#pragma once

#include <vector>

#include "screen/Control.h"
#include "screen/ControlArray.h"

namespace tolmen {

struct PageControls {
  std::vector<Control*> controls;
  std::vector<ControlArrayBase*> arrays;
};

}  // namespace tolmen
