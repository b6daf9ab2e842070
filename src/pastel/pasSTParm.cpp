#include "pastel/pasSTParm.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 1, K::Text},          {2, 11, 1, 20, K::Text},       {12, 12, 201, 1, K::Flag},
    {13, 13, 202, 2, K::Integer},   {14, 16, 204, 1, K::Flag},     {17, 17, 207, 3, K::Text},
    {18, 20, 210, 2, K::Integer},   {21, 22, 216, 8, K::Double},   {23, 26, 232, 4, K::Long},
    {27, 27, 248, 1, K::Flag},      {28, 28, 249, 10, K::Text},    {29, 29, 259, 1, K::Text},
    {30, 62, 260, 16, K::Text},     {63, 73, 788, 2, K::Integer},  {74, 76, 832, 12, K::Text},
    {77, 79, 868, 7, K::Text},      {80, 80, 889, 2, K::Integer},  {81, 81, 891, 1, K::Flag},
    {82, 82, 892, 8, K::Text},      {83, 85, 900, 1, K::Flag},     {86, 86, 903, 4, K::Text},
    {87, 87, 907, 2, K::Integer},   {88, 91, 909, 1, K::Flag},     {92, 97, 913, 30, K::Text},
    {98, 100, 1093, 2, K::Integer}, {101, 101, 1099, 1, K::Text},  {102, 102, 1100, 1, K::Flag},
    {103, 103, 1101, 3, K::Text},   {104, 104, 1104, 40, K::Text}, {105, 111, 1144, 1, K::Flag},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasSTParm::pasSTParm(Tolmen& app) : StoredRecord(app, "clsSTParm", kRecordLength, 104, kLayout) {}

}  // namespace tolmen
