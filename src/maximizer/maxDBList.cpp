#include "maximizer/maxDBList.h"

#include "recordio/FieldCodecs.h"

namespace tolmen {

maxDBList::maxDBList(Tolmen& app) : MaxRecord(app, "maxDBList", kRecordLength) {}

void maxDBList::StoreI16(std::size_t offset, std::int16_t value) {
  Store(offset, 2, MkI(value));
}

}  // namespace tolmen
