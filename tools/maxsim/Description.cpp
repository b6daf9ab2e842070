// Reading and writing the description JSON.
#include "Description.h"

#include <set>
#include <utility>

#include "platform/ui/Clock.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Format.h"

namespace tolmen::maxsim {

namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void Fail(const std::string& text) {
  throw DescriptionError(text);
}

std::string Text(const Json& value, const std::string& what) {
  if (!value.is_string()) Fail(what + " must be a text");
  return Utf8ToCp1252(value.get<std::string>());
}

// A whole number given as a number or as a text of digits.
std::string WholeNumber(const Json& value, const std::string& what) {
  if (value.is_number_integer()) return std::to_string(value.get<int64_t>());
  if (value.is_string()) {
    const std::string text = value.get<std::string>();
    const ParsedNumber number = ParseNumberText(text);
    if (number.kind == NumberTextKind::Number && !number.radix &&
        number.value == static_cast<double>(static_cast<int64_t>(number.value)))
      return std::to_string(static_cast<int64_t>(number.value));
  }
  Fail(what + " must be a whole number");
}

int32_t ReadInt(const Json& value, const std::string& what, int64_t low, int64_t high) {
  if (!value.is_number_integer()) Fail(what + " must be a whole number");
  const int64_t number = value.get<int64_t>();
  if (number < low || number > high)
    Fail(what + " must lie between " + std::to_string(low) + " and " + std::to_string(high));
  return static_cast<int32_t>(number);
}

Udf ReadUdf(const Json& json) {
  if (!json.is_object()) Fail("each UDF must be an object");
  Udf udf;
  for (const auto& [key, value] : json.items()) {
    if (key == "name") {
      udf.name = Text(value, "a UDF's name");
    } else if (key == "type") {
      const auto type = ParseUdfType(Text(value, "a UDF's type"));
      if (!type) Fail("UDF type " + value.dump() + " is not Table, Date, Numeric or Alphanumeric");
      udf.type = *type;
    } else if (key == "items") {
      if (!value.is_array()) Fail("a UDF's items must be a list");
      for (const Json& item : value) udf.items.push_back(Text(item, "a table item"));
    } else {
      Fail("unknown key \"" + key + "\" in a UDF");
    }
  }
  if (udf.name.empty()) Fail("a UDF has no name");
  if (udf.type != UdfType::Table && !udf.items.empty())
    Fail("UDF " + Cp1252ToUtf8(udf.name) + " has items but is not a Table");
  return udf;
}

Address ReadAddress(const Json& json, const std::string& client) {
  if (!json.is_object()) Fail("each address of " + client + " must be an object");
  Address address;
  bool hasId = false;
  for (const auto& [key, value] : json.items()) {
    if (key == "name") {
      address.name = Text(value, "an address name");
    } else if (key == "id") {
      address.id = ReadInt(value, "an address id", 0, INT32_MAX);
      hasId = true;
    } else if (key == "main") {
      if (!value.is_boolean()) Fail("\"main\" of an address must be true or false");
      address.main = value.get<bool>();
    } else {
      size_t field = 0;
      while (field < kAddressFields.size() && key != kAddressFields[field]) ++field;
      if (field == kAddressFields.size())
        Fail("unknown key \"" + key + "\" in an address of " + client);
      address.fields[field] = Text(value, key);
    }
  }
  if (!hasId) Fail("an address of " + client + " has no id");
  return address;
}

Client ReadClient(const Json& json, const AddressBook& book, double now) {
  if (!json.is_object()) Fail("each client must be an object");
  Client client;
  client.udfs.assign(book.udfs.size(), std::string());
  client.lastChange = now;
  client.fields[kFieldContact] = "0";
  const std::string who = json.contains("Identification") ? json["Identification"].dump() : "?";
  for (const auto& [key, value] : json.items()) {
    if (key == "udfs") {
      if (!value.is_object()) Fail("\"udfs\" of client " + who + " must be an object");
      for (const auto& [name, udfValue] : value.items()) {
        const auto udf = book.FindUdf(Utf8ToCp1252(name));
        if (!udf) Fail("client " + who + " names an unknown UDF \"" + name + "\"");
        const std::string given = udfValue.is_number() ? NumberText(udfValue.get<double>())
                                                       : Text(udfValue, "a UDF value");
        const auto stored = UdfValue(book.udfs[*udf], given);
        if (!stored) Fail("client " + who + ": " + udfValue.dump() + " does not suit UDF " + name);
        client.udfs[*udf] = *stored;
      }
    } else if (key == "addresses") {
      if (!value.is_array()) Fail("\"addresses\" of client " + who + " must be a list");
      std::set<int32_t> ids;
      bool hasMain = false;
      for (const Json& entry : value) {
        client.addresses.push_back(ReadAddress(entry, who));
        if (!ids.insert(client.addresses.back().id).second)
          Fail("client " + who + " has two addresses with the same id");
        if (client.addresses.back().main && std::exchange(hasMain, true))
          Fail("client " + who + " has two main addresses");
      }
    } else if (key == "last_change") {
      if (!ParseClockTime(Text(value, "last_change"), client.lastChange))
        Fail("last_change of client " + who + " is not \"YYYY-MM-DD HH:MM:SS\"");
    } else if (key == kClientFields[kFieldRecType] || key == kClientFields[kFieldContact] ||
               key == kClientFields[kFieldUseClientName]) {
      const size_t field = *FindField(key);
      client.fields[field] = WholeNumber(value, key);
      if (field == kFieldContact &&
          (Val(client.fields[field]) < 0 || Val(client.fields[field]) > 32767))
        Fail("Contact_Number of client " + who + " must lie between 0 and 32767");
    } else {
      const auto field = FindField(key);
      if (!field || key != kClientFields[*field]) Fail("unknown key \"" + key + "\" in a client");
      client.fields[*field] = Text(value, key);
    }
  }
  if (client.Id().empty()) Fail("a client has no Identification");
  if (client.fields[kFieldRecType].empty()) Fail("client " + who + " has no RecType");
  return client;
}

}  // namespace

