#include "platform/recordmanager/RecordEngine.h"

#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/EndIntent.h"
#include "platform/recordmanager/EngineImpl.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/PathNoCase.h"

namespace tolmen {
namespace {

constexpr int16_t kOpenNormal = 0;
constexpr int16_t kOpenReadOnly = -2;
constexpr int16_t kOpenExclusive = -4;
constexpr int16_t kCreateNoReplace = -1;

uint32_t NewTag(const void* self) {
  std::random_device random;
  return random() ^ static_cast<uint32_t>(reinterpret_cast<uintptr_t>(self));
}

}  // namespace

RecordEngine::Impl::Impl(const EngineOptions& opts) : options(opts), tag(NewTag(this)) {}

RecordEngine::RecordEngine(const EngineOptions& options) : impl_(std::make_unique<Impl>(options)) {}

RecordEngine::~RecordEngine() {
  impl_->CloseAll();
}

int16_t RecordEngine::BTRCALL(uint16_t operation, std::string& posBlk, std::string& dataBuf,
                              int32_t& dataLen, std::string& keyBuf, int16_t keyLen,
                              int16_t keyNum) {
  int op = operation;
  bool concurrent = false;
  if (op >= kOpConcurrentBias) {
    op -= kOpConcurrentBias;
    concurrent = true;
  }
  if (op >= 500) return kStatusInvalidOperation;  // lock biases go up to +400
  const int base = op % 100;
  if (concurrent && base != kOpBeginTransaction) return kStatusInvalidOperation;
  Call c{posBlk, dataBuf, dataLen, keyBuf, keyLen, keyNum};
  return impl_->Dispatch(base, c);
}

int16_t RecordEngine::Impl::Dispatch(int base, Call& c) {
  switch (base) {
    case kOpOpen:
      return Open(c);
    case kOpCreate:
      return Create(c);
    case kOpBeginTransaction:
      return Begin();
    case kOpEndTransaction:
      return End();
    case kOpAbortTransaction:
      return Abort();
    case kOpStop:
    case kOpReset:
      CloseAll();
      return kStatusOk;
    case kOpVersion:
      return Version(c);
    case kOpClose:
    case kOpInsert:
    case kOpUpdate:
    case kOpDelete:
    case kOpGetEqual:
    case kOpGetNext:
    case kOpGetPrevious:
    case kOpGetGreater:
    case kOpGetGreaterOrEqual:
    case kOpGetLess:
    case kOpGetLessOrEqual:
    case kOpGetFirst:
    case kOpGetLast:
    case kOpStat:
    case kOpGetPosition:
    case kOpGetDirect:
    case kOpUnlock:
      break;
    default:
      return kStatusInvalidOperation;
  }
  PositionBlock pb;
  Handle* h = Find(c.posBlk, pb);
  if (!h) return kStatusNotOpen;
  switch (base) {
    case kOpClose:
      return Close(pb);
    case kOpInsert:
      return Insert(*h, c);
    case kOpUpdate:
      return Update(*h, pb, c);
    case kOpDelete:
      return Delete(*h, pb, c);
    case kOpStat:
      return Stat(*h, c);
    case kOpGetPosition:
      return GetPosition(pb, c);
    case kOpGetDirect:
      return GetDirect(*h, c);
    case kOpUnlock:
      return kStatusOk;  // no locks are taken
    default:
      return Get(base, *h, pb, c);
  }
}

Handle* RecordEngine::Impl::Find(const std::string& posBlk, PositionBlock& pb) {
  if (!ReadPositionBlock(posBlk, pb) || pb.engineTag != tag || pb.slot >= slots.size() ||
      !slots[pb.slot] || generations[pb.slot] != pb.generation) {
    return nullptr;
  }
  return slots[pb.slot].get();
}

std::shared_ptr<SharedFile> RecordEngine::Impl::Registered(dev_t device, ino_t inode) {
  std::shared_ptr<SharedFile> found;
  std::erase_if(registry, [&](const std::weak_ptr<SharedFile>& w) {
    std::shared_ptr<SharedFile> s = w.lock();
    if (s && s->device == device && s->inode == inode) found = s;
    return !s;
  });
  return found;
}

int16_t RecordEngine::Impl::Open(Call& c) {
  const int16_t mode = c.keyNum;
  if (mode > kOpenNormal || mode < kOpenExclusive) return kStatusInvalidOperation;
  if (c.posBlk.size() != kPositionBlockBytes) return kStatusPositionBlockLength;
  const std::string path = PathFromKeyBuffer(c.keyBuf);
  if (path.empty()) return kStatusInvalidFileName;
  const std::string found = FindPathNoCase(path);
  struct stat st;
  if (found.empty() || ::stat(found.c_str(), &st) != 0) return kStatusFileNotFound;
  std::shared_ptr<SharedFile> shared = Registered(st.st_dev, st.st_ino);
  if (shared) {
    if (shared->exclusiveOpens > 0 || mode == kOpenExclusive) return kStatusFileLocked;
  } else {
    std::unique_ptr<RecordFile> file;
    if (mode != kOpenReadOnly) {
      // A transaction cut short in the middle of its End is finished first.
      if (int16_t s = Recover(found, options)) return s;
    }
    if (int16_t s = RecordFile::Open(found, options, file)) return s;
    shared = std::make_shared<SharedFile>();
    shared->file = std::move(file);
    shared->device = st.st_dev;
    shared->inode = st.st_ino;
    registry.push_back(shared);
  }
  auto h = std::make_unique<Handle>();
  h->shared = shared;
  h->readOnly = mode == kOpenReadOnly;
  h->exclusive = mode == kOpenExclusive;
  ++shared->opens;
  if (h->exclusive) ++shared->exclusiveOpens;
  PositionBlock pb;
  pb.engineTag = tag;
  size_t slot = 0;
  while (slot < slots.size() && slots[slot]) ++slot;
  if (slot == slots.size()) {
    slots.emplace_back();
    generations.push_back(0);
  }
  slots[slot] = std::move(h);
  pb.slot = static_cast<uint32_t>(slot);
  pb.generation = ++generations[slot];
  WritePositionBlock(c.posBlk, pb);
  return kStatusOk;
}

int16_t RecordEngine::Impl::Close(const PositionBlock& pb) {
  std::unique_ptr<Handle> h = std::move(slots[pb.slot]);
  ++generations[pb.slot];
  --h->shared->opens;
  if (h->exclusive) --h->shared->exclusiveOpens;
  // A file written in the open transaction stays open (in transactionFiles) until it ends.
  return kStatusOk;
}

int16_t RecordEngine::Impl::Create(Call& c) {
  const std::string path = PathFromKeyBuffer(c.keyBuf);
  if (path.empty()) return kStatusInvalidFileName;
  FileStat stats;
  const size_t length = c.dataLen < 0 ? 0 : static_cast<size_t>(c.dataLen);
  if (length > c.dataBuf.size() ||
      !DecodeFileStat(std::string_view(c.dataBuf).substr(0, length), stats)) {
    return kStatusInvalidPageSize;  // the buffer does not hold the definition it announces
  }
  bool exists = false;
  const std::string target = CreationPathNoCase(path, exists);
  if (target.empty()) return kStatusCreateIoError;
  if (exists) {
    if (c.keyNum == kCreateNoReplace) return kStatusFileExists;
    struct stat st;
    if (::stat(target.c_str(), &st) == 0 && Registered(st.st_dev, st.st_ino)) {
      return kStatusFileLocked;  // open in this engine
    }
  }
  return RecordFile::Create(target, stats, options);
}

int16_t RecordEngine::Impl::Stat(Handle& h, Call& c) {
  RecordFile& f = *h.shared->file;
  FileStat stats = f.Stat();
  std::vector<uint32_t> unique;
  if (int16_t st = f.Statistics(stats.recordCount, unique)) return st;
  size_t at = 0;
  for (size_t k = 0; k < f.Keys().size(); ++k) {
    stats.segments[at].uniqueValues = unique[k];
    at += f.Keys()[k].segments.size();
  }
  const std::string bytes = EncodeFileStat(stats);
  const size_t room = c.dataLen < 0 ? 0 : static_cast<size_t>(c.dataLen);
  if (bytes.size() > room) {
    c.dataBuf.assign(bytes, 0, room);
    return kStatusDataBufferTooShort;
  }
  c.dataBuf = bytes;
  c.dataLen = static_cast<int32_t>(bytes.size());
  return kStatusOk;
}

// Three entries of version (2 bytes), revision (2 bytes) and platform (1 byte): the interface,
// the local engine, and no remote engine.
int16_t RecordEngine::Impl::Version(Call& c) {
  static constexpr char kVersion[15] = {6, 0, 15, 0, 'L', 6, 0, 15, 0, 'L', 0, 0, 0, 0, 0};
  const size_t room = c.dataLen < 0 ? 0 : static_cast<size_t>(c.dataLen);
  if (room < 5) {
    c.dataBuf.assign(kVersion, room);
    return kStatusDataBufferTooShort;
  }
  const size_t n = room < sizeof kVersion ? room / 5 * 5 : sizeof kVersion;
  c.dataBuf.assign(kVersion, n);
  c.dataLen = static_cast<int32_t>(n);
  return kStatusOk;
}

int16_t RecordEngine::Impl::Begin() {
  if (transaction) return kStatusTransactionActive;
  transaction = true;
  return kStatusOk;
}

int16_t RecordEngine::Impl::End() {
  if (!transaction) return kStatusNoTransaction;
  int16_t status = kStatusOk;
  if (transactionFiles.size() > 1) {
    status = EndSeveral();
  } else if (!transactionFiles.empty()) {
    RecordFile& f = *transactionFiles.front()->file;
    if (!f.InTransaction()) {
      status = kStatusIoError;  // SQLite dropped this file's part after a failed write
    } else if ((status = f.Commit()) != kStatusOk) {
      f.Rollback();
    }
  }
  transactionFiles.clear();
  transaction = false;
  return status;
}

int16_t RecordEngine::Impl::EndSeveral() {
  auto rollBackAll = [this] {
    for (const auto& s : transactionFiles) {
      if (s->file->InTransaction()) s->file->Rollback();
    }
  };
  EndIntent intent;
  std::random_device random;
  intent.mark = (random() & 0x7FFFFFFF) | 1;  // never 0, the mark of a file no End marked
  int16_t status = kStatusOk;
  for (size_t i = 0; i < transactionFiles.size() && status == kStatusOk; ++i) {
    RecordFile& f = *transactionFiles[i]->file;
    if (!f.InTransaction()) {
      status = kStatusIoError;  // SQLite dropped this file's part after a failed write
    } else if ((status = f.Mark(intent.mark)) == kStatusOk) {
      if (i == 0) {
        intent.decider = f.Path();
      } else {
        intent.parts.push_back({f.Path(), {}});
        status = f.Undo(intent.parts.back().undo);
      }
    }
  }
  std::vector<int> locks;
  if (status == kStatusOk) status = WriteIntent(intent, locks);
  if (status != kStatusOk) {
    rollBackAll();
    RemoveIntent(intent, locks);
    return status;
  }
  // The deciding file (the first to join) commits last: its commit is the transaction's.
  for (size_t i = transactionFiles.size(); i-- > 0 && status == kStatusOk;) {
    status = transactionFiles[i]->file->Commit();
  }
  if (status != kStatusOk) {
    rollBackAll();
    // Parts already committed are taken back; if that fails, the intent files stay for the
    // next open to finish.
    if (Settle(intent, options) != kStatusOk) {
      for (const int fd : locks) ::close(fd);
      return status;
    }
  }
  RemoveIntent(intent, locks);
  return status;
}

int16_t RecordEngine::Impl::Abort() {
  if (!transaction) return kStatusNoTransaction;
  for (const auto& s : transactionFiles) {
    if (s->file->InTransaction()) s->file->Rollback();
  }
  transactionFiles.clear();
  transaction = false;
  return kStatusOk;
}

void RecordEngine::Impl::CloseAll() {
  if (transaction) Abort();
  for (size_t i = 0; i < slots.size(); ++i) {
    if (slots[i]) {
      slots[i].reset();
      ++generations[i];
    }
  }
  registry.clear();
}

}  // namespace tolmen
