// Reading a template into the screen.
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "pastel/OpenPastel.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "runtime/Trap.h"
#include "shell/Busy.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "templates/TemplateKeys.h"
#include "templates/TemplateLine.h"

namespace tolmen {
namespace {

// Selects the entry of `box` with this text, adding it first when the box has none. A drop-down
// combo also shows the entry's text.
void SelectOrAdd(ComboBox& box, const std::string& text) {
  int index = box.FindItem(text);
  if (index < 0) index = box.AddItem(text);
  box.SetListIndex(index);
  if (box.Editable()) box.SetText(box.List(index));
}

// The text of a combo box. A drop-down list cannot show a text outside its entries, so there the
// text is added as an entry and selected.
void SetComboText(ComboBox& box, const std::string& text) {
  if (box.Editable())
    box.SetText(text);
  else
    SelectOrAdd(box, text);
}

// Holds the UDF's name in its option and selects it in its box, by its text without regard to
// case. The box's click handler takes the entry's name and catalogue index into the option; a
// name the box does not hold leaves the selection as it was.
void SelectUdf(UdfOption& option, ComboBox& box, const std::string& name) {
  option.name = name;
  const int index = box.FindItem(name);
  if (index >= 0) box.SetListIndex(index);
}

// The number of a Pastel setting; in a value that holds a further ": " the number behind it.
int16_t PrintSetting(const std::string& value) {
  const size_t separator = value.find(": ");
  return static_cast<int16_t>(
      CInt(Variant(separator == std::string::npos ? value : value.substr(separator + 2))));
}

class TemplateReader {
 public:
  TemplateReader(Tolmen& app, bool parts)
      : app_(app), form_(app.screen.frmMain), options_(app.options), parts_(parts) {}

  // Reads the lines behind the header. False when the reading ended early.
  bool ReadLines(const std::vector<std::string>& lines, size_t first) {
    bool taking = true;
    for (size_t at = first; at < lines.size(); ++at) {
      std::string line = lines[at];
      if (!line.empty() && line[0] == '*') {
        line.erase(0, 1);
        if (parts_) {
          const int answer =
              app_.ui.MsgBox("Do you want to Import this Part:" + app_.info.LineBreak + line,
                             vbYesNoCancel + vbQuestion, "Importing Template in Parts");
          if (answer == vbCancel) return false;
          taking = answer == vbYes;
        }
      }
      if (!taking) continue;
      const TemplateLine split = SplitTemplateLine(line);
      if (split.key.empty()) continue;
      try {
        if (!Apply(split.key, split.value)) return false;
      } catch (const std::exception& error) {
        ReportError(ToRuntimeError(error), lines[at]);
        return false;
      }
    }
    return true;
  }

