// Readying a real maxsim for a run and walking its list: the waits on the virtual clock, the calls
// Maximizer receives, the client file look-up, and the ends of the list.
#include <chrono>
#include <cmath>

#include "common/MaximizerTestKit.h"
#include "maximizer/ClientList.h"
#include "maximizer/OpenMaximizer.h"
#include "runtime/RuntimeError.h"

namespace tolmen::test {
namespace {

constexpr double kSecond = 1.0 / 86400.0;

class ClientListTest : public MaximizerTest {
 protected:
  // Serves the book, starts the application with the script and accepts the database.
  void Ready(const nlohmann::json& book, const std::vector<std::string>& script = {}) {
    ServeBook(book);
    Start(script);
    ASSERT_TRUE(OpenMaximizerOLE(*app_));
    maxsim_.TakeJournal();
  }
  clsClientsOLE& List() { return app_->maximizer.ClientList(); }
  // Walks the list as the client loop does, the top, then down until STATUS_ leaves 0: each
  // line's identification and sequence number.
  std::vector<std::string> Walk() {
    std::vector<std::string> turns;
    List().IO(12);
    while (List().STATUS_ == 0) {
      turns.push_back(List().Clie_id() + " " + List().seq_no());
      List().IO(6);
    }
    return turns;
  }
  double SecondsSince(double start) const { return std::round((clock_.Now() - start) / kSecond); }
};

TEST_F(ClientListTest, AGrowingListIsAwaitedScrolledToTheTopWalkedAndGivenBack) {
  nlohmann::json book = DemoBook();
  book["clients"][2]["last_change"] = "2026-10-05 14:30:15";  // John Smith
  Ready(book);
  ASSERT_EQ(maxsim_.Ctl({"grow", "10"}).status, 0);
  ASSERT_EQ(maxsim_.Ctl({"busy", "2"}).status, 0);
  app_->options.ListAll = true;
  const double start = clock_.Now();
  OpenClientList(*app_);

  // Eleven seconds of counting (one a second while it grows), three of scrolling.
  EXPECT_EQ(SecondsSince(start), 14);
  const std::vector<std::string> log = LogLines();
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0], "10 tries to get Maximizer Record Count (12).");
  EXPECT_EQ(log[1], "2 tries to get to top Maximizer Record <240115/0001>");
  EXPECT_EQ(app_->screen.frmMain.lblProgress(2).Caption(),
            "Maximizer is Scrolling to the Top of the List of Clients......");
  EXPECT_EQ(app_->screen.frmMain.lblProgress(1).Caption(), "12");
  EXPECT_FALSE(script_->BusyPointer());

