#include "SaveFormat.h"

#include <istream>
#include <ostream>

namespace tolmen::butil {
namespace {

constexpr int kEndOfSave = 0x1A;
constexpr size_t kLongestRecord = size_t{64} << 20;

}  // namespace

void WriteSavedRecord(std::ostream& out, std::string_view record) {
  out << record.size() << ',';
  out.write(record.data(), static_cast<std::streamsize>(record.size()));
  out << "\r\n";
}

void WriteSaveEnd(std::ostream& out) {
  out.put(static_cast<char>(kEndOfSave));
}

ReadResult ReadSavedRecord(std::istream& in, std::string& record, std::string& error) {
  int c = in.get();
  if (c == std::char_traits<char>::eof() || c == kEndOfSave) return ReadResult::End;
  size_t length = 0, digits = 0;
  for (; c >= '0' && c <= '9'; c = in.get(), ++digits) {
    length = length * 10 + static_cast<size_t>(c - '0');
    if (length > kLongestRecord) {
      error = "a record length is beyond any record";
      return ReadResult::Error;
    }
  }
  if (digits == 0 || (c != ',' && c != ' ')) {
    error = "a record does not start with its length and a comma";
    return ReadResult::Error;
  }
  record.resize(length);
  in.read(record.data(), static_cast<std::streamsize>(length));
  if (static_cast<size_t>(in.gcount()) != length) {
    error = "the file ends inside a record";
    return ReadResult::Error;
  }
  c = in.get();
  if (c == '\r') c = in.get();
  if (c != '\n') {
    error = "a record is not followed by CR LF (is its length right?)";
    return ReadResult::Error;
  }
  return ReadResult::Record;
}

}  // namespace tolmen::butil
