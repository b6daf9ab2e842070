// A run previewed, made and undone: the preview changes nothing and shows what the run writes;
// undo puts back every UDF value nobody has changed since, and only once.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

#include "ScenarioKit.h"
#include "journal/RunJournal.h"
#include "journal/Undo.h"
#include "platform/automation/MaximizerAutomation.h"
#include "runtime/Cp1252.h"
#include "runtime/DateTime.h"
#include "shell/AppInfo.h"
#include "shell/Settings.h"
#include "shell/Tolmen.h"
#include "unattended/Preview.h"
#include "unattended/RunMain.h"

namespace tolmen::test {
namespace {

namespace fs = std::filesystem;

class PreviewUndoTest : public ScenarioTest {
 protected:
  // Acme is due for its monthly invoice; Al has no account number (one is made and written
  // back); Al and Baker were billed this month. Baker's category is not in the Pastel set, so
  // the run creates it.
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(
        MakeWorld(json::array({
                      Company("C1", "Acme Trading", "ACM001",
                              {{"Customer Category", "Retail"}, {"Date Billed", "15 Oct 2026"}}),
                      Company("C2", "Al", "",
                              {{"Customer Category", "Retail"}, {"Date Billed", "2 Nov 2026"}}),
                      Company("C3", "Baker Bros", "BAK001",
                              {{"Customer Category", "Services"}, {"Date Billed", "5 Nov 2026"}}),
                  }),
                  json::array({{{"name", "Date Billed"}, {"type", "Date"}}})));
    Settings settings(dir_.File("settings.ini"));
    settings.SaveSetting("Billing", "Retail", "100");
    template_ = WriteTemplate(BillingChanges());
  }

  std::string Folder() const { return Utf8ToCp1252(PastelFolder()); }

  // Every file of the Pastel folder and its bytes.
  std::map<std::string, std::string> FolderFiles() const {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(PastelFolder()))
      files[entry.path().filename().string()] = ReadFile(entry.path().string());
    return files;
  }

  json Dump() const {
    const RunResult dump = RunMaxsim({"dump", maxsim_->Database()});
    EXPECT_EQ(dump.status, 0);
    return json::parse(dump.out);
  }

  PreviewResult Preview() {
    VirtualClock clock(DateFromParts(2026, 11, 23, 9, 0, 0));
    std::ostringstream err;
    PreviewResult result =
        PreviewTemplate(Utf8ToCp1252(template_), Utf8ToCp1252(Home()), dir_.File("settings.ini"),
                        clock, {true, true, false}, err);
    EXPECT_EQ(result.run.outcome, TemplateOutcome::kOk) << err.str();
    return result;
  }

  // `tolmen run --accept-codes` on the template.
  void RealRun() { EXPECT_EQ(RunCall({template_}, {true, true, false}), kRunCallOk) << err_.str(); }

  UndoReport Undo(const std::string& runId, bool dryRun) {
    VirtualClock clock(DateFromParts(2026, 11, 24, 9, 0, 0));
    std::ostringstream err;
    UnattendedUi ui(err, clock, "Tolmen", {false, true, false});
    Tolmen app(MakeAppInfo(Utf8ToCp1252(Home()), "1.0.0"), ui, clock, dir_.File("settings.ini"));
    ui.Attach(&app);
    UndoReport report = UndoRun(app, Folder(), runId, dryRun);
    ui.Attach(nullptr);
    return report;
  }

  // A client's UDF changed in Maximizer as a user would change it.
  void ChangeUdf(const std::string& id, const std::string& udf, const std::string& value) {
    Maximizer({"select", id});
    VirtualClock clock(DateFromParts(2026, 11, 23, 12, 0, 0));
    auto attach = MaxAttachObject::Attach(maxsim_->Socket(), clock);
    attach->GetCurrentRecordObject()->SetFieldValue(udf, value);
  }

  std::string template_;
};

