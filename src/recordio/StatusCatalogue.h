// Words for the record manager's numbers: status texts, the maker's help page of a status, and the
// names of operation codes. Pure constant tables; used by the fatal dialog of GlobalIO, the debug
// log and the error path of opening a set of accounts.
#pragma once

#include <cstdint>
#include <string>

namespace tolmen {

// The words for a status. 0, the listed statuses and 3006 have their own text; any other number
// gets the word of its family followed by the number ("MicroKernel Database Engine Status Code 47",
// "Unknown Pervasive Status Code 2500"). The 1000-1999 family also has words behind the number.
std::string StatusText(int16_t status);

// The address of the maker's page that explains a status: StatusHelpBase followed by the page of
// the status's range ("1statcod5.html" for 1 to 199, "index.htm" outside every range). The ranges
// are not quite those of StatusText: 10066 to 10100 have a page but no family word.
std::string StatusHelpPage(int16_t status);

// The base of the help addresses. The record manager's maker publishes its status pages under
// /support/technical/codes2k/; the host is a stand-in for the maker's web site, which Tolmen only
// ever shows to the user and puts on the clipboard, never fetches.
inline constexpr const char* StatusHelpBase =
    "https://www.pervasive.com/support/technical/codes2k/";

// The long name of an operation shown to users ("Get Equal"); empty for codes without a name and
// for every code from 1020 up. 1019 (Begin Concurrent Transaction) is named as 19.
std::string OperationName(int32_t code);

// The constant's name of an operation code in the record manager's header ("BGETEQU"), shown in
// debug lines; empty for any code without one (biased codes such as 1019 or 205 included, but the
// lock biases 100, 200, 300 and 400 themselves have a name).
std::string OperationSymbol(int32_t code);

}  // namespace tolmen
