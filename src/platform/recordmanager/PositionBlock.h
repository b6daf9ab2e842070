// The 128-byte position block that the caller owns for each open file. The engine keeps in it
// which open file the block names and the block's currency. Layout (little-endian):
//    0   4  "TRE1": the block was filled by an Open of a record engine
//    4   4  the engine's instance tag: a block of another engine names no file of this one
//    8   4  handle slot of the open file
//   12   4  handle generation: a slot used again after Close does not revive an older block
//   16   2  key number of the currency, -1 when there is none
//   18   1  currency: 0 none, 1 on a record, 2 where a deleted record was
//   19   1  0
//   20   8  record id of the current record (the position Get Position gives)
//   28   8  the record's place among equal values of the currency key (0 on a unique key)
//   36  92  zero
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

constexpr size_t kPositionBlockBytes = 128;

enum class CurrencyState : uint8_t { None = 0, OnRecord = 1, Deleted = 2 };

struct Currency {
  int16_t key = -1;
  CurrencyState state = CurrencyState::None;
  int64_t rid = 0;
  int64_t seq = 0;
};

struct PositionBlock {
  uint32_t engineTag = 0;
  uint32_t slot = 0;
  uint32_t generation = 0;
  Currency currency;
};

// False when the block is not 128 bytes or was not filled by an Open.
bool ReadPositionBlock(const std::string& block, PositionBlock& out);
// Fills the whole block. REQUIRES: the block is 128 bytes.
void WritePositionBlock(std::string& block, const PositionBlock& pb);
// Rewrites the currency only. REQUIRES: the block is 128 bytes.
void WriteCurrency(std::string& block, const Currency& currency);

}  // namespace tolmen
