#include "maximizer/MaximizerControls.h"

#include "maximizer/OpenMaximizer.h"
#include "maximizer/UdfCatalogue.h"
#include "shell/Tolmen.h"

namespace tolmen {

void WireMaximizerControls(Tolmen& app) {
  MainForm& form = app.screen.frmMain;
  form.cmdOpenDatabse.SetOnClick([&app] { cmdOpenDatabse_Click(app); });
  form.mnuOptnShowMax.SetOnClick([&app] { mnuOptnShowMax_Click(app); });
  form.cboCatgrUDF.SetOnClick([&app] { cboCatgrUDF_Click(app); });
  form.cboUserFields.SetOnClick([&app] { cboUserFields_Click(app); });
  form.cboAcctCode.SetOnClick([&app] { cboAcctCode_Click(app); });
  form.cboVATnumber.SetOnClick([&app] { cboVATnumber_Click(app); });
  form.cboDateJoined.SetOnClick([&app] { cboDateJoined_Click(app); });
  form.cboDateBilled.SetOnClick([&app] { cboDateBilled_Click(app); });
  form.cboMessage.SetOnClick([&app](int index) { cboMessage_Click(app, index); });
}

}  // namespace tolmen
