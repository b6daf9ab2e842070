// Where a help page lies on disk.
#include "platform/ui/HelpPage.h"

#include <filesystem>
#include <system_error>

namespace tolmen {

namespace fs = std::filesystem;

std::string HelpFolderFor(const std::string& executablePath) {
  fs::path bin = fs::path(executablePath).parent_path();
  return (bin.parent_path() / "share" / "tolmen" / "help").string() + "/";
}

std::string FindHelpPage(const std::string& page) {
  std::error_code ec;
  fs::path self = fs::read_symlink("/proc/self/exe", ec);
  if (ec) return "";
  std::string relative = page;
  size_t start = relative.find_first_not_of(":/");
  relative = start == std::string::npos ? "" : relative.substr(start);
  if (relative.empty()) relative = "html/index.htm";
  fs::path file = fs::path(HelpFolderFor(self.string())) / relative;
  return fs::is_regular_file(file, ec) ? file.lexically_normal().string() : "";
}

}  // namespace tolmen
