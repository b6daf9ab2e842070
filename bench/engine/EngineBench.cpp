// The record engine against raw SQLite on the same data: 100,000 records of 1,096 bytes keyed by
// a 10-byte account code (unique) and a 30-byte name (duplicates). Each operation runs once
// through BTRCALL and once through prepared SQLite statements on a file of the engine's own
// layout, with the engine's settings:
//   Insert    every record into a new file, inside one transaction
//   GetEqual  one record by a random account code
//   GetNext   the whole file in account order (Get First, then Get Next to the end)
//   Update    10,000 records by random account code, each read (Get Equal) and written back
//             with new data and the same keys (Update), all in one transaction
//   Commit    1,000 records inserted into a new file, each insert committed on its own
// After Google Benchmark's table it prints each operation's speed through the engine as a
// fraction of raw SQLite's (the engine aims at 0.8 or more).
//
// Flags, before Google Benchmark's own: --records=N, --journal=delete|truncate|wal,
// --mmap=BYTES, --cache=KIB, --window=ROWS, --dir=FOLDER (where the files go).
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "Aggregates.h"
#include "platform/recordmanager/BtrCodes.h"
#include "platform/recordmanager/FileStat.h"
#include "platform/recordmanager/RecordEngine.h"

namespace tolmen::bench {
namespace {

constexpr int32_t kRecordLength = 1096;
constexpr size_t kCodeLength = 10;
constexpr size_t kNameLength = 30;

struct Setup {
  int records = 100000;
  EngineOptions options;
  std::filesystem::path dir;
  std::vector<std::string> data;   // in the order they are inserted
  std::vector<std::string> codes;  // the account codes Get Equal looks for, in random order
  std::string loaded;              // the file the reads and updates run on
};

constexpr int kUpdates = 10000;
constexpr int kCommits = 1000;

// Changes a record's data outside its keys, so that every update writes something new.
void Touch(std::string& record, int i) {
  std::memcpy(record.data() + 100, &i, sizeof i);
}

FileDef Layout() {
  return FileDef{kRecordLength,
                 4096,
                 false,
                 {KeyDef{false, false, {SegmentDef{1, kCodeLength, KeyType::String}}},
                  KeyDef{true, true, {SegmentDef{11, kNameLength, KeyType::String}}}}};
}

std::string MakeRecord(int i) {
  std::string r = fmt::format("A{:09d}", i);
  r += fmt::format("{:<30}", fmt::format("NAME{:04d}", (i * 7919) % 1000));
  r.reserve(kRecordLength);
  for (size_t at = r.size(); at < kRecordLength; ++at)
    r.push_back(static_cast<char>((i + at) % 251));
  return r;
}

std::string JournalName(EngineOptions::Journal j) {
  return j == EngineOptions::Journal::Wal        ? "WAL"
         : j == EngineOptions::Journal::Truncate ? "TRUNCATE"
                                                 : "DELETE";
}

// A connection set up as the engine sets up its own.
sqlite3* OpenRaw(const Setup& s, const std::string& path) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  const std::string pragmas = fmt::format(
      "PRAGMA cache_size=-{}; PRAGMA mmap_size={}; "
      "PRAGMA journal_mode={}; PRAGMA synchronous={};",
      s.options.cacheKiB, s.options.mmapBytes, JournalName(s.options.journal),
      SynchronousName(s.options.journal));
  sqlite3_exec(db, pragmas.c_str(), nullptr, nullptr, nullptr);
  return db;
}

sqlite3_stmt* Prepare(sqlite3* db, const char* sql) {
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr);
  return stmt;
}

// One open file through the engine.
struct EngineFile {
  EngineFile(const Setup& s, const std::string& path) : engine(s.options) {
    key = path;
    status = engine.BTRCALL(kOpOpen, pos, data, dataLen, key, 255, 0);
    key.resize(255, ' ');
  }
  int16_t Call(uint16_t op, int16_t keyNum = 0) {
    return engine.BTRCALL(op, pos, data, dataLen, key, 255, keyNum);
  }
  RecordEngine engine;
  std::string pos = std::string(128, ' ');
  std::string data = std::string(kRecordLength, ' ');
  int32_t dataLen = kRecordLength;
  std::string key;
  int16_t status = 0;
};

