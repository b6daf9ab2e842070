// The client file's and the database list's record images, read and written through the
// accessors on in-memory records; the list class's calls that need no Maximizer.
#include <functional>

#include "common/MaximizerTestKit.h"
#include "maximizer/MaxClients.h"
#include "maximizer/clsClientsOLE.h"
#include "maximizer/maxDBList.h"
#include "recordio/FieldCodecs.h"

namespace tolmen::test {
namespace {

class RecordClassesTest : public MaximizerTest {
 protected:
  void SetUp() override { Start(); }
};

// A record whose every byte tells its offset (offset modulo 251, plus 1: never NUL).
std::string Numbered(size_t length) {
  std::string record(length, '\0');
  for (size_t i = 0; i < length; ++i) record[i] = static_cast<char>(i % 251 + 1);
  return record;
}

// The first and last field of each block of the layout.
TEST_F(RecordClassesTest, ClientRecordTextsStandAtTheirOffsets) {
  MaxClients file(*app_);
  const std::string record = Numbered(MaxClients::kRecordLength);
  file.DataBuf = record;
  file.MoveBuffer(1);
  struct Case {
    const char* name;
    std::function<std::string(const MaxClients&)> read;
    size_t offset, width;
  };
  const Case cases[] = {
      {"Rec_type", &MaxClients::Rec_type, 8, 2},
      {"Ownr_id", &MaxClients::Ownr_id, 10, 12},
      {"Name", &MaxClients::Name, 52, 80},
      {"LastModifyDate", &MaxClients::LastModifyDate, 134, 4},
      {"Phone1", &MaxClients::Phone1, 152, 22},
      {"ReversePhone3", &MaxClients::ReversePhone3, 306, 22},
      {"Phone4Extension", &MaxClients::Phone4Extension, 394, 22},
      {"FirstName", &MaxClients::FirstName, 422, 80},
      {"Route", &MaxClients::Route, 822, 80},
      {"ZipCode", &MaxClients::ZipCode, 1462, 80},
      {"ChangeBits", &MaxClients::ChangeBits, 1542, 8},
      {"Last_id", &MaxClients::Last_id, 1550, 24},
      {"reserved", &MaxClients::reserved, 1574, 176},
  };
  for (const Case& c : cases) EXPECT_EQ(c.read(file), record.substr(c.offset, c.width)) << c.name;
}

TEST_F(RecordClassesTest, ClientRecordNumbersIdAndTimeDecode) {
  MaxClients file(*app_);
  std::string record(MaxClients::kRecordLength, '\0');
  auto put = [&](size_t offset, const std::string& bytes) {
    record.replace(offset, bytes.size(), bytes);
  };
  put(0, MkL(1));
  put(4, MkL(70001));
  put(22, MkI(-1));
  put(24, "240115/0001");  // NUL padding
  put(48, MkI(3));
  put(132, MkI(2));
  put(138, std::string("\x32\x0F\x1E\x0E", 4));  // 14:30:15.50
  put(150, MkI(4));
  put(416, MkI(5));
  put(418, MkI(-1));
  put(420, MkI(1));
  file.DataBuf = record;
  file.MoveBuffer(1);
  EXPECT_EQ(file.Clie_id(), "240115/0001");
  EXPECT_EQ((std::vector<long>{file.mach_db_id(), file.seq_no(), file.Priv(), file.Cont_no(),
                               file.MailingAddress(), file.HighestAddress(), file.HighestContact(),
                               file.ReceivesLetters(), file.UseClientName()}),
            (std::vector<long>{1, 70001, -1, 3, 2, 4, 5, -1, 1}));
  EXPECT_DOUBLE_EQ(file.LastModifyTime(), (14 * 3600 + 30 * 60 + 15) / 86400.0);

  // Four NUL bytes of time are midnight; a short buffer leaves blanks behind it.
  put(138, std::string(4, '\0'));
  file.DataBuf = record;
  file.MoveBuffer(1);
  EXPECT_EQ(file.LastModifyTime(), 0);
  file.DataBuf = record.substr(0, 100);
  file.MoveBuffer(1);
  EXPECT_EQ(file.Name(), record.substr(52, 48) + std::string(32, ' '));
  EXPECT_EQ(file.Image().size(), 3066u);
  // Towards the record manager the image goes whole, unless the buffer is held.
  file.MoveBuffer(0);
  EXPECT_EQ(file.DataBuf, file.Image());
  file.DataBuf = "OWNER";
  file.BufferHeld = true;
  file.MoveBuffer(0);
  EXPECT_EQ(file.DataBuf, "OWNER");
  EXPECT_FALSE(file.BufferHeld);
  EXPECT_EQ(file.RecordCount(), 0);  // not open
}

TEST_F(RecordClassesTest, DatabaseListFieldsAreWrittenAndReadInPlace) {
  maxDBList list(*app_);
  list.FirstField(1);
  list.SecondField(-2);
  list.ThirdField(300);
  list.Owner("MASTER");
  list.DatabaseName("A database name longer than thirty-one");
  list.DatabasePath("/srv/maximizer/demo");
  list.Filler2(std::string(20, 'x'));
  EXPECT_EQ(list.Owner(), "MASTER        ");
  EXPECT_EQ(list.DatabaseName(), "A database name longer than thi");
  list.MoveBuffer(0);
  const std::string& record = list.DataBuf;
  ASSERT_EQ(record.size(), 278u);
  EXPECT_EQ(record.substr(0, 6), MkI(1) + MkI(-2) + MkI(300));
  EXPECT_EQ(record.substr(6, 12), std::string(12, '\0'));  // never written
  EXPECT_EQ(record.substr(18, 14), "MASTER        ");
  EXPECT_EQ(record.substr(63, 15), std::string(15, 'x'));
  EXPECT_EQ(record.substr(78), "/srv/maximizer/demo" + std::string(181, ' '));
  EXPECT_EQ(list.ClassName, "maxDBList");  // named in the record manager's error reports
}

TEST_F(RecordClassesTest, ListClassKeysAndUnknownCalls) {
  clsClientsOLE& list = app_->maximizer.ClientList();
  list.Key(1);
  EXPECT_EQ(list.KeyText(), "ORDER BY name, name_type");
  list.Key(7);
  EXPECT_EQ(list.KeyText(), "ORDER BY data_machine_id, sequence_number");
  list.Key(8);
  EXPECT_EQ(list.KeyText(), "");
  list.IO(7);
  list.IO(13);
  EXPECT_EQ(app_->run.ErrorCount, 2);
  EXPECT_EQ(LogLines(),
            (std::vector<std::string>{"### Error 1: Unknown Call: 7 To clsClientsOLE Class.",
                                      "### Error 2: Unknown Call: 13 To clsClientsOLE Class."}));
  // Reads need the link: nothing is attached yet.
  EXPECT_THROW(list.IO(12), RuntimeError);
}

}  // namespace
}  // namespace tolmen::test
