// Scheduled runs of background mode on the virtual clock: the template list in order, a bad
// template skipped, and the import files they meet (none at start, the wizard's after an Import).
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "ScenarioKit.h"
#include "common/TestText.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

class BackgroundRunTest : public ScenarioTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(MakeWorld(json::array(
        {Company("A", "Acme Trading", "ACM001"), Company("B", "Bravo Ltd", "BRV001")})));
  }
  // A template of the scenario kit under another name in the program's folder.
  std::string Template(const std::string& name,
                       const std::map<std::string, std::string>& changes = {}) {
    fs::rename(WriteTemplate(changes), Home() + name);
    return Home() + name;
  }
  void WriteAutoRun(const std::string& text) {
    std::ofstream(Home() + "AUTORUN.KSF", std::ios::binary) << text;
  }
  // The run headings of the log, from " Run at " on.
  std::vector<std::string> Runs() const {
    std::vector<std::string> runs;
    for (const std::string& line : PastelFileLines("Tolmen.LOG"))
      if (line.rfind("Tolmen 1.0.0 Run at ", 0) == 0) runs.push_back(line.substr(20));
    return runs;
  }
};

constexpr const char* kCsvDialog =
    "== MsgBox | Tolmen | OK/Cancel | None\n"
    "Opening CSV files\n";

TEST_F(BackgroundRunTest, AnIntervalOfThreeRunsTheListInOrderEveryThirdMinute) {
  const std::string a = Template("a.KTF");
  const std::string b = Template("b.KTF");
  WriteAutoRun("Tolmen AUTORUN FILE\r\nTRUE\r\n2\r\n" + a + "\r\n" + b +
               "\r\nINTERVAL\r\n3\r\nTrue\r\n");
  // At the process's start no import file has a name: each template meets the dialog.
  Run({"@minutes 2", "@minutes 1", "Cancel", "Cancel", "No", "@minutes 3", "Cancel", "Cancel",
       "No"});

  EXPECT_EQ(Runs(), (std::vector<std::string>{"23 Nov 2026 09:03 for Template 1/2: " + a,
                                              "23 Nov 2026 09:03 for Template 2/2: " + b,
                                              "23 Nov 2026 09:06 for Template 1/2: " + a,
                                              "23 Nov 2026 09:06 for Template 2/2: " + b}));
  const std::string transcript = Transcript();
  // Armed at start; nothing in the first two minutes.
  EXPECT_EQ(transcript.substr(0, transcript.find("@ minutes 1")),
            "== Tray add Tolmen -\n@ minutes 2\n");
  EXPECT_EQ(Occurrences(transcript, kCsvDialog), 4) << transcript;
  EXPECT_EQ(Occurrences(transcript, "== Tray modify Tolmen - Busy\n"), 2);
  for (const char* next : {"09:06", "09:09"})
    EXPECT_TRUE(Contains(transcript, "== Tray modify Tolmen - " + std::string(next) + "\n"));
  EXPECT_EQ(Occurrences(transcript,
                        "== MsgBox | Tolmen Import Complete: Open Log File? | Yes/No | None\n"
                        "The Maximizer Clients according to the 2 Templates selected have been "
                        "imported into Pastel.\n"),
            2);
  EXPECT_FALSE(Contains(transcript, "Confirm Import")) << transcript;
  EXPECT_FALSE(fs::exists(PastelFolder() + "MaxCus01.csv"));
  EXPECT_FALSE(app_->run.Unattended);
}

TEST_F(BackgroundRunTest, AfterAWizardImportTheTimeRunsOnceIntoItsFilesSkippingABadTemplate) {
  const std::string bad = Template("bad.KTF", {{"Account Number", ""}});
  const std::string good = Template("good.KTF");
  Template("run.KTF");
  // The wizard's Import names MaxCus01.csv; then the user sets up background mode for 09:02.
  std::vector<std::string> script = ImportScript({"Yes", "No"});
  script.insert(script.end(),
                {"@click mnuFile 40", "@click Check1", "@click optMethod 0", "@set txtTime 09:02",
                 "@click cmdBrowse", "= " + bad, "@click cmdBrowse", "= " + good, "@click cmdOK",
                 "@minutes 1", "@minutes 1", "OK", "@minutes 2"});
  Run(script);

  EXPECT_EQ(Runs(), (std::vector<std::string>{"23 Nov 2026 09:00 by User.",
                                              "23 Nov 2026 09:02 for Template 2/2: " + good}));
  // The scheduled run wrote the wizard's file again, and no other (the list's last line is read
  // twice, as in every run).
  const std::string bravo = Customer{"BRV001", "Bravo Ltd"}.Line();
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"),
            (std::vector<std::string>{Customer{"ACM001", "Acme Trading"}.Line(), bravo, bravo}));
  EXPECT_FALSE(fs::exists(PastelFolder() + "MaxCus02.csv"));
  const std::vector<std::string> log = PastelFileLines("Tolmen.LOG");
  EXPECT_EQ(std::count(
                log.begin(), log.end(),
                "3 Pastel Debtors (0 new) were written to file " + PastelFolder() + "MaxCus01.csv"),
            2);
  const std::string transcript = Transcript();
  const std::string scheduled = transcript.substr(transcript.find("@ minutes 1\n@ minutes 1"));
  EXPECT_EQ(Occurrences(scheduled, "== MsgBox "), 1) << scheduled;
  EXPECT_TRUE(Contains(scheduled,
                       "You have not selected a Maximizer UDF linking to the Pastel "
                       "Account!"))
      << scheduled;
  EXPECT_EQ(Occurrences(transcript, "== Tray modify Tolmen - Busy\n"), 1);
  EXPECT_TRUE(Contains(transcript, "== Tray add Tolmen - 09:02\n")) << transcript;
}

}  // namespace
}  // namespace tolmen::test
