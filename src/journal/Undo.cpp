#include "journal/Undo.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "journal/RunJournal.h"
#include "maximizer/MaximizerLink.h"
#include "pastel/pasDcodeFile.h"
#include "platform/automation/MaximizerAutomation.h"
#include "runtime/Cp1252.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

using json = nlohmann::json;

std::string Text(const json& record, const char* key) {
  const auto found = record.find(key);
  return found != record.end() && found->is_string() ? Utf8ToCp1252(found->get<std::string>()) : "";
}

std::vector<std::string> Texts(const json& record, const char* key) {
  std::vector<std::string> texts;
  const auto found = record.find(key);
  if (found == record.end() || !found->is_array()) return texts;
  for (const json& item : *found)
    if (item.is_string()) texts.push_back(Utf8ToCp1252(item.get<std::string>()));
  return texts;
}

bool IsType(const json& record, const char* type) {
  return record.value("type", "") == type;
}

// The ids of the runs in the journal, in the order they began, undos left out.
std::vector<std::string> RunIds(const std::vector<json>& records) {
  std::vector<std::string> undos;
  for (const json& record : records)
    if (IsType(record, "undo")) undos.push_back(record.value("run", ""));
  std::vector<std::string> ids;
  for (const json& record : records) {
    const std::string id = record.value("run", "");
    if (!IsType(record, "udf") && !IsType(record, "run")) continue;
    if (std::find(undos.begin(), undos.end(), id) != undos.end()) continue;
    if (std::find(ids.begin(), ids.end(), id) == ids.end()) ids.push_back(id);
  }
  return ids;
}

std::string KeyText(const RecordKey& key) {
  return key.identification + "/" + key.contactNumber;
}

}  // namespace

UndoPlan PlanUndo(const std::vector<json>& records, const std::string& runId) {
  UndoPlan plan;
  const std::vector<std::string> ids = RunIds(records);
  if (runId.empty()) {
    if (ids.empty()) {
      plan.problem = "the journal holds no run";
      return plan;
    }
    plan.runId = ids.back();
  } else if (std::find(ids.begin(), ids.end(), runId) == ids.end()) {
    plan.problem = "the journal holds no run " + runId;
    return plan;
  } else {
    plan.runId = runId;
  }
  const std::string id = Cp1252ToUtf8(plan.runId);
  for (const json& record : records) {
    if (IsType(record, "undo") && record.value("undoes", "") == id) {
      plan.problem = "run " + plan.runId + " was undone already (undo " + Text(record, "run") + ")";
      plan.alreadyUndone = true;
      return plan;
    }
  }
  for (const json& record : records) {
    if (record.value("run", "") != id) continue;
    if (IsType(record, "run")) {
      plan.files = Texts(record, "files");
      plan.categories = Texts(record, "categories");
      plan.maximizer = Text(record, "maximizer");
    } else if (IsType(record, "udf")) {
      UndoStep step{{Text(record, "client"), Text(record, "contact")},
                    Text(record, "udf"),
                    Text(record, "before"),
                    Text(record, "stored")};
      if (step.expect != step.restore) plan.steps.push_back(std::move(step));
    }
  }
  return plan;
}

UndoResult DecideUndo(const UndoStep& step, const std::string& now) {
  if (now == step.expect) return UndoResult::kRestored;
  if (now == step.restore) return UndoResult::kAlreadyBack;
  return UndoResult::kConflict;
}

const char* UndoResultWord(UndoResult result) {
  switch (result) {
    case UndoResult::kRestored:
      return "restored";
    case UndoResult::kConflict:
      return "conflict";
    case UndoResult::kAlreadyBack:
      return "already back";
    case UndoResult::kNotFound:
      return "client not found";
  }
  return "";
}

int UndoReport::Count(UndoResult result) const {
  return static_cast<int>(std::count_if(steps.begin(), steps.end(),
                                        [&](const UndoOutcome& o) { return o.result == result; }));
}

