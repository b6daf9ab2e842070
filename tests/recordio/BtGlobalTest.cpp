// GlobalIO against real record files in a temporary folder, with the script front-end playing
// the user and a virtual clock.
#include <gtest/gtest.h>

#include <sstream>

#include "common/TestText.h"
#include "platform/ui/ScriptUi.h"
#include "recordio/BtGlobal.h"
#include "recordio/BtObject.h"
#include "recordmanager/EngineTestUtil.h"
#include "runtime/DateTime.h"
#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

using test::ReadFile;

// A record class with a plain image, as the record classes keep theirs.
class TestRecord : public BtObject {
 public:
  TestRecord(std::string className, int32_t recordLength)
      : BtObject(std::move(className), recordLength),
        image(static_cast<size_t>(recordLength), ' ') {}
  void MoveBuffer(int16_t direction) override {
    if (direction != 0)
      image = DataBuf.substr(0, static_cast<size_t>(RecordLength));
    else if (!BufferHeld)
      DataBuf = image;
    BufferHeld = false;
  }
  std::string image;
};

class GlobalIOTest : public ::testing::Test {
 protected:
  // Starts the application with the given script lines as the user.
  void Start(const std::vector<std::string>& script) {
    ui_ = std::make_unique<ScriptUi>(script, &transcript_, clock_, "Tolmen");
    app_ = std::make_unique<Tolmen>(MakeAppInfo(dir_.Path().string(), "1.0.0"), *ui_, clock_);
  }

  // Creates a record file with one 4-byte key at position 1 and the given records.
  std::string MakeFile(const std::string& name, uint16_t recordLength,
                       const std::vector<std::string>& records) {
    FileDef def{
        recordLength, 4096, false, {KeyDef{false, false, {SegmentDef{1, 4, KeyType::String}}}}};
    const std::string path = dir_.File(name);
    EXPECT_EQ(test::CreateFile(app_->engine, path, def), 0);
    test::Client file(app_->engine);
    EXPECT_EQ(file.Open(path), 0);
    for (const std::string& record : records) EXPECT_EQ(file.Insert(record), 0);
    EXPECT_EQ(file.Call(kOpClose), 0);
    return path;
  }

  test::TempDir dir_{"tolmen-btglobal-"};
  VirtualClock clock_{DateSerial(2026, 11, 23) + TimeSerial(9, 30, 0)};
  std::ostringstream transcript_;
  std::unique_ptr<ScriptUi> ui_;
  std::unique_ptr<Tolmen> app_;
};

// Closed files, the open's first record, the end of the file, empty and missing files: no dialog.
TEST_F(GlobalIOTest, NormalOutcomesNeedNoDialog) {
  Start({});
  TestRecord closed("clsTest", 20);
  app_->bt.BtStatus = 77;  // untouched unless the record manager is called
  GlobalIO(*app_, closed, 5, std::string("KEY1"));
  EXPECT_EQ(closed.STATUS_, 3);
  EXPECT_EQ(app_->bt.BtStatus, 77);

  const std::string path = MakeFile("Data.dat", 10, {"BBBBbbbbbb", "AAAAaaaaaa"});
  TestRecord record("clsTest", 10);
  GlobalIO(*app_, record, 0, "\"" + path + "\"");
  EXPECT_TRUE(record.IsOpen);
  EXPECT_EQ(record.STATUS_, 0);
  EXPECT_EQ(record.image, "AAAAaaaaaa");
  EXPECT_EQ(record.DBLen, 10);

  GlobalIO(*app_, record, 6);
  EXPECT_EQ(record.image, "BBBBbbbbbb");
  GlobalIO(*app_, record, 6);  // end of file: accepted, no dialog
  EXPECT_EQ(record.STATUS_, 9);

  GlobalIO(*app_, record, 1);
  EXPECT_FALSE(record.IsOpen);
  GlobalIO(*app_, record, 1);  // closing again: nothing reaches the engine
  EXPECT_EQ(record.STATUS_, 3);

  TestRecord empty("clsTest", 10);
  GlobalIO(*app_, empty, 0, MakeFile("Empty.dat", 10, {}));
  EXPECT_TRUE(empty.IsOpen);
  EXPECT_EQ(empty.STATUS_, 9);  // the Get First behind the open

  TestRecord missing("clsTest", 10);
  GlobalIO(*app_, missing, 0, dir_.File("Missing.dat"));
  EXPECT_FALSE(missing.IsOpen);
  EXPECT_EQ(missing.STATUS_, 12);
  EXPECT_EQ(transcript_.str(), "");
}

