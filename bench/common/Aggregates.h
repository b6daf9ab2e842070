// What the benchmarks that print ratios share: repetitions run interleaved, and a reporter that
// keeps the fastest and the median repetition of every benchmark. On a machine shared with other
// work the fastest repetition is the one least disturbed; interleaving lets disturbances fall on
// all benchmarks alike.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace tolmen::bench {

// The statistic "min", registered beside Google Benchmark's own mean, median and deviation.
double Fastest(const std::vector<double>& times);

class AggregateReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;
  // The real time per iteration of `name` (the benchmark's function name) for `stat`, "min" or
  // "median"; 0 when it did not run.
  double Time(const std::string& stat, const std::string& name) const;

 private:
  std::map<std::string, std::map<std::string, double>> times_;
};

// Runs the registered benchmarks with their repetitions interleaved (unless the command line
// says otherwise) through `reporter`.
void RunInterleaved(int argc, char** argv, AggregateReporter& reporter);

}  // namespace tolmen::bench
