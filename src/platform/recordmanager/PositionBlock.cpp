#include "platform/recordmanager/PositionBlock.h"

#include <cstring>

namespace tolmen {
namespace {

constexpr char kSignature[4] = {'T', 'R', 'E', '1'};

template <typename T>
T Load(const char* p) {
  T v;
  std::memcpy(&v, p, sizeof v);  // the engine runs on little-endian machines only
  return v;
}
template <typename T>
void Store(char* p, T v) {
  std::memcpy(p, &v, sizeof v);
}

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "position blocks are little-endian");

}  // namespace

bool ReadPositionBlock(const std::string& block, PositionBlock& out) {
  if (block.size() != kPositionBlockBytes) return false;
  const char* p = block.data();
  if (std::memcmp(p, kSignature, 4) != 0) return false;
  out.engineTag = Load<uint32_t>(p + 4);
  out.slot = Load<uint32_t>(p + 8);
  out.generation = Load<uint32_t>(p + 12);
  out.currency.key = Load<int16_t>(p + 16);
  const auto state = static_cast<uint8_t>(p[18]);
  if (state > 2) return false;
  out.currency.state = static_cast<CurrencyState>(state);
  out.currency.rid = Load<int64_t>(p + 20);
  out.currency.seq = Load<int64_t>(p + 28);
  return true;
}

void WritePositionBlock(std::string& block, const PositionBlock& pb) {
  std::memset(block.data(), 0, kPositionBlockBytes);
  char* p = block.data();
  std::memcpy(p, kSignature, 4);
  Store(p + 4, pb.engineTag);
  Store(p + 8, pb.slot);
  Store(p + 12, pb.generation);
  WriteCurrency(block, pb.currency);
}

void WriteCurrency(std::string& block, const Currency& c) {
  char* p = block.data();
  Store(p + 16, c.key);
  p[18] = static_cast<char>(c.state);
  p[19] = 0;
  Store(p + 20, c.rid);
  Store(p + 28, c.seq);
}

}  // namespace tolmen
