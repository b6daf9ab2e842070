#include "journal/RunJournal.h"

#include <unistd.h>

#include <cstdio>
#include <random>

#include "maximizer/MaximizerLink.h"
#include "platform/ui/Clock.h"
#include "runtime/Cp1252.h"
#include "runtime/Format.h"
#include "runtime/SystemPath.h"

namespace tolmen {

RunJournal::RunJournal(const std::string& folder) {
  if (!folder.empty())
    out_.open(SystemPath(folder + kJournalFile), std::ios::binary | std::ios::app);
}

void RunJournal::Append(const nlohmann::json& record) {
  if (!out_.is_open()) return;
  out_ << record.dump() << '\n';
  out_.flush();
}

std::string NewRunId(double now) {
  // The random part tells apart two runs of one process in one second.
  std::random_device random;
  char part[8];
  std::snprintf(part, sizeof part, "%04x", static_cast<unsigned>(random() & 0xffffu));
  return FormatDate(now, "yyyymmdd-hhnnss") + "-" + std::to_string(static_cast<long>(getpid())) +
         "-" + part;
}

std::string JournalTime(double now) {
  return FormatDate(now, "yyyy-mm-dd hh:nn:ss");
}

nlohmann::json UdfWriteRecord(const std::string& runId, double now, const UdfWrite& write) {
  return {{"type", "udf"},
          {"run", runId},
          {"time", JournalTime(now)},
          {"client", Cp1252ToUtf8(write.record.identification)},
          {"contact", Cp1252ToUtf8(write.record.contactNumber)},
          {"udf", Cp1252ToUtf8(write.udf)},
          {"before", Cp1252ToUtf8(write.before)},
          {"written", Cp1252ToUtf8(write.written)},
          {"stored", Cp1252ToUtf8(write.stored)}};
}

std::vector<nlohmann::json> ReadJournal(const std::string& folder) {
  std::vector<nlohmann::json> records;
  std::ifstream in(SystemPath(folder + kJournalFile), std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    nlohmann::json record = nlohmann::json::parse(line, nullptr, false);
    if (record.is_object() && record.contains("type") && record.contains("run"))
      records.push_back(std::move(record));
  }
  return records;
}

JournalledRun::JournalledRun(MaximizerLink& link, const Clock& clock,
                             const std::string& pastelFolder)
    : link_(link),
      clock_(clock),
      folder_(pastelFolder),
      id_(NewRunId(clock.Now())),
      journal_(pastelFolder) {
  if (!journal_.IsOpen()) return;
  link_.udfWritten = [this](const UdfWrite& write) {
    journal_.Append(UdfWriteRecord(id_, clock_.Now(), write));
  };
}

JournalledRun::~JournalledRun() {
  link_.udfWritten = nullptr;
}

void JournalledRun::Finish(const RunSummary& summary) {
  nlohmann::json counts = nlohmann::json::object();
  for (const auto& [name, count] : summary.counts) counts[name] = count;
  nlohmann::json files = nlohmann::json::array();
  for (const std::string& file : summary.files) files.push_back(Cp1252ToUtf8(file));
  nlohmann::json categories = nlohmann::json::array();
  for (const std::string& category : summary.categories)
    categories.push_back(Cp1252ToUtf8(category));
  journal_.Append({{"type", "run"},
                   {"run", id_},
                   {"time", JournalTime(clock_.Now())},
                   {"template", Cp1252ToUtf8(summary.templatePath)},
                   {"entry", Cp1252ToUtf8(summary.entry)},
                   {"pastel", Cp1252ToUtf8(folder_)},
                   {"maximizer", Cp1252ToUtf8(summary.maximizer)},
                   {"status", summary.status},
                   {"counts", counts},
                   {"files", files},
                   {"categories", categories}});
}

}  // namespace tolmen
