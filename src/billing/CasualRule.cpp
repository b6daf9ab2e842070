#include "billing/CasualRule.h"

#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Strings.h"

namespace tolmen {

std::string ComposeCasualBill(const std::string& udfName, const std::string& trigger,
                              const std::string& documentName, const std::string& inventoryRow,
                              const std::string& price) {
  std::string rule = "If <" + udfName + "> Contains \"" + RemoveChar(trigger, "\"") + "\" then " +
                     documentName + " " + inventoryRow;
  if (!price.empty()) rule += ": Price " + price;
  return rule;
}

std::string InventoryCode(const std::string& row) {
  const long open = InStr(row, "<");
  if (open == 0) return "";
  const long close = InStr(open, row, "> ");
  if (close == 0) return Mid(row, open + 1);
  return Mid(row, open + 1, close - open - 1);
}

CasualBill ParseCasualBill(std::string rule, const std::vector<std::string>& documentNames) {
  CasualBill bill;
  bill.udfName = Mid(PopField(rule, ">"), 5);
  PopField(rule, "\"");
  bill.trigger = PopField(rule, "\"");
  rule = Mid(rule, 5);
  bill.documentName = PopField(rule, "<");
  for (std::size_t i = 0; i < documentNames.size(); ++i) {
    if (EqualsNoCase(documentNames[i], bill.documentName)) {
      bill.documentIndex = static_cast<int>(i);
      break;
    }
  }
  const long end = static_cast<long>(rule.size()) + 1;
  long close = InStr(rule, ">");
  long colon = InStr(rule, ":");
  if (close == 0) close = end;
  if (colon == 0) colon = end;
  bill.code = PopField(rule, close >= colon ? ": " : "> ");
  bill.rest = rule;
  return bill;
}

void AddItemError(const std::string& key, std::string& message, bool& failed,
                  const std::string& lineBreak) {
  if (InStr(message, key) == 0) message += lineBreak + key;
  failed = true;
}

std::string RuleFault(const CasualBill& bill, bool udfListed, bool codeListed) {
  if (!udfListed) return "<" + bill.udfName + "> was not found in the list of Maximizer UDFs.";
  if (bill.documentIndex < 0)
    return "Document Type <" + bill.documentName + "> is not a Pastel Document.";
  if (!codeListed) return "Code <" + bill.code + "> was not found in the Pastel Inventory.";
  return "";
}

std::string StockItemFault(const std::string& code, const StockItemFacts& item) {
  const std::string cannot = "Code <" + code + "> can not be Invoiced: ";
  if (!item.priceError.empty()) return cannot + "Price Error: " + item.priceError;
  if (!(Val(item.price) > 0)) return cannot + "Bad Price (" + item.price + ")";
  if (Left(item.taxCode, 2) == "**") return cannot + "VAT Code Error: " + item.taxCode;
  if (Left(item.description, 2) == "**") return cannot + "Description Error: " + item.description;
  return "";
}

std::string CasualLineString(const std::string& code, const StockItemFacts& item) {
  return "|1|" + item.price + "|||" + item.taxCode + "|||" + code + "|" + item.description + "|4|";
}

}  // namespace tolmen
