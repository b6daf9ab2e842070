// The wizard's tab flow played by script against a real Pastel set and a real maxsim.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/MaximizerTestKit.h"
#include "common/TestText.h"
#include "pastel/PastelDataSet.h"
#include "runtime/Strings.h"
#include "screen/ScreenActions.h"
#include "shell/Application.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

// The main window, noting the page shown after each action; `before` runs just before one.
class RecordingWindow final : public ScreenActions {
 public:
  explicit RecordingWindow(ScreenModel& model) : ScreenActions(model), model_(model) {}
  std::string Perform(const UiAction& action) override {
    if (before) before(action);
    std::string result = ScreenActions::Perform(action);
    pages.push_back(model_.frmMain.tabDlg.Tab());
    return result;
  }
  std::function<void(const UiAction&)> before;
  std::vector<int> pages;

 private:
  ScreenModel& model_;
};

class TabFlowTest : public MaximizerTest {
 protected:
  std::string Home() const { return dir_.File("home") + "/"; }
  std::string Pastel() const { return dir_.File("pastel") + "/"; }
  MainForm& Form() { return app_->screen.frmMain; }

  // Acme (ACM001), Botha (BOT001), Bluegum (not for Pastel), Cape Fasteners (CAP001) and Zulu
  // Coffee (not for Pastel; the last line of the list, which a run reads twice).
  void ServeSmallBook() {
    nlohmann::json book = DemoBook();
    nlohmann::json clients = nlohmann::json::array();
    for (int n : {0, 3, 4, 7, 8}) clients.push_back(book["clients"][n]);
    book["clients"] = clients;
    database_ = ServeBook(book);
  }

  // The demo template for the Pastel set and `databasePath`, kept in the program's folder.
  std::string WriteTemplate(const std::string& databasePath) {
    std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tools/demo/demo.KTF");
    std::string text;
    for (std::string line; std::getline(in, line);) text += line + "\r\n";
    const std::string path = Home() + "demo.KTF";
    std::ofstream(path, std::ios::binary)
        << Replace(Replace(text, "@PASTEL@", Pastel()), "@MAXIMIZER@", databasePath);
    return path;
  }

  // A fresh application's whole life on the same folders; `prepare` runs before the window loads.
  void Play(const std::vector<std::string>& script, const std::function<void()>& prepare = {}) {
    window_.reset();
    Start(script);
    if (!fs::exists(Pastel())) {
      std::ifstream set(std::string(TOLMEN_SOURCE_DIR) + "/tools/pasteldata/samples/demo.json");
      CreatePastelSet(*app_, Pastel(), nlohmann::json::parse(set));
    }
    window_ = std::make_unique<RecordingWindow>(app_->screen);
    if (prepare) prepare();
    RunApplication(*app_, *window_);
  }

  std::string OpenTemplate() const { return "@click mnuFile \"&Open Template...\""; }

  std::string database_;
  std::unique_ptr<RecordingWindow> window_;
};

TEST_F(TabFlowTest, HiddenPagesAreSkippedAndAPageThatGoesWhileShowingIsLeftFirst) {
  ServeSmallBook();
  Play({"@set Dir1 " + Pastel(), "@click cmdNext", "@click optImport 0",  // all clients
        "@click cmdNext",                                                 // to "To Maximizer"
        "@click mnuViewMaximizer", "Yes", "@click mnuViewBillR", "Yes", "@click mnuViewBillC", "No",
        "@click cmdHideBillC", "Yes", "@click cmdBack", "@click cmdNext",
        "@click mnuViewBillC"},  // shown again, without a question
       [this] {
         Form().lstBillCSet.AddItem("Monthly fee");
         Form().lstBillCSet.AddItem("Support");
       });
  // Each page hidden while it showed was left by Next first; Back and Next then skip all three.
  EXPECT_EQ(window_->pages, (std::vector<int>{0, 1, 1, 2, 3, 4, 4, 5, 1, 5, 5})) << Transcript();
  const std::string casual =
      "== MsgBox | Disable Casual Billing? | Yes/No | Question\n"
      "Do you really want to Hide Casual Billing?\n"
      "The items in the Billing List will be Lost.\n"
      "(to re-enable, use View > Casual Billing)\n";
  EXPECT_THAT(Transcript(), HasSubstr("== MsgBox | Disable To Maximizer? | Yes/No | Question\n"
                                      "Do you really want to Hide To Maximizer?\n"
                                      "(to re-enable, use View > To Maximizer)\n-> Yes\n"));
  EXPECT_THAT(Transcript(),
              HasSubstr(casual + "-> No\n@ click cmdHideBillC\n" + casual + "-> Yes\n"));
  EXPECT_EQ(Count("== MsgBox"), 4) << Transcript();

  MainForm& form = Form();
  for (MenuItem* tick : {&form.mnuViewMaximizer, &form.mnuViewBillR})
    EXPECT_FALSE(tick->Checked()) << tick->Name();
  for (int page : {2, 3}) EXPECT_FALSE(form.tabDlg.TabVisible(page)) << page;
  EXPECT_TRUE(form.mnuViewBillC.Checked());
  EXPECT_TRUE(form.tabDlg.TabVisible(MainForm::kTabCasualBilling));
  EXPECT_EQ(form.chkShowToMaxTab.Value(), 0);
  EXPECT_EQ(form.optBillPeriod.Value(), 0);
  EXPECT_EQ(form.lstBillCSet.ListCount(), 0);
  EXPECT_EQ(form.cmdNext.Caption(), "&Import");
  EXPECT_TRUE(form.cmdBack.Enabled());
}

