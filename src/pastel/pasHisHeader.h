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

  void INSERT() { WriteLine(); }
  void UPDATE() { WriteLine(); }
  void DELETE() {}
  void UNLOCK_() { IO(kOpUnlock); }
  // With the run's WriteCsv on, the import-line writer writes the header line; with it off
  // nothing happens. Raises RuntimeError(91) when WriteCsv is on and no writer is set.
  void WriteLine();
};

}  // namespace tolmen
