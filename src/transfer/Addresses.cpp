#include "transfer/Addresses.h"

#include <vector>

#include "maximizer/OpenMaximizer.h"
#include "maximizer/UdfCatalogue.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "platform/automation/MaximizerAutomation.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "transfer/Categories.h"
#include "transfer/ClientNames.h"

namespace tolmen {
namespace {

constexpr long kPhoneWidth = 16;
constexpr long kEmailWidth = 50;
constexpr int kLines = 5;

// The fields of an address of the client's list of addresses, in the order they are added.
constexpr const char* kAddressFields[] = {
    "division",         "address_line_1", "address_line_2",   "city",
    "state_/_province", "country",        "zip_/_postal_code"};

bool IsAnyOf(const std::string& text, std::initializer_list<const char*> words) {
  for (const char* word : words)
    if (EqualsNoCase(text, word)) return true;
  return false;
}

std::string WithExtension(const PhoneEntry& entry) {
  return entry.extension.empty() ? entry.number : entry.number + " x " + entry.extension;
}

// The id of the address `choice` names among the client's addresses, or -1.
double FindAddressId(Tolmen& app, const std::string& choice) {
  MaxRecordObject& record = app.maximizer.Record();
  WaitForMaximizer(app);
  std::string list = record.GetAddressList();
  std::vector<std::string> names;
  std::vector<double> ids;
  while (!list.empty()) {
    std::string entry = PopField(list, "\r\n");
    names.push_back(PopField(entry, "|"));
    ids.push_back(Val(entry));
  }

  if (EqualsNoCase(choice, "<First Alternate>")) {
    WaitForMaximizer(app);
    const double mainId = Val(record.GetAddressID());
    for (const double id : ids)
      if (id != mainId) return id;
    return -1;
  }
  for (size_t i = 0; i < names.size(); ++i)
    if (EqualsNoCase(names[i], choice)) return ids[i];
  return -1;
}

void SetLines(PastelRecord& record, int firstField, const std::array<std::string, 5>& lines) {
  for (int i = 0; i < kLines; ++i) record.default_(firstField + i, lines[static_cast<size_t>(i)]);
}

void BlankLines(PastelRecord& record, int firstField) {
  for (int i = 0; i < kLines; ++i) record.default_(firstField + i, std::string());
}

void Debug(Tolmen& app, int above, const std::string& text) {
  if (app.shell.DebugLevel > above) LogEntry(app, 8, "# Debug: " + text);
}

}  // namespace

void AddAddressLine(Tolmen& app, const std::string& text) {
  const std::string cleaned = CleanText(text);
  if (cleaned.empty()) return;
  ClientState& client = app.client;
  ++client.AddressLineCount;
  if (client.AddressLineCount < kLines + 1) {
    client.AddressLines[static_cast<size_t>(client.AddressLineCount - 1)] = cleaned;
  } else {
    std::string& last = client.AddressLines[kLines - 1];
    last = Trim(last) + ", " + cleaned;
  }
}

void AddPostalLine(Tolmen& app, const std::string& text) {
  const std::string cleaned = CleanText(text);
  if (cleaned.empty()) return;
  ClientState& client = app.client;
  if (client.AddressLineCount < kLines) {
    ++client.AddressLineCount;
    client.AddressLines[static_cast<size_t>(client.AddressLineCount - 1)] = cleaned;
  } else {
    std::string& last = client.AddressLines[kLines - 1];
    last = cleaned + "  " + Trim(last);
  }
}

bool GetAddressLines(Tolmen& app, const std::string& choice, const std::string& firstLine) {
  ClientState& client = app.client;
  client.AddressLines.fill("");
  client.AddressLineCount = 0;
  if (!firstLine.empty()) AddAddressLine(app, firstLine);
  if (choice.empty()) return false;

  if (EqualsNoCase(choice, "<Selected>")) {
    clsClientsOLE& selected = app.maximizer.ClientList();
    AddAddressLine(app, selected.Division());
    AddAddressLine(app, selected.AddressLine1());
    AddAddressLine(app, selected.AddressLine2());
    AddAddressLine(app, selected.City());
    AddAddressLine(app, selected.State());
    AddAddressLine(app, selected.Country());
    AddPostalLine(app, selected.ZipCode());
    return true;
  }

  const double id = FindAddressId(app, choice);
  if (id < 0) return false;
  std::string idText = NumberText(id);
  MaxRecordObject& record = app.maximizer.Record();
  for (const char* field : kAddressFields) {
    WaitForMaximizer(app);
    AddAddressLine(app, record.GetAddressField(idText, field));
  }
  return true;
}

void DoDebtorContactInfo(Tolmen& app) {
  RunState& run = app.run;
  const RunOptions& options = app.options;
  pasDebtor& debtor = app.pastelFiles.Debtor();
  run.CurrentSection = "DoDebtorContactInfo";
  Debug(app, 1, "> DoDebtorContactInfo");

  debtor.default_(3, ClientDisplayName(app));
  if (options.CategoryFromUdf) GetPasCategoryCode(app);
  debtor.default_(1, Variant(run.CurrentCategoryNumber));
  run.CurrentSection = "DoDebtorContactInfo Addresses";

  std::string firstLine;
  switch (options.NameInAddress) {
    case 1:
      firstLine = AddressNameLine(app);
      break;
    case 2:
    case 3: {
      clsClientsOLE& client = app.maximizer.ClientList();
      const long type = ClientRecordType(app);
      if (type == 1)
        firstLine = client.Name();
      else if (type == 2)
        firstLine = client.Firm();
      break;
    }
    default:
      break;
  }
  if (GetAddressLines(app, options.PostalAddress, firstLine))
    SetLines(debtor, 56, app.client.AddressLines);
  else if (app.client.NewRecordFlag != 0)
    BlankLines(debtor, 56);

  const std::string vatNumber = GetClientField(app, options.VatNumber.index);
  if (!vatNumber.empty()) debtor.default_(62, vatNumber);
  debtor.default_(124, FormatDate(app.clock.Now(), "dd/mm/yyyy hh:mm:ss"));
  Debug(app, 3, "< DoDebtorContactInfo");
}

void DoDeliveryInfo(Tolmen& app, bool isNew) {
  pasDelivery& delivery = app.pastelFiles.Delivery();
  if (isNew) {
    for (int field : {4, 8, 9, 10, 11, 12, 5, 7, 6, 13}) delivery.default_(field, std::string());
    delivery.default_(1, app.pastelFiles.Debtor().default_(2));
    delivery.default_(2, "   ");
    delivery.default_(3, std::string());
  }
  const std::string contact = DeliveryContact(app);
  if (!contact.empty()) delivery.default_(4, contact);
  ClassifyPhones(app);
  if (GetAddressLines(app, app.options.DeliveryAddress, ""))
    SetLines(delivery, 8, app.client.AddressLines);
  else if (app.client.NewRecordFlag != 0)
    BlankLines(delivery, 8);
}

PhoneClasses ClassifyPhoneEntries(const std::array<PhoneEntry, 4>& entries) {
  PhoneClasses classes;
  for (const PhoneEntry& entry : entries) {
    if (entry.number.empty()) continue;
    const std::string& description = entry.description;
    if (IsAnyOf(description, {"TEL", "MAIN"})) {
      classes.telephone = WithExtension(entry);
    } else if (IsAnyOf(description, {"FAX"})) {
      classes.fax = WithExtension(entry);
    } else if (IsAnyOf(description, {"CEL", "CELL", "MOBIL", "MOB"})) {
      classes.cell = entry.number;
    } else if (IsAnyOf(description, {"EMAIL", "E-MAI"})) {
      classes.email = entry.number;
    } else {
      classes.other = WithExtension(entry);
      if (!description.empty()) classes.other += " (" + description.substr(0, 1) + ")";
    }
  }
  if (classes.telephone.empty()) classes.telephone = classes.other;
  return classes;
}

void ClassifyPhones(Tolmen& app) {
  clsClientsOLE& client = app.maximizer.ClientList();
  std::array<PhoneEntry, 4> entries;
  for (int n = 1; n <= 4; ++n) {
    PhoneEntry& entry = entries[static_cast<size_t>(n - 1)];
    entry.number = CleanText(client.Phone(n));
    if (entry.number.empty()) continue;
    entry.extension = CleanText(client.PhoneExtension(n));
    entry.description = CleanText(client.PhoneDescription(n));
  }
  const PhoneClasses classes = ClassifyPhoneEntries(entries);

  // The address book's own e-mail fields win over a phone entry described as e-mail, even when
  // they are empty.
  std::string email = GetClientField(app, 0, "E-mail Address");
  for (const char* further : {"E-mail Address 2", "E-mail Address 3"}) {
    if (!email.empty()) break;
    email = GetClientField(app, 0, further);
  }
  if (static_cast<long>(email.size()) > kEmailWidth) email = Left(email, kEmailWidth - 1) + "?";

  pasDelivery& delivery = app.pastelFiles.Delivery();
  delivery.default_(5, Left(classes.telephone, kPhoneWidth));
  delivery.default_(7, Left(classes.fax, kPhoneWidth));
  delivery.default_(6, Left(classes.cell, kPhoneWidth));
  delivery.default_(13, email);
}

}  // namespace tolmen
