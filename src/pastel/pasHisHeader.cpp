#include "pastel/pasHisHeader.h"

#include "pastel/ImportLineSink.h"
#include "pastel/PastelFiles.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 2, K::Integer},  // document type
    {2, 2, 2, 8, K::Text},     // document number
    {3, 3, 10, 6, K::Text},    // customer code
    {4, 4, 16, 4, K::Date},    // document date
    {5, 5, 20, 15, K::Text},   // order number
    {6, 6, 35, 5, K::Text},       {7, 7, 40, 1, K::Byte},      {8, 8, 41, 1, K::Flag},
    {9, 16, 42, 30, K::Text},  // messages 1 to 3, delivery address lines 1 to 5
    {17, 17, 282, 2, K::Integer}, {18, 18, 284, 1, K::Flag},   {19, 19, 285, 5, K::Text},
    {20, 20, 290, 2, K::Integer},                              // period number
    {21, 21, 292, 4, K::Date},    {22, 24, 296, 16, K::Text},  // telephone, fax, contact
    {25, 25, 344, 2, K::Integer}, {26, 32, 346, 8, K::Double}, {33, 34, 402, 1, K::Text},
    {35, 35, 404, 1, K::Flag},    {36, 36, 405, 1, K::Text},   {37, 37, 406, 1, K::Flag},
    {38, 38, 407, 10, K::Text},   {39, 39, 417, 16, K::Text},  {40, 40, 433, 1, K::Flag},
    {41, 41, 443, 20, K::Text},
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasHisHeader::pasHisHeader(Tolmen& app)
    : PastelRecord(app, "clsHisHeader", kRecordLength, 41, kLayout) {}

void pasHisHeader::WriteLine() {
  if (ImportLineSink* sink = app_.pastelFiles.lineSink) sink->WriteHeader(*this);
}

}  // namespace tolmen
