// Sets of Pastel accounts described in JSON, for the tests and the demo (the pasteldata tool).
//
// A set is {"files": {"AccMasD.dat": [RECORD, ...], ...}}. Every Pastel file the system knows
// is created with its record length and the keys the system reads: a file given as null is not
// created (and one already in the folder is removed), a file not named is created empty. A
// RECORD maps field numbers, as strings, to values: texts as JSON strings, numbers as numbers,
// dates as date texts ("2024-03-15"; "" for a blank date), flags as true or false. A key "@N"
// writes the bytes of its string as they stand at offset N. JSON strings carry bytes: code points
// 0 to 255 stand for the byte of that value.
//
// A record starts as zero bytes where no field lies and every field at its empty value (blank
// text, zero numbers, four zero bytes for a date, a false flag); where fields overlap (fields 63
// to 88 of the GL parameters repeat 50 to 62) the lower-numbered field gives the empty value.
// Then the record's fields are written in ascending order through the class's default_ writer,
// then the "@N" bytes in ascending order. The tax table's class is read only (its writer does
// nothing), so its fields are laid out by the same field codecs directly.
//
// A dump is the same JSON: each record lists the fields that differ from their empty value (the
// lower-numbered of overlapping fields only), and "@N" entries for whatever bytes the fields do
// not reproduce, so that creating a set from a dump gives the same bytes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/recordmanager/FileStat.h"

namespace tolmen {

class Tolmen;
class PastelRecord;

// A description that cannot be built or a file that cannot be read.
class PastelSetError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct PastelSetFile {
  std::string name;  // as the system opens it ("AccMasD.dat")
  FileDef definition;
  std::function<std::unique_ptr<PastelRecord>(Tolmen&)> makeRecord;
};

// Every file of a set, in a fixed order.
const std::vector<PastelSetFile>& PastelSetFiles();
// The entry of a file name (compared without regard to case), nullptr when the set has none.
const PastelSetFile* FindPastelSetFile(const std::string& name);

// The record bytes of one RECORD of the file. Throws PastelSetError for a field number the file
// does not have, a value of the wrong JSON kind, a code point above 255, or raw bytes beyond the
// record; RuntimeError(6) for a number out of its field's range.
std::string BuildPastelRecord(Tolmen& app, const PastelSetFile& file, const nlohmann::json& record);
// Creates the set in `folder` (made when missing). Throws PastelSetError (the message names the
// file and the record) or RuntimeError.
void CreatePastelSet(Tolmen& app, const std::string& folder, const nlohmann::json& set);
// The records of one file, in key 0 order, as {"files": {NAME: [RECORD, ...]}}.
nlohmann::ordered_json DumpPastelFile(Tolmen& app, const std::string& folder,
                                      const std::string& fileName);

}  // namespace tolmen
