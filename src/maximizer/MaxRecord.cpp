#include "maximizer/MaxRecord.h"

#include <algorithm>
#include <cstdio>

#include "recordio/BtGlobal.h"
#include "recordio/FieldCodecs.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr std::int32_t kOpen = 0;
constexpr std::int32_t kGetFirst = 12;
constexpr std::int32_t kStat = 15;
constexpr std::size_t kStagingBytes = 4096;
constexpr std::size_t kStatBufferBytes = 512;
constexpr std::size_t kRecordCountOffset = 6;

// Each count byte in hexadecimal without its leading zero, highest first, read as one number
// ("&H0015&" for bytes 05 01 00 00, which is 21).
std::int32_t HexCountValue(const std::string& stats) {
  std::string digits;
  for (std::size_t i = kRecordCountOffset + 4; i-- > kRecordCountOffset;) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%X",
                  static_cast<unsigned>(static_cast<unsigned char>(stats[i])));
    digits += hex;
  }
  return static_cast<std::int32_t>(std::stoul(digits, nullptr, 16));
}

}  // namespace

MaxRecord::MaxRecord(Tolmen& app, std::string className, std::int32_t recordLength)
    : BtObject(std::move(className), recordLength),
      app_(app),
      image_(static_cast<std::size_t>(recordLength), '\0') {}

void MaxRecord::IO(std::int32_t operation, const std::optional<std::string>& key,
                   const std::optional<std::string>& accepted,
                   const std::optional<std::string>& label) {
  GlobalIO(app_, *this, operation, key, accepted, label);
}

void MaxRecord::MoveBuffer(std::int16_t direction) {
  if (direction != 0) {
    // The staging area is blank; what DataBuf lacks stays blank.
    std::string staged = DataBuf.substr(0, std::min(DataBuf.size(), kStagingBytes));
    staged.resize(image_.size(), ' ');
    image_ = std::move(staged);
  } else if (!BufferHeld) {
    DataBuf = image_;
  }
  BufferHeld = false;
}

void MaxRecord::FOpen(const std::string& fileName, std::optional<std::int16_t> openMode,
                      const std::optional<std::string>& owner,
                      const std::optional<std::string>& accepted) {
  KeyNum = openMode.value_or(0);
  if (!owner) {
    IO(kOpen, fileName, accepted);
  } else {
    DataBuf = *owner;
    DBLen = static_cast<std::int32_t>(owner->size());
    BufferHeld = true;
    IO(kOpen, fileName, accepted);
    DBLen = RecordLength;
    if (STATUS_ == 0 || STATUS_ == 9) IO(kGetFirst);
  }
  if (STATUS_ == 0) FileName = fileName;
}

std::int32_t MaxRecord::RecordCount() {
  if (!IsOpen) return 0;
  std::string stats(kStatBufferBytes, ' ');
  auto length = static_cast<std::int32_t>(kStatBufferBytes);
  std::string key(255, ' ');
  STATUS_ = app_.engine.BTRCALL(kStat, PosBlk, stats, length, key, 255, KeyNum);
  stats.resize(std::max(stats.size(), kRecordCountOffset + 4), ' ');
  return HexCountValue(stats);
}

std::string MaxRecord::Bytes(std::size_t offset, std::size_t width) const {
  return image_.substr(offset, width);
}

std::int16_t MaxRecord::I16(std::size_t offset) const {
  return CvI(app_.ui, Bytes(offset, 2));
}

std::int32_t MaxRecord::I32(std::size_t offset) const {
  return CvL(app_.ui, Bytes(offset, 4));
}

void MaxRecord::Store(std::size_t offset, std::size_t width, const std::string& bytes, char pad) {
  std::string field = bytes.substr(0, width);
  field.resize(width, pad);
  image_.replace(offset, width, field);
}

}  // namespace tolmen