int16_t CreateEngineFile(const Setup& s, const std::string& path) {
  std::filesystem::remove(path);
  RecordEngine engine(s.options);
  std::string pos(128, ' '), data = BuildCreateBuffer(Layout()), key = path;
  auto len = static_cast<int32_t>(data.size());
  return engine.BTRCALL(kOpCreate, pos, data, len, key, 255, 0);
}

int16_t LoadThroughEngine(const Setup& s, const std::string& path) {
  EngineFile f(s, path);
  if (f.status) return f.status;
  if (int16_t st = f.Call(kOpBeginTransaction)) return st;
  for (const std::string& record : s.data) {
    f.data = record;
    f.dataLen = kRecordLength;
    if (int16_t st = f.Call(kOpInsert)) return st;
  }
  return f.Call(kOpEndTransaction);
}

bool LoadRaw(const Setup& s, const std::string& path) {
  sqlite3* db = OpenRaw(s, path);
  sqlite3_stmt* insert =
      Prepare(db, "INSERT INTO tolmen_record(r, k0, k1, d1, v) VALUES(?1, ?2, ?3, ?1, ?4)");
  bool ok = sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
  int64_t rid = 0;
  for (const std::string& record : s.data) {
    if (!ok) break;
    sqlite3_bind_int64(insert, 1, ++rid);
    sqlite3_bind_blob(insert, 2, record.data(), kCodeLength, SQLITE_STATIC);
    sqlite3_bind_blob(insert, 3, record.data() + kCodeLength, kNameLength, SQLITE_STATIC);
    sqlite3_bind_blob(insert, 4, record.data(), kRecordLength, SQLITE_STATIC);
    ok = sqlite3_step(insert) == SQLITE_DONE;
    sqlite3_reset(insert);
  }
  ok = ok && sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
  sqlite3_finalize(insert);
  sqlite3_close(db);
  return ok;
}

void InsertEngine(benchmark::State& state, const Setup& s) {
  const std::string path = (s.dir / "insert-engine.dat").string();
  for (auto _ : state) {
    state.PauseTiming();
    if (CreateEngineFile(s, path)) state.SkipWithError("create failed");
    state.ResumeTiming();
    if (int16_t st = LoadThroughEngine(s, path)) {
      state.SkipWithError(fmt::format("insert: status {}", st).c_str());
    }
  }
  state.SetItemsProcessed(state.iterations() * s.records);
}

void InsertRaw(benchmark::State& state, const Setup& s) {
  const std::string path = (s.dir / "insert-raw.dat").string();
  for (auto _ : state) {
    state.PauseTiming();
    if (CreateEngineFile(s, path)) state.SkipWithError("create failed");
    state.ResumeTiming();
    if (!LoadRaw(s, path)) state.SkipWithError("raw insert failed");
  }
  state.SetItemsProcessed(state.iterations() * s.records);
}

void GetEqualEngine(benchmark::State& state, const Setup& s) {
  EngineFile f(s, s.loaded);
  size_t i = 0;
  for (auto _ : state) {
    const std::string& code = s.codes[i++ % s.codes.size()];
    std::memcpy(f.key.data(), code.data(), kCodeLength);
    f.dataLen = kRecordLength;
    if (f.Call(kOpGetEqual) != 0 || std::memcmp(f.data.data(), code.data(), kCodeLength) != 0) {
      state.SkipWithError("Get Equal failed");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations());
}

void GetEqualRaw(benchmark::State& state, const Setup& s) {
  sqlite3* db = OpenRaw(s, s.loaded);
  sqlite3_stmt* get = Prepare(db, "SELECT v FROM tolmen_record WHERE k0 = ?1");
  std::string data;
  size_t i = 0;
  for (auto _ : state) {
    const std::string& code = s.codes[i++ % s.codes.size()];
    sqlite3_bind_blob(get, 1, code.data(), kCodeLength, SQLITE_STATIC);
    if (sqlite3_step(get) == SQLITE_ROW) {
      data.assign(static_cast<const char*>(sqlite3_column_blob(get, 0)),
                  static_cast<size_t>(sqlite3_column_bytes(get, 0)));
    }
    sqlite3_reset(get);
    if (data.compare(0, kCodeLength, code) != 0) {
      state.SkipWithError("raw lookup failed");
      break;
    }
  }
  sqlite3_finalize(get);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations());
}

