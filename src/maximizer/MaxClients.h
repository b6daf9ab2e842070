// MaxClients: Maximizer's client file MXZC.MAX in the database folder, read only. The system
// opens it beside the automation link for what automation does not give: a client's data machine
// id and sequence number, and the date and time of its last change.
//
// Record (3066 bytes; the data buffer is as long, so a later Maximizer's longer records come back
// with status 22, which GlobalIO accepts for this class on Get Equal). Offsets from the record's
// start; i16/i32 little-endian; texts fixed-width, padded with NUL or blanks and returned as they
// stand unless marked "cleaned":
//      0  4 mach_db_id  i32        4  4 seq_no  i32          8  2 Rec_type        10 12 Ownr_id
//     22  2 Priv  i16             24 24 Clie_id (cleaned)   48  2 Cont_no  i16    50  2 Name_type
//     52 80 Name                 132  2 MailingAddress i16 134  4 LastModifyDate (raw bytes)
//    138  4 LastModifyTime (hundredths, seconds, minutes, hours)   142 4 ExportDate  146 4
//    ExportTime   150 2 HighestAddress i16   152.. 416 for phones 1 to 4: number, reversed number
//    and extension, 22 bytes each   416 2 HighestContact i16   418 2 ReceivesLetters i16
//    420 2 UseClientName i16   422.. 1542 FirstName, Initial, Mr_Ms, Title, Salutation, Route,
//    Firm, Division, AddressLine1, AddressLine2, City, State, Country, ZipCode (80 each)
//   1542  8 ChangeBits   1550 24 Last_id   1574 176 reserved   1750.. carried along unread
//
// Key 0 is the client id (24 bytes, NUL-padded) followed by the contact number (i16).
#pragma once

#include <cstdint>
#include <string>

#include "maximizer/MaxRecord.h"

namespace tolmen {

class MaxClients : public MaxRecord {
 public:
  static constexpr const char* kFileName = "MXZC.MAX";
  static constexpr std::int32_t kRecordLength = 3066;
  static constexpr std::size_t kIdWidth = 24;

  explicit MaxClients(Tolmen& app);

  std::int32_t mach_db_id() const { return I32(0); }
  std::int32_t seq_no() const { return I32(4); }
  std::string Rec_type() const { return Bytes(8, 2); }
  std::string Ownr_id() const { return Bytes(10, 12); }
  std::int16_t Priv() const { return I16(22); }
  std::string Clie_id() const;
  std::int16_t Cont_no() const { return I16(48); }
  std::string Name_type() const { return Bytes(50, 2); }
  std::string Name() const { return Bytes(52, 80); }
  std::int16_t MailingAddress() const { return I16(132); }
  // The four bytes as they stand (day, month, year as i16).
  std::string LastModifyDate() const { return Bytes(134, 4); }
  // The time of day; four NUL bytes give 0.
  double LastModifyTime() const;
  std::string ExportDate() const { return Bytes(142, 4); }
  std::string ExportTime() const { return Bytes(146, 4); }
  std::int16_t HighestAddress() const { return I16(150); }

  // Phones 1 to 4 (n outside 1..4 gives an empty text).
  std::string Phone(int n) const { return PhoneBlock(n, 0); }
  std::string ReversePhone(int n) const { return PhoneBlock(n, 1); }
  std::string PhoneExtension(int n) const { return PhoneBlock(n, 2); }
  std::string Phone1() const { return Phone(1); }
  std::string ReversePhone1() const { return ReversePhone(1); }
  std::string Phone1Extension() const { return PhoneExtension(1); }
  std::string Phone2() const { return Phone(2); }
  std::string ReversePhone2() const { return ReversePhone(2); }
  std::string Phone2Extension() const { return PhoneExtension(2); }
  std::string Phone3() const { return Phone(3); }
  std::string ReversePhone3() const { return ReversePhone(3); }
  std::string Phone3Extension() const { return PhoneExtension(3); }
  std::string Phone4() const { return Phone(4); }
  std::string ReversePhone4() const { return ReversePhone(4); }
  std::string Phone4Extension() const { return PhoneExtension(4); }

  std::int16_t HighestContact() const { return I16(416); }
  std::int16_t ReceivesLetters() const { return I16(418); }
  std::int16_t UseClientName() const { return I16(420); }
  std::string FirstName() const { return Text80(0); }
  std::string Initial() const { return Text80(1); }
  std::string Mr_Ms() const { return Text80(2); }
  std::string Title() const { return Text80(3); }
  std::string Salutation() const { return Text80(4); }
  std::string Route() const { return Text80(5); }
  std::string Firm() const { return Text80(6); }
  std::string Division() const { return Text80(7); }
  std::string AddressLine1() const { return Text80(8); }
  std::string AddressLine2() const { return Text80(9); }
  std::string City() const { return Text80(10); }
  std::string State() const { return Text80(11); }
  std::string Country() const { return Text80(12); }
  std::string ZipCode() const { return Text80(13); }
  std::string ChangeBits() const { return Bytes(1542, 8); }
  std::string Last_id() const { return Bytes(1550, 24); }
  std::string reserved() const { return Bytes(1574, 176); }

 private:
  std::string PhoneBlock(int n, int part) const;
  // The n-th of the 80-byte texts from FirstName on.
  std::string Text80(int n) const { return Bytes(422 + 80 * static_cast<std::size_t>(n), 80); }
};

// Key 0 of the client file for an identification: trimmed, cut to 24 bytes or filled to 24
// with NUL (not blanks, unlike the Pastel keys), then contact number 0 as two zero bytes.
std::string MaxClientKey(const std::string& identification);

}  // namespace tolmen