 private:
  // Acts on one key. False when the user ends the reading.
  bool Apply(const std::string& name, const std::string& value) {
    const char* oldRow = nullptr;
    switch (TemplateKeyOf(name, oldRow)) {
      case TemplateKey::Tab:
        Section(value);
        break;
      case TemplateKey::PastelDataFolder:
        form_.tabDlg.SetTab(MainForm::kTabOpen);
        // Drive first: a change of drive moves the folder box to the drive's root.
        form_.Drive1.SetText(!value.empty() && value[0] == '/' ? "/" : "");
        form_.Dir1.SetText(value);
        options_.TemplatePastelFolder = value;
        break;
      case TemplateKey::PastelPassword:
        form_.txtPassword.SetText(value);
        OpenPastel(app_);
        break;
      case TemplateKey::DatabasePath:
        options_.TemplateDatabasePath = value;
        break;
      case TemplateKey::ListClients: {
        const int which = CInt(Variant(value));
        form_.optListClients.Set(which);
        options_.ListAll = which == 1;
        if (app_.run.CurrentClientOnly) form_.optListClients.Set(2);
        break;
      }
      case TemplateKey::CategoryOption: {
        const int which = CInt(Variant(value));
        // All off first, so that the one given raises its click even when it was on.
        for (int index : form_.optCategory.Indexes()) form_.optCategory(index).SetValue(false);
        form_.optCategory.Set(which);
        break;
      }
      case TemplateKey::ExistingCategory:
        SetComboText(form_.cboCategories, value);
        break;
      case TemplateKey::CategoryUdf:
        SelectUdf(options_.CategoryUdf, form_.cboCatgrUDF, value);
        break;
      case TemplateKey::ImportWhichData: {
        OptionButton& button = form_.optImport(CInt(Variant(value)) - 1);
        // The button's handler runs once, whether or not the button was on already.
        if (button.Value())
          button.Click();
        else
          button.SetValue(true);
        break;
      }
      case TemplateKey::CriteriaUdf:
        SelectUdf(options_.ImportCriteriaUdf, form_.cboUserFields, value);
        break;
      case TemplateKey::CriteriaText:
        options_.ImportCriteriaText = UCase(value);
        form_.txtUserFldVal.SetText(options_.ImportCriteriaText);
        break;
      case TemplateKey::PatternMatching:
        form_.chkToPastel(0).SetValue(CInt(Variant(value)));
        break;
      case TemplateKey::IndividualNames:
        form_.chkToPastel(2).SetValue(CInt(Variant(value)));
        break;
      case TemplateKey::AddCompanyName:
        form_.chkToPastel(3).SetValue(CInt(Variant(value)));
        break;
      case TemplateKey::AddClientName:
        form_.chkToPastel(4).SetValue(CInt(Variant(value)));
        break;
      case TemplateKey::PostalAddress:
        SelectOrAdd(form_.cboPostal, value);
        break;
      case TemplateKey::DeliveryAddress:
        SelectOrAdd(form_.cboDelivery, value);
        break;
      case TemplateKey::PrefixSize:
        form_.txtPrefix.SetText(value);
        break;
      case TemplateKey::SuffixSize:
        form_.txtSuffix.SetText(value);
        break;
      case TemplateKey::AccountNumber:
        SelectUdf(options_.AccountNumber, form_.cboAcctCode, value);
        break;
      case TemplateKey::Mismatch: {
        const int which = CInt(Variant(value));
        if (which >= 0 && which <= 3) form_.optMismatch.Set(which);
        if (app_.run.Unattended) form_.optMismatch.Set(0);
        break;
      }
      case TemplateKey::VatNumber:
        SelectUdf(options_.VatNumber, form_.cboVATnumber, value);
        break;
      case TemplateKey::ToMax:
        form_.lst2MaxLinked.AddItem(ToMaxFromTemplate(value));
        break;
      case TemplateKey::BillingPeriod: {
        const int which = CInt(Variant(value));
        form_.optBillPeriod.Set(which);
        if (which != 0) form_.mnuViewBillR.SetChecked(true);
        break;
      }
      case TemplateKey::BillWhen:
        form_.optBillOn.Set(CInt(Variant(value)));
        break;
      case TemplateKey::BillOnWhichDay:
        form_.txtBillOn.SetText(value);
        break;
      case TemplateKey::DateJoined:
        SelectUdf(options_.DateJoined, form_.cboDateJoined, value);
        break;
      case TemplateKey::DateBilled:
        SelectUdf(options_.DateBilled, form_.cboDateBilled, value);
        break;
      case TemplateKey::GLCode:
        form_.txtGLcode.SetText(value);
        break;
      case TemplateKey::VATCode:
        form_.txtVATcode.SetText(value);
        break;
      case TemplateKey::COSTCode:
        form_.txtCOSTcode.SetText(value);
        break;
      case TemplateKey::Bill:
        form_.lstBillCSet.AddItem(BillFromTemplate(value));
        form_.mnuViewBillC.SetChecked(true);
        break;
      case TemplateKey::Message1Udf:
        SelectUdf(options_.CustomMessage1Udf, form_.cboMessage(0), value);
        break;
      case TemplateKey::Message2Udf:
        SelectUdf(options_.CustomMessage2Udf, form_.cboMessage(1), value);
        break;
      case TemplateKey::Message1Text:
        options_.CustomMessage1Text = value;
        form_.txtMessage(0).SetText(value);
        break;
      case TemplateKey::Message2Text:
        options_.CustomMessage2Text = value;
        form_.txtMessage(1).SetText(value);
        break;
      case TemplateKey::PrintDocument:
        options_.PrintDocument = PrintSetting(value);
        break;
      case TemplateKey::PrintStatement:
        options_.PrintStatement = PrintSetting(value);
        break;
      case TemplateKey::PrintMessage:
        options_.PrintMessage = PrintSetting(value);
        break;
      case TemplateKey::OldKey:
        break;
      case TemplateKey::OldToMax:
        if (!EqualsNoCase(value, "<NONE>"))
          form_.lst2MaxLinked.AddItem(std::string(oldRow) + "\t => " + value);
        break;
      case TemplateKey::Unknown:
        return app_.ui.MsgBox("Unrecognised key: value = " + name + ": " + value +
                                  app_.info.LineBreak + "Ignore and carry on?",
                              vbOKCancel + vbInformation, "Error in Template File!") != vbCancel;
    }
    return true;
  }

