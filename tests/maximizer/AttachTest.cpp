// Attaching to a real maxsim and guarding the choice of database, and the "Keep Maximizer
// Visible" question.
#include <filesystem>

#include "common/MaximizerTestKit.h"
#include "maximizer/OpenMaximizer.h"
#include "runtime/Cp1252.h"
#include "shell/ProcessEnd.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

const std::string kRequired =
    "== MsgBox | Maximizer Required! | OK | Exclamation\n"
    "Please run Maximizer before running Tolmen!\n"
    "-> OK\n";

class AttachTest : public MaximizerTest {
 protected:
  MainForm& Form() { return app_->screen.frmMain; }
  int Calls(const std::vector<std::string>& journal, const std::string& call) {
    int count = 0;
    for (const std::string& line : journal) count += line.rfind(call, 0) == 0;
    return count;
  }
};

TEST_F(AttachTest, NotRunningOrNoDatabaseAsksForMaximizerAndALaterAttemptAttaches) {
  Start();
  Form().tabDlg.SetTab(3);
  Form().lblUDFkey.SetVisible(true);
  EXPECT_FALSE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), kRequired);
  EXPECT_FALSE(app_->maximizer.Attached());
  EXPECT_FALSE(Form().lblUDFkey.Visible());
  EXPECT_EQ(Form().tabDlg.Tab(), 0);

  const std::string folder = ServeBook();
  transcript_.str("");
  ASSERT_TRUE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), "");
  EXPECT_TRUE(app_->maximizer.Attached());
  EXPECT_EQ(Form().txtDatabaseName.Text(), "Demo Address Book");
  EXPECT_EQ(Form().txtDatabasePath.Text(), fs::canonical(folder).string());
  // Accepted before: the caption counts the current list.
  ASSERT_TRUE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Form().optListClients(0).Caption(), "Current List (12 items)");

  // No database open in Maximizer: the same message, and the objects are let go.
  ASSERT_EQ(maxsim_.Ctl({"close"}).status, 0);
  EXPECT_FALSE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), kRequired);
  EXPECT_FALSE(app_->maximizer.Attached());
  ASSERT_EQ(maxsim_.Ctl({"open", folder}).status, 0);
  EXPECT_TRUE(OpenMaximizerOLE(*app_));
}

TEST_F(AttachTest, ADialogInMaximizerIsRetriedOnOkAndCancelGivesUp) {
  ServeBook();
  Start({"OK", "Cancel", "OK", "OK"});
  ASSERT_EQ(maxsim_.Ctl({"dialog", "on"}).status, 0);
  maxsim_.TakeJournal();
  Form().tabDlg.SetTab(2);
  EXPECT_FALSE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Count("== MsgBox | Maximizer Blocked! | OK/Cancel | None\n"
                  "Please close the Dialog Box in Maximizer before running Tolmen!\n"),
            2);
  EXPECT_EQ(Calls(maxsim_.TakeJournal(), "GetDatabaseList"), 2);
  EXPECT_EQ(Form().tabDlg.Tab(), 0);
  EXPECT_EQ(app_->maximizer.DatabaseName, "");
  EXPECT_TRUE(app_->shell.BusyCount == 0 && !script_->BusyPointer());

  // The user closes the dialog in Maximizer before pressing OK the second time.
  int blocked = 0;
  ui_->beforeMsgBox = [&](const std::string&, const std::string& title) {
    if (title == "Maximizer Blocked!" && ++blocked == 2) maxsim_.Ctl({"dialog", "off"});
  };
  transcript_.str("");
  EXPECT_TRUE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(blocked, 2);
  EXPECT_EQ(Calls(maxsim_.TakeJournal(), "GetDatabaseList"), 3);
  EXPECT_EQ(app_->maximizer.DatabaseName, "Demo Address Book");
}

