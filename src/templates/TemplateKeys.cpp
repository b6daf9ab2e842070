#include "templates/TemplateKeys.h"

#include <array>

#include "runtime/Cp1252.h"

namespace tolmen {
namespace {

struct KeyName {
  const char* name;
  TemplateKey key;
};

constexpr std::array<KeyName, 39> kKeys = {{
    {"Tab", TemplateKey::Tab},
    {"Pastel Data Folder", TemplateKey::PastelDataFolder},
    {"Pastel Password", TemplateKey::PastelPassword},
    {"Maximizer Database Path", TemplateKey::DatabasePath},
    {"List Clients", TemplateKey::ListClients},
    {"Category Option", TemplateKey::CategoryOption},
    {"Existing Customer Category", TemplateKey::ExistingCategory},
    {"Category UDF", TemplateKey::CategoryUdf},
    {"Import Which Data", TemplateKey::ImportWhichData},
    {"Import Criteria UDF", TemplateKey::CriteriaUdf},
    {"Import Criteria Text", TemplateKey::CriteriaText},
    {"Pattern Matching", TemplateKey::PatternMatching},
    {"Individual Client Names", TemplateKey::IndividualNames},
    {"Add Client Name to Address", TemplateKey::AddClientName},
    {"Add Company Name to Address", TemplateKey::AddCompanyName},
    {"Pastel Postal Address", TemplateKey::PostalAddress},
    {"Pastel Delivery Address", TemplateKey::DeliveryAddress},
    {"Pastel Prefix Size", TemplateKey::PrefixSize},
    {"Pastel Suffix Size", TemplateKey::SuffixSize},
    {"Account Number", TemplateKey::AccountNumber},
    {"Mismatched Account Nos", TemplateKey::Mismatch},
    {"VAT Number", TemplateKey::VatNumber},
    {"To Max", TemplateKey::ToMax},
    {"Billing Period", TemplateKey::BillingPeriod},
    {"Bill When", TemplateKey::BillWhen},
    {"Bill on Which day", TemplateKey::BillOnWhichDay},
    {"Date Joined", TemplateKey::DateJoined},
    {"Date Billed", TemplateKey::DateBilled},
    {"GL Code", TemplateKey::GLCode},
    {"VAT Code", TemplateKey::VATCode},
    {"COST Code", TemplateKey::COSTCode},
    {"Bill", TemplateKey::Bill},
    {"Custom Message 1 UDF", TemplateKey::Message1Udf},
    {"Custom Message 2 UDF", TemplateKey::Message2Udf},
    {"Custom Message 1 Text", TemplateKey::Message1Text},
    {"Custom Message 2 Text", TemplateKey::Message2Text},
    {"Print Document", TemplateKey::PrintDocument},
    {"Print Statement", TemplateKey::PrintStatement},
    {"Print Message", TemplateKey::PrintMessage},
}};

// Keys of older versions that are read without complaint and have no effect.
constexpr std::array<const char*, 15> kOldKeys = {"Maximizer Data Folder",
                                                  "Maximizer Password",
                                                  "Maximizer Database",
                                                  "Update Maximizer from Pastel",
                                                  "New Maximizer Client from Pastel",
                                                  "Update Pastel from Maximizer",
                                                  "New Pastel Client from Maximizer",
                                                  "Never check newer Maximizer",
                                                  "Never check newer Pastel",
                                                  "Do Delivery Address",
                                                  "Do Contacts",
                                                  "Accept Matching Account Nos",
                                                  "Post Invoice",
                                                  "Bill On Joinning",
                                                  "Post Invoice1"};

// Keys of older versions that named the UDF of one Pastel field; they become links of the
// "To Maximizer" list.
struct OldLink {
  const char* key;
  const char* row;
};
constexpr std::array<OldLink, 4> kOldLinks = {{
    {"Balance UDF", "Account Balance"},
    {"Cr Limit UDF", "Customer Credit Limit"},
    {"Document Nos", "Pastel Doc Numbers (Billing)"},
    {"Document Dates", "Pastel Doc Dates (Billing)"},
}};

}  // namespace

TemplateKey TemplateKeyOf(const std::string& key, const char*& oldRow) {
  for (const KeyName& known : kKeys)
    if (EqualsNoCase(key, known.name)) return known.key;
  for (const char* old : kOldKeys)
    if (EqualsNoCase(key, old)) return TemplateKey::OldKey;
  for (const OldLink& old : kOldLinks) {
    if (EqualsNoCase(key, old.key)) {
      oldRow = old.row;
      return TemplateKey::OldToMax;
    }
  }
  return TemplateKey::Unknown;
}

}  // namespace tolmen