// Next on "To Pastel" checks the category choice on the screen, before SetOptions copies it.
TEST_F(TabFlowTest, NextOnToPastelChecksTheCategoryChoiceOnTheScreen) {
  ServeSmallBook();
  Play({"@set Dir1 " + Pastel(), "@click cmdNext", "@click optImport 0", "@click optCategory 2",
        "@click cmdNext"});
  EXPECT_THAT(Transcript(), HasSubstr("@ click cmdNext\n== MsgBox | Importing To Pastel | OK | "
                                      "None\nNo Category Selected!\n"));
  EXPECT_EQ(window_->pages.back(), MainForm::kTabToPastel);
}

TEST_F(TabFlowTest, AFailedPastelOpenOnTheFirstPageStillAsksForMaximizer) {
  fs::create_directories(dir_.File("empty"));
  // No maxsim: the start and the Next each meet "Maximizer Required!".
  Play({"@set Dir1 " + dir_.File("empty") + "/", "@click cmdNext", "Cancel"});
  const std::string transcript = Transcript();
  const size_t next = transcript.find("@ click cmdNext\n== InputBox | ");
  ASSERT_NE(next, std::string::npos) << transcript;
  EXPECT_NE(transcript.find("-> Cancel\n== MsgBox | Maximizer Required! | OK | Exclamation\n"
                            "Please run Maximizer before running Tolmen!\n",
                            next),
            std::string::npos)
      << transcript;
  EXPECT_EQ(window_->pages.back(), MainForm::kTabOpen);
  EXPECT_FALSE(Form().cmdBack.Enabled());
}

TEST_F(TabFlowTest, ArrivingWhileMaximizerIsGoneKeepsTheButtonsAndThePage) {
  ServeSmallBook();
  Play({"@set Dir1 " + Pastel(), "@click cmdNext", "@tab 5"}, [this] {
    window_->before = [this](const UiAction& action) {
      if (action.verb == "tab") maxsim_.Kill();  // the user closed Maximizer
    };
  });
  EXPECT_THAT(Transcript(), HasSubstr("@ tab 5\n== MsgBox | Tolmen | OK | None\nError "));
  EXPECT_EQ(window_->pages, (std::vector<int>{0, 1, 5}));
  EXPECT_TRUE(Form().cmdBack.Enabled());
  EXPECT_EQ(Form().cmdNext.Caption(), "&Next >>");
}