TEST_F(GlobalIOTest, Status22OnTheClientFileIsCountedForGetEqualAndAskedOtherwise) {
  Start({"Yes"});
  const std::string path = MakeFile("MXZC.MAX", 40, {"C001" + std::string(36, 'x')});
  TestRecord clients("maxCLIENTS", 20);
  app_->run.CurrentSection = "Reading Clients";
  // The open's Get First meets the long record: asked, and accepted with Yes.
  GlobalIO(*app_, clients, 0, path);
  EXPECT_EQ(clients.STATUS_, 0);
  EXPECT_EQ(app_->run.AcceptedStatus22, 1);
  EXPECT_EQ(app_->run.ErrorCount, 1);
  EXPECT_EQ(transcript_.str(),
            "== MsgBox | Kludge in Tolmen 1.0.0 for Maximizer 8, 9 and later | Yes/No | "
            "Critical\n"
            "Accept Unexpected BTrieve Status 22 in maxClients?\n"
            "Operation = Reading Clients\n"
            "Operation Code = Open (0)\n"
            "-> Yes\n");

  // A Get Equal with the short buffer is counted without a question.
  GlobalIO(*app_, clients, 5, std::string("C001"));
  EXPECT_EQ(clients.STATUS_, 0);
  EXPECT_EQ(clients.image, "C001" + std::string(16, 'x'));
  EXPECT_EQ(app_->run.AcceptedStatus22, 2);
  EXPECT_EQ(app_->run.ErrorCount, 1);

  app_->log.Close();
  EXPECT_EQ(ReadFile(dir_.File("Tolmen.LOG")),
            "### Error 1: Unexpected BTrieve Status 22 in maxClients --Accepted\r\n");
}

TEST_F(GlobalIOTest, UnexpectedStatusShowsTheFatalDialogAndCarryingOnStops) {
  // Print, put on the clipboard, close the dialog, then "try to carry on".
  Start({"Yes", "No", "Cancel", "No"});
  const std::string path = MakeFile("ACCTEST.DAT", 10, {"AAAAaaaaaa"});
  app_->pastel.PastelProduct = "Pastel Accounting 2007 (9)";
  app_->pastel.PastelVersion = "9.1.5";
  TestRecord record("clsTest", 10);
  GlobalIO(*app_, record, 0, path);
  ASSERT_TRUE(record.IsOpen);
  app_->run.CurrentSection = "Reading Debtors";
  record.KeyNum = 3;  // the file has one key: status 6
  EXPECT_THROW(
      GlobalIO(*app_, record, 5, std::string("AAAA"), std::nullopt, std::string("Find Debtor")),
      ProcessEnd);

  const std::string message =
      "Unexpected BTrieve Status in Sub GlobalIO - Program Cannot Continue!\n"
      "23 November 2026  09:30\n"
      "Pastel Accounting 2007 (9)    = 9.1.5\n"
      "BTrieve Status = 6 (Invalid Key Number)\n"
      "For details, see Web Address:\n"
      "https://www.pervasive.com/support/technical/codes2k/1statcod5.html\n"
      "(this is now on the Clipboard for you to paste into your Web Browser)\n"
      "Operation = Reading Debtors\n"
      "File Name = clsTest\n"
      "Operation Code = Get Equal (5)\n"
      "File Location = " +
      path +
      "\n"
      "Key = 3\n"
      "Key Buffer = AAAA\n"
      "Code Section = Find Debtor\n"
      "If restarting the PC does not fix this, contact your Supplier and e-mail them this "
      "message.\n"
      "Would you like to Print this Message?\n"
      "Yes = Print to Transcript\n"
      "No  = Put Message on the Clipboard, to paste into an e-mail.\n"
      "Cancel = Close down, or proceed at your own risk!\n";
  const std::string header =
      "== MsgBox | Tolmen 1.0.0 for Maximizer 8, 9 and later | Yes/No/Cancel | Critical\n";
  EXPECT_EQ(transcript_.str(), header + message + "-> Yes\n== Print\n" + message + header +
                                   message + "-> No\n" + header + message + "-> Cancel\n" +
                                   "== MsgBox | Tolmen | Yes/No | Critical\n"
                                   "Would you like to Shut Down Tolmen Now?\n"
                                   "Yes = Close down Now!\n"
                                   "No  = Set debugging high, and try to carry on.  MORE "
                                   "ERRORS MAY OCCUR!\n"
                                   "-> No\n");

  // The clipboard holds the message less its two last lines, with the note replaced.
  std::string clip = ui_->ClipboardText();
  EXPECT_NE(clip.find("(replaced on Clipboard)"), std::string::npos);
  EXPECT_EQ(clip.find("Cancel = Close down"), std::string::npos);
  EXPECT_EQ(clip.find("No  = Put Message"), std::string::npos);
  EXPECT_NE(clip.find("Yes = Print to Transcript"), std::string::npos);

  EXPECT_EQ(app_->shell.DebugLevel, 4);
  app_->log.Close();
  const std::string log = ReadFile(dir_.File("Tolmen.LOG"));
  EXPECT_NE(log.find("Unexpected BTrieve Status in Sub GlobalIO"), std::string::npos);
  EXPECT_NE(log.find("### SET Debug=4: Proceeding in GlobalIO.\r\n"), std::string::npos);
}

