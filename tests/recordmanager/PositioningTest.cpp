// Positioning, ends, duplicates, currency after writes, short buffers, Stat, Get Position and
// Get Direct on real files.
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "EngineTestUtil.h"

namespace tolmen::test {
namespace {

class PeopleFile : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(CreateFile(engine, dir.File("people.dat"), People()), 0);
    ASSERT_EQ(f.Open(dir.File("people.dat")), 0);
  }
  void Load() {
    ASSERT_EQ(f.Insert(Person(10, "SMITH", "A")), 0);
    ASSERT_EQ(f.Insert(Person(20, "JONES", "B")), 0);
    ASSERT_EQ(f.Insert(Person(30, "SMITH", "C")), 0);
    ASSERT_EQ(f.Insert(Person(40, "SMITH", "D")), 0);
    ASSERT_EQ(f.Insert(Person(50, "BROWN", "E")), 0);
  }
  // Ids along key `key` from the current record on.
  std::vector<int32_t> Rest(uint16_t op, int16_t key) {
    std::vector<int32_t> ids;
    while (f.Get(op, key) == 0) ids.push_back(IdOf(f.data));
    return ids;
  }

  TempDir dir;
  RecordEngine engine;
  Client f{engine};
};

TEST_F(PeopleFile, GetOperationsFindTheirRecordOrGive4Or9) {
  EXPECT_EQ(f.Get(kOpGetFirst), kStatusEndOfFile) << "empty file";
  EXPECT_EQ(f.Get(kOpGetLast), kStatusEndOfFile);
  EXPECT_EQ(f.Get(kOpGetNext), kStatusInvalidPositioning) << "no currency yet";
  Load();
  struct Case {
    uint16_t op;
    int32_t from, result;  // the id found or, in `none`, the status
  };
  const Case found[] = {{kOpGetEqual, 20, 20},          {kOpGetGreater, 20, 30},
                        {kOpGetGreaterOrEqual, 20, 20}, {kOpGetGreaterOrEqual, 21, 30},
                        {kOpGetLess, 20, 10},           {kOpGetLessOrEqual, 20, 20},
                        {kOpGetLessOrEqual, 19, 10}};
  for (const Case& c : found) {
    SCOPED_TRACE("op " + std::to_string(c.op) + " from " + std::to_string(c.from));
    ASSERT_EQ(f.GetKey(c.op, Le(c.from)), 0);
    EXPECT_EQ(IdOf(f.data), c.result);
    EXPECT_EQ(f.dataLen, 32);
    EXPECT_EQ(f.key.substr(0, 4), Le(c.result)) << "the key value comes back in the key buffer";
  }
  const Case none[] = {{kOpGetEqual, 25, kStatusKeyNotFound},
                       {kOpGetGreater, 50, kStatusEndOfFile},
                       {kOpGetGreaterOrEqual, 51, kStatusEndOfFile},
                       {kOpGetLess, 10, kStatusEndOfFile},
                       {kOpGetLessOrEqual, -7, kStatusEndOfFile}};
  for (const Case& c : none)
    EXPECT_EQ(f.GetKey(c.op, Le(c.from)), c.result) << c.op << " " << c.from;
  // The ends, and the currency kept by a status 9.
  ASSERT_EQ(f.Get(kOpGetFirst), 0);
  EXPECT_EQ(f.Get(kOpGetPrevious), kStatusEndOfFile);
  EXPECT_EQ(f.Get(kOpGetNext), 0);
  EXPECT_EQ(IdOf(f.data), 20);
  ASSERT_EQ(f.Get(kOpGetLast), 0);
  EXPECT_EQ(IdOf(f.data), 50);
  EXPECT_EQ(f.Get(kOpGetNext), kStatusEndOfFile);
  EXPECT_EQ(f.Get(kOpGetPrevious), 0);
  EXPECT_EQ(IdOf(f.data), 40);
  // Key number and key buffer checks.
  EXPECT_EQ(f.Get(kOpGetNext, 1), kStatusKeyNumberChanged);
  EXPECT_EQ(f.Get(kOpGetFirst, 3), kStatusInvalidKeyNumber);
  EXPECT_EQ(f.Get(kOpGetFirst, -1), kStatusInvalidKeyNumber);
  EXPECT_EQ(f.Call(kOpGetFirst, 0, 3), kStatusKeyBufferTooShort);
  EXPECT_EQ(f.Call(16), kStatusInvalidOperation);
  EXPECT_EQ(f.Call(kOpGetFirst + 50), kStatusInvalidOperation);
  EXPECT_EQ(f.Get(kOpGetFirst + 200), 0) << "a lock bias is accepted";
}

