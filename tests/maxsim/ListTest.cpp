// The current list and the window's states, as a run of the system sees them.
#include <gtest/gtest.h>

#include "Attached.h"
#include "common/TestText.h"

namespace tolmen::test {
namespace {

// The demo's records in name order (Last_Name, or Client_Name for a company).
const std::vector<std::string> kNameOrder = {
    "240115/0001",  // Acme Trading (Pty) Ltd
    "240210/0004",  // Bluegum Nurseries
    "240202/0003",  // Botha
    "240312/0007",  // Cape Fasteners CC
    "240402/0009",  // Dlamini
    "240415/0010",  // Eagle Print & Copy
    "240301/KAROO-LIVESTOCK-AUCTION",
    "240115/0001",  // Naidoo, a contact of Acme
    "240420/0011",  // O'Brien
    "240118/0002",  // Smith
    "240305/0006",  // van der Merwe
    "240320/0008",  // Zulu Coffee Roasters
};

using ListTest = AttachedTest;

TEST_F(ListTest, ListWalksInNameOrderAndStaysOnTheLastLine) {
  record_->ListAll("clients");
  ASSERT_EQ(record_->GetListCount(), 12);
  std::vector<std::string> seen = {record_->GetFieldValue("Identification")};
  for (int line = 1; line < 14; ++line) {  // two more LineDowns than there are lines
    record_->ScrollList("LineDown");
    seen.push_back(record_->GetFieldValue("Identification"));
  }
  std::vector<std::string> expected = kNameOrder;
  expected.push_back(kNameOrder.back());
  expected.push_back(kNameOrder.back());
  EXPECT_EQ(seen, expected);
  EXPECT_EQ(record_->GetFieldValue("Client_Name"), "Zulu Coffee Roasters");

  record_->ScrollList("Top");
  EXPECT_EQ(record_->GetFieldValue("Client_Name"), "Acme Trading (Pty) Ltd");
  record_->ScrollList("LineDown");
  EXPECT_EQ(record_->GetFieldValue("RecType"), "1");
  EXPECT_EQ(record_->GetFieldValue("Use_Client_Name"), "0");  // not set: a number still
  EXPECT_EQ(record_->GetFieldValue("No Such Field"), "");
}

TEST_F(ListTest, ControlListSelectAndAnEmptyList) {
  Ctl({"list", "240118/0002", "240115/0001"});
  ASSERT_EQ(record_->GetListCount(), 3);  // Smith, then Acme with its contact
  EXPECT_EQ(record_->GetFieldValue("Last_Name"), "Smith");
  record_->ScrollList("LineDown");
  record_->ScrollList("LineDown");
  EXPECT_EQ(record_->GetFieldValue("Contact_Number"), "1");
  EXPECT_EQ(record_->GetFieldValue("RecType"), "31");

  Ctl({"select", "240118/0002"});
  EXPECT_EQ(record_->GetFieldValue("First_Name"), "John");
  EXPECT_EQ(maxsim_.Ctl({"select", "240320/0008"}).status, 1);  // not in this list
  EXPECT_EQ(maxsim_.Ctl({"list", "no-such-id"}).status, 1);
  EXPECT_EQ(record_->GetListCount(), 3);  // a refused list leaves the list as it was

  Ctl({"list"});
  EXPECT_EQ(record_->GetListCount(), 0);
  record_->ScrollList("LineDown");
  EXPECT_EQ(record_->GetFieldValue("Identification"), "");
  EXPECT_EQ(record_->GetAddressID(), "-1");
  record_->ListAll("clients");
  EXPECT_EQ(record_->GetListCount(), 12);
}

TEST_F(ListTest, GrowingCountFollowsTheCallersClockThenStands) {
  Ctl({"grow", "10"});
  record_->ListAll("clients");
  std::vector<int32_t> counts;
  for (int second = 0; second <= 12; ++second) {
    counts.push_back(record_->GetListCount());
    clock_.Sleep(1.0);
  }
  const std::vector<int32_t> expected = {0, 1, 2, 3, 4, 6, 7, 8, 9, 10, 12, 12, 12};
  EXPECT_EQ(counts, expected);

  // A list filled by a control command grows from the first call after it.
  Ctl({"list", "240118/0002", "240115/0001", "240202/0003", "240210/0004",
       "240301/KAROO-LIVESTOCK-AUCTION"});
  clock_.Sleep(100.0);  // long before the fill: must not count
  EXPECT_EQ(record_->GetListCount(), 0);
  clock_.Sleep(4.0);
  EXPECT_EQ(record_->GetListCount(), 2);
  clock_.Sleep(6.0);
  EXPECT_EQ(record_->GetListCount(), 6);
}

TEST_F(ListTest, BusyDialogVisibilityAndAlarm) {
  Ctl({"busy", "2"});
  EXPECT_TRUE(app_->GetBusyIndicator());
  EXPECT_TRUE(app_->GetBusyIndicator());
  EXPECT_FALSE(app_->GetBusyIndicator());

  Ctl({"dialog", "on"});
  EXPECT_EQ(app_->GetDatabaseList(), "error");
  EXPECT_EQ(app_->GetDatabaseList(), "error");
  Ctl({"dialog", "off"});
  // The part behind the first comma is the path the application object reports.
  EXPECT_EQ(ReadFile(app_->GetDatabaseList()),
            "Demo Address Book," + app_->GetCurrentDBPath() + "\r\n");

  EXPECT_EQ(app_->GetVisibilityState(), "normal");
  app_->SetVisibilityState("Hide");
  EXPECT_EQ(app_->GetVisibilityState(), "hidden");
  app_->SetAlarm("Off");
  app_->ActivateWindow("client");
  const std::string state = [&] {
    std::string all;
    for (const std::string& line : Ctl({"state"})) all += line;
    return all;
  }();
  EXPECT_NE(state.find("\"alarm\": \"off\""), std::string::npos) << state;
  EXPECT_NE(state.find("\"visibility\": \"hidden\""), std::string::npos) << state;
  EXPECT_NE(state.find("\"window\": \"client\""), std::string::npos) << state;
  app_->SetVisibilityState("Restore");
  EXPECT_EQ(app_->GetVisibilityState(), "normal");
}

TEST_F(ListTest, JournalListsTheCallsInOrder) {
  Ctl({"journal", "clear"});
  const std::string saved = app_->GetVisibilityState();
  app_->SetVisibilityState("Hide");
  app_->SetAlarm("Off");
  app_->ActivateWindow("client");
  record_->ListAll("clients");
  record_->GetListCount();
  record_->ScrollList("Top");
  record_->GetFieldValue("E-mail Address");
  record_->SetFieldValue("Invoice Message", "Say \"thanks\"");
  app_->SetAlarm("On");
  app_->SetVisibilityState(saved == "normal" ? "Restore" : saved);
  Ctl({"busy", "1"});  // control commands are not calls: they stay out of the journal
  const std::vector<std::string> expected = {
      "GetVisibilityState()",
      "SetVisibilityState(\"Hide\")",
      "SetAlarm(\"Off\")",
      "ActivateWindow(\"client\")",
      "ListAll(\"clients\")",
      "GetListCount()",
      "ScrollList(\"Top\")",
      "GetFieldValue(\"E-mail Address\")",
      "SetFieldValue(\"Invoice Message\", \"Say \"\"thanks\"\"\")",
      "SetAlarm(\"On\")",
      "SetVisibilityState(\"Restore\")"};
  EXPECT_EQ(Ctl({"journal"}), expected);
}

}  // namespace
}  // namespace tolmen::test
