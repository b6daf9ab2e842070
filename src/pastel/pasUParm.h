// pasUParm: AccPrmsy.dat, the system parameters (one record): the version text (field 13; when
// blank, older files keep the version at offset 904) and the date format (field 14).
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasUParm : public StoredRecord {
 public:
  static constexpr const char* kFileName = "AccPrmsy.dat";
  static constexpr std::int32_t kRecordLength = 997;
  explicit pasUParm(Tolmen& app);
};

}  // namespace tolmen
