#include "pastel/pasDcodeFile.h"

#include "recordio/BtGlobal.h"

namespace tolmen {
namespace {

using K = FieldKind;

constexpr FieldRun kRuns[] = {
    {1, 1, 0, 2, K::Integer},  // category number
    {2, 2, 2, 30, K::Text},    // description
};
constexpr RecordLayout kLayout{kRuns};

}  // namespace

pasDcodeFile::pasDcodeFile(Tolmen& app)
    : StoredRecord(app, "clsDrCat", kRecordLength, 2, kLayout) {}

void pasDcodeFile::IO(std::int32_t operation, const OptText& key, const OptText& accepted,
                      const OptText& /*label*/) {
  GlobalIO(app_, *this, operation, key, accepted);
}

}  // namespace tolmen
