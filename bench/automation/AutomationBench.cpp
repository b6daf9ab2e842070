// Round trips per second between Tolmen's automation client and a real maxsim: the demo address
// book is made with `maxsim init` in a temporary folder and served on a socket there; the
// benchmarks then call through the automation objects as the system's client loop does.
//   GetBusyIndicator   the smallest call
//   GetFieldValue      one field of the current client
//   LineDownAndRead    ScrollList("LineDown") and a field, back to the top at the end
//   SetFieldValue      a UDF write as a client's links make them, several within one second:
//                      maxsim's store commits, the client's record in MXZC.MAX stays as it is
//   SetFieldValueNewSecond
//                      each UDF write a second after the last, as the first write of each client
//                      in a run: the record's last-change stamp moves, so MXZC.MAX is written too
// Repetitions run interleaved; at the end the writes' times are printed as multiples of a read's
// (GetFieldValue), fastest and median repetitions. maxsim is found beside this executable.
#include <benchmark/benchmark.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Aggregates.h"
#include "Spawn.h"
#include "platform/automation/MaximizerAutomation.h"
#include "platform/ui/Clock.h"

namespace tolmen::bench {
namespace {

class Instance {
 public:
  Instance() {
    const std::filesystem::path bin = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const std::string maxsim = (bin / "maxsim").string();
    dir_ = std::filesystem::temp_directory_path() /
           ("tolmen-bench-automation-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir_);
    socket_ = (dir_ / "maximizer.sock").string();
    const std::string db = (dir_ / "db").string();
    const std::string sample = std::string(TOLMEN_SOURCE_DIR) + "/tools/maxsim/samples/demo.json";
    if (Reap(Spawn({maxsim, "init", db, "--from", sample}, nullptr)) != 0) return;
    int out = -1;
    pid_ = Spawn({maxsim, "serve", db, "--socket", socket_}, &out);
    pollfd wait{out, POLLIN, 0};
    char buffer[16];
    ready_ = pid_ > 0 && ::poll(&wait, 1, 10000) == 1 && ::read(out, buffer, sizeof buffer) > 0;
    ::close(out);
  }
  ~Instance() {
    if (pid_ > 0) {
      ::kill(pid_, SIGTERM);
      Reap(pid_);
    }
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }
  bool Ready() const { return ready_; }
  const std::string& Socket() const { return socket_; }

 private:
  std::filesystem::path dir_;
  std::string socket_;
  pid_t pid_ = -1;
  bool ready_ = false;
};

// What the benchmarks share; set up by main before they run.
struct Link {
  VirtualClock clock{46349.375};  // 23 November 2026 09:00
  std::unique_ptr<MaxAttachObject> attach;
  std::shared_ptr<MaxApplicationObject> app;
  std::shared_ptr<MaxRecordObject> record;
};
Link* link = nullptr;

void Report(benchmark::State& state, int callsPerIteration) {
  state.counters["round_trips/s"] = benchmark::Counter(
      static_cast<double>(state.iterations() * callsPerIteration), benchmark::Counter::kIsRate);
}

void GetBusyIndicator(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(link->app->GetBusyIndicator());
  Report(state, 1);
}

void GetFieldValue(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(link->record->GetFieldValue("Identification"));
  Report(state, 1);
}

void LineDownAndRead(benchmark::State& state) {
  const int32_t count = link->record->GetListCount();
  int32_t line = 0;
  link->record->ScrollList("Top");
  for (auto _ : state) {
    if (++line == count) {
      link->record->ScrollList("Top");
      line = 0;
    } else {
      link->record->ScrollList("LineDown");
    }
    benchmark::DoNotOptimize(link->record->GetFieldValue("company"));
  }
  Report(state, 2);
}

void SetFieldValue(benchmark::State& state) {
  int64_t n = 0;
  for (auto _ : state) link->record->SetFieldValue("Credit Limit", std::to_string(++n));
  Report(state, 1);
}

void SetFieldValueNewSecond(benchmark::State& state) {
  int64_t n = 0;
  for (auto _ : state) {
    link->clock.Sleep(1.0);
    link->record->SetFieldValue("Credit Limit", std::to_string(++n));
  }
  Report(state, 1);
}

void Register(const char* name, void (*function)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, function)
      ->Repetitions(5)
      ->ComputeStatistics("min", Fastest)
      ->ReportAggregatesOnly(true)
      ->UseRealTime();
}

void PrintRatios(const AggregateReporter& times) {
  std::printf("\n%-24s %10s %8s   %10s %8s\n", "call", "min (us)", "x read", "med (us)", "x read");
  for (const std::string call : {"GetFieldValue", "SetFieldValue", "SetFieldValueNewSecond"}) {
    std::printf("%-24s", call.c_str());
    for (const char* stat : {"min", "median"}) {
      const double read = times.Time(stat, "GetFieldValue"), time = times.Time(stat, call);
      if (read > 0 && time > 0) std::printf(" %10.1f %8.2f  ", time / 1000, time / read);
    }
    std::printf("\n");
  }
  std::printf(
      "(x read: the call's time as a multiple of GetFieldValue's; aim for a UDF write 3)\n");
}

}  // namespace
}  // namespace tolmen::bench

int main(int argc, char** argv) {
  using namespace tolmen;
  bench::Instance instance;
  if (!instance.Ready()) {
    std::cerr << "bench_automation: maxsim did not start\n";
    return 1;
  }
  bench::Link link;
  link.attach = MaxAttachObject::Attach(instance.Socket(), link.clock);
  link.app = link.attach->GetApplicationObject();
  link.record = link.attach->GetCurrentRecordObject();
  if (link.app->GetCurrentDBPath() == "n/a") {
    std::cerr << "bench_automation: maxsim does not answer\n";
    return 1;
  }
  bench::link = &link;
  bench::Register("GetBusyIndicator", bench::GetBusyIndicator);
  bench::Register("GetFieldValue", bench::GetFieldValue);
  bench::Register("LineDownAndRead", bench::LineDownAndRead);
  bench::Register("SetFieldValue", bench::SetFieldValue);
  bench::Register("SetFieldValueNewSecond", bench::SetFieldValueNewSecond);
  bench::AggregateReporter reporter;
  bench::RunInterleaved(argc, argv, reporter);
  bench::PrintRatios(reporter);
  bench::link = nullptr;
  return 0;
}
