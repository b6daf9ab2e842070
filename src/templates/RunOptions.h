// RunOptions: the options of a run in memory, by template key. The screen is the master copy:
// TemplateOpen writes the controls, TemplateSave reads them, and SetOptions derives from them the
// values below that a run uses. What a template holds that has no control of its own (the
// template's own folder and database, the UDF choices as name and catalogue index, the Pastel
// settings of the setup dialog) is held here as well.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

// An option that names a UDF: its name and its index in the UDF catalogue (0 for none). The index
// is valid only for the catalogue load that gave it; the name is resolved again at each load.
struct UdfOption {
  std::string name;
  int16_t index = 0;
};

struct RunOptions {
  // "Pastel Data Folder" and "Maximizer Database Path" as the last template read held them.
  std::string TemplatePastelFolder;
  std::string TemplateDatabasePath;
  // True while TemplateOpen reads, so that click handlers know a template sets them.
  bool TemplateBeingRead = false;

  // "List Clients": true for the whole address book.
  bool ListAll = false;

  // "Category Option" 0 existing, 1 create new, 2 from a UDF, with what SetOptions derives.
  int16_t CategoryOption = 0;
  int16_t CategoryNumber = 0;
  std::string CategoryName;
  bool CreateCategory = false;
  bool CategoryFromUdf = false;
  UdfOption CategoryUdf;

  int16_t ImportWhichData = 3;  // 1 all, 2 new, 3 marked, 4 new marked
  UdfOption ImportCriteriaUdf;
  std::string ImportCriteriaText;  // upper-cased on reading; "*" means any non-blank value

  bool PatternMatching = false;
  bool IndividualClientNames = false;
  // The client name flag plus 2 times the company name flag.
  int16_t NameInAddress = 0;
  std::string PostalAddress;
  std::string DeliveryAddress;
  int32_t PrefixSize = 4;
  int32_t SuffixSize = 2;

  UdfOption AccountNumber;
  int16_t MismatchMode = 0;  // "Mismatched Account Nos"
  UdfOption VatNumber;

  UdfOption DateJoined;
  UdfOption DateBilled;
  UdfOption CustomMessage1Udf;
  UdfOption CustomMessage2Udf;
  std::string CustomMessage1Text;
  std::string CustomMessage2Text;

  // The Pastel settings of the setup dialog: list indexes of its three boxes.
  int16_t PrintDocument = 0;
  int16_t PrintStatement = 0;
  int16_t PrintMessage = 0;
};

}  // namespace tolmen
