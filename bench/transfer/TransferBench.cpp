// A whole transfer of N generated clients, timed: the address book is made with `maxsim init` from
// a generated description and served by maxsim, the Pastel set is made from the demo description,
// and Tolmen runs a template from the wizard (RunApplication, the script front-end, a virtual
// clock, so that the system's own one-second waits cost nothing). Each client has its account
// code in Maximizer, so no prompt stops the run.
//
//   bench_transfer [N...]        four runs per N (default 1000 and 10000), each in its own
//                                process: without links to Maximizer, with a dozen, with
//                                monthly billing, and with both (the whole run's rate)
//
// With links, every client also gets twelve Pastel figures written into its UDFs. Half the
// clients have five-character codes whose debtors are in Pastel (the figures are read from the
// debtor file), the other half six-character codes (the figures of the line just made).
// With billing, every third client is due (no Date Billed) and gets an invoice; the others were
// billed earlier in the month of the run.
//
// For each N the parent makes the book and the set and starts maxsim; a child process runs
// Tolmen alone and reports the wall time of the run, clients per second and its own peak
// resident memory (VmHWM), split into heap and memory-mapped files, so that memory which does
// not grow with N shows; the parent then
// counts the automation calls in maxsim's journal (up to its 100,000 lines).
// maxsim is found beside this executable.
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <nlohmann/json.hpp>

#include "Spawn.h"
#include "pastel/PastelDataSet.h"
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/DateTime.h"
#include "screen/ScreenActions.h"
#include "shell/AppInfo.h"
#include "shell/Application.h"
#include "shell/Tolmen.h"

namespace tolmen::bench {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::json;

fs::path BinFolder() {
  return fs::read_symlink("/proc/self/exe").parent_path();
}

// Reads `fd` until `until` shows (or until its end when `until` is empty).
bool ReadUntil(int fd, std::string& text, const std::string& until) {
  while (until.empty() || text.find(until) == std::string::npos) {
    pollfd wait{fd, POLLIN, 0};
    if (::poll(&wait, 1, 600000) <= 0) return false;
    char buffer[4096];
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n <= 0) return until.empty();
    text.append(buffer, static_cast<size_t>(n));
  }
  return true;
}

// The twelve links of a run with links, each to a numeric UDF of its own ("L01" to "L12").
const std::vector<std::string> kLinkRows = {"Account Balance",
                                            "Account Monthly Aging 0 ('Current')",
                                            "Account Monthly Aging 1 ('30 days')",
                                            "Account Monthly Aging 2 ('60 days')",
                                            "Account Monthly Aging 3 ('90 days')",
                                            "Account Monthly Aging 4+ ('120+')",
                                            "Customer Credit Limit",
                                            "Both years' Total Sales",
                                            "Last year's Total Sales",
                                            "This year's Total Sales",
                                            "Settlement terms code",
                                            "Default Discount (%)"};

std::string LinkUdf(size_t link) {
  const std::string number = std::to_string(link + 1);
  return (number.size() < 2 ? "L0" : "L") + number;
}

// Client i's account code: six characters, or with links for odd i five ("C" and four digits),
// a debtor of the Pastel set.
std::string Code(int i, bool links) {
  char code[8];
  if (links && i % 2 == 1)
    std::snprintf(code, sizeof code, "C%04d", i % 10000);
  else
    std::snprintf(code, sizeof code, "B%05d", i % 100000);
  return code;
}

enum class Mode { kPlain, kLinks, kBilling, kLinksAndBilling };

const char* ModeName(Mode mode) {
  switch (mode) {
    case Mode::kLinks:
      return "links";
    case Mode::kBilling:
      return "billing";
    case Mode::kLinksAndBilling:
      return "links+billing";
    case Mode::kPlain:
      break;
  }
  return "none";
}

bool HasLinks(Mode mode) {
  return mode == Mode::kLinks || mode == Mode::kLinksAndBilling;
}
bool HasBilling(Mode mode) {
  return mode == Mode::kBilling || mode == Mode::kLinksAndBilling;
}

