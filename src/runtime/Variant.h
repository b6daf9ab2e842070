// The classic runtime's Variant, cut down to the kinds the system uses: Empty, Null, Boolean,
// Byte, Integer (16-bit), Long (32-bit), Double, Date and String (Windows-1252 bytes).
// Conversions between kinds are the free functions of runtime/Conversion.h (CStr, CDbl, CInt, ...).
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

// VarType numbers.
constexpr int vbEmpty = 0;
constexpr int vbNull = 1;
constexpr int vbInteger = 2;
constexpr int vbLong = 3;
constexpr int vbDouble = 5;
constexpr int vbDate = 7;
constexpr int vbString = 8;
constexpr int vbBoolean = 11;
constexpr int vbByte = 17;

class Variant {
 public:
  // The constructors are implicit on purpose: a Variant parameter takes any plain value.
  Variant() = default;  // Empty
  Variant(bool value);
  Variant(std::uint8_t value);  // Byte
  Variant(std::int16_t value);  // Integer
  Variant(int value);           // Long: a C++ int has the classic Long's 32 bits
  Variant(long value);          // Long; outside 32 bits raises RuntimeError(6)
  Variant(double value);
  Variant(const char* text);
  Variant(std::string text);
  static Variant Null();
  static Variant FromDate(double date);

  int VarType() const { return type_; }
  bool IsEmpty() const { return type_ == vbEmpty; }
  bool IsNull() const { return type_ == vbNull; }
  bool IsString() const { return type_ == vbString; }
  // Boolean, Byte, Integer, Long or Double.
  bool IsNumber() const;

  // The value of a Boolean (-1 or 0), number or Date; 0 for Empty, Null and String.
  double Value() const { return value_; }
  // The bytes of a String; empty for every other kind.
  const std::string& Text() const { return text_; }

 private:
  Variant(int type, double value) : type_(type), value_(value) {}

  int type_ = vbEmpty;
  double value_ = 0;
  std::string text_;
};

}  // namespace tolmen
