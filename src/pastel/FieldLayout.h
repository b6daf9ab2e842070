// Where each field of a Pastel record lies, and how a field's bytes become a value and back. The
// record classes keep one table of runs each; a run is a row of fields of one kind and width laid
// one after another. Outside the record classes fields are addressed by number only.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/Variant.h"

namespace tolmen {

class Ui;

enum class FieldKind : std::uint8_t {
  Text,     // bytes as they stand; written truncated or blank-padded
  Byte,     // CvB / MkB
  Integer,  // CvI / MkI
  Long,     // CvL / MkL
  Single,   // CvS / MkS
  Double,   // CvD / MkD
  Date,     // CvDate / MkDate, blank = four zero bytes
  Flag,     // CvBool / MkBool; on a two-byte field a write sets the first byte only
  // A text field that the reader decodes with CvI: a width other than 2 shows the CvI message
  // and reads 0. Written as text.
  TextReadAsInteger,
  // Eight bytes read through CvDate (so never blank); written as the four date bytes (or four
  // zero bytes for a blank) followed by four blanks.
  DateAndBlanks,
};

// Fields first..last lie at offset + (n - first) * width. An interleaved run holds two columns
// of five: field n lies at offset + width * (i + 5c), with the row i = (n - first) / 2 and the
// column c = 0 for an even n, 1 for an odd one.
struct FieldRun {
  std::int32_t first;
  std::int32_t last;
  std::int32_t offset;
  std::int32_t width;
  FieldKind kind;
  bool interleaved = false;
};

struct FieldSpot {
  std::int32_t offset;
  std::int32_t width;
  FieldKind kind;
};

class RecordLayout {
 public:
  // REQUIRES: `runs` outlives the layout (the classes hand constant tables).
  constexpr explicit RecordLayout(std::span<const FieldRun> runs) : runs_(runs) {}
  // The place of a field, or nullopt for a number the table does not hold.
  std::optional<FieldSpot> Locate(std::int32_t field) const;
  // Every field number of the table, ascending.
  std::vector<std::int32_t> Fields() const;

 private:
  std::span<const FieldRun> runs_;
};

// The value of the field in `image`: Text as a String with its padding, numbers as their kinds
// (a Single as a Double), Date as a Date, Flag as a Boolean.
// REQUIRES: the spot lies inside the image.
Variant DecodeField(Ui& ui, std::string_view image, const FieldSpot& spot);

// Stores the value into the field of `image`:
// - Text: the value as text (CStr), cut or blank-padded to the width.
// - Byte, Integer, Long, Single, Double: the value as text, read by Val's leading-number scan
//   ("12abc" is 12, "" is 0), then converted with halves to even; out of range raises
//   RuntimeError(6).
// - Date: a date, or a text that is one, as MkDate; anything else (an empty text) four zero bytes.
// - Flag: MkBool of the value's truth when it has one, else of false.
// REQUIRES: the spot lies inside the image.
void EncodeField(std::string& image, const FieldSpot& spot, const Variant& value);

}  // namespace tolmen