json Book(int clients, Mode mode) {
  const bool links = HasLinks(mode);
  json list = json::array();
  for (int i = 1; i <= clients; ++i) {
    char id[16], name[32];
    std::snprintf(id, sizeof id, "B%06d", i);
    const std::string code = Code(i, links);
    std::snprintf(name, sizeof name, "Client %06d (Pty) Ltd", i);
    list.push_back({{"Identification", id},
                    {"RecType", 1},
                    {"Client_Name", name},
                    {"company", name},
                    {"Address_Line_1", std::to_string(i) + " Main Road"},
                    {"City", "Johannesburg"},
                    {"Zip_/_Postal_Code", "2001"},
                    {"Phone_1", "011 555 0100"},
                    {"Phone_1_Description", "Tel"},
                    {"Phone_2", "011 555 0101"},
                    {"Phone_2_Description", "Fax"},
                    {"E-mail Address", std::string("accounts@") + id + ".example"},
                    {"udfs", {{"Account Number", code}, {"Customer Category", "Retail"}}}});
    if (HasBilling(mode) && i % 3 != 0) list.back()["udfs"]["Date Billed"] = "2 Nov 2026";
  }
  json udfs = {{{"name", "Account Number"}, {"type", "Alphanumeric"}},
               {{"name", "Customer Category"},
                {"type", "Table"},
                {"items", {"Retail", "Wholesale", "Farming"}}}};
  for (size_t link = 0; links && link < kLinkRows.size(); ++link)
    udfs.push_back({{"name", LinkUdf(link)}, {"type", "Numeric"}});
  if (HasBilling(mode)) udfs.push_back({{"name", "Date Billed"}, {"type", "Date"}});
  return {{"name", "Bench Book"}, {"udfs", udfs}, {"clients", list}};
}

// The demo set, with links a debtor with balances and sales for each five-character code.
json PastelSet(int clients, bool links) {
  std::ifstream in(std::string(TOLMEN_SOURCE_DIR) + "/tools/pasteldata/samples/demo.json");
  json set = json::parse(in);
  for (int i = 1; links && i <= clients; i += 2)
    set["files"]["AccMasD.dat"].push_back({{"2", Code(i, links)},
                                           {"3", "Client " + std::to_string(i)},
                                           {"4", 100.25 * i},
                                           {"6", 12.5},
                                           {"20", 40},
                                           {"30", 99.99},
                                           {"75", 5000}});
  return set;
}

const char* kTemplate =
    "TOLMEN TEMPLATE FILE\r\n"
    "*Pastel Data Folder: @PASTEL@\r\n"
    "Pastel Password: \r\n"
    "*Maximizer Database Path: @MAXIMIZER@\r\n"
    "List Clients: 1\r\n"
    "*Tab: Open\r\n"
    "*Tab: To Pastel\r\n"
    "Category Option: 2\r\n"
    "Category UDF: Customer Category\r\n"
    "Import Which Data: 1 \r\n"
    "Individual Client Names: 0 \r\n"
    "Add Client Name to Address: 0 \r\n"
    "Add Company Name to Address: 1 \r\n"
    "Pastel Postal Address: <Selected>\r\n"
    "Pastel Delivery Address: \r\n"
    "Pastel Prefix Size:4\r\n"
    "Pastel Suffix Size:2\r\n"
    "Account Number: Account Number\r\n"
    "*Tab: To Maximizer\r\n"
    "@LINKS@"
    "*Tab: Recurring Billing\r\n"
    "@BILLING@";

// Monthly billing on the day of the run; the price of "Retail" is in the settings store.
const char* kBilling =
    "Billing Period: 2\r\n"
    "Bill When: 0\r\n"
    "Date Billed: Date Billed\r\n"
    "GL Code: 1000000\r\n"
    "VAT Code: 1\r\n";

std::string Replace(std::string text, const std::string& what, const std::string& with) {
  const size_t at = text.find(what);
  if (at != std::string::npos) text.replace(at, what.size(), with);
  return text;
}

