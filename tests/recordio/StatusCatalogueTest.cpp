#include "recordio/StatusCatalogue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace tolmen {
namespace {

// Each family of statuses and each range of help pages, at both of its ends.
TEST(StatusCatalogue, TextsAndHelpPagesEndAtTheirBounds) {
  const struct {
    int16_t status;
    const char* text;
    const char* page;
  } cases[] = {
      {-32768, "Unknown Pervasive Status Code -32768", "index.htm"},
      {-5041, "Unknown Pervasive Status Code -5041", "index.htm"},
      {-5040, "SQL Relational Database Engine Status Code -5040", "1statcod2.html"},
      {-1000, "SQL Relational Database Engine Status Code -1000", "1statcod2.html"},
      {-999, "Unknown Pervasive Status Code -999", "index.htm"},
      {-200, "Unknown Pervasive Status Code -200", "index.htm"},
      {-199, "Informative Status Code -199", "1statcod3.html"},
      {-100, "Informative Status Code -100", "1statcod3.html"},
      {-99, "Unknown Pervasive Status Code -99", "index.htm"},
      {-1, "Unknown Pervasive Status Code -1", "index.htm"},
      {0, "Operation Successful", "1statcod4.html"},
      {1, "Invalid Operation Parameter", "1statcod5.html"},
      {47, "MicroKernel Database Engine Status Code 47", "1statcod5.html"},
      {199, "MicroKernel Database Engine Status Code 199", "1statcod5.html"},
      {200, "Unknown Pervasive Status Code 200", "index.htm"},
      {999, "Unknown Pervasive Status Code 999", "index.htm"},
      {1000, "MicroKernel Status Code 1000 for Windows and DOS Workstations ", "1statcod6.html"},
      {1999, "MicroKernel Status Code 1999 for Windows and DOS Workstations ", "1statcod6.html"},
      {2000, "Btrieve Requester Status Code 2000", "1statcod7.html"},
      {2099, "Btrieve Requester Status Code 2099", "1statcod7.html"},
      {2100, "Unknown Pervasive Status Code 2100", "index.htm"},
      {2199, "Unknown Pervasive Status Code 2199", "index.htm"},
      {2200, "XLT Status Code 2200", "1statcod8.html"},
      {2299, "XLT Status Code 2299", "1statcod8.html"},
      {2300, "Named Database Status Code 2300", "1statcod9.html"},
      {2399, "Named Database Status Code 2399", "1statcod9.html"},
      {2400, "Unknown Pervasive Status Code 2400", "index.htm"},
      {2500, "Unknown Pervasive Status Code 2500", "index.htm"},
      {2999, "Unknown Pervasive Status Code 2999", "index.htm"},
      {3000, "MicroKernel Router Status Code 3000", "1statcod10.html"},
      {3006, "MicroKernel Router detected an invalid session", "1statcod10.html"},
      {3099, "MicroKernel Router Status Code 3099", "1statcod10.html"},
      {3100, "Network Services Layer Status Code 3100", "1statcod11.html"},
      {3199, "Network Services Layer Status Code 3199", "1statcod11.html"},
      {3200, "Unknown Pervasive Status Code 3200", "index.htm"},
      {3999, "Unknown Pervasive Status Code 3999", "index.htm"},
      {4000, "Database Utilities Status Code 4000", "1statcod12.html"},
      {4099, "Database Utilities Status Code 4099", "1statcod12.html"},
      {4100, "Unknown Pervasive Status Code 4100", "index.htm"},
      {6999, "Unknown Pervasive Status Code 6999", "index.htm"},
      {7000, "User Count Manager Status Code 7000", "1statcod13.html"},
      {7099, "User Count Manager Status Code 7099", "1statcod13.html"},
      {7100, "Unknown Pervasive Status Code 7100", "index.htm"},
      {7999, "Unknown Pervasive Status Code 7999", "index.htm"},
      {8000, "Component Management Status Code 8000", "1statcod14.html"},
      {8499, "Component Management Status Code 8499", "1statcod14.html"},
      {8500, "ECAS Interface Status Code 8500", "1statcod15.html"},
      {8589, "ECAS Interface Status Code 8589", "1statcod15.html"},
      {8590, "W3DBSMGR Status Code 8590", "1statcod16.html"},
      {8599, "W3DBSMGR Status Code 8599", "1statcod16.html"},
      {8600, "Unknown Pervasive Status Code 8600", "index.htm"},
      {9999, "Unknown Pervasive Status Code 9999", "index.htm"},
      {10000, "SQL Connection Manager Code 10000", "1statcod17.html"},
      {10065, "SQL Connection Manager Code 10065", "1statcod17.html"},
      {10066, "Unknown Pervasive Status Code 10066", "1statcod17.html"},
      {10100, "Unknown Pervasive Status Code 10100", "1statcod17.html"},
      {10101, "Unknown Pervasive Status Code 10101", "index.htm"},
      {32767, "Unknown Pervasive Status Code 32767", "index.htm"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(StatusText(c.status), c.text);
    EXPECT_EQ(StatusHelpPage(c.status), std::string(StatusHelpBase) + c.page) << c.status;
  }
  EXPECT_EQ(StatusHelpPage(5),
            "https://www.pervasive.com/support/technical/codes2k/1statcod5.html");
}

TEST(StatusCatalogue, ListedStatusesKeepTheirOwnWording) {
  const struct {
    int16_t status;
    const char* text;
  } cases[] = {
      {7, "key Number Has Changed"},
      {12, "File Not Found or there are spaces in the Path"},
      {22, "Data Buffer Length is too short"},
      {41, "Operation Dissallowed"},
      {46, "Access To File is Denied"},
      {84, "The record or page is locked"},
      {88, "Incompatible Mode Error (SEFS/MEFS)"},
      {162,
       "The client table is full. Try increasing the number of Active Clients in the "
       "MicroKernel Database Engine System Resource setting"},
      {163, "The NULL indicator cannot be the last segment"},
  };
  for (const auto& c : cases) EXPECT_EQ(StatusText(c.status), c.text);

  // A family text always carries the status's number and no own text does, so counting the texts
  // without their number finds every row: 0, the 126 listed statuses and 3006.
  int own = 0;
  for (int s = std::numeric_limits<int16_t>::min(); s <= std::numeric_limits<int16_t>::max(); ++s) {
    if (StatusText(static_cast<int16_t>(s)).find(std::to_string(s)) == std::string::npos) ++own;
  }
  EXPECT_EQ(own, 128);
}

struct OperationCase {
  int32_t code;
  const char* name;
  const char* symbol;
};

TEST(StatusCatalogue, OperationNamesAndSymbols) {
  const OperationCase cases[] = {
      {std::numeric_limits<int32_t>::min(), "", ""},
      {-2, "", ""},
      {-1, "", "BOPENACCEL"},
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
      {41, "", ""},
      {42, "Continuous Operation", ""},
      {45, "Find Percentage", "BFINDPERC"},
      {50, "Get Key", "BGETKEY"},
      {53, "Update Chunk", ""},
      {54, "", ""},
      {100, "", "BSWAIT"},
      {105, "", ""},
      {200, "", "BSNOWAIT"},
      {205, "", ""},
      {300, "", "BMWAIT"},
      {400, "", "BMNOWAIT"},
      {1005, "", ""},
      {1019, "Begin Transaction", ""},
      {1020, "", ""},
      {std::numeric_limits<int32_t>::max(), "", ""},
  };
  for (const OperationCase& c : cases) {
    EXPECT_EQ(OperationName(c.code), c.name) << "code " << c.code;
    EXPECT_EQ(OperationSymbol(c.code), c.symbol) << "code " << c.code;
  }
}

}  // namespace
}  // namespace tolmen
