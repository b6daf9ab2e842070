#include "pastel/pasStk.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 3, K::Text},     {2, 2, 3, 15, K::Text},      {3, 3, 18, 40, K::Text},
    {4, 4, 58, 15, K::Text},   {5, 5, 73, 2, K::Integer},   {6, 9, 75, 1, K::Flag},
    {10, 10, 79, 4, K::Text},  {11, 12, 83, 2, K::Integer}, {13, 13, 87, 7, K::Text},
    {14, 14, 94, 1, K::Flag},  {15, 15, 95, 1, K::Text},    {16, 17, 96, 1, K::Flag},
    {18, 18, 98, 15, K::Text}, {19, 21, 113, 24, K::Text},  {22, 24, 185, 8, K::Double},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasStk::pasStk(Tolmen& app) : StoredRecord(app, "clsStk", kRecordLength, 27, kLayout) {}

}  // namespace tolmen
