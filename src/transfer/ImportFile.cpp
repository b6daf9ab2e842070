#include "transfer/ImportFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen {

ImportFile::~ImportFile() {
  Close();
}

bool ImportFile::Open(const std::string& path) {
  Close();
  fd_ = ::open(SystemPath(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  size_ = 0;
  return fd_ >= 0;
}

void ImportFile::Close() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
}

void ImportFile::Append(const std::string& line) {
  if (fd_ < 0) throw RuntimeError(52);  // "Bad file name or number"
  size_t written = 0;
  while (written < line.size()) {
    const ssize_t n = ::pwrite(fd_, line.data() + written, line.size() - written,
                               size_ + static_cast<off_t>(written));
    if (n > 0) {
      written += static_cast<size_t>(n);
      continue;
    }
    if (n < 0 && errno == EINTR) continue;
    const int error = n < 0 ? errno : ENOSPC;
    if (written > 0 && ::ftruncate(fd_, size_) != 0) {
      // The part of the line that went in stays where the file cannot be cut (a device); the
      // next line is written over it all the same, from the end of the last whole line.
    }
    const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
    throw RuntimeError(full ? 61 : 57);  // "Disk full", "Device I/O error"
  }
  size_ += static_cast<off_t>(written);
}

}  // namespace tolmen
