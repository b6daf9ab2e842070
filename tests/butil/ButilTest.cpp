// butil as a user runs it: description files, save files with awkward bytes, and the errors.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "common/TempDir.h"
#include "common/TestText.h"

namespace tolmen::test {
namespace {

void Write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

struct Result {
  int exit = -1;
  std::string out, err;
};

// Runs butil on a command line whose file names are in `dir`, its output caught in files there.
Result Butil(const TempDir& dir, const std::string& line) {
  std::string command = "'" + std::string(TOLMEN_BIN_DIR) + "/butil'";
  std::istringstream words(line);
  for (std::string w; words >> w;) command += " '" + (w[0] == '-' ? w : dir.File(w)) + "'";
  const std::string out = dir.File("stdout.txt"), err = dir.File("stderr.txt");
  const int status = std::system((command + " >'" + out + "' 2>'" + err + "'").c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out), ReadFile(err)};
}

std::string Saved(const std::vector<std::string>& records, char separator = ',') {
  std::string s;
  for (const std::string& r : records) s += std::to_string(r.size()) + separator + r + "\r\n";
  return s + '\x1A';
}

struct RoundTrip {
  const char* name;
  const char* description;
  std::vector<std::string> records;  // in key 0 order
};

const RoundTrip kRoundTrips[] = {
    {"FixedRecordsWithCrLfNulAndEof",
     "record=20 variable=n key=1 page=4096\n"
     "position=1 length=4 duplicates=n modifiable=n type=string segment=n\n",
     {std::string("AAA1\r\n\0\0\x1A", 9) + std::string(11, 'x'),
      std::string("AAA2") + "12,34\r\n\x1A\x1A" + std::string(7, '\0'),
      std::string("BBB1") + std::string(16, '\n'),
      std::string("\xE9\xE9\xE9\xE9") + std::string(15, '\r') + '\x1A'}},
    {"VariableRecordsWithDuplicatesInInsertionOrder",
     "record=8\tvariable=y\tkey=1\tpage=1024\n"
     "position=1 length=2 duplicates=y modifiable=y type=integer segment=n\n",
     {std::string("\xFF\xFF", 2) + "negative" + "\r\n",
      std::string("\x05\x00", 2) + std::string(300, '\x1A'),
      std::string("\x05\x00", 2) + "second five\r\nstill the same record",
      std::string("\x05\x00", 2) + std::string(6, '\0')}}};

class ButilRoundTrip : public ::testing::TestWithParam<RoundTrip> {};

TEST_P(ButilRoundTrip, LoadThenSaveGivesTheSameBytes) {
  const RoundTrip& c = GetParam();
  TempDir dir;
  Write(dir.File("file.des"), c.description);
  ASSERT_EQ(Butil(dir, "-create file.dat file.des").exit, 0);
  const std::string input = Saved(c.records);
  Write(dir.File("in.sav"), input);
  const Result load = Butil(dir, "-load in.sav file.dat");
  ASSERT_EQ(load.exit, 0) << load.err;
  EXPECT_EQ(load.out, std::to_string(c.records.size()) + " records loaded into " +
                          dir.File("file.dat") + ".\n");
  ASSERT_EQ(Butil(dir, "-save file.dat out.sav").exit, 0);
  EXPECT_EQ(ReadFile(dir.File("out.sav")), input);
}

INSTANTIATE_TEST_SUITE_P(Files, ButilRoundTrip, ::testing::ValuesIn(kRoundTrips),
                         [](const auto& p) { return std::string(p.param.name); });

TEST(ButilTest, CreateFromADescriptionThenStat) {
  TempDir dir;
  Write(dir.File("people.des"),
        "/* people: id, name, then a code in two segments */\n"
        "RECORD=32 Variable=N key=3 page=2048\n"
        "position=1 length=4 duplicates=n modifiable=y type=int segment=n\n"
        "position=5 length=8 duplicates=y modifiable=y type=string caseinsensitive=y "
        "alternate=n segment=n\n"
        "position=13 length=2 duplicates=n modifiable=n type=zstr descending=y segment=y\n"
        "position=15 length=2 duplicates=n modifiable=n type=unsigned segment=n\n");
  const Result create = Butil(dir, "-create people.dat people.des");
  ASSERT_EQ(create.exit, 0) << create.err;
  std::vector<std::string> people;
  int id = 0;
  for (const char* name : {"SMITH   ", "smith   ", "JONES   "}) {
    std::string r = std::string(1, static_cast<char>(++id)) + std::string(3, '\0') + name;
    r += std::string(1, static_cast<char>('a' + id)) + std::string(3, '\0');
    r.resize(32, '.');
    people.push_back(r);
  }
  Write(dir.File("people.sav"), Saved(people, ' '));  // a blank may stand for the comma
  ASSERT_EQ(Butil(dir, "-load people.sav people.dat").exit, 0);
  const Result stat = Butil(dir, "-stat people.dat");
  ASSERT_EQ(stat.exit, 0) << stat.err;
  for (const char* line :
       {"Record Length = 32\n", "Variable Records = No\n", "Page Size = 2048\n",
        "Number of Records = 3\n", "Number of Keys = 3\n",
        "  0       1        1      4  Integer         No         Yes        No         No      "
        "                    3\n",
        "  1       1        5      8  String          Yes        Yes        No         Yes     "
        "                    2\n",
        "  2       1       13      2  ZString         No         No         Yes        No      "
        "                    3\n",
        "          2       15      2  Unsigned Binary No         No         No         No      "
        "                     \n"}) {
    EXPECT_NE(stat.out.find(line), std::string::npos) << line << "in\n" << stat.out;
  }
}

TEST(ButilTest, ErrorsNameTheStatusAndExitNonZero) {
  TempDir dir;
  const std::string des =
      "record=10 variable=n key=1 page=4096 "
      "position=1 length=2 duplicates=n modifiable=n type=string segment=n";
  Write(dir.File("ok.des"), des);
  ASSERT_EQ(Butil(dir, "-create f.dat ok.des").exit, 0);
  Write(dir.File("dups.sav"), Saved({"AA12345678", "BB12345678", "AA00000000"}));
  Write(dir.File("cut.sav"), "10,AA12345678\r\n10,BB123");
  Write(dir.File("short.sav"), Saved({"AA1234567"}));
  Write(dir.File("text.dat"), "not a record file\r\n");
  Write(dir.File("decimal.des"), "record=10 key=1 position=1 length=2 type=decimal segment=n");
  Write(dir.File("count.des"), "record=10 key=2 position=1 length=2 type=string segment=n");
  Write(dir.File("nullkey.des"), des + " nullkey=allsegs");
  struct Case {
    const char* line;
    int exit;
    const char* message;
  };
  const Case cases[] = {
      {"-stat missing.dat", 1,
       "missing.dat: status 12 (File Not Found or there are spaces in the Path)"},
      {"-stat text.dat", 1, "text.dat: status 30 (Not A Btrieve File)"},
      {"-load dups.sav f.dat", 1, "dups.sav: record 3: status 5 (Duplicate Key Value)"},
      {"-load cut.sav f.dat", 1, "cut.sav: record 2: the file ends inside a record"},
      {"-load short.sav f.dat", 1,
       "short.sav: record 1: status 22 (Data Buffer Length is too short)"},
      {"-create f.dat ok.des", 1, "f.dat: status 59 (File Already Exists)"},
      {"-create g.dat decimal.des", 1, "\"type=decimal\": keys of this type are not supported"},
      {"-create g.dat count.des", 1, "key=2, but 1 keys are described"},
      {"-create g.dat nullkey.des", 1, "nullkey=allsegs"},
      {"-save f.dat", 2, "usage: butil"}};
  for (const Case& c : cases) {
    const Result r = Butil(dir, c.line);
    EXPECT_EQ(r.exit, c.exit) << c.line;
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
  }
  // The failed loads ran in a transaction: nothing of them is left.
  ASSERT_EQ(Butil(dir, "-save f.dat after.sav").exit, 0);
  EXPECT_EQ(ReadFile(dir.File("after.sav")), "\x1A");
  EXPECT_FALSE(std::filesystem::exists(dir.File("g.dat")));
}

}  // namespace
}  // namespace tolmen::test
