#include "FuzzSupport.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tolmen::fuzz {

std::string Bytes(const uint8_t* data, size_t size) {
  return size ? std::string(reinterpret_cast<const char*>(data), size) : std::string();
}

namespace {

// The folder and everything in it go when the process ends normally.
struct Scratch {
  Scratch() {
    std::string name = (std::filesystem::temp_directory_path() / "tolmen-fuzz-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a scratch folder");
    path = name + "/";
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  std::string path;
};

}  // namespace

const std::string& ScratchFolder() {
  static const Scratch scratch;
  return scratch.path;
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out) throw std::runtime_error("cannot write " + path);
}

int FuzzUi::MsgBox(const std::string&, int style, const std::string&) {
  const bool yes = boxes_++ % 2 == 0;
  switch (style & 7) {
    case vbAbortRetryIgnore:
      return vbIgnore;
    case vbYesNoCancel:
    case vbYesNo:
      return yes ? vbYes : vbNo;
    case vbRetryCancel:
      return vbCancel;
    default:
      return vbOK;
  }
}

}  // namespace tolmen::fuzz
