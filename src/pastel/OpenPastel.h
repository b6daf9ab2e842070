// Opening a set of Pastel accounts: choosing the folder, proving that it holds Pastel data of the
// expected version, opening the files in their fixed order, working out the period and ageing
// state, and closing everything again.
//
// Order of the calls: OpenPastel (the entry of the wizard and of a template run) calls
// ClosePasFiles, checks the folder with the toolkit and the system parameter file, works out the
// version, opens the user and tax files and calls OpenAndInitPastel, which opens the debtor,
// parameter, delivery and category files. ClosePasFiles undoes both and is safe at any time.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

inline constexpr const char* kExpectedPastelProduct = "Pastel Accounting 2007 (9)";

// True when every file is open and initialised, false otherwise, with one exception: when the
// user file cannot be opened the answer is true although only the system parameter file is open
// and PastelDataPath has not been set (that is how the routine has always stood). The folder
// comes from the folder list (frmMain.Dir1); a wrong one is asked for again in an input
// box, and an empty answer ends with false.
bool OpenPastel(Tolmen& app);

// The second half of the open. REQUIRES: PastelDataPath set and the user file open (OpenPastel).
bool OpenAndInitPastel(Tolmen& app);

// The two halves of SetPastelFormats: the number format from the GL parameters' field 671
// (PastelNumberFormat) and the date mask from the system parameters' field 14 (PastelDateMask).
enum class PastelFormat { Number, Date };
void SetPastelFormats(Tolmen& app, PastelFormat which);

// Closes and releases the set's record objects, then the Maximizer client file. Does nothing
// when it is already running. CurrentSection names each stage while it runs and is the
// caller's again afterwards.
void ClosePasFiles(Tolmen& app);

// The folder list's change: the inventory list must be read again and the Pastel frame reads
// "Pastel Accounts" again.
void Dir1_Change(Tolmen& app);
// The drive list's change: the same, and the folder list moves to the drive.
void Drive1_Change(Tolmen& app);

// The product and the version shown for the version text of the system parameters (already
// trimmed). A text starting with "9" holds two binary bytes behind the 9: "9\x01\x05" gives
// "9.1.5"; a 9 without both bytes raises RuntimeError(5). Other versions are shown as read.
struct PastelProductVersion {
  std::string product;
  std::string version;
};
PastelProductVersion DecidePastelProduct(const std::string& versionText);

// The number format: separator, decimal count and currency text of field 671 (stripped) give the
// escaped currency, the separator, "###", the separator, "##0." and the decimals' zeros
// (",2R" gives "\R,###,##0.00").
std::string PastelNumberFormatFor(const std::string& field671);
// The date mask of field 14: "1" first for a two-digit year, the order second ("1" or "2" day or
// month first, "3" year first, anything else no mask), the separator third ("02/" gives
// "##/##/####").
std::string PastelDateMaskFor(const std::string& field14);

}  // namespace tolmen
