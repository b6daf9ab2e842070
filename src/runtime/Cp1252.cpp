#include "runtime/Cp1252.h"

#include <array>
#include <cstdint>

namespace tolmen {
namespace {

// Code points of bytes 0x80 to 0x9F; the undefined ones keep their own number.
constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CodePoint(unsigned char b) {
  if (b >= 0x80 && b < 0xA0) return kHigh[b - 0x80];
  return b;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

int ByteFor(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] == cp) return 0x80 + i;
  return -1;
}

}  // namespace

std::string Cp1252ToUtf8(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) AppendUtf8(out, CodePoint(static_cast<unsigned char>(c)));
  return out;
}

std::string Utf8ToCp1252(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    auto b = static_cast<unsigned char>(text[i]);
    size_t extra = (b & 0xE0) == 0xC0 ? 1 : (b & 0xF0) == 0xE0 ? 2 : (b & 0xF8) == 0xF0 ? 3 : 0;
    char32_t cp = b & (0x7F >> (extra + 1));
    bool ok = extra > 0 && i + extra < text.size();
    for (size_t k = 1; ok && k <= extra; ++k) {
      auto cont = static_cast<unsigned char>(text[i + k]);
      ok = (cont & 0xC0) == 0x80;
      cp = (cp << 6) | (cont & 0x3F);
    }
    if (!ok) {
      // ASCII, or a byte that starts no well-formed sequence: taken as it stands.
      out += static_cast<char>(b);
      ++i;
      continue;
    }
    int byte = ByteFor(cp);
    out += byte < 0 ? '?' : static_cast<char>(byte);
    i += extra + 1;
  }
  return out;
}

char UCaseChar(char c) {
  auto b = static_cast<unsigned char>(c);
  if (b >= 'a' && b <= 'z') return static_cast<char>(b - 32);
  if (b >= 0xE0 && b <= 0xFE && b != 0xF7) return static_cast<char>(b - 32);
  if (b == 0x9A || b == 0x9C || b == 0x9E) return static_cast<char>(b - 16);
  if (b == 0xFF) return static_cast<char>(0x9F);
  return c;
}

char LCaseChar(char c) {
  auto b = static_cast<unsigned char>(c);
  if (b >= 'A' && b <= 'Z') return static_cast<char>(b + 32);
  if (b >= 0xC0 && b <= 0xDE && b != 0xD7) return static_cast<char>(b + 32);
  if (b == 0x8A || b == 0x8C || b == 0x8E) return static_cast<char>(b + 16);
  if (b == 0x9F) return static_cast<char>(0xFF);
  return c;
}

std::string UCase(const std::string& text) {
  std::string out = text;
  for (char& c : out) c = UCaseChar(c);
  return out;
}

std::string LCase(const std::string& text) {
  std::string out = text;
  for (char& c : out) c = LCaseChar(c);
  return out;
}

bool EqualsNoCase(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (UCaseChar(a[i]) != UCaseChar(b[i])) return false;
  return true;
}

}  // namespace tolmen
