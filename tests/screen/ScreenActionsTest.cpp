// The screen model's lookup and the user actions of the script and console front-ends.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "screen/ScreenActions.h"
#include "screen/ScreenModel.h"

namespace tolmen {
namespace {

class ScreenActionsTest : public ::testing::Test {
 protected:
  ScreenActionsTest() : actions(model) { model.frmMain.Show(); }
  std::string Do(const std::string& verb, std::vector<std::string> args = {}) {
    return actions.Perform(UiAction{verb, std::move(args), ""});
  }

  ScreenModel model;
  ScreenActions actions;
};

TEST(ScreenModelTest, LooksUpNamesWithoutCaseQualifiedAndInTheOpenDialogFirst) {
  ScreenModel model;
  EXPECT_EQ(model.Find("CMDNEXT"), &model.frmMain.cmdNext);
  EXPECT_EQ(model.Find("mnufile", 40), &model.frmMain.mnuFile(40));
  EXPECT_EQ(model.Find("mnuFile"), nullptr);  // an array needs an index
  EXPECT_EQ(model.Find("mnuFile", 3), nullptr);
  EXPECT_EQ(model.Find("cmdNothing"), nullptr);
  EXPECT_EQ(model.Find("frmSetup.cmdCancel"), &model.frmSetup.cmdCancel);
  EXPECT_EQ(model.Find("frmNone.cmdCancel"), nullptr);
  // Unqualified, frmMain comes first, then the dialogs in order...
  EXPECT_EQ(model.Find("cmdCancel"), &model.frmOptions.cmdCancel);
  // ...unless a modal dialog is up: its controls are the ones a user reaches.
  model.frmSetup.Show(true);
  EXPECT_EQ(model.ActiveForm(), &model.frmSetup);
  EXPECT_EQ(model.Find("cmdcancel"), &model.frmSetup.cmdCancel);
  EXPECT_EQ(model.Find("cmdOK"), &model.frmSetup.cmdOk);
  EXPECT_EQ(model.Lookup("cmdOK").form, &model.frmSetup);
}

TEST(ScreenModelTest, EveryFileMenuItemIsFoundByItsCaption) {
  ScreenModel model;
  const std::pair<int, const char*> items[] = {{0, "&Open Template..."},
                                               {1, "&Import Parts of Template..."},
                                               {2, "&Save Template..."},
                                               {20, "&View Log File"},
                                               {21, "&Limit Log File Size..."},
                                               {40, "Run in &Background..."},
                                               {50, "Run at &Windows Startup"},
                                               {51, "Shell to new Copy?"},
                                               {99, "E&xit"}};
  for (const auto& [index, caption] : items)
    EXPECT_EQ(model.FindByCaption("mnuFile", caption), &model.frmMain.mnuFile(index)) << caption;
  // Every item is listed in the File menu in index order, separators between the groups.
  std::vector<int> order;
  for (MenuItem* item : model.frmMain.mnuFileTop.Items()) order.push_back(item->Index());
  EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 10, 20, 21, 30, 40, 45, 50, 51, 60, 99}));
  for (int separator : {10, 30, 45, 60})
    EXPECT_TRUE(model.frmMain.mnuFile(separator).IsSeparator());
}

TEST_F(ScreenActionsTest, ClickRunsTheHandlerOrSaysThereIsNone) {
  EXPECT_EQ(Do("click", {"cmdNext"}), "no handler for cmdNext");
  int nexts = 0;
  model.frmMain.cmdNext.SetOnClick([&] { ++nexts; });
  EXPECT_EQ(Do("CLICK", {"CmdNext"}), "");
  EXPECT_EQ(nexts, 1);
  EXPECT_EQ(Do("dblclick", {"Image1"}), "Image1 is not visible");
  model.frmMain.Image1.SetVisible(true);
  EXPECT_EQ(Do("dblclick", {"Image1"}), "no double-click handler for Image1");
  EXPECT_EQ(Do("click", {"mnuFoo"}), "unknown control mnuFoo");
  EXPECT_EQ(Do("wave", {"cmdNext"}), "unknown action wave");
  EXPECT_EQ(Do("click"), "click: which control?");
}