// A field of /proc/self/status in kilobytes ("VmHWM", "RssAnon", "RssFile"); -1 when missing.
long StatusKilobytes(const std::string& field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind(field + ":", 0) == 0) return std::atol(line.c_str() + field.size() + 1);
  return -1;
}

// The highest anonymous (heap) and file-backed resident memory seen while it lives, sampled
// every 20 ms. The file-backed part is the record engine's memory-mapped files (Maximizer's
// client file grows with the book), shared with the system's page cache.
class MemorySampler {
 public:
  MemorySampler()
      : thread_([this] {
          while (!stop_) {
            anon_ = std::max(anon_.load(), StatusKilobytes("RssAnon"));
            file_ = std::max(file_.load(), StatusKilobytes("RssFile"));
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
          }
        }) {}
  ~MemorySampler() { Stop(); }
  void Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
  }
  long Anon() const { return anon_; }
  long File() const { return file_; }

 private:
  std::atomic<bool> stop_{false};
  std::atomic<long> anon_{0};
  std::atomic<long> file_{0};
  std::thread thread_;
};

// The child: Tolmen alone, over the world the parent made in `folder`.
int RunTolmen(const fs::path& folder, int clients, Mode mode) {
  const bool links = HasLinks(mode);
  const long before = StatusKilobytes("VmHWM");
  MemorySampler sampler;
  VirtualClock clock(DateFromParts(2026, 11, 23, 9, 0, 0));
  std::vector<std::string> script = {"@click mnuFile \"&Open Template...\"",
                                     "= " + (folder / "home/run.KTF").string()};
  // The links are written only while Options > "Update Maximizer from Pastel" is ticked.
  if (links) script.push_back("@click mnuOptnPas2Max");
  script.insert(script.end(), {"@click cmdNext", "Yes", "No"});
  ScriptUi ui(script, nullptr, clock, "Tolmen");
  Tolmen app(MakeAppInfo((folder / "home").string() + "/", "1.0.0"), ui, clock,
             (folder / "settings.ini").string());
  ScreenActions window(app.screen);
  const auto start = std::chrono::steady_clock::now();
  RunApplication(app, window);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  sampler.Stop();

  // The run is only counted when every client became a line (the last one twice: Maximizer's
  // list is read one line past its end).
  std::ifstream csv(folder / "pastel/MaxCus01.csv", std::ios::binary);
  long lines = 0;
  for (std::string line; std::getline(csv, line);) ++lines;
  const int sent = links ? clients + 1 : 0;
  const int invoices = HasBilling(mode) ? clients / 3 : 0;
  if (lines != clients + 1 || app.run.ClientsProcessed != clients + 1 ||
      app.run.BalancesSent != sent || app.run.InvoiceCount != invoices) {
    std::cerr << "bench_transfer: " << lines << " lines, " << app.run.ClientsProcessed
              << " clients processed, " << app.run.BalancesSent << " sent to Maximizer and "
              << app.run.InvoiceCount << " invoices for " << clients << " clients\n";
    return 1;
  }
  std::printf(
      "N=%6d  %2zu links%s  %7.2f s  %5.0f clients/s  peak RSS %5.1f MB (%.1f MB at start): heap "
      "%5.1f MB, "
      "mapped files %5.1f MB\n",
      clients, links ? kLinkRows.size() : 0,
      HasBilling(mode) ? (", " + std::to_string(invoices) + " invoices").c_str() : "", seconds,
      clients / seconds, StatusKilobytes("VmHWM") / 1024.0, before / 1024.0,
      sampler.Anon() / 1024.0, sampler.File() / 1024.0);
  return 0;
}

