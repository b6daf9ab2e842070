#include "platform/recordmanager/FileSpec.h"

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

std::string EncodeFileSpec(const FileSpec& spec) {
  std::string out;
  out.reserve(kFileSpecBytes + kSegmentSpecBytes * spec.segments.size());
  PutU16(out, spec.recordLength);
  PutU16(out, spec.pageSize);
  PutU16(out, spec.keyCount);
  PutU32(out, spec.recordCount);
  PutU16(out, spec.fileFlags);
  PutU16(out, 0);
  PutU16(out, spec.preallocation);
  for (const SegmentSpec& s : spec.segments) {
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

bool DecodeFileSpec(std::string_view bytes, FileSpec& spec) {
  if (bytes.size() < kFileSpecBytes) return false;
  spec = FileSpec{};
  spec.recordLength = GetU16(bytes, 0);
  spec.pageSize = GetU16(bytes, 2);
  spec.keyCount = GetU16(bytes, 4);
  spec.recordCount = GetU32(bytes, 6);
  spec.fileFlags = GetU16(bytes, 10);
  spec.preallocation = GetU16(bytes, 14);
  size_t at = kFileSpecBytes;
  for (unsigned key = 0; key < spec.keyCount; ++key) {
    bool more = true;
    while (more) {
      if (bytes.size() < at + kSegmentSpecBytes) return false;
      SegmentSpec s;
      s.position = GetU16(bytes, at);
      s.length = GetU16(bytes, at + 2);
      s.flags = GetU16(bytes, at + 4);
      s.uniqueValues = GetU32(bytes, at + 6);
      s.type = static_cast<uint8_t>(bytes[at + 10]);
      s.nullValue = static_cast<uint8_t>(bytes[at + 11]);
      s.manualKeyNumber = static_cast<uint8_t>(bytes[at + 14]);
      s.acsNumber = static_cast<uint8_t>(bytes[at + 15]);
      spec.segments.push_back(s);
      more = (s.flags & kKeySegmented) != 0;
      at += kSegmentSpecBytes;
    }
  }
  return true;
}

FileSpec ToFileSpec(const FileDef& def) {
  FileSpec spec;
  spec.recordLength = def.recordLength;
  spec.pageSize = def.pageSize;
  spec.keyCount = static_cast<uint16_t>(def.keys.size());
  spec.fileFlags = def.variable ? kFileVariable : 0;
  for (const KeyDef& key : def.keys) {
    for (size_t i = 0; i < key.segments.size(); ++i) {
      const SegmentDef& d = key.segments[i];
      SegmentSpec s;
      s.position = d.position;
      s.length = d.length;
      s.type = static_cast<uint8_t>(d.type);
      s.flags = kKeyExtendedType;
      if (key.duplicates) s.flags |= kKeyDuplicates;
      if (key.modifiable) s.flags |= kKeyModifiable;
      if (d.descending) s.flags |= kKeyDescending;
      if (d.caseInsensitive) s.flags |= kKeyNoCase;
      if (i + 1 < key.segments.size()) s.flags |= kKeySegmented;
      spec.segments.push_back(s);
    }
  }
  return spec;
}

std::string BuildCreateBuffer(const FileDef& def) {
  return EncodeFileSpec(ToFileSpec(def));
}

}  // namespace tolmen
