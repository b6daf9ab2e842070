#include "billing/BillingSetup.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <vector>

#include "billing/MultiYear.h"
#include "billing/PriceEntry.h"
#include "pastel/pasTaxParameters.h"
#include "platform/automation/MaximizerAutomation.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"
#include "toolkit/ToolkitStatus.h"

namespace tolmen {

namespace {

// Whether a toolkit answer ("<status>|<data>") carries the status of success.
bool StatusOk(const std::string& answer) {
  return Val(answer) == static_cast<double>(kStatusOk);
}

constexpr const char* kCannotProceed = "Billing can not Proceed";

std::string DayText(double date) {
  return FormatDate(date, "dd mmm yyyy");
}

// The lines of a file written by the automation link (CR LF, CR or LF ends a line); the file is
// deleted after reading.
std::vector<std::string> ReadAndRemove(const std::string& name) {
  const std::string path = SystemPath(name);
  std::string text;
  {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw RuntimeError(53);
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c != '\r' && c != '\n') {
      line += c;
      continue;
    }
    if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    lines.push_back(line);
    line.clear();
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

// Step 7 of the check: the billing date in txtToday. False when the user refuses it.
bool AcceptBillingDate(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const std::string& br = app.info.LineBreak;
  const std::string text = form.txtToday.Text();
  const double today = std::floor(app.clock.Now());
  if (!IsDate(Variant(text))) {
    if (app.ui.MsgBox("Your date for 'Today' (" + text + ") is not understood." + br +
                          "OK to use " + DayText(today) + "?",
                      vbYesNo, "Bad Date!") != vbYes)
      return false;
    form.txtToday.SetText(DayText(today));
    app.run.BillingDate = today;
    return true;
  }
  const double date = std::floor(CDate(Variant(text)));
  app.run.BillingDate = date;
  if (date == today) return true;
  return app.ui.MsgBox("You are billing for: " + DayText(date) + br +
                           "instead of Today: " + DayText(today) + br + "Is this OK?",
                       vbYesNo, "Billing Date is Not Today!") == vbYes;
}

// The tax type's percentage from the tax table, kept and shown beside the code.
void ReadTaxRate(Tolmen& app) {
  const double code = Val(app.billing.BillingVATCode);
  const Variant hundredths =
      app.pastelFiles.TaxParameters().default_(static_cast<std::int32_t>(code) + 5);
  const std::string rate = FormatNumber(CDbl(hundredths) / 100, "0.00");
  app.billing.BillingVATRate = Val(rate);
  app.screen.frmMain.txtVatFrac.SetText(rate + "%");
}

std::int16_t SelectedField(const ComboBox& combo) {
  const int index = combo.ListIndex();
  return index < 0 ? 0 : static_cast<std::int16_t>(combo.ItemData(index));
}

// The row of lstPrices cut at its tabs: category, price, period.
std::vector<std::string> RowParts(const std::string& row) {
  std::vector<std::string> parts = Split(row, "\t");
  parts.resize(3);
  return parts;
}

// What an editor says when there is no row to edit, with the offer to read the list again.
void NothingToEdit(Tolmen& app, const std::string& text) {
  const std::string& br = app.info.LineBreak;
  if (app.ui.MsgBox(text + br + br + "Click OK to refresh the list for Pastel Customer Category '" +
                        app.options.CategoryUdf.name + "'.",
                    vbOKCancel + vbDefaultButton2 + vbQuestion, "Nothing to Edit") == vbOK) {
    bool force = true;
    PassOver([&] { LoadPriceList(app, force); });
  }
  app.billing.BillingChecked = false;
}

// The no-rows and no-selection cases of both editors; true when a row is selected.
bool RowToEdit(Tolmen& app, const std::string& command) {
  const ListBox& list = app.screen.frmMain.lstPrices;
  const std::string& br = app.info.LineBreak;
  if (list.ListCount() == 0) {
    NothingToEdit(app, "No Items listed." + br +
                           "Click [<< Previous] and select the correct Category in "
                           "'Use/Create Category from UDF'.");
    return false;
  }
  if (list.ListIndex() < 0) {
    NothingToEdit(app, "Click the item you want to change, then click '" + command + "' again.");
    return false;
  }
  return true;
}

// The edited row back in place, the selection on the next row, and the check to be run again.
void PutRowBack(Tolmen& app, int row, const std::string& text) {
  ListBox& list = app.screen.frmMain.lstPrices;
  list.SetList(row, text);
  if (row + 1 < list.ListCount()) list.SetListIndex(row + 1);
  app.billing.BillingChecked = false;
}

}  // namespace

bool CheckBillingSetup(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  BillingState& billing = app.billing;
  const std::string& br = app.info.LineBreak;
  bool result = true;
  if (!billing.BillingChecked && form.optBillPeriod.Value() != kNoBillingPeriod) {
    if (form.optCategory.Value() != kCategoryFromUdf) {
      if (!form.mnuViewBillR.Checked()) form.mnuViewBillR.SetChecked(true);
      app.ui.MsgBox("To use billing, you must select 'Use/Create Category from UDF'" + br +
                        "Please go back to 'To Pastel' tab and select the correct Category in "
                        "'Use/Create Category from UDF'.",
                    vbExclamation, kCannotProceed);
      form.tabDlg.SetTab(MainForm::kTabToPastel);
      billing.BillingChecked = false;
      return false;
    }
    bool force = false;
    if (form.optBillPeriod.Value() == kBillAnnually) {
      if (form.cboDateJoined.ListIndex() < 1 || form.cboDateBilled.ListIndex() < 1) {
        app.ui.MsgBox("Please Choose a Maximizer Date UDF for Date Joined AND Date Billed.",
                      vbExclamation, kCannotProceed);
        result = false;
      } else {
        result = LoadPriceList(app, force);
      }
      if (app.shell.MultiYear == 0) MultiYearChoice(app, 0);
    } else if (form.cboDateBilled.ListIndex() < 1) {
      app.ui.MsgBox("Please Choose a Maximizer Date UDF for Date Billed.", vbExclamation,
                    kCannotProceed);
      result = false;
      form.cboDateBilled.SetFocus();
    } else {
      result = LoadPriceList(app, force);
    }
    billing.BillingVATCode = Trim(form.txtVATcode.Text());
    billing.BillingCostCode = Trim(form.txtCOSTcode.Text());
    // A code the tax table has no percentage for leaves the rate as it was.
    PassOver([&] { ReadTaxRate(app); });
    billing.BillingGLCode = Trim(form.txtGLcode.Text());
    if (!IsNumeric(Variant(billing.BillingGLCode)) || billing.BillingGLCode.size() != 7) {
      app.ui.MsgBox("Please use a seven-number General Ledger Code for Billing.", vbExclamation,
                    "Billing can not Proceed!");
      result = false;
      form.txtGLcode.SetFocus();
    }
    if (!AcceptBillingDate(app)) {
      billing.BillingChecked = false;
      return false;
    }
  }
  billing.DateBilledField = SelectedField(form.cboDateBilled);
  billing.DateJoinedField = SelectedField(form.cboDateJoined);
  billing.BillingChecked = result;
  return result;
}

bool CheckRecurringBilling(Tolmen& app) {
  if (app.stages.CheckRecurringBilling) return app.stages.CheckRecurringBilling();
  return CheckBillingSetup(app);
}

bool LoadPriceList(Tolmen& app, bool& force) {
  MainForm& form = app.screen.frmMain;
  BillingState& billing = app.billing;
  const UdfOption& category = app.options.CategoryUdf;
  if (billing.PriceListField == category.index && !force) return true;
  if (form.optBillPeriod.Value() == kNoBillingPeriod) return true;
  if (category.index < 1) return true;

  const std::string file = app.info.AppFolder + kCategoryPassingFile;
  app.maximizer.Application().ListOfCategories(file, "\"" + category.name + "\"", "Items");
  form.lstPrices.Clear();
  for (const std::string& line : ReadAndRemove(file)) {
    const std::string value = Trim(line);
    form.lstPrices.AddItem(PriceRow(value, app.settings.GetSetting(kPriceSection, value, " 0"),
                                    app.settings.GetSetting(kPeriodSection, value, " 1")));
  }
  form.lblPriceList.SetCaption("Price List for '" + category.name + "':");
  if (form.lstPrices.ListCount() == 0) {
    app.ui.MsgBox("NO Price List Items for Pastel Customer Category '" + category.name + "'!",
                  vbExclamation, kCannotProceed);
    billing.PriceListField = 0;
    return false;
  }
  billing.PriceListField = category.index;
  return true;
}

void EditPrice(Tolmen& app) {
  if (!RowToEdit(app, "Edit Price")) return;
  ListBox& list = app.screen.frmMain.lstPrices;
  const std::string& br = app.info.LineBreak;
  const int row = list.ListIndex();
  const std::vector<std::string> parts = RowParts(list.List(row));
  const std::string& category = parts[0];
  const std::string answer =
      app.ui.InputBox(Join({"New Price (Excluding VAT) for ", "'" + category + "'?", "",
                            "[if Inclusive, add '/VAT%' after price, e.g. '90/14']",
                            "-1 = Do Not Bill.", "+n at end changes period (e.g. +2 = 2-yearly)."},
                           br),
                      "New Price?", PriceEntryDefault(parts[1], parts[2]));
  const PriceEdit edit = ParsePriceEntry(answer, parts[2]);
  if (edit.kind == PriceEditKind::kCancel) return;
  if (edit.kind == PriceEditKind::kNotNumber) {
    app.ui.MsgBox("Not a Number!");
    return;
  }
  Settings& settings = app.settings;
  if (edit.kind == PriceEditKind::kSave) {
    // A store that cannot be written is found out by reading the values back.
    PassOver([&] { settings.SaveSetting(kPriceSection, category, edit.price); });
    PassOver([&] { settings.SaveSetting(kPeriodSection, category, edit.years); });
    std::string failed;
    if (settings.GetSetting(kPriceSection, category) != edit.price) failed += " and Price";
    if (settings.GetSetting(kPeriodSection, category) != edit.years) failed += " and Period";
    if (!failed.empty())
      app.ui.MsgBox("Unable to save" + Mid(failed, 5) + br +
                        "You may not have Administrator rights to this PC.",
                    vbExclamation, "Warning - Unable to Save to Registry!");
  } else {
    PassOver([&] { settings.DeleteSetting(kPriceSection, category); });
    PassOver([&] { settings.DeleteSetting(kPeriodSection, category); });
  }
  PutRowBack(app, row, category + "\t" + edit.shownPrice + "\t" + edit.shownPeriod);
}

void EditPeriod(Tolmen& app) {
  if (!RowToEdit(app, "Edit Period")) return;
  ListBox& list = app.screen.frmMain.lstPrices;
  const std::string& br = app.info.LineBreak;
  const int row = list.ListIndex();
  const std::vector<std::string> parts = RowParts(list.List(row));
  const std::string& category = parts[0];
  if (parts[1] == kNoBilling) return;
  const double years = EqualsNoCase(parts[2], "(1 year)") ? 1 : Val(parts[2]);
  std::string answer = app.ui.InputBox(Join({"New Period for ", "'" + category + "'?", "",
                                             "[Please enter only digits!]", "1 = 1 year."},
                                            br),
                                       "New Period?", NumberText(years));
  if (Trim(answer).empty()) return;
  if (EqualsNoCase(answer, "(1 year)")) answer = "-1";
  if (!IsNumeric(Variant(answer))) {
    app.ui.MsgBox("Not a Number!");
    return;
  }
  const double value = CDbl(Variant(answer));
  std::string shown = kOneYear;
  if (value < 1) {
    PassOver([&] { app.settings.DeleteSetting(kPeriodSection, category); });
  } else {
    PassOver([&] { app.settings.SaveSetting(kPeriodSection, category, NumberText(value)); });
    shown = NumberText(value) + " Year";
  }
  PutRowBack(app, row, category + "\t" + parts[1] + "\t" + shown);
}

void MoveBillingDate(Tolmen& app, const std::string& interval, int step) {
  TextBox& today = app.screen.frmMain.txtToday;
  PassOver([&] {
    const double date = CDate(Variant(today.Text()));
    today.SetText(DayText(DateAdd(interval, step, date)));
  });
}

void optBillOn_Click(Tolmen& app, int index) {
  MainForm& form = app.screen.frmMain;
  form.txtBillOn.SetEnabled(index == 3);
  for (int button : form.updBillOn.Indexes()) form.updBillOn(button).SetEnabled(index == 3);
  app.billing.BillingChecked = false;
}

void updToday_Click(Tolmen& app, int index) {
  MoveBillingDate(app, index < 2 ? "d" : "m", index % 2 == 0 ? 1 : -1);
}

void updBillOn_Click(Tolmen& app, int index) {
  TextBox& day = app.screen.frmMain.txtBillOn;
  const long moved = CLng(Val(day.Text())) + (index == 0 ? 1 : -1);
  day.SetText(std::to_string(std::clamp(moved, 1L, 31L)));
  app.billing.BillingChecked = false;
}

void txtVATcode_Change(Tolmen& app) {
  app.billing.BillingChecked = false;
  app.screen.frmMain.txtVatFrac.SetText("");
}

void ReadInventoryList(Tolmen& app) {
  if (app.billing.InventoryLoaded) return;
  ListBox& list = app.screen.frmMain.lstPasInventory;
  quilletToolkit& toolkit = app.toolkit;
  list.Clear();
  toolkit.SetDataPath(app.pastel.PastelDataPath);
  std::string table = "ACCPRD";
  if (toolkit.NumberOfRecords(table) == 0) {
    list.AddItem("No Inventory Items Set Up.");
  } else {
    std::string key;
    std::string answer = toolkit.GetNearest(table, 0, key);
    if (!StatusOk(answer)) {
      const std::string& br = app.info.LineBreak;
      app.ui.MsgBox("Error reading the first Inventory Item" + br + ToolkitStatusText(answer) + br +
                        br + "Pastel Inventory has been aborted!",
                    vbExclamation, "Pastel Error in Function ReadPasInventory");
      return;
    }
    while (StatusOk(answer)) {
      // The item's code and description are the record's first and third fields.
      std::string record = answer;
      PopField(record, "|");
      const std::string code = PopField(record, "|");
      PopField(record, "|");
      list.AddItem("<" + code + "> " + PopField(record, "|"));
      answer = toolkit.GetNext(table, 0);
    }
  }
  app.billing.InventoryLoaded = true;
}

std::string GetMultiPrice(Tolmen& app, std::string& code, std::string& stage) {
  std::string table = "ACCSTKST";
  std::string key = code;
  const std::string answer = app.toolkit.GetNearest(table, 1, key);
  if (StatusOk(answer)) {
    std::vector<std::string> fields = Split(answer, "|");  // the status, then the fields
    fields.resize(14);
    if (fields[3] == code) return FormatNumber(Val(fields[13]), "0.00");
    stage = fields[3] + " not found, got " + code;
    return "";
  }
  const std::string& br = app.info.LineBreak;
  app.ui.MsgBox("Error " + stage + br + ToolkitStatusText(answer) + br + br +
                    "Pastel Price has been aborted!",
                vbExclamation, "Pastel Error in Function GetMultiPrice$");
  return "";
}

namespace {

// One field of stock item `code`, or why there is none.
std::string ItemField(Tolmen& app, const std::string& code, std::int32_t field,
                      const std::string& missing) {
  std::string table = "ACCPRD";
  std::string key = code;
  const std::string answer = app.toolkit.GetField(table, 0, key, field);
  if (!StatusOk(answer)) return "** " + ToolkitStatusText(answer, "Inventory ");
  const std::string value = Mid(answer, InStr(answer, "|") + 1);
  return value.empty() ? missing + code : value;
}

}  // namespace

std::string GetItemDescription(Tolmen& app, const std::string& code) {
  return ItemField(app, code, 3, "** Missing Description for ");
}

std::string GetItemTaxCode(Tolmen& app, const std::string& code) {
  return ItemField(app, code, 11, "** Missing VAT Code for ");
}

}  // namespace tolmen
