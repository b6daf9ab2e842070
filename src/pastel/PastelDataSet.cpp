#include "pastel/PastelDataSet.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "pastel/pasDCParm.h"
#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasGParm.h"
#include "pastel/pasHisDetail.h"
#include "pastel/pasHisHeader.h"
#include "pastel/pasStk.h"
#include "pastel/pasStkst.h"
#include "pastel/pasTaxParameters.h"
#include "pastel/pasUParm.h"
#include "pastel/pasUser.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/FieldCodecs.h"
#include "runtime/Cp1252.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "runtime/SystemPath.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::json;

constexpr size_t kReadBufferBytes = 8192;

template <typename T>
PastelSetFile Entry(std::vector<KeyDef> keys) {
  PastelSetFile file;
  file.name = T::kFileName;
  file.definition.recordLength = static_cast<std::uint16_t>(T::kRecordLength);
  file.definition.keys = std::move(keys);
  file.makeRecord = [](Tolmen& app) -> std::unique_ptr<PastelRecord> {
    return std::make_unique<T>(app);
  };
  return file;
}

KeyDef Key(bool duplicates, std::vector<SegmentDef> segments) {
  return KeyDef{duplicates, false, std::move(segments)};
}

SegmentDef Text(std::uint16_t position, std::uint16_t length) {
  return SegmentDef{position, length, KeyType::String, false, false};
}

SegmentDef Typed(std::uint16_t position, std::uint16_t length, KeyType type) {
  return SegmentDef{position, length, type, false, false};
}

// JSON strings carry bytes: each code point 0 to 255 is one byte.
std::string BytesFromJson(const std::string& utf8, const std::string& where) {
  std::string out;
  for (size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    unsigned code = lead;
    size_t extra = 0;
    if (lead >= 0xF0) {
      code = lead & 0x07;
      extra = 3;
    } else if (lead >= 0xE0) {
      code = lead & 0x0F;
      extra = 2;
    } else if (lead >= 0xC0) {
      code = lead & 0x1F;
      extra = 1;
    } else if (lead >= 0x80) {
      throw PastelSetError(where + ": the text is not UTF-8");
    }
    if (i + extra >= utf8.size()) throw PastelSetError(where + ": the text is not UTF-8");
    for (size_t k = 1; k <= extra; ++k)
      code = code << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3F);
    if (code > 0xFF) throw PastelSetError(where + ": a character above code point 255");
    out += static_cast<char>(code);
    i += extra + 1;
  }
  return out;
}

std::string JsonFromBytes(const std::string& bytes) {
  std::string out;
  for (char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x80) {
      out += c;
    } else {
      out += static_cast<char>(0xC0 | b >> 6);
      out += static_cast<char>(0x80 | (b & 0x3F));
    }
  }
  return out;
}

Variant ValueFromJson(const json& value, const std::string& where) {
  switch (value.type()) {
    case json::value_t::null:
      return Variant();
    case json::value_t::boolean:
      return Variant(value.get<bool>());
    case json::value_t::number_integer:
    case json::value_t::number_unsigned:
    case json::value_t::number_float:
      return Variant(value.get<double>());
    case json::value_t::string:
      return Variant(BytesFromJson(value.get<std::string>(), where));
    default:
      throw PastelSetError(where + ": a value must be a text, a number, true, false or null");
  }
}

// The fields that give a record its empty value and its dump: each field whose bytes no
// lower-numbered field has covered, in ascending order.
std::vector<std::pair<std::int32_t, FieldSpot>> PrimaryFields(const RecordLayout& layout,
                                                              size_t recordLength) {
  std::vector<bool> covered(recordLength, false);
  std::vector<std::pair<std::int32_t, FieldSpot>> fields;
  for (std::int32_t n : layout.Fields()) {
    const FieldSpot spot = *layout.Locate(n);
    const auto from = covered.begin() + spot.offset;
    if (std::any_of(from, from + spot.width, [](bool b) { return b; })) continue;
    std::fill(from, from + spot.width, true);
    fields.emplace_back(n, spot);
  }
  return fields;
}

std::string EmptyRecord(const RecordLayout& layout, size_t recordLength) {
  std::string image(recordLength, '\0');
  for (const auto& [n, spot] : PrimaryFields(layout, recordLength))
    EncodeField(image, spot, Variant(""));
  return image;
}

std::string PathOf(const std::string& folder, const std::string& name) {
  return (fs::path(folder) / name).string();
}

int16_t Call(Tolmen& app, std::uint16_t operation, std::string& pos, std::string& data,
             std::string& key) {
  auto length = static_cast<std::int32_t>(data.size());
  return app.engine.BTRCALL(operation, pos, data, length, key, 255, 0);
}