TEST_F(ScreenActionsTest, ActionsAUserCouldNotDoAreRefused) {
  MainForm& main = model.frmMain;
  int clicks = 0;
  for (Button* button : {&main.cmdBack, &main.cmdAbort, &main.cmdNext})
    button->SetOnClick([&] { ++clicks; });
  main.cmdBack.SetEnabled(false);
  EXPECT_EQ(Do("click", {"cmdBack"}), "cmdBack is disabled");
  EXPECT_EQ(Do("click", {"cmdAbort"}), "cmdAbort is not visible");

  main.mnuFile.SetOnClick([&](int) { ++clicks; });
  main.mnuFileTop.SetEnabled(false);  // as during a run
  EXPECT_EQ(Do("click", {"mnuFile", "40"}), "mnuFileTop is disabled");
  main.mnuFileTop.SetEnabled(true);
  EXPECT_EQ(Do("click", {"mnuFile", "30"}), "mnuFile(30) is a separator");

  // A control on a page that is not showing, hidden or disabled.
  main.lblHeading.SetOnClick([&] { ++clicks; });
  EXPECT_EQ(Do("click", {"lblHeading"}), "lblHeading is on page 5 of tabDlg, which is not showing");
  main.tabDlg.SetTab(MainForm::kTabTransfer);
  EXPECT_EQ(Do("click", {"lblHeading"}), "");
  main.tabDlg.SetTabEnabled(MainForm::kTabTransfer, false);
  EXPECT_EQ(Do("click", {"lblHeading"}), "lblHeading is on page 5 of tabDlg, which is disabled");

  // A modal dialog takes all actions; a hidden form takes none.
  EXPECT_EQ(Do("click", {"frmOptions.cmdOK"}), "frmOptions is not shown");
  model.frmOptions.Show(true);
  EXPECT_EQ(Do("click", {"frmMain.cmdNext"}), "frmOptions is open");
  EXPECT_EQ(Do("close"), "frmOptions is open");
  EXPECT_EQ(Do("tab", {"1"}), "frmOptions is open");
  EXPECT_EQ(clicks, 1);
}

TEST_F(ScreenActionsTest, MenuArrayMembersByIndexOrCaption) {
  std::vector<int> clicked;
  model.frmMain.mnuFile.SetOnClick([&](int index) { clicked.push_back(index); });
  EXPECT_EQ(Do("click", {"mnuFile", "&Save Template..."}), "");
  EXPECT_EQ(Do("click", {"mnuFile", "save template..."}), "");
  EXPECT_EQ(Do("click", {"mnuFile", "40"}), "");
  EXPECT_EQ(Do("click", {"mnuFile", "Print"}), "mnuFile has no member \"Print\"");
  EXPECT_EQ(Do("click", {"mnuFile", "3"}), "mnuFile has no member 3");
  EXPECT_EQ(Do("click", {"mnuFile"}), "mnuFile is a control array: name a member");
  EXPECT_EQ(clicked, (std::vector<int>{2, 2, 40}));
}

TEST_F(ScreenActionsTest, ValuesChangeAsAUserChangesThem) {
  OptionsForm& options = model.frmOptions;
  options.Show(true);
  std::vector<std::string> events;
  options.Check1.SetOnClick(
      [&] { events.push_back("Check1=" + std::to_string(options.Check1.Value())); });
  options.txtTime.SetOnGotFocus([&] { events.push_back("got:" + options.txtTime.Text()); });
  options.txtTime.SetOnChange([&] { events.push_back("change:" + options.txtTime.Text()); });
  options.txtTime.SetOnLostFocus([&] { events.push_back("lost:" + options.txtTime.Text()); });
  options.optMethod.SetOnClick([&](int index) { events.push_back("opt" + std::to_string(index)); });

  EXPECT_EQ(Do("click", {"Check1"}), "");
  EXPECT_EQ(Do("set", {"check1", "1"}), "");  // already 1: no event
  EXPECT_EQ(Do("set", {"Check1", "5"}), "set Check1: the value must be 0, 1 or 2");
  EXPECT_EQ(Do("set", {"txtTime", "14:00"}), "");
  EXPECT_EQ(Do("click", {"optMethod", "1"}), "");
  EXPECT_EQ(Do("click", {"optMethod", "&Time"}), "");
  EXPECT_EQ(events, (std::vector<std::string>{"Check1=1", "got:", "change:14:00", "lost:14:00",
                                              "opt1", "opt0"}));
  EXPECT_EQ(options.optMethod.Value(), 0);
  EXPECT_EQ(Do("set", {"cmdOK", "1"}), "cannot set a button (cmdOK)");

  options.lstTemplates.AddItem("/home/a/monthly.ktf");
  options.lstTemplates.AddItem("/home/a/weekly.ktf");
  EXPECT_EQ(Do("select", {"lstTemplates", "/HOME/A/WEEKLY.KTF"}), "");
  EXPECT_TRUE(options.lstTemplates.Selected(1));
  EXPECT_EQ(Do("select", {"lstTemplates", "#0"}), "");
  EXPECT_EQ(options.lstTemplates.SelCount(), 2);
  EXPECT_EQ(Do("select", {"lstTemplates", "#2"}), "lstTemplates has no entry 2 (it has 2)");
  EXPECT_EQ(Do("select", {"lstTemplates", "daily.ktf"}), "lstTemplates has no entry \"daily.ktf\"");
  EXPECT_EQ(Do("select", {"txtTime", "x"}), "cannot select in a text box (txtTime)");
}

