#include "calendar/BillingCalendar.h"

#include <cmath>

#include "billing/BillingDay.h"
#include "billing/ClientDue.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"

namespace tolmen {
namespace {

constexpr const char* kUdfDate = "dd mmm yyyy";  // how Maximizer stores and reads a date UDF

// Why the invoice step would give no invoice for a due client, "" when it would give one.
std::string InvoiceStopper(const CalendarClient& client) {
  if (client.category.empty()) return "no category";
  if (Val(client.price) == -1) return "no billing for the category";
  if (!IsNumeric(Variant(client.price))) return "no price for the category";
  if (CDbl(Variant(client.price)) <= 0) return "bad price (" + client.price + ")";
  return "";
}

}  // namespace

std::vector<double> BillingDays(const RunOptions& options, double from, double to) {
  std::vector<double> days;
  for (double day = std::floor(from); day <= std::floor(to); day += 1)
    if (IsBillingDay(options, day)) days.push_back(day);
  return days;
}

ClientCalendar ClientInvoices(const CalendarClient& client, const std::vector<double>& days,
                              const CalendarRules& rules) {
  ClientCalendar calendar;
  DueFacts facts;
  facts.dateBilledText = client.dateBilled;
  facts.dateJoinedText = client.dateJoined;
  facts.categoryYears = client.category.empty() ? 0 : static_cast<int>(Val(client.years));
  facts.method = rules.method;
  facts.monthly = rules.monthly;
  facts.dateBilledName = rules.dateBilledName;
  facts.dateJoinedName = rules.dateJoinedName;
  const std::string stopper = InvoiceStopper(client);
  for (const double day : days) {
    facts.billingDate = day;
    const DueDecision decision = IsClientDue(facts);
    if (decision.writeJoined) facts.dateJoinedText = FormatDate(decision.joined, kUdfDate);
    if (!decision.due) continue;
    if (!stopper.empty()) {
      calendar.notInvoiced = stopper;
      continue;
    }
    calendar.invoices.push_back({day, client.price, decision.note});
    double billed = day;
    const double years = Val(client.years);
    if (rules.method == 1 && years >= 1) billed = DateAdd("yyyy", years - 1, day);
    facts.dateBilledText = FormatDate(billed, kUdfDate);
  }
  return calendar;
}

}  // namespace tolmen
