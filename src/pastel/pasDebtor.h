// pasDebtor: AccMasD.dat, the debtor master, one record per account. Key 0 is the account code
// (field 2, six bytes, laid out with PadToWidth). The system reads the file and never writes it
// through the record manager: INSERT and UPDATE both write one customer import line (WriteLine)
// and leave the file alone, and DELETE only says that it cannot.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasDebtor : public PastelRecord {
 public:
  static constexpr const char* kFileName = "AccMasD.dat";
  static constexpr std::int32_t kRecordLength = 1096;
  explicit pasDebtor(Tolmen& app);

  void INSERT() { WriteLine(); }
  void UPDATE() { WriteLine(); }
  // Shows "Can't Delete Pastel Debtor!" and returns.
  void DELETE();
  void UNLOCK_() { IO(kOpUnlock); }
  void GET_BY_PERCENT() {}
  // STATUS_ becomes kStatusOk, and the debtor goes to the import line sink, when one is set.
  void WriteLine();
};

}  // namespace tolmen
