#include "transfer/ClientNames.h"

#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr long kContactWidth = 16;

clsClientsOLE& Client(Tolmen& app) {
  return app.maximizer.ClientList();
}

// `text` followed by one blank, or nothing when it is empty.
std::string WithBlank(const std::string& text) {
  return text.empty() ? "" : text + " ";
}

}  // namespace

long ClientRecordType(Tolmen& app) {
  return static_cast<long>(Val(Client(app).Rec_type()));
}

std::string ClientDisplayName(Tolmen& app) {
  clsClientsOLE& client = Client(app);
  std::string name;
  switch (ClientRecordType(app)) {
    case 1:
      name = CleanText(client.Name());
      break;
    case 2: {
      const std::string company = CleanText(client.Firm());
      if (company.empty() || app.options.IndividualClientNames) {
        name = LastFirstName(app);
        if (name.empty()) name = company;
      } else {
        name = company;
      }
      break;
    }
    case 31:
    case 32:
      name = LastFirstName(app);
      break;
    default:
      break;
  }
  return name.empty() ? "?" : name;
}

std::string LastFirstName(Tolmen& app) {
  clsClientsOLE& client = Client(app);
  std::string name = CleanText(client.Name()) + ", ";
  name += WithBlank(CleanText(client.Mr_Ms()));
  name += WithBlank(CleanText(client.FirstName()));
  name += WithBlank(client.Initial());
  name = Trim(name);
  if (!name.empty() && name.back() == ',') name.pop_back();
  return name;
}

std::string AddressNameLine(Tolmen& app) {
  if (ClientRecordType(app) != 2) return "";
  clsClientsOLE& client = Client(app);
  std::string line = CleanText(client.Name());
  line = WithBlank(client.Initial()) + line;
  line = WithBlank(CleanText(client.FirstName())) + line;
  line = WithBlank(CleanText(client.Mr_Ms())) + line;
  return Trim(line);
}

std::string DeliveryContact(Tolmen& app) {
  if (ClientRecordType(app) <= 1) return "";
  clsClientsOLE& client = Client(app);
  const std::string firstName = CleanText(client.FirstName());
  const std::string contact = CleanText(client.Name()) + ", " + firstName;
  return static_cast<long>(contact.size()) > kContactWidth ? firstName : contact;
}

}  // namespace tolmen
