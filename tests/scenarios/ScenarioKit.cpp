// Setting up and reading back the scenario runs.
#include "ScenarioKit.h"

#include <algorithm>

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <utility>

#include "common/TestText.h"
#include "pastel/OpenPastel.h"
#include "pastel/PastelDataSet.h"
#include "pastel/PastelFiles.h"
#include "pastel/pasDcodeFile.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/DateTime.h"
#include "runtime/Strings.h"
#include "screen/ScreenActions.h"
#include "shell/AppInfo.h"
#include "shell/Application.h"
#include "shell/Tolmen.h"
#include "unattended/RunMain.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

json DemoSet() {
  std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tools/pasteldata/samples/demo.json");
  return json::parse(in);
}

const json kUdfs = json::array({
    {{"name", "Account Number"}, {"type", "Alphanumeric"}},
    {{"name", "Customer Category"},
     {"type", "Table"},
     {"items", {"Retail", "Wholesale", "Farming", "Services"}}},
    {{"name", "VAT Number"}, {"type", "Alphanumeric"}},
});

// The lines of the template; "@KEY" stands for a key the test may change.
const std::vector<std::pair<std::string, std::string>> kTemplate = {
    {"", "TOLMEN TEMPLATE FILE"},
    {"Pastel Data Folder", "*Pastel Data Folder: @PASTEL@"},
    {"Pastel Password", "Pastel Password: "},
    {"Maximizer Database Path", "*Maximizer Database Path: @MAXIMIZER@"},
    {"List Clients", "List Clients: 1"},
    {"", "*Tab: Open"},
    {"", "*Tab: To Pastel"},
    {"Category Option", "Category Option: 0"},
    {"Existing Customer Category", "Existing Customer Category: <2> Wholesale"},
    {"Import Which Data", "Import Which Data: 1 "},
    {"Individual Client Names", "Individual Client Names: 1 "},
    {"Add Client Name to Address", "Add Client Name to Address: 0 "},
    {"Add Company Name to Address", "Add Company Name to Address: 0 "},
    {"Pastel Postal Address", "Pastel Postal Address: "},
    {"Pastel Delivery Address", "Pastel Delivery Address: "},
    {"Pastel Prefix Size", "Pastel Prefix Size:4"},
    {"Pastel Suffix Size", "Pastel Suffix Size:2"},
    {"Account Number", "Account Number: Account Number"},
    {"VAT Number", "VAT Number: VAT Number"},
    {"", "*Tab: To Maximizer"},
    {"", "*Tab: Recurring Billing"},
    {"Billing Period", "Billing Period: 0"},
    {"", "*Tab: Pastel Settings"},
    {"", "Print Document:  0 "},
    {"", "Print Statement:  0 "},
    {"", "Print Message:  0 "},
};

}  // namespace

json Client(const std::string& id, int type, json fields) {
  fields["Identification"] = id;
  fields["RecType"] = type;
  return fields;
}

json Company(const std::string& id, const std::string& name, const std::string& account,
             json udfs) {
  if (!account.empty()) udfs["Account Number"] = account;
  return Client(id, 1, {{"Client_Name", name}, {"udfs", udfs}});
}

std::string Customer::Line() const {
  const auto q = [](const std::string& text) { return "\"" + text + "\""; };
  std::string line = q(code) + "," + q(name);
  line += ",\"\",\"\",\"\",\"\",\"\"";  // postal address
  line += "," + q(telephone) + ",\"\"," + q(contact);
  line += ",\"1\",\"0\",\"1\",\"\"";
  line += ",\"\",\"\",\"\",\"\",\"\"";  // delivery address
  line += ",\"N\",\"0\",\"N\",\"1\",\"\"," + q(std::to_string(category)) + ",\"00\",\"0\",\"\"";
  line += ",\"\",\"\",\"\",\"\",\"\"";  // user defined fields 1 to 5
  line += ",\"";
  line += std::string(2, '\0');  // the two bytes of field 61
  line += "\",\"\"," + q(cell) + "," + q(email);
  for (int column = 38; column <= 44; ++column) line += ",\"\"";
  return line;
}

