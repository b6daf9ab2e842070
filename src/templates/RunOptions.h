// RunOptions: the options of a run in memory, by template key. The screen is the master copy:
// TemplateOpen writes the controls, TemplateSave reads them, and SetOptions copies the screen into
// the values below and derives from it what a run uses. What a template holds that has no control
// of its own (the template's own folder and database, the UDF choices as name and catalogue index,
// the Pastel settings of the setup dialog) is held here only.
//
// Which member stands for which template key is said beside each member. SetOptions fills every
// member that has a control; TemplateOpen alone sets TemplatePastelFolder, TemplateDatabasePath,
// the UDF names and the three Pastel settings.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolmen {

// An option that names a UDF: its name and its index in the UDF catalogue (0 for none). The index
// is valid only for the catalogue load that gave it; the name is resolved again at each load.
struct UdfOption {
  std::string name;
  int16_t index = 0;
  bool operator==(const UdfOption&) const = default;
};

struct RunOptions {
  // "Pastel Data Folder" and "Maximizer Database Path" as the last template read held them.
  std::string TemplatePastelFolder;
  std::string TemplateDatabasePath;
  // True while TemplateOpen reads, so that click handlers know a template sets them.
  bool TemplateBeingRead = false;

  // "Pastel Data Folder" (the folder box, with a trailing '/'), "Pastel Password" and the path of
  // the selected database, as the screen shows them.
  std::string PastelDataFolder;
  std::string PastelPassword;
  std::string MaximizerDatabasePath;

  // "List Clients": true for the whole address book.
  bool ListAll = false;

  // "Category Option" 0 existing, 1 create new, 2 from a UDF, with what SetOptions derives.
  int16_t CategoryOption = 0;
  std::string ExistingCustomerCategory;  // "<number> name", the text of the category list
  int16_t CategoryNumber = 0;
  std::string CategoryName;
  bool CreateCategory = false;
  bool CategoryFromUdf = false;
  UdfOption CategoryUdf;  // "Category UDF"

  int16_t ImportWhichData = 3;     // 1 all, 2 new, 3 marked, 4 new marked
  UdfOption ImportCriteriaUdf;     // "Import Criteria UDF"
  std::string ImportCriteriaText;  // upper-cased on reading; "*" means any non-blank value

  bool PatternMatching = false;
  bool IndividualClientNames = false;
  // "Add Client Name to Address" plus 2 times "Add Company Name to Address".
  int16_t NameInAddress = 0;
  std::string PostalAddress;    // "Pastel Postal Address"
  std::string DeliveryAddress;  // "Pastel Delivery Address"
  int32_t PrefixSize = 4;       // "Pastel Prefix Size"
  int32_t SuffixSize = 2;       // "Pastel Suffix Size"

  UdfOption AccountNumber;   // "Account Number"
  int16_t MismatchMode = 0;  // "Mismatched Account Nos"
  UdfOption VatNumber;       // "VAT Number"

  // "To Max": the links of the "To Maximizer" list, each with its tabs.
  std::vector<std::string> ToMax;
  // "Document Nos" and "Document Dates": the UDFs of the links to the document rows, which
  // invoice creation fills; resolved with the links.
  UdfOption DocumentNumbers;
  UdfOption DocumentDates;

  int16_t BillingPeriod = 0;   // 0 no billing, 1 annually, 2 monthly
  int16_t BillWhen = 0;        // 0 today .. 3 on or after the day below
  std::string BillOnWhichDay;  // the box's text: a text that is no number compares as text
  UdfOption DateJoined;
  UdfOption DateBilled;
  std::string GLCode;
  std::string VATCode;
  std::string COSTCode;

  // "Bill": the rules of the casual billing list.
  std::vector<std::string> Bill;
  UdfOption CustomMessage1Udf;
  UdfOption CustomMessage2Udf;
  std::string CustomMessage1Text;
  std::string CustomMessage2Text;

  // "Print Document", "Print Statement", "Print Message": list indexes of the setup dialog's
  // three boxes.
  int16_t PrintDocument = 0;
  int16_t PrintStatement = 0;
  int16_t PrintMessage = 0;

  bool operator==(const RunOptions&) const = default;
};

}  // namespace tolmen
