// Pastel account codes for clients that have none yet: a prefix from the client's name, a running
// number behind it, the first free code from the debtor file, confirmed by the user. A code has
// six characters at most; the debtor file's key is the code blank-padded to six.
//
// The two sizes are the "To Pastel" boxes txtPrefix ("Length of Prefix (alphabetic part) of New
// Account Number") and txtSuffix ("Length of Suffix (numeric part) of New Account Number"), read
// into RunOptions::PrefixSize and SuffixSize. Nothing keeps their sum at six.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

// Proposes a free account code for the client called `name` and asks the user to confirm it in
// the input box "Tolmen needs a Pastel Account No" ("Pastel Account Number for NAME?"). Returns
// what the user leaves in the box, unchecked; "" on Cancel.
//
//   prefix   the name's letters and digits, upper case, without blanks, filled with zeros to
//            PrefixSize ("Al" gives "AL00"); empty for size 0
//   start    prefix + the last SuffixSize characters of "0000001"
//   lookup   the highest debtor at or below prefix + "9999999" cut to SuffixSize digits; when it
//            begins with the prefix (without regard to case) the start is the code after it
//   probe    from the start on, the first code the debtor file does not hold (status 4); holes
//            below the highest code are not used
//
// The debtor file answering anything but 0, 4 or 9 to the lookup is logged as an error
// ("... in Pastel on Debtor START (Function GetNewCode)") and shown with Abort, Retry and Ignore;
// each answer gives "", and Abort also stops the run (StopRequest 2). The debtor buffer keeps the
// record read last. REQUIRES: the debtor file is open.
std::string GetNewCode(Tolmen& app, const std::string& name);

// The code after `code`, of the same length. The code is cleaned first (NULs dropped, tabs made
// blanks, trimmed). All digits: the number plus 1, zero-padded and cut to the length on the left
// ("999999" gives "000000"). Otherwise the last letter or digit steps on, z, Z and 9 carrying to
// the left into a, A and 0; other characters stay and pass the carry on; blanks are dropped.
// A carry out of the first position puts "1", "A" or "a" in front only where blanks were
// dropped; otherwise the length holds: "ABCD99" gives "ABCE00", "ZZ" gives "AA".
std::string NextAccountCode(const std::string& code);

// Blanks, digits and the letters A-Z and a-z of `text`, trimmed.
std::string KeepAlphanumerics(const std::string& text);
// `text` without any occurrence of `character` (case counts).
std::string StripChar(const std::string& text, const std::string& character);
// The trimmed text blank-padded to `length`; a text of that length or more keeps its first
// `length` characters as given.
std::string FixLength(const std::string& text, long length);

// The check of the two size boxes when the user leaves the "To Pastel" tab: a prefix that is not
// a number sets the suffix box (not the prefix box) to "4"; a suffix that is not a number sets it
// to "2"; when the two texts joined, prefix first, read as a number below 2 ("0" and "1", "1"
// and "0"), the suffix box becomes 6 minus the prefix. "1" and "1" read 11 and pass.
void CheckCodeSizes(Tolmen& app);

}  // namespace tolmen
