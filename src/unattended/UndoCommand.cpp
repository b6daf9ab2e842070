#include "unattended/UndoCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

#include "journal/Undo.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/AppInfo.h"
#include "shell/Tolmen.h"
#include "unattended/RunCommand.h"
#include "unattended/UnattendedUi.h"

namespace tolmen {
namespace {

std::string WithSlash(const std::string& folder) {
  return folder.empty() || folder.back() == '/' ? folder : folder + "/";
}

std::string Where(const UndoStep& step) {
  return Cp1252ToUtf8(step.record.identification + "/" + step.record.contactNumber + " " +
                      step.udf);
}

std::string Quoted(const std::string& text) {
  return "\"" + Cp1252ToUtf8(text) + "\"";
}

}  // namespace

std::string UndoText(const UndoReport& report, const std::string& pastelFolder) {
  std::ostringstream out;
  const UndoPlan& plan = report.plan;
  if (!plan.problem.empty()) {
    out << (plan.alreadyUndone ? "Nothing to do: " : "Nothing undone: ")
        << Cp1252ToUtf8(plan.problem) << "\n";
    return out.str();
  }
  out << (report.dryRun ? "Dry run of the undo of run " : "Undo of run ")
      << Cp1252ToUtf8(plan.runId) << "\n";
  for (const UndoOutcome& outcome : report.steps) {
    const UndoStep& step = outcome.step;
    const bool toDo = report.dryRun && outcome.result == UndoResult::kRestored;
    out << "  " << (toDo ? "to restore" : UndoResultWord(outcome.result)) << " " << Where(step);
    switch (outcome.result) {
      case UndoResult::kRestored:
        out << ": " << Quoted(outcome.found) << " -> " << Quoted(step.restore) << "\n";
        break;
      case UndoResult::kConflict:
        out << ": holds " << Quoted(outcome.found) << ", the run left " << Quoted(step.expect)
            << "; left alone\n";
        break;
      case UndoResult::kAlreadyBack:
        out << ": holds " << Quoted(step.restore) << " again\n";
        break;
      case UndoResult::kNotFound:
        out << ": not in Maximizer's list; " << Quoted(step.restore) << " not put back\n";
        break;
    }
  }
  for (const std::string& file : report.renamed)
    out << "  renamed " << Cp1252ToUtf8(file) << " -> " << Cp1252ToUtf8(file) << ".undone\n";
  for (const std::string& category : plan.categories)
    out << "  " << Cp1252ToUtf8(CategoryRemovalHint(pastelFolder, category)) << "\n";
  out << report.Count(UndoResult::kRestored) << (report.dryRun ? " to restore, " : " restored, ")
      << report.Count(UndoResult::kConflict) << " conflicts, " << report.renamed.size() << " files "
      << (report.dryRun ? "to rename" : "renamed") << "\n";
  return out.str();
}

std::string UndoJson(const UndoReport& report, const std::string& pastelFolder) {
  using nlohmann::json;
  const UndoPlan& plan = report.plan;
  json steps = json::array();
  for (const UndoOutcome& outcome : report.steps)
    steps.push_back({{"result", UndoResultWord(outcome.result)},
                     {"client", Cp1252ToUtf8(outcome.step.record.identification)},
                     {"contact", Cp1252ToUtf8(outcome.step.record.contactNumber)},
                     {"udf", Cp1252ToUtf8(outcome.step.udf)},
                     {"found", Cp1252ToUtf8(outcome.found)},
                     {"run_left", Cp1252ToUtf8(outcome.step.expect)},
                     {"restore", Cp1252ToUtf8(outcome.step.restore)}});
  json renamed = json::array();
  for (const std::string& file : report.renamed) renamed.push_back(Cp1252ToUtf8(file));
  json categories = json::array();
  for (const std::string& category : plan.categories)
    categories.push_back({{"category", Cp1252ToUtf8(category)},
                          {"hint", Cp1252ToUtf8(CategoryRemovalHint(pastelFolder, category))}});
  return json{{"run", Cp1252ToUtf8(plan.runId)},
              {"undo", report.undoId},
              {"dry_run", report.dryRun},
              {"problem", Cp1252ToUtf8(plan.problem)},
              {"already_undone", plan.alreadyUndone},
              {"exit_status", UndoStatus(report)},
              {"steps", steps},
              {"renamed", renamed},
              {"categories", categories}}
      .dump();
}

int UndoStatus(const UndoReport& report) {
  if (report.plan.alreadyUndone) return kRunCallOk;
  if (!report.plan.problem.empty()) return kRunCallNotStarted;
  const bool missed =
      report.Count(UndoResult::kConflict) > 0 || report.Count(UndoResult::kNotFound) > 0;
  return missed ? kRunCallErrors : kRunCallOk;
}

int TolmenUndo(int argc, const char* const* argv, Clock& clock, std::ostream& out,
               std::ostream& err) {
  CLI::App cli{
      "Puts back the UDF values a run wrote into Maximizer, where nobody has changed them "
      "since, and renames its import files to *.undone.",
      "tolmen undo"};
  cli.footer(
      "Exit status: 0 done or nothing to do, 1 values left alone (conflicts), 2 nothing could be "
      "done, 4 usage error. See docs/unattended.md.");
  std::vector<std::string> positional;
  bool last = false;
  bool dryRun = false;
  bool asJson = false;
  cli.add_option("ARGS", positional, "[RUN-ID] PASTEL_DIR")->expected(1, 2);
  cli.add_flag("--last", last, "Undo the last run of the journal (the default)");
  cli.add_flag("--dry-run", dryRun, "List what would be done, and do nothing");
  cli.add_flag("--json", asJson, "One JSON object on standard output");
  std::string runId;
  std::string folder;
  try {
    std::vector<std::string> args;
    for (int i = argc - 1; i >= 2; --i) args.emplace_back(argv[i]);
    cli.parse(args);
    if (positional.empty()) throw CLI::ValidationError("PASTEL_DIR is needed");
    if (positional.size() == 2 && last)
      throw CLI::ValidationError("give a RUN-ID or --last, not both");
    folder = WithSlash(PathFromSystem(positional.back()));
    if (positional.size() == 2) runId = PathFromSystem(positional.front());
  } catch (const CLI::ParseError& error) {
    const int status = cli.exit(error, out, err);
    return status == 0 ? kRunCallOk : kRunCallUsage;
  } catch (const RuntimeError& error) {
    err << "tolmen undo: " << Cp1252ToUtf8(error.Description()) << "\n";
    return kRunCallUsage;
  }

  AppInfo info;
  try {
    info = MakeAppInfo(ResolveAppFolder(), TOLMEN_VERSION);
  } catch (const RuntimeError& error) {
    err << "tolmen undo: " << Cp1252ToUtf8(error.Description()) << "\n";
    return kRunCallNotStarted;
  }
  UnattendedUi ui(err, clock, info.AppName, {false, true, false});
  Tolmen app(info, ui, clock);
  ui.Attach(&app);
  UndoReport report;
  try {
    report = UndoRun(app, folder, runId, dryRun);
  } catch (const RuntimeError& error) {
    ui.Attach(nullptr);
    err << "tolmen undo: Maximizer: " << Cp1252ToUtf8(error.Description()) << "\n";
    return kRunCallNotStarted;
  }
  ui.Attach(nullptr);
  out << (asJson ? UndoJson(report, folder) + "\n" : UndoText(report, folder));
  if (!report.plan.problem.empty() && !report.plan.alreadyUndone)
    err << "tolmen undo: " << Cp1252ToUtf8(report.plan.problem) << "\n";
  return UndoStatus(report);
}

}  // namespace tolmen
