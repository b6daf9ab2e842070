#include "recordio/AcceptedStatuses.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

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

// The rows' normal outcomes as GlobalIO meets them, then pieces as Val reads them.
TEST(AcceptedStatuses, PiecesAreReadAsValReadsThem) {
  const struct {
    const char* list;
    std::vector<int16_t> accepted, refused;
  } cases[] = {{"12,3,9,11", {12, 9}, {1, 22}},  // "12" is not read digit by digit
               {"4,9", {4}, {22, 84, 49, 94}},
               {"84", {84}, {}},
               {"", {}, {9, 0}},  // no row (Get Less Than): "" accepts nothing, not even 0
               {"12,", {0}, {}},
               {",5", {0, 5}, {}},
               {"4,,9", {0}, {}},
               {" 9 ", {9}, {}},
               {"\t9", {9}, {}},
               {"\n9", {9}, {}},
               {"1 9", {19}, {}},
               {"9abc", {9}, {}},
               {"abc9", {}, {9}},
               {"abc", {0}, {}},
               {".", {0}, {}},
               {"-5", {-5}, {}},
               {"- 5", {-5}, {}},
               {"+5", {5}, {}},
               {"--5", {}, {5}},
               {"9.0", {9}, {}},
               {"9.5", {}, {9}},
               {".0", {0}, {}},
               {"9E1", {90}, {}},
               {"9d+1", {90}, {}},
               {"9E", {9}, {}},
               {"90E-1", {9}, {}},
               {"&H9", {0}, {9}},
               {"1E999", {}, {0}},
               {"32767", {32767}, {}},
               {"1,-32768", {-32768}, {}}};
  for (const auto& c : cases) {
    for (int16_t s : c.accepted) EXPECT_TRUE(StatusInList(s, c.list)) << s << " in \"" << c.list;
    for (int16_t s : c.refused) EXPECT_FALSE(StatusInList(s, c.list)) << s << " in \"" << c.list;
  }
}

}  // namespace
}  // namespace tolmen
