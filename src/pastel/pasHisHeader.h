// pasHisHeader: ACCHISTH.DAT, the document headers of the history. The posting toolkit fills the
// image; INSERT and UPDATE write one "Header" line of the invoice import file (WriteLine), and
// the file itself is never written. DELETE does nothing.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasHisHeader : public PastelRecord {
 public:
  static constexpr const char* kFileName = "ACCHISTH.DAT";
  static constexpr std::int32_t kRecordLength = 463;
  explicit pasHisHeader(Tolmen& app);

  // INSERT leaves STATUS_ at kStatusOk whatever the line sink does: posting reads it.
  void INSERT() {
    STATUS_ = kStatusOk;
    WriteLine();
  }
  void UPDATE() { WriteLine(); }
  void DELETE() {}
  void UNLOCK_() { IO(kOpUnlock); }
  // The header goes to the import line sink, when one is set.
  void WriteLine();
};

}  // namespace tolmen
