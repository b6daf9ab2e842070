// The one connection that the attach, application and record objects of an attachment share:
// a Unix stream socket to maxsim, one JSON object per line each way, one round trip per call.
//
// Request:  {"call": NAME, "args": [TEXT, ...], "now": DATE}
// Reply:    {"ok": true, "result": TEXT | BOOL | NUMBER [, "id": TEXT]}
//           {"ok": false, "error": TEXT}
// Texts are UTF-8 on the wire and Windows-1252 on either side of it. "now" is the caller's clock
// (days since 30 December 1899); maxsim measures its time-based behaviour against it.
#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/automation/SpinBudget.h"

namespace tolmen {

class Clock;

// Error numbers the link raises (RuntimeError), with their classic texts.
constexpr int kErrServerUnavailable = 462;   // nobody to send the request to
constexpr int kErrCallFailed = -2147023170;  // the request went out, no whole answer came back
constexpr int kErrAutomation = 440;          // maxsim refused the call
inline constexpr const char* kTextServerUnavailable =
    "The remote server machine does not exist or is unavailable";
inline constexpr const char* kTextCallFailed =
    "Automation error: The remote procedure call failed.";

class MaxConnection {
 public:
  // Connects at once; a failed connect leaves a connection that was never attached.
  // REQUIRES: clock outlives the connection.
  MaxConnection(const std::string& socketPath, Clock& clock, double replyTimeoutSeconds);
  MaxConnection(const MaxConnection&) = delete;
  MaxConnection& operator=(const MaxConnection&) = delete;
  ~MaxConnection();

  // True when the connect reached a listening maxsim.
  bool Attached() const { return attached_; }

  // One round trip. Returns the reply object of an accepted call. Throws RuntimeError as the
  // header MaximizerAutomation.h describes; after a lost connection every later call throws 462.
  // REQUIRES: the arguments are Windows-1252.
  nlohmann::json Call(const std::string& name, const std::vector<std::string>& args);

 private:
  void Send(const std::string& line);
  std::string ReadLine();
  void Drop();

  int fd_ = -1;
  bool attached_ = false;
  Clock& clock_;
  double replyTimeoutSeconds_;
  std::string pending_;  // bytes read past the last reply line
  SpinBudget spin_;
};

// The reply timeout: $MAXIMIZER_TIMEOUT seconds when it is a positive number, else 5.
double MaximizerReplyTimeout();

}  // namespace tolmen
