#include "pastel/pasTaxParameters.h"

#include "recordio/FieldCodecs.h"
#include "runtime/RuntimeError.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 1, K::Text},  {2, 3, 1, 7, K::Text},       {4, 4, 15, 1, K::Text},
    {5, 5, 16, 2, K::Text}, {6, 104, 18, 2, K::Integer},  // percentages of codes 1 to 99
};
constexpr RecordLayout kLayout{kRuns};

constexpr std::int32_t kInitialBufferLength = 2765;

}  // namespace

pasTaxParameters::pasTaxParameters(Tolmen& app)
    : PastelRecord(app, "pasTaxParameter", kRecordLength, 125, kLayout, kImageLength) {
  DBLen = kInitialBufferLength;
}

void pasTaxParameters::default_(std::int32_t /*field*/, const Variant& /*value*/) {}

std::int16_t pasTaxParameters::TaxPercentage(std::int32_t code) {
  if (code < 1 || code > 99) throw RuntimeError(9);
  return CvI(app_.ui,
             std::string_view(Image()).substr(static_cast<size_t>(18 + 2 * (code - 1)), 2));
}

}  // namespace tolmen
