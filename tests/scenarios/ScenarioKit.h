// Whole runs as a user makes them: a Pastel set of accounts and a Maximizer address book in a
// temporary folder, a real maxsim serving the book, a template in the program's folder, and Tolmen
// started the way the executable starts it (RunApplication) on the script front-end and a virtual
// clock. What the run produced is read back from the real files: the import files, the run log,
// the templates, the category file, and maxsim's own dump and journal.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "common/MaximizerTestKit.h"
#include "common/MaxsimProcess.h"
#include "common/TempDir.h"
#include "common/TestText.h"
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"
#include "unattended/UnattendedUi.h"

namespace tolmen {
class Tolmen;
}

namespace tolmen::test {

using json = nlohmann::json;

// A client of the address book: the automation fields, "udfs" and "addresses" as maxsim's
// description has them.
json Client(const std::string& id, int type, json fields);
// A company (record type 1) with its account number in the UDF "Account Number" (none if empty).
json Company(const std::string& id, const std::string& name, const std::string& account = "",
             json udfs = json::object());

// One customer line as Pastel's import reads it, without its CR LF: the columns that come from
// the client, and those every new debtor carries. Customer{code, name, telephone, contact, cell,
// email, category}.Line()
struct Customer {
  std::string code;  // column 1, always six characters inside its quotes
  std::string name;
  std::string telephone{}, contact{}, cell{}, email{};
  int category = 2;
  std::string Line() const;
};

// The lines of a text file ended by CR LF; a line ended otherwise is kept with what it has, so
// that a comparison with expected lines shows it.
std::vector<std::string> CrLfLines(const std::string& text);
inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}
// The lines from the `first`th on, and the last `count` lines (all when there are fewer).
inline std::vector<std::string> LinesFrom(const std::vector<std::string>& lines, size_t first) {
  return {lines.begin() + static_cast<long>(std::min(first, lines.size())), lines.end()};
}
inline std::vector<std::string> LastLines(const std::vector<std::string>& lines, size_t count) {
  return LinesFrom(lines, lines.size() - std::min(count, lines.size()));
}
inline bool HasLine(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}
inline bool HasPart(const std::vector<std::string>& lines, const std::string& part) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const std::string& line) { return Contains(line, part); });
}

class ScenarioTest : public ::testing::Test {
 protected:
  // The program's folder and the Pastel folder in the test's folder (UTF-8, as on disk).
  explicit ScenarioTest(std::string home = "home", std::string pastel = "pastel");
  ~ScenarioTest() override;

  // Debtors added to the demo set before it is made.
  void AddDebtor(const std::string& code, const std::string& name);
  // Makes the Pastel set and the address book of `clients` (with the UDFs "Account Number",
  // "Customer Category", "VAT Number" and `moreUdfs`), and starts maxsim on it.
  void MakeWorld(const json& clients, const json& moreUdfs = json::array());

  // The template "run.KTF" in the program's folder: the Pastel set and the address book, every
  // client, category <2> Wholesale, account numbers in the UDF "Account Number", prefix 4 and
  // suffix 2, no addresses. `changes` replace lines by key or, for a key the template lacks, end
  // the "To Pastel" section; `toMaximizer` lines go into the "To Maximizer" section. Its path.
  std::string WriteTemplate(const std::map<std::string, std::string>& changes = {},
                            const std::vector<std::string>& toMaximizer = {});
  // Changes for recurring billing, `more` added: categories from the UDF "Customer Category",
  // monthly billing on any day, Date Billed in its UDF, GL code 1000000, VAT code 1, cost code CC.
  static std::map<std::string, std::string> BillingChanges(
      const std::map<std::string, std::string>& more = {});

  // File > Open Template... with the template, the user's `actions` on the wizard's pages, Next
  // on the Transfer page (which is Import) and `answers` for the dialogs that follow.
  std::vector<std::string> ImportScript(const std::vector<std::string>& answers,
                                        const std::vector<std::string>& actions = {}) const;
  // Wizard actions: a new category for every debtor of the run (offered as <4> after the demo
  // set's three), back on the Transfer page, then `more`.
  static std::vector<std::string> NewCategory(std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"@tab 1", "@click optCategory 1", "@tab 5"});
    return more;
  }
  // Runs tolmen from start to end with this user and command line; its exit status.
  int Run(const std::vector<std::string>& script, const std::string& commandLine = "",
          int debugLevel = 0);
  // Runs the templates (UTF-8 paths) as `tolmen run` does, printing to out_ and err_; the exit
  // status.
  int RunCall(const std::vector<std::string>& templates, UnattendedUi::Settings settings = {},
              bool asJson = false);
  // What the world does beside the script at each yield of a run (a click on Pause, a signal).
  std::function<void(Tolmen& app)> atYield;

  // The folders as the file system names them (UTF-8); the system holds them as Windows-1252.
  std::string PastelFolder() const { return dir_.File(pastelName_) + "/"; }
  std::string Home() const { return dir_.File(homeName_) + "/"; }
  std::string Transcript() const { return transcript_.str(); }
  // The lines of a file of the Pastel folder ("MaxCus01.csv", "Tolmen.LOG").
  std::vector<std::string> PastelFileLines(const std::string& name) const;
  // The categories of the category file, "<number> description", in key order.
  std::vector<std::string> CategoryFile();
  // The value of a UDF of a client as maxsim has stored it; null when it has none.
  json StoredUdf(const std::string& id, const std::string& udf) const {
    return maxsim_->StoredUdf(id, udf);
  }
  // The automation calls maxsim received since the last time, one a line.
  std::vector<std::string> TakeJournal() const { return maxsim_->TakeJournal(); }
  // Makes a client the current one in Maximizer, or sets the current list.
  void Maximizer(const std::vector<std::string>& command) const {
    const RunResult result = maxsim_->Ctl(command);
    ASSERT_EQ(result.status, 0) << result.out;
  }

  TempDir dir_{"tolmen-scen-"};
  std::string homeName_, pastelName_;
  json pastel_;
  std::unique_ptr<MaxsimProcess> maxsim_;
  std::unique_ptr<VirtualClock> clock_;  // each run starts at 09:00 on 23 November 2026
  std::ostringstream transcript_, out_, err_;
  std::unique_ptr<ScriptUi> script_;
  std::unique_ptr<HookedUi> ui_;
  std::unique_ptr<Tolmen> app_;  // the last run's application, kept for its screen and state
};

}  // namespace tolmen::test
