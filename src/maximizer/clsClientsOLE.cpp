#include "maximizer/clsClientsOLE.h"

#include "maximizer/MaxClients.h"
#include "maximizer/OpenMaximizer.h"
#include "platform/automation/MaximizerAutomation.h"
#include "platform/recordmanager/BtrCodes.h"
#include "runtime/Conversion.h"
#include "runtime/RuntimeError.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

// The list orders Key(n) names.
constexpr const char* kOrders[] = {
    "ORDER BY client_id, contact_number",
    "ORDER BY name, name_type",
    "ORDER BY city",
    "ORDER BY state_province",
    "ORDER BY zip_code",
    "ORDER BY firm",
    "ORDER BY reverse_phone_1",
    "ORDER BY data_machine_id, sequence_number",
};

std::string PhoneName(int n, const char* suffix) {
  if (n < 1 || n > 4) throw RuntimeError(9);
  return "Phone_" + std::to_string(n) + suffix;
}

}  // namespace

clsClientsOLE::clsClientsOLE(Tolmen& app) : app_(app) {}

std::string clsClientsOLE::Field(const std::string& name) {
  WaitForMaximizer(app_);
  return app_.maximizer.Record().GetFieldValue(name);
}

void clsClientsOLE::IO(std::int32_t operation) {
  MaximizerLink& link = app_.maximizer;
  switch (operation) {
    case kOpGetEqual:
      GetClientValues();
      break;
    case kOpGetNext:
      if (link.ListPosition < link.ListCount) {
        WaitForMaximizer(app_);
        link.Record().ScrollList("LineDown");
        ++link.ListPosition;
        GetClientValues();
      } else {
        STATUS_ = kStatusEndOfFile;
      }
      break;
    case kOpGetFirst:
      WaitForMaximizer(app_);
      link.Record().ScrollList("Top");
      GetClientValues();
      break;
    default:
      LogError(app_, "Unknown Call: " + std::to_string(operation) + " To clsClientsOLE Class.");
  }
}

void clsClientsOLE::GetClientValues() {
  app_.run.CurrentSection = "Sub GetClientValues (ClientSearch)";
  MaxClients& file = app_.maximizer.ClientFile();
  file.KeyNumber(0);
  file.IO(kOpGetEqual, MaxClientKey(Clie_id()));
  // The status is not looked at: a client not found keeps the values of the last one found.
  machDbId_ = std::to_string(file.mach_db_id());
  seqNo_ = std::to_string(file.seq_no());
  lastModifyDate_ = file.LastModifyDate();
  lastModifyTime_ = CStr(Variant::FromDate(file.LastModifyTime()));
  STATUS_ = kStatusOk;
  app_.run.CurrentSection = "after Sub GetClientValues";
}

void clsClientsOLE::FOpen(const std::string& /*fileName*/) {
  WaitForMaximizer(app_);
  app_.maximizer.Record().ScrollList("Top");
}

std::int32_t clsClientsOLE::RecordCount() const {
  return app_.maximizer.ListCount;
}

double clsClientsOLE::Cont_no() {
  return Val(Field("Contact_Number"));
}

std::string clsClientsOLE::Name() {
  std::string name = Field("Last_Name");
  if (name.empty()) name = Field("Client_Name");
  return name;
}

std::string clsClientsOLE::Phone(int n) {
  return Field(PhoneName(n, ""));
}

std::string clsClientsOLE::PhoneExtension(int n) {
  return Field(PhoneName(n, "_Extension"));
}

std::string clsClientsOLE::PhoneDescription(int n) {
  return Field(PhoneName(n, "_Description"));
}

double clsClientsOLE::UseClientName() {
  return Val(Field("Use_Client_Name"));
}

void clsClientsOLE::Key(std::int16_t n) {
  keyText_ = n >= 0 && n < static_cast<std::int16_t>(std::size(kOrders)) ? kOrders[n] : "";
}

}  // namespace tolmen