std::vector<std::string> Texts(const std::vector<PreviewUdfChange>& changes) {
  std::vector<std::string> texts;
  for (const PreviewUdfChange& c : changes)
    texts.push_back(c.record.identification + "/" + c.record.contactNumber + " " + c.udf + ": " +
                    c.before + " -> " + c.after);
  return texts;
}

json WithoutStamps(json book) {
  for (json& client : book["clients"]) client.erase("last_change");
  return book;
}

TEST_F(PreviewUndoTest, PreviewShowsWhatTheRunThenWritesAndChangesNothing) {
  const std::map<std::string, std::string> filesBefore = FolderFiles();
  const json bookBefore = Dump();

  const PreviewResult preview = Preview();

  EXPECT_EQ(FolderFiles(), filesBefore);
  EXPECT_EQ(Dump(), bookBefore);
  EXPECT_EQ(preview.categories, std::vector<std::string>{"<4> Services"});
  ASSERT_EQ(preview.files.size(), 2u);
  ASSERT_EQ(preview.invoices.size(), 1u);
  EXPECT_EQ(preview.invoices[0].account, "ACM001");
  ASSERT_EQ(preview.invoices[0].lines.size(), 1u);
  EXPECT_EQ(preview.invoices[0].lines[0].price, "100");
  EXPECT_EQ(preview.invoices[0].lines[0].priceIncl, "115");
  // Acme's Date Billed, then Al's new account number, in the order of the list.
  EXPECT_EQ(Texts(preview.udfChanges),
            (std::vector<std::string>{"C1/0 Date Billed: 15 Oct 2026 -> 23 Nov 2026",
                                      "C2/0 Account Number:  -> AL0001"}));

  RealRun();

  for (const PreviewFile& file : preview.files) {
    ASSERT_TRUE(fs::exists(Cp1252ToUtf8(file.name))) << file.name;
    EXPECT_EQ(file.lines, CrLfLines(ReadFile(Cp1252ToUtf8(file.name)))) << file.name;
  }
  std::vector<PreviewUdfChange> written;
  for (const json& record : ReadJournal(Folder())) {
    const auto text = [&](const char* key) { return Utf8ToCp1252(record.value(key, "")); };
    if (record["type"] == "udf")
      written.push_back(
          {{text("client"), text("contact")}, text("udf"), text("before"), text("written")});
  }
  EXPECT_EQ(Texts(written), Texts(preview.udfChanges));
  EXPECT_EQ(LastLines(PastelFileLines("Tolmen.LOG"), preview.log.size()), preview.log);
}

TEST_F(PreviewUndoTest, UndoPutsBackWhatNobodyChangedAndOnlyOnce) {
  const json bookBefore = WithoutStamps(Dump());
  RealRun();
  ASSERT_EQ(StoredUdf("C2", "Account Number"), "AL0001");
  ASSERT_EQ(StoredUdf("C1", "Date Billed"), "23 Nov 2026");
  ChangeUdf("C1", "Date Billed", "30 Nov 2026");
  const std::vector<json> journal = ReadJournal(Folder());
  ASSERT_FALSE(journal.empty());
  const std::string runId = journal.back().value("run", "");

  const json bookBeforeUndo = Dump();
  const UndoReport dry = Undo("", true);
  EXPECT_EQ(Dump(), bookBeforeUndo);
  EXPECT_EQ(dry.plan.runId, runId);
  EXPECT_EQ(dry.Count(UndoResult::kConflict), 1);

  const UndoReport undo = Undo(runId, false);
  ASSERT_EQ(undo.plan.problem, "");
  EXPECT_EQ(dry.Count(UndoResult::kRestored), 1);
  EXPECT_EQ(undo.Count(UndoResult::kRestored), 1);
  ASSERT_EQ(undo.Count(UndoResult::kConflict), 1);
  for (const UndoOutcome& outcome : undo.steps)
    if (outcome.result == UndoResult::kConflict) {
      EXPECT_EQ(outcome.step.record.identification, "C1");
      EXPECT_EQ(outcome.step.udf, "Date Billed");
      EXPECT_EQ(outcome.found, "30 Nov 2026");
    }
  json expected = bookBefore;
  for (json& client : expected["clients"])
    if (client["Identification"] == "C1") client["udfs"]["Date Billed"] = "30 Nov 2026";
  EXPECT_EQ(WithoutStamps(Dump()), expected);
  EXPECT_EQ(undo.renamed.size(), 2u);
  EXPECT_EQ(undo.plan.categories, std::vector<std::string>{"<4> Services"});
  EXPECT_TRUE(fs::exists(PastelFolder() + "MaxCus01.csv.undone"));
  EXPECT_FALSE(fs::exists(PastelFolder() + "MaxCus01.csv"));

  const json bookAfterUndo = Dump();
  const UndoReport again = Undo("", false);
  EXPECT_TRUE(again.plan.alreadyUndone) << again.plan.problem;
  EXPECT_TRUE(again.steps.empty());
  EXPECT_EQ(Dump(), bookAfterUndo);
}

