// One running Maximizer as maxsim plays it: the open database, the current list and the window's
// states, and the answers to automation calls and control commands. Server.cpp feeds it one
// request at a time; nothing here touches a socket.
//
// Requests (one JSON object each):
//   {"call": NAME, "args": [TEXT...], "now": DATE}  an automation call (MaxConnection.h)
//   {"ctl": COMMAND, "args": [TEXT...]}            a control command of `maxsim ctl`
// Replies: {"ok": true, "result": ...} (GetAddressField adds "id") or {"ok": false, "error": TEXT}.
//
// Time: a call's "now" is the caller's clock; a request without one uses maxsim's own clock
// (TOLMEN_NOW when set). A list filled by `ctl list` starts to grow at the "now" of the first call
// after it, so that the growth is measured on the caller's clock too.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "ClientFile.h"
#include "Model.h"
#include "Store.h"

namespace tolmen {
class Clock;
}

namespace tolmen::maxsim {

class Session {
 public:
  // REQUIRES: clock outlives the session. `databaseListFile` is where GetDatabaseList writes.
  Session(Clock& clock, std::string databaseListFile);
  ~Session();

  // Opens the database folder, named as Windows-1252 text as the automation names it (closing
  // the one open); throws std::runtime_error when the folder
  // holds no address book, and then the open one stays.
  void Open(const std::string& folder);
  void Close();

  nlohmann::ordered_json Handle(const nlohmann::ordered_json& request);
  bool QuitRequested() const { return quit_; }
  // Work put off while calls come quickly; the server calls it before it waits.
  void WhenIdle();

 private:
  struct Database {
    std::string path;  // absolute, without a trailing "/"
    AddressBook book;
    std::unique_ptr<Store> store;
    std::unique_ptr<ClientFile> file;
  };
  using Args = std::vector<std::string>;
  using Json = nlohmann::ordered_json;

  Json Call(const std::string& name, const Args& args, double now);
  Json Control(const std::string& command, const Args& args);

  // The current list.
  void Fill(std::vector<size_t> places, std::optional<double> when);
  size_t VisibleCount(double now);
  std::optional<size_t> Current(double now);  // the current client's place
  std::vector<size_t> AllInNameOrder() const;

  std::string FieldValue(const Client& client, const std::string& name) const;
  void SetField(size_t place, const std::string& name, const std::string& value, double now);
  void WriteDatabaseList() const;
  void ListOfCategories(const std::string& file, const std::string& key, const std::string& what);
  Json State();
  void Journal(const std::string& name, const Args& args);

  Clock& clock_;
  std::string databaseListFile_;
  std::unique_ptr<Database> db_;
  std::vector<std::pair<std::string, std::string>> knownDatabases_;  // name, path

  std::vector<size_t> list_;        // places of the clients in the current list
  size_t position_ = 0;             // line of the current client
  std::optional<double> filledAt_;  // when the list was filled; empty until a call says
  bool fillPending_ = false;        // filled by a control command: the next call's now counts
  double listGrowSeconds_ = 0;      // how long this list grows
  double growSeconds_ = 0;          // how long lists filled from now on grow

  int64_t busy_ = 0;
  bool dialog_ = false;
  bool visible_ = true;
  bool alarm_ = true;
  std::string window_;
  std::optional<double> lastNow_;
  std::deque<std::string> journal_;
  bool quit_ = false;
};

}  // namespace tolmen::maxsim
