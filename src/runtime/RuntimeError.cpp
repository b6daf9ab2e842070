#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolmen {
namespace {

struct ErrorEntry {
  int number;
  const char* text;
};

// The classic runtime's error texts, sorted by number.
constexpr std::array<ErrorEntry, 96> kErrors = {{
    {3, "Return without GoSub"},
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {14, "Out of string space"},
    {16, "Expression too complex"},
    {17, "Can't perform requested operation"},
    {18, "User interrupt occurred"},
    {20, "Resume without error"},
    {28, "Out of stack space"},
    {35, "Sub or Function not defined"},
    {47, "Too many DLL application clients"},
    {48, "Error in loading DLL"},
    {49, "Bad DLL calling convention"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {54, "Bad file mode"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {59, "Bad record length"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {63, "Bad record number"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {74, "Can't rename with different drive"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {92, "For loop not initialized"},
    {93, "Invalid pattern string"},
    {94, "Invalid use of Null"},
    {97, "Can not call friend function on object which is not an instance of defining class"},
    {98,
     "A property or method call cannot include a reference to a private object, either as an "
     "argument or as a return value"},
    {298, "System DLL could not be loaded"},
    {320, "Can't use character device names in specified file names"},
    {321, "Invalid file format"},
    {322, "Can't create necessary temporary file"},
    {325, "Invalid format in resource file"},
    {327, "Data value named not found"},
    {328, "Illegal parameter; can't write arrays"},
    {335, "Could not access system registry"},
    {336, "Component not correctly registered"},
    {337, "Component not found"},
    {338, "Component did not run correctly"},
    {360, "Object already loaded"},
    {361, "Can't load or unload this object"},
    {363, "Control specified not found"},
    {364, "Object was unloaded"},
    {365, "Unable to unload within this context"},
    {368, "The specified file is out of date. This program requires a later version"},
    {371, "The specified object can't be used as an owner form for Show"},
    {380, "Invalid property value"},
    {381, "Invalid property-array index"},
    {382, "Property Set can't be executed at run time"},
    {383, "Property Set can't be used with a read-only property"},
    {385, "Need property-array index"},
    {387, "Property Set not permitted"},
    {393, "Property Get can't be executed at run time"},
    {394, "Property Get can't be executed on write-only property"},
    {400, "Form already displayed; can't show modally"},
    {402, "Code must close topmost modal form first"},
    {419, "Permission to use object denied"},
    {422, "Property not found"},
    {423, "Property or method not found"},
    {424, "Object required"},
    {425, "Invalid object use"},
    {429, "ActiveX component can't create object"},
    {430, "Class does not support Automation or does not support expected interface"},
    {432, "File name or class name not found during Automation operation"},
    {438, "Object doesn't support this property or method"},
    {440, "Automation error"},
    {443, "Automation object does not have a default value"},
    {445, "Object doesn't support this action"},
    {446, "Object doesn't support named arguments"},
    {447, "Object doesn't support current locale setting"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Property let procedure not defined and property get procedure did not return an object"},
    {452, "Invalid ordinal"},
    {453, "Specified DLL function not found"},
    {457, "This key is already associated with an element of this collection"},
    {461, "Method or data member not found"},
    {462, "The remote server machine does not exist or is unavailable"},
    {463, "Class not registered on local machine"},
    {481, "Invalid picture"},
    {482, "Printer error"},
}};

static_assert(std::is_sorted(kErrors.begin(), kErrors.end(),
                             [](const ErrorEntry& a, const ErrorEntry& b) {
                               return a.number < b.number;
                             }),
              "the error table is searched by bisection");

}  // namespace

std::string ErrorText(int number) {
  auto it = std::lower_bound(kErrors.begin(), kErrors.end(), number,
                             [](const ErrorEntry& e, int n) { return e.number < n; });
  if (it != kErrors.end() && it->number == number) return it->text;
  return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, ErrorText(number)) {}

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number), description_(description) {}

}  // namespace tolmen
