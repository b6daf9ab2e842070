// The "Transfer" page's own choice: whether a run writes the Pastel import files. The page's
// heading, progress labels, bar and animation are frmMain's.
#pragma once

#include "screen/Controls.h"
#include "screen/pages/Page.h"

namespace tolmen {

struct TransferPage {
  TransferPage();
  PageControls TransferPageControls();

  CheckBox chkWritePasFile{"chkWritePasFile",
                           "Write Import files for Pastel (CSV files on Pastel folder)"};
};

}  // namespace tolmen