UndoReport UndoRun(Tolmen& app, const std::string& pastelFolder, const std::string& runId,
                   bool dryRun) {
  UndoReport report;
  report.dryRun = dryRun;
  report.plan = PlanUndo(ReadJournal(pastelFolder), runId);
  UndoPlan& plan = report.plan;
  if (!plan.problem.empty()) return report;

  MaximizerLink& link = app.maximizer;
  link.Attach();
  const std::string database = link.Application().GetCurrentDBPath();
  if (database == "n/a") {
    plan.problem = "Maximizer is not running, or has no database open";
    link.Release();
    return report;
  }
  if (!plan.maximizer.empty() && !EqualsNoCase(database, plan.maximizer)) {
    plan.problem = "Maximizer has " + database + " open; the run wrote into " + plan.maximizer;
    link.Release();
    return report;
  }

  // Each record's steps, by key; taken back last write first when the walk reaches the record.
  std::map<std::string, std::vector<size_t>> byRecord;
  for (size_t index = 0; index < plan.steps.size(); ++index)
    byRecord[KeyText(plan.steps[index].record)].push_back(index);
  std::vector<UndoOutcome> outcomes(plan.steps.size());
  for (size_t index = 0; index < plan.steps.size(); ++index)
    outcomes[index].step = plan.steps[index];

  report.undoId = dryRun ? "" : NewRunId(app.clock.Now());
  RunJournal journal(dryRun ? "" : pastelFolder);
  MaxRecordObject& record = link.Record();
  record.ListAll("clients");
  record.ScrollList("Top");
  const int32_t count = record.GetListCount();
  for (int32_t line = 0; line < count && !byRecord.empty(); ++line) {
    if (line > 0) record.ScrollList("LineDown");
    const RecordKey key = record.CurrentKey();
    const auto found = byRecord.find(KeyText(key));
    if (found == byRecord.end()) continue;
    for (auto index = found->second.rbegin(); index != found->second.rend(); ++index) {
      UndoOutcome& outcome = outcomes[*index];
      outcome.found = record.GetFieldValue(outcome.step.udf);
      outcome.result = DecideUndo(outcome.step, outcome.found);
      if (outcome.result != UndoResult::kRestored || dryRun) continue;
      UdfWrite write{key, outcome.step.udf, outcome.found, outcome.step.restore, ""};
      record.SetFieldValue(write.udf, write.written);
      write.stored = record.GetFieldValue(write.udf);
      journal.Append(UdfWriteRecord(report.undoId, app.clock.Now(), write));
    }
    byRecord.erase(found);
  }
  link.Release();
  report.steps.assign(outcomes.rbegin(), outcomes.rend());

  for (const std::string& file : plan.files) {
    std::error_code ec;
    const std::string system = SystemPath(file);
    if (!std::filesystem::is_regular_file(system, ec)) continue;
    if (!dryRun) std::filesystem::rename(system, system + ".undone", ec);
    if (!ec) report.renamed.push_back(file);
  }
  if (dryRun) return report;
  json renamed = json::array();
  for (const std::string& file : report.renamed) renamed.push_back(Cp1252ToUtf8(file));
  journal.Append({{"type", "undo"},
                  {"run", report.undoId},
                  {"undoes", Cp1252ToUtf8(plan.runId)},
                  {"time", JournalTime(app.clock.Now())},
                  {"restored", report.Count(UndoResult::kRestored)},
                  {"conflicts", report.Count(UndoResult::kConflict)},
                  {"files", renamed}});
  return report;
}

std::string CategoryRemovalHint(const std::string& pastelFolder, const std::string& category) {
  const std::string file = "'" + pastelFolder + pasDcodeFile::kFileName + "'";
  return "category " + category +
         " was created by the run and is left in place (debtors may use it). To remove it: "
         "butil -save " +
         file + " categories.sav; delete its record from categories.sav; move " + file +
         " aside; butil -create " + file +
         " from its description (butil -stat shows it); butil -load categories.sav " + file;
}

}  // namespace tolmen
