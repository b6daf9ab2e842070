// Update writes the record alone when no key changed and the changed keys otherwise: every key
// finds the record afterwards, a duplicate keeps or changes its place as its value does, and a
// key that may not change is guarded also where its encoding hides the change (case).
#include <gtest/gtest.h>

#include <vector>

#include "EngineTestUtil.h"

namespace tolmen::test {
namespace {

TEST(Update, EveryKeyFindsTheRecordAndDuplicatesKeepOrChangeTheirPlace) {
  struct Case {
    const char* what;
    std::string updated;        // the new record of id 30 ("SMITH", "C"), found by id
    int16_t keyNum;             // the key the update is made along
    std::vector<int32_t> next;  // Get Next along that key after the update
    std::vector<int32_t> smiths;
  };
  const Case cases[] = {
      {"data only, along the duplicate key",
       Person(30, "SMITH", "C", "new note"),
       1,
       {40},
       {10, 30, 40}},
      {"data only, along the unique key", Person(30, "SMITH", "C", "x"), 0, {40, 50}, {10, 30, 40}},
      {"the unique id", Person(35, "SMITH", "C"), 0, {40, 50}, {10, 35, 40}},
      {"the name: the end of the new group", Person(30, "BROWN", "C"), 1, {20, 10, 40}, {10, 40}},
      {"the code's case only (case-insensitive key)",
       Person(30, "SMITH", "c"),
       2,
       {40, 50},
       {10, 30, 40}},
      {"every key", Person(31, "ADAMS", "Q"), 0, {40, 50}, {10, 40}}};
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    TempDir dir;
    RecordEngine engine;
    Client f(engine);
    ASSERT_EQ(f.Create(dir.File("staff.dat"), People(true, true)), 0);
    for (const std::string& r :
         {Person(10, "SMITH", "A"), Person(20, "JONES", "B"), Person(30, "SMITH", "C"),
          Person(40, "SMITH", "D"), Person(50, "BROWN", "E")}) {
      ASSERT_EQ(f.Insert(r), 0);
    }
    // Positioned along the key of the update.
    const std::string keyValue[] = {Le<int32_t>(30), "SMITH   ", "C   "};
    ASSERT_EQ(f.GetKey(kOpGetEqual, keyValue[k.keyNum], k.keyNum), 0);
    if (k.keyNum == 1) {
      ASSERT_EQ(f.Get(kOpGetNext, 1), 0);  // the second SMITH, id 30
    }
    ASSERT_EQ(IdOf(f.data), 30);
    ASSERT_EQ(f.Update(k.updated, k.keyNum), 0);
    if (k.keyNum == 1) {
      EXPECT_EQ(f.key.substr(0, 8), k.updated.substr(4, 8)) << "the key buffer";
    }

    std::vector<int32_t> next;
    while (f.Get(kOpGetNext, k.keyNum) == 0) next.push_back(IdOf(f.data));
    EXPECT_EQ(next, k.next);
    std::vector<int32_t> smiths;
    for (int16_t st = f.GetKey(kOpGetEqual, "SMITH   ", 1);
         st == 0 && f.data.substr(4, 5) == "SMITH"; st = f.Get(kOpGetNext, 1)) {
      smiths.push_back(IdOf(f.data));
    }
    EXPECT_EQ(smiths, k.smiths);
    // Each key finds the record by its new value, none by an old value that changed.
    const std::string& u = k.updated;
    const std::string values[] = {u.substr(0, 4), u.substr(4, 8), u.substr(12, 4)};
    for (int16_t key = 0; key < 3; ++key) {
      ASSERT_EQ(f.GetKey(kOpGetEqual, values[key], key), 0) << key;
      if (key != 1) {
        EXPECT_EQ(f.data, u) << key;
      }
    }
    if (IdOf(u) != 30) {
      EXPECT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(30), 0), kStatusKeyNotFound);
    }
    if (u.substr(12, 1) != "C" && u.substr(12, 1) != "c") {
      EXPECT_EQ(f.GetKey(kOpGetEqual, "C   ", 2), kStatusKeyNotFound);
    }
  }
}

TEST(Update, AKeyThatMayNotChangeRefusesEvenAChangeOfCase) {
  TempDir dir;
  RecordEngine engine;
  Client f(engine);
  ASSERT_EQ(f.Create(dir.File("staff.dat"), People(false, true)), 0);
  ASSERT_EQ(f.Insert(Person(10, "SMITH", "A")), 0);
  ASSERT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(10), 0), 0);
  EXPECT_EQ(f.Update(Person(10, "SMITH", "a")), kStatusKeyNotModifiable);
  EXPECT_EQ(f.Update(Person(10, "SMYTHE", "A", "note")), 0);
  ASSERT_EQ(f.GetKey(kOpGetEqual, "a   ", 2), 0);
  EXPECT_EQ(f.data, Person(10, "SMYTHE", "A", "note"));
}

// Numbers come from one counter: a record's id (its position) and a duplicate's place. Neither
// is given twice, across transactions, whether the counter was last used by an insert, an update
// that moved a record into another group, or a delete of the last record.
TEST(Update, NumbersAreNeverGivenTwice) {
  TempDir dir;
  const std::string path = dir.File("staff.dat");
  RecordEngine engine;
  ASSERT_EQ(CreateFile(engine, path, People(true, true)), 0);
  auto position = [](Client& f) {
    EXPECT_EQ(f.Get(kOpGetPosition, 0, 4), 0);
    uint32_t p = 0;
    std::memcpy(&p, f.data.data(), 4);
    return p;
  };
  {
    Client f(engine);
    ASSERT_EQ(f.Open(path), 0);
    ASSERT_EQ(f.Insert(Person(1, "SMITH", "A")), 0);
    ASSERT_EQ(f.Insert(Person(2, "JONES", "B")), 0);
    ASSERT_EQ(f.Insert(Person(3, "BROWN", "C")), 0);
    EXPECT_EQ(position(f), 3u);
    ASSERT_EQ(f.Call(kOpDelete), 0);  // the last record: its number stays used
    ASSERT_EQ(f.GetKey(kOpGetEqual, Le<int32_t>(2), 0), 0);
    ASSERT_EQ(f.Update(Person(2, "SMITH", "B")), 0);  // a new place among the SMITHs: 4
    ASSERT_EQ(f.Call(kOpClose), 0);
  }
  Client f(engine);  // the counter is read again from the file
  ASSERT_EQ(f.Open(path), 0);
  ASSERT_EQ(f.Insert(Person(5, "SMITH", "E")), 0);
  EXPECT_EQ(position(f), 5u);
  std::vector<int32_t> smiths;
  for (int16_t st = f.GetKey(kOpGetEqual, "SMITH   ", 1); st == 0; st = f.Get(kOpGetNext, 1)) {
    smiths.push_back(IdOf(f.data));
  }
  EXPECT_EQ(smiths, (std::vector<int32_t>{1, 2, 5}));
}

}  // namespace
}  // namespace tolmen::test
