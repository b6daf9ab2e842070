#include "billing/Invoice.h"

#include <cmath>

#include "billing/BillingSetup.h"
#include "billing/ClientUdfs.h"
#include "maximizer/MaximizerLink.h"
#include "maximizer/UdfCatalogue.h"
#include "maximizer/clsClientsOLE.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "runtime/Trap.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "toolkit/DocumentStrings.h"
#include "toolkit/ToolkitStatus.h"

namespace tolmen {

namespace {

// Whether a toolkit answer ("<status>|<data>") carries the status of success.
bool StatusOk(const std::string& answer) {
  return Val(answer) == static_cast<double>(kStatusOk);
}

constexpr std::uint8_t kDateKind = 1;  // the UDF catalogue's kind of a "Date" UDF
constexpr int kTicked = 1;             // a check box's Value when ticked

// The routine's error trap: the error is counted and logged, then Abort, Retry, Ignore. Abort
// turns billing off, and every later statement is passed over.
class BillingTrap {
 public:
  explicit BillingTrap(Tolmen& app) : app_(app) {}
  bool operator()(const TrapStatement& statement) {
    if (aborted_) return false;
    aborted_ = RunTrapped(statement, [this](const RuntimeError& error) { return Ask(error); }) ==
               TrapResult::Aborted;
    return !aborted_;
  }

 private:
  int Ask(const RuntimeError& error) {
    const std::string& br = app_.info.LineBreak;
    std::string message = error.Description();
    if (EqualsNoCase(message, "Object Required"))
      message = "Pastel Toolkit has not been loaded properly.";
    if (InStr(message, "ActiveX component can't create object") > 0)
      message += br + "Pastel Toolkit 5.2 Version 1.00.0001 is required.  Check your version!";
    ++app_.run.ErrorCount;
    LogEntry(app_, 8, message);
    const int answer = app_.ui.MsgBox(message + br + "Abort Billing?", vbAbortRetryIgnore,
                                      "Error in Sub DoBilling1");
    if (answer == vbAbort) {
      app_.run.RecurringBillingOn = false;
      app_.run.CasualBillingOn = false;
      app_.run.ShowFinalMessage = true;
    }
    return answer;
  }

