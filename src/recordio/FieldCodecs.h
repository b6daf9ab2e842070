// The byte codecs of record fields: each turns the bytes of one field into a value, or a value
// into exactly the field's bytes. The encodings are those of the files on disk, shared with the
// programs that own them, so they are reproduced byte for byte. All numbers are little-endian.
//
//   Byte 1  CvB/MkB     Integer 2  CvI/MkI   (signed)     Long 4  CvL/MkL  (signed)
//   Single 4  CvS/MkS   Double 8  CvD/MkD    (IEEE 754)
//   Date 4  CvDate/MkDate: day byte, month byte, year as a signed 16-bit number
//   Time 4  CvTime: hundredths, seconds, minutes, hours (read only)
//   Flag 1  CvBool/MkBool: 0x01 is true, any other byte false
//
// The numeric decoders check the length first. A wrong length shows a message box with OK
// ("Illegal function call in CvI%()" ...) and gives 0; it is no error and the caller goes on.
//
// A blank date (four zero bytes, or an empty field) decodes to date value 0, but date value 0
// encodes as 30 December 1899, not as blank: a blank does not survive a trip through a date
// value. Only a value that is no date at all makes a record class write the four zero bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/Variant.h"

namespace tolmen {

class Ui;

// The decoders need the Ui only to show the length message.
std::uint8_t CvB(Ui& ui, std::string_view bytes);
std::int16_t CvI(Ui& ui, std::string_view bytes);
std::int32_t CvL(Ui& ui, std::string_view bytes);
float CvS(Ui& ui, std::string_view bytes);
double CvD(Ui& ui, std::string_view bytes);

std::string MkB(std::uint8_t value);
std::string MkI(std::int16_t value);
std::string MkL(std::int32_t value);
std::string MkS(float value);
std::string MkD(double value);

// A date value from a Date field. "" and exactly four zero bytes are blank and give 0. Otherwise
// the day is byte 1, the month byte 2 and the year bytes 3 and 4 (through CvI), put together
// with DateSerial's roll-over (month 13 of 2005 is January 2006, year 5 is 2005); a longer field
// is never blank and only its first four bytes count. A date that cannot be built gives 0.
double CvDate(Ui& ui, std::string_view bytes);
// Day, month and year of the value (the time of day is dropped). Raises RuntimeError(6) for a
// value outside the valid dates.
std::string MkDate(double date);

// The time of day of a Time field: hours byte 4, minutes byte 3, seconds byte 2; the hundredths
// are ignored. "" and four zero bytes give 0. Raises RuntimeError(5) for a field of fewer than
// four bytes that is not empty.
double CvTime(std::string_view bytes);

// True exactly when the field is the one byte 0x01 (a two-byte field is never true).
bool CvBool(std::string_view bytes);
// 0x01 for the canonical true, -1; every other value (1 included) gives 0x00.
std::string MkBool(std::int16_t value);

// `count` zero bytes; a negative count raises RuntimeError(5).
std::string ZeroBytes(long count);

// Whether the value converts to a truth value (CBool) without an error.
bool IsBoolean(const Variant& value);

}  // namespace tolmen
