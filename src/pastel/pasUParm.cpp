#include "pastel/pasUParm.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 1, K::Text},
    {2, 12, 1, 90, K::Text},
    {13, 13, 991, 3, K::Text},  // version
    {14, 14, 994, 3, K::Text},  // date format: year width, order, separator
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasUParm::pasUParm(Tolmen& app) : StoredRecord(app, "clsUParm", kRecordLength, 14, kLayout) {}

}  // namespace tolmen
