#include "recordio/AcceptedStatuses.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <map>
#include <string>

namespace tolmen {
namespace {

TEST(AcceptedStatuses, EveryOperationHasItsRow) {
  const std::map<int, std::string> listed = {
      {0, "12,3,9,11"}, {1, "3"}, {2, "5"},  {3, "5"},  {5, "4,9"}, {6, "9"},    {7, "9"},
      {8, "9"},         {9, "9"}, {11, "9"}, {12, "9"}, {13, "9"},  {45, "3,9"}, {205, "84"},
  };
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

struct ListCase {
  int16_t status;
  const char* list;
  bool accepted;
};

// The rows' normal outcomes as GlobalIO meets them, then pieces as Val reads them.
TEST(AcceptedStatuses, PiecesAreReadAsValReadsThem) {
  const ListCase cases[] = {
      {12, "12,3,9,11", true},  // Open: file missing
      {9, "12,3,9,11", true},   // empty file: the Get First behind the open
      {1, "12,3,9,11", false},  // "12" is not read digit by digit
      {22, "12,3,9,11", false},
      {4, "4,9", true},
      {22, "4,9", false},
      {84, "84", true},
      {84, "4,9", false},
      {9, "", false},  // no row (Get Less Than): "" accepts nothing, not even 0
      {0, "", false},
      {0, "12,", true},
      {0, ",5", true},
      {0, "4,,9", true},
      {5, ",5", true},
      {49, "4,9", false},
      {94, "4,9", false},
      {9, " 9 ", true},
      {9, "\t9", true},
      {9, "\n9", true},
      {19, "1 9", true},
      {9, "9abc", true},
      {9, "abc9", false},
      {0, "abc", true},
      {0, ".", true},
      {-5, "-5", true},
      {-5, "- 5", true},
      {5, "+5", true},
      {5, "--5", false},
      {9, "9.0", true},
      {9, "9.5", false},
      {0, ".0", true},
      {90, "9E1", true},
      {90, "9d+1", true},
      {9, "9E", true},
      {9, "90E-1", true},
      {9, "&H9", false},
      {0, "&H9", true},
      {0, "1E999", false},
      {32767, "32767", true},
      {-32768, "1,-32768", true},
  };
  for (const ListCase& c : cases) {
    EXPECT_EQ(StatusInList(c.status, c.list), c.accepted)
        << "status " << c.status << " in \"" << c.list << "\"";
  }
}

}  // namespace
}  // namespace tolmen
