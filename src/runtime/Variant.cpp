#include "runtime/Variant.h"

#include <utility>

#include "runtime/RuntimeError.h"

namespace tolmen {

Variant::Variant(bool value) : type_(vbBoolean), value_(value ? -1 : 0) {}

Variant::Variant(std::uint8_t value) : type_(vbByte), value_(value) {}

Variant::Variant(std::int16_t value) : type_(vbInteger), value_(value) {}

Variant::Variant(int value) : type_(vbLong), value_(value) {}

Variant::Variant(long value) : type_(vbLong), value_(static_cast<double>(value)) {
  if (value < INT32_MIN || value > INT32_MAX) throw RuntimeError(6);
}

Variant::Variant(double value) : type_(vbDouble), value_(value) {}

Variant::Variant(const char* text) : type_(vbString), text_(text) {}

Variant::Variant(std::string text) : type_(vbString), text_(std::move(text)) {}

Variant Variant::Null() {
  return Variant(vbNull, 0);
}

Variant Variant::FromDate(double date) {
  return Variant(vbDate, date);
}

bool Variant::IsNumber() const {
  return type_ == vbBoolean || type_ == vbByte || type_ == vbInteger || type_ == vbLong ||
         type_ == vbDouble;
}

}  // namespace tolmen
