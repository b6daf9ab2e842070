#include "pastel/pasDelivery.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 6, K::Text},  // account code
    {2, 2, 6, 3, K::Text},      {3, 3, 9, 5, K::Text},
    {4, 7, 14, 16, K::Text},     // contact, telephone, cell, fax
    {8, 12, 78, 30, K::Text},    // delivery address lines 1 to 5
    {13, 13, 228, 50, K::Text},  // e-mail
    {14, 14, 278, 10, K::Text},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasDelivery::pasDelivery(Tolmen& app)
    : PastelRecord(app, "clsDelivery", kRecordLength, 14, kLayout) {}

}  // namespace tolmen
