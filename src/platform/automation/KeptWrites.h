// Field writes kept on Tolmen's side instead of being sent to Maximizer: a preview of a run reads
// from the live address book but must change nothing in it. The record object hands each write
// here (with the current record's key) and answers a later read of a kept field from here, so the
// run sees what it would have seen after a real write.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace tolmen {

// The key of a record of the address book: its Identification and its Contact_Number ("0" for a
// company or individual), as the record object reads them.
struct RecordKey {
  std::string identification;
  std::string contactNumber;
  bool operator==(const RecordKey&) const = default;
};

struct KeptWrite {
  RecordKey record;
  std::string field;
  std::string value;
};

class KeptWrites {
 public:
  void Keep(const RecordKey& record, const std::string& field, const std::string& value);
  // True when some record has a kept write of `field` (names compared without regard to case);
  // lets a read of any other field go to Maximizer without first reading the record's key.
  bool HoldsField(const std::string& field) const;
  // The last value kept for the field of the record.
  std::optional<std::string> Find(const RecordKey& record, const std::string& field) const;
  // Every write in the order it was made.
  const std::vector<KeptWrite>& Writes() const { return writes_; }

 private:
  using Key = std::tuple<std::string, std::string, std::string>;  // record, upper-cased field
  static Key KeyOf(const RecordKey& record, const std::string& field);

  std::vector<KeptWrite> writes_;
  std::set<std::string> fields_;     // upper-cased
  std::map<Key, std::string> last_;  // the last value kept for each record and field
};

}  // namespace tolmen
