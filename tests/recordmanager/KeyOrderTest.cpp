// Every key type collates as the record manager orders it: records go in in one order and come
// back along the key, forwards with Get First/Next and backwards with Get Last/Previous.
#include <gtest/gtest.h>

#include <vector>

#include "EngineTestUtil.h"

namespace tolmen::test {
namespace {

// The key fields first, the record's number in the last byte.
constexpr uint16_t kRecordLength = 24;

struct OrderCase {
  const char* name;
  KeyDef key;
  std::vector<std::string> fields;  // the start of each record
  std::vector<int> order;           // record numbers in key order
};

SegmentDef Seg(uint16_t position, uint16_t length, KeyType type, bool descending = false,
               bool noCase = false) {
  return SegmentDef{position, length, type, descending, noCase};
}
KeyDef Key(std::vector<SegmentDef> segments, bool duplicates = false) {
  return KeyDef{duplicates, true, std::move(segments)};
}
std::string Bytes(std::initializer_list<int> bytes) {
  std::string s;
  for (int b : bytes) s.push_back(static_cast<char>(b));
  return s;
}
std::string Date(int day, int month, int year) {
  return Bytes({day, month}) + Le(static_cast<int16_t>(year));
}
std::string Time(int hours, int minutes, int seconds, int hundredths) {
  return Bytes({hundredths, seconds, minutes, hours});
}

const OrderCase kCases[] = {
    {"Integer2NegativesFirst",
     Key({Seg(1, 2, KeyType::Integer)}),
     {Le<int16_t>(5), Le<int16_t>(-1), Le<int16_t>(300), Le<int16_t>(-300), Le<int16_t>(0)},
     {3, 1, 4, 0, 2}},
    {"Integer8Extremes",
     Key({Seg(1, 8, KeyType::Integer)}),
     {Le<int64_t>(INT64_MAX), Le<int64_t>(-1), Le<int64_t>(INT64_MIN), Le<int64_t>(1)},
     {2, 1, 3, 0}},
    {"Integer1",
     Key({Seg(1, 1, KeyType::Integer)}),
     {Le<int8_t>(-128), Le<int8_t>(127), Le<int8_t>(-1)},
     {0, 2, 1}},
    {"Integer4Descending",
     Key({Seg(1, 4, KeyType::Integer, true)}),
     {Le<int32_t>(1), Le<int32_t>(3), Le<int32_t>(-5), Le<int32_t>(2)},
     {1, 3, 0, 2}},
    {"StringBytesUnsigned",
     Key({Seg(1, 3, KeyType::String)}),
     {"abc", "ab ",
      "\xE9"
      "aa",
      "ABC", "abd"},
     {3, 1, 0, 4, 2}},
    {"StringCaseInsensitiveKeepsInsertionOrder",
     Key({Seg(1, 5, KeyType::String, false, true)}, true),
     {"beta ", "ALPHA", "alpha", "Gamma", "\xE9t\xE9  ", "\xC9T\xC9  "},
     {1, 2, 0, 3, 4, 5}},
    {"ZStringStopsAtNul",
     Key({Seg(1, 5, KeyType::ZString)}, true),
     {std::string("ab\0zz", 5), "abc\0\0", std::string("ab\0aa", 5), std::string("a\0zzz", 5)},
     {3, 0, 2, 1}},
    {"LStringByLengthByte",
     Key({Seg(1, 5, KeyType::LString)}),
     {Bytes({2, 'a', 'b', 'x', 'x'}), Bytes({1, 'a', 'z', 'z', 'z'}), Bytes({3, 'a', 'b', 0, 'q'}),
      Bytes({0, 'z', 'z', 'z', 'z'}), Bytes({1, 'b', 0, 0, 0})},
     {3, 1, 0, 2, 4}},
    {"UnsignedBinaryLittleEndian",
     Key({Seg(1, 2, KeyType::UnsignedBinary)}),
     {Bytes({0x00, 0x01}), Bytes({0xFF, 0x00}), Bytes({0x01, 0x00}), Bytes({0x00, 0x80})},
     {2, 1, 0, 3}},
    {"Float8",
     Key({Seg(1, 8, KeyType::Float)}),
     {Le(1.5), Le(-1e10), Le(0.0), Le(-0.5), Le(1e10), Le(-1e-300)},
     {1, 3, 5, 2, 0, 4}},
    {"Float4Descending",
     Key({Seg(1, 4, KeyType::Float, true)}),
     {Le(0.25f), Le(-2.5f), Le(3.0f)},
     {2, 0, 1}},
    {"DateYearMonthDay",
     Key({Seg(1, 4, KeyType::Date)}),
     {Date(15, 3, 2024), Date(31, 12, 1999), Date(1, 12, 2023), Date(1, 1, 2000)},
     {1, 3, 2, 0}},
    {"TimeHoursDown",
     Key({Seg(1, 4, KeyType::Time)}),
     {Time(10, 0, 0, 1), Time(9, 59, 59, 99), Time(10, 0, 0, 0), Time(0, 0, 1, 0)},
     {3, 1, 2, 0}},
    {"TwoSegmentsStringThenDescendingInteger",
     Key({Seg(1, 3, KeyType::String), Seg(4, 2, KeyType::Integer, true)}),
     {"abc" + Le<int16_t>(1), "abc" + Le<int16_t>(5), "abb" + Le<int16_t>(9),
      "abd" + Le<int16_t>(0)},
     {2, 1, 0, 3}}};

class KeyOrderTest : public ::testing::TestWithParam<OrderCase> {};

TEST_P(KeyOrderTest, RecordsComeBackInKeyOrderBothWays) {
  const OrderCase& c = GetParam();
  TempDir dir;
  RecordEngine engine;
  FileDef def{kRecordLength, 4096, false, {c.key}};
  Client f(engine);
  ASSERT_EQ(f.Create(dir.File("order.dat"), def), 0);
  for (size_t i = 0; i < c.fields.size(); ++i) {
    std::string record = c.fields[i];
    record.resize(kRecordLength - 1, '\0');
    record.push_back(static_cast<char>(i));
    ASSERT_EQ(f.Insert(record), 0) << "record " << i;
  }
  std::vector<int> forward, backward;
  for (int16_t st = f.Get(kOpGetFirst); st == 0; st = f.Get(kOpGetNext)) {
    ASSERT_EQ(f.dataLen, kRecordLength);
    forward.push_back(f.data.back());
  }
  for (int16_t st = f.Get(kOpGetLast); st == 0; st = f.Get(kOpGetPrevious)) {
    backward.insert(backward.begin(), f.data.back());
  }
  EXPECT_EQ(forward, c.order);
  EXPECT_EQ(backward, c.order);
}

INSTANTIATE_TEST_SUITE_P(Types, KeyOrderTest, ::testing::ValuesIn(kCases),
                         [](const auto& p) { return std::string(p.param.name); });

// AUTOINCREMENT: 0 takes the highest value plus one, other values stay as given, and values
// count by their absolute value, so -5 collides with 5.
TEST(AutoIncrementTest, ZeroTakesNextValueAndOrderIsByAbsoluteValue) {
  TempDir dir;
  RecordEngine engine;
  FileDef def{8, 4096, false, {Key({Seg(1, 4, KeyType::AutoIncrement)})}};
  Client f(engine);
  ASSERT_EQ(f.Create(dir.File("auto.dat"), def), 0);
  auto record = [](int32_t id) { return Le(id) + "abcd"; };
  ASSERT_EQ(f.Insert(record(0)), 0);
  EXPECT_EQ(f.data.substr(0, 4), Le<int32_t>(1)) << "the assigned value comes back in the record";
  EXPECT_EQ(f.key.substr(0, 4), Le<int32_t>(1)) << "and in the key buffer";
  ASSERT_EQ(f.Insert(record(0)), 0);
  ASSERT_EQ(f.Insert(record(-10)), 0);
  ASSERT_EQ(f.Insert(record(0)), 0);
  EXPECT_EQ(f.data.substr(0, 4), Le<int32_t>(11));
  EXPECT_EQ(f.Insert(record(-2)), kStatusDuplicateKey);
  std::vector<int32_t> ids;
  for (int16_t st = f.Get(kOpGetFirst); st == 0; st = f.Get(kOpGetNext))
    ids.push_back(IdOf(f.data));
  EXPECT_EQ(ids, (std::vector<int32_t>{1, 2, -10, 11}));
}

}  // namespace
}  // namespace tolmen::test
