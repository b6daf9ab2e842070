#include "recordio/StatusCatalogue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace tolmen {
namespace {

// Each family of statuses and each range of help pages, at both of its ends.
TEST(StatusCatalogue, TextsAndHelpPagesEndAtTheirBounds) {
  const struct {
    int16_t low, high;
    const char* family;  // the text before the number
    const char* page;
  } ranges[] = {{-5040, -1000, "SQL Relational Database Engine Status Code ", "1statcod2.html"},
                {-199, -100, "Informative Status Code ", "1statcod3.html"},
                {47, 199, "MicroKernel Database Engine Status Code ", "1statcod5.html"},
                {2000, 2099, "Btrieve Requester Status Code ", "1statcod7.html"},
                {2200, 2299, "XLT Status Code ", "1statcod8.html"},
                {2300, 2399, "Named Database Status Code ", "1statcod9.html"},
                {3000, 3099, "MicroKernel Router Status Code ", "1statcod10.html"},
                {3100, 3199, "Network Services Layer Status Code ", "1statcod11.html"},
                {4000, 4099, "Database Utilities Status Code ", "1statcod12.html"},
                {7000, 7099, "User Count Manager Status Code ", "1statcod13.html"},
                {8000, 8499, "Component Management Status Code ", "1statcod14.html"},
                {8500, 8589, "ECAS Interface Status Code ", "1statcod15.html"},
                {8590, 8599, "W3DBSMGR Status Code ", "1statcod16.html"},
                {10000, 10065, "SQL Connection Manager Code ", "1statcod17.html"},
                {10066, 10100, "Unknown Pervasive Status Code ", "1statcod17.html"}};
  const std::string base = StatusHelpBase;
  const std::pair<int16_t, int16_t> unknown[] = {
      {-32768, -5041}, {10101, 32767}, {-999, -200}, {-99, -1},    {200, 999},  {2100, 2199},
      {2400, 2999},    {3200, 3999},   {4100, 6999}, {7100, 7999}, {8600, 9999}};
  for (const auto& [low, high] : unknown) {
    for (int16_t s : {low, high}) {
      EXPECT_EQ(StatusText(s), "Unknown Pervasive Status Code " + std::to_string(s));
      EXPECT_EQ(StatusHelpPage(s), base + "index.htm") << s;
    }
  }
  for (const auto& r : ranges) {
    for (int16_t s : {r.low, r.high}) {
      EXPECT_EQ(StatusText(s), r.family + std::to_string(s));
      EXPECT_EQ(StatusHelpPage(s), base + r.page) << s;
    }
  }
  for (int16_t s : {1000, 1999}) {
    EXPECT_EQ(StatusText(s), "MicroKernel Status Code " + std::to_string(s) +
                                 " for Windows and DOS Workstations ");
    EXPECT_EQ(StatusHelpPage(s), base + "1statcod6.html");
  }
  EXPECT_EQ(StatusText(0), "Operation Successful");
  EXPECT_EQ(StatusHelpPage(0), base + "1statcod4.html");
  EXPECT_EQ(StatusText(1), "Invalid Operation Parameter");
  EXPECT_EQ(StatusText(3006), "MicroKernel Router detected an invalid session");
  EXPECT_EQ(StatusHelpPage(5),
            "https://www.pervasive.com/support/technical/codes2k/1statcod5.html");
}

TEST(StatusCatalogue, ListedStatusesKeepTheirOwnWording) {
  const struct {
    int16_t status;
    const char* text;
  } cases[] = {{7, "key Number Has Changed"},
               {12, "File Not Found or there are spaces in the Path"},
               {22, "Data Buffer Length is too short"},
               {41, "Operation Dissallowed"},
               {46, "Access To File is Denied"},
               {84, "The record or page is locked"},
               {88, "Incompatible Mode Error (SEFS/MEFS)"},
               {162,
                "The client table is full. Try increasing the number of Active Clients in the "
                "MicroKernel Database Engine System Resource setting"},
               {163, "The NULL indicator cannot be the last segment"}};
  for (const auto& c : cases) EXPECT_EQ(StatusText(c.status), c.text);

  // A family text always carries the status's number and no own text does, so counting the texts
  // without their number finds every row: 0, the 126 listed statuses and 3006.
  int own = 0;
  for (int s = std::numeric_limits<int16_t>::min(); s <= std::numeric_limits<int16_t>::max(); ++s) {
    if (StatusText(static_cast<int16_t>(s)).find(std::to_string(s)) == std::string::npos) ++own;
  }
  EXPECT_EQ(own, 128);
}

TEST(StatusCatalogue, OperationNamesAndSymbols) {
  const struct {
    int32_t code;
    const char* name;
    const char* symbol;
  } cases[] = {{-1, "", "BOPENACCEL"},
               {0, "Open", "BOPEN"},
               {5, "Get Equal", "BGETEQU"},
               {9, "Get Greater Than or Equal", "BGETGTE"},
               {12, "Get First", "BGETFIRST"},
               {15, "Stat", "BSTAT"},
               {16, "", "BEXTEND"},
               {19, "Begin Transaction", "BTRBEG"},
               {23, "Get Direct Record", "BGETDIRECT"},
               {25, "Stop", "BSTOP"},
               {35, "Step Previous", "BSTEPP"},
               {36, "Get Next Extended", ""},
               {42, "Continuous Operation", ""},
               {45, "Find Percentage", "BFINDPERC"},
               {50, "Get Key", "BGETKEY"},
               {53, "Update Chunk", ""},
               {100, "", "BSWAIT"},
               {200, "", "BSNOWAIT"},
               {300, "", "BMWAIT"},
               {400, "", "BMNOWAIT"},
               {1019, "Begin Transaction", ""}};
  for (const auto& c : cases) {
    EXPECT_EQ(OperationName(c.code), c.name) << "code " << c.code;
    EXPECT_EQ(OperationSymbol(c.code), c.symbol) << "code " << c.code;
  }
  for (int32_t code : {std::numeric_limits<int32_t>::min(), -2, 41, 54, 105, 205, 1005, 1020,
                       std::numeric_limits<int32_t>::max()}) {
    EXPECT_EQ(OperationName(code), "") << "code " << code;
    EXPECT_EQ(OperationSymbol(code), "") << "code " << code;
  }
}

}  // namespace
}  // namespace tolmen
