#include "recordio/StatusCatalogue.h"

#include <algorithm>
#include <string_view>

namespace tolmen {
namespace {

struct CodeText {
  int32_t code;
  std::string_view text;
};

struct RangeText {
  int32_t low;  // both ends belong to the range
  int32_t high;
  std::string_view text;
};

// Looks a code up in a table sorted by code; empty when the code has no row.
template <std::size_t N>
std::string_view Find(const CodeText (&table)[N], int32_t code) {
  const auto* row = std::lower_bound(std::begin(table), std::end(table), code,
                                     [](const CodeText& r, int32_t c) { return r.code < c; });
  return row != std::end(table) && row->code == code ? row->text : std::string_view();
}

// The row of the range holding the value, or nullptr.
template <std::size_t N>
const RangeText* FindRange(const RangeText (&table)[N], int32_t value) {
  for (const RangeText& r : table) {
    if (value >= r.low && value <= r.high) return &r;
  }
  return nullptr;
}

template <std::size_t N>
constexpr bool SortedByCode(const CodeText (&table)[N]) {
  return std::is_sorted(std::begin(table), std::end(table),
                        [](const CodeText& a, const CodeText& b) { return a.code < b.code; });
}

// Statuses with words of their own, the wording as the users have always seen it.
constexpr CodeText kStatusTexts[] = {
    {0, "Operation Successful"},
    {1, "Invalid Operation Parameter"},
    {2, "I/O Error"},
    {3, "File Not Open"},
    {4, "Cannot Find Key Value"},
    {5, "Duplicate Key Value"},
    {6, "Invalid Key Number"},
    {7, "key Number Has Changed"},
    {8, "Invalid Current Position"},
    {9, "End of File Encountered"},
    {10, "Key Field Not Modifiable"},
    {11, "Invalid Filename"},
    {12, "File Not Found or there are spaces in the Path"},
    {13, "Extended File Error"},
    {14, "Pre-image Open Error"},
    {15, "Damaged Pre-image / Disk Full"},
    {16, "Expansion Error"},
    {17, "Close Error"},
    {18, "Disk Full"},
    {19, "Unrecoverable Error, Possible Damaged File"},
    {20, "Record Manager Inactive"},
    {21, "Key Buffer Too Short"},
    {22, "Data Buffer Length is too short"},
    {23, "Position block parameter is not 128 bytes long"},
    {24, "Invalid Page/Data Buffer Size"},
    {25, "Create I/O Error"},
    {26, "The number of keys specified is invalid"},
    {27, "The key position is invalid"},
    {28, "The record length is invalid"},
    {29, "The key length is invalid"},
    {30, "Not A Btrieve File"},
    {31, "The file is already extended"},
    {32, "The file cannot be extended"},
    {33, "The MicroKernel cannot unload"},
    {34, "The specified extension name is invalid"},
    {35, "Directory Error"},
    {36, "Transaction Error"},
    {37, "Another transaction is active"},
    {38, "Transaction Control File I/O Error"},
    {39, "End/Abort Transaction Error"},
    {40, "Maximum Files Within Transaction Exceeded"},
    {41, "Operation Dissallowed"},
    {42, "Incomplete Accelerated Access"},
    {43, "Invalid Record Address"},
    {44, "Invalid Key Path"},
    {45, "Invalid Key Flags"},
    {46, "Access To File is Denied"},
    {50, "File Owner Already Set"},
    {51, "Invalid Owner Name"},
    {52, "Error Writing Cache"},
    {53, "Invalid Interface"},
    {54, "Corrupt Variable-Length Portion"},
    {55, "Invalid Attribute for an AutoIncrement Key"},
    {56, "Incomplete Index"},
    {57, "Expanded Memory Error"},
    {58, "Compression Buffer Too Short"},
    {59, "File Already Exists"},
    {60, "Reject Count Reached"},
    {61, "Work Space Too Small"},
    {62, "The descriptor is incorrect"},
    {63, "The data buffer parameter specified on an Insert Extended operation is invalid"},
    {64, "The filter limit has been reached"},
    {65, "The field offset is incorrect"},
    {66, "Too Many Databases Open"},
    {67, "The MicroKernel cannot open the SQL data dictionary files"},
    {68, "RI Delete Cascade Error"},
    {69, "RI Delete - File is Damaged"},
    {71, "RI Definition Violation"},
    {72, "Cannot Open RI-reference File"},
    {73, "RI Out of Sync"},
    {74, "Automatic Transaction Abort"},
    {76, "There is a conflict on the referenced file"},
    {77, "Wait Error"},
    {78, "Deadlock Detected"},
    {79, "A programming error occurred"},
    {80, "The MicroKernel encountered a record-level conflict"},
    {81, "The MicroKernel encountered a lock error"},
    {82, "The MicroKernel lost positioning"},
    {83,
     "The MicroKernel attempted to update or delete a record that was read outside the "
     "transaction"},
    {84, "The record or page is locked"},
    {85, "File Locked"},
    {86, "File Table Full"},
    {87, "Handle Table Full"},
    {88, "Incompatible Mode Error (SEFS/MEFS)"},
    {89, "A name error occurred"},
    {90, "Redirected Device Table Full"},
    {91, "Server Error"},
    {92, "Transaction Table Full"},
    {93, "The record lock types are incompatible"},
    {94, "Permission Error"},
    {95, "Session No Longer Valid"},
    {96, "Communications Environment Error"},
    {97, "Data Message Too Small"},
    {98, "Internal Transaction Error"},
    {99, "The Btrieve Requester is unable to access the NetWare Runtime server"},
    {100, "No cache buffers are available"},
    {101, "Insufficient operating system memory is available"},
    {102, "Insufficient stack space is available"},
    {103, "The chunk offset is too big"},
    {104, "The MicroKernel does not recognize the locale"},
    {105, "The file cannot be created with Variable-tail Allocation Tables (VATs)"},
    {106, "The MicroKernel cannot perform a Get Next Chunk operation"},
    {107, "The application attempted to perform a chunk operation on a pre-v6.0 file"},
    {109, "An unknown error was encountered either creating or accessing a semaphore"},
    {110, "The MicroKernel cannot access the archival logging configuration file"},
    {111, "The specified filename was not found in the archival logging configuration file"},
    {112, "The specified file is in use by another client"},
    {113, "The MicroKernel cannot find the archival log for the specified file"},
    {114, "The archival log for the specified file is invalid"},
    {115, "The MicroKernel cannot access the archival logging dump file"},
    {116, "The file is owned by another Microkernel engine acting as a Gateway"},
    {130, "The MicroKernel ran out of system locks"},
    {132, "The file has reached its size limit"},
    {133, "More than 5 concurrent users attempted to access the same data file"},
    {134, "The MicroKernel cannot read the International Sorting Rule"},
    {135, "The specified ISR table is corrupt or otherwise invalid"},
    {136, "The MicroKernel cannot find the specified Alternate Collating Sequence in the file"},
    {138, "The NULL indicator position is invalid"},
    {139, "The MicroKernel has detected an unacceptable value in the key number"},
    {140, "The savepoint ID is invalid"},
    {143,
     "The MicroKernel cannot allow unauthorized access to files in a secure MicroKernel database"},
    {146, "Duplicate system key"},
    {147, "The log segment is missing"},
    {148, "A roll forward error occurred"},
    {149, "SQL Trigger"},
    {162,
     "The client table is full. Try increasing the number of Active Clients in the MicroKernel "
     "Database Engine System Resource setting"},
    {163, "The NULL indicator cannot be the last segment"},
    {3006, "MicroKernel Router detected an invalid session"},
};
static_assert(SortedByCode(kStatusTexts));

// Any other status: the family word in front of the number.
constexpr RangeText kStatusFamilies[] = {
    {-5040, -1000, "SQL Relational Database Engine Status Code "},
    {-199, -100, "Informative Status Code "},
    {1, 199, "MicroKernel Database Engine Status Code "},
    {1000, 1999, "MicroKernel Status Code "},
    {2000, 2099, "Btrieve Requester Status Code "},
    {2200, 2299, "XLT Status Code "},
    {2300, 2399, "Named Database Status Code "},
    {3000, 3099, "MicroKernel Router Status Code "},
    {3100, 3199, "Network Services Layer Status Code "},
    {4000, 4099, "Database Utilities Status Code "},
    {7000, 7099, "User Count Manager Status Code "},
    {8000, 8499, "Component Management Status Code "},
    {8500, 8589, "ECAS Interface Status Code "},
    {8590, 8599, "W3DBSMGR Status Code "},
    {10000, 10065, "SQL Connection Manager Code "},
};
constexpr std::string_view kUnknownFamily = "Unknown Pervasive Status Code ";
// The 1000-1999 family carries words behind the number as well.
constexpr int32_t kWorkstationLow = 1000;
constexpr int32_t kWorkstationHigh = 1999;
constexpr std::string_view kWorkstationTail = " for Windows and DOS Workstations ";

// The maker's page for each range of statuses.
constexpr RangeText kHelpPages[] = {
    {-5040, -1000, "1statcod2.html"}, {-199, -100, "1statcod3.html"},
    {0, 0, "1statcod4.html"},         {1, 199, "1statcod5.html"},
    {1000, 1999, "1statcod6.html"},   {2000, 2099, "1statcod7.html"},
    {2200, 2299, "1statcod8.html"},   {2300, 2399, "1statcod9.html"},
    {3000, 3099, "1statcod10.html"},  {3100, 3199, "1statcod11.html"},
    {4000, 4099, "1statcod12.html"},  {7000, 7099, "1statcod13.html"},
    {8000, 8499, "1statcod14.html"},  {8500, 8589, "1statcod15.html"},
    {8590, 8599, "1statcod16.html"},  {10000, 10100, "1statcod17.html"},
};
constexpr std::string_view kHelpIndexPage = "index.htm";

// Names shown to users. The table ends at 1019, so no code from 1020 up has a name.
constexpr CodeText kOperationNames[] = {
    {0, "Open"},
    {1, "Close"},
    {2, "Insert"},
    {3, "Update"},
    {4, "Delete"},
    {5, "Get Equal"},
    {6, "Get Next"},
    {7, "Get Previous"},
    {8, "Get Greater"},
    {9, "Get Greater Than or Equal"},
    {10, "Get Less Than"},
    {11, "Get Less Than or Equal"},
    {12, "Get First"},
    {13, "Get Last"},
    {14, "Create"},
    {15, "Stat"},
    {17, "Set Directory"},
    {18, "Get Directory"},
    {19, "Begin Transaction"},
    {20, "End Transaction"},
    {21, "Abort Transaction"},
    {22, "Get Position"},
    {23, "Get Direct Record"},
    {24, "Step Next"},
    {25, "Stop"},
    {26, "Version"},
    {27, "Unlock"},
    {28, "Reset"},
    {29, "Set Owner"},
    {30, "Clear Owner"},
    {31, "Create Index"},
    {32, "Drop Index"},
    {33, "Step First"},
    {34, "Step Last"},
    {35, "Step Previous"},
    {36, "Get Next Extended"},
    {37, "Get Previous Extended"},
    {38, "Step Next Extended"},
    {39, "Step Previous Extended"},
    {40, "Insert Extended"},
    {42, "Continuous Operation"},
    {44, "Get By Percentage"},
    {45, "Find Percentage"},
    {50, "Get Key"},
    {53, "Update Chunk"},
    {1019, "Begin Transaction"},  // Begin Concurrent Transaction
};
static_assert(SortedByCode(kOperationNames));

// The constants of the record manager's header.
constexpr CodeText kOperationSymbols[] = {
    {-1, "BOPENACCEL"}, {0, "BOPEN"},     {1, "BCLOSE"},     {2, "BINSERT"},    {3, "BUPDATE"},
    {4, "BDELETE"},     {5, "BGETEQU"},   {6, "BGETNXT"},    {7, "BGETPRV"},    {8, "BGETGT"},
    {9, "BGETGTE"},     {10, "BGETLESS"}, {11, "BGETLTE"},   {12, "BGETFIRST"}, {13, "BGETLAST"},
    {14, "BCREATE"},    {15, "BSTAT"},    {16, "BEXTEND"},   {17, "BSETDIR"},   {18, "BGETDIR"},
    {19, "BTRBEG"},     {20, "BTREND"},   {21, "BABORT"},    {22, "BGETPOS"},   {23, "BGETDIRECT"},
    {24, "BSTEPN"},     {25, "BSTOP"},    {26, "BVERSION"},  {27, "BUNLOCK"},   {28, "BRESET"},
    {29, "BSETOWNR"},   {30, "BCLROWNR"}, {31, "BCSUPP"},    {32, "BDSUPP"},    {33, "BSTEPF"},
    {34, "BSTEPL"},     {35, "BSTEPP"},   {45, "BFINDPERC"}, {50, "BGETKEY"},   {100, "BSWAIT"},
    {200, "BSNOWAIT"},  {300, "BMWAIT"},  {400, "BMNOWAIT"},
};
static_assert(SortedByCode(kOperationSymbols));

}  // namespace

std::string StatusText(int16_t status) {
  const std::string_view own = Find(kStatusTexts, status);
  if (!own.empty()) return std::string(own);

  const RangeText* family = FindRange(kStatusFamilies, status);
  std::string text(family ? family->text : kUnknownFamily);
  text += std::to_string(status);
  if (status >= kWorkstationLow && status <= kWorkstationHigh) text += kWorkstationTail;
  return text;
}

std::string StatusHelpPage(int16_t status) {
  const RangeText* range = FindRange(kHelpPages, status);
  std::string address(StatusHelpBase);
  address += range ? range->text : kHelpIndexPage;
  return address;
}

std::string OperationName(int32_t code) {
  return std::string(Find(kOperationNames, code));
}

std::string OperationSymbol(int32_t code) {
  return std::string(Find(kOperationSymbols, code));
}

}  // namespace tolmen
