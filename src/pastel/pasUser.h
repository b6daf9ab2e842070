// pasUser: AccUser.dat, the users of the set of accounts. The system reads field 3 of the first
// record only.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasUser : public StoredRecord {
 public:
  static constexpr const char* kFileName = "AccUser.dat";
  static constexpr std::int32_t kRecordLength = 707;
  explicit pasUser(Tolmen& app);
};

}  // namespace tolmen
