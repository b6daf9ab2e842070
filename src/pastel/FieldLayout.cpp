#include "pastel/FieldLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "recordio/FieldCodecs.h"
#include "runtime/Conversion.h"
#include "runtime/RuntimeError.h"

namespace tolmen {
namespace {

std::string TextToWidth(const std::string& text, std::int32_t width) {
  std::string out = text.substr(0, static_cast<size_t>(width));
  out.resize(static_cast<size_t>(width), ' ');
  return out;
}

std::string DateBytes(const Variant& value) {
  return IsDate(value) ? MkDate(CDate(value)) : ZeroBytes(4);
}

float ToSingle(double number) {
  if (std::isfinite(number) && std::fabs(number) > std::numeric_limits<float>::max())
    throw RuntimeError(6);
  return static_cast<float>(number);
}

}  // namespace

std::optional<FieldSpot> RecordLayout::Locate(std::int32_t field) const {
  for (const FieldRun& run : runs_) {
    if (field < run.first || field > run.last) continue;
    const std::int32_t index = field - run.first;
    std::int32_t slot = index;
    if (run.interleaved) slot = index / 2 + 5 * (field % 2 == 0 ? 0 : 1);
    return FieldSpot{run.offset + slot * run.width, run.width, run.kind};
  }
  return std::nullopt;
}

std::vector<std::int32_t> RecordLayout::Fields() const {
  std::vector<std::int32_t> fields;
  for (const FieldRun& run : runs_)
    for (std::int32_t n = run.first; n <= run.last; ++n) fields.push_back(n);
  std::sort(fields.begin(), fields.end());
  return fields;
}

Variant DecodeField(Ui& ui, std::string_view image, const FieldSpot& spot) {
  const std::string_view bytes =
      image.substr(static_cast<size_t>(spot.offset), static_cast<size_t>(spot.width));
  switch (spot.kind) {
    case FieldKind::Text:
      return Variant(std::string(bytes));
    case FieldKind::Byte:
      return Variant(CvB(ui, bytes));
    case FieldKind::Integer:
    case FieldKind::TextReadAsInteger:
      return Variant(CvI(ui, bytes));
    case FieldKind::Long:
      return Variant(static_cast<int>(CvL(ui, bytes)));
    case FieldKind::Single:
      return Variant(static_cast<double>(CvS(ui, bytes)));
    case FieldKind::Double:
      return Variant(CvD(ui, bytes));
    case FieldKind::Date:
    case FieldKind::DateAndBlanks:
      return Variant::FromDate(CvDate(ui, bytes));
    case FieldKind::Flag:
      return Variant(CvBool(bytes));
  }
  return Variant();
}

void EncodeField(std::string& image, const FieldSpot& spot, const Variant& value) {
  std::string bytes;
  switch (spot.kind) {
    case FieldKind::Text:
    case FieldKind::TextReadAsInteger:
      bytes = TextToWidth(CStr(value), spot.width);
      break;
    case FieldKind::Byte:
      bytes = MkB(static_cast<std::uint8_t>(CByte(Variant(Val(CStr(value))))));
      break;
    case FieldKind::Integer:
      bytes = MkI(static_cast<std::int16_t>(CInt(Variant(Val(CStr(value))))));
      break;
    case FieldKind::Long:
      bytes = MkL(CLng(Variant(Val(CStr(value)))));
      break;
    case FieldKind::Single:
      bytes = MkS(ToSingle(Val(CStr(value))));
      break;
    case FieldKind::Double:
      bytes = MkD(Val(CStr(value)));
      break;
    case FieldKind::Date:
      bytes = DateBytes(value);
      break;
    case FieldKind::DateAndBlanks:
      bytes = DateBytes(value) + "    ";
      break;
    case FieldKind::Flag:
      bytes = MkBool(IsBoolean(value) && CBool(value) ? -1 : 0);
      break;
  }
  // A field takes as many bytes as it has room for; a one-byte flag on a wider field sets the
  // first byte and leaves the others.
  const size_t count = std::min(bytes.size(), static_cast<size_t>(spot.width));
  image.replace(static_cast<size_t>(spot.offset), count, bytes, 0, count);
}

}  // namespace tolmen
