// The current list and the window's states, as a run of the system sees them.
#include <gtest/gtest.h>

#include "Attached.h"

namespace tolmen::test {
namespace {

using ListTest = AttachedTest;

// The name order itself is walked by the client list's test in maximizer.
TEST_F(ListTest, ListStaysOnTheLastLineAndReadsTheFieldsOfTheCurrentOne) {
  record_->ListAll("clients");
  ASSERT_EQ(record_->GetListCount(), 12);
  for (int line = 1; line < 14; ++line) record_->ScrollList("LineDown");
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
  record_->ScrollList("LineDown");
  record_->ScrollList("LineDown");
  EXPECT_EQ(record_->GetFieldValue("Contact_Number"), "1");
  EXPECT_EQ(record_->GetFieldValue("RecType"), "31");

  EXPECT_EQ(maxsim_.Ctl({"select", "240320/0008"}).status, 1);  // not in this list
  EXPECT_EQ(maxsim_.Ctl({"list", "no-such-id"}).status, 1);
  EXPECT_EQ(record_->GetListCount(), 3);  // a refused list leaves the list as it was

  Ctl({"list"});
  EXPECT_EQ(record_->GetListCount(), 0);
  record_->ScrollList("LineDown");
  EXPECT_EQ(record_->GetFieldValue("Identification"), "");
  EXPECT_EQ(record_->GetAddressID(), "-1");
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

// Busy and dialog answers are met through the maximizer layer's attach and client list tests.
TEST_F(ListTest, VisibilityAlarmAndWindowShowInTheStateAndTheJournalQuotesArguments) {
  Ctl({"journal", "clear"});
  EXPECT_EQ(app_->GetVisibilityState(), "normal");
  app_->SetVisibilityState("Hide");
  EXPECT_EQ(app_->GetVisibilityState(), "hidden");
  app_->SetAlarm("Off");
  app_->ActivateWindow("client");
  std::string state;
  for (const std::string& line : Ctl({"state"})) state += line;
  EXPECT_NE(state.find("\"alarm\": \"off\""), std::string::npos) << state;
  EXPECT_NE(state.find("\"visibility\": \"hidden\""), std::string::npos) << state;
  EXPECT_NE(state.find("\"window\": \"client\""), std::string::npos) << state;
  app_->SetVisibilityState("Restore");
  EXPECT_EQ(app_->GetVisibilityState(), "normal");
  record_->SetFieldValue("Invoice Message", "Say \"thanks\"");
  Ctl({"busy", "1"});  // control commands are not calls: they stay out of the journal
  EXPECT_EQ(
      Ctl({"journal"}),
      (std::vector<std::string>{
          "GetVisibilityState()", "SetVisibilityState(\"Hide\")", "GetVisibilityState()",
          "SetAlarm(\"Off\")", "ActivateWindow(\"client\")", "SetVisibilityState(\"Restore\")",
          "GetVisibilityState()", "SetFieldValue(\"Invoice Message\", \"Say \"\"thanks\"\"\")"}));
}

}  // namespace
}  // namespace tolmen::test