TEST_F(ScreenActionsTest, CombosAndListsTakeEntriesByTextOrPosition) {
  SetupForm& setup = model.frmSetup;
  for (const char* text :
       {"Do not change the Settings", "Print Oldest Terms Message", "Print First Terms Message"})
    setup.cboMessage.AddItem(text);
  setup.Show(true);
  EXPECT_EQ(Do("select", {"cboMessage", "print", "first", "terms", "message"}), "");
  EXPECT_EQ(setup.cboMessage.ListIndex(), 2);
  EXPECT_EQ(Do("set", {"cboMessage", "Do not change the Settings"}), "");
  EXPECT_EQ(setup.cboMessage.ListIndex(), 0);
  EXPECT_EQ(Do("set", {"cboMessage", "Fax"}), "cboMessage has no entry \"Fax\"");
  EXPECT_EQ(Do("click", {"cboMessage", "1"}), "");
  EXPECT_EQ(setup.cboMessage.ListIndex(), 1);
  EXPECT_EQ(Do("click", {"cboMessage"}), "click cboMessage: which entry?");

  int opened = 0;
  setup.cboMessage.SetOnDblClick([&] { opened = setup.cboMessage.ListIndex() + 100; });
  EXPECT_EQ(Do("dblclick", {"cboMessage", "#0"}), "");
  EXPECT_EQ(opened, 100);
}

TEST_F(ScreenActionsTest, TabsAreClickedByNumberUnlessHiddenOrDisabled) {
  TabControl& tabs = model.frmMain.tabDlg;
  std::vector<int> arrived;
  tabs.SetOnClick([&] { arrived.push_back(tabs.Tab()); });
  EXPECT_EQ(Do("tab", {"3"}), "");
  EXPECT_EQ(Do("click", {"tabDlg", "1"}), "");
  tabs.SetTabVisible(2, false);
  EXPECT_EQ(Do("tab", {"2"}), "page 2 of tabDlg is hidden");
  tabs.SetTabEnabled(4, false);
  EXPECT_EQ(Do("tab", {"4"}), "page 4 of tabDlg is disabled");
  EXPECT_EQ(Do("tab", {"6"}), "tabDlg has no page 6");
  EXPECT_EQ(Do("tab", {"Open"}), "tabDlg: no page Open");
  EXPECT_EQ(arrived, (std::vector<int>{3, 1}));
}

TEST_F(ScreenActionsTest, CloseTrayAndStatusGoThroughTheHooks) {
  EXPECT_EQ(Do("tray", {"dblclick"}), "no handler for tray");
  std::vector<std::string> trayArgs;
  actions.SetTrayHook([&](const std::vector<std::string>& args) { trayArgs = args; });
  EXPECT_EQ(Do("tray", {"dblclick"}), "");
  EXPECT_EQ(trayArgs, (std::vector<std::string>{"dblclick"}));

  MainForm& main = model.frmMain;
  main.lblStatus.SetCaption("Pastel: Demo && Sons");
  main.lblProgress(1).SetCaption("3 of 10: 2 Debtors, 0 Errors");
  main.lblProgress(2).SetCaption("Started: 10:00");
  EXPECT_EQ(actions.StatusText(), "Pastel: Demo & Sons");  // the progress labels are hidden
  main.lblProgress(1).SetVisible(true);
  main.lblProgress(2).SetVisible(true);
  EXPECT_EQ(actions.StatusText(),
            "Pastel: Demo & Sons | 3 of 10: 2 Debtors, 0 Errors | Started: 10:00");

  // By default the close box unloads the form; the application may take it over.
  EXPECT_TRUE(actions.IsOpen());
  int refused = 0;
  main.SetOnClose([&] { ++refused; });
  EXPECT_EQ(Do("close"), "");
  EXPECT_EQ(refused, 1);
  EXPECT_TRUE(actions.IsOpen());
  main.SetOnClose(nullptr);
  EXPECT_EQ(Do("close"), "");
  EXPECT_FALSE(actions.IsOpen());
  EXPECT_FALSE(actions.IsVisible());
  actions.SetIsOpenHook([] { return true; });
  EXPECT_TRUE(actions.IsOpen());
}

}  // namespace
}  // namespace tolmen
