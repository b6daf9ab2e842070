#include "Spawn.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tolmen::bench {

pid_t Spawn(std::vector<std::string> args, int* out) {
  std::vector<char*> argv;
  for (std::string& arg : args) argv.push_back(arg.data());
  argv.push_back(nullptr);
  int ends[2] = {-1, -1};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (out != nullptr && ::pipe2(ends, O_CLOEXEC) == 0)
    posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
  pid_t pid = -1;
  if (posix_spawn(&pid, args[0].c_str(), &actions, nullptr, argv.data(), environ) != 0) pid = -1;
  posix_spawn_file_actions_destroy(&actions);
  if (out != nullptr) {
    ::close(ends[1]);
    *out = ends[0];
  }
  return pid;
}

int Reap(pid_t pid) {
  int status = 0;
  if (pid <= 0 || ::waitpid(pid, &status, 0) != pid) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace tolmen::bench
