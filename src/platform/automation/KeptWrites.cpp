#include "platform/automation/KeptWrites.h"

#include <algorithm>

#include "runtime/Cp1252.h"

namespace tolmen {

void KeptWrites::Keep(const RecordKey& record, const std::string& field, const std::string& value) {
  writes_.push_back({record, field, value});
}

bool KeptWrites::HoldsField(const std::string& field) const {
  return std::any_of(writes_.begin(), writes_.end(),
                     [&](const KeptWrite& write) { return EqualsNoCase(write.field, field); });
}

std::optional<std::string> KeptWrites::Find(const RecordKey& record,
                                            const std::string& field) const {
  for (auto write = writes_.rbegin(); write != writes_.rend(); ++write)
    if (write->record == record && EqualsNoCase(write->field, field)) return write->value;
  return std::nullopt;
}

}  // namespace tolmen
