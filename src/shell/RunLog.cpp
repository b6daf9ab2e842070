#include "shell/RunLog.h"

#include <filesystem>
#include <system_error>

#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

// The folder the log belongs in now: the Pastel data folder once one is known.
std::string FolderNow(const Tolmen& app) {
  return app.pastel.PastelDataPath.empty() ? app.info.AppFolder : app.pastel.PastelDataPath;
}

void ChooseFolder(Tolmen& app) {
  if (app.log.FolderFixed() || app.log.IsOpen()) return;
  app.log.SetFolder(FolderNow(app));
}

std::string Account(Tolmen& app) {
  return CStr(app.pastelFiles.Debtor().default_(2));
}

// Kind 0's heading, from the screen as the run was set up.
void WriteHeading(Tolmen& app) {
  const MainForm& form = app.screen.frmMain;
  RunLog& log = app.log;
  const std::string heading = app.info.AppName + " " + app.info.AppVersion + " Run at " +
                              FormatDate(app.clock.Now(), "d mmm yyyy hh:mm") + " " +
                              app.run.RunReason;
  log.Append("");
  log.Append(heading);
  log.Append(String(static_cast<long>(heading.size()), '='));
  log.Append("Maximizer Data: " + form.txtDatabaseName.Text() + " = " +
             form.txtDatabasePath.Text());
  log.Append("Pastel    Data: " + app.pastel.PastelDataPath);

  switch (FindSetOption(form.optCategory, 0, 2)) {
    case 0:
      log.Append("Use Existing Customer Category: " + form.cboCategories.Text());
      break;
    case 1:
      log.Append("Create New Customer Category: <" + form.txtCategory(1).Text() + "> " +
                 form.txtCategory(0).Text());
      break;
    case 2:
      log.Append("Use/Create Category from UDF: " + form.cboCatgrUDF.Text());
      break;
    default:
      break;
  }

  // The screen model starts with no button on, where the form always had one: no caption then.
  const int which = FindSetOption(form.optImport, 0, 3);
  std::string line = "Import ";
  if (form.optImport.Has(which)) line += form.optImport(which).Caption();
  if (which + 1 > 1 && !form.cboUserFields.Text().empty())
    line += " where UDF " + form.cboUserFields.Text() + " = \"" + form.txtUserFldVal.Text() + "\"";
  log.Append(line);

  for (int index : {0, 2, 3, 4})
    if (form.chkToPastel(index).Value() == 1) log.Append(form.chkToPastel(index).Caption());
  log.Append("Maximizer Account Number UDF: " + form.cboAcctCode.Text());
  log.Append("");
}

void StartRunLog(Tolmen& app) {
  app.log.EndRun();  // closes the file and frees the folder
  ChooseFolder(app);
  app.log.FixFolder();
  // Passing over all errors: a log that cannot be turned over is appended to.
  if (app.shell.LogFileLimit != 0) app.log.Rotate(app.shell.LogFileLimit);
  WriteHeading(app);
}

}  // namespace

void RunLog::SetFolder(const std::string& folder) {
  if (folder == folder_) return;
  Close();
  folder_ = folder;
}

void RunLog::Append(const std::string& line) {
  if (!file_.is_open()) {
    file_.clear();
    file_.open(SystemPath(Path()), std::ios::binary | std::ios::app);
    if (!file_) throw RuntimeError(75, "Path/File access error: " + Path());
  }
  file_ << line << "\r\n";
  file_.flush();
  if (!file_) {
    file_.close();
    throw RuntimeError(61, "Disk full: " + Path());
  }
}

void RunLog::Close() {
  if (file_.is_open()) file_.close();
}

void RunLog::Rotate(int32_t limitKb) {
  if (limitKb == 0) return;
  std::error_code ec;
  const std::string path = SystemPath(Path());
  const auto size = std::filesystem::file_size(path, ec);
  if (ec) return;
  // Compared as signed numbers: a negative limit turns the log over at every run.
  if (static_cast<long long>(size) <= static_cast<long long>(limitKb) * 1024) return;
  const std::string old = SystemPath(folder_ + kOldFileName);
  std::filesystem::remove(old, ec);
  std::filesystem::rename(path, old, ec);
}

std::string LogFilePath(const Tolmen& app) {
  if (app.log.FolderFixed() || app.log.IsOpen()) return app.log.Path();
  return FolderNow(app) + RunLog::kFileName;
}

void LogEntry(Tolmen& app, int16_t kind, const std::string& text) {
  if (kind < 0 || kind > 11 || kind == 4 || kind == 5) return;
  RunState& run = app.run;
  if (kind == 0) {
    StartRunLog(app);
  } else {
    ChooseFolder(app);
    switch (kind) {
      case 1:
        app.log.Append("Created new Customer Category <" +
                       std::to_string(run.CurrentCategoryNumber) + "> " + run.CurrentCategoryText);
        break;
      case 2:
        app.log.Append("Created  Pastel Customer - a/c " + Account(app) + ": " + run.ClientName);
        break;
      case 3:
        app.log.Append("Changed Pastel Customer  - a/c " + Account(app) + ": " + run.ClientName);
        break;
      case 6:
        app.log.Append("Locked Debtor Record - a/c " + Account(app) + ": " + run.ClientName);
        break;
      case 7: {
        pasDelivery& delivery = app.pastelFiles.Delivery();
        const std::string code = CStr(delivery.default_(2));
        const std::string account = CStr(delivery.default_(1));
        app.log.Append("Locked Delivery Address - a/c " + account +
                       (Trim(code).empty() ? " Address Code MAIN" : " Address Code " + code));
        break;
      }
      case 8:
        app.log.Append(text);
        break;
      case 9:
        app.log.Append(FormatDate(app.clock.Now(), "yyyy-mm-dd hh:mm") + " - " + text);
        break;
      case 10:
        app.log.Append(text + "Changed Maximizer Client - a/c " + Account(app) + ": " +
                       run.ClientName + " <ID " + run.ClientId + "> ");
        break;
      case 11:
        if (run.BalancesMissed == 1) {
          app.log.Append("");
          app.log.Append("Add Pastel Debtors to Maximizer:");
        }
        app.log.Append("Created Max Client - a/c " + Account(app) + ": " + run.ClientName);
        break;
      default:
        break;
    }
  }
  if (app.shell.DebugLevel != 0) app.log.Close();
}

void LogError(Tolmen& app, const std::string& text) {
  ++app.run.ErrorCount;
  LogEntry(app, 8, "### Error " + std::to_string(app.run.ErrorCount) + ": " + text);
}

int FindSetOption(const OptionArray& options, int first, int last) {
  for (int index = first; index <= last; ++index)
    if (options.Item(index).Value()) return index;
  return last + 1;
}

}  // namespace tolmen
