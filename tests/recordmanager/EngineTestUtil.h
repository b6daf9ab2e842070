// Helpers for the record engine's tests: a temporary folder and a small client that keeps the
// buffers of one open file, as a record class does.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>

#include "common/TempDir.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::test {

// The buffers of one position block.
class Client {
 public:
  explicit Client(RecordEngine& engine) : engine_(engine) {}

  std::string pos = std::string(128, ' ');
  std::string data;
  int32_t dataLen = 0;
  std::string key = std::string(255, ' ');

  int16_t Call(uint16_t op, int16_t keyNum = 0, int16_t keyLen = 255) {
    return engine_.BTRCALL(op, pos, data, dataLen, key, keyLen, keyNum);
  }
  int16_t Open(const std::string& path, int16_t mode = 0) {
    key = path;
    data.clear();
    dataLen = 0;
    return Call(kOpOpen, mode);
  }
  int16_t Insert(const std::string& record, int16_t keyNum = 0) {
    data = record;
    dataLen = static_cast<int32_t>(record.size());
    return Call(kOpInsert, keyNum);
  }
  int16_t Update(const std::string& record, int16_t keyNum = 0) {
    data = record;
    dataLen = static_cast<int32_t>(record.size());
    return Call(kOpUpdate, keyNum);
  }
  // A Get with a data buffer of `room` bytes.
  int16_t Get(uint16_t op, int16_t keyNum = 0, int32_t room = 4096) {
    data.assign(static_cast<size_t>(room), ' ');
    dataLen = room;
    return Call(op, keyNum);
  }
  // A Get that starts from a key value.
  int16_t GetKey(uint16_t op, const std::string& value, int16_t keyNum = 0, int32_t room = 4096) {
    key = value;
    key.resize(255, ' ');
    return Get(op, keyNum, room);
  }

 private:
  RecordEngine& engine_;
};

inline int16_t CreateFile(RecordEngine& engine, const std::string& path, const FileDef& def,
                          int16_t mode = 0) {
  std::string pos(128, ' '), data = BuildCreateBuffer(def), key = path;
  auto len = static_cast<int32_t>(data.size());
  return engine.BTRCALL(kOpCreate, pos, data, len, key, 255, mode);
}

// Little-endian bytes of an integer.
template <typename T>
std::string Le(T v) {
  std::string s(sizeof v, '\0');
  std::memcpy(s.data(), &v, sizeof v);
  return s;
}

// A file of 16-byte records with one unique 4-byte integer key at the start, and its record n.
inline FileDef SmallIntegerFile() {
  return FileDef{16, 4096, false, {KeyDef{false, false, {SegmentDef{1, 4, KeyType::Integer}}}}};
}
inline std::string SmallRecord(int32_t n) {
  std::string r = Le(n);
  r.resize(16, '-');
  return r;
}

}  // namespace tolmen::test
