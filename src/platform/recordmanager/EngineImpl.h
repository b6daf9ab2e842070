// The record engine's insides, shared by RecordEngine.cpp (files, transactions, dispatch) and
// EngineRecords.cpp (reading and writing records).
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/PositionBlock.h"
#include "platform/recordmanager/RecordEngine.h"
#include "platform/recordmanager/RecordFile.h"

namespace tolmen {

// One record file, opened once however many position blocks name it, so that all of them see
// the same transaction.
struct SharedFile {
  std::unique_ptr<RecordFile> file;
  dev_t device = 0;
  ino_t inode = 0;
  int exclusiveOpens = 0;
  int opens = 0;
};

// Rows read ahead along one key in one direction; `anchor` is the record last handed out.
struct Window {
  int key = -1;
  bool forward = true;
  uint64_t generation = 0;
  int64_t anchorRid = 0;
  int64_t anchorSeq = 0;
  size_t next = 0;
  size_t count = 0;
  int lastLimit = 0;
  std::chrono::steady_clock::time_point filled;
  std::vector<RecordFile::Row> rows;
};

// What one Open made: the file, the mode, and the encoded key value of the currency last
// written into the block (so that Get Next need not read it again).
struct Handle {
  std::shared_ptr<SharedFile> shared;
  bool readOnly = false;
  bool exclusive = false;
  Currency cached;
  std::string cachedKey;
  Window window;
};

// The buffers of one call.
struct Call {
  std::string& posBlk;
  std::string& dataBuf;
  int32_t& dataLen;
  std::string& keyBuf;
  int16_t keyLen;
  int16_t keyNum;
};

struct RecordEngine::Impl {
  explicit Impl(const EngineOptions& opts);

  int16_t Dispatch(int base, Call& c);
  Handle* Find(const std::string& posBlk, PositionBlock& pb);

  // RecordEngine.cpp
  int16_t Open(Call& c);
  int16_t Close(const PositionBlock& pb);
  int16_t Create(Call& c);
  int16_t Stat(Handle& h, Call& c);
  int16_t Version(Call& c);
  int16_t Begin();
  int16_t End();
  // End of a transaction over several files (EndIntent.h).
  int16_t EndSeveral();
  int16_t Abort();
  void CloseAll();
  std::shared_ptr<SharedFile> Registered(dev_t device, ino_t inode);
  // Runs a write on a file inside a write transaction: the engine's open one, which the file
  // joins, or one of its own that commits when the write succeeded.
  template <typename Op>
  int16_t Write(const std::shared_ptr<SharedFile>& shared, Op op);

  // EngineRecords.cpp
  int16_t Get(int base, Handle& h, PositionBlock& pb, Call& c);
  int16_t Insert(Handle& h, Call& c);
  int16_t Update(Handle& h, PositionBlock& pb, Call& c);
  int16_t Delete(Handle& h, PositionBlock& pb, Call& c);
  int16_t GetPosition(const PositionBlock& pb, Call& c);
  int16_t GetDirect(Handle& h, Call& c);
  int16_t Fetch(Handle& h, Call& c, int base, int key, RecordFile::Scan scan,
                const std::string& value, int64_t seq, int limit);
  int16_t Serve(Handle& h, Call& c, int key, RecordFile::Row& row);
  void SetCurrency(Handle& h, Call& c, int key, int64_t rid, int64_t seq);
  // After an insert or update on key `key`, the record `written`: the key buffer gets the
  // record's key value and the position is on the record.
  void AfterWrite(Handle& h, Call& c, int key);
  int16_t CurrencyKey(Handle& h, Currency& cur);
  int16_t CheckWrite(const Handle& h, const Call& c, bool keyed) const;

  EngineOptions options;
  uint32_t tag;
  std::vector<std::unique_ptr<Handle>> slots;
  std::vector<uint32_t> generations;
  std::vector<std::weak_ptr<SharedFile>> registry;
  bool transaction = false;
  std::vector<std::shared_ptr<SharedFile>> transactionFiles;
  std::string searchKey;
  std::string rowKey;
  RecordFile::Row written;
};

template <typename Op>
int16_t RecordEngine::Impl::Write(const std::shared_ptr<SharedFile>& shared, Op op) {
  RecordFile& f = *shared->file;
  bool own = false;
  if (!f.InTransaction()) {
    if (transaction) {
      for (const auto& joined : transactionFiles) {
        // SQLite ended the file's transaction after a failure: its writes are lost, and writing
        // on outside the transaction would break it.
        if (joined == shared) return kStatusIoError;
      }
    }
    if (int16_t st = f.Begin()) return st;
    if (transaction) {
      // Every file but the first keeps what takes its part back, should End be cut short.
      if (!transactionFiles.empty()) {
        if (int16_t st = f.Track()) {
          f.Rollback();
          return st;
        }
      }
      transactionFiles.push_back(shared);
    } else {
      own = true;
    }
  }
  int16_t st = op(f);
  if (own) {
    if (st == kStatusOk) st = f.Commit();
    if (st != kStatusOk) f.Rollback();
  }
  return st;
}

}  // namespace tolmen
