// The billing calendar from tables of fixed dates: the days each "Bill When" rule takes over a
// year, and the invoices of monthly and annual clients as Date Billed moves on.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calendar/BillingCalendar.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"

namespace tolmen {
namespace {

std::vector<std::string> Iso(const std::vector<double>& days) {
  std::vector<std::string> texts;
  for (const double day : days) texts.push_back(FormatDate(day, "yyyy-mm-dd"));
  return texts;
}

std::vector<std::string> InvoiceDays(const ClientCalendar& calendar) {
  std::vector<double> days;
  for (const CalendarInvoice& invoice : calendar.invoices) days.push_back(invoice.date);
  return Iso(days);
}

RunOptions Billing(int billingPeriod, int billWhen, const std::string& day = "") {
  RunOptions options;
  options.BillingPeriod = static_cast<int16_t>(billingPeriod);
  options.BillWhen = static_cast<int16_t>(billWhen);
  options.BillOnWhichDay = day;
  return options;
}

const double k2026 = DateSerial(2026, 1, 1);
const double kEnd2026 = DateSerial(2026, 12, 31);

TEST(BillingCalendarTest, BillingDaysOfAYearFollowTheBillWhenRule) {
  struct Case {
    const char* what;
    RunOptions options;
    std::vector<std::string> days;
  };
  const Case cases[] = {
      // January, February, May and October 2026 end on a Saturday or Sunday: no date at all.
      {"last weekday",
       Billing(2, 2),
       {"2026-03-31", "2026-04-30", "2026-06-30", "2026-07-31", "2026-08-31", "2026-09-30",
        "2026-11-30", "2026-12-31"}},
      {"specific day 31",
       Billing(2, 3, "31"),
       {"2026-01-31", "2026-03-31", "2026-05-31", "2026-07-31", "2026-08-31", "2026-10-31",
        "2026-12-31"}},
      {"last day of month",
       Billing(1, 1),
       {"2026-01-31", "2026-02-28", "2026-03-31", "2026-04-30", "2026-05-31", "2026-06-30",
        "2026-07-31", "2026-08-31", "2026-09-30", "2026-10-31", "2026-11-30", "2026-12-31"}},
      {"no billing", Billing(0, 0), {}},
  };
  for (const Case& c : cases)
    EXPECT_EQ(Iso(BillingDays(c.options, k2026, kEnd2026)), c.days) << c.what;
  // Every day of the range with "Today", and a range of one day.
  EXPECT_EQ(BillingDays(Billing(2, 0), k2026, kEnd2026).size(), 365u);
  EXPECT_EQ(Iso(BillingDays(Billing(2, 3, "31"), DateSerial(2026, 3, 31), DateSerial(2026, 3, 31))),
            std::vector<std::string>{"2026-03-31"});
}

TEST(BillingCalendarTest, MonthlyClientsAreInvoicedOnceAMonthWhenTheyHaveAPrice) {
  // Billing runs every day of the first quarter of 2026.
  const std::vector<double> days = BillingDays(Billing(2, 0), k2026, DateSerial(2026, 3, 31));
  struct Case {
    const char* what;
    CalendarClient client;
    std::vector<std::string> invoices;
    std::string notInvoiced;
  };
  const Case cases[] = {
      {"billed in October",
       {"C1", "Acme", "Retail", "15 Oct 2025", "", "100", ""},
       {"2026-01-01", "2026-02-01", "2026-03-01"},
       ""},
      {"billed on the 5th of January",
       {"C2", "Baker", "Retail", "05 Jan 2026", "", "100", ""},
       {"2026-02-01", "2026-03-01"},
       ""},
      {"never billed",
       {"C3", "Carrow", "Retail", "", "", "100", ""},
       {"2026-01-01", "2026-02-01", "2026-03-01"},
       ""},
      {"no billing for the category",
       {"C4", "Dune", "Farming", "", "", "-1", ""},
       {},
       "no billing for the category"},
      {"no price", {"C5", "Eden", "Services", "", "", "", ""}, {}, "no price for the category"},
      {"no category", {"C6", "Fry", "", "", "", "", ""}, {}, "no category"},
  };
  for (const Case& c : cases) {
    const ClientCalendar calendar = ClientInvoices(c.client, days, {true, 2});
    EXPECT_EQ(InvoiceDays(calendar), c.invoices) << c.what;
    EXPECT_EQ(calendar.notInvoiced, c.notInvoiced) << c.what;
  }
  const ClientCalendar acme = ClientInvoices(cases[0].client, days, {true, 2});
  ASSERT_EQ(acme.invoices.size(), 3u);
  EXPECT_EQ(acme.invoices[0].price, "100");
  EXPECT_EQ(acme.invoices[0].note, "Monthly billing, Date Billed 15 Oct 2025");
  EXPECT_EQ(acme.invoices[1].note, "Monthly billing, Date Billed 01 Jan 2026");
}

TEST(BillingCalendarTest, AnnualClientsOfATwoYearCategoryUnderEachMultiYearMethod) {
  // Joined in March, so billed at the end of February; billing on the last day of each month
  // from March 2025 to the end of 2028.
  const std::vector<double> days =
      BillingDays(Billing(1, 1), DateSerial(2025, 3, 1), DateSerial(2028, 12, 31));
  struct Case {
    int method;
    const char* dateBilled;
    std::vector<std::string> invoices;
  };
  const Case cases[] = {
      // Method 1 moves Date Billed a year on (2 years less one): Feb 2027 is the month billed.
      {1, "28 Feb 2025", {"2026-02-28", "2028-02-29"}},
      // Methods 2 and 3 wait for two calendar years since Date Billed.
      {2, "28 Feb 2025", {"2027-02-28"}},
      {3, "28 Feb 2025", {"2027-02-28"}},
      {0, "28 Feb 2025", {"2027-02-28"}},
      // A Date Billed in the future: method 1 holds the client back, method 2 counts years from
      // it, methods 3 and 0 bill it and count from the new Date Billed.
      {1, "28 Feb 2030", {}},
      {2, "28 Feb 2030", {}},
      {3, "28 Feb 2030", {"2026-02-28", "2028-02-29"}},
      {0, "28 Feb 2030", {"2026-02-28", "2028-02-29"}},
  };
  for (const Case& c : cases) {
    const CalendarClient client{"C1", "Acme", "Gold", c.dateBilled, "15 Mar 2020", "250", "2"};
    EXPECT_EQ(InvoiceDays(ClientInvoices(client, days, {false, c.method})), c.invoices)
        << "method " << c.method << ", Date Billed " << c.dateBilled;
  }
  // An empty Date Joined becomes the end of the month before the first billing day (28 Feb
  // 2025): the client is due each January.
  const CalendarClient unjoined{"C2", "Baker", "Gold", "", "", "250", "1"};
  EXPECT_EQ(InvoiceDays(ClientInvoices(unjoined, days, {false, 2})),
            (std::vector<std::string>{"2026-01-31", "2027-01-31", "2028-01-31"}));
}

}  // namespace
}  // namespace tolmen