TEST_F(PeopleFile, DuplicatesComeInInsertionOrderAndWritesKeepTheCurrency) {
  Load();
  ASSERT_EQ(f.GetKey(kOpGetEqual, "SMITH   ", 1), 0);
  EXPECT_EQ(IdOf(f.data), 10) << "Get Equal finds the first duplicate";
  EXPECT_EQ(Rest(kOpGetNext, 1), (std::vector<int32_t>{30, 40}));
  ASSERT_EQ(f.GetKey(kOpGetLess, "SMITH   ", 1), 0);
  EXPECT_EQ(IdOf(f.data), 20);
  ASSERT_EQ(f.GetKey(kOpGetLessOrEqual, "SMITH   ", 1), 0);
  EXPECT_EQ(IdOf(f.data), 40) << "backwards, the last duplicate comes first";

  // Refused updates leave the record as it was.
  ASSERT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(30), 0), 0);
  EXPECT_EQ(f.Update(Person(30, "SMITH", "Z")), kStatusKeyNotModifiable);
  EXPECT_EQ(f.Update(Person(40, "SMITH", "C")), kStatusDuplicateKey);
  EXPECT_EQ(f.Insert(Person(60, "NEW", "C")), kStatusDuplicateKey);
  EXPECT_EQ(f.Insert(Person(40, "NEW", "F")), kStatusDuplicateKey);
  ASSERT_EQ(f.GetKey(kOpGetEqual, "C   ", 2), 0);
  EXPECT_EQ(f.data, Person(30, "SMITH", "C"));

  // Delete: the currency stays where the record was.
  ASSERT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(30), 0), 0);
  ASSERT_EQ(f.Call(kOpDelete), 0);
  EXPECT_EQ(f.Update(Person(30, "SMITH", "C")), kStatusInvalidPositioning);
  EXPECT_EQ(f.Call(kOpDelete), kStatusInvalidPositioning);
  EXPECT_EQ(f.Get(kOpGetNext), 0);
  EXPECT_EQ(IdOf(f.data), 40);
  ASSERT_EQ(f.GetKey(kOpGetEqual, "SMITH   ", 1), 0);
  ASSERT_EQ(f.Get(kOpGetNext, 1), 0);  // 40
  ASSERT_EQ(f.Call(kOpDelete), 0);
  EXPECT_EQ(f.Get(kOpGetPrevious, 1), 0);
  EXPECT_EQ(IdOf(f.data), 10);

  // Insert makes the new record current along its key number.
  ASSERT_EQ(f.Insert(Person(35, "JONES", "J"), 1), 0);
  EXPECT_EQ(f.key.substr(0, 8), "JONES   ");
  EXPECT_EQ(f.Get(kOpGetPrevious, 1), 0);
  EXPECT_EQ(IdOf(f.data), 20);
}

