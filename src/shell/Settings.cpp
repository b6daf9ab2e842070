#include "shell/Settings.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "runtime/Cp1252.h"
#include "runtime/ReplaceFile.h"
#include "runtime/RuntimeError.h"
#include "shell/ConfigFolder.h"

namespace tolmen {
namespace {

bool NeedsHexEscape(unsigned char c) {
  return c < 0x20 || c == '=' || c == '[' || c == ']' || c == ';' || c == '#';
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

}  // namespace

std::string EscapeIni(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    const bool edgeBlank = c == ' ' && (i == 0 || i + 1 == text.size());
    if (c == '\\') {
      out += "\\\\";
    } else if (NeedsHexEscape(c) || edgeBlank) {
      char hex[5];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

std::string UnescapeIni(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 >= text.size()) {
      out += text[i];
    } else if (text[i + 1] == '\\') {
      out += '\\';
      ++i;
    } else if (text[i + 1] == 'x' && i + 3 < text.size() && HexValue(text[i + 2]) >= 0 &&
               HexValue(text[i + 3]) >= 0) {
      out += static_cast<char>(HexValue(text[i + 2]) * 16 + HexValue(text[i + 3]));
      i += 3;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string Settings::DefaultPath() {
  const std::string folder = ConfigFolder();
  return folder.empty() ? "" : folder + "/Vellumator7/settings.ini";
}

void Settings::Load() {
  if (loaded_) return;
  loaded_ = true;
  std::ifstream in(path_, std::ios::binary);
  std::string line, section;
  while (std::getline(in, line)) {
    std::string text = Trimmed(line);
    if (text.empty() || text[0] == ';' || text[0] == '#') continue;
    if (text.front() == '[' && text.back() == ']') {
      section = UnescapeIni(text.substr(1, text.size() - 2));
      continue;
    }
    const auto equals = text.find('=');
    if (equals == std::string::npos) continue;
    // The file is UTF-8 for people to read; the values are Windows-1252 inside.
    entries_.push_back({section, Utf8ToCp1252(UnescapeIni(Trimmed(text.substr(0, equals)))),
                        Utf8ToCp1252(UnescapeIni(Trimmed(text.substr(equals + 1))))});
  }
}

void Settings::Store() {
  std::ostringstream out;
  bool first = true;
  // Sections are written in the order they first appear.
  std::vector<std::string> sections;
  for (const Entry& e : entries_) {
    bool seen = false;
    for (const std::string& s : sections) seen = seen || EqualsNoCase(s, e.section);
    if (!seen) sections.push_back(e.section);
  }
  for (const std::string& s : sections) {
    if (!first) out << "\n";
    first = false;
    out << "[" << EscapeIni(s) << "]\n";
    for (const Entry& e : entries_)
      if (EqualsNoCase(e.section, s))
        out << Cp1252ToUtf8(EscapeIni(e.key)) << "=" << Cp1252ToUtf8(EscapeIni(e.value)) << "\n";
  }

  if (path_.empty()) throw RuntimeError(75, "Path/File access error: " + path_);
  namespace fs = std::filesystem;
  std::error_code ec;
  fs::create_directories(fs::path(path_).parent_path(), ec);
  // Whole or not at all: a full disk leaves the old file as it was.
  if (const int failure = ReplaceFile(path_, out.str())) {
    if (DiskFullErrno(failure)) throw RuntimeError(61, "Disk full: " + path_);
    throw RuntimeError(75, "Path/File access error: " + path_);
  }
}

Settings::Entry* Settings::Find(const std::string& section, const std::string& key) {
  Load();
  for (Entry& e : entries_)
    if (EqualsNoCase(e.section, section) && EqualsNoCase(e.key, key)) return &e;
  return nullptr;
}

std::string Settings::GetSetting(const std::string& section, const std::string& key,
                                 const std::string& defaultValue) {
  const Entry* e = Find(section, key);
  return e ? e->value : defaultValue;
}

void Settings::SaveSetting(const std::string& section, const std::string& key,
                           const std::string& value) {
  const std::vector<Entry> before = (Load(), entries_);
  if (Entry* e = Find(section, key))
    e->value = value;
  else
    entries_.push_back({section, key, value});
  try {
    Store();
  } catch (...) {
    entries_ = before;
    throw;
  }
}

void Settings::DeleteSetting(const std::string& section, const std::string& key) {
  Load();
  for (auto it = entries_.begin(); it != entries_.end(); ++it) {
    if (EqualsNoCase(it->section, section) && EqualsNoCase(it->key, key)) {
      const std::vector<Entry> before = entries_;
      entries_.erase(it);
      try {
        Store();
      } catch (...) {
        entries_ = before;
        throw;
      }
      return;
    }
  }
}

}  // namespace tolmen
