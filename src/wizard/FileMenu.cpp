#include "wizard/FileMenu.h"

#include "background/StartupEntry.h"
#include "runtime/Conversion.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"

namespace tolmen {

namespace {

constexpr const char* kPastel2007 = "Pastel Accounting 2007 (9)";

FileDialogRequest TemplateDialog(Tolmen& app, bool save) {
  FileDialogRequest request;
  request.save = save;
  request.title = save ? "Save Template" : "Open Template";
  const std::string pattern =
      app.shell.TemplateDialogFilter.empty() ? "*.KTF" : app.shell.TemplateDialogFilter;
  request.filter = "Templates (" + pattern + ")|" + pattern + "|All Files (*.*)|*.*";
  request.initialFolder =
      app.shell.TemplateDialogFolder.empty() ? app.info.AppFolder : app.shell.TemplateDialogFolder;
  request.defaultExtension = "KTF";
  return request;
}

void OpenTemplateFromMenu(Tolmen& app, bool parts) {
  std::string path;
  if (!app.ui.FileDialog(TemplateDialog(app, false), path)) return;
  // A template opened anew may warn about its database again, once: a read in parts shows the
  // "To Pastel" page, whose warning then counts for the template.
  app.wizard.DatabaseWarned = false;
  if (!TemplateOpen(app, path, parts)) return;
  SetOptions(app);
  if (app.pastel.PastelProduct == kPastel2007)
    app.screen.frmMain.tabDlg.SetTab(MainForm::kTabTransfer);
}

void LimitLogFileSize(Tolmen& app) {
  const std::string& br = app.info.LineBreak;
  const std::string answer =
      app.ui.InputBox("Limit Log File Size to how many Kilobytes?" + br +
                          "Previous file is kept as Tolmen0.LOG" + br + "(0 = Do not limit size.)",
                      "Limit Log File Size?", std::to_string(app.shell.LogFileLimit));
  if (!IsNumeric(Variant(answer))) return;
  try {
    app.shell.LogFileLimit = CLng(Variant(answer));
  } catch (const RuntimeError& error) {
    // A number beyond a long: the error is shown and the limit stays.
    app.ui.MsgBox(error.Description(), vbExclamation, app.info.AppTitle);
    return;
  }
  app.settings.SaveSetting("Settings", "LogFileLimit", std::to_string(app.shell.LogFileLimit));
  app.screen.frmMain.mnuFile(21).SetChecked(app.shell.LogFileLimit > 0);
}

}  // namespace

void mnuFile_Click(Tolmen& app, int index) {
  MainForm& form = app.screen.frmMain;
  switch (index) {
    case 0:
      OpenTemplateFromMenu(app, false);
      break;
    case 1:
      OpenTemplateFromMenu(app, true);
      break;
    case 2: {
      std::string path;
      if (app.ui.FileDialog(TemplateDialog(app, true), path)) TemplateSave(app, path);
      break;
    }
    case 20: {
      const std::string log = LogFilePath(app);
      if (!app.ui.OpenInEditor(log))
        app.ui.MsgBox(ErrorText(53) + ": " + log, vbExclamation, app.info.AppTitle);
      break;
    }
    case 21:
      LimitLogFileSize(app);
      break;
    case 40:
      app.screen.frmOptions.Show(true);
      break;
    case 50: {
      const bool on = !form.mnuFile(50).Checked();
      SetStartupShortcut(app.info.AppName, on ? 1 : 0);
      form.mnuFile(50).SetChecked(IsStartupShortcutThere());
      break;
    }
    case 51:
      form.mnuFile(51).SetChecked(!form.mnuFile(51).Checked());
      break;
    case 99:
      form.Unload();
      break;
    default:
      break;
  }
}

}  // namespace tolmen
