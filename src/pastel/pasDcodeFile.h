// pasDcodeFile: accdcat.dat, the debtor categories: number (field 1, key 0) and description. The
// one Pastel file the system writes through the record manager (a new category). Its IO passes
// the key and the accepted statuses on, never a label.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasDcodeFile : public StoredRecord {
 public:
  static constexpr const char* kFileName = "accdcat.dat";
  static constexpr std::int32_t kRecordLength = 32;
  explicit pasDcodeFile(Tolmen& app);
  void IO(std::int32_t operation, const OptText& key = std::nullopt,
          const OptText& accepted = std::nullopt, const OptText& label = std::nullopt) override;
};

}  // namespace tolmen
