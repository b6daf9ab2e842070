#include "billing/CasualBilling.h"

#include <vector>

#include "billing/BillingSetup.h"
#include "billing/CasualRule.h"
#include "runtime/Strings.h"
#include "runtime/Trap.h"
#include "shell/Busy.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

std::vector<std::string> DocumentNames(const ListControl& list) {
  std::vector<std::string> names;
  for (const ListItem& item : list.Items()) names.push_back(item.text);
  return names;
}

// The inventory row of `code`: the first row holding "<code> ", -1 when none does.
int InventoryRow(const ListControl& inventory, const std::string& code) {
  const std::string key = "<" + code + "> ";
  for (int row = 0; row < inventory.ListCount(); ++row)
    if (InStr(inventory.List(row), key) > 0) return row;
  return -1;
}

// What a resolution holds for: the rules and the Pastel folder.
std::string ResolvedState(Tolmen& app) {
  std::string state = app.pastel.PastelDataPath;
  for (const ListItem& item : app.screen.frmMain.lstBillCSet.Items()) state += "\n" + item.text;
  return state;
}

// The price lookup's stage text; a lookup that changes it has said why it found no price.
std::string PriceStage(const std::string& code) {
  return "reading the Price of Item <" + code + ">";
}

// The page's messages: the program's name as title, and an exclamation.
void Say(Tolmen& app, const std::string& text) {
  app.ui.MsgBox(text, vbExclamation, app.info.AppName);
}

// The stock item of a rule's code as Pastel gives it.
StockItemFacts ReadStockItem(Tolmen& app, const std::string& code) {
  StockItemFacts item;
  std::string asked = code;
  const std::string stage = PriceStage(code);
  std::string said = stage;
  item.price = GetMultiPrice(app, asked, said);
  if (said != stage) item.priceError = said;
  item.taxCode = GetItemTaxCode(app, code);
  item.description = GetItemDescription(app, code);
  return item;
}

}  // namespace

void FillDocumentList(ListBox& list) {
  list.Clear();
  for (const CasualDocument& document : kCasualDocuments) {
    list.AddItem(document.name);
    list.SetItemData(list.NewIndex(), document.type);
  }
  list.SetListIndex(kDefaultCasualDocument);
}

std::string GetNewBillItem(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const auto refuse = [&app](Control& control, const std::string& text) {
    Say(app, text);
    control.SetFocus();
    return std::string();
  };
  if (form.lstBillCUDFs.ListIndex() < 0)
    return refuse(form.lstBillCUDFs,
                  "Please select a Maximizer Table, Numeric, or Alphanumeric User-Defined Field "
                  "(Step 1)");
  const std::string trigger = Trim(form.txtBillCCode.Text());
  if (trigger.empty())
    return refuse(form.txtBillCCode, "Please type text to trigger billing (Step 2)");
  if (form.lstBillType.ListIndex() < 0)
    return refuse(form.lstBillType, "Please select a Pastel Document to Create (Step 3)");
  ListBox& inventory = form.lstPasInventory;
  const std::string row = inventory.List(inventory.ListIndex());
  if (row == kNoInventoryItems)
    return refuse(inventory, "Please Set Up your Inventory Items in Pastel first.");
  if (inventory.ListIndex() < 0)
    return refuse(inventory, "Please select a Pastel Inventory Item to Bill (Step 4)");

  std::string code = InventoryCode(row);
  std::string stage = PriceStage(code);
  const std::string price = GetMultiPrice(app, code, stage);
  return ComposeCasualBill(form.lstBillCUDFs.List(form.lstBillCUDFs.ListIndex()), trigger,
                           form.lstBillType.List(form.lstBillType.ListIndex()), row, price);
}

bool ResolveCasualItems(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  BillingState& billing = app.billing;
  RunState& run = app.run;
  const std::string& br = app.info.LineBreak;
  const std::string state = ResolvedState(app);
  if (run.CasualBillingOn && billing.CasualResolvedFor == state) return true;
  billing.CasualResolvedFor.clear();
  billing.CasualItems.clear();
  const ListBox& rules = form.lstBillCSet;
  if (rules.ListCount() == 0) {
    run.CasualBillingOn = false;
    return true;
  }
  if (!form.mnuViewBillC.Checked()) form.mnuViewBillC.SetChecked(true);
  ReadInventoryList(app);
  billing.CasualItems.resize(static_cast<std::size_t>(rules.ListCount()));
  run.CasualBillingOn = true;

  const std::vector<std::string> documents = DocumentNames(form.lstBillType);
  std::string report;
  bool anyFailed = false;
  for (int row = 0; row < rules.ListCount(); ++row) {
    const CasualBill bill = ParseCasualBill(rules.List(row), documents);
    const int udf = form.lstBillCUDFs.FindItem(bill.udfName);
    std::string fault =
        RuleFault(bill, udf >= 0, InventoryRow(form.lstPasInventory, bill.code) >= 0);
    StockItemFacts item;
    if (fault.empty()) {
      item = ReadStockItem(app, bill.code);
      fault = StockItemFault(bill.code, item);
    }
    if (!fault.empty()) {
      bool failed = false;
      AddItemError(fault, report, failed, br);
      anyFailed = anyFailed || failed;
      continue;
    }
    CasualItem& resolved = billing.CasualItems[static_cast<std::size_t>(row)];
    resolved.documentType =
        static_cast<std::int16_t>(form.lstBillType.ItemData(bill.documentIndex));
    resolved.udfKey = static_cast<std::int16_t>(form.lstBillCUDFs.ItemData(udf));
    resolved.trigger = bill.trigger;
    resolved.udfName = bill.udfName;
    resolved.lineString = CasualLineString(bill.code, item);
    billing.BillingVATCode = item.taxCode;
  }
  if (anyFailed) {
    app.ui.MsgBox("There are Errors in Casual Billing Item(s):" + report, vbExclamation,
                  app.info.AppName + " Couldn't Resolve Item!");
    run.CasualBillingOn = false;
    return false;
  }
  billing.CasualResolvedFor = state;
  return true;
}

