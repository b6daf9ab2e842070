// The poll loop of `maxsim serve`.
#include "Server.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <ostream>
#include <stdexcept>
#include <vector>

#include <nlohmann/json.hpp>

#include "Session.h"
#include "platform/automation/SpinBudget.h"

namespace tolmen::maxsim {

namespace {

constexpr size_t kMaxRequestBytes = size_t{16} << 20;
// A caller in a run sends its next request within microseconds of the last answer, while going
// to sleep in poll and being woken costs more than that on a virtual machine. So after an answer
// the same connection is asked for more without waiting, for this long after its last request,
// and for no longer than a round so that signals and other connections are seen.
constexpr auto kRequestSpin = std::chrono::microseconds(200);
constexpr auto kSpinRound = std::chrono::milliseconds(20);

bool MakeAddress(const std::string& path, sockaddr_un& address) {
  address = sockaddr_un{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof(address.sun_path)) return false;
  std::memcpy(address.sun_path, path.data(), path.size());
  return true;
}

struct Connection {
  int fd;
  std::string input;
  SpinBudget spin;
};

bool SendAll(int fd, const std::string& text) {
  size_t sent = 0;
  while (sent < text.size()) {
    const ssize_t n = ::send(fd, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    sent += static_cast<size_t>(n);
  }
  return true;
}

// Answers every whole line in the connection's input; false when the connection is to be dropped.
bool AnswerLines(Connection& connection, Session& session) {
  size_t end;
  while ((end = connection.input.find('\n')) != std::string::npos) {
    const std::string line = connection.input.substr(0, end);
    connection.input.erase(0, end + 1);
    const auto request = nlohmann::ordered_json::parse(line, nullptr, false);
    const auto reply = request.is_discarded()
                           ? nlohmann::ordered_json{{"ok", false}, {"error", "not JSON"}}
                           : session.Handle(request);
    if (!SendAll(connection.fd,
                 reply.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n"))
      return false;
    if (session.QuitRequested()) return true;
  }
  return connection.input.size() <= kMaxRequestBytes;
}

// Answers the requests that follow on the same connection while they come quickly; false when
// the connection is to be dropped.
bool AnswerWhileBusy(Connection& connection, Session& session) {
  if (!connection.spin.MaySpin()) return true;
  using Steady = std::chrono::steady_clock;
  bool answered = false;
  auto lastRequest = Steady::now();
  const auto roundEnd = lastRequest + kSpinRound;
  for (auto now = lastRequest;
       now - lastRequest < kRequestSpin && now < roundEnd && !session.QuitRequested();
       now = Steady::now()) {
    char buffer[65536];
    const ssize_t n = ::recv(connection.fd, buffer, sizeof(buffer), MSG_DONTWAIT);
    if (n == 0) return false;
    if (n < 0) {
      if (errno == EINTR) continue;
      if (errno != EAGAIN && errno != EWOULDBLOCK) return false;
      continue;
    }
    connection.input.append(buffer, static_cast<size_t>(n));
    if (!AnswerLines(connection, session)) return false;
    answered = true;
    lastRequest = Steady::now();
  }
  // A stream of requests ends with one wait in vain; only asking that caught nothing is a miss.
  if (answered)
    connection.spin.Answered();
  else
    connection.spin.Missed();
  return true;
}

// Binds a listening socket at `path`, replacing a stale socket file.
int Listen(const std::string& path) {
  sockaddr_un address;
  if (!MakeAddress(path, address)) throw std::runtime_error("socket path too long: " + path);
  struct stat info {};
  if (::lstat(path.c_str(), &info) == 0) {
    if (!S_ISSOCK(info.st_mode)) throw std::runtime_error(path + " exists and is no socket");
    const int other = ConnectSocket(path);
    if (other >= 0) {
      ::close(other);
      throw std::runtime_error("another instance answers at " + path);
    }
    ::unlink(path.c_str());
  }
  const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (fd < 0) throw std::runtime_error(std::string("socket: ") + std::strerror(errno));
  const mode_t old = ::umask(0177);  // the socket is born 0600
  const int bound = ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  const int bindError = errno;
  ::umask(old);
  if (bound != 0 || ::chmod(path.c_str(), 0600) != 0 || ::listen(fd, 16) != 0) {
    ::close(fd);
    throw std::runtime_error("cannot listen at " + path + ": " + std::strerror(bindError));
  }
  return fd;
}

}  // namespace

int ConnectSocket(const std::string& socketPath) {
  sockaddr_un address;
  if (!MakeAddress(socketPath, address)) return -1;
  const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (fd < 0) return -1;
  if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
    ::close(fd);
    return -1;
  }
  return fd;
}

int Serve(const std::string& socketPath, Session& session, std::ostream& out) {
  // SIGTERM and SIGINT arrive as readable data on a signalfd, between requests.
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGTERM);
  sigaddset(&stopSignals, SIGINT);
  sigprocmask(SIG_BLOCK, &stopSignals, nullptr);
  ::signal(SIGPIPE, SIG_IGN);
  const int signals = ::signalfd(-1, &stopSignals, SFD_CLOEXEC);
  if (signals < 0) throw std::runtime_error(std::string("signalfd: ") + std::strerror(errno));

  const int listener = Listen(socketPath);
  out << "ready" << std::endl;

  std::vector<Connection> connections;
  bool stop = false;
  while (!stop && !session.QuitRequested()) {
    std::vector<pollfd> waits = {{signals, POLLIN, 0}, {listener, POLLIN, 0}};
    for (const Connection& c : connections) waits.push_back({c.fd, POLLIN, 0});
    session.WhenIdle();
    if (::poll(waits.data(), waits.size(), -1) < 0) {
      if (errno == EINTR) continue;
      break;
    }
    if (waits[0].revents != 0) stop = true;
    if (waits[1].revents & POLLIN) {
      const int fd = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
      if (fd >= 0) connections.push_back({fd, {}, {}});
    }
    // Connections accepted in this round are polled in the next one.
    for (size_t i = 0; i + 2 < waits.size() && !session.QuitRequested(); ++i) {
      if (waits[i + 2].revents == 0) continue;
      Connection& connection = connections[i];
      char buffer[65536];
      const ssize_t n = ::recv(connection.fd, buffer, sizeof(buffer), 0);
      bool keep = n > 0 || (n < 0 && errno == EINTR);
      if (n > 0) {
        connection.input.append(buffer, static_cast<size_t>(n));
        keep = AnswerLines(connection, session) && AnswerWhileBusy(connection, session);
      }
      if (!keep) {
        ::close(connection.fd);
        connection.fd = -1;
      }
    }
    std::erase_if(connections, [](const Connection& c) { return c.fd < 0; });
  }
  for (const Connection& c : connections) ::close(c.fd);
  ::close(listener);
  ::unlink(socketPath.c_str());
  ::close(signals);
  return 0;
}

}  // namespace tolmen::maxsim
