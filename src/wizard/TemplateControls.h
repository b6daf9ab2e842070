// The click handlers of the controls a template sets, and the wiring of the template menu items
// and of the Pastel setup dialog.
#pragma once

namespace tolmen {

class Tolmen;

// The category option decides what can be edited: 0 the list of existing categories, 1 the two
// boxes of a new category (filled with "New Category Description" and the number after the
// highest one in the list), 2 the category UDF.
void optCategory_Click(Tolmen& app, int index);

// "Import Which Data": holds the choice (index + 1) in the options; the criteria UDF box counts
// only for the marked items (2 and 3), and its value box only when a criteria UDF is named.
void optImport_Click(Tolmen& app, int index);

// "Billing Period": any period enables the billing set-up controls and reads the price list
// again; "No Billing" disables them, empties the price list and lets the billing check pass.
void optBillPeriod_Click(Tolmen& app, int index);

// Hangs the handlers above on frmMain, opens frmSetup from mnuOptnPastel, and hangs frmSetup's
// load, OK and Cancel. REQUIRES: `app` outlives its screen's handlers.
void WireTemplateControls(Tolmen& app);

}  // namespace tolmen
