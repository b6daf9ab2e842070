// The "To Maximizer" page's handlers: the four buttons that edit the list of links, and the
// clicks and double clicks of its three lists. Add and Replace are enabled while both upper
// lists have a selection, Delete and Edit while a link is selected.
#pragma once

namespace tolmen {

class Tolmen;

// Adds the link of the two upper lists' selections (GetPas2MaxItem) and selects it.
void cmd2MaxAdd_Click(Tolmen& app);
// Removes the selected link; "First Select the item you want to delete!" without one.
void cmd2MaxDelete_Click(Tolmen& app);
// Selects the selected link's row and UDF in the upper lists; "First Select the item you want
// to Edit!" without one, Parse2MaxOK's message (titled " Couldn't Edit!") for a broken link.
void cmd2MaxEdit_Click(Tolmen& app);
// Puts the link of the upper lists' selections in place of the selected link; "First Select the
// item you want to Replace, or Add instead!" without one.
void cmd2MaxReplace_Click(Tolmen& app);

// lst2MaxPastel: lblAging shows for the ageing rows; Add and Replace follow the selections.
void lst2MaxPastel_Click(Tolmen& app);
// lst2MaxLinked: the selected link becomes the list's tooltip ("Click item & Wait for Tooltip"
// without one); Delete and Edit follow the selection.
void lst2MaxLinked_Click(Tolmen& app);

// Hangs the handlers above on frmMain; a double click on a link edits it, on either upper list
// adds a link. REQUIRES: `app` outlives its screen's handlers.
void WireToMaximizerControls(Tolmen& app);

}  // namespace tolmen
