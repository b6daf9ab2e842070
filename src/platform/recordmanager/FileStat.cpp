#include "platform/recordmanager/FileStat.h"

namespace tolmen {
namespace {

void PutU16(std::string& out, uint16_t v) {
  out.push_back(static_cast<char>(v & 0xFF));
  out.push_back(static_cast<char>(v >> 8));
}
void PutU32(std::string& out, uint32_t v) {
  PutU16(out, static_cast<uint16_t>(v & 0xFFFF));
  PutU16(out, static_cast<uint16_t>(v >> 16));
}
uint16_t GetU16(std::string_view b, size_t at) {
  return static_cast<uint16_t>(static_cast<unsigned char>(b[at]) |
                               static_cast<unsigned char>(b[at + 1]) << 8);
}
uint32_t GetU32(std::string_view b, size_t at) {
  return GetU16(b, at) | static_cast<uint32_t>(GetU16(b, at + 2)) << 16;
}

}  // namespace

std::string EncodeFileStat(const FileStat& stats) {
  std::string out;
  out.reserve(kFileStatBytes + kSegmentStatBytes * stats.segments.size());
  PutU16(out, stats.recordLength);
  PutU16(out, stats.pageSize);
  PutU16(out, stats.keyCount);
  PutU32(out, stats.recordCount);
  PutU16(out, stats.fileFlags);
  PutU16(out, 0);
  PutU16(out, stats.preallocation);
  for (const SegmentStat& s : stats.segments) {
    PutU16(out, s.position);
    PutU16(out, s.length);
    PutU16(out, s.flags);
    PutU32(out, s.uniqueValues);
    out.push_back(static_cast<char>(s.type));
    out.push_back(static_cast<char>(s.nullValue));
    PutU16(out, 0);
    out.push_back(static_cast<char>(s.manualKeyNumber));
    out.push_back(static_cast<char>(s.acsNumber));
  }
  return out;
}

bool DecodeFileStat(std::string_view bytes, FileStat& stats) {
  if (bytes.size() < kFileStatBytes) return false;
  stats = FileStat{};
  stats.recordLength = GetU16(bytes, 0);
  stats.pageSize = GetU16(bytes, 2);
  stats.keyCount = GetU16(bytes, 4);
  stats.recordCount = GetU32(bytes, 6);
  stats.fileFlags = GetU16(bytes, 10);
  stats.preallocation = GetU16(bytes, 14);
  size_t at = kFileStatBytes;
  for (unsigned key = 0; key < stats.keyCount; ++key) {
    bool more = true;
    while (more) {
      if (bytes.size() < at + kSegmentStatBytes) return false;
      SegmentStat s;
      s.position = GetU16(bytes, at);
      s.length = GetU16(bytes, at + 2);
      s.flags = GetU16(bytes, at + 4);
      s.uniqueValues = GetU32(bytes, at + 6);
      s.type = static_cast<uint8_t>(bytes[at + 10]);
      s.nullValue = static_cast<uint8_t>(bytes[at + 11]);
      s.manualKeyNumber = static_cast<uint8_t>(bytes[at + 14]);
      s.acsNumber = static_cast<uint8_t>(bytes[at + 15]);
      stats.segments.push_back(s);
      more = (s.flags & kKeySegmented) != 0;
      at += kSegmentStatBytes;
    }
  }
  return true;
}

FileStat ToFileStat(const FileDef& def) {
  FileStat stats;
  stats.recordLength = def.recordLength;
  stats.pageSize = def.pageSize;
  stats.keyCount = static_cast<uint16_t>(def.keys.size());
  stats.fileFlags = def.variable ? kFileVariable : 0;
  for (const KeyDef& key : def.keys) {
    for (size_t i = 0; i < key.segments.size(); ++i) {
      const SegmentDef& d = key.segments[i];
      SegmentStat s;
      s.position = d.position;
      s.length = d.length;
      s.type = static_cast<uint8_t>(d.type);
      s.flags = kKeyExtendedType;
      if (key.duplicates) s.flags |= kKeyDuplicates;
      if (key.modifiable) s.flags |= kKeyModifiable;
      if (d.descending) s.flags |= kKeyDescending;
      if (d.caseInsensitive) s.flags |= kKeyNoCase;
      if (i + 1 < key.segments.size()) s.flags |= kKeySegmented;
      stats.segments.push_back(s);
    }
  }
  return stats;
}

std::string BuildCreateBuffer(const FileDef& def) {
  return EncodeFileStat(ToFileStat(def));
}

}  // namespace tolmen
