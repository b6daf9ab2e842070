// Whether the client in hand is due for its recurring invoice. The decision reads only what the
// caller hands it: the Date Billed and Date Joined UDFs' texts, the category's years, the
// multi-year method and the billing date. DecideClientDue does the reads and the one write the
// decision asks for (a missing Date Joined).
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

struct DueFacts {
  std::string dateBilledText;  // the Date Billed UDF as read
  std::string dateJoinedText;  // the Date Joined UDF as read (annual billing only)
  std::string dateBilledName;  // the names shown in the notes: the date combos' texts
  std::string dateJoinedName;
  int categoryYears = 0;  // the category's "BillingPeriod" years, 0 when it has none
  int method = 0;         // the multi-year method, 0 to 3
  bool monthly = false;   // "Monthly"; otherwise annual
  double billingDate = 0;
};

struct DueDecision {
  bool due = false;
  std::string note;          // why, for the log lines of the invoice
  bool writeJoined = false;  // Date Joined was empty: `joined` is to be written into it
  double joined = 0;
};

// Date Billed that is no date counts as 1 January 1990 ("never"). A client billed in the billing
// date's month and year is never due; under method 1 neither is one billed after the billing date.
// Monthly billing bills everyone else. Annual billing bills in the month before the anniversary of
// joining (an empty Date Joined becomes the last day of the month before the billing date); under
// methods 2 and 3 a category of several years bills only when as many calendar years have passed
// since Date Billed, method 3 (and 0) passing a Date Billed that is not before the billing date.
// A Date Joined text that is neither empty nor a date raises the conversion's RuntimeError.
DueDecision IsClientDue(const DueFacts& facts);

// Reads the facts of the client in hand (the category and its years only for annual billing),
// decides, writes Date Joined when the decision says so, and keeps the note in BillingNote.
bool DecideClientDue(Tolmen& app);

}  // namespace tolmen
