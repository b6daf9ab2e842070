#include "transfer/Pas2MaxLinks.h"

#include <optional>
#include <vector>

#include "maximizer/UdfCatalogue.h"
#include "pastel/pasDebtor.h"
#include "platform/recordmanager/BtrCodes.h"
#include "runtime/Conversion.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"
#include "transfer/AccountCodes.h"
#include "transfer/DebtorRecord.h"
#include "transfer/Pas2MaxCatalogue.h"
#include "transfer/Pas2MaxValue.h"

namespace tolmen {
namespace {

constexpr int kCodeWidth = 6;

// Everything a resolution depends on: the tick, the links, and the UDF list they name.
std::string LinksState(Tolmen& app) {
  const MainForm& form = app.screen.frmMain;
  std::string state = form.mnuOptnPas2Max.Checked() ? "1" : "0";
  for (const ListItem& link : form.lst2MaxLinked.Items()) state += '\n' + link.text;
  state += "\n\n" + app.udfs.LoadedFor;
  for (const ListItem& udf : form.lst2MaxUDFs.Items())
    state += '\n' + udf.text + '\t' + std::to_string(udf.itemData);
  return state;
}

// FindInList by the beginning of the entries; the position it gives when it is one of the list's
// entries.
std::optional<int> FindLinkPart(const std::string& name, ListBox& list) {
  const int position = FindInList(name, list, true);
  if (position < 0 || position >= list.ListCount()) return std::nullopt;
  return position;
}

}  // namespace

std::string LinkText(const std::string& pastelField, const std::string& udfEntry) {
  return pastelField + "\t => " + udfEntry;
}

LinkNames SplitLinkText(const std::string& text) {
  const std::vector<std::string> parts = Split(text, "\t", 3);
  LinkNames names;
  names.row = parts.empty() ? "" : parts[0];
  if (parts.size() > 1) names.udf = Trim(Replace(parts[1], "=> ", "", 1, -1, vbTextCompare));
  return names;
}

std::string GetPas2MaxItem(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const auto refuse = [&](const std::string& message, ListBox& list) {
    app.ui.MsgBox(message, vbOKOnly, app.info.AppTitle);
    list.SetFocus();
    return std::string();
  };
  if (form.lst2MaxPastel.ListIndex() < 0)
    return refuse("Please select a Pastel Field to Get!", form.lst2MaxPastel);
  if (form.lst2MaxUDFs.ListIndex() < 0)
    return refuse("Please select a Maximizer Table, Numeric, or Alphanumeric User-Defined Field!",
                  form.lst2MaxUDFs);
  return LinkText(form.lst2MaxPastel.List(form.lst2MaxPastel.ListIndex()),
                  form.lst2MaxUDFs.List(form.lst2MaxUDFs.ListIndex()));
}

bool Parse2MaxOK(Tolmen& app, const std::string& text, Pas2MaxLink& link,
                 const std::string& titleEnd) {
  MainForm& form = app.screen.frmMain;
  const LinkNames names = SplitLinkText(text);
  std::vector<std::string> errors;
  if (const auto row = FindLinkPart(names.row, form.lst2MaxPastel)) {
    link.row = static_cast<int>(form.lst2MaxPastel.ItemData(*row));
  } else {
    errors.insert(errors.end(),
                  {"", "<" + names.row + "> was not found in the Pastel Fields.",
                   "This error should not occur unless you are using a template from a",
                   "later version that can handle more Pastel Fields than this version can.",
                   "Try upgrading to the latest " + app.info.AppName + ", or delete this Link."});
  }
  if (const auto udf = FindLinkPart(names.udf, form.lst2MaxUDFs)) {
    link.udf = static_cast<std::int16_t>(form.lst2MaxUDFs.ItemData(*udf));
  } else {
    errors.insert(errors.end(),
                  {"", "<" + names.udf + "> was not found in the list of Maximizer UDFs.",
                   "You may be using a template intended for another",
                   "Maximizer database that has different User-Defined Fields.",
                   "Make sure that you are using the correct Maximizer, or delete this Link."});
  }
  if (errors.empty()) return true;
  form.tabDlg.SetTab(MainForm::kTabToMaximizer);
  app.ui.MsgBox("There are Errors in 'To Maximizer' Item(s):" + app.info.LineBreak +
                    Join(errors, app.info.LineBreak),
                vbOKOnly, app.info.AppTitle + titleEnd);
  return false;
}

bool IsPas2MaxOK(Tolmen& app) {
  RunState& run = app.run;
  RunOptions& options = app.options;
  const std::string state = LinksState(app);
  if (run.Pas2MaxResolvedFor == state) return true;
  run.Pas2MaxResolvedFor.clear();
  run.Pas2MaxLinks.clear();
  options.DocumentNumbers = {};
  options.DocumentDates = {};
  const MainForm& form = app.screen.frmMain;
  if (form.mnuOptnPas2Max.Checked()) {
    for (const ListItem& item : form.lst2MaxLinked.Items()) {
      Pas2MaxLink link;
      if (!Parse2MaxOK(app, item.text, link)) {
        run.Pas2MaxLinks.clear();
        return false;
      }
      run.Pas2MaxLinks.push_back(link);
      const UdfOption udf{app.udfs.Name(link.udf), link.udf};
      const int field = Pas2MaxAt(link.row).field;
      if (field == kPas2MaxDocNumbersField) options.DocumentNumbers = udf;
      if (field == kPas2MaxDocDatesField) options.DocumentDates = udf;
    }
  }
  run.Pas2MaxResolvedFor = state;
  return true;
}

void Pastel2Max(Tolmen& app) {
  RunState& run = app.run;
  const std::string& code = app.client.AccountCode;
  pasDebtor& debtor = app.pastelFiles.Debtor();
  Label& line = app.screen.frmMain.lblProgress(3);
  if (!EqualsNoCase(CStr(debtor.default_(2)), code)) {
    debtor.KeyNumber(0);
    debtor.GET_EQUAL(FixLength(code, kCodeWidth));
    debtor.FROMFILE();
    const std::int16_t status = debtor.STATUS_;
    if (status == kStatusKeyNotFound) {
      ++run.BalancesMissed;
      line.SetCaption("New Pas a/c " + code + ": " + RTrim(CStr(debtor.default_(3))));
      return;
    }
    if (status > kStatusOk) {
      line.SetCaption("a/c " + code + ": ERROR " + std::to_string(status));
      ReportPastelError(app, status, "Pastel a/c " + code + " to get data for Maximizer.");
      return;
    }
  }
  line.SetCaption("Pas->Max a/c " + code + ": " + RTrim(CStr(debtor.default_(3))));
  const DebtorFigures figures = ReadDebtorFigures(debtor);
  for (const Pas2MaxLink& link : run.Pas2MaxLinks) {
    const std::optional<std::string> value = Pas2MaxValue(
        figures, Pas2MaxAt(link.row), app.pastel.CurrentPeriod, app.pastel.PeriodsInYear);
    if (value) SetClientField(app, link.udf, *value);
  }
  ++run.BalancesSent;
}

}  // namespace tolmen
