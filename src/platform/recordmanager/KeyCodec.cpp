#include "platform/recordmanager/KeyCodec.h"

#include <array>
#include <cstring>

#include "platform/recordmanager/BtrCodes.h"

namespace tolmen {
namespace {

constexpr std::array<unsigned char, 256> MakeFoldTable() {
  std::array<unsigned char, 256> t{};
  for (int c = 0; c < 256; ++c) t[c] = static_cast<unsigned char>(c);
  for (int c = 'a'; c <= 'z'; ++c) t[c] = static_cast<unsigned char>(c - 32);
  for (int c = 0xE0; c <= 0xFE; ++c) {
    if (c != 0xF7) t[c] = static_cast<unsigned char>(c - 32);  // not the division sign
  }
  t[0x9A] = 0x8A;  // s caron
  t[0x9C] = 0x8C;  // oe
  t[0x9E] = 0x8E;  // z caron
  t[0xFF] = 0x9F;  // y diaeresis
  return t;
}
constexpr std::array<unsigned char, 256> kFold = MakeFoldTable();

const unsigned char* Bytes(const char* p) {
  return reinterpret_cast<const unsigned char*>(p);
}

void AppendText(std::string& out, const unsigned char* src, size_t n, bool fold) {
  if (!fold) {
    out.append(reinterpret_cast<const char*>(src), n);
    return;
  }
  for (size_t i = 0; i < n; ++i) out.push_back(static_cast<char>(kFold[src[i]]));
}

uint64_t ReadLittleEndian(const unsigned char* src, size_t n) {
  uint64_t v = 0;
  for (size_t i = n; i-- > 0;) v = v << 8 | src[i];
  return v;
}

void AppendBigEndian(std::string& out, uint64_t v, size_t n) {
  for (size_t i = n; i-- > 0;) out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}

void AppendSegment(std::string& out, const SegmentStat& s, const unsigned char* src) {
  const size_t start = out.size();
  const size_t n = s.length;
  const bool fold = (s.flags & kKeyNoCase) != 0;
  switch (SegmentType(s)) {
    case KeyType::String:
      AppendText(out, src, n, fold);
      break;
    case KeyType::ZString: {
      const void* nul = std::memchr(src, 0, n);
      const size_t used =
          nul ? static_cast<size_t>(static_cast<const unsigned char*>(nul) - src) : n;
      AppendText(out, src, used, fold);
      out.append(n - used, '\0');
      break;
    }
    case KeyType::LString: {
      // The length byte goes last so that a shorter value sorts before a longer one that
      // continues it with NULs.
      const size_t used = src[0] < n ? src[0] : n - 1;
      AppendText(out, src + 1, used, fold);
      out.append(n - 1 - used, '\0');
      out.push_back(static_cast<char>(used));
      break;
    }
    case KeyType::Integer: {
      const uint64_t sign = uint64_t{1} << (8 * n - 1);
      AppendBigEndian(out, ReadLittleEndian(src, n) ^ sign, n);
      break;
    }
    case KeyType::AutoIncrement: {
      uint64_t v = ReadLittleEndian(src, n);
      const uint64_t sign = uint64_t{1} << (8 * n - 1);
      if (v & sign) v = (~v + 1) & (n == 8 ? ~uint64_t{0} : (uint64_t{1} << (8 * n)) - 1);
      AppendBigEndian(out, v, n);
      break;
    }
    case KeyType::UnsignedBinary:
      for (size_t i = n; i-- > 0;) out.push_back(static_cast<char>(src[i]));
      break;
    case KeyType::Float: {
      uint64_t bits = ReadLittleEndian(src, n);
      const uint64_t sign = uint64_t{1} << (8 * n - 1);
      if (bits == sign) bits = 0;  // -0 equals +0
      bits = (bits & sign) ? ~bits : bits ^ sign;
      AppendBigEndian(out, bits, n);
      break;
    }
    case KeyType::Date:  // day, month, year (16-bit)
      AppendBigEndian(out, ReadLittleEndian(src + 2, 2), 2);
      out.push_back(static_cast<char>(src[1]));
      out.push_back(static_cast<char>(src[0]));
      break;
    case KeyType::Time:  // hundredths, seconds, minutes, hours
      for (size_t i = 4; i-- > 0;) out.push_back(static_cast<char>(src[i]));
      break;
  }
  if (s.flags & kKeyDescending) {
    for (size_t i = start; i < out.size(); ++i) out[i] = static_cast<char>(~out[i]);
  }
}

bool LengthFitsType(KeyType type, uint16_t n) {
  switch (type) {
    case KeyType::Integer:
      return n == 1 || n == 2 || n == 4 || n == 8;
    case KeyType::AutoIncrement:
      return n == 2 || n == 4 || n == 8;
    case KeyType::Float:
      return n == 4 || n == 8;
    case KeyType::Date:
    case KeyType::Time:
      return n == 4;
    default:
      return n >= 1;
  }
}

bool KnownType(uint8_t t) {
  switch (static_cast<KeyType>(t)) {
    case KeyType::String:
    case KeyType::Integer:
    case KeyType::Float:
    case KeyType::Date:
    case KeyType::Time:
    case KeyType::LString:
    case KeyType::ZString:
    case KeyType::UnsignedBinary:
    case KeyType::AutoIncrement:
      return true;
  }
  return false;
}

}  // namespace

unsigned char FoldCase(unsigned char c) {
  return kFold[c];
}

KeyType SegmentType(const SegmentStat& s) {
  if (s.flags & kKeyExtendedType) return static_cast<KeyType>(s.type);
  return (s.flags & kKeyBinary) ? KeyType::UnsignedBinary : KeyType::String;
}

int16_t BuildKeyModels(const FileStat& stats, std::vector<KeyModel>& keys) {
  keys.clear();
  if (stats.pageSize < 512 || stats.pageSize > 16384 || stats.pageSize % 512 != 0) {
    return kStatusInvalidPageSize;
  }
  if (stats.recordLength == 0) return kStatusInvalidRecordLength;
  if (stats.keyCount == 0 || stats.keyCount > 119) return kStatusInvalidKeyCount;
  constexpr uint16_t kUnsupported = kKeyAltCollation | kKeyNullAll | kKeyNullAny;
  size_t at = 0;
  for (unsigned k = 0; k < stats.keyCount; ++k) {
    KeyModel key;
    bool more = true;
    while (more) {
      if (at >= stats.segments.size()) return kStatusInvalidKeyCount;
      const SegmentStat& s = stats.segments[at++];
      if (key.segments.empty()) {
        key.duplicates = (s.flags & kKeyDuplicates) != 0;
        key.modifiable = (s.flags & kKeyModifiable) != 0;
      }
      if (s.flags & kUnsupported) return kStatusInvalidKeyFlags;
      if ((s.flags & kKeyExtendedType) && !KnownType(s.type)) return kStatusInvalidKeyFlags;
      if (s.position == 0 || s.position + s.length - 1 > stats.recordLength) {
        return kStatusInvalidKeyPosition;
      }
      if (!LengthFitsType(SegmentType(s), s.length)) return kStatusInvalidKeyLength;
      if (SegmentType(s) == KeyType::AutoIncrement) {
        key.autoIncrement = static_cast<int>(key.segments.size());
      }
      key.length = static_cast<uint16_t>(key.length + s.length);
      key.segments.push_back(s);
      more = (s.flags & kKeySegmented) != 0;
    }
    if (key.length > 255) return kStatusInvalidKeyLength;
    if (key.autoIncrement >= 0 && (key.segments.size() != 1 || key.duplicates)) {
      return kStatusInvalidAutoIncrement;
    }
    keys.push_back(std::move(key));
  }
  return kStatusOk;
}

bool EncodingKeepsBytes(const KeyModel& key) {
  for (const SegmentStat& s : key.segments) {
    if (s.flags & kKeyNoCase) return false;
    switch (SegmentType(s)) {
      case KeyType::String:
      case KeyType::Integer:
      case KeyType::UnsignedBinary:
      case KeyType::Date:
      case KeyType::Time:
        break;
      default:
        return false;
    }
  }
  return true;
}

void EncodeRecordKey(const KeyModel& key, const char* record, std::string& out) {
  for (const SegmentStat& s : key.segments) AppendSegment(out, s, Bytes(record + s.position - 1));
}

void EncodeKeyValue(const KeyModel& key, const char* value, std::string& out) {
  for (const SegmentStat& s : key.segments) {
    AppendSegment(out, s, Bytes(value));
    value += s.length;
  }
}

void ExtractKeyValue(const KeyModel& key, const char* record, char* value) {
  for (const SegmentStat& s : key.segments) {
    std::memcpy(value, record + s.position - 1, s.length);
    value += s.length;
  }
}

int64_t ReadAutoIncrement(const SegmentStat& s, const char* record) {
  const size_t n = s.length;
  uint64_t v = ReadLittleEndian(Bytes(record + s.position - 1), n);
  if (n < 8 && (v & (uint64_t{1} << (8 * n - 1)))) v |= ~uint64_t{0} << (8 * n);  // sign-extend
  return static_cast<int64_t>(v);
}

void WriteAutoIncrement(const SegmentStat& s, int64_t value, char* record) {
  auto v = static_cast<uint64_t>(value);
  for (size_t i = 0; i < s.length; ++i)
    record[s.position - 1 + i] = static_cast<char>(v >> (8 * i));
}

}  // namespace tolmen