  Tolmen& app_;
  bool aborted_ = false;
};

std::string HeaderString(const std::string& account, const std::string& date,
                         const std::string& costCode) {
  return "||N|" + account + "|" + date + "||N|0|" + "||||||||||" + costCode + "||||" + "|||||||";
}

std::string LineString(Tolmen& app, const std::string& price) {
  const BillingState& billing = app.billing;
  return "|1|" + price + "|||" + billing.BillingVATCode + "|||" + billing.BillingGLCode + "|" +
         billing.ItemDescription + "|6" + "||" + app.screen.frmMain.txtCOSTcode.Text();
}

// The toolkit refused the document for `what`: ask for another code; false (billing turned
// off) on Cancel.
bool AskForCode(Tolmen& app, const std::string& message, const std::string& what,
                const std::string& titleEnd, std::string& code, TextBox& box) {
  const std::string& br = app.info.LineBreak;
  const std::string answer = app.ui.InputBox(
      message + br + br + "Please enter a different " + what + ", or Cancel Billing!",
      app.info.AppName + titleEnd, code);
  if (answer.empty()) {
    app.run.RecurringBillingOn = false;
    return false;
  }
  code = answer;
  box.SetText(answer);
  return true;
}

}  // namespace

void DoBilling1(Tolmen& app) {
  RunState& run = app.run;
  BillingState& billing = app.billing;
  MainForm& form = app.screen.frmMain;
  const std::string& account = app.client.AccountCode;
  BillingTrap trap(app);

  trap([&] {
    form.lblStatus.SetCaption(form.lblStatus.Caption() + " - Billing...");
    app.ui.Yield();
  });
  run.CurrentSection = "Getting Invoice Data";
  std::string name;
  if (!trap([&] { name = app.maximizer.ClientList().Name(); })) return;
  std::string s = "Creating Invoice for a/c " + account + ": " + name;
  run.CurrentSection = s;
  if (account.empty()) {
    ++run.ErrorCount;
    trap([&] {
      LogEntry(app, 8, "** ERROR: Not Invoiced: No Account Number for Client : " + name);
    });
    return;
  }
  billing.BillingGLCode = form.txtGLcode.Text();
  billing.BillingVATCode = form.txtVATcode.Text();
  std::string category;
  if (!trap([&] { category = ReadClientUdf(app, app.options.CategoryUdf.index); })) return;
  if (category.empty()) {
    ++run.ErrorCount;
    trap([&] {
      LogEntry(app, 8, s);
      LogEntry(app, 8,
               "** ERROR: Not Invoiced: No Category or Bad ID! If Category exists, copy Address "
               "Book entry (Create Duplicate) then delete old entry.");
    });
    return;
  }
  const std::string price = app.settings.GetSetting(kPriceSection, category, "");
  const std::string& udfName = app.options.CategoryUdf.name;
  billing.ItemDescription = udfName + ": " + category + billing.InvoiceNote;
  if (Val(price) == -1) {
    trap([&] { LogEntry(app, 8, "Not " + s + " (" + udfName + ": " + category + ")"); });
    return;
  }
  s += " - " + billing.BillingNote;
  trap([&] { LogEntry(app, 8, s); });
  if (!IsNumeric(Variant(price))) {
    trap([&] { LogError(app, "Not Invoiced: No Price for " + billing.ItemDescription); });
    return;
  }
  if (CDbl(Variant(price)) <= 0) {
    trap([&] {
      LogError(app, "Not Invoiced: Bad Price (" + price + ") for " + billing.ItemDescription);
    });
    return;
  }

  std::int16_t type =
      form.chkInvoice.Value() == kTicked ? kDocumentInvoice : kDocumentBatchedInvoice;
  std::string answer;
  for (;;) {
    s = "Starting Invoice";
    run.CurrentSection = s;
    // What the Define routines answer is not looked at: a refused header is still imported.
    std::string header =
        HeaderString(account, FormatDate(run.BillingDate, "dd/mm/yyyy"), billing.BillingCostCode);
    std::string line = LineString(app, price);
    if (!trap([&] {
          app.toolkit.DefineDocumentHeader(header);
          app.toolkit.DefineDocumentLine(line);
          answer = app.toolkit.ImportDocument(type, 0);
        }))
      return;
    s = ToolkitStatusText(answer,
                          type == kDocumentInvoice ? "Invoice Posted " : "Invoice Batched ") +
        " " + billing.ItemDescription;
    if (StatusOk(answer)) break;

    const std::string message = "Pastel Error - " + s;
    trap([&] { LogError(app, s); });
    if (InStr(1, s, "Invalid general ledger account", vbTextCompare) > 0) {
      if (AskForCode(app, message, "GL Code", " needs correct General Ledger Code!",
                     billing.BillingGLCode, form.txtGLcode))
        continue;
    } else if (InStr(1, s, "Invalid Tax Type", vbTextCompare) > 0) {
      if (AskForCode(app, message, "VAT Code", " needs correct Tax Code!", billing.BillingVATCode,
                     form.txtVATcode))
        continue;
    } else if (app.ui.MsgBox(message + app.info.LineBreak + "Do you want to turn off Billing?",
                             vbYesNo + vbCritical,
                             app.info.AppName + " Error Invoicing " + account + ": " + name) ==
               vbYes) {
      run.RecurringBillingOn = false;
    }
    run.CurrentSection = "Processing Complete.";
    return;
  }

  // Date Billed: under method 1 moved on so that the category's years pass before the next bill.
  double billed = run.BillingDate;
  if (app.shell.MultiYear == 1) {
    const double years = Val(app.settings.GetSetting(kPeriodSection, category, "0"));
    if (years >= 1) {
      billed = DateAdd("yyyy", years - 1, run.BillingDate);
      s = NumberText(years) + "-year " + s;
    }
  }
  if (!trap([&] { WriteClientDate(app, billing.DateBilledField, billed); })) return;
  if (!trap([&] { CheckDateBilled(app, billing.DateBilledField, billed); })) return;
  trap([&] { LogEntry(app, 8, s); });
  ++run.InvoiceCount;
  if (!trap([&] { UpdateDocumentUdfs(app, answer, run.BillingDate); })) return;
  run.CurrentSection = "Processing Complete.";
}

void CheckDateBilled(Tolmen& app, std::int16_t field, double written) {
  const std::string read = ReadClientUdf(app, field);
  const std::string wrote = FormatDate(written, "dd mmm yyyy");
  const bool same = IsDate(Variant(read)) && CDate(Variant(read)) == std::floor(written);
  if (!same)
    LogError(app, "Date Billed Error on Maximizer: Wrote " + wrote + " and got " + read);
  else if (app.shell.DebugLevel > 0)
    LogEntry(app, 8, "# Debug: Date Billed OK on Maximizer: Wrote " + wrote + " and got " + read);
}

void UpdateDocumentUdfs(Tolmen& app, const std::string& status, double billingDate) {
  const UdfOption& numbers = app.options.DocumentNumbers;
  const UdfOption& dates = app.options.DocumentDates;
  if (numbers.index != 0) {
    std::string rest = status;
    PopField(rest, "|");
    WriteClientUdf(app, numbers.index, rest + " " + ReadClientUdf(app, numbers.index));
  }
  if (dates.index != 0) {
    if (app.udfs.Kind(dates.index) != kDateKind)
      WriteClientUdf(app, dates.index,
                     FormatDate(billingDate, "yyyy/mm/dd") + " " + ReadClientUdf(app, dates.index));
    else
      WriteClientDate(app, dates.index, billingDate);
  }
}

}  // namespace tolmen
