#include "recordio/AcceptedStatuses.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace tolmen {
namespace {

TEST(AcceptedStatuses, EveryOperationHasItsRow) {
  const std::map<int, std::string> listed = {
      {0, "12,3,9,11"}, {1, "3"}, {2, "5"},  {3, "5"},  {5, "4,9"}, {6, "9"},    {7, "9"},
      {8, "9"},         {9, "9"}, {11, "9"}, {12, "9"}, {13, "9"},  {45, "3,9"}, {205, "84"}};
  for (int op = 0; op <= 256; ++op) {
    const auto row = listed.find(op);
    const std::optional<std::string> list = AcceptedStatusList(op);
    ASSERT_TRUE(list.has_value()) << "operation " << op;
    EXPECT_EQ(*list, row == listed.end() ? "" : row->second) << "operation " << op;
  }
  for (int op : {INT_MIN, -1, 257, 1019, INT_MAX}) {
    EXPECT_FALSE(AcceptedStatusList(op).has_value()) << "operation " << op;
  }
}

// The rows' normal outcomes as GlobalIO meets them, then pieces as Val reads them: "12" is not
// read digit by digit, and "" (no row, as for Get Less Than) accepts nothing, not even 0.
TEST(AcceptedStatuses, PiecesAreReadAsValReadsThem) {
  const std::pair<const char*, int16_t> accepted[] = {
      {"12,3,9,11", 12}, {"12,3,9,11", 9},    {"4,9", 4},  {"84", 84},   {"12,", 0},
      {",5", 0},         {",5", 5},           {"4,,9", 0}, {" 9 ", 9},   {"\t9", 9},
      {"\n9", 9},        {"1 9", 19},         {"9abc", 9}, {"abc", 0},   {".", 0},
      {"-5", -5},        {"- 5", -5},         {"+5", 5},   {"9.0", 9},   {".0", 0},
      {"9E1", 90},       {"9d+1", 90},        {"9E", 9},   {"90E-1", 9}, {"&H9", 0},
      {"32767", 32767},  {"1,-32768", -32768}};
  const std::pair<const char*, int16_t> refused[] = {
      {"12,3,9,11", 1}, {"12,3,9,11", 22}, {"4,9", 22}, {"4,9", 84}, {"4,9", 49},
      {"4,9", 94},      {"", 9},           {"", 0},     {"abc9", 9}, {"--5", 5},
      {"9.5", 9},       {"&H9", 9},        {"1E999", 0}};
  for (const auto& [list, s] : accepted) EXPECT_TRUE(StatusInList(s, list)) << s << " in " << list;
  for (const auto& [list, s] : refused) EXPECT_FALSE(StatusInList(s, list)) << s << " in " << list;
}

}  // namespace
}  // namespace tolmen
