#include "recordio/FieldCodecs.h"

#include <bit>

#include "platform/ui/Ui.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

// The unsigned value of `width` bytes, low byte first.
std::uint64_t LittleEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

std::string ToLittleEndian(std::uint64_t value, size_t width) {
  std::string out(width, '\0');
  for (size_t i = 0; i < width; ++i) {
    out[i] = static_cast<char>(value & 0xFF);
    value >>= 8;
  }
  return out;
}

// The length check every numeric decoder makes first: false after the message.
bool LengthIs(Ui& ui, std::string_view bytes, size_t width, const char* message) {
  if (bytes.size() == width) return true;
  ui.MsgBox(message, vbOKOnly);
  return false;
}

int ByteAt(std::string_view bytes, size_t index) {
  if (index >= bytes.size()) throw RuntimeError(5);  // Asc of an empty text
  return static_cast<unsigned char>(bytes[index]);
}

}  // namespace

std::uint8_t CvB(Ui& ui, std::string_view bytes) {
  if (!LengthIs(ui, bytes, 1, "Illegal function call in CvB()")) return 0;
  return static_cast<std::uint8_t>(bytes[0]);
}

std::int16_t CvI(Ui& ui, std::string_view bytes) {
  if (!LengthIs(ui, bytes, 2, "Illegal function call in CvI%()")) return 0;
  return static_cast<std::int16_t>(LittleEndian(bytes));
}

std::int32_t CvL(Ui& ui, std::string_view bytes) {
  if (!LengthIs(ui, bytes, 4, "Illegal function call in CvL&()")) return 0;
  return static_cast<std::int32_t>(LittleEndian(bytes));
}

float CvS(Ui& ui, std::string_view bytes) {
  if (!LengthIs(ui, bytes, 4, "Illegal function call in CvS!()")) return 0;
  return std::bit_cast<float>(static_cast<std::uint32_t>(LittleEndian(bytes)));
}

double CvD(Ui& ui, std::string_view bytes) {
  if (!LengthIs(ui, bytes, 8, "Illegal function call in CvD#()")) return 0;
  return std::bit_cast<double>(LittleEndian(bytes));
}

std::string MkB(std::uint8_t value) {
  return std::string(1, static_cast<char>(value));
}

std::string MkI(std::int16_t value) {
  return ToLittleEndian(static_cast<std::uint16_t>(value), 2);
}

std::string MkL(std::int32_t value) {
  return ToLittleEndian(static_cast<std::uint32_t>(value), 4);
}

std::string MkS(float value) {
  return ToLittleEndian(std::bit_cast<std::uint32_t>(value), 4);
}

std::string MkD(double value) {
  return ToLittleEndian(std::bit_cast<std::uint64_t>(value), 8);
}

double CvDate(Ui& ui, std::string_view bytes) {
  if (bytes.empty() || bytes == std::string_view("\0\0\0\0", 4)) return 0;
  try {
    const int year = CvI(ui, bytes.substr(std::min<size_t>(2, bytes.size()), 2));
    const int month = ByteAt(bytes, 1);
    const int day = ByteAt(bytes, 0);
    return DateSerial(year, month, day);
  } catch (const RuntimeError&) {
    return 0;
  }
}

std::string MkDate(double date) {
  const DateParts parts = SplitDate(DateValue(date));
  return MkB(static_cast<std::uint8_t>(parts.day)) + MkB(static_cast<std::uint8_t>(parts.month)) +
         MkI(static_cast<std::int16_t>(parts.year));
}

double CvTime(std::string_view bytes) {
  if (bytes.empty() || bytes == std::string_view("\0\0\0\0", 4)) return 0;
  return TimeSerial(ByteAt(bytes, 3), ByteAt(bytes, 2), ByteAt(bytes, 1));
}

bool CvBool(std::string_view bytes) {
  return bytes == std::string_view("\x01", 1);
}

std::string MkBool(std::int16_t value) {
  return std::string(1, value == -1 ? '\x01' : '\0');
}

std::string ZeroBytes(long count) {
  return String(count, '\0');
}

bool IsBoolean(const Variant& value) {
  try {
    CBool(value);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace tolmen
