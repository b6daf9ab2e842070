#include "wizard/WizardHandlers.h"

#include <array>

#include "pastel/OpenPastel.h"
#include "shell/Tolmen.h"

namespace tolmen {

void cmdHelp_Click(Tolmen& app) {
  static constexpr std::array<const char*, 6> kPages = {
      "::/html/06 Open Tab.htm",       "::/html/07 To Pastel.htm",
      "::/html/08 To Maximizer.htm",   "::/html/09 Recurring Billing.htm",
      "::/html/10 Casual Billing.htm", "::/html/11 Transfer Tab.htm"};
  const int tab = app.screen.frmMain.tabDlg.Tab();
  if (tab < 0 || tab >= static_cast<int>(kPages.size())) {
    app.ui.MsgBox("Program Error: Unknown Tab " + std::to_string(tab));
    return;
  }
  app.ui.ShowHelp(app.info.HelpFile, kPages[static_cast<size_t>(tab)]);
}

void WireMainForm(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.cmdHelp.SetOnClick([&app] { cmdHelp_Click(app); });
  form.mnuHelpContents.SetOnClick([&app] { cmdHelp_Click(app); });
  form.Dir1.SetOnChange([&app] { Dir1_Change(app); });
  form.Drive1.SetOnChange([&app] { Drive1_Change(app); });
  form.mnuFile.SetOnClick([&app](int index) {
    if (index == 99) app.screen.frmMain.Unload();
  });
}

}  // namespace tolmen
