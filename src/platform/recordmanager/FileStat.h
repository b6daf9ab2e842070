// The record manager's file and key definition layout: what Create reads from its data buffer
// and what Stat writes into it. The layout lives here and nowhere else; tools that create files
// describe them with FileDef and let BuildCreateBuffer lay out the bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolmen {

// Key segment flags.
enum KeyFlags : uint16_t {
  kKeyDuplicates = 0x0001,
  kKeyModifiable = 0x0002,
  kKeyBinary = 0x0004,  // unsigned binary, when kKeyExtendedType is clear
  kKeyNullAll = 0x0008,
  kKeySegmented = 0x0010,  // another segment of the same key follows
  kKeyAltCollation = 0x0020,
  kKeyDescending = 0x0040,
  kKeyRepeatingDuplicates = 0x0080,
  kKeyExtendedType = 0x0100,  // the extended type byte gives the type
  kKeyNullAny = 0x0200,
  kKeyNoCase = 0x0400,
};

// File flags.
enum FileFlags : uint16_t {
  kFileVariable = 0x0001,  // records may be longer than the record length
  kFileBlankTruncation = 0x0002,
  kFilePreallocate = 0x0004,
  kFileCompressed = 0x0008,
  kFileKeyOnly = 0x0010,
};

// Extended key types the engine collates.
enum class KeyType : uint8_t {
  String = 0,
  Integer = 1,
  Float = 2,
  Date = 3,
  Time = 4,
  LString = 10,
  ZString = 11,
  UnsignedBinary = 14,
  AutoIncrement = 15,
};

// One 16-byte key segment definition:
//    0  2  position, 1-based          6  4  reserved; Stat: unique values of the key
//    2  2  length                   10  1  extended type
//    4  2  flags                    11  1  null value
//                                   12  2  reserved
//                                   14  1  manual key number
//                                   15  1  alternate collating sequence number
struct SegmentStat {
  uint16_t position = 0;
  uint16_t length = 0;
  uint16_t flags = 0;
  uint32_t uniqueValues = 0;
  uint8_t type = 0;
  uint8_t nullValue = 0;
  uint8_t manualKeyNumber = 0;
  uint8_t acsNumber = 0;
};

// The 16-byte file definition, followed by the segments of every key in key order:
//    0  2  record length             10  2  file flags
//    2  2  page size                 12  2  reserved
//    4  2  number of keys            14  2  preallocated pages; Stat: unused pages
//    6  4  reserved; Stat: number of records
struct FileStat {
  uint16_t recordLength = 0;
  uint16_t pageSize = 0;
  uint16_t keyCount = 0;
  uint32_t recordCount = 0;
  uint16_t fileFlags = 0;
  uint16_t preallocation = 0;
  std::vector<SegmentStat> segments;
};

constexpr size_t kFileStatBytes = 16;
constexpr size_t kSegmentStatBytes = 16;

// The bytes of a definition: 16 + 16 per segment.
std::string EncodeFileStat(const FileStat& stats);
// Reads a definition from a Create buffer. The segments are counted by following the
// segmented flag through `keyCount` keys. False when the buffer ends before the last segment.
bool DecodeFileStat(std::string_view bytes, FileStat& stats);

// A file as the tools describe it.
struct SegmentDef {
  uint16_t position = 1;  // 1-based
  uint16_t length = 1;
  KeyType type = KeyType::String;
  bool descending = false;
  bool caseInsensitive = false;
};
struct KeyDef {
  bool duplicates = false;
  bool modifiable = false;
  std::vector<SegmentDef> segments;
};
struct FileDef {
  uint16_t recordLength = 0;
  uint16_t pageSize = 4096;
  bool variable = false;
  std::vector<KeyDef> keys;
};

// The definition of a described file: every segment carries its key's duplicate and
// modifiable flags, the extended-type flag and its type; all but a key's last segment carry the
// segmented flag.
FileStat ToFileStat(const FileDef& def);
// The Create data buffer for a described file (its length is the data length to pass).
std::string BuildCreateBuffer(const FileDef& def);

}  // namespace tolmen
