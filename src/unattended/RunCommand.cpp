#include "unattended/RunCommand.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <system_error>

#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/ProcessEnd.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "transfer/Categories.h"
#include "transfer/ImportFiles.h"
#include "transfer/RunStart.h"
#include "unattended/UnattendedUi.h"

namespace tolmen {
namespace {

// Why a template cannot be read, or "".
std::string Unreadable(const std::string& path) {
  std::error_code ec;
  const std::string system = SystemPath(path);
  if (!std::filesystem::exists(system, ec)) return "no such file";
  if (!std::filesystem::is_regular_file(system, ec)) return "not a file";
  if (access(system.c_str(), R_OK) != 0) return "cannot be read";
  return "";
}

bool Written(const std::string& path) {
  std::error_code ec;
  return !path.empty() && std::filesystem::is_regular_file(SystemPath(path), ec);
}

// The run's own step before DoImport (the confirm slot of StartRun): the import files numbered
// as the Import button does, and no run when the call must stop.
bool PrepareRun(Tolmen& app, const UnattendedUi& ui) {
  if (ui.TemplateEnded() || ui.Cancelled()) return false;
  RunState& run = app.run;
  const ImportFileNames names = NumberImportFiles(app.pastel.PastelDataPath);
  run.CsvFileName = names.customer;
  run.InvoiceFileName = names.invoice;
  run.WriteCsv = app.screen.frmMain.chkWritePasFile.Value() == 1;
  return true;
}

void ReadResult(Tolmen& app, TemplateResult& result) {
  const RunState& run = app.run;
  result.debtors = run.DebtorsWritten;
  result.newDebtors = run.BalancesMissed;
  result.invoices = run.InvoiceCount;
  result.errors = run.ErrorCount;
  result.repeats = run.RepeatCount;
  result.clientsScanned = run.ClientsScanned;
  result.udfFields = run.TransferToMaximizer;
  result.udfClients = run.BalancesSent;
  for (const std::string* file : {&run.CsvFileName, &run.InvoiceFileName})
    if (Written(*file)) result.files.push_back(*file);
  result.log = LogFilePath(app);
}

// A template that creates a category takes the number after the highest one of its own set. In the
// wizard the set's categories are loaded before the template is opened; here the template opens
// the set, so the number its option gave is taken again once the categories are loaded.
void NumberNewCategory(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  if (form.optCategory.Value() != 1) return;
  LoadCategories(app);
  form.txtCategory(1).SetText(std::to_string(NextCategoryNumber(app)));
}

}  // namespace

TemplateResult RunTemplateOfCall(Tolmen& app, UnattendedUi& ui, const std::string& path,
                                 size_t index, size_t count, std::ostream& err,
                                 const std::string& shown) {
  TemplateResult result;
  result.path = path;
  ui.BeginTemplate(shown.empty() ? path : shown);
  if (const std::string why = Unreadable(path); !why.empty()) {
    err << "tolmen run: " << Cp1252ToUtf8(path) << ": " << why << "\n";
    result.messages.push_back(why);
    return result;
  }
  RunState& run = app.run;
  app.shell.ExitStatus = kExitOk;
  bool started = false;
  try {
    run.Unattended = true;
    if (TemplateOpen(app, path) && !ui.TemplateEnded()) {
      NumberNewCategory(app);
      RunEntry entry;
      entry.reason = "for Template " + std::to_string(index + 1) + "/" + std::to_string(count) +
                     " (tolmen run): " + (shown.empty() ? path : shown);
      entry.copyScreen = true;
      entry.loadCategories = true;
      entry.decideBillingDay = true;
      entry.confirm = [&] { return PrepareRun(app, ui); };
      started = StartRun(app, entry);
    }
  } catch (const ProcessEnd&) {
    ui.RequestCancel();
  } catch (const RuntimeError& error) {
    err << "tolmen run: " << Cp1252ToUtf8(path) << ": " << Cp1252ToUtf8(error.Description())
        << "\n";
    result.messages.push_back(error.Description());
  }
  run.Unattended = false;
  result.clientsSkipped = ui.ClientsSkipped();
  for (const std::string& fault : ui.Faults()) result.messages.push_back(fault);
  if (!started) {
    result.outcome = ui.Cancelled() ? TemplateOutcome::kCancelled : TemplateOutcome::kNotStarted;
    if (result.outcome == TemplateOutcome::kNotStarted && ui.Faults().empty() &&
        result.messages.empty())
      err << "tolmen run: " << Cp1252ToUtf8(path) << ": the run could not start\n";
    return result;
  }
  ReadResult(app, result);
  result.outcome = RunOutcome(app.shell.ExitStatus, ui.TemplateEnded(),
                              ErrorsThatCount(result.errors, result.repeats));
  return result;
}

int32_t ErrorsThatCount(int32_t errors, int32_t repeats) {
  return std::max<int32_t>(0, errors - (repeats != 0 ? 1 : 0));
}

TemplateOutcome RunOutcome(int doImportStatus, bool endedByDialog, int32_t errorsThatCount) {
  if (endedByDialog) return TemplateOutcome::kEnded;
  if (doImportStatus == kExitRunCancelled) return TemplateOutcome::kCancelled;
  return errorsThatCount > 0 ? TemplateOutcome::kErrors : TemplateOutcome::kOk;
}

RunCallStatus StatusOf(TemplateOutcome outcome) {
  switch (outcome) {
    case TemplateOutcome::kOk:
      return kRunCallOk;
    case TemplateOutcome::kErrors:
    case TemplateOutcome::kEnded:
      return kRunCallErrors;
    case TemplateOutcome::kNotStarted:
      return kRunCallNotStarted;
    case TemplateOutcome::kCancelled:
      return kRunCallCancelled;
  }
  return kRunCallErrors;
}

const char* OutcomeWord(TemplateOutcome outcome) {
  switch (outcome) {
    case TemplateOutcome::kOk:
      return "ok";
    case TemplateOutcome::kErrors:
      return "errors";
    case TemplateOutcome::kNotStarted:
      return "not started";
    case TemplateOutcome::kEnded:
      return "ended";
    case TemplateOutcome::kCancelled:
      return "cancelled";
  }
  return "";
}

std::string SummaryLine(const TemplateResult& result) {
  std::string line = Cp1252ToUtf8(result.path) + ": ";
  if (result.outcome == TemplateOutcome::kNotStarted) return line + "not started";
  if (result.outcome != TemplateOutcome::kOk && result.outcome != TemplateOutcome::kErrors)
    line += std::string(OutcomeWord(result.outcome)) + ", ";
  line += std::to_string(result.debtors) + " debtors, " + std::to_string(result.invoices) +
          " invoices, " + std::to_string(result.errors) + " errors, files";
  if (result.files.empty()) line += " none";
  for (const std::string& file : result.files) line += " " + Cp1252ToUtf8(file);
  return line;
}

std::string JsonLine(const TemplateResult& result) {
  using nlohmann::json;
  json files = json::array();
  for (const std::string& file : result.files) files.push_back(Cp1252ToUtf8(file));
  json messages = json::array();
  for (const std::string& text : result.messages) messages.push_back(Cp1252ToUtf8(text));
  const json object = {
      {"template", Cp1252ToUtf8(result.path)},
      {"status", OutcomeWord(result.outcome)},
      {"exit_status", StatusOf(result.outcome)},
      {"counts",
       {{"debtors", result.debtors},
        {"new_debtors", result.newDebtors},
        {"invoices", result.invoices},
        {"errors", result.errors},
        {"errors_counted", ErrorsThatCount(result.errors, result.repeats)},
        {"repeats", result.repeats},
        {"clients_scanned", result.clientsScanned},
        {"clients_skipped", result.clientsSkipped}}},
      {"files", files},
      {"udf_writes", {{"fields", result.udfFields}, {"clients", result.udfClients}}},
      {"errors", messages},
      {"log", Cp1252ToUtf8(result.log)},
  };
  return object.dump();
}

int RunTemplates(Tolmen& app, UnattendedUi& ui, const RunRequest& request, std::ostream& out,
                 std::ostream& err) {
  int status = kRunCallOk;
  const size_t count = request.templates.size();
  for (size_t index = 0; index < count; ++index) {
    const TemplateResult result =
        RunTemplateOfCall(app, ui, request.templates[index], index, count, err);
    if (request.json)
      out << JsonLine(result) << "\n";
    else if (!request.quiet)
      out << SummaryLine(result) << "\n";
    out.flush();
    status = std::max<int>(status, StatusOf(result.outcome));
    if (ui.Cancelled() || ui.CallEnded()) break;
  }
  return status;
}

}  // namespace tolmen
