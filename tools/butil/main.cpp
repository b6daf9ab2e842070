// butil: the record manager utility's commands over the record engine.
//   butil -stat FILE                 the file's definition and number of records
//   butil -create FILE DESCRIPTION   a new, empty file as the description file says (an existing
//                                    file is not replaced)
//   butil -save FILE OUT             every record in key 0 order, in the unformatted save format
//   butil -load IN FILE              the records of a save file inserted, in one transaction
//   butil --help                     the usage, on standard output
// Errors go to standard error, naming the status and its words; the exit status is then 1, or 2
// for a command line butil does not understand.
#include <fmt/format.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "Description.h"
#include "SaveFormat.h"
#include "StatusText.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/RecordEngine.h"
#include "platform/recordmanager/RecordFile.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen::butil {
namespace {

constexpr int16_t kReadOnly = -2;
constexpr int16_t kNoReplace = -1;
constexpr int32_t kStatRoom = 16 + 16 * 512;

// One open file: the engine's call with its buffers.
class Btr {
 public:
  explicit Btr(RecordEngine& engine) : engine_(engine) {}
  int16_t Call(uint16_t op, int16_t keyNum = 0) {
    return engine_.BTRCALL(op, pos_, data, dataLen, key, 255, keyNum);
  }
  // `path` as the command line gives it (UTF-8); the record manager takes Windows-1252 text.
  int16_t Open(const std::string& path, int16_t mode) {
    key = PathFromSystem(path);
    return Call(kOpOpen, mode);
  }
  int16_t Get(uint16_t op, int32_t room) {
    data.resize(static_cast<size_t>(room));
    dataLen = room;
    return Call(op, 0);
  }
  std::string data;
  int32_t dataLen = 0;
  std::string key = std::string(255, ' ');

