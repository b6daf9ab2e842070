// `tolmen calendar TEMPLATE --from DATE --to DATE [--clients] [--json | --csv]`: the days on which
// the template's recurring billing would run, and with --clients, for each client of the address
// book the template selects, the days it would be invoiced and the price (calendar/). Nothing is
// written into Maximizer or Pastel. Dates are given and shown as YYYY-MM-DD. Exit status: 0, 2 the
// template or Maximizer could not be opened, 4 usage.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "calendar/BillingCalendar.h"

namespace tolmen {

class Clock;

struct CalendarEntry {
  CalendarClient client;
  ClientCalendar calendar;
};

struct CalendarView {
  std::string templatePath;
  double from = 0;
  double to = 0;
  std::vector<double> days;
  bool withClients = false;
  std::vector<CalendarEntry> clients;
};

// A date "YYYY-MM-DD"; false for anything else.
bool ParseIsoDate(const std::string& text, double& date);
std::string IsoDate(double date);

std::string CalendarText(const CalendarView& view);
std::string CalendarJson(const CalendarView& view);
std::string CalendarCsv(const CalendarView& view);

// The whole command (argv[1] is "calendar").
int TolmenCalendar(int argc, const char* const* argv, Clock& clock, std::ostream& out,
                   std::ostream& err);

}  // namespace tolmen