void GetNextEngine(benchmark::State& state, const Setup& s) {
  EngineFile f(s, s.loaded);
  for (auto _ : state) {
    int n = 0;
    int16_t st = f.Call(kOpGetFirst);
    while (st == 0) {
      ++n;
      benchmark::DoNotOptimize(f.data.data());
      f.dataLen = kRecordLength;
      st = f.Call(kOpGetNext);
    }
    if (st != kStatusEndOfFile || n != s.records) state.SkipWithError("scan failed");
  }
  state.SetItemsProcessed(state.iterations() * s.records);
}

void GetNextRaw(benchmark::State& state, const Setup& s) {
  sqlite3* db = OpenRaw(s, s.loaded);
  sqlite3_stmt* scan = Prepare(db, "SELECT v FROM tolmen_record ORDER BY k0");
  std::string data;
  for (auto _ : state) {
    int n = 0;
    while (sqlite3_step(scan) == SQLITE_ROW) {
      data.assign(static_cast<const char*>(sqlite3_column_blob(scan, 0)),
                  static_cast<size_t>(sqlite3_column_bytes(scan, 0)));
      benchmark::DoNotOptimize(data.data());
      ++n;
    }
    sqlite3_reset(scan);
    if (n != s.records) state.SkipWithError("raw scan failed");
  }
  sqlite3_finalize(scan);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * s.records);
}

void UpdateEngine(benchmark::State& state, const Setup& s) {
  EngineFile f(s, s.loaded);
  int touched = 0;
  for (auto _ : state) {
    int16_t st = f.Call(kOpBeginTransaction);
    for (int i = 0; i < kUpdates && st == 0; ++i) {
      const std::string& code = s.codes[static_cast<size_t>(i) % s.codes.size()];
      std::memcpy(f.key.data(), code.data(), kCodeLength);
      f.dataLen = kRecordLength;
      st = f.Call(kOpGetEqual);
      if (st != 0) break;
      Touch(f.data, ++touched);
      f.dataLen = kRecordLength;
      st = f.Call(kOpUpdate);
    }
    if (st == 0) st = f.Call(kOpEndTransaction);
    if (st != 0) state.SkipWithError(fmt::format("update: status {}", st).c_str());
  }
  state.SetItemsProcessed(state.iterations() * kUpdates);
}

void UpdateRaw(benchmark::State& state, const Setup& s) {
  sqlite3* db = OpenRaw(s, s.loaded);
  sqlite3_stmt* get = Prepare(db, "SELECT r, v FROM tolmen_record WHERE k0 = ?1");
  sqlite3_stmt* put = Prepare(db, "UPDATE tolmen_record SET v = ?2 WHERE r = ?1");
  std::string data;
  int touched = 0;
  for (auto _ : state) {
    bool ok = sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
    for (int i = 0; i < kUpdates && ok; ++i) {
      const std::string& code = s.codes[static_cast<size_t>(i) % s.codes.size()];
      sqlite3_bind_blob(get, 1, code.data(), kCodeLength, SQLITE_STATIC);
      ok = sqlite3_step(get) == SQLITE_ROW;
      const int64_t rid = ok ? sqlite3_column_int64(get, 0) : 0;
      if (ok) {
        data.assign(static_cast<const char*>(sqlite3_column_blob(get, 1)),
                    static_cast<size_t>(sqlite3_column_bytes(get, 1)));
      }
      sqlite3_reset(get);
      if (!ok) break;
      Touch(data, ++touched);
      sqlite3_bind_int64(put, 1, rid);
      sqlite3_bind_blob(put, 2, data.data(), static_cast<int>(data.size()), SQLITE_STATIC);
      ok = sqlite3_step(put) == SQLITE_DONE;
      sqlite3_reset(put);
    }
    ok = ok && sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!ok) state.SkipWithError("raw update failed");
  }
  sqlite3_finalize(get);
  sqlite3_finalize(put);
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * kUpdates);
}

