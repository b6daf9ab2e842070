// Tolmen's side of the automation link to a running Maximizer (on Linux the stand-in `maxsim`):
// the attach object, the application object and the record object of the current list. Every call
// is one round trip over a Unix socket; all texts in and out are Windows-1252.
//
// Errors: when the instance dies or stops answering during a call, or is gone when an attached
// object next calls it, the call throws RuntimeError 462 "The remote server machine does not exist
// or is unavailable" (nothing to connect to, or the connection was lost before the request went
// out) or -2147023170 "Automation error: The remote procedure call failed." (the request went out
// but no whole answer came back within the reply timeout). A call that maxsim refuses throws
// RuntimeError 440 with maxsim's text. Only Attach meets "not running": objects made when nobody
// answered report GetCurrentDBPath "n/a" and throw 462 from every other call. The reply timeout is
// 5 seconds of real time ($MAXIMIZER_TIMEOUT, in seconds, changes it for tests).
//
// Texts that hold lines (GetListOfUdf, GetAddressList, the files GetDatabaseList and
// ListOfCategories write) end each line with CR LF, as the Windows product does. A database path
// is the absolute folder without a trailing "/" (the client file is path + "/MXZC.MAX"), the same
// in GetCurrentDBPath and in the database list file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/automation/KeptWrites.h"

namespace tolmen {

class Clock;
class MaxConnection;

// Where Tolmen and maxsim meet: $MAXIMIZER_SOCKET, else $XDG_RUNTIME_DIR/maximizer.sock, else
// /tmp/maximizer-<uid>.sock.
std::string MaximizerSocketPath();

class MaxApplicationObject {  // the application object
 public:
  explicit MaxApplicationObject(std::shared_ptr<MaxConnection> connection);
  std::string GetCurrentDBPath();  // "n/a" when no database is open or nobody answers
  std::string GetDatabaseList();   // the name of a text file "name,path" per line, or "error"
  bool GetBusyIndicator();
  std::string GetVisibilityState();
  void SetVisibilityState(const std::string& state);
  void SetAlarm(const std::string& onOff);
  void ActivateWindow(const std::string& window);
  std::string GetListOfUdf();  // "name,type word" lines
  void ListOfCategories(const std::string& fileName, const std::string& quotedKey,
                        const std::string& what);  // writes a Table UDF's items, one a line

 private:
  std::shared_ptr<MaxConnection> connection_;
};

class MaxRecordObject {  // the record object of the current list
 public:
  explicit MaxRecordObject(std::shared_ptr<MaxConnection> connection);
  std::string GetFieldValue(const std::string& field);
  void SetFieldValue(const std::string& field, const std::string& value);
  int32_t GetListCount();
  void ListAll(const std::string& what);
  void ScrollList(const std::string& how);  // "Top" or "LineDown"
  std::string GetAddressList();             // "name|id" entries each ended by CR LF
  std::string GetAddressID();
  std::string GetAddressField(std::string& id, const std::string& field);  // id by reference

  // The current record's Identification and Contact_Number, as Maximizer has them.
  RecordKey CurrentKey();
  // From now on SetFieldValue keeps its writes in `kept` instead of sending them, and
  // GetFieldValue answers a field kept for the current record from there (a preview).
  void KeepWritesIn(std::shared_ptr<KeptWrites> kept) { kept_ = std::move(kept); }

 private:
  std::string ReadField(const std::string& field);

  std::shared_ptr<MaxConnection> connection_;
  std::shared_ptr<KeptWrites> kept_;
};

class MaxAttachObject {  // "Maximizer.AttachToCurrentInstance"
 public:
  // Never fails: when nobody answers at the socket the objects still come into being and answer
  // as a Maximizer with no database open (GetCurrentDBPath "n/a").
  // REQUIRES: clock outlives the attach object and every object it hands out.
  static std::unique_ptr<MaxAttachObject> Attach(const std::string& socketPath, Clock& clock);
  std::shared_ptr<MaxApplicationObject> GetApplicationObject();
  std::shared_ptr<MaxRecordObject> GetCurrentRecordObject();

  explicit MaxAttachObject(std::shared_ptr<MaxConnection> connection);

 private:
  std::shared_ptr<MaxConnection> connection_;
};

}  // namespace tolmen
