// `maxsim init` and `maxsim dump`: a description goes in, the same description comes out, and a
// faulty one is refused whole.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <nlohmann/json.hpp>

#include "common/MaxsimProcess.h"

namespace tolmen::test {
namespace {

nlohmann::json Dump(const std::string& database) {
  const RunResult dump = RunMaxsim({"dump", database});
  EXPECT_EQ(dump.status, 0);
  return nlohmann::json::parse(dump.out);
}

TEST(DescriptionTest, InitThenDumpGivesTheDescriptionBack) {
  TempDir dir;
  ASSERT_EQ(RunMaxsim({"init", dir.File("a"), "--from", SampleDescription()}).status, 0);
  const nlohmann::json first = Dump(dir.File("a"));

  // The dump adds each client's last change and nothing else.
  nlohmann::json withoutStamps = first;
  for (auto& client : withoutStamps["clients"]) {
    EXPECT_TRUE(client.contains("last_change"));
    client.erase("last_change");
  }
  std::ifstream in(SampleDescription());
  EXPECT_EQ(withoutStamps, nlohmann::json::parse(in));

  // And a dump is itself a description that comes back unchanged, stamps included.
  std::ofstream(dir.File("first.json")) << first.dump(2);
  ASSERT_EQ(RunMaxsim({"init", dir.File("b"), "--from", dir.File("first.json")}).status, 0);
  EXPECT_EQ(Dump(dir.File("b")), first);

  // A folder that holds an address book is not overwritten.
  EXPECT_EQ(RunMaxsim({"init", dir.File("a"), "--from", SampleDescription()}).status, 1);
}

TEST(DescriptionTest, FaultyDescriptionsAreRefusedAndLeaveNothing) {
  const char* faulty[] = {
      R"({"clients": [{"Identification": "A", "RecType": 1, "Colour": "red"}]})",
      R"({"clients": [{"RecType": 1, "Client_Name": "No id"}]})",
      R"({"udfs": [{"name": "D", "type": "Date"}],
          "clients": [{"Identification": "A", "RecType": 1, "udfs": {"D": "someday"}}]})",
      R"({"udfs": [{"name": "T", "type": "Table", "items": ["x"]}],
          "clients": [{"Identification": "A", "RecType": 1, "udfs": {"T": "y"}}]})",
      R"({"udfs": [{"name": "Q", "type": "Currency"}]})",
      // Two ids that agree in their first 24 characters make one key in the client file.
      R"({"clients": [{"Identification": "123456789012345678901234-A", "RecType": 1},
                      {"Identification": "123456789012345678901234-B", "RecType": 1}]})",
      R"({"clients": [{"Identification": "A", "RecType": 1, "addresses": [
          {"name": "Main", "id": 1, "main": true}, {"name": "Other", "id": 2, "main": true}]}]})",
      R"({"client_record_length": 1000, "clients": []})",
      R"({"clients": [ )",
  };
  TempDir dir;
  int n = 0;
  for (const char* text : faulty) {
    const std::string description = dir.File("d" + std::to_string(n) + ".json");
    const std::string database = dir.File("db" + std::to_string(n++));
    std::ofstream(description) << text;
    EXPECT_EQ(RunMaxsim({"init", database, "--from", description}).status, 1) << text;
    EXPECT_FALSE(std::filesystem::exists(database + "/maxsim.db")) << text;
    EXPECT_FALSE(std::filesystem::exists(database + "/MXZC.MAX")) << text;
  }
}

}  // namespace
}  // namespace tolmen::test
