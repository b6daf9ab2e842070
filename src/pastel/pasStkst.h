// pasStkst: the item statistics file (ACCSTKST). Nothing in the system creates this class; the
// layout describes what the toolkit's generic reads of the file see.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasStkst : public StoredRecord {
 public:
  static constexpr const char* kFileName = "ACCSTKST.DAT";
  static constexpr std::int32_t kRecordLength = 988;
  explicit pasStkst(Tolmen& app);
};

}  // namespace tolmen