TEST_F(TabFlowTest, TheImportConfirmationInEachOfItsForms) {
  ServeSmallBook();
  const std::string path = WriteTemplate(database_);
  Play({OpenTemplate(), "= " + path, "@click cmdNext", "No",  // criteria "Yes" in the UDF
        "@tab 1", "@set txtUserFldVal \"\"", "@tab 5", "@click cmdNext", "No",  // every client
        "@click chkWritePasFile", "@click cmdNext", "No",                       // no CSV file
        "@click mnuOptnMax2Pas", "@click cmdNext", "No"},
       [this] {
         window_->before = [this](const UiAction& action) {
           if (action.verb == "click" && action.args[0] == "chkWritePasFile")
             app_->run.BillingDate = DateFromParts(2026, 11, 25, 0, 0, 0);
         };
       });
  const std::string title =
      "== MsgBox | Confirm Import - 09:00 23 November 2026 | Yes/No | Question\n";
  const std::string billing =
      "== MsgBox | Confirm Import - 09:00 23 November 2026 - Recurring Billing 25 Nov 2026 | "
      "Yes/No | Question\n";
  const std::string csv = "Debtors will be written to file " + Pastel() + "MaxCus01.csv\n";
  const std::string sure = "Click 'Yes' if you are sure you want to continue.\n-> No\n";
  const std::vector<std::string> dialogs = {
      title + "Tolmen will use the Pastel Accounts: " + Pastel() +
          "\nwith the  Maximizer database: Demo Address Book\n"
          "according to the Parameters you have entered.\n" +
          csv + sure,
      "== Beep\n" + title + "Please Note: According to your current Import Criteria \n" +
          "it is possible for the entire Maximizer Database to be \nimported into Pastel.\n" + csv +
          sure,
      billing + "Debtors will NOT be written to file for importing into Pastel.\n" + sure,
      billing + "Update from Pastel to Maximizer only.\n" + sure};
  const std::string transcript = Transcript();
  size_t at = 0;
  for (const std::string& dialog : dialogs) {
    at = transcript.find(dialog, at);
    ASSERT_NE(at, std::string::npos) << "missing in order:\n" << dialog << "\nin:\n" << transcript;
  }
  EXPECT_EQ(Count("== Beep"), 1);
  EXPECT_EQ(Count("== MsgBox"), 4) << transcript;
  EXPECT_FALSE(fs::exists(Pastel() + "MaxCus01.csv"));  // nothing ran
}

TEST_F(TabFlowTest, DatabaseChangeWarningIsGivenOncePerTemplateAndNoGoesBackToTheFirstPage) {
  ServeSmallBook();
  const std::string path = WriteTemplate(dir_.File("old-book"));
  Play({OpenTemplate(), "= " + path, "@tab 1", "No", "@click cmdNext", "@click cmdNext"});
  const std::string warning =
      "== MsgBox | Tolmen Warning: Maximizer Database change! | Yes/No | None\n"
      "In your previous run you were using the Maximizer database:\n" +
      dir_.File("old-book") + "\nNow you are using:\n" + database_ + "\nIs this OK?\n-> No\n";
  EXPECT_THAT(Transcript(), HasSubstr("@ tab 1\n" + warning + "@ click cmdNext\n"));
  EXPECT_EQ(Count("Warning: Maximizer Database change!"), 1);
  // From the template's Transfer page No goes back to the first; no second warning from there.
  EXPECT_EQ(window_->pages, (std::vector<int>{5, 0, 1, 2}));
}

TEST_F(TabFlowTest, DatabaseChangeWarningIsGivenOnceForATemplateImportedInParts) {
  ServeSmallBook();
  const std::string path = WriteTemplate(dir_.File("old-book"));
  // Every part is taken (the default Yes); the "To Pastel" part shows its page, which warns.
  Play({"@click mnuFile \"&Import Parts of Template...\"", "= " + path, "@tab 0", "@tab 1"});
  EXPECT_EQ(Count("Warning: Maximizer Database change!"), 1) << Transcript();
}

TEST_F(TabFlowTest, ANewCategoryTakesTheFocusToItsDescription) {
  ServeSmallBook();
  Play({"@set Dir1 " + Pastel(), "@tab 1", "@click optCategory 1", "@click optCategory 0"});
  EXPECT_THAT(Transcript(),
              HasSubstr("@ click optCategory 1\n-- focus txtCategory(0)\n@ click optCategory 0\n"));
  EXPECT_EQ(Count("-- focus"), 1);
}

TEST_F(TabFlowTest, LimitLogFileSizeStoresANumericAnswerAndTicksTheItem) {
  const std::string limit = "@click mnuFile \"&Limit Log File Size...\"";
  const auto prompt = [](const std::string& shown, const std::string& answer) {
    return "== InputBox | Limit Log File Size? | " + shown +
           "\nLimit Log File Size to how many Kilobytes?\nPrevious file is kept as "
           "Tolmen0.LOG\n(0 = Do not limit size.)\n-> = " +
           answer + "\n";
  };
  Play({limit, "= 250"});
  EXPECT_THAT(Transcript(), HasSubstr(prompt("1000", "250")));
  EXPECT_TRUE(Form().mnuFile(21).Checked());
  EXPECT_EQ(Settings(dir_.File("settings.ini")).GetSetting("Settings", "LogFileLimit"), "250");

  // A new start reads the stored limit; an answer that is no number changes nothing, 0 unticks.
  Play({limit, "= about 300", limit, "= 0"});
  EXPECT_THAT(Transcript(),
              HasSubstr(prompt("250", "about 300") +
                        "@ click mnuFile \"&Limit Log File Size...\"\n" + prompt("250", "0")));
  EXPECT_FALSE(Form().mnuFile(21).Checked());
  EXPECT_EQ(Settings(dir_.File("settings.ini")).GetSetting("Settings", "LogFileLimit"), "0");
}

