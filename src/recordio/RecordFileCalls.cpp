#include "recordio/RecordFileCalls.h"

#include <algorithm>
#include <cstdio>

#include "platform/recordmanager/BtrCodes.h"
#include "recordio/BtGlobal.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr std::size_t kStatBufferBytes = 512;
constexpr std::size_t kRecordCountOffset = 6;

std::int32_t HexCountValue(const std::string& stats) {
  std::string digits;
  for (std::size_t i = kRecordCountOffset + 4; i-- > kRecordCountOffset;) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%X",
                  static_cast<unsigned>(static_cast<unsigned char>(stats[i])));
    digits += hex;
  }
  // At most eight digits: the value fits the 32 bits of a Long.
  return static_cast<std::int32_t>(std::stoul(digits, nullptr, 16));
}

}  // namespace

void OpenRecordFile(Tolmen& app, BtObject& object, const std::string& fileName,
                    std::optional<std::int16_t> openMode, const std::optional<std::string>& owner,
                    const std::optional<std::string>& accepted) {
  object.KeyNum = openMode.value_or(0);
  if (!owner) {
    GlobalIO(app, object, kOpOpen, fileName, accepted);
  } else {
    object.DataBuf = *owner;
    object.DBLen = static_cast<std::int32_t>(owner->size());
    object.BufferHeld = true;
    GlobalIO(app, object, kOpOpen, fileName, accepted);
    object.DBLen = object.RecordLength;
    if (object.STATUS_ == kStatusOk || object.STATUS_ == kStatusEndOfFile)
      GlobalIO(app, object, kOpGetFirst);
  }
  if (object.STATUS_ == kStatusOk) object.FileName = fileName;
}

std::int32_t StatRecordCount(Tolmen& app, BtObject& object) {
  if (!object.IsOpen) return 0;
  std::string stats(kStatBufferBytes, ' ');
  auto length = static_cast<std::int32_t>(kStatBufferBytes);
  std::string key(255, ' ');
  object.STATUS_ =
      app.engine.BTRCALL(kOpStat, object.PosBlk, stats, length, key, 255, object.KeyNum);
  stats.resize(std::max(stats.size(), kRecordCountOffset + 4), ' ');
  return HexCountValue(stats);
}

}  // namespace tolmen
