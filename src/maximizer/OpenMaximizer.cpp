#include "maximizer/OpenMaximizer.h"

#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "maximizer/BusyPointer.h"
#include "maximizer/UdfCatalogue.h"
#include "platform/automation/MaximizerAutomation.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "runtime/Trap.h"
#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr const char* kNotOpen = "n/a";
constexpr const char* kListBlocked = "error";
constexpr const char* kWarningTitle = "Maximizer Warning!!";

// The database name that Maximizer's list file gives the folder: the part before the first
// comma of the first line whose part behind it equals the folder without regard to case.
std::optional<std::string> DatabaseNameFor(const std::string& listFile, const std::string& path) {
  std::ifstream in(SystemPath(listFile), std::ios::binary);
  if (!in) throw RuntimeError(53);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::size_t comma = line.find(',');
    if (comma == std::string::npos) continue;
    if (EqualsNoCase(line.substr(comma + 1), path)) return line.substr(0, comma);
  }
  return std::nullopt;
}

void ShowDatabase(Tolmen& app, const std::string& name, const std::string& path) {
  MaximizerLink& link = app.maximizer;
  link.DatabaseName = name;
  link.DatabasePath = path;
  app.screen.frmMain.txtDatabaseName.SetText(name);
  app.screen.frmMain.txtDatabasePath.SetText(path);
}

// Maximizer's list of databases without this folder: the user may go on with the folder alone
// (the name becomes one blank) or end the program.
std::string NameMissing(Tolmen& app, const std::string& path) {
  const AppInfo& info = app.info;
  const std::string text = Join(
      {"The Database name could not be found.", "You may have had more than one Maximizer running.",
       "You can proceed with Database path:", path,
       "Or close all copies of Maximizer and reopen the correct Database.",
       "Would you like to close " + info.AppName + " and reopen the correct Database?"},
      info.LineBreak);
  if (app.ui.MsgBox(text, vbYesNo, info.AppTitle + " Warning: Maximizer Name missing!") == vbYes) {
    app.screen.frmMain.tabDlg.SetTab(0);
    app.options = RunOptions{};
    throw ProcessEnd{"OpenMaximizerOLE"};
  }
  ResetClientSource(app);
  return " ";
}

// The folder differs from the database accepted before: the user takes the new one (and starts
// again) or goes back to Maximizer. Both end the current attempt.
void DatabaseChanged(Tolmen& app, const std::string& name, const std::string& path) {
  MaximizerLink& link = app.maximizer;
  MainForm& form = app.screen.frmMain;
  const AppInfo& info = app.info;
  const std::string text =
      Join({"You have changed the Database From:", link.DatabaseName, "To: " + name,
            "and the database path From:", link.DatabasePath, "To: " + path, "",
            "Do you want to use the Database: " + name, "with the path: " + path + " ?"},
           info.LineBreak);
  if (app.ui.MsgBox(text, vbYesNo, info.AppTitle + " Warning: Maximizer Database changed!") ==
      vbYes) {
    app.ui.MsgBox("Please Click OK and Start again!", vbOKOnly, kWarningTitle);
    ShowDatabase(app, name, path);
    form.tabDlg.SetTab(0);
    ResetClientSource(app);
    cmdOpenDatabse_Click(app);
  } else {
    app.ui.MsgBox("Please go back to Maximizer and change the Database.", vbOKOnly, kWarningTitle);
    form.tabDlg.SetTab(0);
    form.optListClients(0).SetCaption("Use Current List");
    ResetClientSource(app);
  }
}

// A database is accepted: its UDF catalogue is loaded unless it is loaded already.
void EnsureCatalogue(Tolmen& app) {
  const UdfCatalogue& udfs = app.udfs;
  if (!udfs.Loaded || !EqualsNoCase(udfs.LoadedFor, app.maximizer.DatabasePath)) LoadUDFLists(app);
}

bool Open(Tolmen& app) {
  MaximizerLink& link = app.maximizer;
  MainForm& form = app.screen.frmMain;
  if (!link.Attached()) link.Attach();

  const std::string path = link.Application().GetCurrentDBPath();
  if (path == kNotOpen) {
    app.ui.MsgBox("Please run Maximizer before running " + app.info.AppName + "!", vbExclamation,
                  "Maximizer Required!");
    link.Release();
    form.lblUDFkey.SetVisible(false);
    form.tabDlg.SetTab(0);
    return false;
  }

  std::string name;
  const bool samePath = EqualsNoCase(path, link.DatabasePath);
  if (!samePath) {
    std::optional<std::string> found;
    {
      BusyPointer busy(app);
      std::string listFile = link.Application().GetDatabaseList();
      while (listFile == kListBlocked) {
        const int answer = app.ui.MsgBox(
            "Please close the Dialog Box in Maximizer before running " + app.info.AppName + "!",
            vbOKCancel, "Maximizer Blocked!");
        if (answer == vbCancel) {
          form.tabDlg.SetTab(0);
          return false;
        }
        listFile = link.Application().GetDatabaseList();
      }
      found = DatabaseNameFor(listFile, path);
    }
    name = found ? *found : NameMissing(app, path);
  }

  if (!Trim(link.DatabaseName).empty()) {
    const std::int32_t count = link.Record().GetListCount();
    form.optListClients(0).SetCaption("Current List (" + std::to_string(count) + " items)");
  }

  if (link.DatabaseName.empty()) {
    ShowDatabase(app, name, path);
  } else if (!samePath) {
    DatabaseChanged(app, name, path);
    return false;
  }
  EnsureCatalogue(app);
  return true;
}

}  // namespace

bool WaitForMaximizer(Tolmen& app) {
  MaxApplicationObject& maximizer = app.maximizer.Application();
  while (maximizer.GetBusyIndicator()) {
  }
  return true;
}

bool OpenMaximizerOLE(Tolmen& app) {
  if (app.stages.OpenMaximizerOLE) return app.stages.OpenMaximizerOLE();
  try {
    return Open(app);
  } catch (const std::exception& failure) {
    const RuntimeError error = ToRuntimeError(failure);
    app.ui.MsgBox("Error " + std::to_string(error.Number()) + app.info.LineBreak +
                  error.Description());
    app.maximizer.Release();
    return false;
  }
}

void cmdOpenDatabse_Click(Tolmen& app) {
  app.udfs.Loaded = false;
  OpenMaximizerOLE(app);
}

void mnuOptnShowMax_Click(Tolmen& app) {
  MenuItem& item = app.screen.frmMain.mnuOptnShowMax;
  if (item.Checked()) {
    item.SetChecked(false);
    return;
  }
  const AppInfo& info = app.info;
  const std::string text = Join({"Do you really want to Keep Maximizer Visible?", "",
                                 "--Be very careful!  If you change the Sort Order",
                                 "or the Current Record, you could corrupt your data!", "",
                                 "If any Maximizer reminders pop up, " + info.AppName + " will",
                                 "wait until you to close them before continuing."},
                                info.LineBreak);
  if (app.ui.MsgBox(text, vbYesNo + vbQuestion, "Really Keep Maximizer Visible?") == vbYes)
    item.SetChecked(true);
}

void ResetClientSource(Tolmen& app) {
  OptionArray& source = app.screen.frmMain.optListClients;
  for (int index : source.Indexes()) source(index).SetValue(false);
}

}  // namespace tolmen
