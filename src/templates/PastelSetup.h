// frmSetup, the Pastel debtor settings dialog: the document, statement and terms message settings
// of new debtors, held as the list indexes of its three boxes in app.options ("Print Document",
// "Print Statement", "Print Message").
#pragma once

#include <array>

namespace tolmen {

class Tolmen;

inline constexpr std::array<const char*, 4> kDocumentSettings = {
    "Do not change the Settings", "Print Document", "Email Document", "Print and Email Document"};
inline constexpr std::array<const char*, 5> kStatementSettings = {
    "Do not change the Settings", "Print Document", "Email Document", "Print and Email Document",
    "Do not Print and Email Document"};
inline constexpr std::array<const char*, 3> kMessageSettings = {
    "Do not change the Settings", "Print Oldest Terms Message", "Print First Terms Message"};

// Opens frmSetup as a modal dialog.
void mnuOptnPastel_Click(Tolmen& app);
// Fills the three boxes and selects the held index in each. A held index the box cannot take
// (from a template written by other means) is reported as the run-time error it is, and that
// box is left without a selection.
void frmSetup_Load(Tolmen& app);
// Stores the three boxes' indexes and closes the dialog.
void frmSetup_cmdOk_Click(Tolmen& app);
// Closes the dialog; the held values stay as they were.
void frmSetup_cmdCancel_Click(Tolmen& app);

}  // namespace tolmen
