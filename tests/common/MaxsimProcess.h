// A real maxsim for the tests: an address book made with `maxsim init` in a temporary folder, an
// instance serving it on a socket in that folder, and `maxsim ctl` and `maxsim dump` run as the
// user would run them.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/types.h>

#include <string>
#include <vector>

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

  RunResult Ctl(const std::vector<std::string>& args) const;
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
