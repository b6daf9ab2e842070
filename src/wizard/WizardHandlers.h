// Hangs the handlers that exist on the main form's controls.
#pragma once

namespace tolmen {

class Tolmen;

// Help button and Help menu: the help page of the tab shown.
void cmdHelp_Click(Tolmen& app);
// Attaches the handlers above, and File > Exit, to frmMain.
void WireMainForm(Tolmen& app);

}  // namespace tolmen
