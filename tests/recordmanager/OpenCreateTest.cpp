// Opening (names, modes, position blocks), creating (definition checks, replacing) and files
// that are not, or no longer, record files.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>

#include "EngineTestUtil.h"

namespace tolmen::test {
namespace {

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

TEST(OpenTest, NamesAreFoundWithoutRegardToCaseQuotesOrPadding) {
  TempDir dir;
  std::filesystem::create_directory(dir.Path() / "Data");
  RecordEngine engine;
  ASSERT_EQ(CreateFile(engine, dir.File("Data/AccMasD.dat"), SmallIntegerFile()), 0);
  const std::string base = dir.Path().string();
  const std::string names[] = {
      base + "/Data/AccMasD.dat", base + "/DATA/ACCMASD.DAT",
      "\"" + base + "/data/accmasd.dat\"   ",
      base + "/Data/AccMasD.dat" + std::string(3, '\0') + "   ",
      "  \"" + base + "/dAtA/AccMasD.DAT\"" + std::string(1, '\0') + "rest of the buffer"};
  for (const std::string& name : names) {
    Client f(engine);
    EXPECT_EQ(f.Open(name), 0) << name;
    EXPECT_EQ(f.Call(kOpClose), 0);
  }
  Client f(engine);
  EXPECT_EQ(f.Open(base + "/Data/Missing.dat"), kStatusFileNotFound);
  EXPECT_EQ(f.Open(base + "/Nowhere/AccMasD.dat"), kStatusFileNotFound);
  EXPECT_EQ(f.Open("   "), kStatusInvalidFileName);
  EXPECT_EQ(f.Open(base + "/Data"), kStatusFileNotFound);
  f.pos = "short";
  EXPECT_EQ(f.Open(base + "/Data/AccMasD.dat"), kStatusPositionBlockLength);
}

TEST(OpenTest, ModesAndPositionBlocks) {
  TempDir dir;
  const std::string path = dir.File("f.dat");
  RecordEngine engine;
  Client writer(engine);
  ASSERT_EQ(writer.Create(path, SmallIntegerFile()), 0);
  ASSERT_EQ(writer.Insert(SmallRecord(1)), 0);

  Client reader(engine);
  ASSERT_EQ(reader.Open(path, -2), 0);
  ASSERT_EQ(reader.Get(kOpGetFirst), 0);
  EXPECT_EQ(reader.Insert(SmallRecord(2)), kStatusAccessDenied);
  EXPECT_EQ(reader.Update(SmallRecord(1)), kStatusAccessDenied);
  EXPECT_EQ(reader.Call(kOpDelete), kStatusAccessDenied);
  EXPECT_EQ(reader.Get(kOpGetFirst), 0);
  EXPECT_EQ(reader.data, SmallRecord(1));

  Client exclusive(engine);
  EXPECT_EQ(exclusive.Open(path, -4), kStatusFileLocked) << "the file is open already";
  EXPECT_EQ(exclusive.Open(path, 3), kStatusInvalidOperation);
  ASSERT_EQ(writer.Call(kOpClose), 0);
  ASSERT_EQ(reader.Call(kOpClose), 0);
  ASSERT_EQ(exclusive.Open(path, -4), 0);
  Client late(engine);
  EXPECT_EQ(late.Open(path), kStatusFileLocked);
  ASSERT_EQ(exclusive.Call(kOpClose), 0);
  EXPECT_EQ(late.Open(path, -1), 0);

  // Blocks that name no open file of this engine.
  EXPECT_EQ(writer.Get(kOpGetFirst), kStatusNotOpen) << "closed";
  EXPECT_EQ(writer.Call(kOpClose), kStatusNotOpen);
  Client blank(engine);
  EXPECT_EQ(blank.Get(kOpGetFirst), kStatusNotOpen);
  RecordEngine another;
  Client foreign(another);
  foreign.pos = late.pos;
  EXPECT_EQ(foreign.Get(kOpGetFirst), kStatusNotOpen);
  Client reused(engine);
  ASSERT_EQ(reused.Open(path), 0);
  EXPECT_EQ(writer.Get(kOpGetFirst), kStatusNotOpen) << "a slot used again keeps old blocks out";
}

TEST(CreateTest, DefinitionsTheEngineCannotKeepAreRefused) {
  struct Case {
    const char* what;
    FileDef def;
    uint16_t extraFlags;
    int16_t status;
  };
  auto one = [](uint16_t length, KeyType type, bool duplicates = false, uint16_t position = 1) {
    return FileDef{
        16, 4096, false, {KeyDef{duplicates, false, {SegmentDef{position, length, type}}}}};
  };
  FileDef badPage = SmallIntegerFile();
  badPage.pageSize = 1000;
  FileDef noRecord = SmallIntegerFile();
  noRecord.recordLength = 0;
  FileDef noKeys = SmallIntegerFile();
  noKeys.keys.clear();
  const Case cases[] = {
      {"page size", badPage, 0, kStatusInvalidPageSize},
      {"record length", noRecord, 0, kStatusInvalidRecordLength},
      {"no keys", noKeys, 0, kStatusInvalidKeyCount},
      {"key beyond the record", one(4, KeyType::Integer, false, 14), 0, kStatusInvalidKeyPosition},
      {"integer of 3 bytes", one(3, KeyType::Integer), 0, kStatusInvalidKeyLength},
      {"date of 8 bytes", one(8, KeyType::Date), 0, kStatusInvalidKeyLength},
      {"alternate collating sequence", SmallIntegerFile(), kKeyAltCollation,
       kStatusInvalidKeyFlags},
      {"null key", SmallIntegerFile(), kKeyNullAll, kStatusInvalidKeyFlags},
      {"autoincrement with duplicates", one(4, KeyType::AutoIncrement, true), 0,
       kStatusInvalidAutoIncrement}};
  TempDir dir;
  RecordEngine engine;
  for (const Case& c : cases) {
    FileStat stats = ToFileStat(c.def);
    if (!stats.segments.empty()) stats.segments[0].flags |= c.extraFlags;
    std::string pos(128, ' '), data = EncodeFileStat(stats), key = dir.File("bad.dat");
    auto len = static_cast<int32_t>(data.size());
    EXPECT_EQ(engine.BTRCALL(kOpCreate, pos, data, len, key, 255, 0), c.status) << c.what;
    EXPECT_FALSE(std::filesystem::exists(dir.File("bad.dat"))) << c.what;
  }
  std::string pos(128, ' '), data = BuildCreateBuffer(SmallIntegerFile()),
                             key = dir.File("short.dat");
  int32_t len = 20;
  EXPECT_EQ(engine.BTRCALL(kOpCreate, pos, data, len, key, 255, 0), kStatusInvalidPageSize);
  EXPECT_EQ(CreateFile(engine, dir.File("no/such/folder.dat"), SmallIntegerFile()),
            kStatusCreateIoError);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 0)
      << "nothing is left behind";
}

TEST(CreateTest, AnExistingFileIsReplacedOnlyWhenAsked) {
  TempDir dir;
  RecordEngine engine;
  ASSERT_EQ(CreateFile(engine, dir.File("Cat.dat"), SmallIntegerFile()), 0);
  Client f(engine);
  ASSERT_EQ(f.Open(dir.File("cat.dat")), 0);
  ASSERT_EQ(f.Insert(SmallRecord(1)), 0);
  EXPECT_EQ(CreateFile(engine, dir.File("CAT.DAT"), SmallIntegerFile()), kStatusFileLocked)
      << "open";
  ASSERT_EQ(f.Call(kOpClose), 0);
  EXPECT_EQ(CreateFile(engine, dir.File("CAT.DAT"), SmallIntegerFile(), -1), kStatusFileExists);
  ASSERT_EQ(f.Open(dir.File("Cat.dat")), 0);
  EXPECT_EQ(f.Get(kOpGetFirst), 0) << "the refused create left the records";
  ASSERT_EQ(f.Call(kOpClose), 0);
  ASSERT_EQ(CreateFile(engine, dir.File("CAT.DAT"), SmallIntegerFile(), 0), 0);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1)
      << "the file of the other spelling was replaced";
  ASSERT_EQ(f.Open(dir.File("Cat.dat")), 0);
  EXPECT_EQ(f.Get(kOpGetFirst), kStatusEndOfFile);
}

