// Proposals for new account codes, looked up in a real debtor file and confirmed through the
// script front-end's input box.
#include <gtest/gtest.h>

#include "pastel/OpenPastel.h"
#include "pastel/PastelTestSet.h"
#include "transfer/AccountCodes.h"

namespace tolmen {
namespace {

class NewCodeTest : public testing::PastelSetTest {
 protected:
  // The set holds the demo's debtors ABE001, CAR001 and DUN001 and these.
  void Open(const std::vector<std::string>& script) {
    for (const char* code : {"SMIT07", "SMIT08", "ABCD99", "999999", "ZZ", "ZZ99", "AA00"})
      Files()["AccMasD.dat"].push_back({{"2", code}, {"3", std::string("Debtor ") + code}});
    Start(script);
    MakeSet();
    app_->screen.frmMain.Dir1.SetText(Folder());
    ASSERT_TRUE(OpenPastel(*app_));
  }
  std::string Propose(int prefix, int suffix, const std::string& name) {
    app_->options.PrefixSize = prefix;
    app_->options.SuffixSize = suffix;
    return GetNewCode(*app_, name);
  }
};

TEST_F(NewCodeTest, ProposesTheCodeAfterTheHighestOfItsPrefix) {
  struct Case {
    int prefix;
    int suffix;
    const char* name;
    const char* proposed;
  } cases[] = {
      {4, 2, "Smith, Mr John", "SMIT09"},        // SMIT99 lands on SMIT08; no hole is used
      {4, 2, "O'Brien & Sons (Pty)", "OBRI01"},  // nothing of the prefix: the start code
      {4, 2, "Al", "AL0001"},                    // a short name is filled with zeros
      {4, 2, "Carrow Trading", "CARR01"},        // CAR001 lies below, of another prefix
      {4, 2, "Abcd Holdings", "ABCE00"},         // ABCD99 carries into the prefix
      {0, 6, "Anyone", "000000"},                // 999999 goes over to 000000
      {2, 0, "Zz Top", "AA"},                    // ZZ goes over to AA
      {2, 2, "Zz Top", "AA01"},                  // ZZ99 gives AA00, which is taken
      {4, 2, "abe", "ABE002"},                   // ABE001 is the highest of ABE0
  };
  ASSERT_NO_FATAL_FAILURE(Open(std::vector<std::string>(std::size(cases), "OK")));
  for (const Case& c : cases) EXPECT_EQ(Propose(c.prefix, c.suffix, c.name), c.proposed) << c.name;
  EXPECT_EQ(app_->run.ErrorCount, 0);
  EXPECT_EQ(app_->run.StopRequest, kStopNone);
}

TEST_F(NewCodeTest, TheUsersAnswerIsTakenAsItStands) {
  ASSERT_NO_FATAL_FAILURE(Open({"= smit08 TOO LONG", "Cancel", "= "}));
  EXPECT_EQ(Propose(4, 2, "Smith"), "smit08 TOO LONG");  // neither free nor six characters
  EXPECT_EQ(Propose(4, 2, "Smith"), "");
  EXPECT_EQ(Propose(4, 2, "Smith"), "");
  EXPECT_EQ(app_->run.ErrorCount, 0);
}

}  // namespace
}  // namespace tolmen
