// Copying the screen into the run's options.
#include "templates/SetOptions.h"
#include "runtime/Conversion.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

// The index of the button that is on, `last` + 1 when none is.
int16_t OptionIndex(const OptionArray& buttons, int last) {
  for (int index = 0; index <= last; ++index)
    if (buttons.Has(index) && buttons(index).Value()) return static_cast<int16_t>(index);
  return static_cast<int16_t>(last + 1);
}

// The item data of the selected entry, 0 when none is selected.
int16_t SelectedItemData(const ComboBox& box) {
  return box.ListIndex() < 0 ? 0 : static_cast<int16_t>(box.ItemData(box.ListIndex()));
}

// A number typed in a box, read as far as it goes ("12abc" is 12, "abc" is 0).
int32_t BoxNumber(const TextBox& box) {
  return CLng(Variant(Val(box.Text())));
}

std::vector<std::string> ListTexts(const ListControl& list) {
  std::vector<std::string> texts;
  for (const ListItem& item : list.Items()) texts.push_back(item.text);
  return texts;
}

}  // namespace

void SetOptions(Tolmen& app) {
  if (app.stages.SetOptions) return app.stages.SetOptions();
  MainForm& form = app.screen.frmMain;
  RunOptions& options = app.options;

  options.PastelDataFolder = form.Dir1.Text();
  if (options.PastelDataFolder.empty() || options.PastelDataFolder.back() != '/')
    options.PastelDataFolder += '/';
  options.PastelPassword = form.txtPassword.Text();
  options.MaximizerDatabasePath = form.txtDatabasePath.Text();
  // The "Current Client" button leaves the list-all flag as the template set it.
  if (form.optListClients(0).Value()) options.ListAll = false;
  if (form.optListClients(1).Value()) options.ListAll = true;

  options.CategoryOption = OptionIndex(form.optCategory, 2);
  options.ExistingCustomerCategory = form.cboCategories.Text();
  options.CreateCategory = false;
  options.CategoryFromUdf = false;
  switch (options.CategoryOption) {
    case 0: {
      // "<3> Retail Sales": the number behind the first character, the name behind the blank.
      const std::string& text = options.ExistingCustomerCategory;
      const size_t blank = text.find(' ');
      const std::string number = text.substr(0, blank);  // "<3>"
      options.CategoryNumber =
          static_cast<int16_t>(CInt(Variant(Val(number.empty() ? "" : number.substr(1)))));
      options.CategoryName = blank == std::string::npos ? "" : text.substr(blank + 1);
      break;
    }
    case 1:
      options.CategoryName = form.txtCategory(0).Text();
      options.CategoryNumber = static_cast<int16_t>(CInt(Variant(Val(form.txtCategory(1).Text()))));
      options.CreateCategory = true;
      break;
    case 2:
      options.CategoryFromUdf = true;
      options.CategoryUdf.index = SelectedItemData(form.cboCatgrUDF);
      break;
  }

  options.ImportWhichData = static_cast<int16_t>(OptionIndex(form.optImport, 3) + 1);
  options.ImportCriteriaText = form.txtUserFldVal.Text();
  options.PatternMatching = form.chkToPastel(0).Value() != 0;
  options.IndividualClientNames = form.chkToPastel(2).Value() != 0;
  options.NameInAddress =
      static_cast<int16_t>(form.chkToPastel(3).Value() * 2 + form.chkToPastel(4).Value());
  options.PostalAddress = form.cboPostal.Text();
  options.DeliveryAddress = form.cboDelivery.Text();
  options.PrefixSize = BoxNumber(form.txtPrefix);
  options.SuffixSize = BoxNumber(form.txtSuffix);

  if (options.AccountNumber.index > 0) {
    app.run.MismatchSummaryOn = true;
    options.MismatchMode = OptionIndex(form.optMismatch, 2);
  } else {
    app.run.MismatchSummaryOn = false;
    options.MismatchMode = 0;
  }

  options.ToMax = ListTexts(form.lst2MaxLinked);
  options.BillingPeriod = OptionIndex(form.optBillPeriod, 2);
  options.BillWhen = OptionIndex(form.optBillOn, 3);
  options.BillOnWhichDay = form.txtBillOn.Text();
  options.GLCode = form.txtGLcode.Text();
  options.VATCode = form.txtVATcode.Text();
  options.COSTCode = form.txtCOSTcode.Text();
  options.Bill = ListTexts(form.lstBillCSet);
  options.CustomMessage1Text = form.txtMessage(0).Text();
  options.CustomMessage2Text = form.txtMessage(1).Text();
}

}  // namespace tolmen
