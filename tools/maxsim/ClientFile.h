// The client file MXZC.MAX: a record file of the record engine with one record per client,
// laid out as Maximizer lays it out, so that Tolmen reads it with its own record class. maxsim
// rewrites a client's record whenever the client changes.
//
// Record (client_record_length bytes, 3066 by default; texts in Windows-1252, cut to their width
// and padded with NUL; numbers little-endian):
//      0  4  mach_db_id        i32: 1, the one data machine of the stand-in
//      4  4  seq_no            i32: the client's place in the description + 1
//      8  2  Rec_type          "RecType" as digits
//     10 12  Ownr_id           "Owner"
//     22  2  Priv              i16 0
//     24 24  Clie_id           "Identification"
//     48  2  Cont_no           i16 "Contact_Number"
//     50  2  Name_type         NUL
//     52 80  Name              "Last_Name", or "Client_Name" when that is empty
//    132  2  MailingAddress    i16 id of the main address (0 without one)
//    134  4  LastModifyDate    day, month, year i16 of the last change
//    138  4  LastModifyTime    hundredths (0), seconds, minutes, hours of the last change
//    142  8  ExportDate/Time   NUL
//    150  2  HighestAddress    i16 the highest address id
//    152 66  Phone1 block      number 22, the number's digits reversed 22, extension 22
//    218 .. 350                the same for phones 2 to 4
//    416  2  HighestContact    i16 the highest contact number under the same id
//    418  2  ReceivesLetters   i16 0
//    420  2  UseClientName     i16 "Use_Client_Name"
//    422 80  FirstName, then Initial (NUL), Mr_Ms, Title (NUL), Salutation, Route (NUL), Firm
//            ("company"), Division, AddressLine1, AddressLine2, City, State, Country, ZipCode:
//            80 bytes each, to offset 1542
//   1542  8  ChangeBits, 1550 24 Last_id, 1574 176 reserved, and the rest of the record: NUL
//
// Key 0 (unique): Clie_id (24 bytes, string) + Cont_no (2 bytes, integer).
#pragma once

#include <set>
#include <string>

#include "Model.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::maxsim {

inline constexpr const char* kClientFileName = "MXZC.MAX";

// The record of the client at `place`.
std::string ClientRecord(const AddressBook& book, size_t place);
// Key 0 of a client: the id cut or NUL-padded to 24 bytes, and the contact number.
std::string ClientKey(const Client& client);

class ClientFile {
 public:
  // Creates the file with every client's record; throws std::runtime_error on a failed status.
  static void Create(const std::string& path, const AddressBook& book);

  // Opens the file; throws std::runtime_error when it cannot be opened.
  explicit ClientFile(const std::string& path);
  ClientFile(const ClientFile&) = delete;
  ClientFile& operator=(const ClientFile&) = delete;
  ~ClientFile();

  // Brings every client's record in line with the book, writing only those that differ: a crash
  // between the store's commit and this file's leaves the file one change behind.
  void Sync(const AddressBook& book);
  // Writes the client's record anew (found by its key) unless it equals `was`, the record before
  // the change: several writes within one second leave the record as it was. Throws
  // std::runtime_error on failure; that client's record is then written at its next change.
  void Rewrite(const AddressBook& book, size_t place, const std::string& was);

 private:
  int16_t Call(uint16_t operation, std::string& data, std::string& key, int16_t keyNumber);
  // Get Equal on the client's key, then Update; Insert when the file has no such record.
  void Write(const std::string& record, std::string key, uint16_t recordLength);

  RecordEngine engine_;
  std::string positionBlock_ = std::string(128, '\0');
  std::set<size_t> behind_;  // places whose last write failed
};

}  // namespace tolmen::maxsim
