// The wizard's path through its six pages: Next and Back, what happens on arriving at a page, the
// Import entry on the Transfer page, the database-change warning and the list tab stops.
//
// Next runs the checks of the page it leaves and, when they pass, selects the next visible page
// (up to three hidden pages are skipped); a failing check stays on the page, its routine having
// spoken. Back skips hidden pages without checks. Selecting a page (by the user or by code) runs
// tabDlg_Click, the page's arrival work.
#pragma once

namespace tolmen {

class Tolmen;
class ListBox;

void cmdNext_Click(Tolmen& app);
void cmdBack_Click(Tolmen& app);
// The arrival at the page now selected.
void tabDlg_Click(Tolmen& app);
// The Save button saves the template, as the File menu's "&Save Template..." does.
void cmdSave_Click(Tolmen& app);

// Next on the Transfer page: the Import entry, from the checks to the run and back.
void ImportEntry(Tolmen& app);

// The address boxes with "", "<Selected>", "<First Alternate>" and "*Main Address".
void RefillAddressBoxes(Tolmen& app);

// Asks once per template when the template's database is not the one selected now, while the
// folder box still holds the template's Pastel folder. False when the user answered No (the
// wizard is then on page 0).
bool DatabaseChangeWarning(Tolmen& app);

// Column positions of a list box with columns: 100, 140, 160 dialog units in mode 0, 80, 100,
// 120 in mode 1, 125, 165, 215 in mode 2.
void SetListTabStops(ListBox& list, int mode);

}  // namespace tolmen
