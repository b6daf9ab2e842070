// Starting the programs a benchmark measures (maxsim, or the benchmark itself as a child).
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tolmen::bench {

// Starts args[0] with the arguments; its pid, or -1. With `out` given, the program's standard
// output is a pipe whose reading end lands in *out.
pid_t Spawn(std::vector<std::string> args, int* out);

// Waits for the program; its exit status, -1 when it did not exit normally.
int Reap(pid_t pid);

}  // namespace tolmen::bench
