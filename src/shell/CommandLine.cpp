#include "shell/CommandLine.h"

#include <filesystem>
#include <system_error>

#include "runtime/Cp1252.h"
#include "runtime/Strings.h"
#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"
#include "templates/SetOptions.h"
#include "templates/TemplateFile.h"
#include "transfer/RunStart.h"

namespace tolmen {
namespace {

constexpr const char* kStartTemplate = "CURRENT.KTF";

bool Has(const std::string& text, const std::string& find) {
  return InStr(1, text, find, vbTextCompare) > 0;
}

// The text without every `find`, compared without regard to case.
std::string Without(const std::string& text, const std::string& find) {
  return Replace(text, find, "", 1, -1, vbTextCompare);
}

bool FileExists(const std::string& path) {
  std::error_code ec;
  return std::filesystem::is_regular_file(Cp1252ToUtf8(path), ec);
}

// A template named on the command line: in the program's folder when the name holds no
// backslash, else a path whose backslashes separate its folders.
std::string TemplatePath(Tolmen& app, const std::string& name) {
  if (InStr(name, "\\") == 0) return app.info.AppFolder + name;
  return Replace(name, "\\", "/");
}

// Step 5: the template's run. False when it could not start.
bool RunCommandLineTemplate(Tolmen& app, const std::string& path) {
  if (!TemplateOpen(app, path)) return false;
  SetOptions(app);
  RunEntry entry;
  entry.reason = "from Command Line: " + app.shell.CommandLine;
  entry.loadCategories = true;
  entry.showTransferPage = true;
  if (!StartRun(app, entry)) return false;
  if (app.shell.QuitAfterRun) throw ProcessEnd{"/Q"};
  return true;
}

}  // namespace

void ParseCommandLine(Tolmen& app) {
  ShellState& shell = app.shell;
  std::string text = Trim(shell.CommandLine);
  shell.AutoRunAllowed = true;
  if (text.empty()) return LoadStartTemplate(app);

  if (Has(text, "/Q")) {
    shell.QuitAfterRun = true;
    text = Trim(Without(Without(text, "/QUIT"), "/Q"));
  }
  if (Has(text, "/S")) {
    app.run.ShowFinalMessage = false;
    text = Trim(Without(Without(text, "/SILENT"), "/S"));
  }
  if (Has(text, "/N")) {
    shell.AutoRunAllowed = false;
    text = Trim(Without(Without(text, "/NOAUTO"), "/N"));
  }
  if (Has(text, "/C") || Has(text, "/1")) {
    app.run.CurrentClientOnly = true;
    text = Trim(Without(Without(text, "/C"), "/1"));
  }

  const std::string& br = app.info.LineBreak;
  if (Has(text, "/")) {
    app.ui.MsgBox("Command Line contains unknown Parameter(s)." + br + "Command Line: " + text +
                      br + "You may use:  /SILENT /QUIT /NOAUTO /C",
                  vbCritical, app.info.AppName + " Command Line Ignored");
    text.clear();
  }

  if (!text.empty()) {
    shell.AutoRunAllowed = false;
    const std::string path = TemplatePath(app, text);
    if (!FileExists(path)) {
      app.ui.MsgBox("The Template " + path + " specified in the Command Line does not exist!",
                    vbExclamation, app.info.AppName + " Start-Up Error");
      shell.ExitStatus = kExitRunNotStarted;
      return;
    }
    if (!RunCommandLineTemplate(app, path)) shell.ExitStatus = kExitRunNotStarted;
  }
  LoadStartTemplate(app);
}

void LoadStartTemplate(Tolmen& app) {
  std::error_code ignored;
  std::filesystem::current_path(Cp1252ToUtf8(app.info.AppFolder), ignored);
  const std::string path = app.info.AppFolder + kStartTemplate;
  if (!FileExists(path)) return LoadDefaults(app);
  if (!TemplateOpen(app, path)) {
    LoadDefaults(app);
    app.shell.TemplateLoaded = false;
  }
}

void LoadDefaults(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  // The root stands where the system had "C:\".
  form.Drive1.SetText("/");
  form.Dir1.SetText("/");
  form.optCategory.Set(0);
  form.chkToPastel(0).SetValue(0);
  form.chkToPastel(2).SetValue(0);
  form.optImport.Set(2);
  form.txtPrefix.SetText("4");
  form.txtSuffix.SetText("2");
}

}  // namespace tolmen
