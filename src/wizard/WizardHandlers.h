// Hangs the handlers of every module on the forms' controls, and wires the run's stages to the
// routines of their modules.
#pragma once

namespace tolmen {

class Tolmen;

// Help button and Help menu: the help page of the tab shown.
void cmdHelp_Click(Tolmen& app);
// The run's stages (RunStages) filled with the modules' routines, where not filled already.
void WireStages(Tolmen& app);
// Every handler of frmMain, frmSetup and the stages. REQUIRES: `app` outlives its screen.
void WireMainForm(Tolmen& app);

}  // namespace tolmen
