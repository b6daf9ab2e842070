#include "transfer/Categories.h"

#include <algorithm>

#include "maximizer/UdfCatalogue.h"
#include "pastel/pasDcodeFile.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "transfer/DebtorRecord.h"

namespace tolmen {
namespace {

constexpr const char* kNoCategory = "<0> NONE";
constexpr std::int16_t kBlankNumber = 8224;  // two blanks read as a 16-bit number
constexpr std::int16_t kLastCategory = 99;

std::string Entry(std::int16_t number, const std::string& text) {
  return "<" + std::to_string(number) + "> " + text;
}

// The number of an entry: the value from its second character on ("<12> Export" gives 12).
std::int16_t EntryNumber(const std::string& entry) {
  return static_cast<std::int16_t>(CInt(Variant(Val(Mid(entry, 2)))));
}

std::int16_t NumberField(pasDcodeFile& categories) {
  return static_cast<std::int16_t>(CInt(categories.default_(1)));
}

}  // namespace

void LoadCategories(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  ComboBox& list = form.cboCategories;
  const std::string shown = list.ListCount() > 0 ? list.Text() : kNoCategory;
  list.Clear();
  list.AddItem(kNoCategory);

  pasDcodeFile& categories = app.pastelFiles.DcodeFile();
  categories.KeyNumber(0);
  categories.GET_LOWEST();
  categories.FROMFILE();
  while (categories.STATUS_ == kStatusOk && NumberField(categories) < kBlankNumber) {
    list.AddItem(Entry(NumberField(categories), CleanText(CStr(categories.default_(2)))));
    categories.GET_NEXT();
    categories.FROMFILE();
  }

  const std::int16_t last = NumberField(categories);
  if (last == kLastCategory) form.optCategory(1).SetEnabled(false);
  app.client.NextCategoryNumber = last == kBlankNumber ? 1 : static_cast<std::int16_t>(last + 1);

  const int index = list.FindItem(shown);
  list.SetListIndex(index >= 0 ? index : 0);
}

void FillToPastelLists(Tolmen& app) {
  if (app.stages.FillToPastelLists) return app.stages.FillToPastelLists();
  LoadCategories(app);
  app.shell.ToPastelFilled = true;
}

std::int16_t NextCategoryNumber(const Tolmen& app) {
  return app.client.NextCategoryNumber;
}

void SetRunCategory(Tolmen& app) {
  const RunOptions& options = app.options;
  if (options.CategoryOption != 0 && options.CategoryOption != 1) return;
  app.run.CurrentCategoryNumber = options.CategoryNumber;
  app.run.CurrentCategoryText = options.CategoryName;
}

std::int16_t AddCategory(Tolmen& app, std::int16_t number, const std::string& text) {
  pasDcodeFile& categories = app.pastelFiles.DcodeFile();
  categories.default_(1, Variant(number));
  categories.default_(2, Variant(text));
  categories.INSERT();
  return categories.STATUS_;
}

void GetPasCategoryCode(Tolmen& app) {
  RunState& run = app.run;
  run.CurrentSection = "GetPasCategoryCode";
  const std::string text = GetClientField(app, app.options.CategoryUdf.index);
  if (EqualsNoCase(text, run.CurrentCategoryText)) return;

  ComboBox& list = app.screen.frmMain.cboCategories;
  const std::string wanted = UCase("> " + text);
  std::int16_t highest = 0;
  for (const ListItem& item : list.Items()) {
    run.CurrentCategoryNumber = EntryNumber(item.text);
    if (UCase(item.text).find(wanted) != std::string::npos) {
      run.CurrentCategoryText = text;
      return;
    }
    highest = std::max(highest, run.CurrentCategoryNumber);
  }

  run.CurrentCategoryText = text;
  run.CurrentCategoryNumber = static_cast<std::int16_t>(highest + 1);
  if (run.CurrentCategoryNumber == kLastCategory) run.CurrentCategoryText = "TOO MANY CATEGORIES!";
  if (run.CurrentCategoryNumber > kLastCategory) {
    run.CurrentCategoryNumber = kLastCategory;
    return;
  }

  const std::int16_t status = AddCategory(app, run.CurrentCategoryNumber, run.CurrentCategoryText);
  if (status != kStatusOk) {
    ReportPastelError(app, status,
                      "in GetPasCategoryCode adding Category " +
                          Entry(run.CurrentCategoryNumber, run.CurrentCategoryText));
    return;
  }
  list.AddItem(Entry(run.CurrentCategoryNumber, run.CurrentCategoryText));
  run.CategoriesCreated.push_back(Entry(run.CurrentCategoryNumber, run.CurrentCategoryText));
  LogEntry(app, 1, "");
}

}  // namespace tolmen
