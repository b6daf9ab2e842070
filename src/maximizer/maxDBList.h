// maxDBList: the record of Maximizer's list of databases (278 bytes). Nothing opens a file with
// it: the list of databases comes from the automation call GetDatabaseList. The class keeps the
// description of that record, with a read and a write accessor per field.
//
//      0  2 FirstField  i16     2  2 SecondField  i16     4  2 ThirdField  i16
//      6 12 Filler1            18 14 Owner               32 31 DatabaseName
//     63 15 Filler2            78 200 DatabasePath
//
// Texts read back as they stand; a text written is cut to its width or padded with blanks.
#pragma once

#include <cstdint>
#include <string>

#include "maximizer/MaxRecord.h"

namespace tolmen {

class maxDBList : public MaxRecord {
 public:
  static constexpr std::int32_t kRecordLength = 278;
  explicit maxDBList(Tolmen& app);

  std::int16_t FirstField() const { return I16(0); }
  void FirstField(std::int16_t value) { StoreI16(0, value); }
  std::int16_t SecondField() const { return I16(2); }
  void SecondField(std::int16_t value) { StoreI16(2, value); }
  std::int16_t ThirdField() const { return I16(4); }
  void ThirdField(std::int16_t value) { StoreI16(4, value); }
  std::string Filler1() const { return Bytes(6, 12); }
  void Filler1(const std::string& value) { Store(6, 12, value); }
  std::string Owner() const { return Bytes(18, 14); }
  void Owner(const std::string& value) { Store(18, 14, value); }
  std::string DatabaseName() const { return Bytes(32, 31); }
  void DatabaseName(const std::string& value) { Store(32, 31, value); }
  std::string Filler2() const { return Bytes(63, 15); }
  void Filler2(const std::string& value) { Store(63, 15, value); }
  std::string DatabasePath() const { return Bytes(78, 200); }
  void DatabasePath(const std::string& value) { Store(78, 200, value); }

 private:
  void StoreI16(std::size_t offset, std::int16_t value);
};

}  // namespace tolmen
