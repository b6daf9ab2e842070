// The field codecs: the first byte picks a codec, the rest is the field. A field of the codec's
// length decodes and encodes back to the same bytes; any other length gives the length message
// and 0.
#include <cmath>
#include <cstring>

#include "FuzzSupport.h"
#include "Targets.h"
#include "platform/ui/Clock.h"
#include "recordio/FieldCodecs.h"
#include "runtime/RuntimeError.h"

namespace tolmen::fuzz {
namespace {

template <typename Decode, typename Encode>
void RoundTrip(FuzzUi& ui, const std::string& field, size_t width, Decode decode, Encode encode) {
  const int boxes = ui.Boxes();
  const auto value = decode(ui, field);
  if (field.size() == width) {
    FUZZ_CHECK(ui.Boxes() == boxes);
    FUZZ_CHECK(encode(value) == field);
  } else {
    FUZZ_CHECK(ui.Boxes() == boxes + 1);
    FUZZ_CHECK(value == 0);
  }
}

// Floating fields: NaNs compare unequal, so the bytes are compared instead.
template <typename Decode, typename Encode>
void FloatTrip(FuzzUi& ui, const std::string& field, size_t width, Decode decode, Encode encode) {
  const auto value = decode(ui, field);
  if (field.size() != width) {
    FUZZ_CHECK(value == 0);
    return;
  }
  if (!std::isnan(value)) FUZZ_CHECK(encode(value) == field);
}

}  // namespace

int FuzzFieldCodecs(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  VirtualClock clock(45000);
  FuzzUi ui(clock);
  const std::string field = Bytes(data + 1, size - 1);
  switch (data[0] % 8) {
    case 0:
      RoundTrip(ui, field, 1, CvB, MkB);
      break;
    case 1:
      RoundTrip(ui, field, 2, CvI, MkI);
      break;
    case 2:
      RoundTrip(ui, field, 4, CvL, MkL);
      break;
    case 3:
      FloatTrip(ui, field, 4, CvS, MkS);
      break;
    case 4:
      FloatTrip(ui, field, 8, CvD, MkD);
      break;
    case 5: {
      // A decoded date is a whole day; encoding it and decoding again gives the same day.
      const double date = CvDate(ui, field);
      FUZZ_CHECK(date == std::floor(date));
      const bool blank = field.empty() || field == std::string(4, '\0');
      if (blank) FUZZ_CHECK(date == 0);
      if (date != 0) {
        const std::string bytes = MkDate(date);
        FUZZ_CHECK(bytes.size() == 4);
        FUZZ_CHECK(CvDate(ui, bytes) == date);
      }
      break;
    }
    case 6:
      try {
        // Hours up to 255 roll over into later days; nothing goes below 0.
        FUZZ_CHECK(CvTime(field) >= 0);
      } catch (const RuntimeError& error) {
        FUZZ_CHECK(error.Number() == 5 && !field.empty() && field.size() < 4);
      }
      break;
    default:
      FUZZ_CHECK(CvBool(field) == (field == "\x01"));
      FUZZ_CHECK(MkBool(CvBool(field) ? -1 : 0) == (CvBool(field) ? "\x01" : std::string(1, '\0')));
      break;
  }
  return 0;
}

}  // namespace tolmen::fuzz
