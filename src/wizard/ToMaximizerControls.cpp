#include "wizard/ToMaximizerControls.h"

#include <string>

#include "runtime/Strings.h"
#include "shell/Tolmen.h"
#include "transfer/Pas2MaxLinks.h"

namespace tolmen {
namespace {

void EnableAddReplace(MainForm& form) {
  const bool both = form.lst2MaxPastel.ListIndex() >= 0 && form.lst2MaxUDFs.ListIndex() >= 0;
  form.cmd2MaxAdd.SetEnabled(both);
  form.cmd2MaxReplace.SetEnabled(both);
}

// The selected link, after its message when there is none.
bool LinkSelected(Tolmen& app, const std::string& message) {
  if (app.screen.frmMain.lst2MaxLinked.ListIndex() >= 0) return true;
  app.ui.MsgBox(message);
  return false;
}

}  // namespace

void cmd2MaxAdd_Click(Tolmen& app) {
  ListBox& linked = app.screen.frmMain.lst2MaxLinked;
  const std::string link = GetPas2MaxItem(app);
  if (link.empty()) return;
  linked.AddItem(link);
  linked.SetListIndex(linked.NewIndex());
}

void cmd2MaxDelete_Click(Tolmen& app) {
  if (!LinkSelected(app, "First Select the item you want to delete!")) return;
  ListBox& linked = app.screen.frmMain.lst2MaxLinked;
  linked.RemoveItem(linked.ListIndex());
}

void cmd2MaxEdit_Click(Tolmen& app) {
  if (!LinkSelected(app, "First Select the item you want to Edit!")) return;
  ListBox& linked = app.screen.frmMain.lst2MaxLinked;
  Pas2MaxLink link;
  Parse2MaxOK(app, linked.List(linked.ListIndex()), link, " Couldn't Edit!");
}

void cmd2MaxReplace_Click(Tolmen& app) {
  if (!LinkSelected(app, "First Select the item you want to Replace, or Add instead!")) return;
  ListBox& linked = app.screen.frmMain.lst2MaxLinked;
  const int selected = linked.ListIndex();
  const std::string link = GetPas2MaxItem(app);
  if (!link.empty()) linked.SetList(selected, link);
}

void lst2MaxPastel_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const std::string row = form.lst2MaxPastel.List(form.lst2MaxPastel.ListIndex());
  form.lblAging.SetVisible(InStr(row, "Aging") > 0);
  EnableAddReplace(form);
}

void lst2MaxLinked_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  ListBox& linked = form.lst2MaxLinked;
  const bool selected = linked.ListIndex() >= 0;
  linked.SetToolTipText(selected ? linked.List(linked.ListIndex())
                                 : "Click item & Wait for Tooltip");
  form.cmd2MaxDelete.SetEnabled(selected);
  form.cmd2MaxEdit.SetEnabled(selected);
}

void WireToMaximizerControls(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.cmd2MaxAdd.SetOnClick([&app] { cmd2MaxAdd_Click(app); });
  form.cmd2MaxDelete.SetOnClick([&app] { cmd2MaxDelete_Click(app); });
  form.cmd2MaxEdit.SetOnClick([&app] { cmd2MaxEdit_Click(app); });
  form.cmd2MaxReplace.SetOnClick([&app] { cmd2MaxReplace_Click(app); });
  form.lst2MaxPastel.SetOnClick([&app] { lst2MaxPastel_Click(app); });
  form.lst2MaxUDFs.SetOnClick([&app] { EnableAddReplace(app.screen.frmMain); });
  form.lst2MaxLinked.SetOnClick([&app] { lst2MaxLinked_Click(app); });
  form.lst2MaxLinked.SetOnDblClick([&app] { cmd2MaxEdit_Click(app); });
  form.lst2MaxPastel.SetOnDblClick([&app] { cmd2MaxAdd_Click(app); });
  form.lst2MaxUDFs.SetOnDblClick([&app] { cmd2MaxAdd_Click(app); });
}

}  // namespace tolmen
