// The control models: events raised by code as by a user, option groups, lists, menus, tabs.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/ErrorOf.h"
#include "screen/Controls.h"
#include "screen/ListControls.h"
#include "screen/Menu.h"
#include "screen/OptionButton.h"
#include "screen/TabControl.h"

namespace tolmen {
namespace {

TEST(CheckBoxTest, ClickRunsOnlyWhenTheValueChanges) {
  CheckBox box("chkWritePasFile");
  std::vector<int> seen;
  box.SetOnClick([&] { seen.push_back(box.Value()); });
  box.SetValue(1);
  box.SetValue(1);
  box.Toggle();
  box.SetValue(2);
  box.Toggle();
  EXPECT_EQ(seen, (std::vector<int>{1, 0, 2, 1}));
  EXPECT_EQ(ErrorOf([&] { box.SetValue(3); }), 380);
  EXPECT_EQ(box.Value(), 1);
}

TEST(CheckBoxTest, HandlerSettingItsOwnControlReentersOnlyOnAChange) {
  CheckBox box("Check1");
  int depth = 0, maxDepth = 0, calls = 0;
  // The handler refuses a tick: setting the box back to 0 runs the handler once more, inside.
  box.SetOnClick([&] {
    ++calls;
    ++depth;
    maxDepth = std::max(maxDepth, depth);
    box.SetValue(0);
    --depth;
  });
  box.SetValue(1);
  EXPECT_EQ(box.Value(), 0);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(maxDepth, 2);

  // A handler that keeps changing its own control never ends, as it never did.
  CheckBox runaway("Check3");
  runaway.SetOnClick([&] { runaway.Toggle(); });
  EXPECT_EQ(ErrorOf([&] { runaway.SetValue(1); }), 28);
  // The guard unwinds: the box works normally afterwards.
  runaway.SetOnClick(nullptr);
  runaway.SetValue(0);
  runaway.SetValue(1);
  EXPECT_EQ(runaway.Value(), 1);
}

TEST(OptionArrayTest, SwitchingOneOnSwitchesTheOthersOffBeforeItsClick) {
  OptionArray options("optBillPeriod");
  options.Add(0, "No Billing");
  options.Add(1, "Monthly");
  options.Add(2, "Annually");
  EXPECT_EQ(options.Value(), -1);
  std::vector<std::string> seen;
  options.SetOnClick([&](int index) {
    std::string state = std::to_string(index) + ":";
    for (int i : options.Indexes()) state += options(i).Value() ? "1" : "0";
    seen.push_back(state);
  });
  options.Set(2);
  options(0).SetValue(true);
  options(0).SetValue(true);   // already on: nothing
  options(0).SetValue(false);  // switching off raises nothing
  EXPECT_EQ(seen, (std::vector<std::string>{"2:001", "0:100"}));
  EXPECT_EQ(options.Value(), -1);
  EXPECT_EQ(ErrorOf([&] { options.Set(7); }), 340);
}

TEST(ListBoxTest, SortedItemsKeepItemDataAndTheSelectionFollowsItsItem) {
  ListBox list("cboCategories");
  list.SetSorted(true);
  int clicks = 0;
  list.SetOnClick([&] { ++clicks; });
  for (const char* text : {"pear", "Apple", "banana", "apple"}) {
    list.AddItem(text);
    list.SetItemData(list.NewIndex(), static_cast<long>(std::string(text).size()));
  }
  ASSERT_EQ(list.ListCount(), 4);
  EXPECT_EQ(list.List(0), "Apple");
  EXPECT_EQ(list.List(1), "apple");  // equal without case: behind the one already there
  EXPECT_EQ(list.List(2), "banana");
  EXPECT_EQ(list.ItemData(3), 4);
  EXPECT_EQ(list.List(9), "");

  list.SetListIndex(2);
  list.SetListIndex(2);
  EXPECT_EQ(clicks, 1);
  list.AddItem("Aardvark");  // sorts first: the selection moves with "banana"
  EXPECT_EQ(list.ListIndex(), 3);
  EXPECT_EQ(list.List(list.ListIndex()), "banana");
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 2);
  list.RemoveItem(2);  // the selected item goes: no selection, no event
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(clicks, 1);

