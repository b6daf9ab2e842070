#include "platform/automation/KeptWrites.h"

#include "runtime/Cp1252.h"

namespace tolmen {

KeptWrites::Key KeptWrites::KeyOf(const RecordKey& record, const std::string& field) {
  return {record.identification, record.contactNumber, UCase(field)};
}

void KeptWrites::Keep(const RecordKey& record, const std::string& field, const std::string& value) {
  writes_.push_back({record, field, value});
  fields_.insert(UCase(field));
  last_[KeyOf(record, field)] = value;
}

bool KeptWrites::HoldsField(const std::string& field) const {
  return fields_.count(UCase(field)) > 0;
}

std::optional<std::string> KeptWrites::Find(const RecordKey& record,
                                            const std::string& field) const {
  const auto found = last_.find(KeyOf(record, field));
  if (found == last_.end()) return std::nullopt;
  return found->second;
}

}  // namespace tolmen
