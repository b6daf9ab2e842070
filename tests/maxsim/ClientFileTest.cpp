// The client file MXZC.MAX as Tolmen reads it: records read back through the record engine while
// maxsim runs, and kept up to date by field writes.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>

#include "Attached.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::test {
namespace {

// Key 0: the id cut or NUL-padded to 24 bytes, and contact number 0.
std::string Key(std::string id) {
  id.resize(24, '\0');
  return id + std::string(2, '\0');
}

struct Read {
  int16_t status = -1;
  std::string record;
};

// Get Equal on key 0 of the client file, with a data buffer of `room` bytes.
Read GetEqual(const std::string& database, const std::string& key, int32_t room = 3066) {
  RecordEngine engine;
  std::string pos(128, '\0'), data, keyBuffer = "\"" + database + "/MXZC.MAX\"";
  int32_t length = 0;
  Read read;
  read.status = engine.BTRCALL(kOpOpen, pos, data, length, keyBuffer, 255, 0);
  if (read.status != 0) return read;
  keyBuffer = key;
  keyBuffer.resize(255, '\0');
  data.assign(static_cast<size_t>(room), '\0');
  length = room;
  read.status = engine.BTRCALL(kOpGetEqual, pos, data, length, keyBuffer, 255, 0);
  read.record = data.substr(0, static_cast<size_t>(length));
  engine.BTRCALL(kOpClose, pos, data, length, keyBuffer, 255, 0);
  return read;
}

// Puts `record` in place of the client's record, as a crash between maxsim's two commits of a
// write would leave it.
void Overwrite(const std::string& database, const std::string& key, std::string record) {
  RecordEngine engine;
  std::string pos(128, '\0'), data(record.size(), '\0'), keyBuffer = database + "/MXZC.MAX";
  int32_t length = 0;
  ASSERT_EQ(engine.BTRCALL(kOpOpen, pos, data, length, keyBuffer, 255, 0), 0);
  keyBuffer = key;
  keyBuffer.resize(255, '\0');
  length = static_cast<int32_t>(data.size());
  ASSERT_EQ(engine.BTRCALL(kOpGetEqual, pos, data, length, keyBuffer, 255, 0), 0);
  length = static_cast<int32_t>(record.size());
  ASSERT_EQ(engine.BTRCALL(kOpUpdate, pos, record, length, keyBuffer, 255, 0), 0);
  engine.BTRCALL(kOpClose, pos, data, length, keyBuffer, 255, 0);
}

std::string Text(const std::string& record, size_t offset, size_t width) {
  std::string text = record.substr(offset, width);
  return text.substr(0, text.find('\0'));
}

// The texts of these fields (offset, width), each followed by '|'.
std::string Texts(const std::string& record, std::vector<std::pair<size_t, size_t>> fields) {
  std::string row;
  for (const auto& [offset, width] : fields) row += Text(record, offset, width) + "|";
  return row;
}

int Int16(const std::string& record, size_t offset) {
  return static_cast<int16_t>(static_cast<uint8_t>(record[offset]) |
                              static_cast<uint8_t>(record[offset + 1]) << 8);
}

using ClientFileTest = AttachedTest;

TEST_F(ClientFileTest, RecordsHoldTheFieldsAtTheirOffsets) {
  // An id of 30 characters is found by its first 24.
  const Read karoo = GetEqual(maxsim_.Database(), Key("240301/KAROO-LIVESTOCK-AUCTION"));
  ASSERT_EQ(karoo.status, 0);
  EXPECT_EQ(karoo.record.substr(24, 24), "240301/KAROO-LIVESTOCK-A");
  EXPECT_EQ(Text(karoo.record, 52, 80), "Karoo Livestock Auctioneers");
  EXPECT_EQ(Int16(karoo.record, 48), 0);

  // A short id is padded with NUL, not blanks.
  const Read acme = GetEqual(maxsim_.Database(), Key("240115/0001"));
  ASSERT_EQ(acme.status, 0);
  ASSERT_EQ(acme.record.size(), 3066u);
  EXPECT_EQ(acme.record.substr(24, 24), std::string("240115/0001") + std::string(13, '\0'));
  EXPECT_EQ(acme.record.substr(0, 8), std::string("\x01\0\0\0\x01\0\0\0", 8));  // machine, seq 1
  EXPECT_EQ(Texts(acme.record, {{8, 2}, {10, 12}, {152, 22}, {174, 22}, {218, 22}}),
            "1|MASTER|011 555 0100|0010555110|011 555 0101|");
  EXPECT_EQ(Texts(acme.record, {{902, 80}, {1062, 80}, {1222, 80}, {1462, 80}}),
            "Acme Trading (Pty) Ltd|12 Main Road|Johannesburg|2093|");
  EXPECT_EQ(Int16(acme.record, 132), 1);  // main address
  EXPECT_EQ(Int16(acme.record, 150), 2);  // highest address
  EXPECT_EQ(Int16(acme.record, 416), 1);  // highest contact: Naidoo
  EXPECT_EQ(acme.record.substr(1542), std::string(3066 - 1542, '\0'));

  const Read botha = GetEqual(maxsim_.Database(), Key("240202/0003"));
  ASSERT_EQ(botha.status, 0);
  EXPECT_EQ(Int16(botha.record, 420), 1);  // Use_Client_Name
  // The name, the extension of phone 1, first name, salutation, dear and division.
  EXPECT_EQ(Texts(botha.record, {{52, 80}, {196, 22}, {422, 80}, {582, 80}, {742, 80}, {982, 80}}),
            "Botha|12|Anna|Mrs|Anna|Studio 3|");

  // Windows-1252 in the record, UTF-8 on the wire.
  const Read obrien = GetEqual(maxsim_.Database(), Key("240420/0011"));
  EXPECT_EQ(Text(obrien.record, 422, 80), "Siobh\xE1n");
  Ctl({"select", "240420/0011"});
  EXPECT_EQ(record_->GetFieldValue("First_Name"), "Siobh\xE1n");
}

TEST_F(ClientFileTest, FieldWritesStampTheLastChangeAndSurviveARestart) {
  Ctl({"select", "240118/0002"});
  clock_.Set(DateFromParts(2026, 11, 23, 9, 30, 15));
  record_->SetFieldValue("City", "Umhlanga");
  Read smith = GetEqual(maxsim_.Database(), Key("240118/0002"));
  ASSERT_EQ(smith.status, 0);
  EXPECT_EQ(Text(smith.record, 1222, 80), "Umhlanga");
  EXPECT_EQ(smith.record.substr(134, 4), std::string("\x17\x0B\xEA\x07", 4));  // 23 11 2026
  EXPECT_EQ(smith.record.substr(138, 4), std::string("\0\x0F\x1E\x09", 4));    // 09:30:15

  // Within the same second a UDF leaves the record as it is, and a field still changes it.
  clock_.Set(DateFromParts(2026, 11, 23, 9, 30, 15) + 0.4 / 86400);
  record_->SetFieldValue("Credit Limit", "5000");
  record_->SetFieldValue("Zip_/_Postal_Code", "4319");
  smith = GetEqual(maxsim_.Database(), Key("240118/0002"));
  EXPECT_EQ(Text(smith.record, 1462, 80), "4319");
  EXPECT_EQ(smith.record.substr(134, 8), std::string("\x17\x0B\xEA\x07\0\x0F\x1E\x09", 8));
  EXPECT_EQ(maxsim_.StoredUdf("240118/0002", "Credit Limit"), "5000");

  // A refused UDF value changes nothing, the stamp included; an accepted one moves it.
  clock_.Set(DateFromParts(2026, 12, 1, 14, 5, 0));
  record_->SetFieldValue("Date Billed", "yesterday");
  record_->SetFieldValue("Identification", "other");  // the key is not the caller's to change
  smith = GetEqual(maxsim_.Database(), Key("240118/0002"));
  EXPECT_EQ(smith.record.substr(134, 8), std::string("\x17\x0B\xEA\x07\0\x0F\x1E\x09", 8));
  record_->SetFieldValue("Date Billed", "2026-12-01");
  smith = GetEqual(maxsim_.Database(), Key("240118/0002"));
  EXPECT_EQ(smith.record.substr(134, 8), std::string("\x01\x0C\xEA\x07\0\0\x05\x0E", 8));

  // The store keeps the changes: a restarted instance and a dump show them, and the instance
  // brings a record the store is ahead of back in line.
  ASSERT_EQ(maxsim_.Ctl({"quit"}).status, 0);
  maxsim_.Wait();
  std::string stale = smith.record;
  stale.replace(1222, 8, "Stale\0\0\0", 8);
  Overwrite(maxsim_.Database(), Key("240118/0002"), stale);
  const RunResult dump = RunMaxsim({"dump", maxsim_.Database()});
  ASSERT_EQ(dump.status, 0);
  EXPECT_NE(dump.out.find("\"City\": \"Umhlanga\""), std::string::npos);
  EXPECT_NE(dump.out.find("\"last_change\": \"2026-12-01 14:05:00\""), std::string::npos);
  ASSERT_TRUE(maxsim_.Start());
  auto record = MaxAttachObject::Attach(maxsim_.Socket(), clock_)->GetCurrentRecordObject();
  Ctl({"select", "240118/0002"});
  EXPECT_EQ(record->GetFieldValue("Date Billed"), "01 Dec 2026");
  EXPECT_EQ(record->GetFieldValue("Identification"), "240118/0002");
  EXPECT_EQ(GetEqual(maxsim_.Database(), Key("240118/0002")).record, smith.record);
}

TEST(ClientFileLength, LongerRecordsThanTolmensBuffer) {
  TempDir dir;
  const std::string description = dir.File("long.json");
  std::ofstream(description) << R"({"name": "Long", "client_record_length": 4000, "clients": [
      {"Identification": "L1", "RecType": 1, "Client_Name": "Long Records Ltd"}]})";
  MaxsimProcess maxsim(description);
  const Read shortBuffer = GetEqual(maxsim.Database(), Key("L1"), 3066);
  EXPECT_EQ(shortBuffer.status, 22);
  EXPECT_EQ(Text(shortBuffer.record, 52, 80), "Long Records Ltd");
  const Read whole = GetEqual(maxsim.Database(), Key("L1"), 4096);
  EXPECT_EQ(whole.status, 0);
  EXPECT_EQ(whole.record.size(), 4000u);
}

}  // namespace
}  // namespace tolmen::test
