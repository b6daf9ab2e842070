// The protocol every Pastel record class follows. A class holds the image of one record and the
// record manager's parameters for its file, offers the navigation operations as named procedures,
// and exposes every field of the record by number through default_. All record manager calls go
// through IO, which is GlobalIO with this object.
//
// Life of an object: created with its fixed values (record length, class name, MaxFields), then
// FOpen or OPEN_, reads and field accesses, CLOSE_. OPEN_ after CLOSE_ reopens by FileName.
// After every operation the caller tests STATUS_.
//
// The image and DataBuf hold the same bytes at different moments: GlobalIO calls MoveBuffer(0)
// just before the record manager's call (image to DataBuf) and MoveBuffer(1) after it, whatever
// the status, so a failed read overwrites the image with what came back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "pastel/FieldLayout.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/BtObject.h"
#include "runtime/Variant.h"

namespace tolmen {

class Tolmen;

using OptText = std::optional<std::string>;

class PastelRecord : public BtObject {
 public:
  // `imageLength` is what the class keeps of a record, normally the whole record.
  // REQUIRES: `app` and `layout` outlive the object.
  PastelRecord(Tolmen& app, std::string className, std::int32_t recordLength,
               std::int16_t maxFields, const RecordLayout& layout, std::int32_t imageLength = -1);

  // GlobalIO with this object: the single path to the record manager.
  virtual void IO(std::int32_t operation, const OptText& key = std::nullopt,
                  const OptText& accepted = std::nullopt, const OptText& label = std::nullopt);
  void MoveBuffer(std::int16_t direction) override;

  // Opens the file; KeyNum becomes the open mode (0 when none is given). With an owner name the
  // name goes to the record manager in the data buffer, DBLen is restored to the record length
  // afterwards and, on status 0 or 9, the object is positioned on the first record. FileName
  // becomes `fileName` on status 0.
  void FOpen(const std::string& fileName, std::optional<std::int16_t> openMode = std::nullopt,
             const OptText& owner = std::nullopt, const OptText& accepted = std::nullopt);
  // FOpen(FileName) when FileName is set; nothing otherwise.
  void OPEN_();
  void CLOSE_();
  // Hooks kept by the callers: decoding and encoding happen in default_, so both do nothing.
  void FROMFILE() {}
  void TOFILE() {}

  void GET_EQUAL(const std::string& key);
  void GET_GREATER(const std::string& key);
  void GET_LAST();
  void GET_LESS_THAN(const std::string& key);
  void GET_LESS_THAN_OR_EQUAL(const std::string& key);
  void GET_LOWEST();
  void GET_NEAREST(const std::string& key);  // greater or equal
  void GET_NEXT();
  void GET_PREVIOUS();

  // The number of records as the record manager's statistics give it, read through a
  // hexadecimal text that drops leading zeros of each byte: exact only while no byte below 0x10
  // follows a non-zero byte (261 reads 21, 300 reads 300). 0 when the file is not open.
  std::int32_t RecordCount();

  // The field's value; Empty for a number the class does not have.
  virtual Variant default_(std::int32_t field);
  // Stores the value into the field (see EncodeField); a number the class does not have does
  // nothing. Out-of-range numbers raise RuntimeError(6) to the caller.
  virtual void default_(std::int32_t field, const Variant& value);

  std::int16_t KeyNumber() const { return KeyNum; }
  void KeyNumber(std::int16_t keyNumber) { KeyNum = keyNumber; }
  // The class's constant. It bounds nothing: default_ may reach further.
  std::int16_t MaxFields() const { return maxFields_; }

  const RecordLayout& Layout() const { return layout_; }
  // The record image as it stands.
  const std::string& Image() const { return image_; }

 protected:
  Tolmen& app_;

 private:
  std::int16_t maxFields_;
  const RecordLayout& layout_;
  std::string image_;
};

// A class whose writes go to the record manager: INSERT, UPDATE and DELETE are operations 2, 3
// and 4.
class StoredRecord : public PastelRecord {
 public:
  using PastelRecord::PastelRecord;
  void INSERT() { IO(kOpInsert); }
  void UPDATE() { IO(kOpUpdate); }
  void DELETE() { IO(kOpDelete); }
  void UNLOCK_() { IO(kOpUnlock); }
};

}  // namespace tolmen
