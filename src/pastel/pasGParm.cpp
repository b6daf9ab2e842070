#include "pastel/pasGParm.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 1, K::Text},
    {2, 2, 1, 1, K::Byte},
    {3, 3, 2, 8, K::Double},
    {4, 5, 10, 7, K::Text},
    {6, 6, 24, 2, K::Integer},
    {7, 7, 26, 2, K::Integer},
    {8, 8, 28, 2, K::Integer},  // current period
    {9, 10, 30, 13, K::TextReadAsInteger},
    {11, 23, 56, 4, K::Date},
    {24, 36, 108, 4, K::Date},
    {37, 49, 160, 4, K::Date},  // period ends of the current year: field 36 + p
    {50, 62, 212, 4, K::Date},
    {63, 75, 212, 4, K::Text},
    {76, 88, 212, 4, K::Text},
    {89, 89, 784, 2, K::Integer},  // ageing period
    {681, 681, 786, 1, K::Byte},   // period 13 switch
    {90, 119, 794, 2, K::Integer},
    {120, 149, 854, 7, K::Text},
    {150, 179, 1064, 2, K::Integer},
    {180, 209, 1124, 8, K::Double},
    {210, 299, 1364, 20, K::Text},
    {300, 389, 3164, 1, K::Text},
    {390, 479, 3254, 1, K::Flag},
    {480, 569, 3344, 1, K::Byte},
    {570, 659, 3434, 1, K::Text},
    {660, 660, 3524, 40, K::Text},  // company name
    {661, 670, 3564, 30, K::Text},
    {671, 671, 3864, 6, K::Text},  // number format: separator, decimals, currency
    {672, 672, 3870, 8, K::Text},
    {673, 673, 3878, 2, K::Integer},
    {674, 674, 3880, 1, K::Flag},
    {675, 677, 3881, 1, K::Text},
    {678, 678, 3884, 2, K::Integer},
    {679, 679, 3886, 1, K::Text},
    {680, 680, 3887, 3, K::Text},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasGParm::pasGParm(Tolmen& app) : StoredRecord(app, "clsGParm", kRecordLength, 680, kLayout) {}

}  // namespace tolmen