  std::vector<std::string> journal = maxsim_.TakeJournal();
  ExpectInOrder(journal, {"GetVisibilityState()", "SetVisibilityState(\"Hide\")",
                          "GetBusyIndicator()", "GetBusyIndicator()", "GetBusyIndicator()",
                          "SetAlarm(\"Off\")", "ActivateWindow(\"client\")", "ListAll(\"clients\")",
                          "GetListCount()", "GetFieldValue(\"Identification\")",
                          "ScrollList(\"Top\")", "ScrollList(\"Top\")", "ScrollList(\"Top\")"});
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "GetListCount()"), 11);
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "ScrollList(\"Top\")"), 3);

  // Name order; the last line repeats once before the end, when the position reaches the count.
  EXPECT_EQ(Walk(), (std::vector<std::string>{
                        "240115/0001 1", "240210/0004 5", "240202/0003 4", "240312/0007 8",
                        "240402/0009 10", "240415/0010 11", "240301/KAROO-LIVESTOCK-AUCTION 6",
                        // Priya Naidoo is contact 1 of Acme: the look-up always takes contact 0.
                        "240115/0001 1", "240420/0011 12", "240118/0002 3", "240305/0006 7",
                        "240320/0008 9", "240320/0008 9"}));
  EXPECT_EQ(List().STATUS_, 9);
  EXPECT_EQ(app_->maximizer.ListPosition, 12);
  EXPECT_EQ(List().mach_db_id(), "1");

  // The members read the current client's fields; John Smith carries his last change.
  ASSERT_EQ(maxsim_.Ctl({"select", "240118/0002"}).status, 0);
  List().IO(5);
  EXPECT_EQ(List().Name() + "|" + List().FirstName() + "|" + List().Rec_type() + "|" +
                List().LastModifyDate() + "|" + List().LastModifyTime(),
            "Smith|John|2|\x05\x0A\xEA\x07|14:30:15");
  ASSERT_EQ(maxsim_.Ctl({"select", "240115/0001"}).status, 0);
  // No last name: the client name.
  EXPECT_EQ(List().Name() + "|" + List().Firm() + "|" + List().City() + "|" + List().Phone2() +
                "|" + List().Phone2Description() + "|" + List().Initial(),
            "Acme Trading (Pty) Ltd|Acme Trading (Pty) Ltd|Johannesburg|011 555 0101|Fax|");
  EXPECT_EQ(List().Cont_no(), 0);

  maxsim_.TakeJournal();
  CloseClientList(*app_);
  EXPECT_EQ(maxsim_.TakeJournal(),
            (std::vector<std::string>{"SetAlarm(\"On\")", "SetVisibilityState(\"Restore\")"}));
  EXPECT_FALSE(app_->maximizer.Attached());
}

TEST_F(ClientListTest, EmptyAndOneClientListsAndKeepMaximizerVisible) {
  Ready(DemoBook());
  ASSERT_EQ(maxsim_.Ctl({"list"}).status, 0);
  app_->screen.frmMain.mnuOptnShowMax.SetChecked(true);
  double start = clock_.Now();
  OpenClientList(*app_);
  EXPECT_EQ(SecondsSince(start), 4);
  EXPECT_EQ(LogLines(), (std::vector<std::string>{"0 tries to get Maximizer Record Count (0).",
                                                  "2 tries to get to top Maximizer Record <>"}));
  std::vector<std::string> journal = maxsim_.TakeJournal();
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "SetVisibilityState(\"Hide\")"), 0);
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "ListAll(\"clients\")"), 0);

  ASSERT_EQ(maxsim_.Ctl({"list", "240118/0002"}).status, 0);
  OpenClientList(*app_);
  EXPECT_EQ(LogLines().at(2), "1 tries to get Maximizer Record Count (1).");
  List().IO(12);
  EXPECT_EQ(List().STATUS_, 0);
  EXPECT_EQ(List().seq_no(), "3");
  List().IO(6);  // position 0 is below the count: one more line, the same client
  EXPECT_EQ(List().STATUS_, 0);
  EXPECT_EQ(app_->maximizer.ListPosition, 1);
  List().IO(6);
  EXPECT_EQ(List().STATUS_, 9);
  EXPECT_EQ(app_->maximizer.ListPosition, 1);
}

TEST_F(ClientListTest, AStopDuringTheWaitsGoesNoFurther) {
  Ready(DemoBook());
  ASSERT_EQ(maxsim_.Ctl({"grow", "10"}).status, 0);
  app_->options.ListAll = true;
  int yields = 0;
  ui_->beforeYield = [&] {
    if (++yields == 3) app_->run.StopRequest = kStopCancel;  // the user cancels during the count
  };
  const double start = clock_.Now();
  OpenClientList(*app_);
  EXPECT_EQ(SecondsSince(start), 3);  // the third second ends in the stop
  EXPECT_TRUE(LogLines().empty());
  const std::vector<std::string> journal = maxsim_.TakeJournal();
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "GetListCount()"), 2);
  EXPECT_EQ(std::count(journal.begin(), journal.end(), "ScrollList(\"Top\")"), 0);
}

