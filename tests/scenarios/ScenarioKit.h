// Whole runs as a user makes them: a Pastel set of accounts and a Maximizer address book in a
// temporary folder, a real maxsim serving the book, a template in the program's folder, and Tolmen
// started the way the executable starts it (RunApplication) on the script front-end and a virtual
// clock. What the run produced is read back from the real files: the import files, the run log,
// the templates, the category file, and maxsim's own dump and journal.
#pragma once

#include <gtest/gtest.h>

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
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"

namespace tolmen {
class Tolmen;
}

namespace tolmen::test {

using json = nlohmann::json;

// A client of the address book: the automation fields, "udfs" and "addresses" as maxsim's
// description has them.
json Client(const std::string& id, int type, json fields);

// One customer line as Pastel's import reads it, without its CR LF: the columns that come from
// the client, and those every new debtor carries. Customer("ACM001", "Acme").Email("a@b").Line()
class Customer {
 public:
  Customer(std::string code, std::string name) : code_(std::move(code)), name_(std::move(name)) {}
  Customer& Category(int number) {
    category_ = number;
    return *this;
  }
  Customer& Telephone(std::string text) {
    telephone_ = std::move(text);
    return *this;
  }
  Customer& Fax(std::string text) {
    fax_ = std::move(text);
    return *this;
  }
  Customer& Contact(std::string text) {
    contact_ = std::move(text);
    return *this;
  }
  Customer& Cell(std::string text) {
    cell_ = std::move(text);
    return *this;
  }
  Customer& Email(std::string text) {
    email_ = std::move(text);
    return *this;
  }
  std::string Line() const;

 private:
  std::string code_;  // column 1, always six characters inside its quotes
  std::string name_;
  int category_ = 2;
  std::string telephone_;
  std::string fax_;
  std::string contact_;
  std::string cell_;
  std::string email_;
};

// The lines of a text file ended by CR LF; a line ended otherwise is kept with what it has, so
// that a comparison with expected lines shows it.
std::vector<std::string> CrLfLines(const std::string& text);
std::string ReadBytes(const std::string& path);

class ScenarioTest : public ::testing::Test {
 protected:
  // `home` and `pastel` name the program's folder and the Pastel folder in the test's folder
  // (UTF-8, as on disk).
  explicit ScenarioTest(std::string home = "home", std::string pastel = "pastel");
  ~ScenarioTest() override;

  // Debtors added to the demo set before it is made (code and name).
  void AddDebtor(const std::string& code, const std::string& name);
  // Makes the Pastel set and the address book of `clients` (with the UDFs "Account Number",
  // "Customer Category", "VAT Number" and `moreUdfs`), and starts maxsim on it.
  void MakeWorld(const json& clients, const json& moreUdfs = json::array());

  // The template "run.KTF" in the program's folder: the Pastel set and the address book, every
  // client, category <2> Wholesale, account numbers in the UDF "Account Number", prefix 4 and
  // suffix 2, no addresses. `changes` replaces lines by key ("Category Option" -> "1") or, for
  // a key not in the template, adds them to the "To Pastel" section. `toMaximizer` lines go
  // into the "To Maximizer" section. Its path.
  std::string WriteTemplate(const std::map<std::string, std::string>& changes = {},
                            const std::vector<std::string>& toMaximizer = {});

  // The wizard's way in: File > Open Template... with the template, the user's `actions` on the
  // wizard's pages, Next on the Transfer page (which is Import) and `answers` for the dialogs
  // that follow.
  std::vector<std::string> ImportScript(const std::vector<std::string>& answers,
                                        const std::vector<std::string>& actions = {}) const;

  // What the user does beside the script, at each yield to the window system during the run
  // (for example clicking Pause while a client is being worked on).
  std::function<void(Tolmen& app)> atYield;

  // Runs tolmen from start to end with this user and command line; its exit status.
  int Run(const std::vector<std::string>& script, const std::string& commandLine = "",
          int debugLevel = 0);

  // The folders as the file system names them (UTF-8); the system holds them as Windows-1252.
  std::string PastelFolder() const { return dir_.File(pastelName_) + "/"; }
  std::string Home() const { return dir_.File(homeName_) + "/"; }
  std::string Transcript() const { return transcript_.str(); }
  // The lines of a file of the Pastel folder ("MaxCus01.csv", "Tolmen.LOG").
  std::vector<std::string> PastelFileLines(const std::string& name) const;
  // The categories of the category file, "<number> description", in key order.
  std::vector<std::string> CategoryFile();
  // The value of a UDF of a client as maxsim has stored it; null when it has none.
  json StoredUdf(const std::string& id, const std::string& udf) const;
  // The automation calls maxsim received since the last time, one a line.
  std::vector<std::string> TakeJournal() const;
  // Makes a client the current one in Maximizer, or sets the current list.
  void Maximizer(const std::vector<std::string>& command) const;

  TempDir dir_{"tolmen-scen-"};
  std::string homeName_;
  std::string pastelName_;
  json pastel_;
  std::unique_ptr<MaxsimProcess> maxsim_;
  // Each run starts at 09:00 on 23 November 2026; time moves only by what the run waits.
  std::unique_ptr<VirtualClock> clock_;
  std::ostringstream transcript_;
  std::unique_ptr<ScriptUi> script_;
  std::unique_ptr<HookedUi> ui_;
  std::unique_ptr<Tolmen> app_;  // the last run's application, kept for its screen and state
};

}  // namespace tolmen::test