bool CheckCasualBilling(Tolmen& app) {
  if (app.stages.CheckCasualBilling) return app.stages.CheckCasualBilling();
  return ResolveCasualItems(app);
}

void DoBilling2(Tolmen& app) {
  RunState& run = app.run;
  app.ui.MsgBox("Sub DoBilling2 is no longer operative!", vbCritical, "Error in Sub DoBilling2");
  run.RecurringBillingOn = false;
  run.CasualBillingOn = false;
  run.ShowFinalMessage = true;
}

void cmdBillCAdd_Click(Tolmen& app) {
  const std::string rule = GetNewBillItem(app);
  if (!rule.empty()) app.screen.frmMain.lstBillCSet.AddItem(rule);
}

void cmdBillCReplace_Click(Tolmen& app) {
  ListBox& rules = app.screen.frmMain.lstBillCSet;
  const int row = rules.ListIndex();
  if (row < 0) {
    Say(app, "First Select the item you want to Replace, or Add instead!");
    return;
  }
  const std::string rule = GetNewBillItem(app);
  if (!rule.empty()) rules.SetList(row, rule);
}

void cmdBillCDelete_Click(Tolmen& app) {
  ListBox& rules = app.screen.frmMain.lstBillCSet;
  if (rules.ListIndex() < 0) {
    Say(app, "First Select the item you want to delete!");
    return;
  }
  rules.RemoveItem(rules.ListIndex());
}

void cmdBillCEdit_Click(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const ListBox& rules = form.lstBillCSet;
  if (rules.ListIndex() < 0) {
    Say(app, "First Select the item you want to Edit!");
    return;
  }
  const CasualBill bill =
      ParseCasualBill(rules.List(rules.ListIndex()), DocumentNames(form.lstBillType));
  const std::string& br = app.info.LineBreak;
  std::string report;
  bool failed = false;
  const int udf = form.lstBillCUDFs.FindItem(bill.udfName);
  if (udf >= 0)
    form.lstBillCUDFs.SetListIndex(udf);
  else
    AddItemError("<" + bill.udfName + "> was not found in the list of Maximizer UDFs.", report,
                 failed, br);
  form.txtBillCCode.SetText(bill.trigger);
  if (bill.documentIndex >= 0)
    form.lstBillType.SetListIndex(bill.documentIndex);
  else
    AddItemError("Document Type <" + bill.documentName + "> was not found in the Pastel Documents.",
                 report, failed, br);
  const int item = InventoryRow(form.lstPasInventory, bill.code);
  if (item >= 0)
    form.lstPasInventory.SetListIndex(item);
  else
    AddItemError("Code <" + bill.code + "> was not found in the Pastel Inventory.", report, failed,
                 br);
  // The report's lines each begin with a line break; the first is dropped.
  if (failed)
    app.ui.MsgBox(Mid(report, static_cast<long>(br.size()) + 1), vbExclamation,
                  app.info.AppName + " Couldn't Edit Item!");
}

void lstBillCSet_Click(Tolmen& app) {
  ListBox& rules = app.screen.frmMain.lstBillCSet;
  rules.SetToolTipText(rules.ListIndex() < 0 ? "Click item & Wait for Tooltip"
                                             : rules.List(rules.ListIndex()));
}

void lstPasInventory_Click(Tolmen& app) {
  ListBox& inventory = app.screen.frmMain.lstPasInventory;
  inventory.SetToolTipText(inventory.ListCount() == 1
                               ? inventory.List(0) + " (double-click to refresh list)"
                               : "Pastel Inventory Item to bill (Click item & Wait for Tooltip)");
}

void lstPasInventory_DblClick(Tolmen& app) {
  app.billing.InventoryLoaded = false;
  SetBusy(app);
  PassOver([&app] { ReadInventoryList(app); });
  SetBusy(app, true);
}

}  // namespace tolmen