// The parent: the world for N clients, maxsim serving it, and the child.
int Measure(int clients, Mode mode) {
  const bool links = HasLinks(mode);
  const fs::path folder =
      fs::temp_directory_path() / ("tolmen-bench-transfer-" + std::to_string(::getpid()));
  fs::remove_all(folder);
  fs::create_directories(folder / "home");
  const std::string maxsim = (BinFolder() / "maxsim").string();
  const std::string socket = (folder / "maximizer.sock").string();
  ::setenv("MAXIMIZER_SOCKET", socket.c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);

  std::ofstream(folder / "book.json") << Book(clients, mode).dump();
  if (HasBilling(mode)) std::ofstream(folder / "settings.ini") << "[Billing]\nRetail=100\n";
  if (Reap(Spawn(
          {maxsim, "init", (folder / "db").string(), "--from", (folder / "book.json").string()},
          nullptr)) != 0) {
    std::cerr << "bench_transfer: maxsim init failed\n";
    return 1;
  }
  {
    const json set = PastelSet(clients, links);
    VirtualClock clock(DateFromParts(2026, 11, 23, 9, 0, 0));
    ScriptUi ui({}, nullptr, clock, "Tolmen");
    Tolmen maker(MakeAppInfo((folder / "home").string() + "/", "1.0.0"), ui, clock,
                 (folder / "maker.ini").string());
    CreatePastelSet(maker, (folder / "pastel").string() + "/", set);
  }
  std::string text = Replace(kTemplate, "@PASTEL@", (folder / "pastel").string() + "/");
  text = Replace(text, "@MAXIMIZER@", (folder / "db").string());
  std::string linkLines;
  for (size_t link = 0; links && link < kLinkRows.size(); ++link)
    linkLines += "To Max: " + kLinkRows[link] + "| => " + LinkUdf(link) + "| (Number)\r\n";
  text = Replace(text, "@LINKS@", linkLines);
  text = Replace(text, "@BILLING@", HasBilling(mode) ? kBilling : "Billing Period: 0\r\n");
  std::ofstream(folder / "home/run.KTF", std::ios::binary) << text;

  int out = -1;
  const pid_t server = Spawn({maxsim, "serve", (folder / "db").string(), "--socket", socket}, &out);
  std::string said;
  int status = 1;
  if (ReadUntil(out, said, "ready\n")) {
    const std::string self = fs::read_symlink("/proc/self/exe").string();
    status = Reap(
        Spawn({self, "--run", folder.string(), std::to_string(clients), ModeName(mode)}, nullptr));
    // The automation calls the run made, from maxsim's journal (which keeps the last 100,000).
    int journal = -1;
    const pid_t ctl = Spawn({maxsim, "ctl", "--socket", socket, "journal"}, &journal);
    std::string calls;
    ReadUntil(journal, calls, "");
    ::close(journal);
    Reap(ctl);
    const long count = static_cast<long>(std::count(calls.begin(), calls.end(), '\n'));
    if (status == 0 && count < 100000)
      std::printf("         %ld automation calls, %.1f a client\n", count,
                  static_cast<double>(count) / clients);
  } else {
    std::cerr << "bench_transfer: maxsim did not start\n";
  }
  ::kill(server, SIGTERM);
  Reap(server);
  ::close(out);
  fs::remove_all(folder);
  return status;
}

}  // namespace
}  // namespace tolmen::bench

int main(int argc, char** argv) {
  using tolmen::bench::Mode;
  if (argc == 5 && std::string(argv[1]) == "--run") {
    const std::string mode = argv[4];
    return tolmen::bench::RunTolmen(argv[2], std::atoi(argv[3]),
                                    mode == "links"           ? Mode::kLinks
                                    : mode == "billing"       ? Mode::kBilling
                                    : mode == "links+billing" ? Mode::kLinksAndBilling
                                                              : Mode::kPlain);
  }
  std::vector<int> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
  if (sizes.empty()) sizes = {1000, 10000};
  int status = 0;
  for (int clients : sizes)
    for (Mode mode : {Mode::kPlain, Mode::kLinks, Mode::kBilling, Mode::kLinksAndBilling})
      if (clients > 0 && tolmen::bench::Measure(clients, mode) != 0) status = 1;
  return status;
}