TEST_F(ClientListTest, LongAndShortIdentificationsFindTheirRecords) {
  nlohmann::json book = DemoBook();
  book["clients"].push_back({{"Identification", "2404/ABCDE"},
                             {"RecType", 1},
                             {"Contact_Number", 0},
                             {"Client_Name", "Short Id Traders"}});
  Ready(book);
  // Cut to 24 characters, and filled with NUL to 24: both are keys of the client file.
  ASSERT_EQ(maxsim_.Ctl({"list", "2404/ABCDE", "240301/KAROO-LIVESTOCK-AUCTION"}).status, 0);
  OpenClientList(*app_);
  EXPECT_EQ(Walk(), (std::vector<std::string>{"2404/ABCDE 13", "240301/KAROO-LIVESTOCK-AUCTION 6",
                                              "240301/KAROO-LIVESTOCK-AUCTION 6"}));
  EXPECT_EQ(MaxClientKey("240301/KAROO-LIVESTOCK-AUCTION"),
            std::string("240301/KAROO-LIVESTOCK-A") + std::string(2, '\0'));
  EXPECT_EQ(MaxClientKey(" 2404/ABCDE "), "2404/ABCDE" + std::string(16, '\0'));
}

TEST_F(ClientListTest, LongerClientRecordsAreAcceptedAndCounted) {
  nlohmann::json book = DemoBook();
  book["client_record_length"] = 4000;
  // The open reads the first record too, which asks; a Get Equal is accepted without asking.
  Ready(book, {"Yes"});
  ASSERT_EQ(maxsim_.Ctl({"list", "240210/0004", "240402/0009"}).status, 0);
  OpenClientList(*app_);
  EXPECT_EQ(Count("== MsgBox | Kludge in Tolmen 1.0.0 for Maximizer 8, 9 and later | Yes/No | "
                  "Critical\nAccept Unexpected BTrieve Status 22 in maxClients?\n"),
            1);
  EXPECT_EQ(Walk(),
            (std::vector<std::string>{"240210/0004 5", "240402/0009 10", "240402/0009 10"}));
  EXPECT_EQ(app_->run.AcceptedStatus22, 4);  // the open and three look-ups
  EXPECT_EQ(app_->run.ErrorCount, 1);
  EXPECT_EQ(Count("== MsgBox"), 1);
}

TEST_F(ClientListTest, MaximizerKilledDuringARunIsAnErrorTheUserAnswersAndNothingHangs) {
  const std::string folder = ServeBook();
  Start();
  ASSERT_TRUE(OpenMaximizerOLE(*app_));
  ASSERT_EQ(maxsim_.Ctl({"grow", "10"}).status, 0);
  app_->options.ListAll = true;
  int yields = 0;
  ui_->beforeYield = [&] {
    if (++yields == 3) maxsim_.Kill();
  };
  const auto began = std::chrono::steady_clock::now();
  try {
    OpenClientList(*app_);
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    // Gone before the request went out, or before the answer came back.
    if (error.Number() == 462)
      EXPECT_EQ(error.Description(), "The remote server machine does not exist or is unavailable");
    else
      EXPECT_EQ(error.Description(), "Automation error: The remote procedure call failed.");
  }
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(3));
  ui_->beforeYield = nullptr;

  // The next attempt reports the failed link as an answerable message and lets it go.
  EXPECT_FALSE(OpenMaximizerOLE(*app_));
  EXPECT_EQ(Transcript(),
            "== MsgBox | Tolmen | OK | None\n"
            "Error 462\n"
            "The remote server machine does not exist or is unavailable\n"
            "-> OK\n");
  EXPECT_FALSE(app_->maximizer.Attached());
  ASSERT_TRUE(maxsim_.Serve(folder));
  EXPECT_TRUE(OpenMaximizerOLE(*app_));
  // Giving Maximizer back after a failure still lets the objects go.
  maxsim_.Kill();
  EXPECT_THROW(CloseClientList(*app_), RuntimeError);
  EXPECT_FALSE(app_->maximizer.Attached());
}

}  // namespace
}  // namespace tolmen::test
