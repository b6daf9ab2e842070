#include "maximizer/UdfCatalogue.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "maximizer/OpenMaximizer.h"
#include "platform/automation/MaximizerAutomation.h"
#include "recordio/TextHelpers.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

struct KindWord {
  const char* word;
  const char* shown;
};
constexpr KindWord kKinds[] = {
    {"Table", " (Table)"},
    {"Date", " (Date)"},
    {"Numeric", " (Number)"},
    {"Alphanumeric", " (Alpha)"},
};

struct ChoiceList {
  ListControl* list;
  const char* filter;
  bool emptyFirstEntry;
};

// The lists the catalogue fills, in the order each UDF is offered to them.
std::vector<ChoiceList> ChoiceLists(MainForm& form) {
  return {{&form.cboCatgrUDF, "0", true},      {&form.cboUserFields, "0123", true},
          {&form.cboAcctCode, "23", true},     {&form.cboVATnumber, "23", true},
          {&form.cboDateJoined, "1", true},    {&form.cboDateBilled, "1", true},
          {&form.lstBillCUDFs, "023", false},  {&form.cboMessage(0), "0123", true},
          {&form.cboMessage(1), "0123", true}, {&form.lst2MaxUDFs, "123", false}};
}

// Writes the text to the passing file and reads it back by lines; the file is deleted after.
std::vector<std::string> LinesThroughFile(const std::string& name, const std::string& text) {
  const std::string path = SystemPath(name);
  {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw RuntimeError(75);
    out << text;
    if (!out.flush()) throw RuntimeError(57);
  }
  std::string back;
  {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw RuntimeError(53);
    back.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  // Lines end at CR LF, CR or LF; a text ending in a line break has no line behind it.
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < back.size(); ++i) {
    const char c = back[i];
    if (c != '\r' && c != '\n') {
      line += c;
      continue;
    }
    lines.push_back(line);
    line.clear();
    if (c == '\r' && i + 1 < back.size() && back[i + 1] == '\n') ++i;
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

// Selects an option's UDF again in its list after a load.
void Reselect(const UdfOption& option, ListControl& list) {
  if (!option.name.empty()) FindInList(option.name, list);
}

// The selection of a choice list as an option: its text and the item data of the selected entry.
UdfOption Chosen(const ComboBox& box) {
  const int index = box.ListIndex();
  return {box.Text(), static_cast<std::int16_t>(index >= 0 ? box.ItemData(index) : 0)};
}

}  // namespace

const std::string& UdfCatalogue::Name(int index) const {
  if (index < 0 || index > Count()) throw RuntimeError(9);
  return Names[static_cast<std::size_t>(index)];
}

std::uint8_t UdfCatalogue::Kind(int index) const {
  if (index < 0 || index > Count()) throw RuntimeError(9);
  return Kinds[static_cast<std::size_t>(index)];
}

std::string UdfKindOfWord(const std::string& typeWord) {
  for (std::size_t kind = 0; kind < std::size(kKinds); ++kind)
    if (EqualsNoCase(typeWord, kKinds[kind].word)) return std::to_string(kind);
  return "";
}

std::string UdfShownForm(std::uint8_t kind) {
  return kind < std::size(kKinds) ? kKinds[kind].shown : "";
}

void LoadUDFLists(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  const std::vector<ChoiceList> lists = ChoiceLists(form);
  for (const ChoiceList& choice : lists) {
    choice.list->Clear();
    if (choice.emptyFirstEntry) choice.list->AddItem("");
  }

  const std::string answer = app.maximizer.Application().GetListOfUdf();
  UdfCatalogue& udfs = app.udfs;
  udfs.Names.assign(1, "");
  udfs.Kinds.assign(1, 0);
  std::string kind;  // the digit of the last known type word
  for (const std::string& line : LinesThroughFile(app.info.AppFolder + kUdfPassingFile, answer)) {
    std::string rest = line;
    const std::string name = PopField(rest, ",");
    const std::string typeWord = PopField(rest, ",");
    if (name.empty()) continue;
    const std::string known = UdfKindOfWord(typeWord);
    if (!known.empty()) kind = known;
    const auto stored = static_cast<std::uint8_t>(kind.empty() ? 0 : kind[0] - '0');
    udfs.Names.push_back(name);
    udfs.Kinds.push_back(stored);
    const std::int16_t index = udfs.Count();
    for (const ChoiceList& choice : lists) {
      const bool withKind = choice.list == &form.lst2MaxUDFs;
      AddUDFToList(index, kind, withKind ? name + "\t" + UdfShownForm(stored) : name, *choice.list,
                   choice.filter);
    }
  }

  const RunOptions& options = app.options;
  Reselect(options.CategoryUdf, form.cboCatgrUDF);
  Reselect(options.ImportCriteriaUdf, form.cboUserFields);
  Reselect(options.AccountNumber, form.cboAcctCode);
  Reselect(options.DateJoined, form.cboDateJoined);
  Reselect(options.DateBilled, form.cboDateBilled);
  Reselect(options.VatNumber, form.cboVATnumber);
  form.txtUserFldVal.SetText(options.ImportCriteriaText);
  Reselect(options.CustomMessage1Udf, form.cboMessage(0));
  Reselect(options.CustomMessage2Udf, form.cboMessage(1));

  udfs.Loaded = true;
  udfs.LoadedFor = app.maximizer.DatabasePath;
}

void AddUDFToList(std::int16_t index, const std::string& kind, const std::string& text,
                  ListControl& list, const std::string& filter) {
  // An empty kind is found in any filter, as a search for an empty text always is.
  if (filter.find(kind) == std::string::npos) return;
  list.AddItem(text);
  list.SetItemData(list.NewIndex(), index);
}

std::string GetClientField(Tolmen& app, std::int16_t index, const std::string& name) {
  std::string field = name;
  if (field.empty()) {
    if (index < 1) return "";
    field = app.udfs.Name(index);
  }
  WaitForMaximizer(app);
  return Trim(app.maximizer.Record().GetFieldValue(field));
}

void SetClientField(Tolmen& app, std::int16_t index, const std::string& value) {
  const std::string& name = app.udfs.Name(index);
  if (index == 0) return;
  WaitForMaximizer(app);
  MaximizerLink& link = app.maximizer;
  if (!link.udfWritten) {
    link.Record().SetFieldValue(name, value);
    return;
  }
  UdfWrite write;
  write.record = link.Record().CurrentKey();
  write.udf = name;
  write.before = link.Record().GetFieldValue(name);
  write.written = value;
  link.Record().SetFieldValue(name, value);
  write.stored = link.Record().GetFieldValue(name);
  link.udfWritten(write);
}

int FindInList(const std::string& text, ListControl& list, bool prefix) {
  for (int index = 0; index < list.ListCount(); ++index) {
    const std::string entry = list.List(index);
    const bool match =
        prefix ? EqualsNoCase(entry.substr(0, text.size()), text) : EqualsNoCase(entry, text);
    if (match) {
      list.SetListIndex(index);
      return index;
    }
  }
  return list.ListIndex() <= 0 ? 0 : -1;
}

void cboCatgrUDF_Click(Tolmen& app) {
  app.options.CategoryUdf = Chosen(app.screen.frmMain.cboCatgrUDF);
}

void cboUserFields_Click(Tolmen& app) {
  UdfOption& option = app.options.ImportCriteriaUdf;
  option = Chosen(app.screen.frmMain.cboUserFields);
  TextBox& value = app.screen.frmMain.txtUserFldVal;
  // Without a UDF there is nothing to compare with: the box is disabled, which greys it.
  value.SetEnabled(!option.name.empty());
}

void cboAcctCode_Click(Tolmen& app) {
  UdfOption& option = app.options.AccountNumber;
  option = Chosen(app.screen.frmMain.cboAcctCode);
  const bool enabled = option.index >= 1;
  app.run.MismatchSummaryOn = enabled;
  OptionArray& choices = app.screen.frmMain.optMismatch;
  for (int index : choices.Indexes()) choices(index).SetEnabled(enabled);
}

void cboVATnumber_Click(Tolmen& app) {
  app.options.VatNumber = Chosen(app.screen.frmMain.cboVATnumber);
}

void cboDateJoined_Click(Tolmen& app) {
  app.options.DateJoined = Chosen(app.screen.frmMain.cboDateJoined);
}

void cboDateBilled_Click(Tolmen& app) {
  app.options.DateBilled = Chosen(app.screen.frmMain.cboDateBilled);
}

void cboMessage_Click(Tolmen& app, int index) {
  MainForm& form = app.screen.frmMain;
  UdfOption& option = index == 0 ? app.options.CustomMessage1Udf : app.options.CustomMessage2Udf;
  option = Chosen(form.cboMessage(index));
  form.txtMessage(index).SetEnabled(form.cboMessage(index).ListIndex() < 1);
}

}  // namespace tolmen
