// The "To Maximizer" links: what a link's text holds, how the run resolves the page's list into
// catalogue rows and UDF indexes (Parse2MaxOK, IsPas2MaxOK), how the page's two upper lists make
// a new link (GetPas2MaxItem), and Pastel2Max, which writes a client's linked figures.
//
// A link's text is the row's name, a tab, " => " and the lst2MaxUDFs entry, which is the UDF's
// name, a tab and its kind: "Account Balance\t => Balance Owing\tNumeric". Templates keep it
// with "|" for each tab.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;
struct Pas2MaxLink;

// The text of a link from a lst2MaxPastel entry and a lst2MaxUDFs entry.
std::string LinkText(const std::string& pastelField, const std::string& udfEntry);

// The two names a link's text is cut into: the text up to its first tab, and the part between
// the first and the second tab without its "=> " (any case) and surrounding blanks.
struct LinkNames {
  std::string row;
  std::string udf;
};
LinkNames SplitLinkText(const std::string& text);

// The link of the selected entries of lst2MaxPastel and lst2MaxUDFs. With either list without a
// selection it says so ("Please select a Pastel Field to Get!", "Please select a Maximizer
// Table, Numeric, or Alphanumeric User-Defined Field!"), gives that list the focus and returns "".
std::string GetPas2MaxItem(Tolmen& app);

// Finds the link's row in lst2MaxPastel and its UDF in lst2MaxUDFs, each by the beginning of the
// entries (FindInList), and selects them. A name that is not there adds its paragraph to one
// message, shown with the title AppTitle + `titleEnd` after the "To Maximizer" page is shown;
// the result is then false. As FindInList answers 0 for a missing name while its list has no
// selection or the first one, such a name is taken as the list's first entry.
bool Parse2MaxOK(Tolmen& app, const std::string& text, Pas2MaxLink& link,
                 const std::string& titleEnd = " Couldn't Resolve Item!");

// Resolves every link of lst2MaxLinked into RunState::Pas2MaxLinks, and the UDFs of the two
// document rows into RunOptions::DocumentNumbers and DocumentDates. With an empty list, or
// mnuOptnPas2Max not ticked, there are no links. A resolution stands until the list, the tick or
// the UDF catalogue changes; false (after Parse2MaxOK's message) leaves nothing resolved.
bool IsPas2MaxOK(Tolmen& app);

// The client step: the debtor of ClientState::AccountCode, and its figures into the linked UDFs
// through SetClientField. The debtor image stands as CreateNewDebtorRecord filled it; it is read
// from the file only when its code differs from AccountCode (a code shorter than six characters,
// whose image carries the padding). Not in Pastel: BalancesMissed rises and nothing is written.
// A read fault is reported and nothing is written. Otherwise BalancesSent rises.
void Pastel2Max(Tolmen& app);

}  // namespace tolmen
