#include "screen/pages/OpenPage.h"

namespace tolmen {

OpenPage::OpenPage() {
  txtPassword.SetPasswordChar("*");
  txtDatabaseName.SetLocked(true);
  txtDatabasePath.SetLocked(true);
  optListClients.Add(0, "Use Current List");
  optListClients.Add(1, "All Companies && Individuals");
  optListClients.Add(2, "Current Client");
  chkShowToMaxTab.SetValue(1);
}

PageControls OpenPage::OpenPageControls() {
  return {{&fraPastel, &lblDrive1, &Drive1, &lblDir1, &Dir1, &lblPassword, &txtPassword,
           &fraMaximizer, &lblDatabaseName, &txtDatabaseName, &lblDatabasePath, &txtDatabasePath,
           &cmdOpenDatabse, &fraListClients, &chkShowToMaxTab},
          {&optListClients}};
}

}  // namespace tolmen
