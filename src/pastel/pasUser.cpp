#include "pastel/pasUser.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 8, K::Text},         {2, 2, 8, 1, K::Byte},          {3, 3, 9, 10, K::Text},
    {4, 4, 19, 64, K::Text},       {5, 5, 83, 4, K::Date},         {6, 6, 87, 1, K::Flag},
    {7, 17, 88, 8, K::Text},       {18, 72, 176, 1, K::Byte},      {73, 83, 231, 2, K::Integer},
    {84, 105, 253, 1, K::Flag},    {106, 106, 275, 2, K::Integer}, {107, 109, 277, 1, K::Flag},
    {110, 110, 280, 8, K::Double}, {111, 117, 288, 2, K::Integer}, {118, 119, 302, 90, K::Text},
    {120, 121, 482, 4, K::Long},   {122, 123, 490, 4, K::Text},    {124, 130, 498, 2, K::Integer},
    {131, 131, 512, 1, K::Flag},   {132, 135, 513, 20, K::Text},   {136, 136, 593, 1, K::Flag},
    {137, 137, 594, 8, K::Text},   {138, 138, 602, 3, K::Text},    {139, 140, 605, 50, K::Text},
    {141, 142, 705, 1, K::Flag},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasUser::pasUser(Tolmen& app) : StoredRecord(app, "clsUser", kRecordLength, 140, kLayout) {}

}  // namespace tolmen
