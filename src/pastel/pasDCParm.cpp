#include "pastel/pasDCParm.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 1, K::Text},
    {2, 2, 1, 1, K::Flag},
    {3, 3, 2, 4, K::Single},
    {4, 4, 6, 4, K::Long},
    {6, 6, 10, 7, K::Text},
    {7, 8, 17, 2, K::Integer},
    {9, 9, 21, 4, K::Long},  // credit limit of a new debtor
    {10, 10, 25, 2, K::Integer},
    {11, 12, 27, 7, K::Text},
    {13, 13, 41, 4, K::Long},
    {14, 14, 45, 2, K::Text},
    {15, 15, 47, 2, K::Integer},
    {16, 21, 49, 90, K::Text},
    {22, 23, 589, 2, K::Integer},
    {24, 25, 593, 3, K::Text},
    {26, 27, 599, 2, K::Integer},
    {28, 29, 603, 1, K::Flag},
    {30, 31, 605, 2, K::Integer},
    {32, 33, 609, 1, K::Text},
    {34, 35, 611, 2, K::Integer},
    {36, 41, 615, 1, K::Flag},
    {42, 53, 621, 2, K::Integer},
    {54, 63, 645, 20, K::Text},
    {64, 64, 845, 2, K::Integer},
    {65, 65, 847, 7, K::Text},
    {66, 75, 854, 10, K::Text, true},
    {76, 85, 954, 10, K::Text, true},
    {86, 117, 1054, 4, K::Long},
    {118, 149, 1182, 2, K::Integer},
    {150, 181, 1246, 1, K::Text},
    {182, 280, 1278, 2, K::Integer},
    {281, 379, 1476, 1, K::Text},
    {380, 381, 1575, 1, K::Flag},
    {382, 383, 1577, 10, K::Text},
    {384, 385, 1597, 16, K::Text},
    {386, 389, 1629, 1, K::Text},
    {390, 390, 1633, 8, K::Double},
    {391, 391, 1641, 1, K::Byte},
    {392, 392, 1642, 7, K::Text},
    {393, 393, 1649, 2, K::Flag},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasDCParm::pasDCParm(Tolmen& app) : StoredRecord(app, "clsDCParm", kRecordLength, 390, kLayout) {}

}  // namespace tolmen
