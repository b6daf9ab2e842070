// The "Casual Billing" page with a scripted user: the four steps of a new rule, the list's
// commands and tooltips, and the resolution of rules whose code the inventory list holds.
#include <gtest/gtest.h>

#include "pastel/PastelTestSet.h"

#include "billing/CasualBilling.h"
#include "billing/CasualRule.h"
#include "runtime/DateTime.h"
#include "wizard/CasualBillingControls.h"

namespace tolmen {
namespace {

class CasualBillingPageTest : public testing::PastelSetTest {
 protected:
  // Two UDFs offered, the five documents, and an inventory list already read.
  void Begin(const std::vector<std::string>& script) {
    Start(script, DateFromParts(2026, 11, 23, 9, 0, 0));
    WireCasualBillingControls(*app_);
    MainForm& form = Form();
    form.lstBillCUDFs.AddItem("Membership");
    form.lstBillCUDFs.SetItemData(0, 5);
    form.lstBillCUDFs.AddItem("Level");
    form.lstBillCUDFs.SetItemData(1, 6);
    FillDocumentList(form.lstBillType);
    Inventory({"<FEE01> Annual fee", "<K9> Kennel"});
  }
  void Inventory(const std::vector<std::string>& rows) {
    Form().lstPasInventory.Clear();
    for (const std::string& row : rows) Form().lstPasInventory.AddItem(row);
    app_->billing.InventoryLoaded = true;
  }
  MainForm& Form() { return app_->screen.frmMain; }
  // The transcript since the last call.
  std::string Said() {
    const std::string text = transcript_.str();
    transcript_.str("");
    return text;
  }
  bool Heard(const std::string& part) { return Has(Said(), part); }
  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
};

TEST_F(CasualBillingPageTest, AddAsksForEachStepInTurnThenAddsTheRule) {
  Begin({});
  MainForm& form = Form();
  form.lstBillType.SetListIndex(-1);
  struct Step {
    std::function<void()> choose;  // what the user does before clicking Add
    std::string message;
    const Control* focus;
  };
  const Step steps[] = {
      {[] {},
       "Please select a Maximizer Table, Numeric, or Alphanumeric User-Defined Field (Step 1)",
       &form.lstBillCUDFs},
      {[&] { form.lstBillCUDFs.SetListIndex(0); }, "Please type text to trigger billing (Step 2)",
       &form.txtBillCCode},
      {[&] { form.txtBillCCode.SetText(" GO\"LD "); },
       "Please select a Pastel Document to Create (Step 3)", &form.lstBillType},
      {[&] {
         form.lstBillType.SetListIndex(2);
         Inventory({kNoInventoryItems});
         form.lstPasInventory.SetListIndex(0);
       },
       "Please Set Up your Inventory Items in Pastel first.", &form.lstPasInventory},
      {[&] {
         Inventory({"<FEE01> Annual fee", "<K9> Kennel"});
       },
       "Please select a Pastel Inventory Item to Bill (Step 4)", &form.lstPasInventory},
  };
  for (const Step& step : steps) {
    step.choose();
    form.cmdBillCAdd.Click();
    EXPECT_TRUE(Heard("== MsgBox | Tolmen | OK | Exclamation\n" + step.message + "\n"))
        << step.message;
    EXPECT_EQ(form.Focus().control, step.focus) << step.message;
    EXPECT_EQ(form.lstBillCSet.ListCount(), 0);
  }

  // The toolkit cannot read prices: the lookup says so and the rule has no price.
  form.lstPasInventory.SetListIndex(1);
  form.cmdBillCAdd.Click();
  EXPECT_TRUE(Heard("Pastel Error in Function GetMultiPrice$"));
  ASSERT_EQ(form.lstBillCSet.ListCount(), 1);
  EXPECT_EQ(form.lstBillCSet.List(0),
            "If <Membership> Contains \"GOLD\" then Batch Invoice <K9> Kennel");
}

TEST_F(CasualBillingPageTest, ListCommandsNeedARowAndEditReportsWhatItCannotFind) {
  Begin({});
  MainForm& form = Form();
  ListBox& rules = form.lstBillCSet;
  rules.AddItem("If <Level> Contains \"GOLD\" then Sales Order <K9> Kennel: Price 5.00");
  rules.AddItem("If <Gone> Contains \"X\" then Posted Invoice <NOPE> Thing");
  for (auto [command, message] :
       {std::pair{&form.cmdBillCReplace,
                  "First Select the item you want to Replace, or Add instead!"},
        std::pair{&form.cmdBillCDelete, "First Select the item you want to delete!"},
        std::pair{&form.cmdBillCEdit, "First Select the item you want to Edit!"}}) {
    command->Click();
    EXPECT_TRUE(Heard(std::string("Exclamation\n") + message + "\n")) << message;
  }
  EXPECT_EQ(rules.ListCount(), 2);

  rules.SetListIndex(0);
  EXPECT_EQ(rules.ToolTipText(), rules.List(0));
  form.cmdBillCEdit.Click();
  EXPECT_EQ(Said(), "");
  EXPECT_EQ(form.lstBillCUDFs.ListIndex(), 1);
  EXPECT_EQ(form.txtBillCCode.Text(), "GOLD");
  EXPECT_EQ(form.lstBillType.ListIndex(), 1);
  EXPECT_EQ(form.lstPasInventory.ListIndex(), 1);

  // The parts found are set, the others reported together; Replace takes the steps as they are.
  rules.SetListIndex(1);
  form.cmdBillCEdit.Click();
  EXPECT_TRUE(
      Heard("== MsgBox | Tolmen Couldn't Edit Item! | OK | Exclamation\n"
            "<Gone> was not found in the list of Maximizer UDFs.\n"
            "Document Type <Posted Invoice> was not found in the Pastel Documents.\n"
            "Code <NOPE> was not found in the Pastel Inventory.\n-> OK\n"));
  EXPECT_EQ(form.txtBillCCode.Text(), "X");
  form.cmdBillCReplace.Click();
  EXPECT_EQ(rules.List(1), "If <Level> Contains \"X\" then Sales Order <K9> Kennel");
  rules.SetListIndex(0);
  form.cmdBillCDelete.Click();
  EXPECT_EQ(rules.ListCount(), 1);
  EXPECT_EQ(rules.ListIndex(), -1);
  form.lstBillCSet.Click();
  EXPECT_EQ(rules.ToolTipText(), "Click item & Wait for Tooltip");

  form.lstPasInventory.Click();
  EXPECT_EQ(form.lstPasInventory.ToolTipText(),
            "Pastel Inventory Item to bill (Click item & Wait for Tooltip)");
  Inventory({kNoInventoryItems});
  form.lstPasInventory.Click();
  EXPECT_EQ(form.lstPasInventory.ToolTipText(),
            "No Inventory Items Set Up. (double-click to refresh list)");
}

TEST_F(CasualBillingPageTest, ARuleWhoseCodeIsListedStillHasNoPriceToBill) {
  Begin({});
  MainForm& form = Form();
  form.lstBillCSet.AddItem("If <Level> Contains \"GOLD\" then Quote <K9> Kennel");
  form.lstBillCSet.AddItem("If <Gone> Contains \"X\" then Quote <K9> Kennel");
  form.lstBillCSet.AddItem("If <Membership> Contains \"Y\" then Quote <K9> Kennel: Price 1.00");
  form.mnuViewBillC.SetChecked(false);
  EXPECT_FALSE(ResolveCasualItems(*app_));
  const std::string said = Said();
  EXPECT_TRUE(Has(said, "Pastel Error in Function GetMultiPrice$"));
  EXPECT_TRUE(Has(said,
                  "== MsgBox | Tolmen Couldn't Resolve Item! | OK | Exclamation\n"
                  "There are Errors in Casual Billing Item(s):\n"
                  "Code <K9> can not be Invoiced: Bad Price ()\n"
                  "<Gone> was not found in the list of Maximizer UDFs.\n-> OK\n"))
      << said;
  EXPECT_FALSE(app_->run.CasualBillingOn);
  EXPECT_TRUE(form.mnuViewBillC.Checked());
  EXPECT_EQ(app_->billing.CasualItems.size(), 3u);
}

}  // namespace
}  // namespace tolmen