 private:
  RecordEngine& engine_;
  std::string pos_ = std::string(128, ' ');
};

int Fail(const std::string& what) {
  std::cerr << "butil: " << what << "\n";
  return 1;
}
int Fail(const std::string& what, int16_t status) {
  return Fail(what + ": " + DescribeStatus(status));
}

const char* YesNo(bool yes) {
  return yes ? "Yes" : "No";
}

int16_t ReadSpec(Btr& f, FileStat& stats) {
  if (int16_t st = f.Get(kOpStat, kStatRoom)) return st;
  return DecodeFileStat(f.data.substr(0, static_cast<size_t>(f.dataLen)), stats) ? kStatusOk
                                                                                 : kStatusIoError;
}

int Stat(const std::string& path) {
  RecordEngine engine;
  Btr f(engine);
  if (int16_t st = f.Open(path, kReadOnly)) return Fail(path, st);
  FileStat stats;
  if (int16_t st = ReadSpec(f, stats)) return Fail(path, st);
  std::string out = fmt::format(
      "File Statistics for {}\n\nRecord Length = {}\nVariable Records = {}\nPage Size = {}\n"
      "Number of Records = {}\nNumber of Keys = {}\n\n",
      path, stats.recordLength, YesNo(stats.fileFlags & kFileVariable), stats.pageSize,
      stats.recordCount, stats.keyCount);
  out += fmt::format("{:>3} {:>7} {:>8} {:>6}  {:<16}{:<11}{:<11}{:<11}{:<16}{:>13}\n", "Key",
                     "Segment", "Position", "Length", "Type", "Duplicates", "Modifiable",
                     "Descending", "CaseInsensitive", "Unique Values");
  int key = 0, segment = 0;
  for (const SegmentStat& s : stats.segments) {
    const uint8_t type = (s.flags & kKeyExtendedType) ? s.type
                         : (s.flags & kKeyBinary)     ? uint8_t{14}
                                                      : uint8_t{0};
    const bool first = segment == 0;
    out += fmt::format("{:>3} {:>7} {:>8} {:>6}  {:<16}{:<11}{:<11}{:<11}{:<16}{:>13}\n",
                       first ? std::to_string(key) : "", ++segment, s.position, s.length,
                       TypeName(type), YesNo(s.flags & kKeyDuplicates),
                       YesNo(s.flags & kKeyModifiable), YesNo(s.flags & kKeyDescending),
                       YesNo(s.flags & kKeyNoCase), first ? std::to_string(s.uniqueValues) : "");
    if (!(s.flags & kKeySegmented)) {
      ++key;
      segment = 0;
    }
  }
  std::cout << out;
  return 0;
}

int Create(const std::string& path, const std::string& descriptionPath) {
  std::ifstream in(descriptionPath, std::ios::binary);
  if (!in) return Fail(descriptionPath + ": cannot be read");
  std::ostringstream text;
  text << in.rdbuf();
  FileDef def;
  std::string error;
  if (!ParseDescription(text.str(), def, error)) return Fail(descriptionPath + ": " + error);
  RecordEngine engine;
  Btr f(engine);
  f.data = BuildCreateBuffer(def);
  f.dataLen = static_cast<int32_t>(f.data.size());
  f.key = PathFromSystem(path);
  if (int16_t st = f.Call(kOpCreate, kNoReplace)) return Fail(path, st);
  std::cout << "The file " << path << " has been created.\n";
  return 0;
}

int Save(const std::string& path, const std::string& outPath) {
  RecordEngine engine;
  Btr f(engine);
  if (int16_t st = f.Open(path, kReadOnly)) return Fail(path, st);
  FileStat stats;
  if (int16_t st = ReadSpec(f, stats)) return Fail(path, st);
  const auto room = static_cast<int32_t>(
      (stats.fileFlags & kFileVariable) ? RecordFile::kMaxRecordBytes : stats.recordLength);
  std::ofstream out(outPath, std::ios::binary | std::ios::trunc);
  if (!out) return Fail(outPath + ": cannot be written");
  long count = 0;
  int16_t st = f.Get(kOpGetFirst, room);
  for (; st == kStatusOk; st = f.Get(kOpGetNext, room), ++count) {
    WriteSavedRecord(out, std::string_view(f.data).substr(0, static_cast<size_t>(f.dataLen)));
  }
  if (st != kStatusEndOfFile) return Fail(path + ": record " + std::to_string(count + 1), st);
  WriteSaveEnd(out);
  out.close();
  if (!out) return Fail(outPath + ": cannot be written");
  std::cout << count << " records saved from " << path << ".\n";
  return 0;
}

int Load(const std::string& inPath, const std::string& path) {
  std::ifstream in(inPath, std::ios::binary);
  if (!in) return Fail(inPath + ": cannot be read");
  RecordEngine engine;
  Btr f(engine);
  if (int16_t st = f.Open(path, 0)) return Fail(path, st);
  if (int16_t st = f.Call(kOpBeginTransaction)) return Fail(path, st);
  long count = 0;
  std::string error;
  for (;;) {
    const ReadResult r = ReadSavedRecord(in, f.data, error);
    if (r == ReadResult::End) break;
    const std::string where = inPath + ": record " + std::to_string(count + 1);
    if (r == ReadResult::Error) {
      f.Call(kOpAbortTransaction);
      return Fail(where + ": " + error);
    }
    f.dataLen = static_cast<int32_t>(f.data.size());
    if (int16_t st = f.Call(kOpInsert, -1)) {
      f.Call(kOpAbortTransaction);
      return Fail(where, st);
    }
    ++count;
  }
  if (int16_t st = f.Call(kOpEndTransaction)) return Fail(path, st);
  std::cout << count << " records loaded into " << path << ".\n";
  return 0;
}

// The usage text: on stdout with status 0 when asked for (--help), else on stderr with 2.
int Usage(bool asked = false) {
  (asked ? std::cout : std::cerr) << "usage: butil -stat FILE\n"
                                     "       butil -create FILE DESCRIPTION\n"
                                     "       butil -save FILE OUT\n"
                                     "       butil -load IN FILE\n";
  return asked ? 0 : 2;
}

}  // namespace
}  // namespace tolmen::butil

int main(int argc, char** argv) {
  using namespace tolmen::butil;
  if (argc < 2) return Usage();
  std::string command = argv[1];
  for (char& c : command) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  try {
    if ((command == "--help" || command == "-h") && argc == 2) return Usage(true);
    if (command == "-stat" && argc == 3) return Stat(argv[2]);
    if (command == "-create" && argc == 4) return Create(argv[2], argv[3]);
    if (command == "-save" && argc == 4) return Save(argv[2], argv[3]);
    if (command == "-load" && argc == 4) return Load(argv[2], argv[3]);
  } catch (const tolmen::RuntimeError& error) {  // a path Windows-1252 cannot hold
    return Fail(tolmen::Cp1252ToUtf8(error.Description()));
  }
  return Usage();
}
