// The record class protocol on Maximizer's own files (the client file and the database list): the
// image of one record, IO through GlobalIO, MoveBuffer, FOpen, CLOSE_, RecordCount and
// KeyNumber. Unlike the Pastel classes there is no access by field number: each derived class
// names its fields, which read (and for the database list write) the image at fixed offsets.
//
// GlobalIO calls MoveBuffer(0) just before the record manager's call and MoveBuffer(1) after it,
// whatever the status; the record moves in one copy through a staging area of 4096 bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/recordmanager/BtrCodes.h"
#include "recordio/BtObject.h"

namespace tolmen {

class Tolmen;

class MaxRecord : public BtObject {
 public:
  // REQUIRES: `app` outlives the object.
  MaxRecord(Tolmen& app, std::string className, std::int32_t recordLength);

  // GlobalIO with this object, the arguments passed on.
  void IO(std::int32_t operation, const std::optional<std::string>& key = std::nullopt,
          const std::optional<std::string>& accepted = std::nullopt,
          const std::optional<std::string>& label = std::nullopt);
  // Direction 0: the image goes to DataBuf unless BufferHeld. Any other: the first
  // RecordLength bytes of DataBuf become the image (blank-padded when DataBuf is shorter).
  void MoveBuffer(std::int16_t direction) override;
  // Opens the file: KeyNum becomes the open mode (0 when none is given); an owner name goes to
  // the record manager in the data buffer, DBLen is restored afterwards and, on status 0 or 9,
  // the object is positioned on the first record. FileName becomes `fileName` on status 0.
  void FOpen(const std::string& fileName, std::optional<std::int16_t> openMode = std::nullopt,
             const std::optional<std::string>& owner = std::nullopt,
             const std::optional<std::string>& accepted = std::nullopt);
  void CLOSE_() { IO(kOpClose); }

  // The number of records from the record manager's statistics (operation 15, called directly),
  // read through the hexadecimal text that drops each byte's leading zero, as the record classes
  // all do: exact only while no byte below 0x10 follows a non-zero byte. 0 when not open.
  std::int32_t RecordCount();

  std::int16_t KeyNumber() const { return KeyNum; }
  void KeyNumber(std::int16_t keyNumber) { KeyNum = keyNumber; }

  const std::string& Image() const { return image_; }

 protected:
  // The bytes of a field as they stand in the image.
  std::string Bytes(std::size_t offset, std::size_t width) const;
  std::int16_t I16(std::size_t offset) const;
  std::int32_t I32(std::size_t offset) const;
  // Writes exactly `width` bytes at `offset`: `bytes` cut, or padded with `pad`.
  void Store(std::size_t offset, std::size_t width, const std::string& bytes, char pad = ' ');

  Tolmen& app_;

 private:
  std::string image_;
};

}  // namespace tolmen
