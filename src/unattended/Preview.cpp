#include "unattended/Preview.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <system_error>

#include "journal/RunJournal.h"
#include "runtime/Cp1252.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "shell/AppInfo.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "unattended/RunMain.h"

namespace tolmen {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::json;

constexpr const char* kFolderMark = "*Pastel Data Folder:";

// A temporary folder, removed with what it holds when the object goes.
class Scratch {
 public:
  Scratch() {
    std::string pattern = (fs::temp_directory_path() / "tolmen-preview-XXXXXX").string();
    if (::mkdtemp(pattern.data()) != nullptr) path_ = pattern + "/";
  }
  ~Scratch() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  const std::string& Path() const { return path_; }  // UTF-8, with a trailing '/'

 private:
  std::string path_;
};

bool ReadBytes(const std::string& systemPath, std::string& bytes) {
  std::ifstream in(systemPath, std::ios::binary);
  if (!in) return false;
  std::ostringstream text;
  text << in.rdbuf();
  bytes = text.str();
  return true;
}

// The lines of a file written with CR LF, without them.
std::vector<std::string> CrLfLines(const std::string& bytes) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < bytes.size()) {
    size_t end = bytes.find("\r\n", start);
    if (end == std::string::npos) end = bytes.size();
    lines.push_back(bytes.substr(start, end - start));
    start = end + 2;
  }
  return lines;
}

// The template's lines with the Pastel folder line naming `copy`; the folder it named, or "" when
// it names none.
std::string PointAt(std::string& bytes, const std::string& copy) {
  std::string folder;
  std::string out;
  size_t start = 0;
  while (start < bytes.size()) {
    size_t end = bytes.find('\n', start);
    end = end == std::string::npos ? bytes.size() : end + 1;
    std::string line = bytes.substr(start, end - start);
    const size_t mark = std::string(kFolderMark).size();
    if (folder.empty() && UCase(line.substr(0, mark)) == UCase(kFolderMark)) {
      std::string value = line.substr(mark);
      const std::string ending = value.size() >= 2 && value.substr(value.size() - 2) == "\r\n"
                                     ? "\r\n"
                                     : (!value.empty() && value.back() == '\n' ? "\n" : "");
      value = Trim(value.substr(0, value.size() - ending.size()));
      folder = value.empty() || value.back() == '/' ? value : value + "/";
      line = std::string(kFolderMark) + " " + copy + ending;
    }
    out += line;
    start = end;
  }
  bytes = out;
  return folder;
}

// Copies the regular files of `from` into `to` (both system paths); false on the first failure.
bool CopyFiles(const std::string& from, const std::string& to, std::string& why) {
  std::error_code ec;
  fs::create_directories(to, ec);
  for (const fs::directory_entry& entry : fs::directory_iterator(from, ec)) {
    std::error_code kind;
    if (!entry.is_regular_file(kind)) continue;
    fs::copy_file(entry.path(), fs::path(to) / entry.path().filename(),
                  fs::copy_options::overwrite_existing, ec);
    if (ec) break;
  }
  if (ec) why = from + ": " + ec.message();
  return !ec;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

// The columns of an import-file line: commas outside double quotes part them; quotes are kept
// off, a doubled quote inside them is one.
std::vector<std::string> Columns(const std::string& line) {
  std::vector<std::string> columns(1);
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"') {
      columns.back() += '"';
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      columns.emplace_back();
    } else {
      columns.back() += c;
    }
  }
  return columns;
}

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

}  // namespace

std::vector<PreviewInvoice> InvoicesOfLines(const std::vector<std::string>& lines) {
  std::vector<PreviewInvoice> invoices;
  for (const std::string& line : lines) {
    const std::vector<std::string> c = Columns(line);
    if (c[0] == "Header" && c.size() > 6) {
      invoices.push_back({c[4], c[6], {}});
    } else if (c[0] == "Detail" && c.size() > 10 && !invoices.empty()) {
      invoices.back().lines.push_back({c[10], c[2], c[3], c[4]});
    }
  }
  return invoices;
}