// Links edited on "To Maximizer" by click and double click, a broken one among them.
TEST_F(TabFlowTest, LinksAreMadeEditedAndRemovedOnTheToMaximizerPage) {
  ServeSmallBook();
  std::vector<std::string> seen;  // before each button: the ageing note, the links' tooltip
  Play({"@set Dir1 " + Pastel(), "@click cmdNext", "@click optImport 0", "@click cmdNext",
        "@click lst2MaxPastel 4", "@dblclick lst2MaxPastel 4", "OK",  // ageing 1, no UDF yet
        "@click lst2MaxUDFs 6", "@click cmd2MaxAdd",                  // Pastel Balance
        "@click lst2MaxPastel 2", "@click cmd2MaxReplace",            // Account Balance
        "@dblclick lst2MaxUDFs 3",                                    // a second link
        "@dblclick lst2MaxLinked 1",                                  // back into the lists
        "@dblclick lst2MaxLinked 0", "OK",                            // the broken one
        "@click cmd2MaxDelete", "@click cmd2MaxDelete", "OK", "@click cmdNext"},
       [this, &seen] {
         Form().lst2MaxLinked.AddItem("Gone Field\t => Nothing\t (Alpha)");
         window_->before = [this, &seen](const UiAction& action) {
           if (action.verb == "click" && action.args[0].starts_with("cmd2Max"))
             seen.push_back(action.args[0] + (Form().lblAging.Visible() ? " aging " : " ") +
                            Form().lst2MaxLinked.ToolTipText());
         };
       });
  const std::string linkAdded =
      "Account Monthly Aging 1 ('30 days')\t => Pastel Balance\t (Number)";
  EXPECT_EQ(seen, (std::vector<std::string>{
                      "cmd2MaxAdd aging Click item & Wait for Tooltip",
                      "cmd2MaxReplace " + linkAdded,
                      "cmd2MaxDelete Gone Field\t => Nothing\t (Alpha)",
                      "cmd2MaxDelete Gone Field\t => Nothing\t (Alpha)",
                  }));
  EXPECT_EQ(Count("== MsgBox"), 3) << Transcript();
  EXPECT_THAT(Transcript(),
              HasSubstr("@ dblclick lst2MaxPastel 4\n"
                        "== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later | OK | None\n"
                        "Please select a Maximizer Table, Numeric, or Alphanumeric User-Defined "
                        "Field!\n-> OK\n-- focus lst2MaxUDFs\n"));
  EXPECT_THAT(Transcript(),
              HasSubstr("== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later Couldn't Edit! | OK "
                        "| None\nThere are Errors in 'To Maximizer' Item(s):\n\n"
                        "<Gone Field> was not found in the Pastel Fields.\n"
                        "This error should not occur unless you are using a template from a\n"
                        "later version that can handle more Pastel Fields than this version "
                        "can.\nTry upgrading to the latest Tolmen, or delete this Link.\n\n"
                        "<Nothing> was not found in the list of Maximizer UDFs.\n"));
  EXPECT_THAT(Transcript(), HasSubstr("@ click cmd2MaxDelete\n== MsgBox | Tolmen | OK | None\n"
                                      "First Select the item you want to delete!\n"));
  MainForm& form = Form();
  EXPECT_EQ(form.lst2MaxLinked.Items().size(), 2u);
  EXPECT_EQ(form.lst2MaxLinked.List(0), "Account Balance\t => Pastel Balance\t (Number)");
  EXPECT_EQ(form.lst2MaxLinked.List(1), "Account Balance\t => Credit Limit\t (Number)");
  // Edit put the first good link's UDF back into the upper list.
  EXPECT_EQ(form.lst2MaxUDFs.ListIndex(), 6);
  // With the menu tick off the links are not looked at, and Next goes on.
  EXPECT_EQ(window_->pages.back(), MainForm::kTabRecurringBilling);
}

}  // namespace
}  // namespace tolmen::test
