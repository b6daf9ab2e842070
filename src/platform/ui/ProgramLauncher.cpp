// Starting another program from an argument vector.
#include "platform/ui/ProgramLauncher.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace tolmen {

bool RunProgram(const std::vector<std::string>& argv, int& exitStatus, std::string& error) {
  exitStatus = 0;
  if (argv.empty() || argv[0].empty()) {
    error = "no program to start";
    return false;
  }
  std::vector<char*> args;
  for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);

  // The child reports a failed exec through a pipe that a successful exec closes.
  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) {
    error = std::strerror(errno);
    return false;
  }
  pid_t child = fork();
  if (child < 0) {
    error = std::strerror(errno);
    close(report[0]);
    close(report[1]);
    return false;
  }
  if (child == 0) {
    close(report[0]);
    execvp(args[0], args.data());
    int failure = errno;
    [[maybe_unused]] ssize_t written = write(report[1], &failure, sizeof failure);
    _exit(127);
  }
  close(report[1]);
  int failure = 0;
  ssize_t got;
  do {
    got = read(report[0], &failure, sizeof failure);
  } while (got < 0 && errno == EINTR);
  close(report[0]);

  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (got == static_cast<ssize_t>(sizeof failure)) {
    error = argv[0] + ": " + std::strerror(failure);
    return false;
  }
  if (WIFEXITED(status)) exitStatus = WEXITSTATUS(status);
  if (WIFSIGNALED(status)) exitStatus = 128 + WTERMSIG(status);
  return true;
}

bool ProgramOnPath(const std::string& name) {
  if (name.empty()) return false;
  if (name.find('/') != std::string::npos) return access(name.c_str(), X_OK) == 0;
  const char* path = std::getenv("PATH");
  std::istringstream folders(path != nullptr ? path : "/usr/bin:/bin");
  std::string folder;
  while (std::getline(folders, folder, ':')) {
    if (folder.empty()) folder = ".";
    if (access((folder + "/" + name).c_str(), X_OK) == 0) return true;
  }
  return false;
}

std::vector<std::string> EditorCommand() {
  for (const char* variable : {"VISUAL", "EDITOR"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr) continue;
    std::istringstream words(value);
    std::vector<std::string> command;
    std::string word;
    while (words >> word) command.push_back(word);
    if (!command.empty()) return command;
  }
  if (ProgramOnPath("xdg-open")) return {"xdg-open"};
  return {"nano"};
}

}  // namespace tolmen