PreviewResult PreviewTemplate(const std::string& path, const std::string& appFolder,
                              const std::string& settingsPath, Clock& clock,
                              const UnattendedUi::Settings& uiSettings, std::ostream& err) {
  PreviewResult result;
  result.run.path = path;
  const auto refuse = [&](const std::string& why) {
    err << "tolmen run --preview: " << Cp1252ToUtf8(path) << ": " << Cp1252ToUtf8(why) << "\n";
    result.run.messages.push_back(why);
    return result;
  };
  std::string bytes;
  if (!ReadBytes(SystemPath(path), bytes)) return refuse("cannot be read");
  const Scratch scratch;
  if (scratch.Path().empty()) return refuse("no temporary folder could be made");
  const std::string copyPastel = PathFromSystem(scratch.Path() + "pastel/");
  const std::string copyHome = PathFromSystem(scratch.Path() + "home/");
  const std::string folder = PointAt(bytes, copyPastel);
  if (folder.empty()) return refuse("the template names no Pastel folder");

  // 1 and 2: the copies.
  std::string why;
  if (!CopyFiles(SystemPath(folder), SystemPath(copyPastel), why) ||
      !CopyFiles(SystemPath(appFolder), SystemPath(copyHome), why))
    return refuse(PathFromSystem(why));
  const std::string copyTemplate = copyHome + "preview.KTF";
  std::ofstream(SystemPath(copyTemplate), std::ios::binary) << bytes;
  const std::string copySettings = scratch.Path() + "settings.ini";
  std::error_code ec;
  if (!settingsPath.empty() && fs::exists(settingsPath, ec))
    fs::copy_file(settingsPath, copySettings, ec);
  std::string logBefore;
  ReadBytes(SystemPath(copyPastel + RunLog::kFileName), logBefore);
  const size_t journalBefore = ReadJournal(copyPastel).size();

  // 3 and 4: the run.
  AppInfo info = MakeAppInfo(copyHome, TOLMEN_VERSION);
  UnattendedUi ui(err, clock, info.AppName, uiSettings);
  {
    Tolmen app(info, ui, clock, copySettings);
    ui.Attach(&app);
    app.maximizer.keptWrites = std::make_shared<KeptWrites>();
    LoadForRun(app);
    result.run = RunTemplateOfCall(app, ui, copyTemplate, 0, 1, err, path);
    UnloadAfterRun(app);
    ui.Attach(nullptr);
  }
  result.run.path = path;

  // 5: what the run made, named as in the real folder.
  const auto real = [&](const std::string& text) {
    return Replaced(Replaced(text, copyPastel, folder), copyTemplate, path);
  };
  for (std::string& file : result.run.files) {
    std::string content;
    ReadBytes(SystemPath(file), content);
    const std::string name = real(file);
    result.files.push_back({name, CrLfLines(content)});
    if (StartsWith(UCase(fs::path(SystemPath(name)).filename().string()), "MAXINV"))
      result.invoices = InvoicesOfLines(result.files.back().lines);
    file = name;
  }
  result.run.log = real(result.run.log);
  for (std::string& message : result.run.messages) message = real(message);
  const std::vector<json> records = ReadJournal(copyPastel);
  for (size_t index = journalBefore; index < records.size(); ++index) {
    const json& record = records[index];
    const auto text = [&](const char* key) { return Utf8ToCp1252(record.value(key, "")); };
    if (record.value("type", "") == "udf") {
      result.udfChanges.push_back(
          {{text("client"), text("contact")}, text("udf"), text("before"), text("written")});
    } else if (record.value("type", "") == "run") {
      for (const json& category : record.value("categories", json::array()))
        result.categories.push_back(Utf8ToCp1252(category.get<std::string>()));
    }
  }
  std::string logAfter;
  ReadBytes(SystemPath(copyPastel + RunLog::kFileName), logAfter);
  const std::string added =
      StartsWith(logAfter, logBefore) ? logAfter.substr(logBefore.size()) : logAfter;
  for (const std::string& line : CrLfLines(added)) result.log.push_back(real(line));
  return result;
}

std::string PreviewText(const PreviewResult& result) {
  std::ostringstream out;
  const auto u = [](const std::string& text) { return Cp1252ToUtf8(text); };
  out << "Preview (nothing was changed): " << SummaryLine(result.run) << "\n";
  for (const PreviewFile& file : result.files) {
    out << "Import file " << u(file.name) << " (" << file.lines.size() << " lines):\n";
    for (const std::string& line : file.lines) out << "  " << u(line) << "\n";
  }
  out << "UDF changes (" << result.udfChanges.size() << "):\n";
  for (const PreviewUdfChange& change : result.udfChanges)
    out << "  " << u(change.record.identification) << "/" << u(change.record.contactNumber) << " "
        << u(change.udf) << ": \"" << u(change.before) << "\" -> \"" << u(change.after) << "\"\n";
  out << "Categories created (" << result.categories.size() << "):\n";
  for (const std::string& category : result.categories) out << "  " << u(category) << "\n";
  out << "Invoices (" << result.invoices.size() << "):\n";
  for (const PreviewInvoice& invoice : result.invoices) {
    out << "  " << u(invoice.account) << " " << u(invoice.date) << "\n";
    for (const PreviewInvoiceLine& line : invoice.lines)
      out << "    " << u(line.quantity) << " x " << u(line.price) << " (" << u(line.priceIncl)
          << " with tax) " << u(line.description) << "\n";
  }
  out << "Log (" << result.log.size() << " lines):\n";
  for (const std::string& line : result.log) out << "  " << u(line) << "\n";
  return out.str();
}

std::string PreviewJson(const PreviewResult& result) {
  const auto u = [](const std::string& text) { return Cp1252ToUtf8(text); };
  json object = json::parse(JsonLine(result.run));
  json files = json::array();
  for (const PreviewFile& file : result.files) {
    json lines = json::array();
    for (const std::string& line : file.lines) lines.push_back(u(line));
    files.push_back({{"name", u(file.name)}, {"lines", lines}});
  }
  json changes = json::array();
  for (const PreviewUdfChange& change : result.udfChanges)
    changes.push_back({{"client", u(change.record.identification)},
                       {"contact", u(change.record.contactNumber)},
                       {"udf", u(change.udf)},
                       {"old", u(change.before)},
                       {"new", u(change.after)}});
  json categories = json::array();
  for (const std::string& category : result.categories) categories.push_back(u(category));
  json invoices = json::array();
  for (const PreviewInvoice& invoice : result.invoices) {
    json lines = json::array();
    for (const PreviewInvoiceLine& line : invoice.lines)
      lines.push_back({{"description", u(line.description)},
                       {"quantity", u(line.quantity)},
                       {"price", u(line.price)},
                       {"price_incl", u(line.priceIncl)}});
    invoices.push_back(
        {{"account", u(invoice.account)}, {"date", u(invoice.date)}, {"lines", lines}});
  }
  json log = json::array();
  for (const std::string& line : result.log) log.push_back(u(line));
  object["preview"] = true;
  object["import_files"] = files;
  object["udf_changes"] = changes;
  object["categories_created"] = categories;
  object["invoices"] = invoices;
  object["log_lines"] = log;
  return object.dump();
}

}  // namespace tolmen
