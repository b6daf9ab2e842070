// The keys a template may hold: every key of the present format, the old keys that are taken
// without effect, and the old keys that became links of the "To Maximizer" list.
#pragma once

#include <string>

namespace tolmen {

enum class TemplateKey {
  Tab,
  PastelDataFolder,
  PastelPassword,
  DatabasePath,
  ListClients,
  CategoryOption,
  ExistingCategory,
  CategoryUdf,
  ImportWhichData,
  CriteriaUdf,
  CriteriaText,
  PatternMatching,
  IndividualNames,
  AddClientName,
  AddCompanyName,
  PostalAddress,
  DeliveryAddress,
  PrefixSize,
  SuffixSize,
  AccountNumber,
  Mismatch,
  VatNumber,
  ToMax,
  BillingPeriod,
  BillWhen,
  BillOnWhichDay,
  DateJoined,
  DateBilled,
  GLCode,
  VATCode,
  COSTCode,
  Bill,
  Message1Udf,
  Message2Udf,
  Message1Text,
  Message2Text,
  PrintDocument,
  PrintStatement,
  PrintMessage,
  OldKey,    // taken and ignored
  OldToMax,  // turned into a "To Max" line
  Unknown,
};

// The key of a line's key text, compared without regard to case. For TemplateKey::OldToMax `oldRow`
// receives the name of the Pastel field the old key linked.
TemplateKey TemplateKeyOf(const std::string& key, const char*& oldRow);

}  // namespace tolmen
