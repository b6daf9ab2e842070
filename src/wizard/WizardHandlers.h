// Hangs the handlers of every module on the forms' controls.
#pragma once

namespace tolmen {

class Tolmen;

// Help button and Help menu: the help page of the tab shown.
void cmdHelp_Click(Tolmen& app);
// Every handler of frmMain and frmSetup. REQUIRES: `app` outlives its screen.
void WireMainForm(Tolmen& app);

}  // namespace tolmen
