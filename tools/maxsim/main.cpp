// maxsim: the stand-in for a running Maximizer. See README.md beside this file.
//
//   maxsim init DIR --from DESCRIPTION.json     creates an address book in DIR
//   maxsim serve DIR [--socket PATH]            opens it and answers automation calls
//   maxsim dump DIR                             prints the address book as a description
//   maxsim ctl [--socket PATH] COMMAND [ARG...] sends a control command to a running instance
//   maxsim --help                               prints the usage on standard output
//
// Exit status: 0 done, 1 failed (the reason on stderr), 2 a wrong command line.
#include <poll.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "ClientFile.h"
#include "Description.h"
#include "Server.h"
#include "Session.h"
#include "Store.h"
#include "platform/automation/MaximizerAutomation.h"
#include "platform/ui/Clock.h"
#include "runtime/Cp1252.h"

namespace {

using namespace tolmen;
using namespace tolmen::maxsim;
using Json = nlohmann::ordered_json;

constexpr int kControlTimeoutMs = 10000;

// The usage text: on stdout with status 0 when asked for (--help), else on stderr with 2.
int Usage(bool asked = false) {
  (asked ? std::cout : std::cerr)
      << "usage: maxsim init DIR --from DESCRIPTION.json\n"
         "       maxsim serve DIR [--socket PATH]\n"
         "       maxsim dump DIR\n"
         "       maxsim ctl [--socket PATH] COMMAND [ARG...]\n"
         "commands: busy N | dialog on|off | close | open DIR | grow SECONDS | select ID |\n"
         "          list ID... | state | journal [clear] | quit\n";
  return asked ? 0 : 2;
}

int Init(const std::string& folder, const std::string& from, Clock& clock) {
  std::ifstream in(from, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + from);
  const AddressBook book = ReadDescription(Json::parse(in), clock.Now());
  std::filesystem::create_directories(folder);
  const std::string store = folder + "/" + kStoreName;
  const std::string file = folder + "/" + kClientFileName;
  if (std::filesystem::exists(store) || std::filesystem::exists(file))
    throw std::runtime_error(folder + " holds an address book already");
  Store::Create(store, book);
  try {
    ClientFile::Create(file, book);
  } catch (...) {
    std::error_code ignored;
    for (const std::string& path : {store, store + "-wal", store + "-shm", file})
      std::filesystem::remove(path, ignored);
    throw;
  }
  return 0;
}

int Dump(const std::string& folder) {
  Store store(folder + "/" + kStoreName);
  std::cout << WriteDescription(store.Load()).dump(2) << "\n";
  return 0;
}

int ServeFolder(const std::string& folder, const std::string& socketPath, Clock& clock) {
  Session session(clock, socketPath + ".dblist.txt");
  session.Open(Utf8ToCp1252(folder));  // the session names folders as the automation does
  return Serve(socketPath, session, std::cout);
}

int Control(const std::string& socketPath, const std::string& command,
            std::vector<std::string> args) {
  // The instance may run in another folder: a database folder goes as an absolute path.
  if (command == "open" && args.size() == 1) args[0] = std::filesystem::absolute(args[0]).string();
  const int fd = ConnectSocket(socketPath);
  if (fd < 0) {
    std::cerr << "maxsim: no instance answers at " << socketPath << "\n";
    return 1;
  }
  const std::string line = Json{{"ctl", command}, {"args", args}}.dump() + "\n";
  std::string reply;
  bool ok = ::write(fd, line.data(), line.size()) == static_cast<ssize_t>(line.size());
  while (ok && reply.find('\n') == std::string::npos) {
    pollfd wait{fd, POLLIN, 0};
    char buffer[65536];
    ssize_t n = 0;
    if (::poll(&wait, 1, kControlTimeoutMs) <= 0 || (n = ::read(fd, buffer, sizeof buffer)) <= 0)
      ok = false;
    else
      reply.append(buffer, static_cast<size_t>(n));
  }
  ::close(fd);
  const Json answer = ok ? Json::parse(reply.substr(0, reply.find('\n')), nullptr, false) : Json();
  if (!answer.is_object()) {
    std::cerr << "maxsim: the instance at " << socketPath << " did not answer\n";
    return 1;
  }
  if (!answer.value("ok", false)) {
    std::cerr << "maxsim: " << answer.value("error", std::string("refused")) << "\n";
    return 1;
  }
  const Json& result = answer["result"];
  if (result.is_string()) {
    const std::string text = result.get<std::string>();
    std::cout << text << (text.empty() || text.back() == '\n' ? "" : "\n");
  } else {
    std::cout << result.dump(2) << "\n";
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) return Usage();
  if (args[0] == "--help" || args[0] == "-h") return Usage(true);
  const std::unique_ptr<Clock> clock = MakeClockFromEnvironment();
  try {
    const std::string& command = args[0];
    if (command == "init" && args.size() == 4 && args[2] == "--from")
      return Init(args[1], args[3], *clock);
    if (command == "dump" && args.size() == 2) return Dump(args[1]);
    if (command == "serve" && (args.size() == 2 || (args.size() == 4 && args[2] == "--socket")))
      return ServeFolder(args[1], args.size() == 4 ? args[3] : MaximizerSocketPath(), *clock);
    if (command == "ctl" && args.size() >= 2) {
      size_t at = 1;
      std::string socketPath = MaximizerSocketPath();
      if (args[1] == "--socket") {
        if (args.size() < 4) return Usage();
        socketPath = args[2];
        at = 3;
      }
      return Control(socketPath, args[at], {args.begin() + static_cast<long>(at) + 1, args.end()});
    }
    return Usage();
  } catch (const DescriptionError& error) {
    std::cerr << "maxsim: the description cannot be used: " << error.what() << "\n";
  } catch (const Json::exception& error) {
    std::cerr << "maxsim: the JSON cannot be read: " << error.what() << "\n";
  } catch (const std::exception& error) {
    std::cerr << "maxsim: " << error.what() << "\n";
  }
  return 1;
}
