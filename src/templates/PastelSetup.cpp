#include "templates/PastelSetup.h"

#include "shell/Tolmen.h"

namespace tolmen {
namespace {

template <size_t N>
void FillAndSelect(Tolmen& app, ComboBox& box, const std::array<const char*, N>& entries,
                   int held) {
  box.Clear();
  for (const char* entry : entries) box.AddItem(entry);
  try {
    box.SetListIndex(held);
  } catch (const RuntimeError& error) {
    const std::string& lineBreak = app.info.LineBreak;
    app.ui.MsgBox("Run-time error '" + std::to_string(error.Number()) + "':" + lineBreak +
                      lineBreak + error.Description(),
                  vbCritical, app.info.AppName);
  }
}

}  // namespace

void mnuOptnPastel_Click(Tolmen& app) {
  app.screen.frmSetup.Show(true);
}

void frmSetup_Load(Tolmen& app) {
  SetupForm& form = app.screen.frmSetup;
  const RunOptions& options = app.options;
  FillAndSelect(app, form.cboDocument, kDocumentSettings, options.PrintDocument);
  FillAndSelect(app, form.cboStatement, kStatementSettings, options.PrintStatement);
  FillAndSelect(app, form.cboMessage, kMessageSettings, options.PrintMessage);
}

void frmSetup_cmdOk_Click(Tolmen& app) {
  SetupForm& form = app.screen.frmSetup;
  app.options.PrintDocument = static_cast<int16_t>(form.cboDocument.ListIndex());
  app.options.PrintStatement = static_cast<int16_t>(form.cboStatement.ListIndex());
  app.options.PrintMessage = static_cast<int16_t>(form.cboMessage.ListIndex());
  form.Unload();
}

void frmSetup_cmdCancel_Click(Tolmen& app) {
  app.screen.frmSetup.Unload();
}

}  // namespace tolmen
