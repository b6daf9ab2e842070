#include "runtime/SystemPath.h"

#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"

namespace tolmen {

namespace {
constexpr int kBadFileName = 52;
}  // namespace

std::string SystemPath(const std::string& path) {
  return Cp1252ToUtf8(path);
}

bool FitsCp1252(const std::string& utf8) {
  return Cp1252ToUtf8(Utf8ToCp1252(utf8)) == utf8;
}

std::string PathFromSystem(const std::string& utf8) {
  const std::string path = Utf8ToCp1252(utf8);
  if (!FitsCp1252(utf8)) {
    throw RuntimeError(kBadFileName, "The path " + path +
                                         " holds a character outside Windows-1252 and cannot "
                                         "be used");
  }
  return path;
}

}  // namespace tolmen
