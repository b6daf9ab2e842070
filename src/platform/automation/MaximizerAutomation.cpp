// The automation objects: each call is one round trip on the shared connection.
#include "platform/automation/MaximizerAutomation.h"

#include <unistd.h>

#include <cstdlib>

#include "platform/automation/MaxConnection.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"

namespace tolmen {

namespace {

using Args = std::vector<std::string>;

// The result of an accepted call, of the kind the call answers with. A reply of another kind
// means the two sides do not speak the same protocol.
// REQUIRES: reply is an object (MaxConnection::Call hands back nothing else).
nlohmann::json Result(const nlohmann::json& reply) {
  const auto found = reply.find("result");
  return found == reply.end() ? nlohmann::json() : *found;
}

std::string TextResult(const nlohmann::json& reply) {
  const nlohmann::json result = Result(reply);
  if (!result.is_string()) throw RuntimeError(kErrCallFailed, kTextCallFailed);
  return Utf8ToCp1252(result.get<std::string>());
}

bool BoolResult(const nlohmann::json& reply) {
  const nlohmann::json result = Result(reply);
  if (!result.is_boolean()) throw RuntimeError(kErrCallFailed, kTextCallFailed);
  return result.get<bool>();
}

int32_t LongResult(const nlohmann::json& reply) {
  const nlohmann::json result = Result(reply);
  if (!result.is_number_integer()) throw RuntimeError(kErrCallFailed, kTextCallFailed);
  return result.get<int32_t>();
}

}  // namespace

std::string MaximizerSocketPath() {
  const char* socket = std::getenv("MAXIMIZER_SOCKET");
  if (socket != nullptr && *socket != '\0') return socket;
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && *runtime != '\0') return std::string(runtime) + "/maximizer.sock";
  return "/tmp/maximizer-" + std::to_string(::getuid()) + ".sock";
}

// The attach object ----------------------------------------------------------------------------

std::unique_ptr<MaxAttachObject> MaxAttachObject::Attach(const std::string& socketPath,
                                                         Clock& clock) {
  return std::make_unique<MaxAttachObject>(
      std::make_shared<MaxConnection>(socketPath, clock, MaximizerReplyTimeout()));
}

MaxAttachObject::MaxAttachObject(std::shared_ptr<MaxConnection> connection)
    : connection_(std::move(connection)) {}

std::shared_ptr<MaxApplicationObject> MaxAttachObject::GetApplicationObject() {
  return std::make_shared<MaxApplicationObject>(connection_);
}

std::shared_ptr<MaxRecordObject> MaxAttachObject::GetCurrentRecordObject() {
  return std::make_shared<MaxRecordObject>(connection_);
}

// The application object -----------------------------------------------------------------------

MaxApplicationObject::MaxApplicationObject(std::shared_ptr<MaxConnection> connection)
    : connection_(std::move(connection)) {}

std::string MaxApplicationObject::GetCurrentDBPath() {
  // Nobody answered at attach time: a Maximizer with no database open.
  if (!connection_->Attached()) return "n/a";
  return TextResult(connection_->Call("GetCurrentDBPath", {}));
}

std::string MaxApplicationObject::GetDatabaseList() {
  return TextResult(connection_->Call("GetDatabaseList", {}));
}

bool MaxApplicationObject::GetBusyIndicator() {
  return BoolResult(connection_->Call("GetBusyIndicator", {}));
}

std::string MaxApplicationObject::GetVisibilityState() {
  return TextResult(connection_->Call("GetVisibilityState", {}));
}

void MaxApplicationObject::SetVisibilityState(const std::string& state) {
  connection_->Call("SetVisibilityState", Args{state});
}

void MaxApplicationObject::SetAlarm(const std::string& onOff) {
  connection_->Call("SetAlarm", Args{onOff});
}

void MaxApplicationObject::ActivateWindow(const std::string& window) {
  connection_->Call("ActivateWindow", Args{window});
}

std::string MaxApplicationObject::GetListOfUdf() {
  return TextResult(connection_->Call("GetListOfUdf", {}));
}

void MaxApplicationObject::ListOfCategories(const std::string& fileName,
                                            const std::string& quotedKey, const std::string& what) {
  connection_->Call("ListOfCategories", Args{fileName, quotedKey, what});
}

// The record object ----------------------------------------------------------------------------

MaxRecordObject::MaxRecordObject(std::shared_ptr<MaxConnection> connection)
    : connection_(std::move(connection)) {}

std::string MaxRecordObject::ReadField(const std::string& field) {
  return TextResult(connection_->Call("GetFieldValue", Args{field}));
}

RecordKey MaxRecordObject::CurrentKey() {
  return {ReadField("Identification"), ReadField("Contact_Number")};
}

std::string MaxRecordObject::GetFieldValue(const std::string& field) {
  if (kept_ && kept_->HoldsField(field))
    if (auto value = kept_->Find(CurrentKey(), field)) return *value;
  return ReadField(field);
}

void MaxRecordObject::SetFieldValue(const std::string& field, const std::string& value) {
  if (kept_) {
    kept_->Keep(CurrentKey(), field, value);
    return;
  }
  connection_->Call("SetFieldValue", Args{field, value});
}

int32_t MaxRecordObject::GetListCount() {
  return LongResult(connection_->Call("GetListCount", {}));
}

void MaxRecordObject::ListAll(const std::string& what) {
  connection_->Call("ListAll", Args{what});
}

void MaxRecordObject::ScrollList(const std::string& how) {
  connection_->Call("ScrollList", Args{how});
}

std::string MaxRecordObject::GetAddressList() {
  return TextResult(connection_->Call("GetAddressList", {}));
}

std::string MaxRecordObject::GetAddressID() {
  return TextResult(connection_->Call("GetAddressID", {}));
}

std::string MaxRecordObject::GetAddressField(std::string& id, const std::string& field) {
  const nlohmann::json reply = connection_->Call("GetAddressField", Args{id, field});
  const auto newId = reply.find("id");
  if (newId != reply.end() && newId->is_string()) id = Utf8ToCp1252(newId->get<std::string>());
  return TextResult(reply);
}

}  // namespace tolmen
