// clsClientsOLE: Maximizer's current list of clients in the shape of a record class, so that the
// client loop walks a list on someone else's screen with IO as it would walk a file:
//   IO(kOpGetEqual)  reads the client now selected (GetClientValues);
//   IO(kOpGetNext)   steps one line down and reads it, while the list position is below the list
//                    count; at the count STATUS_ becomes kStatusEndOfFile and nothing moves;
//   IO(kOpGetFirst)  scrolls to the top and reads (the list position is not reset);
//   other            logs the error "Unknown Call: N To clsClientsOLE Class.".
// Each member that reads an automation field first waits until Maximizer is not busy; members
// without a field answer "" and call nothing. The list position and count are the link's
// (MaximizerLink), set by OpenClientList.
//
// REQUIRES for every call that reaches Maximizer: the link is attached (else RuntimeError 91).
// Automation failures come out as RuntimeError to the caller's error path.
#pragma once

#include <cstdint>
#include <string>

#include "platform/recordmanager/BtrCodes.h"

namespace tolmen {

class Tolmen;

class clsClientsOLE {
 public:
  // REQUIRES: `app` outlives the object.
  explicit clsClientsOLE(Tolmen& app);

  void IO(std::int32_t operation);
  // Looks the current client up in the client file by its identification and keeps its data
  // machine id, sequence number and last change; STATUS_ becomes kStatusOk whatever the file said.
  void GetClientValues();
  void MoveBuffer(std::int16_t /*direction*/) {}
  // Scrolls the list to the top; the name is not used.
  void FOpen(const std::string& fileName = "");
  // The list count of the link.
  std::int32_t RecordCount() const;

  // From GetClientValues: decimal texts and the client file's last change.
  const std::string& mach_db_id() const { return machDbId_; }
  const std::string& seq_no() const { return seqNo_; }
  const std::string& LastModifyDate() const { return lastModifyDate_; }
  const std::string& LastModifyTime() const { return lastModifyTime_; }

  std::string Rec_type() { return Field("RecType"); }
  std::string Ownr_id() { return Field("Owner"); }
  std::string Priv() const { return ""; }
  std::string Clie_id() { return Field("Identification"); }
  double Cont_no();  // "Contact_Number" as a number
  std::string Name_type() const { return ""; }
  // "Last_Name", or "Client_Name" when that is empty.
  std::string Name();
  std::string MailingAddress() const { return ""; }
  std::string ExportDate() const { return ""; }
  std::string ExportTime() const { return ""; }
  std::string HighestAddress() const { return ""; }
  // n from 1 to 4: "Phone_n", "Phone_n_Extension", "Phone_n_Description"; RuntimeError 9 else.
  std::string Phone(int n);
  std::string PhoneExtension(int n);
  std::string PhoneDescription(int n);
  std::string Phone1() { return Phone(1); }
  std::string Phone2() { return Phone(2); }
  std::string Phone3() { return Phone(3); }
  std::string Phone4() { return Phone(4); }
  std::string ReversePhone1() const { return ""; }
  std::string ReversePhone2() const { return ""; }
  std::string ReversePhone3() const { return ""; }
  std::string ReversePhone4() const { return ""; }
  std::string Phone1Extension() { return PhoneExtension(1); }
  std::string Phone2Extension() { return PhoneExtension(2); }
  std::string Phone3Extension() { return PhoneExtension(3); }
  std::string Phone4Extension() { return PhoneExtension(4); }
  std::string Phone1Description() { return PhoneDescription(1); }
  std::string Phone2Description() { return PhoneDescription(2); }
  std::string Phone3Description() { return PhoneDescription(3); }
  std::string Phone4Description() { return PhoneDescription(4); }
  std::string HighestContact() const { return ""; }
  std::string ReceivesLetters() const { return ""; }
  double UseClientName();  // "Use_Client_Name" as a number
  std::string FirstName() { return Field("First_Name"); }
  std::string Initial() const { return ""; }
  std::string Mr_Ms() { return Field("Mr/Ms"); }
  std::string Title() const { return ""; }
  std::string Salutation() { return Field("Salutation"); }
  // The salutation again, as it stands.
  std::string Route() { return Field("Salutation"); }
  std::string Firm() { return Field("company"); }
  std::string Division() { return Field("Division"); }
  std::string AddressLine1() { return Field("Address_Line_1"); }
  std::string AddressLine2() { return Field("Address_Line_2"); }
  std::string City() { return Field("City"); }
  std::string State() { return Field("State_/_Province"); }
  std::string Country() { return Field("Country"); }
  std::string ZipCode() { return Field("Zip_/_Postal_Code"); }
  std::string Last_id() const { return ""; }

  // Stores the text of a list order (0 to 7; "" for any other number). Nothing sends it on.
  void Key(std::int16_t n);
  const std::string& KeyText() const { return keyText_; }

  std::int16_t STATUS_ = kStatusOk;
  std::string ClassName = "clsClientsOLE";
  std::string KeyBuf;

 private:
  // WaitForMaximizer, then the field of the current client.
  std::string Field(const std::string& name);

  Tolmen& app_;
  std::string machDbId_;
  std::string seqNo_;
  std::string lastModifyDate_;
  std::string lastModifyTime_;
  std::string keyText_;
};

}  // namespace tolmen
