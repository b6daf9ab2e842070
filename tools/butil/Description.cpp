#include "Description.h"

#include <cctype>
#include <charconv>
#include <vector>

namespace tolmen::butil {
namespace {

struct Element {
  std::string keyword;  // lower case
  std::string value;    // lower case
  std::string text;     // as written, for messages
};

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

bool Split(const std::string& text, std::vector<Element>& out, std::string& error) {
  size_t i = 0;
  while (i < text.size()) {
    if (std::isspace(static_cast<unsigned char>(text[i]))) {
      ++i;
      continue;
    }
    if (text.compare(i, 2, "/*") == 0) {
      const size_t end = text.find("*/", i + 2);
      if (end == std::string::npos) {
        error = "a comment has no end";
        return false;
      }
      i = end + 2;
      continue;
    }
    size_t end = i;
    while (end < text.size() && !std::isspace(static_cast<unsigned char>(text[end]))) ++end;
    const std::string token = text.substr(i, end - i);
    i = end;
    const size_t eq = token.find('=');
    if (eq == std::string::npos || eq == 0 || eq + 1 == token.size()) {
      error = "\"" + token + "\" is not keyword=value";
      return false;
    }
    out.push_back({Lower(token.substr(0, eq)), Lower(token.substr(eq + 1)), token});
  }
  return true;
}

bool Number(const Element& e, uint16_t& n, std::string& error) {
  unsigned v = 0;
  const char* end = e.value.data() + e.value.size();
  const auto [p, ec] = std::from_chars(e.value.data(), end, v);
  if (ec != std::errc() || p != end || v > 0xFFFF) {
    error = "\"" + e.text + "\": not a number from 0 to 65535";
    return false;
  }
  n = static_cast<uint16_t>(v);
  return true;
}

bool YesNo(const Element& e, bool& yes, std::string& error) {
  if (e.value == "y" || e.value == "yes") {
    yes = true;
  } else if (e.value == "n" || e.value == "no") {
    yes = false;
  } else {
    error = "\"" + e.text + "\": y or n expected";
    return false;
  }
  return true;
}

// y is the only answer the engine cannot honour.
bool MustBeNo(const Element& e, std::string& error) {
  bool yes = false;
  if (!YesNo(e, yes, error)) return false;
  if (yes) error = "\"" + e.text + "\": not supported by this record engine";
  return !yes;
}

struct TypeEntry {
  const char* name;
  const char* shown;
  int code;  // -1: a type the engine does not collate
};
constexpr TypeEntry kTypes[] = {
    {"string", "String", 0},
    {"integer", "Integer", 1},
    {"float", "Float", 2},
    {"date", "Date", 3},
    {"time", "Time", 4},
    {"decimal", "Decimal", -1},
    {"money", "Money", -1},
    {"logical", "Logical", -1},
    {"numeric", "Numeric", -1},
    {"bfloat", "BFloat", -1},
    {"lstring", "LString", 10},
    {"zstring", "ZString", 11},
    {"note", "Note", -1},
    {"lvar", "LVar", -1},
    {"unsigned", "Unsigned Binary", 14},
    {"ubinary", "Unsigned Binary", 14},
    {"autoincrement", "AutoIncrement", 15},
    {"bit", "Bit", -1},
};

bool Type(const Element& e, KeyType& type, std::string& error) {
  for (const TypeEntry& t : kTypes) {
    const std::string_view name(t.name);
    // The full name or an abbreviation of at least three letters ("int", "zstr", "autoinc").
    if (e.value.size() >= 3 && name.substr(0, e.value.size()) == e.value) {
      if (t.code < 0) {
        error = "\"" + e.text + "\": keys of this type are not supported by this record engine";
        return false;
      }
      type = static_cast<KeyType>(t.code);
      return true;
    }
  }
  error = "\"" + e.text + "\": unknown key type";
  return false;
}

bool FileElement(const Element& e, FileDef& def, uint16_t& keys, bool& haveRecord, bool& haveKeys,
                 std::string& error) {
  const std::string& k = e.keyword;
  if (k == "record") return haveRecord = Number(e, def.recordLength, error);
  if (k == "key") return haveKeys = Number(e, keys, error);
  if (k == "page") return Number(e, def.pageSize, error);
  if (k == "variable") return YesNo(e, def.variable, error);
  if (k == "compress" || k == "huge" || k == "vats") return MustBeNo(e, error);
  if (k == "data") {
    bool withData = true;
    if (!YesNo(e, withData, error)) return false;
    if (!withData) error = "\"" + e.text + "\": key-only files are not supported";
    return withData;
  }
  // Elements about the record manager's own storage, which mean nothing here.
  for (const char* ignored : {"dupkey", "truncate", "allocation", "replace", "fthreshold",
                              "balance", "usekeynum", "sysdataonrecord", "blank"}) {
    if (k == ignored) return true;
  }
  error = "\"" + e.text + "\": unknown element before the first position=";
  return false;
}

}  // namespace

std::string TypeName(uint8_t extendedType) {
  for (const TypeEntry& t : kTypes) {
    if (t.code == extendedType) return t.shown;
  }
  return "Type " + std::to_string(extendedType);
}

bool ParseDescription(const std::string& text, FileDef& def, std::string& error) {
  def = FileDef{};
  std::vector<Element> elements;
  if (!Split(text, elements, error)) return false;
  size_t i = 0;
  uint16_t keyCount = 0;
  bool haveRecord = false, haveKeys = false;
  for (; i < elements.size() && elements[i].keyword != "position"; ++i) {
    if (!FileElement(elements[i], def, keyCount, haveRecord, haveKeys, error)) return false;
  }
  if (!haveRecord || !haveKeys) {
    error = "record= and key= are required before the first position=";
    return false;
  }
  KeyDef key;
  bool inKey = false;
  while (i < elements.size()) {
    const Element& start = elements[i];
    if (start.keyword != "position") {
      // After the last key: the default alternate collating sequence, which no key uses here.
      if (!inKey && (start.keyword == "name" || start.keyword == "countryid" ||
                     start.keyword == "codepageid")) {
        ++i;
        continue;
      }
      error = "\"" + start.text + "\": position= expected";
      return false;
    }
    SegmentDef seg;
    bool havePosition = Number(start, seg.position, error), haveLength = false, haveType = false;
    if (!havePosition) return false;
    bool ended = false, more = false;
    for (++i; i < elements.size() && !ended; ++i) {
      const Element& e = elements[i];
      const std::string& k = e.keyword;
      bool ok = true, flag = false;
      if (k == "length") {
        ok = haveLength = Number(e, seg.length, error);
      } else if (k == "duplicates") {
        ok = YesNo(e, flag, error);
        if (!inKey) key.duplicates = flag;
      } else if (k == "modifiable") {
        ok = YesNo(e, flag, error);
        if (!inKey) key.modifiable = flag;
      } else if (k == "type") {
        ok = haveType = Type(e, seg.type, error);
      } else if (k == "descending") {
        ok = YesNo(e, seg.descending, error);
      } else if (k == "caseinsensitive") {
        ok = YesNo(e, seg.caseInsensitive, error);
      } else if (k == "alternate" || k == "nullkey" || k == "null" || k == "manual") {
        ok = MustBeNo(e, error);
      } else if (k == "value" || k == "repeatdup") {
        // Without null keys the null value means nothing; duplicates are kept in order either way.
      } else if (k == "segment") {
        ok = YesNo(e, more, error);
        ended = true;
      } else {
        error = "\"" + e.text + "\": unknown element in a key segment";
        ok = false;
      }
      if (!ok) return false;
    }
    if (!ended || !haveLength || !haveType) {
      error = "the segment at \"" + start.text + "\" needs length=, type= and segment=";
      return false;
    }
    key.segments.push_back(seg);
    inKey = more;
    if (!more) {
      def.keys.push_back(key);
      key = KeyDef{};
    }
  }
  if (inKey) {
    error = "the last segment says segment=y, but no segment follows";
    return false;
  }
  if (def.keys.size() != keyCount) {
    error = "key=" + std::to_string(keyCount) + ", but " + std::to_string(def.keys.size()) +
            " keys are described";
    return false;
  }
  return true;
}

}  // namespace tolmen::butil
