#include "pastel/pasStkst.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 2, 0, 3, K::Text},     {3, 4, 6, 15, K::Text},       {5, 6, 36, 4, K::Date},
    {7, 7, 44, 8, K::Double},  {8, 9, 52, 4, K::Long},       {10, 34, 60, 8, K::Double},
    {35, 36, 260, 4, K::Date}, {37, 126, 268, 8, K::Double},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasStkst::pasStkst(Tolmen& app) : StoredRecord(app, "clsStk", kRecordLength, 126, kLayout) {}

}  // namespace tolmen
