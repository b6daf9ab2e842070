#include "toolkit/ToolkitStatus.h"

#include "runtime/Conversion.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

struct StatusRow {
  int code;
  const char* text;
  bool appendsExtra;
};

constexpr StatusRow kStatusTexts[] = {
    {0, "Operation successful", false},
    {1, "File not found", false},
    {2, "Invalid number of fields", false},
    {3, "Record update failed", false},
    {4, "Record insert failed", false},
    {5, "Code is not in Pastel ", true},
    {6, "Data path does not exist", false},
    {7, "Access denied", false},
    {9, "End of file", false},
    {10, "Field number specified not valid", false},
    {11, "Invalid period number (1 to 13)", false},
    {12, "Invalid date", false},
    {13, "Invalid account type (GDC)", false},
    {14, "Invalid general ledger account number", false},
    {15, "General ledger account contains sub accounts", false},
    {16, "General ledger account number must be numeric", false},
    {17, "Invalid customer account code", false},
    {18, "Invalid supplier account code", false},
    {19, "Invalid inventory item code", false},
    {20, "Invalid salesman code", false},
    {21, "Invalid job code", false},
    {22, "Invalid Tax Type (0 to 30)", false},
    {23, "Transaction amount cannot be less that the tax amount", false},
    {24, "Invalid open item transaction type - must be O (Original) or A (Allocation)", false},
    {25, "There cannot be more than 500 lines in a batch", false},
    {26, "Invalid account description", false},
    {27, "Default group needs to set up in Pastel", false},
    {28, "Invalid document line type - must be 2, 5, or 7", false},
    {29, "Invalid exclusive / inclusive - must be 0 or 1", false},
    {30, "Invalid Entry Type (1 to 90)", false},
    {31, "Duplicate inventory item", false},
    {90, "BTrieve Error ", true},
    {99, "Runtime Error ", true},
};

std::string CodeText(double code, const std::string& extra) {
  if (code == 0 && !extra.empty()) return extra;
  for (const StatusRow& row : kStatusTexts) {
    if (row.code != code) continue;
    return row.appendsExtra ? row.text + extra : std::string(row.text);
  }
  return "Undefined Error " + extra;
}

}  // namespace

std::string ToolkitStatusText(const std::string& status, const std::string& extra) {
  std::string text = CodeText(Val(status), extra);
  const long pipe = InStr(status, "|");
  if (pipe > 0) text += " (" + Mid(status, pipe + 1) + ")";
  return text;
}

}  // namespace tolmen
