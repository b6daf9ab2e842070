// pasTaxParameters: Accprmtx.dat, the tax table, read only. Fields 6 to 104 are the percentages
// of tax codes 1 to 99 in hundredths of a percent (1400 is 14.00 percent): field 5 + n is code n.
// The class keeps only the first 2688 bytes of a record; its buffer length starts at 2765 and
// becomes the record length, 2757, when the file opens. It has no INSERT, UPDATE, DELETE or
// UNLOCK_, and a default_ write changes nothing.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasTaxParameters : public PastelRecord {
 public:
  static constexpr const char* kFileName = "Accprmtx.dat";
  static constexpr std::int32_t kRecordLength = 2757;
  static constexpr std::int32_t kImageLength = 2688;
  explicit pasTaxParameters(Tolmen& app);

  using PastelRecord::default_;
  void default_(std::int32_t field, const Variant& value) override;
  void GET_BY_PERCENT() {}
  // The percentage of tax code n (1 to 99) in hundredths; any other n raises RuntimeError(9).
  std::int16_t TaxPercentage(std::int32_t code);
};

}  // namespace tolmen
