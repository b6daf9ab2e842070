// Whole runs through the wizard's Import: where each client's account code comes from, what the
// customer file, the run log, the dialogs and Maximizer's UDFs hold afterwards.
#include <gtest/gtest.h>

#include <array>

#include "ScenarioKit.h"

namespace tolmen::test {
namespace {

class AccountCodeRunTest : public ScenarioTest {
 protected:
  void SetUp() override {
    // The prefix SMIT already has two debtors in Pastel.
    AddDebtor("SMIT07", "Smit Seven");
    AddDebtor("SMIT08", "Smit Eight");
  }
  const std::string kAcme =
      Customer{"ACM001", "Acme Trading", "011 555 0100", "", "", "accounts@acme.example"}.Line();
};

// An individual (2) or a contact (31).
json Person(const std::string& id, int type, const std::string& last, const std::string& first,
            const std::string& title, json more) {
  more.update({{"Last_Name", last}, {"First_Name", first}, {"Mr/Ms", title}});
  return Client(id, type, more);
}

// The book in Maximizer's name order. The UDF "Account Number" holds six characters, seven,
// blanks or nothing; Naidoo is a contact of Acme.
json Book() {
  json acme = Company("C1", "Acme Trading", "ACM001");
  acme.update({{"Phone_1", "011 555 0100"},
               {"Phone_1_Description", "Tel"},
               {"E-mail Address", "accounts@acme.example"}});
  json bravo = Company("C2", "Bravo Ltd", "BRAVOLD");
  bravo["E-mail Address"] = "none";
  return json::array(
      {acme, Company("C6", "Al"), bravo,
       Person("C4", 31, "Naidoo", "Priya", "Ms",
              {{"company", "Acme Trading"}, {"udfs", {{"Account Number", "NAID01"}}}}),
       Company("C5", "O'Brien & Sons (Pty)"),
       Person("C3", 2, "Smith", "John", "Mr",
              {{"Phone_1", "012 345"},
               {"Phone_1_Description", "Home"},
               {"udfs", {{"Account Number", "   "}}}}),
       Person("C7", 2, "Smithers", "Jane", "Ms",
              {{"Phone_1", "082 555 0606"}, {"Phone_1_Description", "Cell"}})});
}

TEST_F(AccountCodeRunTest, CodesFromTheUdfOrTheUserAreWrittenAndStoredBack) {
  ASSERT_NO_FATAL_FAILURE(MakeWorld(Book()));
  WriteTemplate();
  // Yes to the confirmation; the proposals for Al, O'Brien and Smith are taken as they stand;
  // Smithers is offered Smith's code again (the run's own lines are not in Pastel) and the user
  // types another; No to the log.
  const int status = Run(ImportScript({"Yes", "OK", "OK", "OK", "= SMTH01", "No"}));

  const std::string file = PastelFolder() + "MaxCus01.csv";
  // Maximizer's list goes down one line more than it has: its last client is read twice, and
  // the second time the code stored back the first time is in its UDF.
  const std::string smithers =
      Customer{"SMTH01", "Smithers, Ms Jane", "", "Smithers, Jane", "082 555 0606"}.Line();
  const std::vector<std::string> expected = {
      kAcme,
      Customer{"AL0001", "Al"}.Line(),
      Customer{"BRAVOL", "Bravo Ltd", "", "", "", "none"}.Line(),
      Customer{"OBRI01", "O'Brien & Sons (Pty)"}.Line(),
      Customer{"SMIT09", "Smith, Mr John", "012 345 (H)", "Smith, John"}.Line(),
      smithers,
      smithers,
  };
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"), expected);

  EXPECT_EQ(PastelFileLines("Tolmen.LOG"),
            (std::vector<std::string>{
                "",
                "Tolmen 1.0.0 Run at 23 Nov 2026 09:00 by User.",
                "==============================================",
                "Maximizer Data: Scenario Book = " + maxsim_->Database(),
                "Pastel    Data: " + PastelFolder(),
                "Use Existing Customer Category: <2> Wholesale",
                "Import All Items",
                "Import Individual Clients by Name (as \"LastName, Mr/Ms FirstName Initial\")",
                "Maximizer Account Number UDF: Account Number",
                "",
                "1 tries to get Maximizer Record Count (7).",
                "2 tries to get to top Maximizer Record <C1>",
                "Created  Pastel Customer - a/c ACM001: Acme Trading",
                "Created  Pastel Customer - a/c AL0001: Al",
                "### Error 1: Maximizer 'Account Number' BRAVOLD is TOO LONG!  Using BRAVOL",
                "Created  Pastel Customer - a/c BRAVOL: Bravo Ltd",
                "### Error 2: BAD e-mail Address \"none\" on a/c BRAVOL",
                "Created  Pastel Customer - a/c OBRI01: O'Brien & Sons (Pty)",
                "Created  Pastel Customer - a/c SMIT09: Smith, Mr John",
                "Created  Pastel Customer - a/c SMTH01: Smithers, Ms Jane",
                "Created  Pastel Customer - a/c SMTH01: Smithers, Ms Jane",
                "### Error 3: 2 repeats of the same Maximizer Record, C7",
                "",
                "Tolmen Import Completed at 23 Nov 2026 09:00",
                "7 Pastel Debtors (0 new) were written to file " + file,
            }));

  const std::string transcript = Transcript();
  // The proposal, the client, and what the user answered.
  for (const auto& [proposed, name, typed] :
       std::vector<std::array<std::string, 3>>{{"AL0001", "Al", "AL0001"},
                                               {"OBRI01", "O'Brien & Sons (Pty)", "OBRI01"},
                                               {"SMIT09", "Smith, Mr John", "SMIT09"},
                                               {"SMIT09", "Smithers, Ms Jane", "SMTH01"}})
    EXPECT_TRUE(Contains(transcript, "== InputBox | Tolmen needs a Pastel Account No | " +
                                         proposed + "\nPastel Account Number for " + name +
                                         "?\n-> = " + typed + "\n"))
        << name << "\n"
        << transcript;
  EXPECT_TRUE(Contains(transcript,
                       "== MsgBox | Tolmen Import Complete: Open Log File? | Yes/No | "
                       "Information\n"
                       "7 Pastel Debtors (0 new) were written to file " +
                           file +
                           "\n3 Errors occurred (View Log File for details).\n"
                           "Do you want to Open the Log File?\n-> No\n"))
      << transcript;

  // Codes the user confirmed are stored back; a code found in the UDF is left as it was, even
  // when it was too long.
  EXPECT_EQ(StoredUdf("C6", "Account Number"), "AL0001");
  EXPECT_EQ(StoredUdf("C5", "Account Number"), "OBRI01");
  EXPECT_EQ(StoredUdf("C3", "Account Number"), "SMIT09");
  EXPECT_EQ(StoredUdf("C7", "Account Number"), "SMTH01");
  EXPECT_EQ(StoredUdf("C1", "Account Number"), "ACM001");
  EXPECT_EQ(StoredUdf("C2", "Account Number"), "BRAVOLD");
  EXPECT_EQ(status, 1);  // the run counted errors
}

// At debugging level 2 every list entry is logged on its way in and out with the number of
// clients processed so far: the contact is named and selected, but not counted and not turned
// into a debtor.
TEST_F(AccountCodeRunTest, AContactIsNamedButNotCounted) {
  const json book = Book();
  ASSERT_NO_FATAL_FAILURE(MakeWorld(json::array({book[0], book[1], book[3]})));
  WriteTemplate();
  Run(ImportScript({"Yes", "OK", "No"}), "", 2);

  std::vector<std::string> clients;
  for (const std::string& line : PastelFileLines("Tolmen.LOG"))
    if (line.rfind("# Debug: Max2Pastel", 0) == 0 || line.rfind("Created", 0) == 0)
      clients.push_back(line);
  EXPECT_EQ(clients, (std::vector<std::string>{
                         "# Debug: Max2Pastel >>0 Acme Trading",
                         "Created  Pastel Customer - a/c ACM001: Acme Trading",
                         "# Debug: Max2Pastel <<1 Acme Trading",
                         "# Debug: Max2Pastel >>1 Al",
                         "Created  Pastel Customer - a/c AL0001: Al",
                         "# Debug: Max2Pastel <<2 Al",
                         "# Debug: Max2Pastel >>2 Naidoo, Ms Priya",
                         "# Debug: Max2Pastel <<2 Naidoo, Ms Priya",
                         // the last line again
                         "# Debug: Max2Pastel >>2 Naidoo, Ms Priya",
                         "# Debug: Max2Pastel <<2 Naidoo, Ms Priya",
                     }));
  EXPECT_EQ(PastelFileLines("MaxCus01.csv"),
            (std::vector<std::string>{kAcme, Customer{"AL0001", "Al"}.Line()}));
  EXPECT_EQ(StoredUdf("C4", "Account Number"), "NAID01");
}

}  // namespace
}  // namespace tolmen::test
