// The socket under the automation objects: connect, send one line, wait for one line.
#include "platform/automation/MaxConnection.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>

#include "platform/ui/Clock.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"

namespace tolmen {

namespace {

constexpr double kDefaultReplyTimeout = 5.0;
constexpr size_t kMaxReplyBytes = size_t{64} << 20;
// Maximizer answers most calls within microseconds, while sleeping in poll and being woken costs
// more than that on a virtual machine. So the reply is first asked for without waiting, for this
// long, before the wait goes to poll (as SpinBudget allows).
constexpr auto kReplySpin = std::chrono::microseconds(200);

int ConnectTo(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof(address.sun_path)) return -1;
  std::memcpy(address.sun_path, path.data(), path.size());
  // Non-blocking, so that an instance too stopped to take the connection (its backlog full)
  // counts as nobody answering instead of holding the caller; blocking again once connected.
  const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (fd < 0) return -1;
  int rc;
  do {
    rc = ::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  } while (rc != 0 && errno == EINTR);
  if (rc != 0 || ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK) != 0) {
    ::close(fd);
    return -1;
  }
  return fd;
}

}  // namespace

double MaximizerReplyTimeout() {
  const char* text = std::getenv("MAXIMIZER_TIMEOUT");
  if (text == nullptr || *text == '\0') return kDefaultReplyTimeout;
  char* end = nullptr;
  const double seconds = std::strtod(text, &end);
  if (end == text || *end != '\0' || !(seconds > 0)) return kDefaultReplyTimeout;
  return seconds;
}

MaxConnection::MaxConnection(const std::string& socketPath, Clock& clock,
                             double replyTimeoutSeconds)
    : clock_(clock), replyTimeoutSeconds_(replyTimeoutSeconds) {
  fd_ = ConnectTo(socketPath);
  attached_ = fd_ >= 0;
}

MaxConnection::~MaxConnection() {
  Drop();
}

void MaxConnection::Drop() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  pending_.clear();
}

nlohmann::json MaxConnection::Call(const std::string& name, const std::vector<std::string>& args) {
  if (fd_ < 0) throw RuntimeError(kErrServerUnavailable, kTextServerUnavailable);
  // The request's line is put together from its dumped parts: a call is made many thousands of
  // times a run, and building a JSON object first costs more than the rest of the client's work.
  std::string line = R"({"call":)" + nlohmann::json(name).dump() + R"(,"args":[)";
  for (size_t i = 0; i < args.size(); ++i) {
    if (i > 0) line += ',';
    line += nlohmann::json(Cp1252ToUtf8(args[i])).dump();
  }
  line += R"(],"now":)" + nlohmann::json(clock_.Now()).dump() + "}\n";
  Send(line);

  nlohmann::json reply = nlohmann::json::parse(ReadLine(), nullptr, false);
  if (!reply.is_object() || !reply.contains("ok")) {
    Drop();  // out of step with the server: nothing later could be trusted
    throw RuntimeError(kErrCallFailed, kTextCallFailed);
  }
  if (!reply.value("ok", false)) {
    std::string text = "Automation error";
    if (reply.contains("error") && reply["error"].is_string())
      text += ": " + Utf8ToCp1252(reply["error"].get<std::string>());
    throw RuntimeError(kErrAutomation, text);
  }
  return reply;
}

void MaxConnection::Send(const std::string& line) {
  size_t sent = 0;
  while (sent < line.size()) {
    const ssize_t n = ::send(fd_, line.data() + sent, line.size() - sent, MSG_NOSIGNAL);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      Drop();
      throw RuntimeError(kErrServerUnavailable, kTextServerUnavailable);
    }
    sent += static_cast<size_t>(n);
  }
}

std::string MaxConnection::ReadLine() {
  using Steady = std::chrono::steady_clock;
  const auto start = Steady::now();
  const auto deadline = start + std::chrono::duration_cast<Steady::duration>(
                                    std::chrono::duration<double>(replyTimeoutSeconds_));
  const bool spinning = spin_.MaySpin();
  const auto spinEnd = spinning ? start + kReplySpin : start;
  bool slept = false;
  for (;;) {
    const size_t end = pending_.find('\n');
    if (end != std::string::npos) {
      std::string line = pending_.substr(0, end);
      pending_.erase(0, end + 1);
      if (spinning && slept) spin_.Missed();
      if (spinning && !slept) spin_.Answered();
      return line;
    }
    const auto now = Steady::now();
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - now).count();
    if (left <= 0 || pending_.size() > kMaxReplyBytes) break;
    int flags = MSG_DONTWAIT;
    if (now >= spinEnd) {
      pollfd wait{fd_, POLLIN, 0};
      const int ready = ::poll(&wait, 1, static_cast<int>(left));
      if (ready < 0 && errno == EINTR) continue;
      if (ready <= 0) break;
      flags = 0;
      slept = true;
    }
    char buffer[65536];
    const ssize_t n = ::recv(fd_, buffer, sizeof(buffer), flags);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) continue;
    if (n <= 0) break;  // the instance closed the connection or died
    pending_.append(buffer, static_cast<size_t>(n));
  }
  Drop();
  throw RuntimeError(kErrCallFailed, kTextCallFailed);
}

}  // namespace tolmen
