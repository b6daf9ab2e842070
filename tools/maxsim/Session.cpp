// The automation calls and control commands of one maxsim instance.
#include "Session.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "platform/ui/Clock.h"
#include "runtime/Conversion.h"
#include "runtime/Cp1252.h"
#include "runtime/DateTime.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"

namespace tolmen::maxsim {

namespace {

constexpr size_t kJournalLimit = 100000;  // the oldest entries go beyond this
constexpr double kSecondsPerDay = 86400.0;

// A refused call or command: the reply carries the text.
class Refused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct CallShape {
  const char* name;
  size_t args;
};
constexpr CallShape kCalls[] = {{"GetCurrentDBPath", 0},
                                {"GetDatabaseList", 0},
                                {"GetBusyIndicator", 0},
                                {"GetVisibilityState", 0},
                                {"SetVisibilityState", 1},
                                {"SetAlarm", 1},
                                {"ActivateWindow", 1},
                                {"GetListOfUdf", 0},
                                {"ListOfCategories", 3},
                                {"GetFieldValue", 1},
                                {"SetFieldValue", 2},
                                {"GetListCount", 0},
                                {"ListAll", 1},
                                {"ScrollList", 1},
                                {"GetAddressList", 0},
                                {"GetAddressID", 0},
                                {"GetAddressField", 2}};

// A database folder as the automation names it (Windows-1252 text), made absolute.
std::string FolderPath(const std::string& folder) {
  std::string path =
      Utf8ToCp1252(std::filesystem::absolute(SystemPath(folder)).lexically_normal().string());
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

// A whole number of at least 0, or nullopt.
std::optional<int64_t> Count(const std::string& text) {
  const ParsedNumber number = ParseNumberText(text);
  if (number.kind != NumberTextKind::Number || number.radix || number.value < 0 ||
      number.value != std::floor(number.value))
    return std::nullopt;
  return static_cast<int64_t>(number.value);
}

// An argument in the journal: in double quotes, doubled inside; line breaks shown as \r and \n so
// that an entry stays on one line.
std::string Quoted(const std::string& text) {
  if (text.find_first_of("\"\r\n") == std::string::npos) return "\"" + text + "\"";
  std::string quoted = Replace(Replace(Replace(text, "\"", "\"\""), "\r", "\\r"), "\n", "\\n");
  return "\"" + quoted + "\"";
}

void WriteLines(const std::string& path, const std::vector<std::string>& lines) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  for (const std::string& line : lines) out << line << "\r\n";
  out.flush();
  if (!out) throw Refused("cannot write " + Utf8ToCp1252(path));
}

// Whether two times fall in the same second, as the client file and the dump keep them.
bool SameSecond(double a, double b) {
  const DateParts x = SplitDate(a), y = SplitDate(b);
  return x.dayNumber == y.dayNumber && x.hour == y.hour && x.minute == y.minute &&
         x.second == y.second;
}

}  // namespace

Session::Session(Clock& clock, std::string databaseListFile)
    : clock_(clock), databaseListFile_(std::move(databaseListFile)) {}

Session::~Session() {
  std::error_code ignored;
  std::filesystem::remove(databaseListFile_, ignored);
}

void Session::Open(const std::string& folder) {
  auto db = std::make_unique<Database>();
  db->path = FolderPath(folder);
  db->store = std::make_unique<Store>(SystemPath(db->path + "/" + kStoreName));
  db->book = db->store->Load();
  db->file = std::make_unique<ClientFile>(SystemPath(db->path + "/" + kClientFileName));
  db->file->Sync(db->book);
  if (db->book.name.empty()) db->book.name = std::filesystem::path(db->path).filename().string();
  db_ = std::move(db);
  const auto known = std::find_if(knownDatabases_.begin(), knownDatabases_.end(),
                                  [&](const auto& entry) { return entry.second == db_->path; });
  if (known == knownDatabases_.end())
    knownDatabases_.emplace_back(db_->book.name, db_->path);
  else
    known->first = db_->book.name;
  // A database opens on all its clients; only a later fill grows.
  list_ = AllInNameOrder();
  position_ = 0;
  filledAt_.reset();
  fillPending_ = false;
  listGrowSeconds_ = 0;
}

void Session::WhenIdle() {
  if (db_) db_->store->WhenIdle();
}

void Session::Close() {
  db_.reset();
  list_.clear();
  position_ = 0;
}

std::vector<size_t> Session::AllInNameOrder() const {
  std::vector<size_t> places(db_ ? db_->book.clients.size() : 0);
  for (size_t i = 0; i < places.size(); ++i) places[i] = i;
  if (!db_) return places;
  const auto& clients = db_->book.clients;
  std::stable_sort(places.begin(), places.end(), [&](size_t a, size_t b) {
    const Client& x = clients[a];
    const Client& y = clients[b];
    auto key = [](const Client& c) {
      return std::make_tuple(UCase(c.Name()), UCase(c.fields[kFieldFirstName]), c.Id(),
                             c.ContactNumber());
    };
    return key(x) < key(y);
  });
  return places;
}

void Session::Fill(std::vector<size_t> places, std::optional<double> when) {
  list_ = std::move(places);
  position_ = 0;
  filledAt_ = when;
  fillPending_ = !when;
  listGrowSeconds_ = growSeconds_;
}

size_t Session::VisibleCount(double now) {
  if (listGrowSeconds_ <= 0 || !filledAt_) return list_.size();
  // Whole milliseconds: date values near today carry about a microsecond of noise.
  const double elapsed = std::round((now - *filledAt_) * kSecondsPerDay * 1000.0) / 1000.0;
  if (elapsed >= listGrowSeconds_) return list_.size();
  if (elapsed <= 0) return 0;
  return static_cast<size_t>(
      std::floor(static_cast<double>(list_.size()) * elapsed / listGrowSeconds_));
}

std::optional<size_t> Session::Current(double now) {
  const size_t visible = VisibleCount(now);
  if (!db_ || visible == 0) return std::nullopt;
  return list_[std::min(position_, visible - 1)];
}

// Automation calls --------------------------------------------------------------------------------

Session::Json Session::Handle(const Json& request) {
  try {
    if (!request.is_object()) throw Refused("a request is a JSON object");
    Args args;
    if (request.contains("args")) {
      if (!request["args"].is_array()) throw Refused("\"args\" is a list of texts");
      for (const Json& arg : request["args"]) {
        if (!arg.is_string()) throw Refused("\"args\" is a list of texts");
        args.push_back(Utf8ToCp1252(arg.get<std::string>()));
      }
    }
    if (request.contains("call") && request["call"].is_string()) {
      double now = clock_.Now();
      if (request.contains("now") && request["now"].is_number()) now = request["now"].get<double>();
      lastNow_ = now;
      if (fillPending_) {
        filledAt_ = now;
        fillPending_ = false;
      }
      return Call(Utf8ToCp1252(request["call"].get<std::string>()), args, now);
    }
    if (request.contains("ctl") && request["ctl"].is_string())
      return Control(Utf8ToCp1252(request["ctl"].get<std::string>()), args);
    throw Refused("a request names a \"call\" or a \"ctl\" command");
  } catch (const std::exception& error) {
    return Json{{"ok", false}, {"error", Cp1252ToUtf8(error.what())}};
  }
}

void Session::Journal(const std::string& name, const Args& args) {
  std::string entry = name + "(";
  for (size_t i = 0; i < args.size(); ++i) entry += (i ? ", " : "") + Quoted(args[i]);
  journal_.push_back(entry + ")");
  if (journal_.size() > kJournalLimit) journal_.pop_front();
}

Session::Json Session::Call(const std::string& given, const Args& args, double now) {
  const auto shape = std::find_if(std::begin(kCalls), std::end(kCalls),
                                  [&](const CallShape& c) { return EqualsNoCase(c.name, given); });
  Journal(shape == std::end(kCalls) ? given : shape->name, args);
  if (shape == std::end(kCalls)) throw Refused("Maximizer has no call " + given);
  if (args.size() != shape->args)
    throw Refused(std::string(shape->name) + " takes " + std::to_string(shape->args) +
                  " argument(s)");
  const std::string name = shape->name;
  Json result = "";
  std::optional<std::string> id;  // GetAddressField hands the id back

  if (name == "GetCurrentDBPath") {
    result = db_ ? Cp1252ToUtf8(db_->path) : "n/a";
  } else if (name == "GetDatabaseList") {
    if (dialog_) {
      result = "error";
    } else {
      WriteDatabaseList();
      result = databaseListFile_;  // a file system name already
    }
  } else if (name == "GetBusyIndicator") {
    result = busy_ > 0;
    if (busy_ > 0) --busy_;
  } else if (name == "GetVisibilityState") {
    result = visible_ ? "normal" : "hidden";
  } else if (name == "SetVisibilityState") {
    if (EqualsNoCase(args[0], "Hide") || EqualsNoCase(args[0], "hidden"))
      visible_ = false;
    else if (EqualsNoCase(args[0], "Restore") || EqualsNoCase(args[0], "normal"))
      visible_ = true;
    else
      throw Refused("unknown visibility state " + args[0]);
  } else if (name == "SetAlarm") {
    if (!EqualsNoCase(args[0], "On") && !EqualsNoCase(args[0], "Off"))
      throw Refused("SetAlarm takes On or Off");
    alarm_ = EqualsNoCase(args[0], "On");
  } else if (name == "ActivateWindow") {
    window_ = args[0];
  } else if (name == "GetListOfUdf") {
    std::string text;
    if (db_)
      for (const Udf& udf : db_->book.udfs) text += udf.name + "," + UdfTypeWord(udf.type) + "\r\n";
    result = Cp1252ToUtf8(text);
  } else if (name == "ListOfCategories") {
    ListOfCategories(args[0], args[1], args[2]);
  } else if (name == "GetFieldValue") {
    const auto place = Current(now);
    result = place ? Cp1252ToUtf8(FieldValue(db_->book.clients[*place], args[0])) : "";
  } else if (name == "SetFieldValue") {
    if (const auto place = Current(now)) SetField(*place, args[0], args[1], now);
  } else if (name == "GetListCount") {
    result = static_cast<int32_t>(db_ ? VisibleCount(now) : 0);
  } else if (name == "ListAll") {
    if (!EqualsNoCase(args[0], "clients")) throw Refused("ListAll knows only \"clients\"");
    Fill(AllInNameOrder(), now);
  } else if (name == "ScrollList") {
    const size_t visible = VisibleCount(now);
    if (EqualsNoCase(args[0], "Top"))
      position_ = 0;
    else if (EqualsNoCase(args[0], "LineDown"))
      position_ = visible == 0 ? 0 : std::min(position_ + 1, visible - 1);
    else
      throw Refused("ScrollList takes Top or LineDown");
  } else if (name == "GetAddressList") {
    std::string text;
    if (const auto place = Current(now))
      for (const Address& address : db_->book.clients[*place].addresses)
        text += address.name + "|" + std::to_string(address.id) + "\r\n";
    result = Cp1252ToUtf8(text);
  } else if (name == "GetAddressID") {
    result = "-1";
    if (const auto place = Current(now))
      for (const Address& address : db_->book.clients[*place].addresses)
        if (address.main) result = std::to_string(address.id);
  } else if (name == "GetAddressField") {
    id = args[0];
    const auto place = Current(now);
    const auto wanted = Count(Trim(args[0]));
    const auto field = std::find_if(std::begin(kAddressFields), std::end(kAddressFields),
                                    [&](const char* f) { return EqualsNoCase(f, args[1]); });
    if (place && wanted && field != std::end(kAddressFields)) {
      for (const Address& address : db_->book.clients[*place].addresses) {
        if (address.id != *wanted) continue;
        result =
            Cp1252ToUtf8(address.fields[static_cast<size_t>(field - std::begin(kAddressFields))]);
        id = std::to_string(address.id);
      }
    }
  }
  Json reply = {{"ok", true}, {"result", result}};
  if (id) reply["id"] = Cp1252ToUtf8(*id);
  return reply;
}

std::string Session::FieldValue(const Client& client, const std::string& name) const {
  if (const auto field = FindField(name)) {
    const std::string& value = client.fields[*field];
    return value.empty() && IsNumericField(*field) ? "0" : value;
  }
  if (const auto udf = db_->book.FindUdf(name)) return client.udfs[*udf];
  return "";  // a name Maximizer does not know reads as empty
}

void Session::SetField(size_t place, const std::string& name, const std::string& value,
                       double now) {
  Client& client = db_->book.clients[place];
  // The last change is kept to the second: later writes within the same second leave it. The
  // client's record holds the fields and the last change, not the UDFs.
  const std::optional<double> stamp =
      SameSecond(client.lastChange, now) ? std::nullopt : std::optional(now);
  const bool inRecord = stamp || FindField(name);
  const std::string was = inRecord ? ClientRecord(db_->book, place) : std::string();
  if (const auto field = FindField(name)) {
    // The record's identity and type are not the caller's to change.
    if (*field == kFieldId || *field == kFieldRecType || *field == kFieldContact) return;
    std::string stored = value;
    if (IsNumericField(*field)) {
      const ParsedNumber number = ParseNumberText(Trim(value));
      if (number.kind != NumberTextKind::Number || number.value != std::floor(number.value) ||
          std::fabs(number.value) > 32767)
        return;
      stored = std::to_string(static_cast<int64_t>(number.value));
    }
    db_->store->SaveField(place, *field, stored, stamp);
    client.fields[*field] = stored;
  } else if (const auto udf = db_->book.FindUdf(name)) {
    const auto stored = UdfValue(db_->book.udfs[*udf], value);
    if (!stored) return;  // a value that does not suit the type is refused silently
    db_->store->SaveUdf(place, *udf, *stored, stamp);
    client.udfs[*udf] = *stored;
  } else {
    return;
  }
  if (stamp) client.lastChange = *stamp;
  if (inRecord) db_->file->Rewrite(db_->book, place, was);
}

void Session::WriteDatabaseList() const {
  std::vector<std::string> lines;
  for (const auto& [name, path] : knownDatabases_) lines.push_back(name + "," + path);
  WriteLines(databaseListFile_, lines);
}

void Session::ListOfCategories(const std::string& file, const std::string& key,
                               const std::string& what) {
  if (!EqualsNoCase(what, "Items")) throw Refused("ListOfCategories lists only Items");
  std::string name = Trim(key);
  if (name.size() >= 2 && name.front() == '"' && name.back() == '"')
    name = name.substr(1, name.size() - 2);
  std::vector<std::string> lines;
  if (db_) {
    const auto udf = db_->book.FindUdf(name);
    if (udf && db_->book.udfs[*udf].type == UdfType::Table) lines = db_->book.udfs[*udf].items;
  }
  WriteLines(file, lines);  // a key that names no Table UDF gives an empty file
}

// Control commands --------------------------------------------------------------------------------

Session::Json Session::State() {
  const double now = lastNow_.value_or(clock_.Now());
  const auto place = Current(now);
  Json state = {{"database_open", db_ != nullptr},
                {"database_name", db_ ? Cp1252ToUtf8(db_->book.name) : ""},
                {"database_path", db_ ? Cp1252ToUtf8(db_->path) : "n/a"},
                {"visibility", visible_ ? "normal" : "hidden"},
                {"alarm", alarm_ ? "on" : "off"},
                {"window", Cp1252ToUtf8(window_)},
                {"dialog", dialog_},
                {"busy", busy_},
                {"grow", growSeconds_},
                {"list_size", list_.size()},
                {"list_count", db_ ? VisibleCount(now) : 0},
                {"position", position_},
                {"current_id", place ? Cp1252ToUtf8(db_->book.clients[*place].Id()) : ""},
                {"journal_entries", journal_.size()}};
  return state;
}

Session::Json Session::Control(const std::string& command, const Args& args) {
  Json reply = {{"ok", true}, {"result", ""}};
  auto need = [&](size_t count) {
    if (args.size() != count)
      throw Refused(command + " takes " + std::to_string(count) + " argument(s)");
  };
  if (command == "busy") {
    need(1);
    const auto count = Count(args[0]);
    if (!count) throw Refused("busy takes a count");
    busy_ = *count;
  } else if (command == "dialog") {
    need(1);
    if (args[0] != "on" && args[0] != "off") throw Refused("dialog takes on or off");
    dialog_ = args[0] == "on";
  } else if (command == "close") {
    need(0);
    Close();
  } else if (command == "open") {
    need(1);
    Open(args[0]);
  } else if (command == "grow") {
    need(1);
    const ParsedNumber seconds = ParseNumberText(args[0]);
    if (seconds.kind != NumberTextKind::Number || seconds.value < 0)
      throw Refused("grow takes a number of seconds");
    growSeconds_ = seconds.value;
  } else if (command == "select") {
    need(1);
    const auto found = std::find_if(list_.begin(), list_.end(), [&](size_t place) {
      return db_->book.clients[place].Id() == args[0];
    });
    if (found == list_.end()) throw Refused("no client " + args[0] + " in the current list");
    position_ = static_cast<size_t>(found - list_.begin());
  } else if (command == "list") {
    if (!db_) throw Refused("no database is open");
    std::vector<size_t> places;
    for (const std::string& id : args) {
      std::vector<size_t> records;
      for (size_t place = 0; place < db_->book.clients.size(); ++place)
        if (db_->book.clients[place].Id() == id) records.push_back(place);
      if (records.empty()) throw Refused("no client " + id);
      std::stable_sort(records.begin(), records.end(), [&](size_t a, size_t b) {
        return db_->book.clients[a].ContactNumber() < db_->book.clients[b].ContactNumber();
      });
      places.insert(places.end(), records.begin(), records.end());
    }
    Fill(std::move(places), std::nullopt);
  } else if (command == "state") {
    need(0);
    reply["result"] = State();
  } else if (command == "journal") {
    if (args.size() == 1 && args[0] == "clear") {
      journal_.clear();
    } else {
      need(0);
      std::string text;
      for (const std::string& entry : journal_) text += entry + "\n";
      reply["result"] = Cp1252ToUtf8(text);
    }
  } else if (command == "quit") {
    need(0);
    quit_ = true;
  } else {
    throw Refused("unknown command " + command);
  }
  return reply;
}

}  // namespace tolmen::maxsim
