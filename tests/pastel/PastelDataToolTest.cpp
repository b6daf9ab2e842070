// The pasteldata program: a set made from the sample, dumped, and made again from the dump gives
// the same bytes; descriptions it cannot use are refused with exit status 1.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <cstdio>

#include "PastelTestSet.h"

namespace tolmen {
namespace {

using testing::PastelSetTest;
namespace fs = std::filesystem;
using json = nlohmann::json;

class PastelDataToolTest : public PastelSetTest {
 protected:
  // Runs the program through the shell with its output captured; the exit status in `status`.
  std::string Run(const std::string& arguments, int& status) {
    const std::string command = std::string(TOLMEN_BIN_DIR) + "/pasteldata " + arguments;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::string out;
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
    status = WEXITSTATUS(::pclose(pipe));
    return out;
  }
  std::string Quote(const fs::path& path) { return "'" + path.string() + "'"; }
};

TEST_F(PastelDataToolTest, DumpOfASetRebuildsTheSameBytes) {
  // A debtor with bytes no field reproduces: a raw gap and a date that rolls over.
  Files()["AccMasD.dat"].push_back(json::parse(
      R"({"2": "ODD001", "3": "Caf\u00e9 \"Noir\"", "@1092": "\u0000\u000d\u00d5\u0007"})"));
  std::ofstream(root_ / "demo.json") << set_.dump();
  int status = -1;
  Run("create " + Quote(root_ / "one") + " < " + Quote(root_ / "demo.json"), status);
  ASSERT_EQ(status, 0);

  const std::vector<std::string> names = {"AccMasD.dat",  "accprmgl.dat", "accprmdc.dat",
                                          "Accprmtx.dat", "AccPrmsy.dat", "accdcat.dat"};
  json rebuilt = {{"files", json::object()}};
  for (const std::string& name : names) {
    const json dump = json::parse(Run("dump " + Quote(root_ / "one") + " " + name, status));
    ASSERT_EQ(status, 0) << name;
    rebuilt["files"][name] = dump["files"][name];
  }
  const json& debtors = rebuilt["files"]["AccMasD.dat"];
  ASSERT_EQ(debtors.size(), 5u);
  EXPECT_EQ(debtors[4]["3"], json::parse(R"("Caf\u00e9 \"Noir\"")"));
  EXPECT_EQ(debtors[0]["75"], 5000);
  EXPECT_EQ(debtors[0]["127"], "2024-05-02");
  // Day 0 of month 13 reads as 31 December 2005; the two bytes that do not come back go raw.
  EXPECT_EQ(debtors[4]["127"], "2005-12-31");
  EXPECT_EQ(debtors[4]["@1092"], json::parse(R"("\u0000\u000d")"));

  std::ofstream(root_ / "dump.json") << rebuilt.dump();
  Run("create " + Quote(root_ / "two") + " < " + Quote(root_ / "dump.json"), status);
  ASSERT_EQ(status, 0);
  // The records themselves, read past the program: the same bytes make the same dump.
  Start({});
  for (const std::string& name : names) {
    const std::vector<std::string> one = Records((root_ / "one" / name).string());
    EXPECT_FALSE(one.empty()) << name;
    EXPECT_EQ(one, Records((root_ / "two" / name).string())) << name;
  }
}

TEST_F(PastelDataToolTest, RefusesWhatItCannotBuild) {
  const std::pair<std::string, std::string> cases[] = {
      {R"({"files": {"AccMasD.dat": [{"128": 1}]}})", "clsDebtor has no such field"},
      {R"({"files": {"AccMasD.dat": [{"1": 40000}]}})", "error 6"},
      {R"({"files": {"AccMasD.dat": [{"3": "\u20ac"}]}})", "above code point 255"},
      {R"({"files": {"AccMasD.dat": [{"@1095": "ab"}]}})", "beyond the record"},
      {R"({"files": {"Nothing.dat": []}})", "not a file of a Pastel set"},
      {R"({"files": {"accdcat.dat": [{"1": 1}, {"1": 1}]}})", "duplicate key"},
      {R"({"files": )", "cannot be read"},
  };
  for (const auto& [text, message] : cases) {
    std::ofstream(root_ / "bad.json") << text;
    int status = -1;
    const std::string said =
        Run("create " + Quote(root_ / "bad") + " < " + Quote(root_ / "bad.json") + " 2>&1", status);
    EXPECT_EQ(status, 1) << text;
    EXPECT_NE(said.find(message), std::string::npos) << text << ": " << said;
  }
  int status = -1;
  Run("create 2>/dev/null", status);
  EXPECT_EQ(status, 2);
}

}  // namespace
}  // namespace tolmen
