#include "pastel/PastelRecord.h"

#include <algorithm>

#include "platform/recordmanager/BtrCodes.h"
#include "recordio/BtGlobal.h"
#include "recordio/RecordFileCalls.h"
#include "shell/Tolmen.h"

namespace tolmen {

PastelRecord::PastelRecord(Tolmen& app, std::string className, std::int32_t recordLength,
                           std::int16_t maxFields, const RecordLayout& layout,
                           std::int32_t imageLength)
    : BtObject(std::move(className), recordLength),
      app_(app),
      maxFields_(maxFields),
      layout_(layout),
      image_(static_cast<size_t>(imageLength < 0 ? recordLength : imageLength), '\0') {}

void PastelRecord::IO(std::int32_t operation, const OptText& key, const OptText& accepted,
                      const OptText& label) {
  GlobalIO(app_, *this, operation, key, accepted, label);
}

void PastelRecord::MoveBuffer(std::int16_t direction) {
  // The copy goes through a staging buffer filled with blanks, so a short DataBuf leaves blanks
  // in the image, and the image of a class that keeps less than a record goes out blank-padded.
  if (direction != 0) {
    std::string read = DataBuf.substr(0, image_.size());
    read.resize(image_.size(), ' ');
    image_ = std::move(read);
  } else if (!BufferHeld) {
    DataBuf = image_;
    DataBuf.resize(static_cast<size_t>(RecordLength), ' ');
  }
  BufferHeld = false;
}

void PastelRecord::FOpen(const std::string& fileName, std::optional<std::int16_t> openMode,
                         const OptText& owner, const OptText& accepted) {
  OpenRecordFile(app_, *this, fileName, openMode, owner, accepted);
}

void PastelRecord::OPEN_() {
  if (!FileName.empty()) FOpen(FileName);
}

void PastelRecord::CLOSE_() {
  IO(kOpClose);
}

void PastelRecord::GET_EQUAL(const std::string& key) {
  IO(kOpGetEqual, key);
}
void PastelRecord::GET_GREATER(const std::string& key) {
  IO(kOpGetGreater, key);
}
void PastelRecord::GET_LAST() {
  IO(kOpGetLast);
}
void PastelRecord::GET_LESS_THAN(const std::string& key) {
  IO(kOpGetLess, key);
}
void PastelRecord::GET_LESS_THAN_OR_EQUAL(const std::string& key) {
  IO(kOpGetLessOrEqual, key);
}
void PastelRecord::GET_LOWEST() {
  IO(kOpGetFirst);
}
void PastelRecord::GET_NEAREST(const std::string& key) {
  IO(kOpGetGreaterOrEqual, key);
}
void PastelRecord::GET_NEXT() {
  IO(kOpGetNext);
}
void PastelRecord::GET_PREVIOUS() {
  IO(kOpGetPrevious);
}

std::int32_t PastelRecord::RecordCount() {
  return StatRecordCount(app_, *this);
}

Variant PastelRecord::default_(std::int32_t field) {
  const std::optional<FieldSpot> spot = layout_.Locate(field);
  if (!spot) return Variant();
  return DecodeField(app_.ui, image_, *spot);
}

void PastelRecord::default_(std::int32_t field, const Variant& value) {
  const std::optional<FieldSpot> spot = layout_.Locate(field);
  if (!spot) return;
  EncodeField(image_, *spot, value);
}

}  // namespace tolmen
