// The statuses that are normal for each record manager operation, and the reading of such a list.
// GlobalIO takes its operation's row unless the caller hands it a list of its own; a status that is
// neither 0 nor in the list is fatal.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tolmen {

// Operation codes 0 to 256 have a row.
inline constexpr int kAcceptedStatusRows = 257;

// The row of an operation: comma-separated decimal statuses ("12,3,9,11" for Open), "" for an
// operation without statuses of its own. A code outside 0 to 256 has no row and gives nullopt; the
// caller raises RuntimeError(9) "Subscript out of range" there, as indexing the table always did,
// so a locked or biased code above 256 must come with its own list.
std::optional<std::string> AcceptedStatusList(int operation);

// Whether the status stands in a comma-separated list. Each piece is read as the classic Val reads
// a number: blanks, tabs and line feeds are skipped wherever they stand, then a sign, digits, a
// decimal part and an exponent (E or D) are taken up to the first other character; a piece without
// digits reads 0 and one whose number a double cannot hold (1E999, 1E-999) matches nothing. The &H
// and &O prefixes are not read (such a piece reads 0): the lists are decimal.
//
// The list "" has no pieces at all (splitting an empty text gives an empty array), so it accepts no
// status, not even 0. An empty piece inside a longer list ("12,", "4,,9") reads 0 and so accepts 0.
// GlobalIO takes status 0 as success before it looks at the list, so only direct callers see this.
bool StatusInList(int16_t status, const std::string& list);

}  // namespace tolmen