void CreateFile(Tolmen& app, const std::string& folder, const PastelSetFile& file,
                const json& records) {
  const std::string path = PathOf(folder, file.name);
  std::string pos(128, ' ');
  std::string data = BuildCreateBuffer(file.definition);
  std::string key = path;
  if (int16_t status = Call(app, kOpCreate, pos, data, key))
    throw PastelSetError(file.name + ": the record manager refused to create it (status " +
                         std::to_string(status) + ")");
  key = path;
  data.clear();
  if (int16_t status = Call(app, kOpOpen, pos, data, key))
    throw PastelSetError(file.name + ": cannot open it (status " + std::to_string(status) + ")");
  int number = 0;
  for (const json& record : records) {
    ++number;
    data = BuildPastelRecord(app, file, record);
    key = std::string(255, ' ');
    if (int16_t status = Call(app, kOpInsert, pos, data, key)) {
      Call(app, kOpClose, pos, data, key);
      throw PastelSetError(file.name + " record " + std::to_string(number) +
                           ": the record manager refused it (status " + std::to_string(status) +
                           (status == kStatusDuplicateKey ? ", duplicate key)" : ")"));
    }
  }
  Call(app, kOpClose, pos, data, key);
}

// A field's value for the dump, in the form the set's JSON gives it.
nlohmann::ordered_json DumpValue(Tolmen& app, const std::string& record, const FieldSpot& spot) {
  const std::string bytes =
      record.substr(static_cast<size_t>(spot.offset), static_cast<size_t>(spot.width));
  // Text is taken as it stands (fields read through CvI too, which would only show a message).
  if (spot.kind == FieldKind::Text || spot.kind == FieldKind::TextReadAsInteger)
    return JsonFromBytes(RTrim(bytes));  // trailing blanks are the padding a write puts back
  const Variant value = DecodeField(app.ui, record, spot);
  switch (spot.kind) {
    case FieldKind::Text:
    case FieldKind::TextReadAsInteger:
      break;
    case FieldKind::Byte:
    case FieldKind::Integer:
    case FieldKind::Long:
      return static_cast<std::int64_t>(value.Value());
    case FieldKind::Single:
    case FieldKind::Double:
      return value.Value();
    case FieldKind::Date:
    case FieldKind::DateAndBlanks:
      if (bytes.compare(0, 4, ZeroBytes(4)) == 0) return "";
      return FormatDate(value.Value(), "yyyy-mm-dd");
    case FieldKind::Flag:
      return CvBool(bytes);
  }
  return nullptr;
}

}  // namespace

const std::vector<PastelSetFile>& PastelSetFiles() {
  static const std::vector<PastelSetFile> files = {
      Entry<pasUParm>({Key(true, {Text(1, 1)})}),
      Entry<pasUser>({Key(false, {Text(1, 8)}), Key(true, {Typed(9, 1, KeyType::UnsignedBinary)})}),
      Entry<pasGParm>({Key(true, {Text(1, 1)})}),
      Entry<pasDCParm>({Key(true, {Text(1, 1)})}),
      Entry<pasTaxParameters>({Key(true, {Text(1, 1)})}),
      Entry<pasDebtor>({Key(false, {Text(3, 6)})}),
      Entry<pasDelivery>({Key(true, {Text(1, 6)})}),
      Entry<pasDcodeFile>({Key(false, {Typed(1, 2, KeyType::Integer)})}),
      Entry<pasHisHeader>({Key(true, {Typed(1, 2, KeyType::Integer), Text(3, 8)})}),
      Entry<pasHisDetail>({Key(true, {Typed(2, 2, KeyType::Integer), Text(4, 8)})}),
      Entry<pasStk>({Key(true, {Text(1, 18)})}),
      Entry<pasStkst>({Key(true, {Text(1, 6)}), Key(true, {Text(7, 15)})}),
  };
  return files;
}

const PastelSetFile* FindPastelSetFile(const std::string& name) {
  for (const PastelSetFile& file : PastelSetFiles())
    if (EqualsNoCase(file.name, name)) return &file;
  return nullptr;
}

