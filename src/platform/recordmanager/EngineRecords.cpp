// Reading and writing records: the Get operations with their read-ahead windows, Insert, Update,
// Delete, Get Position and Get Direct.
#include <algorithm>
#include <chrono>
#include <cstring>

#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/EngineImpl.h"

namespace tolmen {
namespace {

using Scan = RecordFile::Scan;

// Rows a first Get First or Last reads ahead, and the smallest refill of a window.
constexpr int kFirstWindow = 8;

bool ValidKey(const RecordFile& f, int key) {
  return key >= 0 && static_cast<size_t>(key) < f.Keys().size();
}

}  // namespace

int16_t RecordEngine::Impl::Get(int base, Handle& h, PositionBlock& pb, Call& c) {
  RecordFile& f = *h.shared->file;
  const int key = c.keyNum;
  if (!ValidKey(f, key)) return kStatusInvalidKeyNumber;
  const KeyModel& km = f.Keys()[static_cast<size_t>(key)];
  if (c.keyLen < static_cast<int>(km.length)) return kStatusKeyBufferTooShort;
  Window& w = h.window;
  switch (base) {
    case kOpGetNext:
    case kOpGetPrevious: {
      Currency& cur = pb.currency;
      if (cur.state == CurrencyState::None) return kStatusInvalidPositioning;
      if (cur.key != key) return kStatusKeyNumberChanged;
      const bool forward = base == kOpGetNext;
      const bool sameWay = w.key == key && w.forward == forward;
      if (sameWay && cur.state == CurrencyState::OnRecord && w.generation == f.Generation() &&
          w.anchorRid == cur.rid && w.anchorSeq == cur.seq && w.next < w.count &&
          std::chrono::steady_clock::now() - w.filled <
              std::chrono::milliseconds(options.windowMilliseconds)) {
        return Serve(h, c, key, w.rows[w.next++]);
      }
      if (int16_t st = CurrencyKey(h, cur)) return st;
      const int limit = sameWay ? std::clamp(w.lastLimit * 2, kFirstWindow, options.windowRows)
                                : std::min(kFirstWindow, options.windowRows);
      return Fetch(h, c, base, key, forward ? Scan::After : Scan::Before, h.cachedKey, cur.seq,
                   std::max(limit, 1));
    }
    case kOpGetFirst:
    case kOpGetLast:
      return Fetch(h, c, base, key, base == kOpGetFirst ? Scan::First : Scan::Last, searchKey, 0,
                   std::max(std::min(kFirstWindow, options.windowRows), 1));
    default: {
      if (c.keyBuf.size() < km.length) return kStatusKeyBufferTooShort;
      searchKey.clear();
      EncodeKeyValue(km, c.keyBuf.data(), searchKey);
      Scan scan = Scan::GreaterOrEqual;
      if (base == kOpGetGreater) scan = Scan::Greater;
      if (base == kOpGetLess) scan = Scan::Less;
      if (base == kOpGetLessOrEqual) scan = Scan::LessOrEqual;
      return Fetch(h, c, base, key, scan, searchKey, 0, 1);
    }
  }
}

int16_t RecordEngine::Impl::Fetch(Handle& h, Call& c, int base, int key, Scan scan,
                                  const std::string& value, int64_t seq, int limit) {
  RecordFile& f = *h.shared->file;
  Window& w = h.window;
  w.count = w.next = 0;
  size_t count = 0;
  if (int16_t st = f.Read(key, scan, value, seq, limit, w.rows, count)) return st;
  if (base == kOpGetEqual) {
    rowKey.clear();
    if (count) EncodeRecordKey(f.Keys()[static_cast<size_t>(key)], w.rows[0].data.data(), rowKey);
    if (count == 0 || rowKey != value) return kStatusKeyNotFound;
  }
  if (count == 0) return kStatusEndOfFile;
  w.key = key;
  w.forward = RecordFile::Forward(scan);
  w.generation = f.Generation();
  w.count = count;
  w.lastLimit = limit;
  w.filled = std::chrono::steady_clock::now();
  return Serve(h, c, key, w.rows[w.next++]);
}

// Hands a record out: the key value into the key buffer, the record into the data buffer (by
// swapping buffers, so the record is copied only once on its way out), and the currency.
int16_t RecordEngine::Impl::Serve(Handle& h, Call& c, int key, RecordFile::Row& row) {
  const KeyModel& km = h.shared->file->Keys()[static_cast<size_t>(key)];
  if (c.keyBuf.size() < km.length) c.keyBuf.resize(km.length);
  ExtractKeyValue(km, row.data.data(), c.keyBuf.data());
  h.cachedKey.clear();
  EncodeRecordKey(km, row.data.data(), h.cachedKey);
  int16_t st = kStatusOk;
  const size_t room = c.dataLen < 0 ? 0 : static_cast<size_t>(c.dataLen);
  if (row.data.size() <= room) {
    c.dataBuf.swap(row.data);
    c.dataLen = static_cast<int32_t>(c.dataBuf.size());
  } else {
    c.dataBuf.assign(row.data, 0, room);
    st = kStatusDataBufferTooShort;
  }
  SetCurrency(h, c, key, row.rid, row.seq);
  return st;
}

// REQUIRES: h.cachedKey holds the record's encoded key value.
void RecordEngine::Impl::SetCurrency(Handle& h, Call& c, int key, int64_t rid, int64_t seq) {
  h.cached = Currency{static_cast<int16_t>(key), CurrencyState::OnRecord, rid, seq};
  h.window.anchorRid = rid;
  h.window.anchorSeq = seq;
  WriteCurrency(c.posBlk, h.cached);
}

// Makes h.cachedKey the encoded key value of the block's currency, reading the record when the
// block's currency is not the one this handle wrote last (a copied block, for one).
int16_t RecordEngine::Impl::CurrencyKey(Handle& h, Currency& cur) {
  if (h.cached.state != CurrencyState::None && h.cached.key == cur.key && h.cached.rid == cur.rid &&
      h.cached.seq == cur.seq) {
    return kStatusOk;
  }
  if (cur.state != CurrencyState::OnRecord) return kStatusInvalidPositioning;
  RecordFile::Row row;
  bool found = false;
  if (int16_t st = h.shared->file->ReadById(cur.key, cur.rid, row, found)) return st;
  if (!found) return kStatusInvalidPositioning;
  cur.seq = row.seq;
  h.cached = Currency{cur.key, CurrencyState::OnRecord, row.rid, row.seq};
  h.cachedKey.clear();
  EncodeRecordKey(h.shared->file->Keys()[static_cast<size_t>(cur.key)], row.data.data(),
                  h.cachedKey);
  return kStatusOk;
}

int16_t RecordEngine::Impl::CheckWrite(const Handle& h, const Call& c, bool keyed) const {
  const RecordFile& f = *h.shared->file;
  if (h.readOnly) return kStatusAccessDenied;
  if (keyed && c.keyNum != -1) {
    if (!ValidKey(f, c.keyNum)) return kStatusInvalidKeyNumber;
    if (c.keyLen < static_cast<int>(f.Keys()[static_cast<size_t>(c.keyNum)].length)) {
      return kStatusKeyBufferTooShort;
    }
  }
  if (c.dataLen < 0 || static_cast<size_t>(c.dataLen) > c.dataBuf.size()) {
    return kStatusDataBufferTooShort;
  }
  return kStatusOk;
}

int16_t RecordEngine::Impl::Insert(Handle& h, Call& c) {
  if (int16_t st = CheckWrite(h, c, true)) return st;
  const int key = c.keyNum;
  const auto length = static_cast<size_t>(c.dataLen);
  int16_t st = Write(
      h.shared, [&](RecordFile& f) { return f.Insert(c.dataBuf.data(), length, key, written); });
  if (st != kStatusOk || key < 0) return st;
  AfterWrite(h, c, key);
  return kStatusOk;
}

int16_t RecordEngine::Impl::Update(Handle& h, PositionBlock& pb, Call& c) {
  if (int16_t st = CheckWrite(h, c, true)) return st;
  if (pb.currency.state != CurrencyState::OnRecord) return kStatusInvalidPositioning;
  const int key = c.keyNum;
  const auto length = static_cast<size_t>(c.dataLen);
  const int64_t rid = pb.currency.rid;
  int16_t st = Write(h.shared, [&](RecordFile& f) {
    return f.Update(rid, c.dataBuf.data(), length, key, written);
  });
  if (st != kStatusOk || key < 0) return st;
  AfterWrite(h, c, key);
  return kStatusOk;
}

void RecordEngine::Impl::AfterWrite(Handle& h, Call& c, int key) {
  const KeyModel& km = h.shared->file->Keys()[static_cast<size_t>(key)];
  if (c.keyBuf.size() < km.length) c.keyBuf.resize(km.length);
  ExtractKeyValue(km, c.dataBuf.data(), c.keyBuf.data());
  h.cachedKey.swap(written.key);
  SetCurrency(h, c, key, written.rid, written.seq);
}

int16_t RecordEngine::Impl::Delete(Handle& h, PositionBlock& pb, Call& c) {
  if (h.readOnly) return kStatusAccessDenied;
  Currency& cur = pb.currency;
  if (cur.state != CurrencyState::OnRecord) return kStatusInvalidPositioning;
  // Keep the record's key value: Get Next and Previous continue from where it was.
  if (int16_t st = CurrencyKey(h, cur)) return st;
  const int64_t rid = cur.rid;
  if (int16_t st = Write(h.shared, [rid](RecordFile& f) { return f.Delete(rid); })) return st;
  cur.state = CurrencyState::Deleted;
  h.cached.state = CurrencyState::Deleted;
  WriteCurrency(c.posBlk, cur);
  return kStatusOk;
}

int16_t RecordEngine::Impl::GetPosition(const PositionBlock& pb, Call& c) {
  if (pb.currency.state != CurrencyState::OnRecord) return kStatusInvalidPositioning;
  if (c.dataLen < 4) return kStatusDataBufferTooShort;
  const int64_t rid = pb.currency.rid;
  if (rid < 0 || rid > 0xFFFFFFFF) return kStatusIoError;
  const auto position = static_cast<uint32_t>(rid);
  c.dataBuf.resize(4);
  std::memcpy(c.dataBuf.data(), &position, 4);
  c.dataLen = 4;
  return kStatusOk;
}

int16_t RecordEngine::Impl::GetDirect(Handle& h, Call& c) {
  RecordFile& f = *h.shared->file;
  const int key = c.keyNum;
  if (!ValidKey(f, key)) return kStatusInvalidKeyNumber;
  if (c.keyLen < static_cast<int>(f.Keys()[static_cast<size_t>(key)].length)) {
    return kStatusKeyBufferTooShort;
  }
  if (c.dataLen < 4 || c.dataBuf.size() < 4) return kStatusDataBufferTooShort;
  uint32_t position = 0;
  std::memcpy(&position, c.dataBuf.data(), 4);
  Window& w = h.window;
  w.count = w.next = 0;
  if (w.rows.empty()) w.rows.resize(1);
  bool found = false;
  if (int16_t st = f.ReadById(key, position, w.rows[0], found)) return st;
  if (!found) return kStatusInvalidRecordAddress;
  w.key = -1;  // the window holds no rows to read on from
  return Serve(h, c, key, w.rows[0]);
}

}  // namespace tolmen
