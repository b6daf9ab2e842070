// The description JSON that `maxsim init` reads and `maxsim dump` writes:
//
//   {"name": TEXT, "client_record_length": N (optional, default 3066),
//    "udfs": [{"name": TEXT, "type": "Table"|"Date"|"Numeric"|"Alphanumeric",
//              "items": [TEXT, ...] (Table only)}, ...],
//    "clients": [{"Identification": TEXT, "RecType": N, "Contact_Number": N, "Last_Name": TEXT,
//                 ... every automation field name of Model.h ...,
//                 "udfs": {UDF NAME: VALUE, ...},
//                 "addresses": [{"name": TEXT, "id": N, "main": BOOL, "division": TEXT,
//                                "address_line_1": TEXT, ...}, ...],
//                 "last_change": "YYYY-MM-DD HH:MM:SS" (optional)}, ...]}
//
// RecType, Contact_Number and Use_Client_Name are whole numbers (a text of digits is taken too);
// every other field is a text. A description is refused as a whole, with a message naming the
// fault, when it holds an unknown key, a UDF value that does not suit its type, two clients with
// the same key in the client file (the id's first 24 characters and the contact number), or two
// main addresses of one client.
#pragma once

#include <stdexcept>

#include <nlohmann/json.hpp>

#include "Model.h"

namespace tolmen::maxsim {

class DescriptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Clients without a "last_change" take `now`.
AddressBook ReadDescription(const nlohmann::ordered_json& description, double now);
// Empty fields are left out; RecType and Contact_Number always stand.
nlohmann::ordered_json WriteDescription(const AddressBook& book);

}  // namespace tolmen::maxsim
