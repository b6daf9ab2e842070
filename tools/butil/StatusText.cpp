#include "StatusText.h"

namespace tolmen::butil {
namespace {

struct Entry {
  int16_t status;
  const char* text;
};

constexpr Entry kTexts[] = {
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
    {18, "Disk Full"},
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
    {37, "Another transaction is active"},
    {39, "End/Abort Transaction Error"},
    {43, "Invalid Record Address"},
    {45, "Invalid Key Flags"},
    {46, "Access To File is Denied"},
    {55, "Invalid Attribute for an AutoIncrement Key"},
    {59, "File Already Exists"},
    {85, "File Locked"},
};

}  // namespace

std::string DescribeStatus(int16_t status) {
  std::string text = "status " + std::to_string(status);
  for (const Entry& e : kTexts) {
    if (e.status == status) return text + " (" + e.text + ")";
  }
  return text;
}

}  // namespace tolmen::butil