void CommitEngine(benchmark::State& state, const Setup& s) {
  const std::string path = (s.dir / "commit-engine.dat").string();
  for (auto _ : state) {
    state.PauseTiming();
    if (CreateEngineFile(s, path)) state.SkipWithError("create failed");
    EngineFile f(s, path);
    state.ResumeTiming();
    int16_t st = f.status;
    for (int i = 0; i < kCommits && st == 0; ++i) {
      f.data = s.data[static_cast<size_t>(i) % s.data.size()];
      f.dataLen = kRecordLength;
      st = f.Call(kOpInsert);
    }
    if (st != 0) state.SkipWithError(fmt::format("insert: status {}", st).c_str());
    state.PauseTiming();  // closing the file folds its log back: not part of the inserts
    f.Call(kOpClose);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kCommits);
}

void CommitRaw(benchmark::State& state, const Setup& s) {
  const std::string path = (s.dir / "commit-raw.dat").string();
  for (auto _ : state) {
    state.PauseTiming();
    if (CreateEngineFile(s, path)) state.SkipWithError("create failed");
    sqlite3* db = OpenRaw(s, path);
    sqlite3_stmt* insert =
        Prepare(db, "INSERT INTO tolmen_record(r, k0, k1, d1, v) VALUES(?1, ?2, ?3, ?1, ?4)");
    state.ResumeTiming();
    bool ok = true;
    for (int i = 0; i < kCommits && ok; ++i) {
      const std::string& record = s.data[static_cast<size_t>(i) % s.data.size()];
      sqlite3_bind_int64(insert, 1, i + 1);
      sqlite3_bind_blob(insert, 2, record.data(), kCodeLength, SQLITE_STATIC);
      sqlite3_bind_blob(insert, 3, record.data() + kCodeLength, kNameLength, SQLITE_STATIC);
      sqlite3_bind_blob(insert, 4, record.data(), kRecordLength, SQLITE_STATIC);
      ok = sqlite3_step(insert) == SQLITE_DONE;
      sqlite3_reset(insert);
    }
    state.PauseTiming();
    sqlite3_finalize(insert);
    sqlite3_close(db);
    state.ResumeTiming();
    if (!ok) state.SkipWithError("raw insert failed");
  }
  state.SetItemsProcessed(state.iterations() * kCommits);
}

void PrintRatios(const AggregateReporter& times) {
  fmt::print("\n{:<10} {:>10} {:>10} {:>7}   {:>10} {:>10} {:>7}\n", "operation", "engine min",
             "raw min", "ratio", "engine med", "raw med", "ratio");
  for (const std::string op : {"Insert", "GetEqual", "GetNext", "Update", "Commit"}) {
    std::string line = fmt::format("{:<10}", op);
    for (const char* stat : {"min", "median"}) {
      const double engine = times.Time(stat, op + "/engine"), raw = times.Time(stat, op + "/raw");
      if (engine <= 0 || raw <= 0) continue;
      line += fmt::format(" {:>10.3f} {:>10.3f} {:>7.2f}  ", engine, raw, raw / engine);
    }
    fmt::print("{}\n", line);
  }
  fmt::print(
      "(times per iteration: Insert and GetNext in ms for the whole file, GetEqual in us,\n"
      " Update in ms for 10,000 records in one transaction, Commit in ms for 1,000 commits;\n"
      " ratio: the engine's speed as a fraction of raw SQLite's; aim 0.8, floor 0.5)\n");
}

