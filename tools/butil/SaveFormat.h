// The record manager utility's unformatted save format: per record its length in decimal digits,
// a comma, the record's bytes and CR LF; the byte 0x1A after the last record. Records may hold
// any bytes, CR LF and 0x1A included: the length is always taken from the digits.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace tolmen::butil {

void WriteSavedRecord(std::ostream& out, std::string_view record);
void WriteSaveEnd(std::ostream& out);

enum class ReadResult { Record, End, Error };

// Reads the next record. End at the byte 0x1A (or at the end of the input, for files whose last
// byte was lost). A blank in place of the comma is accepted, and so is LF without CR.
ReadResult ReadSavedRecord(std::istream& in, std::string& record, std::string& error);

}  // namespace tolmen::butil