std::vector<std::string> CrLfLines(const std::string& text) {
  std::vector<std::string> lines;
  for (size_t start = 0, end; start < text.size(); start = end + 2) {
    end = std::min(text.find("\r\n", start), text.size());
    lines.push_back(text.substr(start, end - start));
  }
  return lines;
}

ScenarioTest::ScenarioTest(std::string home, std::string pastel)
    : homeName_(std::move(home)), pastelName_(std::move(pastel)), pastel_(DemoSet()) {
  fs::create_directories(Home());
  fs::create_directories(dir_.Path() / "config");
  // The start-up entry and the settings stay inside the test's folder.
  ::setenv("XDG_CONFIG_HOME", dir_.File("config").c_str(), 1);
}

ScenarioTest::~ScenarioTest() {
  app_.reset();
  ui_.reset();
  script_.reset();
  maxsim_.reset();
  ::unsetenv("MAXIMIZER_SOCKET");
  ::unsetenv("XDG_CONFIG_HOME");
}

void ScenarioTest::AddDebtor(const std::string& code, const std::string& name) {
  pastel_["files"]["AccMasD.dat"].push_back({{"2", code}, {"3", name}});
}

void ScenarioTest::MakeWorld(const json& clients, const json& moreUdfs) {
  json udfs = kUdfs;
  for (const json& udf : moreUdfs) udfs.push_back(udf);
  {
    VirtualClock clock(DateFromParts(2026, 11, 23, 9, 0, 0));
    ScriptUi ui({}, nullptr, clock, "Tolmen");
    Tolmen maker(MakeAppInfo(Utf8ToCp1252(Home()), "1.0.0"), ui, clock, dir_.File("maker.ini"));
    CreatePastelSet(maker, Utf8ToCp1252(PastelFolder()), pastel_);
  }
  const std::string description = dir_.File("book.json");
  std::ofstream(description) << json{
      {"name", "Scenario Book"}, {"udfs", udfs}, {"clients", clients}};
  maxsim_ = std::make_unique<MaxsimProcess>(description);
  ASSERT_TRUE(maxsim_->Start());
  ::setenv("MAXIMIZER_SOCKET", maxsim_->Socket().c_str(), 1);
}

