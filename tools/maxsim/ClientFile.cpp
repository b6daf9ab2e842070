// Laying out client records and keeping MXZC.MAX in step with the address book.
#include "ClientFile.h"

#include <algorithm>
#include <stdexcept>

#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/FileStat.h"
#include "recordio/FieldCodecs.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"

namespace tolmen::maxsim {

namespace {

constexpr int32_t kMachineId = 1;
constexpr size_t kIdWidth = 24;
constexpr int16_t kKeyBufferLength = 255;

// Places `bytes` at `offset`, cut to `width`; the record is NUL where nothing is placed.
void Put(std::string& record, size_t offset, size_t width, const std::string& bytes) {
  record.replace(offset, std::min(width, bytes.size()), bytes, 0, std::min(width, bytes.size()));
}

std::string ReversedDigits(const std::string& phone) {
  std::string digits;
  for (char c : phone)
    if (c >= '0' && c <= '9') digits.push_back(c);
  return std::string(digits.rbegin(), digits.rend());
}

int16_t Whole(const std::string& text) {
  return static_cast<int16_t>(Val(text));
}

std::string TimeBytes(double date) {
  const DateParts parts = SplitDate(date);
  return std::string{'\0', static_cast<char>(parts.second), static_cast<char>(parts.minute),
                     static_cast<char>(parts.hour)};
}

FileDef Layout(uint16_t recordLength) {
  return FileDef{
      recordLength,
      4096,
      false,
      {KeyDef{false,
              false,
              {SegmentDef{25, kIdWidth, KeyType::String}, SegmentDef{49, 2, KeyType::Integer}}}}};
}

[[noreturn]] void Fail(const std::string& what, int16_t status) {
  throw std::runtime_error(std::string(kClientFileName) + ": " + what + " gave status " +
                           std::to_string(status));
}

}  // namespace

std::string ClientKey(const Client& client) {
  std::string id = client.Id().substr(0, kIdWidth);
  id.resize(kIdWidth, '\0');
  return id + MkI(client.ContactNumber());
}

std::string ClientRecord(const AddressBook& book, size_t place) {
  const Client& client = book.clients.at(place);
  const auto& f = client.fields;
  std::string record(book.recordLength, '\0');
  Put(record, 0, 4, MkL(kMachineId));
  Put(record, 4, 4, MkL(static_cast<int32_t>(place + 1)));
  Put(record, 8, 2, f[kFieldRecType]);
  Put(record, 10, 12, f[kFieldOwner]);
  Put(record, 24, 26, ClientKey(client));  // Clie_id and Cont_no
  Put(record, 52, 80, client.Name());

  int32_t mainAddress = 0, highestAddress = 0;
  for (const Address& address : client.addresses) {
    if (address.main) mainAddress = address.id;
    highestAddress = std::max(highestAddress, address.id);
  }
  Put(record, 132, 2, MkI(static_cast<int16_t>(mainAddress)));
  Put(record, 134, 4, MkDate(client.lastChange));
  Put(record, 138, 4, TimeBytes(client.lastChange));
  Put(record, 150, 2, MkI(static_cast<int16_t>(highestAddress)));
  for (size_t phone = 0; phone < 4; ++phone) {
    const size_t field = kFieldPhone1 + 3 * phone;
    const size_t offset = 152 + 66 * phone;
    Put(record, offset, 22, f[field]);
    Put(record, offset + 22, 22, ReversedDigits(f[field]));
    Put(record, offset + 44, 22, f[field + 1]);
  }
  int16_t highestContact = 0;
  for (const Client& other : book.clients)
    if (other.Id() == client.Id()) highestContact = std::max(highestContact, other.ContactNumber());
  Put(record, 416, 2, MkI(highestContact));
  Put(record, 420, 2, MkI(Whole(f[kFieldUseClientName])));

  // The 80-byte texts from FirstName on; the empty ones are kept NUL.
  const std::string none;
  const std::string* texts[] = {&f[kFieldFirstName],    &none,  // Initial
                                &f[kFieldMrMs],         &none,  // Title
                                &f[kFieldSalutation],   &none,  // Route
                                &f[kFieldCompany],      &f[kFieldDivision],
                                &f[kFieldAddress1],     &f[kFieldAddress1 + 1],
                                &f[kFieldAddress1 + 2], &f[kFieldAddress1 + 3],
                                &f[kFieldAddress1 + 4], &f[kFieldAddress1 + 5]};
  size_t offset = 422;
  for (const std::string* text : texts) {
    Put(record, offset, 80, *text);
    offset += 80;
  }
  return record;
}

void ClientFile::Create(const std::string& path, const AddressBook& book) {
  RecordEngine engine;
  std::string pos(128, '\0'), data = BuildCreateBuffer(Layout(book.recordLength)), key = path;
  auto length = static_cast<int32_t>(data.size());
  if (int16_t status = engine.BTRCALL(kOpCreate, pos, data, length, key, kKeyBufferLength, -1))
    Fail("Create", status);
  ClientFile file(path);
  for (size_t place = 0; place < book.clients.size(); ++place) {
    std::string record = ClientRecord(book, place), keyBuffer(kKeyBufferLength, '\0');
    if (int16_t status = file.Call(kOpInsert, record, keyBuffer, 0)) Fail("Insert", status);
  }
}

ClientFile::ClientFile(const std::string& path) {
  std::string data, key = path;
  if (int16_t status = Call(kOpOpen, data, key, 0)) Fail("Open", status);
}

ClientFile::~ClientFile() {
  std::string data, key;
  Call(kOpClose, data, key, 0);
}

int16_t ClientFile::Call(uint16_t operation, std::string& data, std::string& key,
                         int16_t keyNumber) {
  auto length = static_cast<int32_t>(data.size());
  if (key.size() < static_cast<size_t>(kKeyBufferLength)) key.resize(kKeyBufferLength, '\0');
  return engine_.BTRCALL(operation, positionBlock_, data, length, key, kKeyBufferLength, keyNumber);
}

void ClientFile::Write(const std::string& record, std::string key, uint16_t recordLength) {
  std::string data(recordLength, '\0');
  const int16_t found = Call(kOpGetEqual, data, key, 0);
  if (found == kStatusKeyNotFound) {
    std::string inserted = record;
    if (int16_t status = Call(kOpInsert, inserted, key, 0)) Fail("Insert", status);
    return;
  }
  if (found != kStatusOk) Fail("Get Equal", found);
  if (data == record) return;
  std::string updated = record;
  if (int16_t status = Call(kOpUpdate, updated, key, 0)) Fail("Update", status);
}

void ClientFile::Sync(const AddressBook& book) {
  for (size_t place = 0; place < book.clients.size(); ++place)
    Write(ClientRecord(book, place), ClientKey(book.clients[place]), book.recordLength);
}

void ClientFile::Rewrite(const AddressBook& book, size_t place, const std::string& was) {
  std::string record = ClientRecord(book, place);
  if (record == was && !behind_.contains(place)) return;
  behind_.insert(place);
  Write(record, ClientKey(book.clients.at(place)), book.recordLength);
  behind_.erase(place);
}

}  // namespace tolmen::maxsim
