#include "runtime/ReplaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tolmen {

int ReplaceFile(const std::string& path, std::string_view bytes, mode_t mode) {
  if (mode == kModeDefault) {
    struct stat st;
    if (::stat(path.c_str(), &st) == 0) {
      mode = st.st_mode & 07777;
    } else {
      const mode_t mask = ::umask(0);
      ::umask(mask);
      mode = 0666 & ~mask;
    }
  }
  std::string temporary = path + ".XXXXXX";
  const int fd = ::mkstemp(temporary.data());
  if (fd < 0) return errno;
  int failure = ::fchmod(fd, mode) == 0 ? 0 : errno;
  while (failure == 0 && !bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno != EINTR) failure = errno;
    } else {
      bytes.remove_prefix(static_cast<size_t>(written));
    }
  }
  if (failure == 0 && ::fsync(fd) != 0) failure = errno;
  if (::close(fd) != 0 && failure == 0) failure = errno;
  if (failure == 0 && ::rename(temporary.c_str(), path.c_str()) != 0) failure = errno;
  if (failure != 0) ::unlink(temporary.c_str());
  return failure;
}

bool DiskFullErrno(int error) {
  return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

}  // namespace tolmen
