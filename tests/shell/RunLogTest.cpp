// The run log in real files, and the progress line's text.
#include <gtest/gtest.h>

#include "ShellFixture.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "shell/ProgressLine.h"
#include "shell/RunLog.h"
#include "wizard/FileMenu.h"

namespace tolmen::testing {
namespace {

class RunLogTest : public ShellFixture {
 protected:
  void SetUp() override {
    Start({});
    app_->screen.frmMain.optImport.Set(2);
    app_->pastel.PastelDataPath = dir_.File("set") + "/";
    fs::create_directories(dir_.File("set"));
  }
  std::string SetLog() const { return ReadFile(dir_.File("set/Tolmen.LOG")); }
};

TEST_F(RunLogTest, HeadingShowsTheRunAndItsOptions) {
  MainForm& form = app_->screen.frmMain;
  app_->run.RunReason = "by User.";
  form.txtDatabaseName.SetText("Demo Book");
  form.txtDatabasePath.SetText("/srv/maximizer/demo/");
  form.optCategory.Set(1);
  form.txtCategory(0).SetText("Members");
  form.txtCategory(1).SetText("7");
  form.cboUserFields.AddItem("Send Invoice");
  form.cboUserFields.SetListIndex(0);
  form.txtUserFldVal.SetText("YES");
  form.chkToPastel(0).SetValue(1);
  form.chkToPastel(3).SetValue(1);
  form.chkToPastel(4).SetValue(2);  // grayed is not ticked
  form.cboAcctCode.AddItem("Pastel Account");
  form.cboAcctCode.SetListIndex(0);

  LogEntry(*app_, 0, "ignored");
  const std::string heading = "Tolmen 1.0.0 Run at 15 Jun 2024 12:00 by User.";
  EXPECT_EQ(SetLog(), "\r\n" + heading + "\r\n" + std::string(heading.size(), '=') +
                          "\r\n"
                          "Maximizer Data: Demo Book = /srv/maximizer/demo/\r\n"
                          "Pastel    Data: " +
                          dir_.File("set") +
                          "/\r\n"
                          "Create New Customer Category: <7> Members\r\n"
                          "Import Marked Items where UDF Send Invoice = \"YES\"\r\n"
                          "Compare New Client Names with Existing Customers to prevent "
                          "duplication\r\n"
                          "Company Name to Postal Address\r\n"
                          "Maximizer Account Number UDF: Pastel Account\r\n"
                          "\r\n");

  // The category from a UDF, and "All Items" without the criteria.
  app_->log.EndRun();
  form.optCategory.Set(2);
  form.cboCatgrUDF.AddItem("Member Type");
  form.cboCatgrUDF.SetListIndex(0);
  form.optImport.Set(0);
  LogEntry(*app_, 0, "");
  EXPECT_TRUE(
      Contains(SetLog(), "\r\nUse/Create Category from UDF: Member Type\r\nImport All Items\r\n"));
}

TEST_F(RunLogTest, EveryKindWritesItsLine) {
  RunState& run = app_->run;
  run.ClientName = "Harrow & Finch";
  run.ClientId = "060101/12345";
  run.CurrentCategoryNumber = 12;
  run.CurrentCategoryText = "Wholesale";
  app_->pastelFiles.Debtor().default_(2, Variant("HARR01"));
  pasDelivery& delivery = app_->pastelFiles.Delivery();
  delivery.default_(1, Variant("HARR01"));
  delivery.default_(2, Variant("   "));

  run.BalancesMissed = 1;
  for (int16_t kind : {-1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12})
    LogEntry(*app_, kind, "[" + std::to_string(kind) + "]");
  delivery.default_(2, Variant("DEP"));
  run.BalancesMissed = 2;
  LogEntry(*app_, 7, "");
  LogEntry(*app_, 11, "");
  LogError(*app_, "first");
  LogError(*app_, "second");
  EXPECT_EQ(run.ErrorCount, 2);

  EXPECT_EQ(SetLog(),
            "Created new Customer Category <12> Wholesale\r\n"
            "Created  Pastel Customer - a/c HARR01: Harrow & Finch\r\n"
            "Changed Pastel Customer  - a/c HARR01: Harrow & Finch\r\n"
            "Locked Debtor Record - a/c HARR01: Harrow & Finch\r\n"
            "Locked Delivery Address - a/c HARR01 Address Code MAIN\r\n"
            "[8]\r\n"
            "2024-06-15 12:00 - [9]\r\n"
            "[10]Changed Maximizer Client - a/c HARR01: Harrow & Finch <ID 060101/12345> \r\n"
            "\r\n"
            "Add Pastel Debtors to Maximizer:\r\n"
            "Created Max Client - a/c HARR01: Harrow & Finch\r\n"
            "Locked Delivery Address - a/c HARR01 Address Code DEP\r\n"
            "Created Max Client - a/c HARR01: Harrow & Finch\r\n"
            "### Error 1: first\r\n"
            "### Error 2: second\r\n");
}

TEST_F(RunLogTest, TurnsOverOnlyAboveTheLimit) {
  const std::string log = dir_.File("set/Tolmen.LOG");
  const std::string old = dir_.File("set/Tolmen0.LOG");
  struct Case {
    int32_t limitKb;
    size_t size;
    bool turned;
  };
  for (const Case& c :
       {Case{1, 1024, false}, Case{1, 1025, true}, Case{0, 5000, false}, Case{-1, 10, true}}) {
    WriteText(old, "older");
    WriteText(log, std::string(c.size, 'x'));
    app_->shell.LogFileLimit = c.limitKb;
    LogEntry(*app_, 0, "");
    app_->log.EndRun();
    const std::string now = ReadFile(log);
    if (c.turned) {
      EXPECT_EQ(ReadFile(old), std::string(c.size, 'x')) << c.limitKb << " " << c.size;
      EXPECT_EQ(now.substr(0, 2), "\r\n");
    } else {
      EXPECT_EQ(ReadFile(old), "older") << c.limitKb << " " << c.size;
      EXPECT_EQ(now.substr(0, c.size), std::string(c.size, 'x'));
      EXPECT_GT(now.size(), c.size);
    }
  }
}

TEST_F(RunLogTest, FolderAndOpenStateFollowTheRunAndTheLevel) {
  // No Pastel folder yet: the program's folder, for the whole run.
  app_->pastel.PastelDataPath.clear();
  LogEntry(*app_, 0, "");
  app_->pastel.PastelDataPath = dir_.File("set") + "/";
  LogEntry(*app_, 8, "still here");
  EXPECT_TRUE(app_->log.IsOpen());
  app_->log.EndRun();
  EXPECT_FALSE(app_->log.IsOpen());
  EXPECT_TRUE(Contains(ReadFile(Home() + "Tolmen.LOG"), "\r\nstill here\r\n"));
  // After the run the Pastel folder is known and taken.
  LogEntry(*app_, 8, "moved");
  EXPECT_EQ(SetLog(), "moved\r\n");

  // Any level but 0 closes the file after every entry.
  app_->shell.DebugLevel = -1;
  LogEntry(*app_, 8, "closed");
  EXPECT_FALSE(app_->log.IsOpen());
  LogEntry(*app_, 0, "");
  EXPECT_FALSE(app_->log.IsOpen());
  EXPECT_TRUE(Contains(SetLog(), "moved\r\nclosed\r\n\r\nTolmen 1.0.0 Run at "));
}

// File > View Log File opens the log the next entry goes to: the open Pastel folder's, even when
// the last entry went to the program's folder; during a run, the run's own.
TEST_F(RunLogTest, ViewLogFileOpensTheLogOfTheOpenPastelFolder) {
  constexpr int kViewLogFile = 20;
  app_->pastel.PastelDataPath.clear();
  LogEntry(*app_, 0, "");  // a run before any Pastel folder was open
  app_->pastel.PastelDataPath = dir_.File("set") + "/";
  mnuFile_Click(*app_, kViewLogFile);
  app_->log.EndRun();
  mnuFile_Click(*app_, kViewLogFile);
  EXPECT_EQ(Transcript(),
            "== Editor " + Home() + "Tolmen.LOG\n== Editor " + dir_.File("set") + "/Tolmen.LOG\n");
}

TEST(ProgressLineTest, TextAtTheEdges) {
  struct Case {
    double start, now, count, maximum;
    const char* text;
  };
  // 0.25 is 06:00, 0.5 is 12:00; a day is 1.
  const Case cases[] = {
      // Elapsed 0: no finish, no rate; the line ends with the separator.
      {0.25, 0.25, 0, 10,
       "Started: 06:00 \xB7 Elapsed: 00:00 \xB7 Est. Finish: 00:00 \xB7 Progress: 0% \xB7 "},
      // A quarter done in six hours: finish a day later at 06:00, 1440 a day is 1 a minute.
      {0.25, 0.5, 360, 1440,
       "Started: 06:00 \xB7 Elapsed: 06:00 \xB7 Est. Finish: 06:00 \xB7 Progress: 25% \xB7 "
       "1/min"},
      // A day and a half: the elapsed time wraps to 12:00.
      {0.25, 1.75, 4320, 5760,
       "Started: 06:00 \xB7 Elapsed: 12:00 \xB7 Est. Finish: 06:00 \xB7 Progress: 75% \xB7 "
       "2/min"},
      // A maximum of 1: 100% at once, the finish is now.
      {0.25, 0.5, 1, 1,
       "Started: 06:00 \xB7 Elapsed: 06:00 \xB7 Est. Finish: 12:00 \xB7 Progress: 100% \xB7 "
       "0.00277777777777778/min"},
      // A maximum of 0 cannot give a fraction.
      {0.25, 0.5, 3, 0,
       "Started: 06:00 \xB7 Elapsed: 06:00 \xB7 Est. Finish: 00:00 \xB7 Progress: 0% \xB7 "
       "0.00833333333333333/min"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(ProgressLineText(c.start, c.now, c.count, c.maximum), c.text) << c.count;
}

}  // namespace
}  // namespace tolmen::testing
