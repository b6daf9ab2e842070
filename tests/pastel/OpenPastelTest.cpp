// Opening a set of accounts, played through the script front-end against real files: the folder
// question, the version table and its warning, the user file, empty files, period 13, closing.
#include <gtest/gtest.h>

#include "PastelTestSet.h"
#include "common/TestText.h"
#include "pastel/OpenPastel.h"
#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasGParm.h"
#include "pastel/pasUParm.h"
#include "recordio/StatusCatalogue.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "shell/ProcessEnd.h"
#include "shell/Shutdown.h"

namespace tolmen {
namespace {

using testing::DemoSet;
using testing::PastelSetTest;
namespace fs = std::filesystem;
using json = nlohmann::json;

const std::string kTitle = "Tolmen 1.0.0 for Maximizer 8, 9 and later";

class OpenPastelTest : public PastelSetTest {
 protected:
  // Makes the set, starts the application with the script and opens the set's folder.
  bool Open(const std::vector<std::string>& script, double now = DateSerial(2024, 6, 15) + 0.5) {
    Start(script, now);
    MakeSet();
    app_->screen.frmMain.Dir1.SetText((root_ / "set").string());  // no trailing '/': one is added
    return OpenPastel(*app_);
  }
  bool Has(const std::string& text) const { return Transcript().find(text) != std::string::npos; }
  int Dialogs() const { return test::Occurrences(Transcript(), "== "); }
};

TEST_F(OpenPastelTest, Version9OpensEverythingAndWorksOutTheState) {
  ASSERT_TRUE(Open({}));
  EXPECT_EQ(Transcript(), "");
  const PastelSetState& set = app_->pastel;
  EXPECT_EQ(set.PastelDataPath, Folder());
  EXPECT_EQ(set.PastelProduct + "|" + set.PastelVersion + "|" + set.PastelCompanyName + "|" +
                set.PastelFirstUserTag + "|" + set.PastelNumberFormat + "|" + set.PastelDateMask,
            "Pastel Accounting 2007 (9)|9.1.5|Harrow & Finch Trading|MANAGER|\\R,###,##0.00|"
            "##/##/####");
  EXPECT_EQ(set.AgingPeriod, 4);
  EXPECT_EQ(set.CurrentPeriod, 4);
  EXPECT_EQ(set.CurrentPeriodEnd, DateSerial(2024, 6, 30));
  EXPECT_EQ(app_->screen.frmMain.fraPastel.Caption(), "Pastel Accounts Ver 9.1.5");
  const Label& note = app_->screen.frmMain.lblAging;
  EXPECT_EQ(note.Caption(), "Aging Note: Pastel is in Period 4 ending Jun 2024");
  EXPECT_EQ(note.BackColor(), vbButtonFace);
  EXPECT_EQ(app_->shell.BusyCount, 0);

  PastelFiles& files = app_->pastelFiles;
  EXPECT_EQ(files.LiveObjects(), 7);  // the system parameters' object is gone
  EXPECT_TRUE(files.Debtor().IsOpen);
  EXPECT_TRUE(files.DcodeFile().IsOpen);
  EXPECT_FALSE(files.GParm().IsOpen);  // closed, its record kept
  EXPECT_EQ(FormatDate(files.GParm().default_(49).Value(), "dd/mm/yyyy"), "28/02/2025");
  ClosePasFiles(*app_);
  EXPECT_EQ(files.LiveObjects(), 0);
  EXPECT_EQ(app_->screen.frmMain.fraPastel.Caption(), "Pastel Accounts: ");

  // A month later the ageing period is no longer the present month: red.
  ASSERT_TRUE(Open({}, DateSerial(2024, 7, 2)));
  EXPECT_EQ(app_->screen.frmMain.lblAging.BackColor(), vbRed);
}

TEST_F(OpenPastelTest, VersionTable) {
  struct Case {
    std::string text;
    std::string product;
    std::string version;
  };
  const Case cases[] = {
      {"9\x01\x05", "Pastel Accounting 2007 (9)", "9.1.5"},
      {"8xx", "Pastel Accounting 2005 (8)", "8xx"},
      {"v7", "Pastel Accounting 2004 (7)", "v7"},
      {"V6", "Pastel Accounting 6.0", "V6"},
      {"6", "Pastel Partner 5.2", "6"},
      {"5", "Pastel Partner 5.0", "5"},
      {"", "Pastel Partner .0", ""},
      {"X1", "Pastel Accounting X1", "X1"},
  };
  for (const Case& c : cases) {
    const PastelProductVersion decided = DecidePastelProduct(c.text);
    EXPECT_EQ(decided.product, c.product) << c.text;
    EXPECT_EQ(decided.version, c.version) << c.text;
  }
  EXPECT_THROW(DecidePastelProduct("9"), RuntimeError);

  EXPECT_EQ(PastelNumberFormatFor(",2 R "), "\\R,###,##0.00");
  EXPECT_EQ(PastelNumberFormatFor(" 2R"), "2###2##0.");  // a blank separator is stripped away
  EXPECT_EQ(PastelNumberFormatFor(".3EUR"), "\\E\\U\\R.###.##0.000");
  EXPECT_EQ(PastelDateMaskFor("11-"), "##-##-##");
  EXPECT_EQ(PastelDateMaskFor("03."), "####.##.##");
  EXPECT_EQ(PastelDateMaskFor("04/"), "");
}

TEST_F(OpenPastelTest, OtherVersionsAskBeforeOpening) {
  Files()["AccPrmsy.dat"] = json::array({{{"1", "1"}, {"13", "8xx"}, {"14", "02/"}}});
  EXPECT_FALSE(Open({"No"}));
  EXPECT_TRUE(
      Has("== MsgBox | DANGER: Pastel Accounting 2005 (8) | Yes/No | Critical\n"
          "This version of Tolmen only works with Pastel Accounting 2007 (9)\n"
          "Unexpected errors may occur if you open files from other versions.\n\n"
          "Do you really want to open Pastel Accounting 2005 (8)  (8xx) on\n" +
          Folder() + " ?\n-> No\n"));
  EXPECT_EQ(app_->pastelFiles.LiveObjects(), 0);

  // An empty version field: the version stands at offset 904 of older files.
  Files()["AccPrmsy.dat"] = json::array({{{"1", "1"}, {"@904", "V7 "}}});
  EXPECT_TRUE(Open({"Yes"}));
  EXPECT_EQ(app_->pastel.PastelProduct, "Pastel Accounting 2004 (7)");
  EXPECT_EQ(app_->screen.frmMain.fraPastel.Caption(), "Pastel Accounts Ver V7");
  EXPECT_TRUE(Has("== MsgBox | DANGER: Pastel Accounting 2004 (7) |"));
  EXPECT_TRUE(app_->pastelFiles.Debtor().IsOpen);

  // The warning's default button is No.
  EXPECT_FALSE(Open({}));
}

TEST_F(OpenPastelTest, WrongFolderIsAskedForUntilCancelled) {
  const std::string empty = (root_ / "empty").string() + "/";
  fs::create_directories(empty);
  Start({"= " + empty, "Cancel"});
  MakeSet();
  fs::remove(Folder() + "AccPrmsy.dat");
  app_->screen.frmMain.Dir1.SetText(Folder());
  EXPECT_FALSE(OpenPastel(*app_));
  // The toolkit's test passes, the system parameter file is missing.
  EXPECT_TRUE(Has("== InputBox | " + kTitle + " | " + Folder() +
                  "\nTolmen was unable to open the selected set of Pastel Accounts!\n"
                  "BTrieve Status = 12 (" +
                  StatusText(12) + ") on AccPrmsy.DAT\n\nThe folder " + Folder() +
                  "\nmay not be a\nPastel Accounting 2007 (9) Data folder.\n\n"
                  "Please enter the correct folder, or Cancel.\n-> = " +
                  empty + "\n"));
  // A folder without any Pastel file fails at the toolkit's test.
  EXPECT_TRUE(Has("== InputBox | " + kTitle + " | " + empty +
                  "\nTolmen was unable to open the selected set of Pastel Accounts!\n"
                  "Pervasive Error: " +
                  StatusText(12) + "\non file " + empty + "ACCMASD.DAT\nThe folder " + empty +
                  " may not be a\nPastel Accounting 2007 (9) Data folder.\n"
                  "Please enter the correct folder, or Cancel.\n-> Cancel\n"));
  EXPECT_EQ(app_->pastelFiles.LiveObjects(), 0);
  EXPECT_EQ(app_->shell.BusyCount, 0);

  // A good folder typed into the box opens the set.
  set_ = DemoSet();
  MakeSet();
  Start({"= " + Folder()});
  app_->screen.frmMain.Dir1.SetText(empty);
  EXPECT_TRUE(OpenPastel(*app_));
  EXPECT_EQ(app_->pastel.PastelDataPath, Folder());
}

TEST_F(OpenPastelTest, MissingUserFileAnswersTrueWithNothingElseOpen) {
  Files()["AccUser.dat"] = nullptr;
  EXPECT_TRUE(Open({}));
  EXPECT_TRUE(
      Has("== MsgBox | Tolmen | OK | Critical\nThe User file " + Folder() +
          "accuser.dat could not be opened.\nBtrieve Status = 12 (" + StatusText(12) +
          ")\nPlease ensure that the selected folder is a Pastel data directory.\n-> OK\n"));
  EXPECT_EQ(app_->pastel.PastelDataPath, "");
  EXPECT_EQ(app_->pastelFiles.LiveObjects(), 2);  // the system parameters and the user file
  EXPECT_TRUE(app_->pastelFiles.UParm().IsOpen);
  EXPECT_FALSE(app_->pastelFiles.Debtor().IsOpen);
}

TEST_F(OpenPastelTest, EmptyFilesAreQuestionedOrPassed) {
  struct Case {
    std::string file;
    std::string question;  // "" for none
    std::string detail;
  };
  const Case cases[] = {
      {"AccMasD.dat", "There are no Debtors in Pastel yet.", " Opening Debtor File:"},
      {"accdcat.dat", "There are no Debtor Categories.", " Opening DrCat File:"},
      {"accDeliv.dat", "", ""},
  };
  for (const Case& c : cases) {
    for (const std::string answer : {"Yes", "No"}) {
      set_ = DemoSet();
      Files()[c.file] = json::array();
      const bool opened = Open({answer});
      if (c.question.empty()) {
        EXPECT_TRUE(opened) << c.file;
        EXPECT_EQ(Dialogs(), 0) << c.file;
        break;
      }
      EXPECT_TRUE(Has("== MsgBox | Tolmen - Opening Pastel | Yes/No | Question\n" + c.question +
                      "\nIs this OK?\n-> " + answer + "\n"))
          << c.file;
      EXPECT_EQ(opened, answer == "Yes") << c.file;
      if (answer == "No") {
        EXPECT_TRUE(Has("== MsgBox | " + kTitle +
                        " | OK | Critical\n"
                        "Pastel did not open successfully:\n" +
                        StatusText(9) + c.detail + "\n" + Folder() + c.file + "\n-> OK\n"))
            << c.file;
        EXPECT_EQ(app_->pastelFiles.LiveObjects(), 0);
      } else {
        app_->pastelFiles.Debtor().GET_EQUAL("ABE001");
        EXPECT_EQ(app_->pastelFiles.Debtor().STATUS_, c.file == "AccMasD.dat" ? 4 : 0);
      }
    }
  }
}

TEST_F(OpenPastelTest, Period13IsAskedOnceAndHeldUntilTheSavedDate) {
  Files()["accprmgl.dat"][0]["89"] = 1;  // Pastel still shows period 1 (ends March 2024)
  const std::string question =
      "== MsgBox | Period 13 Processing ON? | Yes/No | Question\n"
      "Is Pastel (Harrow & Finch Trading) in Period 13?\n-> Yes\n";
  const double may = DateSerial(2024, 5, 20);
  ASSERT_TRUE(Open({"Yes"}, may));
  EXPECT_EQ(Transcript(), question);
  EXPECT_EQ(app_->pastel.AgingPeriod, 13);
  EXPECT_EQ(app_->screen.frmMain.lblAging.Caption(),
            "Aging Note: Pastel is in Period 13 ending Feb 2025");
  EXPECT_EQ(app_->settings.GetSetting("Settings", "Period13on"), "6");
  EXPECT_EQ(app_->settings.GetSetting("Settings", "Period13to"), "01 Apr 2025");

  // Held: the same answer without a question (the settings file is the same one).
  ASSERT_TRUE(Open({}, DateSerial(2025, 3, 31)));
  EXPECT_EQ(Transcript(), "");
  EXPECT_EQ(app_->pastel.AgingPeriod, 13);
  // Past the saved date it is asked again.
  ASSERT_TRUE(Open({"No"}, DateSerial(2025, 4, 2)));
  EXPECT_EQ(Dialogs(), 1);
  EXPECT_EQ(app_->pastel.AgingPeriod, 1);

  // A No is held as well.
  fs::remove(root_ / "settings.ini");
  ASSERT_TRUE(Open({"No"}, may));
  EXPECT_EQ(Dialogs(), 1);
  ASSERT_TRUE(Open({}, DateSerial(2024, 6, 1)));
  EXPECT_EQ(Dialogs(), 0);
  EXPECT_EQ(app_->pastel.AgingPeriod, 1);

  // Still within period 1's month, or with the switch off: no question.
  fs::remove(root_ / "settings.ini");
  ASSERT_TRUE(Open({}, DateSerial(2024, 3, 20)));
  EXPECT_EQ(Dialogs(), 0);
  Files()["accprmgl.dat"][0]["681"] = 0;
  ASSERT_TRUE(Open({}, may));
  EXPECT_EQ(Dialogs(), 0);
}

TEST_F(OpenPastelTest, ClosePasFilesClosesOnceAndShutDownUsesIt) {
  ASSERT_TRUE(Open({}));
  std::vector<std::string> stages;
  app_->pastelFiles.closeClientFile = [&](Tolmen& app) {
    stages.push_back(app.run.CurrentSection);
    ClosePasFiles(app);  // re-entry does nothing
  };
  app_->run.CurrentSection = "Sub Test";
  ClosePasFiles(*app_);
  EXPECT_EQ(stages, std::vector<std::string>{"Closing Clients in ClosePasFiles from Sub Test"});
  EXPECT_EQ(app_->pastelFiles.LiveObjects(), 0);
  ClosePasFiles(*app_);  // nothing open: harmless
  EXPECT_EQ(stages.size(), 2u);

  ASSERT_TRUE(Open({}));
  app_->pastelFiles.closeClientFile = nullptr;
  pasDebtor& debtor = app_->pastelFiles.Debtor();
  EXPECT_TRUE(debtor.IsOpen);
  EXPECT_THROW(ShutDown(*app_), ProcessEnd);
  EXPECT_EQ(app_->pastelFiles.LiveObjects(), 0);
}

}  // namespace
}  // namespace tolmen
