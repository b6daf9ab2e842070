#include "platform/recordmanager/PathNoCase.h"

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

#include "runtime/SystemPath.h"

namespace tolmen {
namespace {

bool EqualsNoCaseAscii(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 32);
    if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 32);
    if (x != y) return false;
  }
  return true;
}

bool Exists(const std::string& path) {
  struct stat st;
  return ::lstat(path.c_str(), &st) == 0;
}

// The entry of `folder` named `name` without regard to case; empty if none.
std::string MatchInFolder(const std::string& folder, const std::string& name) {
  std::unique_ptr<DIR, int (*)(DIR*)> dir(::opendir(folder.empty() ? "." : folder.c_str()),
                                          ::closedir);
  if (!dir) return {};
  std::string best;
  while (const dirent* e = ::readdir(dir.get())) {
    const std::string_view entry(e->d_name);
    if (EqualsNoCaseAscii(entry, name) && (best.empty() || entry < best)) best = entry;
  }
  return best;
}

std::string Join(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  if (folder.back() == '/') return folder + name;
  return folder + "/" + name;
}

}  // namespace

std::string PathFromKeyBuffer(std::string_view keyBuf) {
  std::string_view p = keyBuf.substr(0, keyBuf.find('\0'));
  auto trim = [&p] {
    while (!p.empty() && p.front() == ' ') p.remove_prefix(1);
    while (!p.empty() && p.back() == ' ') p.remove_suffix(1);
  };
  trim();
  if (p.size() >= 2 && p.front() == '"' && p.back() == '"') {
    p = p.substr(1, p.size() - 2);
    trim();
  }
  return SystemPath(std::string(p));
}

std::string FindPathNoCase(const std::string& path) {
  if (path.empty()) return {};
  if (Exists(path)) return path;
  std::string found = path.front() == '/' ? "/" : "";
  size_t at = 0;
  while (at < path.size()) {
    size_t end = path.find('/', at);
    if (end == std::string::npos) end = path.size();
    const std::string name = path.substr(at, end - at);
    at = end + 1;
    if (name.empty()) continue;
    std::string next = Join(found, name);
    if (!Exists(next)) {
      const std::string match = MatchInFolder(found, name);
      if (match.empty()) return {};
      next = Join(found, match);
    }
    found = next;
  }
  return found;
}

std::string CreationPathNoCase(const std::string& path, bool& exists) {
  exists = false;
  if (path.empty() || path.back() == '/') return {};
  const std::string existing = FindPathNoCase(path);
  if (!existing.empty()) {
    exists = true;
    return existing;
  }
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return path;
  const std::string folder = slash == 0 ? "/" : FindPathNoCase(path.substr(0, slash));
  if (folder.empty()) return {};
  return Join(folder, path.substr(slash + 1));
}

}  // namespace tolmen
