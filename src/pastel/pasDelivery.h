// pasDelivery: accDeliv.dat, the delivery address and telephone numbers of an account, all text.
// The system only fills the image for the customer import line; INSERT, UPDATE and DELETE do
// nothing and the file is never written.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasDelivery : public PastelRecord {
 public:
  static constexpr const char* kFileName = "accDeliv.dat";
  static constexpr std::int32_t kRecordLength = 288;
  explicit pasDelivery(Tolmen& app);
  void INSERT() {}
  void UPDATE() {}
  void DELETE() {}
  void UNLOCK_() { IO(kOpUnlock); }
};

}  // namespace tolmen
