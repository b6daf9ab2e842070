// pasHisDetail: ACCHISTL.DAT, the document lines of the history. Its class name is "clsStk", the
// name it shares with the stock classes in debug text. Field 26 is a date on eight bytes: read
// through its first four (never blank), written as four date bytes and four blanks. INSERT and
// UPDATE write one "Detail" line of the invoice import file; DELETE does nothing.
#pragma once

#include "pastel/PastelRecord.h"

namespace tolmen {

class pasHisDetail : public PastelRecord {
 public:
  static constexpr const char* kFileName = "ACCHISTL.DAT";
  static constexpr std::int32_t kRecordLength = 235;
  explicit pasHisDetail(Tolmen& app);

  // INSERT leaves STATUS_ at kStatusOk whatever the line sink does: posting reads it.
  void INSERT() {
    STATUS_ = kStatusOk;
    WriteLine();
  }
  void UPDATE() { WriteLine(); }
  void DELETE() {}
  void UNLOCK_() { IO(kOpUnlock); }
  // The detail goes to the import line sink, when one is set.
  void WriteLine();
};

}  // namespace tolmen
