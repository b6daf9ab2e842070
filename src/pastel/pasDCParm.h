// pasDCParm: accprmdc.dat, the debtor and creditor parameters (one record), whose values a new
// debtor takes as defaults. Fields 66 to 75 and 76 to 85 are two-dimensional: two columns of five
// interleaved, so that an even field lies in the first column and an odd one in the second
// (66 at 854, 67 at 904, 68 at 864). There is no field 5; field 393 is a flag read on two bytes,
// so it never reads true. The file's one Single field is field 3.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasDCParm : public StoredRecord {
 public:
  static constexpr const char* kFileName = "accprmdc.dat";
  static constexpr std::int32_t kRecordLength = 1654;
  explicit pasDCParm(Tolmen& app);
};

}  // namespace tolmen
