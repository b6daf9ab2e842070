// pasSTParm: a parameter layout that nothing in the system creates or opens; it completes the
// family as it stands, the gap at bytes 810 to 831 included.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasSTParm : public StoredRecord {
 public:
  static constexpr std::int32_t kRecordLength = 1162;
  explicit pasSTParm(Tolmen& app);
};

}  // namespace tolmen
