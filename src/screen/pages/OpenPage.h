// The "Open" page: the Pastel set of accounts (drive, folder, password), the Maximizer database,
// which clients a run takes, and whether the "To Maximizer" page shows.
//
// Linux has no drives: Drive1 holds the root of the folder in Dir1 ("/"), and Dir1 holds the
// folder itself with a trailing '/'. Setting Dir1's text runs its change handler, as picking a
// folder in the list did.
#pragma once

#include "screen/Controls.h"
#include "screen/OptionButton.h"
#include "screen/pages/Page.h"

namespace tolmen {

struct OpenPage {
  OpenPage();
  PageControls OpenPageControls();

  Label fraPastel{"fraPastel", "Pastel Accounts"};
  Label lblDrive1{"lblDrive1", "Drive:"};
  TextBox Drive1{"Drive1"};
  Label lblDir1{"lblDir1", "Folder:"};
  TextBox Dir1{"Dir1"};
  Label lblPassword{"lblPassword", "Pastel Password:"};
  TextBox txtPassword{"txtPassword"};

  Label fraMaximizer{"fraMaximizer", "Maximizer Database"};
  Label lblDatabaseName{"lblDatabaseName", "Name:"};
  TextBox txtDatabaseName{"txtDatabaseName"};
  Label lblDatabasePath{"lblDatabasePath", "Path:"};
  TextBox txtDatabasePath{"txtDatabasePath"};
  Button cmdOpenDatabse{"cmdOpenDatabse", "&Open Database"};

  // "List Clients": 0 the current list, 1 the whole address book, 2 the current client only.
  Label fraListClients{"fraListClients", "Maximizer Clients"};
  OptionArray optListClients{"optListClients"};

  CheckBox chkShowToMaxTab{"chkShowToMaxTab",
                           "Transfer Pastel accounts fields to Maximizer (\"To Maximizer\" tab)"};
};

}  // namespace tolmen