// The journal's records, as a run, a crashed run and an undo leave them.
TEST(UndoPlanTest, FindsTheRunItsWritesAndWhetherItWasUndone) {
  const auto udf = [](const std::string& run, const std::string& client, const std::string& before,
                      const std::string& stored) {
    return json{{"type", "udf"},     {"run", run},           {"client", client},
                {"contact", "0"},    {"udf", "Date Billed"}, {"before", before},
                {"written", stored}, {"stored", stored}};
  };
  const std::vector<json> records = {
      udf("r1", "A", "", "01 Nov 2026"),
      udf("r1", "B", "01 Nov 2026", "01 Nov 2026"),  // changed nothing
      {{"type", "run"}, {"run", "r1"}, {"files", {"/p/MaxCus01.csv"}}, {"categories", {"<7> New"}}},
      udf("r2", "A", "01 Nov 2026", "01 Dec 2026"),  // crashed: no run record
      udf("u1", "A", "01 Dec 2026", "01 Nov 2026"),
      {{"type", "undo"}, {"run", "u1"}, {"undoes", "r2"}},
  };
  struct Case {
    std::string asked;
    std::string runId;
    size_t steps;
    bool undone;
    std::string problem;
  };
  const Case cases[] = {
      {"", "r2", 0, true, "run r2 was undone already (undo u1)"},
      {"r1", "r1", 1, false, ""},
      {"u1", "", 0, false, "the journal holds no run u1"},
      {"r9", "", 0, false, "the journal holds no run r9"},
  };
  for (const Case& c : cases) {
    const UndoPlan plan = PlanUndo(records, c.asked);
    EXPECT_EQ(plan.runId, c.runId) << c.asked;
    EXPECT_EQ(plan.steps.size(), c.steps) << c.asked;
    EXPECT_EQ(plan.alreadyUndone, c.undone) << c.asked;
    EXPECT_EQ(plan.problem, c.problem) << c.asked;
  }
  const UndoPlan r1 = PlanUndo(records, "r1");
  EXPECT_EQ(r1.files, std::vector<std::string>{"/p/MaxCus01.csv"});
  EXPECT_EQ(r1.categories, std::vector<std::string>{"<7> New"});
  EXPECT_EQ(PlanUndo({}, "").problem, "the journal holds no run");

  const UndoStep step{{"A", "0"}, "Date Billed", "01 Nov 2026", "01 Dec 2026"};
  EXPECT_EQ(DecideUndo(step, "01 Dec 2026"), UndoResult::kRestored);
  EXPECT_EQ(DecideUndo(step, "01 Nov 2026"), UndoResult::kAlreadyBack);
  EXPECT_EQ(DecideUndo(step, "15 Dec 2026"), UndoResult::kConflict);
  EXPECT_EQ(DecideUndo(step, ""), UndoResult::kConflict);
}

}  // namespace
}  // namespace tolmen::test
