// pasGParm: accprmgl.dat, the general ledger parameters (one record): the period calendar, the
// current and ageing periods, the company's name and the number format. Field 681, the period 13
// switch, lies out of sequence between fields 89 and 90. Fields 9 and 10 are text that the
// reader decodes with CvI, so reading them shows the CvI message and gives 0; fields 63 to 88
// read the bytes of fields 50 to 62 again as text.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasGParm : public StoredRecord {
 public:
  static constexpr const char* kFileName = "accprmgl.dat";
  static constexpr std::int32_t kRecordLength = 3944;
  explicit pasGParm(Tolmen& app);
};

}  // namespace tolmen
