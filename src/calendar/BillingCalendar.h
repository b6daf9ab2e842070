// The billing calendar: on which days of a range a template's recurring billing would run, and on
// which of them each client would be invoiced, decided by the run's own rules (IsBillingDay,
// IsClientDue) with the client's dates moving on as a run would move them. Nothing is written.
#pragma once

#include <string>
#include <vector>

#include "templates/RunOptions.h"

namespace tolmen {

// The days from `from` to `to` (both included, whole days) that IsBillingDay takes.
std::vector<double> BillingDays(const RunOptions& options, double from, double to);

// What billing knows of a client, as read from Maximizer and the price list.
struct CalendarClient {
  std::string id;
  std::string name;
  std::string category;    // the category UDF's value
  std::string dateBilled;  // the Date Billed UDF's text
  std::string dateJoined;  // the Date Joined UDF's text
  std::string price;       // the price list's entry for the category ("" when none)
  std::string years;       // the category's billing period in years ("" when none)
};

struct CalendarRules {
  bool monthly = false;                        // "Monthly"; otherwise annual
  int method = 0;                              // the multi-year method, 0 to 3
  std::string dateBilledName = "Date Billed";  // the UDFs' names, for the notes
  std::string dateJoinedName = "Date Joined";
};

struct CalendarInvoice {
  double date = 0;
  std::string price;
  std::string note;  // why the client is due, as the run logs it
};

struct ClientCalendar {
  std::vector<CalendarInvoice> invoices;
  std::string notInvoiced;  // why a due client gets no invoice ("" when nothing stops it)
};

// The client's invoices on `days` (ascending billing days). Each day IsClientDue decides on the
// texts as they stand then. A missing Date Joined becomes, as the run writes it, the last day of
// the month before the first day that looks at it. A due client is invoiced only with a category
// and a price above 0 (-1 means "no billing"); each invoice sets Date Billed to the day, moved on
// by the category's years less one under method 1, as the invoice's write does.
ClientCalendar ClientInvoices(const CalendarClient& client, const std::vector<double>& days,
                              const CalendarRules& rules);

}  // namespace tolmen
