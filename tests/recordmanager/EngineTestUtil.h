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

inline int16_t CreateFile(RecordEngine& engine, const std::string& path, const FileDef& def,
                          int16_t mode = 0) {
  std::string pos(128, ' '), data = BuildCreateBuffer(def), key = path;
  auto len = static_cast<int32_t>(data.size());
  return engine.BTRCALL(kOpCreate, pos, data, len, key, 255, mode);
}

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
  // Creates the file and opens it: the first status that is not 0.
  int16_t Create(const std::string& path, const FileDef& def) {
    const int16_t st = CreateFile(engine_, path, def);
    return st != 0 ? st : Open(path);
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

// Little-endian bytes of an integer.
template <typename T>
std::string Le(T v) {
  std::string s(sizeof v, '\0');
  std::memcpy(s.data(), &v, sizeof v);
  return s;
}

// A file of records with one unique 4-byte integer key at the start, and its record n.
inline FileDef SmallIntegerFile(uint16_t length = 16) {
  return FileDef{length, 4096, false, {KeyDef{false, false, {SegmentDef{1, 4, KeyType::Integer}}}}};
}
inline std::string SmallRecord(int32_t n, size_t length = 16) {
  std::string r = Le(n);
  r.resize(length, '-');
  return r;
}
inline int Count(Client& c) {
  int n = 0;
  for (int16_t st = c.Get(kOpGetFirst); st == 0; st = c.Get(kOpGetNext)) ++n;
  return n;
}

// People: id (INTEGER 4, unique, modifiable), name (STRING 8, duplicates, modifiable), code
// (STRING 4, unique, case-insensitive and modifiable as asked). 32-byte records.
inline FileDef People(bool codeModifiable = false, bool codeNoCase = false) {
  return FileDef{
      32,
      4096,
      false,
      {KeyDef{false, true, {SegmentDef{1, 4, KeyType::Integer}}},
       KeyDef{true, true, {SegmentDef{5, 8, KeyType::String}}},
       KeyDef{false, codeModifiable, {SegmentDef{13, 4, KeyType::String, false, codeNoCase}}}}};
}
inline std::string Person(int32_t id, const std::string& name, const std::string& code,
                          const std::string& note = "") {
  std::string r = Le(id) + name;
  r.resize(12, ' ');
  r += code;
  r.resize(16, ' ');
  r += note;
  r.resize(32, '.');
  return r;
}
inline int32_t IdOf(const std::string& record) {
  int32_t id = 0;
  std::memcpy(&id, record.data(), 4);
  return id;
}

}  // namespace tolmen::test
