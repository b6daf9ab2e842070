// A casual billing rule as text, and the checks a rule must pass before a run. Pure functions.
//
// A rule reads
//   If <Membership> Contains "GOLD" then Batch Invoice <FEE01> Annual fee: Price 100.00
// that is: the UDF, the text that triggers billing (never holding a double quote), the document,
// the inventory row ("<code> description") and, only when a price was found, ": Price " and it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tolmen {

// The documents a rule may raise, in the order of lstBillType, with their document types.
struct CasualDocument {
  const char* name;
  std::int16_t type;
};
inline constexpr std::array<CasualDocument, 5> kCasualDocuments = {{{"Quote", 101},
                                                                    {"Sales Order", 102},
                                                                    {"Batch Invoice", 103},
                                                                    {"Batch Credit Note", 104},
                                                                    {"Batch Debit Note", 105}}};
// lstBillType's selection on a new screen: "Batch Invoice".
constexpr int kDefaultCasualDocument = 2;

// The only row of lstPasInventory when Pastel has no stock items.
constexpr const char* kNoInventoryItems = "No Inventory Items Set Up.";

// The rule for the four choices: the UDF, the trigger text (its double quotes dropped), the
// document and the inventory row; `price` adds ": Price " and itself when not empty.
std::string ComposeCasualBill(const std::string& udfName, const std::string& trigger,
                              const std::string& documentName, const std::string& inventoryRow,
                              const std::string& price);

// The code of an inventory row: the text between its first "<" and the "> " after it.
std::string InventoryCode(const std::string& row);

// The pieces of a rule as ParseCasualBill cuts them.
struct CasualBill {
  std::string udfName;
  std::string trigger;
  std::string documentName;
  int documentIndex = -1;  // in `documentNames`, -1 when not there
  std::string code;
  std::string rest;  // what follows the code: the description and any price
  bool operator==(const CasualBill&) const = default;
};

// Cuts a rule into its pieces:
//   1. up to the first ">", from its fifth character on: the UDF name;
//   2. the second field at the double quotes: the trigger text;
//   3. the rest from its fifth character on (dropping "then");
//   4. up to "<": the document, looked up whole (case ignored) in `documentNames`;
//   5. up to "> " when the first ">" comes before the first ":", else up to ": " (a missing one
//      counts as the end of the text): the code; the remainder is `rest`.
// Every field is trimmed. A text that is no rule still gives pieces, however odd.
CasualBill ParseCasualBill(std::string rule, const std::vector<std::string>& documentNames);

// Adds `key` as a line of its own to `message` unless the message holds it already, and sets
// `failed` either way; identical faults of several rules are thus reported once.
void AddItemError(const std::string& key, std::string& message, bool& failed,
                  const std::string& lineBreak);

// Checks 1 to 3 of a rule: its UDF is among the UDFs offered, its document is known, its code
// is in the inventory list. The fault's text, or "" when the rule passes.
std::string RuleFault(const CasualBill& bill, bool udfListed, bool codeListed);

// What the stock item of a rule's code reads as: the price lookup's error text ("" when it
// found the item), the price ("0.00", "" when none), the tax code and the description (both
// starting "** " when they could not be read).
struct StockItemFacts {
  std::string priceError;
  std::string price;
  std::string taxCode;
  std::string description;
};

// Checks 4 to 7: no price error, a price above 0, a tax code and a description. The fault's
// text, or "" when the item can be billed.
std::string StockItemFault(const std::string& code, const StockItemFacts& item);

// The document line of a rule for the posting toolkit; its line type is 4.
std::string CasualLineString(const std::string& code, const StockItemFacts& item);

}  // namespace tolmen
