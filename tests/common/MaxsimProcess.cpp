// Starting and stopping maxsim for the tests.
#include "common/MaxsimProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "common/TestText.h"

extern char** environ;

namespace tolmen::test {

namespace {

const std::string kMaxsim = std::string(TOLMEN_BIN_DIR) + "/maxsim";

}  // namespace

pid_t SpawnMaxsim(const std::vector<std::string>& args, int& out) {
  std::vector<std::string> all = {kMaxsim};
  all.insert(all.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& arg : all) argv.push_back(arg.data());
  argv.push_back(nullptr);
  int pipeEnds[2];
  if (::pipe2(pipeEnds, O_CLOEXEC) != 0) return -1;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], 1);
  pid_t pid = -1;
  if (posix_spawn(&pid, kMaxsim.c_str(), &actions, nullptr, argv.data(), environ) != 0) pid = -1;
  posix_spawn_file_actions_destroy(&actions);
  ::close(pipeEnds[1]);
  out = pipeEnds[0];
  return pid;
}

bool ReadFrom(int fd, std::string& text, const std::string& until) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (until.empty() || text.find(until) == std::string::npos) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    pollfd wait{fd, POLLIN, 0};
    if (left.count() <= 0 || ::poll(&wait, 1, static_cast<int>(left.count())) <= 0) return false;
    char buffer[4096];
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n <= 0) return until.empty();
    text.append(buffer, static_cast<size_t>(n));
  }
  return true;
}

int Reap(pid_t pid) {
  int status = 0;
  if (::waitpid(pid, &status, 0) != pid) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

RunResult CtlMaxsim(const std::string& socket, const std::vector<std::string>& args) {
  std::vector<std::string> all = {"ctl", "--socket", socket};
  all.insert(all.end(), args.begin(), args.end());
  return RunMaxsim(all);
}

std::vector<std::string> TakeMaxsimJournal(const std::string& socket) {
  const RunResult journal = CtlMaxsim(socket, {"journal"});
  EXPECT_EQ(journal.status, 0);
  EXPECT_EQ(CtlMaxsim(socket, {"journal", "clear"}).status, 0);
  return TextLines(journal.out);
}

std::string SampleDescription() {
  return std::string(TOLMEN_SOURCE_DIR) + "/tools/maxsim/samples/demo.json";
}

RunResult RunMaxsim(const std::vector<std::string>& args) {
  RunResult result;
  int out = -1;
  const pid_t pid = SpawnMaxsim(args, out);
  if (pid < 0) return result;
  ReadFrom(out, result.out);
  ::close(out);
  result.status = Reap(pid);
  return result;
}

MaxsimProcess::MaxsimProcess(const std::string& description)
    : database_(dir_.File("db")), socket_(dir_.File("maximizer.sock")) {
  const RunResult init = RunMaxsim({"init", database_, "--from", description});
  EXPECT_EQ(init.status, 0) << "maxsim init " << description;
}

MaxsimProcess::~MaxsimProcess() {
  if (pid_ > 0) {
    Signal(SIGCONT);
    Signal(SIGTERM);
    Wait();
  }
  if (stdout_ >= 0) ::close(stdout_);
}

bool MaxsimProcess::Start() {
  pid_ = SpawnMaxsim({"serve", database_, "--socket", socket_}, stdout_);
  std::string text;
  return pid_ > 0 && ReadFrom(stdout_, text, "ready\n");
}

void MaxsimProcess::Signal(int signal) const {
  if (pid_ > 0) ::kill(pid_, signal);
}

void MaxsimProcess::Kill() {
  Signal(SIGKILL);
  Wait();
}

int MaxsimProcess::Wait() {
  if (pid_ <= 0) return -1;
  const int status = Reap(pid_);
  pid_ = -1;
  return status;
}

nlohmann::json MaxsimProcess::StoredUdf(const std::string& id, const std::string& udf) const {
  const RunResult dump = RunMaxsim({"dump", database_});
  EXPECT_EQ(dump.status, 0);
  const nlohmann::json book = nlohmann::json::parse(dump.out);
  for (const nlohmann::json& client : book["clients"])
    if (client.value("Identification", "") == id && client.contains("udfs") &&
        client["udfs"].contains(udf))
      return client["udfs"][udf];
  return nullptr;
}

}  // namespace tolmen::test