TEST_F(AttachTest, ADatabaseMissingFromTheListGoesOnUnnamedOrEndsTheProgram) {
  const std::string folder = fs::canonical(ServeBook()).string();
  // Maximizer's list of databases comes out empty: maxsim writes it into the void.
  fs::create_symlink("/dev/null", socket_ + ".dblist.txt");
  Start({"No"});
  Form().optListClients(1).SetValue(true);
  app_->options.ImportCriteriaText = "YES";
  ASSERT_TRUE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(),
            "== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later Warning: Maximizer Name "
            "missing! | Yes/No | None\n"
            "The Database name could not be found.\n"
            "You may have had more than one Maximizer running.\n"
            "You can proceed with Database path:\n" +
                folder +
                "\n"
                "Or close all copies of Maximizer and reopen the correct Database.\n"
                "Would you like to close Tolmen and reopen the correct Database?\n"
                "-> No\n");
  EXPECT_EQ(app_->maximizer.DatabaseName, " ");
  EXPECT_EQ(app_->maximizer.DatabasePath, folder);
  EXPECT_EQ(Form().optListClients.Value(), -1);
  // The blank name counts as held: the next attempt asks nothing, and the caption stays.
  transcript_.str("");
  EXPECT_TRUE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), "");
  EXPECT_EQ(Form().optListClients(0).Caption(), "Use Current List");

  // A fresh start answers Yes: the run options are reset and the program ends.
  Start({"Yes"});
  app_->options.ImportCriteriaText = "YES";
  Form().tabDlg.SetTab(4);
  EXPECT_THROW(OpenMaximizerOLE(*app_), ProcessEnd);
  EXPECT_EQ(Count("-> Yes\n"), 1);
  EXPECT_EQ(app_->options.ImportCriteriaText, "");
  EXPECT_EQ(Form().tabDlg.Tab(), 0);
}

TEST_F(AttachTest, AChangedDatabaseIsRefusedOrTakenAndAPathInOtherCaseIsTheSame) {
  const std::string first = fs::canonical(ServeBook()).string();
  nlohmann::json other = DemoBook();
  other["name"] = "Branch Office";
  other["udfs"] = {{{"name", "Region"}, {"type", "Table"}, {"items", {"North", "South"}}}};
  for (auto& client : other["clients"]) client.erase("udfs");
  const std::string second = fs::canonical(maxsim_.Init("branch", other)).string();

  Start({"No", "OK", "Yes", "OK"});
  ASSERT_TRUE(OpenMaximizerOLE(*app_));
  Form().optListClients(0).SetValue(true);
  ASSERT_EQ(maxsim_.Ctl({"open", second}).status, 0);
  const std::string question =
      "== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later Warning: Maximizer Database "
      "changed! | Yes/No | None\n"
      "You have changed the Database From:\n"
      "Demo Address Book\n"
      "To: Branch Office\n"
      "and the database path From:\n" +
      first + "\nTo: " + second +
      "\n\n"
      "Do you want to use the Database: Branch Office\n"
      "with the path: " +
      second + " ?\n";

  EXPECT_FALSE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), question +
                              "-> No\n"
                              "== MsgBox | Maximizer Warning!! | OK | None\n"
                              "Please go back to Maximizer and change the Database.\n"
                              "-> OK\n");
  EXPECT_EQ(app_->maximizer.DatabasePath, first);
  EXPECT_EQ(Form().optListClients(0).Caption(), "Use Current List");
  EXPECT_EQ(Form().optListClients.Value(), -1);
  EXPECT_EQ(app_->udfs.Name(1), "Account Number");

  transcript_.str("");
  EXPECT_FALSE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), question +
                              "-> Yes\n"
                              "== MsgBox | Maximizer Warning!! | OK | None\n"
                              "Please Click OK and Start again!\n"
                              "-> OK\n");
  EXPECT_EQ(app_->maximizer.DatabaseName, "Branch Office");
  EXPECT_EQ(Form().txtDatabasePath.Text(), second);
  // "Open Database" ran and read the new database's UDFs.
  EXPECT_EQ(app_->udfs.Count(), 1);
  EXPECT_EQ(app_->udfs.Name(1), "Region");

  // The same folder written in other letters is the database already accepted.
  app_->maximizer.DatabasePath = UCase(second);
  maxsim_.TakeJournal();
  transcript_.str("");
  EXPECT_TRUE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(), "");
  EXPECT_EQ(Calls(maxsim_.TakeJournal(), "GetDatabaseList"), 0);
}

TEST_F(AttachTest, KeepMaximizerVisibleAsksBeforeTheTick) {
  Start({"No", "Yes"});
  MenuItem& item = Form().mnuOptnShowMax;
  item.Click();
  EXPECT_FALSE(item.Checked());
  item.Click();
  EXPECT_TRUE(item.Checked());
  EXPECT_EQ(Count("== MsgBox | Really Keep Maximizer Visible? | Yes/No | Question\n"
                  "Do you really want to Keep Maximizer Visible?\n"
                  "\n"
                  "--Be very careful!  If you change the Sort Order\n"
                  "or the Current Record, you could corrupt your data!\n"
                  "\n"
                  "If any Maximizer reminders pop up, Tolmen will\n"
                  "wait until you to close them before continuing.\n"),
            2);
  transcript_.str("");
  item.Click();  // removing the tick asks nothing
  EXPECT_FALSE(item.Checked());
  EXPECT_EQ(Transcript(), "");
}

}  // namespace
}  // namespace tolmen::test
