// An address book as maxsim holds it in memory: its UDF definitions and its client records. All
// texts are Windows-1252; JSON and the SQLite store hold them as UTF-8.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolmen::maxsim {

// The automation names of a client record's own fields, in the order a description lists them.
// The first three are the record's identity and type; a caller cannot change them.
inline constexpr std::array<const char*, 33> kClientFields = {"Identification",
                                                              "RecType",
                                                              "Contact_Number",
                                                              "Last_Name",
                                                              "Client_Name",
                                                              "First_Name",
                                                              "Mr/Ms",
                                                              "Salutation",
                                                              "company",
                                                              "Division",
                                                              "Address_Line_1",
                                                              "Address_Line_2",
                                                              "City",
                                                              "State_/_Province",
                                                              "Country",
                                                              "Zip_/_Postal_Code",
                                                              "Phone_1",
                                                              "Phone_1_Extension",
                                                              "Phone_1_Description",
                                                              "Phone_2",
                                                              "Phone_2_Extension",
                                                              "Phone_2_Description",
                                                              "Phone_3",
                                                              "Phone_3_Extension",
                                                              "Phone_3_Description",
                                                              "Phone_4",
                                                              "Phone_4_Extension",
                                                              "Phone_4_Description",
                                                              "E-mail Address",
                                                              "E-mail Address 2",
                                                              "E-mail Address 3",
                                                              "Owner",
                                                              "Use_Client_Name"};
inline constexpr size_t kFieldCount = kClientFields.size();
enum FieldIndex : size_t {
  kFieldId = 0,
  kFieldRecType = 1,
  kFieldContact = 2,
  kFieldLastName = 3,
  kFieldClientName = 4,
  kFieldFirstName = 5,
  kFieldMrMs = 6,
  kFieldSalutation = 7,
  kFieldCompany = 8,
  kFieldDivision = 9,
  kFieldAddress1 = 10,
  kFieldPhone1 = 16,  // each phone: number, extension, description
  kFieldOwner = 31,
  kFieldUseClientName = 32,
};
// RecType, Contact_Number and Use_Client_Name are whole numbers.
bool IsNumericField(size_t field);
// The field's index for an automation name, compared without regard to case; nullopt if none.
std::optional<size_t> FindField(const std::string& name);

// The address fields, as GetAddressField names them.
inline constexpr std::array<const char*, 7> kAddressFields = {
    "division",         "address_line_1", "address_line_2",   "city",
    "state_/_province", "country",        "zip_/_postal_code"};

enum class UdfType : uint8_t { Table, Date, Numeric, Alphanumeric };
// "Table", "Date", "Numeric", "Alphanumeric"; ParseUdfType ignores case.
const char* UdfTypeWord(UdfType type);
std::optional<UdfType> ParseUdfType(const std::string& word);

struct Udf {
  std::string name;
  UdfType type = UdfType::Alphanumeric;
  std::vector<std::string> items;  // a Table's choices
};

// The stored form of a value for the UDF, or nullopt when the value does not suit its type.
// "" always suits (it clears the field). Table: one of the items, without regard to case (the
// item's spelling is stored). Date: any date the system's recogniser reads, stored as
// "dd mmm yyyy". Numeric: a plain decimal number, stored in its plain text form. Alphanumeric:
// anything.
std::optional<std::string> UdfValue(const Udf& udf, const std::string& value);

struct Address {
  int32_t id = 0;
  std::string name;
  bool main = false;
  std::array<std::string, kAddressFields.size()> fields;
};

struct Client {
  std::array<std::string, kFieldCount> fields;
  std::vector<std::string> udfs;  // by the UDF's place in the definitions; "" when not set
  std::vector<Address> addresses;
  double lastChange = 0;  // date value of the last change

  const std::string& Id() const { return fields[kFieldId]; }
  int16_t ContactNumber() const;
  // Last_Name, or Client_Name when that is empty: the record's name.
  const std::string& Name() const;
};

constexpr uint16_t kDefaultRecordLength = 3066;
// The named fields of a client record end here; a record is never shorter.
constexpr uint16_t kMinRecordLength = 1750;

struct AddressBook {
  std::string name;
  uint16_t recordLength = kDefaultRecordLength;
  std::vector<Udf> udfs;
  std::vector<Client> clients;  // in the description's order; the place + 1 is the sequence number

  // The UDF's place for a name, compared without regard to case; nullopt if none.
  std::optional<size_t> FindUdf(const std::string& udfName) const;
};

}  // namespace tolmen::maxsim
