// Hangs the Maximizer module's handlers on frmMain: "Open Database", the UDF choice lists, and
// "Keep Maximizer Visible". The form wiring calls it once, after the form is built.
#pragma once

namespace tolmen {

class Tolmen;

void WireMaximizerControls(Tolmen& app);

}  // namespace tolmen
