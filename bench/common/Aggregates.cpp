#include "Aggregates.h"

#include <algorithm>

namespace tolmen::bench {

double Fastest(const std::vector<double>& times) {
  return *std::min_element(times.begin(), times.end());
}

void AggregateReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs)
    if (run.aggregate_name == "min" || run.aggregate_name == "median")
      times_[run.aggregate_name][run.run_name.function_name] = run.GetAdjustedRealTime();
  ConsoleReporter::ReportRuns(runs);
}

double AggregateReporter::Time(const std::string& stat, const std::string& name) const {
  const auto found = times_.find(stat);
  if (found == times_.end()) return 0;
  const auto time = found->second.find(name);
  return time == found->second.end() ? 0 : time->second;
}

void RunInterleaved(int argc, char** argv, AggregateReporter& reporter) {
  std::vector<char*> args(argv, argv + argc);
  static char interleave[] = "--benchmark_enable_random_interleaving=true";
  args.insert(args.begin() + 1, interleave);  // a flag given on the command line still wins
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
}

}  // namespace tolmen::bench
