// One import file of a run, written a whole line at a time. A line that cannot be written whole
// (a full disk, a size limit) is taken back out of the file, so that the file holds only whole
// lines and a retry after the user has made room writes the line once.
#pragma once

#include <sys/types.h>

#include <string>

namespace tolmen {

class ImportFile {
 public:
  ImportFile() = default;
  ImportFile(const ImportFile&) = delete;
  ImportFile& operator=(const ImportFile&) = delete;
  ~ImportFile();

  // Creates the file, or empties an old one; false when it cannot be opened for writing.
  bool Open(const std::string& path);
  bool IsOpen() const { return fd_ >= 0; }
  void Close();

  // Appends `line` whole. Throws RuntimeError 52 when no file is open, 61 "Disk full" when the
  // disk or the file's size limit has no room, 57 for another failure; the file is then as it
  // was before the call.
  void Append(const std::string& line);

 private:
  int fd_ = -1;
  off_t size_ = 0;  // the bytes of the whole lines written so far
};

}  // namespace tolmen
