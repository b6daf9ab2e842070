// A temporary folder for one test, removed with everything in it when the test ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace tolmen::test {

class TempDir {
 public:
  explicit TempDir(const std::string& prefix = "tolmen-test-") {
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() /
            (prefix + std::to_string(::getpid()) + "-" + std::to_string(random()));
    std::filesystem::create_directories(path_);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  ~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string File(const std::string& name) const { return (path_ / name).string(); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace tolmen::test