TEST_F(GlobalIOTest, VersionLineNamesPastelFilesWhateverTheCaseOfTheirName) {
  const struct {
    const char* name;
    bool versionShown;
  } kCases[] = {
      {"ACCTEST.DAT", true}, {"AccMasD.dat", true}, {"accprmgl.dat", true}, {"MaxSeed.dat", false}};
  for (const auto& c : kCases) {
    app_.reset();
    transcript_.str("");
    Start({"Cancel", "Yes"});
    app_->pastel.PastelProduct = "Pastel Accounting 2007 (9)";
    app_->pastel.PastelVersion = "9.1.5";
    TestRecord record("clsTest", 10);
    GlobalIO(*app_, record, 0, MakeFile(c.name, 10, {"AAAAaaaaaa"}));
    ASSERT_TRUE(record.IsOpen) << c.name;
    record.KeyNum = 3;  // the file has one key: status 6
    EXPECT_THROW(GlobalIO(*app_, record, 5, std::string("AAAA")), ProcessEnd);
    EXPECT_EQ(
        transcript_.str().find("Pastel Accounting 2007 (9)    = 9.1.5\n") != std::string::npos,
        c.versionShown)
        << c.name;
  }
}

TEST_F(GlobalIOTest, ShuttingDownStopsTheRecordManager) {
  Start({"Cancel", "Yes"});
  const std::string path = MakeFile("Data.dat", 10, {"AAAAaaaaaa"});
  TestRecord record("clsTest", 10);
  GlobalIO(*app_, record, 0, path);
  ASSERT_TRUE(record.IsOpen);
  // Inserting the record read is a duplicate key, and "" accepts no status.
  EXPECT_THROW(GlobalIO(*app_, record, 2, std::nullopt, std::string("")), ProcessEnd);
  EXPECT_EQ(app_->run.CurrentSection, "Sub ShutDown");
  EXPECT_NE(transcript_.str().find("BTrieve Status = 5 (Duplicate Key Value)"), std::string::npos);

  // Stop closed every file: the position block names no open file any more.
  std::string pos = record.PosBlk, data(10, ' '), key(255, ' ');
  int32_t length = 10;
  EXPECT_EQ(app_->engine.BTRCALL(kOpGetFirst, pos, data, length, key, 255, 0), 3);
}

TEST_F(GlobalIOTest, DebugLevelsAddTheirLines) {
  Start({});
  const std::string path = MakeFile("Data.dat", 6, {"AB\tCDx"});
  app_->shell.DebugLevel = 4;
  TestRecord record("clsTest", 6);
  GlobalIO(*app_, record, 0, path);
  GlobalIO(*app_, record, 5, std::string("AB\tC"));
  const std::string log = ReadFile(dir_.File("Tolmen.LOG"));
  EXPECT_NE(log.find("# Debug: >>GlobalIO clsTest\r\n"), std::string::npos);
  EXPECT_NE(
      log.find("# Debug: GlobalIO BGETEQU|0|255|AB{09}C" + std::string(251, ' ') + "|6|AB{09}CDx|"),
      std::string::npos);
  EXPECT_FALSE(app_->log.IsOpen());  // closed after each entry above level 0
}

}  // namespace
}  // namespace tolmen
