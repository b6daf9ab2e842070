// pasStk: the inventory item file (ACCPRD). Nothing in the system creates this class; the layout
// describes what the toolkit's generic reads of the file see.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasStk : public StoredRecord {
 public:
  static constexpr const char* kFileName = "ACCPRD.DAT";
  static constexpr std::int32_t kRecordLength = 244;
  explicit pasStk(Tolmen& app);
};

}  // namespace tolmen
