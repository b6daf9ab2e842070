// The current client's addresses and phones on its Pastel account: which address is the postal
// and which the delivery address, how an address is folded into five lines of 30 characters, and
// which phone entry is the telephone, the cell phone or the fax. The results go into the
// in-memory pasDebtor and pasDelivery records.
//
// An address choice ("Pastel Postal Address", "Pastel Delivery Address") is empty (no address),
// "<Selected>" (the client's own address fields), "<First Alternate>" (the first address in list
// order that is not the main one), or the name of one of the client's addresses, matched without
// regard to case ("*Main Address" is such a name too).
#pragma once

#include <array>
#include <string>

namespace tolmen {

class Tolmen;

// The debtor's name (field 3), category (1), postal address (56-60), VAT number (62) and change
// stamp (124). The first address line is the person's name ("Add Client Name to Address"), or
// with "Add Company Name to Address" (alone or with the other) a company's Name or an
// individual's company. An address that is not found blanks the fields while NewRecordFlag is -1.
void DoDebtorContactInfo(Tolmen& app);

// Places the address of `choice` in ClientState::AddressLines, `firstLine` heading it when not
// empty; true when an address was found. "<Selected>" adds Division, Address_Line_1,
// Address_Line_2, City, State_/_Province, Country with AddAddressLine and Zip_/_Postal_Code with
// AddPostalLine; an address of the list adds its seven fields, the postal code last, all with
// AddAddressLine. A client without such an address (or with no addresses at all) gives false.
bool GetAddressLines(Tolmen& app, const std::string& choice, const std::string& firstLine);

// Adds one cleaned, non-empty text: the first five become lines 1 to 5, every later one is
// appended to line 5 behind ", ".
void AddAddressLine(Tolmen& app, const std::string& text);
// Adds the postal code: as the next line while fewer than five are used, else in front of line 5
// with two blanks between ("2093  Johannesburg, Gauteng").
void AddPostalLine(Tolmen& app, const std::string& text);

// The delivery record: for a new debtor every field blanked, the account code in field 1, three
// blanks in field 2; then the contact (4), ClassifyPhones, and the delivery address (8-12).
void DoDeliveryInfo(Tolmen& app, bool isNew);

// One of the client's four phone entries, cleaned.
struct PhoneEntry {
  std::string number;
  std::string extension;
  std::string description;
};

struct PhoneClasses {
  std::string telephone;
  std::string cell;
  std::string fax;
  std::string other;
  std::string email;  // what an entry described as e-mail held; never carried to Pastel
};

// Sorts the entries by their descriptions, compared whole and without regard to case; a later
// entry of a class replaces an earlier one, and an entry without a number is passed over:
//   "TEL", "MAIN"                     telephone  number [+ " x " + extension]
//   "FAX"                             fax        number [+ " x " + extension]
//   "CEL", "CELL", "MOBIL", "MOB"     cell       number
//   "EMAIL", "E-MAI"                  email      number
//   anything else ("Mobile", "Tel.")  other      number [+ " x " + extension]
//                                                [+ " (" + first character of description + ")"]
// An empty telephone takes the other.
PhoneClasses ClassifyPhoneEntries(const std::array<PhoneEntry, 4>& entries);

// Delivery fields 5 (telephone), 7 (fax) and 6 (cell), each cut to 16 characters, and 13 (the
// e-mail). The e-mail is the client's "E-mail Address", else "E-mail Address 2", else
// "E-mail Address 3"; one longer than 50 characters keeps 49 and ends in "?".
void ClassifyPhones(Tolmen& app);

}  // namespace tolmen