AddressBook ReadDescription(const Json& description, double now) {
  if (!description.is_object()) Fail("the description must be a JSON object");
  AddressBook book;
  // UDFs first: client values are checked against them.
  if (description.contains("udfs")) {
    const Json& udfs = description["udfs"];
    if (!udfs.is_array()) Fail("\"udfs\" must be a list");
    for (const Json& entry : udfs) {
      book.udfs.push_back(ReadUdf(entry));
      if (book.FindUdf(book.udfs.back().name) != book.udfs.size() - 1)
        Fail("two UDFs are named " + Cp1252ToUtf8(book.udfs.back().name));
    }
  }
  std::set<std::pair<std::string, int16_t>> keys;
  for (const auto& [key, value] : description.items()) {
    if (key == "name") {
      book.name = Text(value, "the name");
    } else if (key == "client_record_length") {
      book.recordLength = static_cast<uint16_t>(
          ReadInt(value, "client_record_length", kMinRecordLength, UINT16_MAX));
    } else if (key == "clients") {
      if (!value.is_array()) Fail("\"clients\" must be a list");
      for (const Json& entry : value) {
        book.clients.push_back(ReadClient(entry, book, now));
        const Client& client = book.clients.back();
        if (!keys.emplace(client.Id().substr(0, 24), client.ContactNumber()).second)
          Fail("two clients have the key " + Cp1252ToUtf8(client.Id().substr(0, 24)) +
               " with contact number " + std::to_string(client.ContactNumber()));
      }
    } else if (key != "udfs") {
      Fail("unknown key \"" + key + "\" in the description");
    }
  }
  return book;
}

Json WriteDescription(const AddressBook& book) {
  Json out;
  out["name"] = Cp1252ToUtf8(book.name);
  if (book.recordLength != kDefaultRecordLength) out["client_record_length"] = book.recordLength;
  out["udfs"] = Json::array();
  for (const Udf& udf : book.udfs) {
    Json entry = {{"name", Cp1252ToUtf8(udf.name)}, {"type", UdfTypeWord(udf.type)}};
    if (udf.type == UdfType::Table) {
      entry["items"] = Json::array();
      for (const std::string& item : udf.items) entry["items"].push_back(Cp1252ToUtf8(item));
    }
    out["udfs"].push_back(entry);
  }
  out["clients"] = Json::array();
  for (const Client& client : book.clients) {
    Json entry;
    for (size_t field = 0; field < kFieldCount; ++field) {
      const std::string& value = client.fields[field];
      if (value.empty()) continue;
      if (IsNumericField(field))
        entry[kClientFields[field]] = static_cast<int64_t>(Val(value));
      else
        entry[kClientFields[field]] = Cp1252ToUtf8(value);
    }
    Json udfs = Json::object();
    for (size_t i = 0; i < book.udfs.size(); ++i)
      if (!client.udfs[i].empty())
        udfs[Cp1252ToUtf8(book.udfs[i].name)] = Cp1252ToUtf8(client.udfs[i]);
    if (!udfs.empty()) entry["udfs"] = udfs;
    if (!client.addresses.empty()) {
      entry["addresses"] = Json::array();
      for (const Address& address : client.addresses) {
        Json a = {{"name", Cp1252ToUtf8(address.name)}, {"id", address.id}, {"main", address.main}};
        for (size_t f = 0; f < kAddressFields.size(); ++f)
          if (!address.fields[f].empty()) a[kAddressFields[f]] = Cp1252ToUtf8(address.fields[f]);
        entry["addresses"].push_back(a);
      }
    }
    entry["last_change"] = FormatDate(client.lastChange, "yyyy-mm-dd hh:nn:ss");
    out["clients"].push_back(entry);
  }
  return out;
}

}  // namespace tolmen::maxsim