TEST(DamagedFileTest, FilesThatAreNotWholeRecordFilesGiveAStatus) {
  TempDir dir;
  RecordEngine engine;
  std::mt19937 random(7);
  std::string noise(8192, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  WriteBytes(dir.File("noise.dat"), noise);
  WriteBytes(dir.File("text.dat"), "ACCOUNT,NAME\r\n");
  WriteBytes(dir.File("empty.dat"), "");
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(dir.File("other.db").c_str(), &db), SQLITE_OK);
  ASSERT_EQ(
      sqlite3_exec(db, "CREATE TABLE t(x); INSERT INTO t VALUES(1);", nullptr, nullptr, nullptr),
      SQLITE_OK);
  sqlite3_close(db);
  for (const char* name : {"noise.dat", "text.dat", "empty.dat", "other.db"}) {
    Client f(engine);
    EXPECT_EQ(f.Open(dir.File(name)), kStatusNotARecordFile) << name;
  }

  // An engine file cut in half.
  const std::string whole = dir.File("whole.dat");
  ASSERT_EQ(CreateFile(engine, whole, SmallIntegerFile(1000)), 0);
  {
    Client f(engine);
    ASSERT_EQ(f.Open(whole), 0);
    ASSERT_EQ(f.Call(kOpBeginTransaction), 0);
    for (int32_t n = 0; n < 300; ++n) ASSERT_EQ(f.Insert(SmallRecord(n, 1000)), 0);
    ASSERT_EQ(f.Call(kOpEndTransaction), 0);
    ASSERT_EQ(f.Call(kOpClose), 0);
  }
  const std::string cut = dir.File("cut.dat");
  std::filesystem::copy_file(whole, cut);
  std::filesystem::resize_file(cut, std::filesystem::file_size(whole) / 2);
  Client f(engine);
  const int16_t st = f.Open(cut);
  EXPECT_TRUE(st == kStatusIoError || st == kStatusNotARecordFile) << st;
}

}  // namespace
}  // namespace tolmen::test