std::string BuildPastelRecord(Tolmen& app, const PastelSetFile& file, const json& record) {
  const std::string where = file.name;
  if (!record.is_object()) throw PastelSetError(where + ": a record must be a JSON object");
  const auto length = static_cast<size_t>(file.definition.recordLength);
  std::unique_ptr<PastelRecord> object = file.makeRecord(app);
  const RecordLayout& layout = object->Layout();

  std::map<std::int32_t, Variant> fields;
  std::map<size_t, std::string> raw;
  for (const auto& [name, value] : record.items()) {
    const std::string at = where + " field \"" + name + "\"";
    const bool isRaw = !name.empty() && name[0] == '@';
    const std::string digits = isRaw ? name.substr(1) : name;
    if (digits.empty() || digits.size() > 9 ||
        !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
      throw PastelSetError(at + ": a key must be a field number or @offset");
    const long number = std::stol(digits);
    if (isRaw) {
      if (!value.is_string()) throw PastelSetError(at + ": raw bytes must be a text");
      std::string bytes = BytesFromJson(value.get<std::string>(), at);
      if (static_cast<size_t>(number) + bytes.size() > length)
        throw PastelSetError(at + ": the bytes reach beyond the record");
      raw[static_cast<size_t>(number)] = std::move(bytes);
    } else {
      if (!layout.Locate(static_cast<std::int32_t>(number)))
        throw PastelSetError(at + ": " + object->ClassName + " has no such field");
      fields[static_cast<std::int32_t>(number)] = ValueFromJson(value, at);
    }
  }

  std::string image = EmptyRecord(layout, length);
  if (dynamic_cast<pasTaxParameters*>(object.get())) {
    for (const auto& [n, value] : fields) EncodeField(image, *layout.Locate(n), value);
  } else {
    object->DataBuf = image;
    object->MoveBuffer(1);
    for (const auto& [n, value] : fields) object->default_(n, value);
    object->MoveBuffer(0);
    image = object->DataBuf;
  }
  for (const auto& [offset, bytes] : raw) image.replace(offset, bytes.size(), bytes);
  return image;
}

void CreatePastelSet(Tolmen& app, const std::string& folder, const json& set) {
  if (!set.is_object() || !set.contains("files") || !set["files"].is_object())
    throw PastelSetError("the set must be an object with \"files\"");
  const json& described = set["files"];
  std::vector<const PastelSetFile*> named;
  for (const auto& [name, records] : described.items()) {
    const PastelSetFile* file = FindPastelSetFile(name);
    if (!file) throw PastelSetError(name + ": not a file of a Pastel set");
    if (std::find(named.begin(), named.end(), file) != named.end())
      throw PastelSetError(name + ": the file is named twice");
    named.push_back(file);
    if (!records.is_null() && !records.is_array())
      throw PastelSetError(name + ": give a list of records or null");
  }
  fs::create_directories(SystemPath(folder));
  for (const PastelSetFile& file : PastelSetFiles()) {
    const json* records = nullptr;
    for (const auto& [name, value] : described.items())
      if (EqualsNoCase(name, file.name)) records = &value;
    if (records && records->is_null()) {
      fs::remove(SystemPath(PathOf(folder, file.name)));
      continue;
    }
    CreateFile(app, folder, file, records ? *records : json::array());
  }
}

nlohmann::ordered_json DumpPastelFile(Tolmen& app, const std::string& folder,
                                      const std::string& fileName) {
  const PastelSetFile* file = FindPastelSetFile(fileName);
  if (!file) throw PastelSetError(fileName + ": not a file of a Pastel set");
  const std::unique_ptr<PastelRecord> object = file->makeRecord(app);
  const auto length = static_cast<size_t>(file->definition.recordLength);
  const auto primary = PrimaryFields(object->Layout(), length);
  const std::string empty = EmptyRecord(object->Layout(), length);

  std::string pos(128, ' ');
  std::string key = PathOf(folder, file->name);
  std::string data;
  if (int16_t status = Call(app, kOpOpen, pos, data, key))
    throw PastelSetError(file->name + ": cannot open it (status " + std::to_string(status) + ")");
  nlohmann::ordered_json records = nlohmann::ordered_json::array();
  std::uint16_t operation = kOpGetFirst;
  for (;;) {
    data.assign(kReadBufferBytes, '\0');
    key = std::string(255, ' ');
    if (Call(app, operation, pos, data, key) != kStatusOk) break;
    operation = kOpGetNext;
    std::string record = data.substr(0, length);
    record.resize(length, '\0');

    nlohmann::ordered_json out = nlohmann::ordered_json::object();
    json asInput = json::object();
    for (const auto& [n, spot] : primary) {
      if (record.compare(static_cast<size_t>(spot.offset), static_cast<size_t>(spot.width), empty,
                         static_cast<size_t>(spot.offset), static_cast<size_t>(spot.width)) == 0)
        continue;
      out[std::to_string(n)] = DumpValue(app, record, spot);
      asInput[std::to_string(n)] = json::parse(out[std::to_string(n)].dump());
    }
    // Bytes the fields do not reproduce go out as they stand.
    const std::string rebuilt = BuildPastelRecord(app, *file, asInput);
    for (size_t i = 0; i < length;) {
      if (rebuilt[i] == record[i]) {
        ++i;
        continue;
      }
      size_t end = i;
      while (end < length && rebuilt[end] != record[end]) ++end;
      out["@" + std::to_string(i)] = JsonFromBytes(record.substr(i, end - i));
      i = end;
    }
    records.push_back(std::move(out));
  }
  Call(app, kOpClose, pos, data, key);
  nlohmann::ordered_json result;
  result["files"][file->name] = std::move(records);
  return result;
}

}  // namespace tolmen
