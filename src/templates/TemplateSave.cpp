// Writing the screen as a template, and replacing the file safely.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "runtime/Conversion.h"
#include "runtime/ReplaceFile.h"
#include "runtime/SystemPath.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "templates/TemplateLine.h"

namespace tolmen {
namespace {

// The first button from `first` to `last` that is on; `last` + 1 when none is.
int FirstOptionOn(const OptionArray& buttons, int first, int last) {
  for (int index = first; index <= last; ++index)
    if (buttons.Has(index) && buttons(index).Value()) return index;
  return last + 1;
}

// A number printed behind a text: a blank (or its sign) before it and a blank behind it.
std::string PrintedNumber(long number) {
  return Str(static_cast<double>(number)) + " ";
}

class TemplateWriter {
 public:
  explicit TemplateWriter(Tolmen& app) : app_(app), form_(app.screen.frmMain) {}

  std::string Text() {
    const RunOptions& options = app_.options;
    Line(kTemplateHeader);
    std::string folder = form_.Dir1.Text();
    if (folder.empty() || folder.back() != '/') folder += '/';
    Line("*Pastel Data Folder: " + folder);
    Line("Pastel Password: " + form_.txtPassword.Text());
    Line("*Maximizer Database Path: " + form_.txtDatabasePath.Text());
    Line(form_.optListClients(0).Value() ? "List Clients: 0" : "List Clients: 1");
    Line("*Tab: Open");
    Line("*Tab: To Pastel");

    switch (FirstOptionOn(form_.optCategory, 0, 2)) {
      case 0:
        Line("Category Option: 0");
        Line("Existing Customer Category: " + form_.cboCategories.Text());
        break;
      case 1:
        // Saved as the existing category it will be once created, so that it is created once.
        Line("Category Option: 0");
        Line("Existing Customer Category: <" + form_.txtCategory(1).Text() + "> " +
             form_.txtCategory(0).Text());
        break;
      case 2:
        Line("Category Option: 2");
        Line("Category UDF: " + options.CategoryUdf.name);
        break;
    }

    Line("Import Which Data:" + PrintedNumber(FirstOptionOn(form_.optImport, 0, 3) + 1));
    Line("Import Criteria UDF: " + options.ImportCriteriaUdf.name);
    if (!form_.txtUserFldVal.Text().empty())
      Line("Import Criteria Text: " + form_.txtUserFldVal.Text());
    Line("Pattern Matching:" + PrintedNumber(form_.chkToPastel(0).Value()));
    Line("Individual Client Names:" + PrintedNumber(form_.chkToPastel(2).Value()));
    Line("Add Client Name to Address:" + PrintedNumber(form_.chkToPastel(4).Value()));
    Line("Add Company Name to Address:" + PrintedNumber(form_.chkToPastel(3).Value()));
    Line("Pastel Postal Address: " + form_.cboPostal.Text());
    Line("Pastel Delivery Address: " + form_.cboDelivery.Text());
    Line("Pastel Prefix Size:" + form_.txtPrefix.Text());
    Line("Pastel Suffix Size:" + form_.txtSuffix.Text());
    Line("Account Number: " + options.AccountNumber.name);
    Line("VAT Number: " + options.VatNumber.name);

    Line("*Tab: To Maximizer");
    for (const ListItem& link : form_.lst2MaxLinked.Items())
      Line("To Max: " + ToMaxToTemplate(link.text));

    Line("*Tab: Recurring Billing");
    const int period = FirstOptionOn(form_.optBillPeriod, 0, 2);
    if (form_.mnuViewBillR.Checked() && period > 0 && period <= 2) {
      Line("Billing Period:" + PrintedNumber(period));
      Line("Bill When:" + PrintedNumber(FirstOptionOn(form_.optBillOn, 0, 3)));
      Line("Bill on Which day: " + form_.txtBillOn.Text());
      Line("Date Joined: " + options.DateJoined.name);
      Line("Date Billed: " + options.DateBilled.name);
      Line("GL Code: " + form_.txtGLcode.Text());
      Line("VAT Code: " + form_.txtVATcode.Text());
      Line("COST Code: " + form_.txtCOSTcode.Text());
    } else {
      Line("Billing Period: 0");
    }

    Line("*Tab: Pastel Settings");
    Line("Print Document: " + PrintedNumber(options.PrintDocument));
    Line("Print Statement: " + PrintedNumber(options.PrintStatement));
    Line("Print Message: " + PrintedNumber(options.PrintMessage));
    return text_;
  }

 private:
  void Line(const std::string& line) { text_ += line + "\r\n"; }

  Tolmen& app_;
  MainForm& form_;
  std::string text_;
};

// A file being created can only be missing its folder: 76 "Path not found" rather than 53.
[[noreturn]] void ThrowFileError(int number, const std::string& path) {
  if (number == ENOENT) number = ENOTDIR;
  throw ToRuntimeError(std::system_error(number, std::generic_category(), path));
}

// Writes `bytes` to `path` with mode 0600, whole or not at all (the old file stays as it was).
void WritePrivateFile(const std::string& path, const std::string& bytes) {
  if (const int failure = ReplaceFile(SystemPath(path), bytes, S_IRUSR | S_IWUSR)) {
    ThrowFileError(failure, path);
  }
}

}  // namespace

void TemplateSave(Tolmen& app, const std::string& path) {
  if (app.stages.TemplateSave) return app.stages.TemplateSave(path);
  WritePrivateFile(path, TemplateWriter(app).Text());
}

}  // namespace tolmen