std::string ScenarioTest::WriteTemplate(const std::map<std::string, std::string>& changes,
                                        const std::vector<std::string>& toMaximizer) {
  const auto known = [](const std::string& key) {
    return std::any_of(kTemplate.begin(), kTemplate.end(),
                       [&](const auto& entry) { return entry.first == key; });
  };
  std::string text;
  for (const auto& [key, line] : kTemplate) {
    const bool toMax = line == "*Tab: To Maximizer";
    // Keys the template does not have go at the end of the "To Pastel" section.
    for (const auto& [added, value] : changes)
      if (toMax && !known(added)) text += added + ": " + value + "\r\n";
    const auto change = key.empty() ? changes.end() : changes.find(key);
    text += (change != changes.end() ? key + ": " + change->second : line) + "\r\n";
    for (const std::string& link : toMax ? toMaximizer : std::vector<std::string>{})
      text += link + "\r\n";
  }
  text = Replace(text, "@PASTEL@", Utf8ToCp1252(PastelFolder()));
  text = Replace(text, "@MAXIMIZER@", maxsim_ ? maxsim_->Database() : "");
  const std::string path = Home() + "run.KTF";
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

std::map<std::string, std::string> ScenarioTest::BillingChanges(
    const std::map<std::string, std::string>& more) {
  std::map<std::string, std::string> changes = more;
  changes.insert({{"Category Option", "2"},
                  {"Category UDF", "Customer Category"},
                  {"Billing Period", "2"},
                  {"Bill When", "0"},
                  {"Date Billed", "Date Billed"},
                  {"GL Code", "1000000"},
                  {"VAT Code", "1"},
                  {"COST Code", "CC"}});
  return changes;
}

std::vector<std::string> ScenarioTest::ImportScript(const std::vector<std::string>& answers,
                                                    const std::vector<std::string>& actions) const {
  std::vector<std::string> script = {"@click mnuFile \"&Open Template...\"",
                                     "= " + Utf8ToCp1252(Home()) + "run.KTF"};
  script.insert(script.end(), actions.begin(), actions.end());
  script.push_back("@click cmdNext");
  script.insert(script.end(), answers.begin(), answers.end());
  return script;
}

int ScenarioTest::Run(const std::vector<std::string>& script, const std::string& commandLine,
                      int debugLevel) {
  app_.reset();
  ui_.reset();
  script_.reset();
  transcript_.str("");
  clock_ = std::make_unique<VirtualClock>(DateFromParts(2026, 11, 23, 9, 0, 0));
  script_ = std::make_unique<ScriptUi>(script, &transcript_, *clock_, "Tolmen");
  ui_ = std::make_unique<HookedUi>(*script_);
  ui_->beforeYield = [this] {
    if (atYield) atYield(*app_);
  };
  app_ = std::make_unique<Tolmen>(MakeAppInfo(Utf8ToCp1252(Home()), "1.0.0"), *ui_, *clock_,
                                  dir_.File("settings.ini"));
  app_->settings.SaveSetting("Settings", "Debugging", std::to_string(debugLevel));
  app_->shell.CommandLine = commandLine;
  ScreenActions window(app_->screen);
  const int status = RunApplication(*app_, window);
  EXPECT_TRUE(script_->Finished()) << "the script was not played to its end\n" << Transcript();
  return status;
}

int ScenarioTest::RunCall(const std::vector<std::string>& templates,
                          UnattendedUi::Settings settings, bool asJson) {
  out_.str("");
  err_.str("");
  VirtualClock clock(DateFromParts(2026, 11, 23, 9, 0, 0));
  UnattendedUi ui(err_, clock, "Tolmen", settings);
  HookedUi hooked(ui);
  Tolmen app(MakeAppInfo(Utf8ToCp1252(Home()), "1.0.0"), hooked, clock, dir_.File("settings.ini"));
  hooked.beforeYield = [&] {
    if (atYield) atYield(app);
  };
  ui.Attach(&app);
  LoadForRun(app);
  RunRequest request;
  for (const std::string& path : templates) request.templates.push_back(Utf8ToCp1252(path));
  request.json = asJson;
  const int status = RunTemplates(app, ui, request, out_, err_);
  UnloadAfterRun(app);
  ui.Attach(nullptr);
  return status;
}

std::vector<std::string> ScenarioTest::PastelFileLines(const std::string& name) const {
  const std::string path = PastelFolder() + name;
  EXPECT_TRUE(fs::exists(path)) << path;
  return CrLfLines(ReadFile(path));
}

std::vector<std::string> ScenarioTest::CategoryFile() {
  VirtualClock clock(DateFromParts(2026, 11, 23, 9, 0, 0));
  ScriptUi ui({}, nullptr, clock, "Tolmen");
  Tolmen reader(MakeAppInfo(Utf8ToCp1252(Home()), "1.0.0"), ui, clock, dir_.File("reader.ini"));
  reader.screen.frmMain.Dir1.SetText(Utf8ToCp1252(PastelFolder()));
  std::vector<std::string> categories;
  EXPECT_TRUE(OpenPastel(reader));
  pasDcodeFile& file = reader.pastelFiles.DcodeFile();
  file.KeyNumber(0);
  file.GET_LOWEST();
  file.FROMFILE();
  while (file.STATUS_ == 0) {
    categories.push_back("<" + CStr(file.default_(1)) + "> " + Trim(CStr(file.default_(2))));
    file.GET_NEXT();
    file.FROMFILE();
  }
  ClosePasFiles(reader);
  return categories;
}

}  // namespace tolmen::test
