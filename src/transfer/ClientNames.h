// How the current Maximizer client is named on a Pastel account. All four read the client now
// selected through the client list class (clsClientsOLE), whose Name is "Last_Name", or
// "Client_Name" when that is empty, and whose Initial is always empty. Every value read is
// cleaned (cut at a NUL, tabs made blanks, trimmed) before use.
//
// Record types ("RecType"): 1 company, 2 individual, 31 and 32 contacts named like a person.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

// The client's record type, "RecType" read as a number.
long ClientRecordType(Tolmen& app);

// The name of the debtor: a company's Name; an individual's company, or LastFirstName when the
// company is empty or "Individual Client Names" is on (the company again when that is empty); a
// contact's LastFirstName. Any other type, and an empty result, give "?".
std::string ClientDisplayName(Tolmen& app);

// "Smith, Mr John": the last name, ", ", then Mr/Ms and First_Name each with a blank behind it
// when not empty; trimmed, a trailing comma cut ("Smith").
std::string LastFirstName(Tolmen& app);

// "Mr John Smith" for an individual (type 2), the first line of an address headed by the
// person's name; "" for every other type.
std::string AddressNameLine(Tolmen& app);

// The delivery contact, for types above 1: "Name, First_Name", or First_Name alone when that
// is longer than 16 characters. "" for a company.
std::string DeliveryContact(Tolmen& app);

}  // namespace tolmen
