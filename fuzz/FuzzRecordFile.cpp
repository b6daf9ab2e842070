// A record file opened and walked by the engine: any bytes stand as the file (damaged record
// files are SQLite files with bytes changed or cut). The engine answers with its statuses; a file
// it opens is walked along every key both ways, and both ways meet the same number of records.
#include <cstdio>

#include "FuzzSupport.h"
#include "Targets.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::fuzz {
namespace {

// Bounds the walk of a file whose damage makes it loop; the seeds hold a few hundred records.
constexpr int kMostSteps = 5000;

struct Walk {
  int16_t status;  // the status that ended the walk
  int records;
};

Walk WalkKey(RecordEngine& engine, std::string& pos, int16_t keyNumber, uint16_t first,
             uint16_t next) {
  std::string data, key;
  int32_t length = 0;
  Walk walk{kStatusOk, 0};
  for (uint16_t op = first; walk.records < kMostSteps; op = next) {
    data.assign(8192, '\0');
    length = static_cast<int32_t>(data.size());
    key.assign(255, ' ');
    walk.status = engine.BTRCALL(op, pos, data, length, key, 255, keyNumber);
    if (walk.status != kStatusOk) return walk;
    FUZZ_CHECK(length >= 0 && static_cast<size_t>(length) <= data.size());
    ++walk.records;
  }
  return walk;
}

}  // namespace

int FuzzRecordFile(const uint8_t* data, size_t size) {
  const std::string path = ScratchFolder() + "record.dat";
  for (const char* suffix : {"-wal", "-shm", "-journal"}) std::remove((path + suffix).c_str());
  WriteFile(path, Bytes(data, size));

  RecordEngine engine;
  std::string pos(128, ' '), buffer, key = path;
  int32_t length = 0;
  // Read-only first, as butil's stat opens, then normal.
  for (int16_t mode : {int16_t{-2}, int16_t{0}}) {
    key = path;
    if (engine.BTRCALL(kOpOpen, pos, buffer, length, key, 255, mode) != kStatusOk) continue;
    for (int16_t keyNumber = 0; keyNumber < 8; ++keyNumber) {
      const Walk forward = WalkKey(engine, pos, keyNumber, kOpGetFirst, kOpGetNext);
      if (forward.status == kStatusInvalidKeyNumber) break;
      const Walk backward = WalkKey(engine, pos, keyNumber, kOpGetLast, kOpGetPrevious);
      if (forward.status == kStatusEndOfFile && backward.status == kStatusEndOfFile)
        FUZZ_CHECK(forward.records == backward.records);
    }
    FUZZ_CHECK(engine.BTRCALL(kOpClose, pos, buffer, length, key, 255, 0) == kStatusOk);
  }
  return 0;
}

}  // namespace tolmen::fuzz
