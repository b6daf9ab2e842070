#include "pastel/pasHisDetail.h"

#include "pastel/ImportLineSink.h"
#include "pastel/PastelFiles.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 1, K::Byte},                                  // user number
    {2, 2, 1, 2, K::Integer},                               // document type
    {3, 3, 3, 8, K::Text},                                  // document number
    {4, 4, 11, 15, K::Text},                                // item code
    {5, 5, 26, 7, K::Text},                                 // customer code
    {6, 6, 33, 5, K::Text},      {7, 7, 38, 1, K::Byte},    // line type
    {8, 8, 39, 2, K::Integer},                              // period number
    {9, 9, 41, 4, K::Date},      {10, 10, 45, 4, K::Text},  // unit
    {11, 13, 49, 2, K::Integer},  // tax type, discount type, discount percentage
    {14, 14, 55, 40, K::Text},    // description
    {15, 24, 95, 8, K::Double},   // cost, quantity, prices, tax, discounted amounts
    {25, 25, 175, 5, K::Text},   {26, 26, 180, 8, K::DateAndBlanks},
    {27, 27, 188, 1, K::Text},   {28, 30, 189, 1, K::Flag},
    {31, 32, 192, 4, K::Long},   {33, 33, 200, 8, K::Double},
    {34, 34, 208, 4, K::Long},   {35, 35, 212, 3, K::Text},
    {36, 36, 215, 1, K::Flag},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasHisDetail::pasHisDetail(Tolmen& app) : PastelRecord(app, "clsStk", kRecordLength, 36, kLayout) {}

void pasHisDetail::WriteLine() {
  if (ImportLineSink* sink = app_.pastelFiles.lineSink) sink->WriteDetail(*this);
}

}  // namespace tolmen