bool TakeFlag(std::string_view arg, std::string_view name, std::string& value) {
  if (arg.substr(0, name.size()) != name) return false;
  value = std::string(arg.substr(name.size()));
  return true;
}

}  // namespace
}  // namespace tolmen::bench

int main(int argc, char** argv) {
  using namespace tolmen;
  using namespace tolmen::bench;
  Setup s;
  s.dir = std::filesystem::temp_directory_path();
  std::vector<char*> rest{argv[0]};
  for (int i = 1; i < argc; ++i) {
    std::string v;
    const std::string_view arg = argv[i];
    if (TakeFlag(arg, "--records=", v)) {
      s.records = std::stoi(v);
    } else if (TakeFlag(arg, "--journal=", v)) {
      s.options.journal = v == "wal"        ? EngineOptions::Journal::Wal
                          : v == "truncate" ? EngineOptions::Journal::Truncate
                                            : EngineOptions::Journal::Delete;
    } else if (TakeFlag(arg, "--mmap=", v)) {
      s.options.mmapBytes = std::stoll(v);
    } else if (TakeFlag(arg, "--cache=", v)) {
      s.options.cacheKiB = std::stoi(v);
    } else if (TakeFlag(arg, "--window=", v)) {
      s.options.windowRows = std::stoi(v);
    } else if (TakeFlag(arg, "--dir=", v)) {
      s.dir = v;
    } else {
      rest.push_back(argv[i]);
    }
  }
  s.dir /= "tolmen-bench-" + std::to_string(::getpid());
  std::filesystem::create_directories(s.dir);
  std::vector<int> order(static_cast<size_t>(s.records));
  for (int i = 0; i < s.records; ++i) order[static_cast<size_t>(i)] = i;
  std::mt19937 random(20240315);
  std::shuffle(order.begin(), order.end(), random);
  for (int i : order) s.data.push_back(MakeRecord(i));
  std::shuffle(order.begin(), order.end(), random);
  for (int i : order) s.codes.push_back(fmt::format("A{:09d}", i));
  s.loaded = (s.dir / "loaded.dat").string();
  if (CreateEngineFile(s, s.loaded) || LoadThroughEngine(s, s.loaded)) {
    fmt::print(stderr, "could not build {}\n", s.loaded);
    return 1;
  }
  fmt::print("{} records of {} bytes; journal {}, mmap {} bytes, cache {} KiB, window {} rows\n",
             s.records, kRecordLength, JournalName(s.options.journal), s.options.mmapBytes,
             s.options.cacheKiB, s.options.windowRows);

  using Fn = void (*)(benchmark::State&, const Setup&);
  const std::pair<const char*, Fn> writes[] = {
      {"Insert/engine", InsertEngine}, {"Insert/raw", InsertRaw},
      {"Update/engine", UpdateEngine}, {"Update/raw", UpdateRaw},
      {"Commit/engine", CommitEngine}, {"Commit/raw", CommitRaw}};
  const std::pair<const char*, Fn> reads[] = {{"GetEqual/engine", GetEqualEngine},
                                              {"GetEqual/raw", GetEqualRaw},
                                              {"GetNext/engine", GetNextEngine},
                                              {"GetNext/raw", GetNextRaw}};
  for (const auto& [name, fn] : writes) {
    benchmark::RegisterBenchmark(name, fn, std::cref(s))
        ->Iterations(1)
        ->Repetitions(3)
        ->ComputeStatistics("min", Fastest)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->ReportAggregatesOnly(true);
  }
  for (const auto& [name, fn] : reads) {
    benchmark::RegisterBenchmark(name, fn, std::cref(s))
        ->Repetitions(3)
        ->ComputeStatistics("min", Fastest)
        ->Unit(std::string_view(name).starts_with("GetNext") ? benchmark::kMillisecond
                                                             : benchmark::kMicrosecond)
        ->UseRealTime()
        ->ReportAggregatesOnly(true);
  }
  AggregateReporter reporter;
  RunInterleaved(static_cast<int>(rest.size()), rest.data(), reporter);
  PrintRatios(reporter);
  std::filesystem::remove_all(s.dir);
  return 0;
}