TEST_F(PeopleFile, ScansAcrossReadAheadWindowsSeeThisEnginesWrites) {
  for (int32_t id = 0; id < 400; id += 2) {
    ASSERT_EQ(f.Insert(Person(id, "N" + std::to_string(id % 7), "C" + std::to_string(id))), 0);
  }
  Client other(engine);
  ASSERT_EQ(other.Open(dir.File("people.dat")), 0);
  std::vector<int32_t> seen;
  for (int16_t st = f.Get(kOpGetFirst); st == 0; st = f.Get(kOpGetNext)) {
    seen.push_back(IdOf(f.data));
    // Another block on the same file inserts just behind the current record.
    if (IdOf(f.data) == 100) {
      ASSERT_EQ(other.Insert(Person(101, "X", "X")), 0);
    }
  }
  ASSERT_EQ(seen.size(), 201u);
  EXPECT_EQ(seen[51], 101);
  for (size_t i = 1; i < seen.size(); ++i) ASSERT_LT(seen[i - 1], seen[i]);
  // Backwards along the duplicate key: every record once, names never increasing.
  size_t count = 0;
  std::string last = "\xFF";
  for (int16_t st = f.Get(kOpGetLast, 1); st == 0; st = f.Get(kOpGetPrevious, 1), ++count) {
    ASSERT_LE(f.data.substr(4, 8), last);
    last = f.data.substr(4, 8);
  }
  EXPECT_EQ(count, 201u);
}

TEST_F(PeopleFile, ShortDataBufferGives22WithTheStartOfTheRecord) {
  Load();
  ASSERT_EQ(f.Get(kOpGetFirst, 0, 10), kStatusDataBufferTooShort);
  EXPECT_EQ(f.data, Person(10, "SMITH", "A").substr(0, 10));
  EXPECT_EQ(f.dataLen, 10);
  EXPECT_EQ(f.Get(kOpGetNext), 0) << "the short read made the record current";
  EXPECT_EQ(IdOf(f.data), 20);
  f.data = Person(70, "LONG", "L") + "extra";
  f.dataLen = 37;
  EXPECT_EQ(f.Call(kOpInsert), kStatusDataBufferTooShort) << "fixed-length records only";
  f.dataLen = 31;
  EXPECT_EQ(f.Call(kOpInsert), kStatusDataBufferTooShort);
}

TEST_F(PeopleFile, StatPositionAndDirect) {
  Load();
  ASSERT_EQ(f.Get(kOpStat, 0, 512), 0);
  ASSERT_EQ(f.dataLen, 16 + 3 * 16);
  FileStat stats;
  ASSERT_TRUE(DecodeFileStat(f.data, stats));
  EXPECT_EQ(stats.recordLength, 32);
  EXPECT_EQ(stats.pageSize, 4096);
  EXPECT_EQ(stats.keyCount, 3);
  EXPECT_EQ(f.data.substr(6, 4), Le<uint32_t>(5)) << "record count at offset 6";
  auto layout = [](const FileStat& file) {
    std::vector<std::tuple<int, int, int, int>> segments;
    for (const auto& g : file.segments)
      segments.emplace_back(g.position, g.length, g.flags, g.type);
    return segments;
  };
  EXPECT_EQ(layout(stats), layout(ToFileStat(People())));
  EXPECT_EQ(stats.segments[1].uniqueValues, 3u) << "SMITH, JONES, BROWN";
  EXPECT_EQ(f.Get(kOpStat, 0, 20), kStatusDataBufferTooShort);

  ASSERT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(30), 0), 0);
  ASSERT_EQ(f.Get(kOpGetPosition, 0, 4), 0);
  ASSERT_EQ(f.dataLen, 4);
  const std::string position = f.data;
  ASSERT_EQ(f.Get(kOpGetFirst), 0);
  f.data = position + std::string(60, ' ');
  f.dataLen = 64;
  ASSERT_EQ(f.Call(kOpGetDirect, 1), 0);
  EXPECT_EQ(IdOf(f.data), 30);
  EXPECT_EQ(f.Get(kOpGetNext, 1), 0) << "Get Direct made the record current along key 1";
  EXPECT_EQ(IdOf(f.data), 40);
  f.data = Le<uint32_t>(999999) + std::string(60, ' ');
  EXPECT_EQ(f.Call(kOpGetDirect, 0), kStatusInvalidRecordAddress);

  ASSERT_EQ(f.Get(kOpVersion, 0, 15), 0);
  EXPECT_EQ(f.dataLen, 15);
  EXPECT_EQ(f.data[0], 6);
}

}  // namespace
}  // namespace tolmen::test
