// The record manager utility's readers, both over the same bytes: the description file (a
// description that reads creates a file whose statistics give its layout back), and the save
// format (the records read, saved again and read again are the same).
#include <cstdio>
#include <sstream>

#include "FuzzSupport.h"
#include "Targets.h"
#include "butil/Description.h"
#include "butil/SaveFormat.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::fuzz {
namespace {

void CreateDescribed(const FileDef& def) {
  const std::string path = ScratchFolder() + "described.dat";
  for (const char* suffix : {"", "-wal", "-shm"}) std::remove((path + suffix).c_str());
  RecordEngine engine;
  std::string pos(128, ' '), data = BuildCreateBuffer(def), key = path;
  auto length = static_cast<int32_t>(data.size());
  if (engine.BTRCALL(kOpCreate, pos, data, length, key, 255, -1) != kStatusOk) return;
  key = path;
  FUZZ_CHECK(engine.BTRCALL(kOpOpen, pos, data, length, key, 255, 0) == kStatusOk);
  data.assign(16 + 16 * 512, '\0');
  length = static_cast<int32_t>(data.size());
  FUZZ_CHECK(engine.BTRCALL(kOpStat, pos, data, length, key, 255, 0) == kStatusOk);
  FileStat stat;
  FUZZ_CHECK(DecodeFileStat(std::string_view(data).substr(0, static_cast<size_t>(length)), stat));
  FUZZ_CHECK(stat.recordLength == def.recordLength);
  FUZZ_CHECK(stat.keyCount == def.keys.size());
  engine.BTRCALL(kOpClose, pos, data, length, key, 255, 0);
}

std::vector<std::string> ReadSaved(const std::string& bytes, bool& whole) {
  std::istringstream in(bytes);
  std::vector<std::string> records;
  std::string record, error;
  for (;;) {
    const butil::ReadResult result = butil::ReadSavedRecord(in, record, error);
    if (result == butil::ReadResult::Record) {
      records.push_back(record);
      continue;
    }
    whole = result == butil::ReadResult::End;
    FUZZ_CHECK(whole || !error.empty());
    return records;
  }
}

}  // namespace

int FuzzButil(const uint8_t* data, size_t size) {
  const std::string bytes = Bytes(data, size);
  FileDef def;
  std::string error;
  if (butil::ParseDescription(bytes, def, error))
    CreateDescribed(def);
  else
    FUZZ_CHECK(!error.empty());

  bool whole = false;
  const std::vector<std::string> records = ReadSaved(bytes, whole);
  std::ostringstream out;
  for (const std::string& record : records) butil::WriteSavedRecord(out, record);
  butil::WriteSaveEnd(out);
  bool again = false;
  FUZZ_CHECK(ReadSaved(out.str(), again) == records);
  FUZZ_CHECK(again);
  return 0;
}

}  // namespace tolmen::fuzz