  EXPECT_EQ(ErrorOf([&] { list.SetListIndex(3); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.ItemData(3); }), 381);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(-1); }), 5);
  EXPECT_EQ(ErrorOf([&] { list.AddItem("x", 5); }), 5);
  list.AddItem("first", 0);  // an explicit place wins over the order
  EXPECT_EQ(list.List(0), "first");
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST(ListBoxTest, MultiSelectionMarksItemsOneByOne) {
  ListBox list("lstTemplates");
  list.SetMultiSelect(ListBox::kExtended);
  for (const char* text : {"a.ktf", "b.ktf", "c.ktf"}) list.AddItem(text);
  int clicks = 0;
  list.SetOnClick([&] { ++clicks; });
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  list.SetSelected(2, true);
  EXPECT_EQ(list.SelCount(), 2);
  EXPECT_TRUE(list.Selected(0));
  EXPECT_FALSE(list.Selected(1));
  EXPECT_EQ(clicks, 2);
  list.RemoveItem(0);
  EXPECT_EQ(list.SelCount(), 1);
  EXPECT_TRUE(list.Selected(1));

  ListBox single("lstPrices");
  single.AddItem("x");
  single.AddItem("y");
  single.SetSelected(1, true);
  EXPECT_EQ(single.ListIndex(), 1);
  single.SetSelected(0, false);  // not the selected one: nothing changes
  EXPECT_EQ(single.ListIndex(), 1);
  single.SetSelected(1, false);
  EXPECT_EQ(single.ListIndex(), -1);
}

TEST(ComboBoxTest, TextSelectsInAListAndStandsAloneInACombo) {
  ComboBox list("cboDocument");
  for (const char* text : {"Do not change the Settings", "Print Document", "Email Document"})
    list.AddItem(text);
  int clicks = 0;
  list.SetOnClick([&] { ++clicks; });
  list.SetText("print document");
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.Text(), "Print Document");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(ErrorOf([&] { list.SetText("Fax Document"); }), 383);

  ComboBox combo("cboUserFields", ComboBox::kDropdownCombo);
  combo.AddItem("Account No");
  combo.AddItem("Date Billed");
  int changes = 0, comboClicks = 0;
  combo.SetOnChange([&] { ++changes; });
  combo.SetOnClick([&] { ++comboClicks; });
  combo.SetText("Date Billed");
  EXPECT_EQ(combo.ListIndex(), 1);
  combo.SetText("Something typed");
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.Text(), "Something typed");
  combo.SetListIndex(0);  // a pick from the list brings its text
  EXPECT_EQ(combo.Text(), "Account No");
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(comboClicks, 1);
}

TEST(MenuArrayTest, SparseIndexesCaptionsAndOneHandler) {
  MenuItem file("mnuFileTop", "&File");
  MenuArray items("mnuFile");
  items.AddTo(file, 0, "&Open Template...");
  items.AddTo(file, 20, "&View Log File");
  std::vector<int> clicked;
  items.SetOnClick([&](int index) { clicked.push_back(index); });
  items.AddTo(file, 99, "E&xit");  // a member added later has the handler too
  EXPECT_EQ(items.Indexes(), (std::vector<int>{0, 20, 99}));
  EXPECT_EQ(items.LBound(), 0);
  EXPECT_EQ(items.UBound(), 99);
  EXPECT_EQ(items(20).DisplayName(), "mnuFile(20)");
  EXPECT_EQ(ErrorOf([&] { items.Item(5); }), 340);
  EXPECT_EQ(ErrorOf([&] { items.Add(20, "again"); }), 360);
  items(99).Click();
  items(20).Click();
  EXPECT_EQ(clicked, (std::vector<int>{99, 20}));

  ASSERT_EQ(file.Items().size(), 3u);
  EXPECT_EQ(items(99).Parent(), &file);
  EXPECT_TRUE(items(20).Reachable());
  file.SetEnabled(false);
  EXPECT_FALSE(items(20).Reachable());
}

TEST(TabControlTest, SelectingAPageRaisesClickWithThePreviousPage) {
  TabControl tabs("tabDlg");
  for (const char* caption : {"Open", "To Pastel", "To Maximizer"}) tabs.AddTab(caption);
  std::vector<std::pair<int, int>> seen;
  tabs.SetOnClick([&] { seen.emplace_back(tabs.PreviousTab(), tabs.Tab()); });
  tabs.SetTab(2);
  tabs.SetTab(2);
  tabs.SetTab(1);
  EXPECT_EQ(seen, (std::vector<std::pair<int, int>>{{0, 2}, {2, 1}}));
  EXPECT_EQ(ErrorOf([&] { tabs.SetTab(3); }), 380);
  EXPECT_EQ(ErrorOf([&] { tabs.SetTabVisible(-1, false); }), 381);
  tabs.SetTabVisible(1, false);  // hiding the page on show does not move away from it
  EXPECT_EQ(tabs.Tab(), 1);
  EXPECT_FALSE(tabs.TabVisible(1));
}

TEST(ControlTest, RevisionMovesOnlyWithVisibleChanges) {
  Label label("lblStatus");
  unsigned long before = label.Revision();
  label.SetCaption("");
  label.SetVisible(true);
  EXPECT_EQ(label.Revision(), before);
  label.SetCaption("Pastel is in Period 3");
  label.SetForeColor(vbRed);
  EXPECT_EQ(label.Revision(), before + 2);
  EXPECT_EQ(StripAccessKeys("Smith && Sons &Ltd"), "Smith & Sons Ltd");
}

}  // namespace
}  // namespace tolmen
