// Every seed and regression input of every fuzz target (tests/fuzz/<target>/), run through the
// target's entry function as libFuzzer runs it, here without libFuzzer: a reader that crashes,
// throws what it does not promise or breaks a checked promise fails the test, naming the file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "Targets.h"

namespace tolmen::fuzz {
namespace {

namespace fs = std::filesystem;

class FuzzReplay : public ::testing::TestWithParam<FuzzTarget> {};

TEST_P(FuzzReplay, EveryCorpusFilePasses) {
  const fs::path folder = fs::path(TOLMEN_SOURCE_DIR) / "tests/fuzz" / GetParam().name;
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  ASSERT_FALSE(files.empty()) << folder << " holds no seeds";
  for (const fs::path& file : files) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    try {
      EXPECT_EQ(GetParam().entry(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()), 0)
          << file;
    } catch (const std::exception& error) {
      ADD_FAILURE() << file << ": " << error.what();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay, ::testing::ValuesIn(kFuzzTargets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
}  // namespace tolmen::fuzz
