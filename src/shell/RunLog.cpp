#include "shell/RunLog.h"

#include <filesystem>
#include <system_error>

#include "runtime/Format.h"
#include "runtime/RuntimeError.h"
#include "shell/Tolmen.h"

namespace tolmen {

void RunLog::SetFolder(const std::string& folder) {
  if (folder == folder_) return;
  Close();
  folder_ = folder;
}

void RunLog::Append(const std::string& line) {
  if (!file_.is_open()) {
    file_.open(Path(), std::ios::binary | std::ios::app);
    if (!file_) throw RuntimeError(75, "Path/File access error: " + Path());
  }
  file_ << line << "\r\n";
  file_.flush();
  if (!file_) {
    file_.close();
    throw RuntimeError(61, "Disk full: " + Path());
  }
}

void RunLog::Close() {
  if (file_.is_open()) file_.close();
}

void RunLog::Rotate(int32_t limitKb) {
  if (limitKb == 0) return;
  std::error_code ec;
  const auto size = std::filesystem::file_size(Path(), ec);
  if (ec || size <= static_cast<std::uintmax_t>(limitKb) * 1024u) return;
  const std::string old = folder_ + kOldFileName;
  std::filesystem::remove(old, ec);
  std::filesystem::rename(Path(), old, ec);
}

void LogEntry(Tolmen& app, int16_t kind, const std::string& text) {
  switch (kind) {
    case 8:
      app.log.Append(text);
      break;
    case 9:
      app.log.Append(FormatDate(app.clock.Now(), "yyyy-mm-dd hh:mm") + " - " + text);
      break;
    case 4:
    case 5:
      return;
    default:
      if (kind < 0 || kind > 11) return;
      // The entries about debtors, categories and clients come with the records they describe.
      throw RuntimeError(5, "LogEntry kind " + std::to_string(kind) + " is not available");
  }
  if (app.shell.DebugLevel != 0) app.log.Close();
}

void LogError(Tolmen& app, const std::string& text) {
  ++app.run.ErrorCount;
  LogEntry(app, 8, "### Error " + std::to_string(app.run.ErrorCount) + ": " + text);
}

}  // namespace tolmen
