#include "toolkit/quilletToolkit.h"

#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasHisDetail.h"
#include "pastel/pasHisHeader.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/StatusCatalogue.h"
#include "runtime/Conversion.h"
#include "runtime/Strings.h"

namespace tolmen {
namespace {

std::string WithSlash(const std::string& folder) {
  return Right(folder, 1) == "/" ? folder : folder + "/";
}

std::string Quoted(const std::string& path) {
  return "\"" + path + "\"";
}

template <typename T>
T& Lazy(Tolmen& app, std::unique_ptr<T>& object) {
  if (!object) object = std::make_unique<T>(app);
  return *object;
}

template <typename T>
void CloseAndReset(std::unique_ptr<T>& object) {
  if (object && object->IsOpen) object->CLOSE_();
  object.reset();
}

}  // namespace

quilletToolkit::quilletToolkit(Tolmen& app) : app_(app) {}
quilletToolkit::~quilletToolkit() = default;

pasDcodeFile& quilletToolkit::CategoryFile() {
  return Lazy(app_, category_);
}
pasDebtor& quilletToolkit::DebtorFile() {
  return Lazy(app_, debtor_);
}
pasHisHeader& quilletToolkit::HistoryHeader() {
  return Lazy(app_, header_);
}
pasHisDetail& quilletToolkit::HistoryDetail() {
  return Lazy(app_, detail_);
}

std::string quilletToolkit::SetDataPath(const std::string& folder) {
  DataPath = WithSlash(folder);
  pasDcodeFile& category = CategoryFile();
  if (category.IsOpen) category.CLOSE_();
  category.FileName = Quoted(DataPath + "ACCDCAT.DAT");
  pasDebtor& debtor = DebtorFile();
  if (debtor.IsOpen) debtor.CLOSE_();
  debtor.FileName = Quoted(DataPath + "ACCMASD.DAT");
  debtor.OPEN_();
  const std::string result = std::to_string(debtor.STATUS_);
  if (debtor.IsOpen) debtor.CLOSE_();
  return result;
}

std::string quilletToolkit::SetGLPath(const std::string& folder) {
  GLPath = WithSlash(folder);
  return "";
}

bool quilletToolkit::OpenObject(std::string& tableName, PastelRecord*& object) {
  tableName = UCase(tableName);
  if (tableName == "ACCDCAT.DAT" || tableName == "ACCDCAT")
    object = &CategoryFile();
  else if (tableName == "ACCMASD.DAT" || tableName == "ACCMASD")
    object = &DebtorFile();
  else
    return false;
  if (!object->IsOpen) object->OPEN_();
  return true;
}

std::int32_t quilletToolkit::NumberOfRecords(std::string& tableName) {
  if (DataPath.empty()) return 0;
  PastelRecord* object = nullptr;
  if (!OpenObject(tableName, object)) return -1;
  return object->RecordCount();
}

std::string quilletToolkit::GetNearest(std::string& tableName, std::int16_t keyNumber,
                                       std::string& keyValue) {
  PastelRecord* object = nullptr;
  if (!OpenObject(tableName, object)) return "1|";
  object->KeyNum = keyNumber;
  object->GET_NEAREST(keyValue);
  keyValue = object->KeyBuf;
  const std::int16_t status = object->STATUS_;
  if (status == kStatusOk) return "0|" + RecordString(*object);
  return "90|" + std::to_string(status) + " " + StatusText(status);
}

std::string quilletToolkit::GetNext(std::string& tableName, std::int16_t keyNumber) {
  PastelRecord* object = nullptr;
  if (!OpenObject(tableName, object)) return "11|";
  if (!object->IsOpen) return "3|";
  object->KeyNum = keyNumber;
  object->GET_NEXT();
  if (object->STATUS_ == kStatusOk) return "0|" + RecordString(*object);
  return std::to_string(object->STATUS_) + "|";
}

std::string quilletToolkit::GetRecord(std::string& tableName, std::int16_t keyNumber,
                                      std::string& keyValue) {
  PastelRecord* object = nullptr;
  if (!OpenObject(tableName, object)) return "11|";
  object->KeyNum = keyNumber;
  object->GET_EQUAL(keyValue);
  if (object->STATUS_ == kStatusOk) return "0|" + RecordString(*object);
  return std::to_string(object->STATUS_) + "|";
}

std::string quilletToolkit::GetField(std::string& tableName, std::int16_t keyNumber,
                                     std::string& keyValue, std::int32_t& fieldNumber) {
  PastelRecord* object = nullptr;
  if (!OpenObject(tableName, object)) return "11|";
  object->KeyNum = keyNumber;
  object->GET_EQUAL(keyValue);
  if (object->STATUS_ == kStatusOk) return "0|" + CStr(object->default_(fieldNumber));
  return std::to_string(object->STATUS_) + "|";
}

std::string quilletToolkit::GetPassword(std::string& /*password*/) {
  return "";
}

std::string quilletToolkit::RecordString(PastelRecord& object) {
  std::vector<std::string> fields;
  for (std::int32_t field = 1; field <= object.MaxFields(); ++field)
    fields.push_back(CStr(object.default_(field)));
  return Trim(Join(fields, "|"));
}

void quilletToolkit::CloseAndRelease() {
  CloseAndReset(debtor_);
  CloseAndReset(header_);
  CloseAndReset(detail_);
}

void quilletToolkit::Class_Initialize() {
  CloseAndRelease();
}
void quilletToolkit::Class_Terminate() {
  CloseAndRelease();
}

}  // namespace tolmen
