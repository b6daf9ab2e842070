// A real maxsim for the tests: an address book made with `maxsim init` in a temporary folder, an
// instance serving it on a socket in that folder, and `maxsim ctl` and `maxsim dump` run as the
// user would run them.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/types.h>

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "common/TempDir.h"

namespace tolmen::test {

struct RunResult {
  int status = -1;  // exit status, or -1 when the program did not end normally
  std::string out;
};

// Starts build/bin/maxsim with the arguments, its stdout on a pipe: the pid (-1 when it could not
// start), and the pipe's read end in `out`.
pid_t SpawnMaxsim(const std::vector<std::string>& args, int& out);
// Reads `fd` until its end, or until `until` shows; false when 10 seconds pass first.
bool ReadFrom(int fd, std::string& text, const std::string& until = "");
// Waits for the process to end: its exit status, or -1.
int Reap(pid_t pid);

// Runs build/bin/maxsim with the arguments and waits for it.
RunResult RunMaxsim(const std::vector<std::string>& args);

// Runs `maxsim ctl` against the instance at `socket`.
RunResult CtlMaxsim(const std::string& socket, const std::vector<std::string>& args);
// The journal's lines of the instance at `socket`, and the journal cleared.
std::vector<std::string> TakeMaxsimJournal(const std::string& socket);

std::string SampleDescription();  // tools/maxsim/samples/demo.json

class MaxsimProcess {
 public:
  // Makes DIR/db from the description file (the demo unless another is named). Does not start.
  explicit MaxsimProcess(const std::string& description = SampleDescription());
  ~MaxsimProcess();

  // Starts `maxsim serve` and waits for its "ready"; false if it does not come within 10 s.
  bool Start();
  void Signal(int signal) const;
  // Sends SIGKILL and reaps the process.
  void Kill();
  // Waits for the process to end; its exit status, or -1.
  int Wait();

  RunResult Ctl(const std::vector<std::string>& args) const { return CtlMaxsim(socket_, args); }
  std::vector<std::string> TakeJournal() const { return TakeMaxsimJournal(socket_); }
  // The value of a client's UDF as `maxsim dump` shows it; null when the client has none.
  nlohmann::json StoredUdf(const std::string& id, const std::string& udf) const;
  const std::string& Socket() const { return socket_; }
  const std::string& Database() const { return database_; }
  const TempDir& Folder() const { return dir_; }

 private:
  TempDir dir_{"tolmen-maxsim-"};
  std::string database_;
  std::string socket_;
  pid_t pid_ = -1;
  int stdout_ = -1;
};

}  // namespace tolmen::test