  // "*Tab: <name>": in parts the section's page is shown; each section starts from its empty
  // state where the template lists things.
  void Section(const std::string& name) {
    static constexpr std::array<const char*, 5> kPages = {"", "To Pastel", "To Maximizer",
                                                          "Recurring Billing", "Casual Billing"};
    if (parts_) {
      for (int tab = 1; tab < static_cast<int>(kPages.size()); ++tab)
        if (EqualsNoCase(name, kPages[static_cast<size_t>(tab)]))
          PassOver([&] { form_.tabDlg.SetTab(tab); });
    }
    if (EqualsNoCase(name, "To Pastel")) {
      PassOver([&] { form_.optMismatch.Set(0); });
      for (ComboBox* box : {&form_.cboPostal, &form_.cboDelivery}) {
        PassOver([&] {
          box->Clear();
          for (const char* entry : {"", "<Selected>", "<First Alternate>", "*Main Address"})
            box->AddItem(entry);
        });
      }
    } else if (EqualsNoCase(name, "To Maximizer")) {
      PassOver([&] { form_.lst2MaxLinked.Clear(); });
    } else if (EqualsNoCase(name, "Casual Billing")) {
      PassOver([&] { form_.lstBillCSet.Clear(); });
    } else if (EqualsNoCase(name, "Pastel Settings")) {
      options_.PrintDocument = 0;
      options_.PrintStatement = 0;
      options_.PrintMessage = 0;
    }
  }

  void ReportError(const RuntimeError& error, const std::string& line) {
    const std::string& lineBreak = app_.info.LineBreak;
    app_.ui.MsgBox("Error " + std::to_string(error.Number()) + ": " + error.Description() +
                       lineBreak + "in the line: " + line + lineBreak +
                       "The rest of the Template file has not been read.",
                   vbCritical, "Error in Template File!");
  }

  Tolmen& app_;
  MainForm& form_;
  RunOptions& options_;
  bool parts_;
};

bool ReadFile(const std::string& path, std::string& bytes) {
  std::ifstream in(SystemPath(path), std::ios::binary);
  if (!in) return false;
  bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return !in.bad();
}

}  // namespace

void TemplateOpen(Tolmen& app, const std::string& path, bool parts, bool& ok) {
  ok = false;
  RunOptions& options = app.options;
  // The click handlers the reading raises can tell a template's setting from a user's click.
  options.TemplateBeingRead = true;
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(SystemPath(path), ignored)) {
    options.TemplateBeingRead = false;
    return;
  }

  SetBusy(app);
  MainForm& form = app.screen.frmMain;
  std::string bytes;
  std::vector<std::string> lines;
  if (!ReadFile(path, bytes)) {
    app.ui.MsgBox("Error 75: " + ErrorText(75) + app.info.LineBreak + path, vbCritical,
                  "Error in Template File!");
  } else {
    lines = TemplateLines(bytes);
    std::string rest;
    const std::string header = lines.empty() ? "" : InputField(lines[0], rest);
    if (!IsTemplateHeader(header)) {
      const std::string& name = app.info.AppName;
      app.ui.MsgBox(name + " is not a valid " + name + " Template file.", vbCritical,
                    "Invalid File in " + name);
    } else {
      // What stands behind a comma on the header line is read as a line of its own.
      lines[0] = rest;
      TemplateReader reader(app, parts);
      if (reader.ReadLines(lines, rest.empty() ? 1 : 0)) {
        app.shell.TemplateLoaded = true;
        app.shell.TemplatePath = path;
        ok = true;
      }
    }
  }

  options.TemplateBeingRead = false;
  // The pages that can be hidden follow the View menu's ticks, which the template may have set.
  form.tabDlg.SetTabVisible(MainForm::kTabRecurringBilling, form.mnuViewBillR.Checked());
  form.tabDlg.SetTabVisible(MainForm::kTabCasualBilling, form.mnuViewBillC.Checked());
  form.tabDlg.SetTabVisible(MainForm::kTabToMaximizer, form.mnuViewMaximizer.Checked());
  SetBusy(app, true);
}

bool TemplateOpen(Tolmen& app, const std::string& path, bool parts) {
  if (app.stages.TemplateOpen) return app.stages.TemplateOpen(path, parts);
  bool ok = false;
  TemplateOpen(app, path, parts, ok);
  return ok;
}

}  // namespace tolmen
