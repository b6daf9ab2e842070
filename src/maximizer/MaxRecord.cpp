#include "maximizer/MaxRecord.h"

#include <algorithm>

#include "recordio/BtGlobal.h"
#include "recordio/FieldCodecs.h"
#include "recordio/RecordFileCalls.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr std::size_t kStagingBytes = 4096;

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
  OpenRecordFile(app_, *this, fileName, openMode, owner, accepted);
}

std::int32_t MaxRecord::RecordCount() {
  return StatRecordCount(app_, *this);
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
