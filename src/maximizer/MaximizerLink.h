// The link to the running Maximizer as the process holds it: the attach, application and record
// objects (empty while not attached), the database last accepted, the state of the client list
// during a run, and the two objects over Maximizer's data: the client file and the client list.
//
// Life: OpenMaximizerOLE attaches (and lets go when Maximizer is not there or the link fails);
// the objects then stay attached between runs until CloseClientList releases them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "maximizer/MaxClients.h"
#include "maximizer/clsClientsOLE.h"
#include "platform/automation/KeptWrites.h"

namespace tolmen {

class Tolmen;
class MaxAttachObject;
class MaxApplicationObject;
class MaxRecordObject;

// One UDF write of SetClientField: the client's key, the value the UDF held before, the value
// written and the value Maximizer holds afterwards (it may store a value in its own form, or
// refuse it).
struct UdfWrite {
  RecordKey record;
  std::string udf;
  std::string before;
  std::string written;
  std::string stored;
};

class MaximizerLink {
 public:
  // REQUIRES: `app` outlives the link.
  explicit MaximizerLink(Tolmen& app);
  ~MaximizerLink();
  MaximizerLink(const MaximizerLink&) = delete;
  MaximizerLink& operator=(const MaximizerLink&) = delete;

  bool Attached() const { return attach_ != nullptr; }
  // Creates the attach object at MaximizerSocketPath() and fetches the application and record
  // objects. Never fails: with nobody there the objects answer as a Maximizer without database.
  void Attach();
  // Lets go of the application, record and attach objects, in this order.
  void Release();
  // The objects; RuntimeError 91 "Object variable or With block variable not set" while not
  // attached, as a call on an empty object always gave.
  MaxApplicationObject& Application();
  MaxRecordObject& Record();

  MaxClients& ClientFile() { return clientFile_; }
  clsClientsOLE& ClientList() { return clientList_; }

  // The database last accepted (also in txtDatabaseName and txtDatabasePath). A name of one
  // blank stands for a database whose name Maximizer's list did not hold.
  std::string DatabaseName;
  std::string DatabasePath;
  // The number of "LineDown" calls made since OpenClientList, and the list's final count.
  std::int32_t ListPosition = 0;
  std::int32_t ListCount = 0;
  // Maximizer's visibility state when the run began.
  std::string VisibilityState;

  // Hooks that the layers above set (the link knows no run):
  // with keptWrites, every record object attached from then on keeps its field writes there
  // instead of sending them (a preview);
  std::shared_ptr<KeptWrites> keptWrites;
  // with udfWritten, SetClientField reads the client's key and the UDF's value before the write
  // and its value after it, and reports the write (the run journal).
  std::function<void(const UdfWrite&)> udfWritten;

 private:
  Tolmen& app_;
  std::unique_ptr<MaxAttachObject> attach_;
  std::shared_ptr<MaxApplicationObject> application_;
  std::shared_ptr<MaxRecordObject> record_;
  MaxClients clientFile_;
  clsClientsOLE clientList_;
};

}  // namespace tolmen
