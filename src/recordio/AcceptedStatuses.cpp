#include "recordio/AcceptedStatuses.h"

#include <array>
#include <charconv>
#include <string_view>
#include <system_error>

namespace tolmen {
namespace {

struct ListedRow {
  int operation;
  std::string_view statuses;
};

// The operations with statuses of their own; every other row is empty.
constexpr ListedRow kListedRows[] = {
    {0, "12,3,9,11"},  // Open: file missing, not open, empty (the Get First behind it), bad name
    {1, "3"},          // Close
    {2, "5"},          // Insert
    {3, "5"},          // Update
    {5, "4,9"},        // Get Equal
    {6, "9"},          // Get Next
    {7, "9"},          // Get Previous
    {8, "9"},          // Get Greater
    {9, "9"},          // Get Greater Than or Equal
    {11, "9"},         // Get Less Than or Equal
    {12, "9"},         // Get First
    {13, "9"},         // Get Last
    {14, ""},          // Create
    {45, "3,9"},       // Find Percentage
    {205, "84"},       // Get Equal with a no-wait single-record lock
};

constexpr std::array<std::string_view, kAcceptedStatusRows> kAccepted = [] {
  std::array<std::string_view, kAcceptedStatusRows> table{};
  for (const ListedRow& row : kListedRows) table.at(row.operation) = row.statuses;
  return table;
}();

bool IsValBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The value of one piece of a list as Val reads it (see StatusInList); nullopt when the number is
// beyond a double.
std::optional<double> ValOfPiece(std::string_view piece) {
  std::string text;
  for (char c : piece) {
    if (!IsValBlank(c)) text += c;
  }

  // Rebuild the number part in the form from_chars reads: [-]digits[.digits][e[-]digits].
  std::string number;
  std::size_t i = 0;
  auto take_digits = [&] {
    const std::size_t start = i;
    while (i < text.size() && IsDigit(text[i])) number += text[i++];
    return i > start;
  };
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
    if (text[i] == '-') number += '-';
    ++i;
  }
  bool has_digits = take_digits();
  if (i < text.size() && text[i] == '.') {
    number += '.';
    ++i;
    has_digits = take_digits() || has_digits;
  }
  if (!has_digits) return 0.0;
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    const std::size_t mantissa_end = number.size();
    number += 'e';
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) number += text[i++];
    if (!take_digits()) number.resize(mantissa_end);  // "5E" is 5
  }

  double value = 0.0;
  const std::from_chars_result read =
      std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec == std::errc::result_out_of_range) return std::nullopt;
  return value;
}

}  // namespace

std::optional<std::string> AcceptedStatusList(int operation) {
  if (operation < 0 || operation >= kAcceptedStatusRows) return std::nullopt;
  return std::string(kAccepted[static_cast<std::size_t>(operation)]);
}

bool StatusInList(int16_t status, const std::string& list) {
  if (list.empty()) return false;
  const std::string_view rest(list);
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = rest.find(',', start);
    const std::string_view piece = rest.substr(
        start, comma == std::string_view::npos ? std::string_view::npos : comma - start);
    const std::optional<double> value = ValOfPiece(piece);
    if (value && *value == static_cast<double>(status)) return true;
    if (comma == std::string_view::npos) return false;
    start = comma + 1;
  }
}

}  // namespace tolmen
