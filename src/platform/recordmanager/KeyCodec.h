// Keys as the engine stores them: every key value is encoded into bytes whose plain byte order
// (SQLite's order for blobs) is the key's order. Each segment encodes to exactly its own length,
// so segments concatenate without separators:
//   STRING            the bytes (folded to capitals when case-insensitive)
//   ZSTRING           the bytes up to the first NUL, then zeros
//   LSTRING           the bytes its length byte counts, zeros, then the length byte last
//   INTEGER           big-endian with the sign bit flipped (1, 2, 4 or 8 bytes)
//   AUTOINCREMENT     the absolute value, big-endian (the record manager orders it so)
//   UNSIGNED BINARY   big-endian
//   FLOAT             IEEE bits big-endian; negatives inverted, positives with the sign flipped
//   DATE              year (big-endian), month, day
//   TIME              hours, minutes, seconds, hundredths
// A descending segment inverts its bytes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/recordmanager/FileStat.h"

namespace tolmen {

// One key of an open file, checked.
struct KeyModel {
  bool duplicates = false;
  bool modifiable = false;
  uint16_t length = 0;     // the key value's length: the sum of its segments' lengths
  int autoIncrement = -1;  // index of an AUTOINCREMENT segment (a key of its own), or -1
  std::vector<SegmentStat> segments;
};

// The type a segment collates as: its extended type, or unsigned binary / string for the
// old-style binary flag.
KeyType SegmentType(const SegmentStat& segment);

// Checks a definition and builds its keys. Returns 0 or the status Create gives for it: 24
// page size, 26 key count, 27 key position, 28 record length, 29 key length (also a length the
// type does not have), 45 a flag or type the engine does not collate (alternate collating
// sequences, null keys, types other than those above), 55 an AUTOINCREMENT segment that is not a
// unique key of its own.
int16_t BuildKeyModels(const FileStat& stats, std::vector<KeyModel>& keys);

// True when equal encoded values mean equal key bytes: no segment folds case, ignores bytes after
// its end (ZSTRING, LSTRING) or makes two values equal (a FLOAT's -0 and +0, an AUTOINCREMENT's
// sign).
bool EncodingKeepsBytes(const KeyModel& key);
// Appends the encoded key taken from a record (each segment at its position).
// REQUIRES: the record holds the key's segments (checked when the file was opened).
void EncodeRecordKey(const KeyModel& key, const char* record, std::string& out);
// Appends the encoded key taken from a key buffer (the segments one after another).
// REQUIRES: `value` holds key.length bytes.
void EncodeKeyValue(const KeyModel& key, const char* value, std::string& out);
// Copies the key value out of a record into `value` (key.length bytes), as Get operations return
// it in the key buffer.
void ExtractKeyValue(const KeyModel& key, const char* record, char* value);

// AUTOINCREMENT fields: the signed little-endian value of a segment in a record, and storing one.
int64_t ReadAutoIncrement(const SegmentStat& segment, const char* record);
void WriteAutoIncrement(const SegmentStat& segment, int64_t value, char* record);

// Windows-1252 capitals, as case-insensitive keys and file names compare.
unsigned char FoldCase(unsigned char c);

}  // namespace tolmen
