#include "unattended/CalendarCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

#include "billing/BillingSetup.h"
#include "billing/BillingState.h"
#include "maximizer/OpenMaximizer.h"
#include "maximizer/UdfCatalogue.h"
#include "platform/automation/MaximizerAutomation.h"
#include "runtime/Cp1252.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/AppInfo.h"
#include "shell/ProcessEnd.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "transfer/ClientNames.h"
#include "transfer/TransferClients.h"
#include "unattended/RunCommand.h"
#include "unattended/RunMain.h"
#include "unattended/UnattendedUi.h"

namespace tolmen {
namespace {

using json = nlohmann::json;

constexpr long kCompany = 1;
constexpr long kIndividual = 2;

// The clients of Maximizer's whole list that a run of the options would make debtors of, with
// their billing UDFs and the price list's entry for their category.
std::vector<CalendarClient> ReadClients(Tolmen& app) {
  std::vector<CalendarClient> clients;
  MaxRecordObject& record = app.maximizer.Record();
  record.ListAll("clients");
  record.ScrollList("Top");
  const int32_t count = record.GetListCount();
  const int which = app.options.ImportWhichData;
  for (int32_t line = 0; line < count; ++line) {
    if (line > 0) record.ScrollList("LineDown");
    const long type = ClientRecordType(app);
    if (type != kCompany && type != kIndividual) continue;
    if ((which == 1 || which == 3) && !RecordSelected(app)) continue;
    CalendarClient client;
    client.id = record.GetFieldValue("Identification");
    client.name = ClientDisplayName(app);
    client.category = GetClientField(app, app.options.CategoryUdf.index);
    client.dateBilled = GetClientField(app, app.options.DateBilled.index);
    client.dateJoined = GetClientField(app, app.options.DateJoined.index);
    if (!client.category.empty()) {
      client.price = app.settings.GetSetting(kPriceSection, client.category, "");
      client.years = app.settings.GetSetting(kPeriodSection, client.category, "");
    }
    clients.push_back(std::move(client));
  }
  return clients;
}

std::string U(const std::string& text) {
  return Cp1252ToUtf8(text);
}

// A CSV field: quoted when it holds a comma, a quote or a line break.
std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return U(text);
  std::string quoted = "\"";
  for (char c : U(text)) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

}  // namespace

bool ParseIsoDate(const std::string& text, double& date) {
  int year = 0;
  int month = 0;
  int day = 0;
  char rest = 0;
  if (std::sscanf(text.c_str(), "%4d-%2d-%2d%c", &year, &month, &day, &rest) != 3) return false;
  if (year < 100 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month))
    return false;
  date = DateSerial(year, month, day);
  return true;
}

std::string IsoDate(double date) {
  return FormatDate(date, "yyyy-mm-dd");
}

std::string CalendarText(const CalendarView& view) {
  std::ostringstream out;
  out << "Billing days of " << U(view.templatePath) << " from " << IsoDate(view.from) << " to "
      << IsoDate(view.to) << ": " << view.days.size() << "\n";
  for (const double day : view.days)
    out << "  " << IsoDate(day) << " " << FormatDate(day, "ddd") << "\n";
  if (!view.withClients) return out.str();
  out << "Clients: " << view.clients.size() << "\n";
  for (const CalendarEntry& entry : view.clients) {
    out << "  " << U(entry.client.id) << " " << U(entry.client.name);
    if (!entry.client.category.empty()) out << " (" << U(entry.client.category) << ")";
    out << ":";
    for (const CalendarInvoice& invoice : entry.calendar.invoices)
      out << " " << IsoDate(invoice.date) << " " << U(invoice.price) << ";";
    if (entry.calendar.invoices.empty()) out << " no invoice";
    if (!entry.calendar.notInvoiced.empty())
      out << " (due, but not invoiced: " << U(entry.calendar.notInvoiced) << ")";
    out << "\n";
  }
  return out.str();
}

std::string CalendarJson(const CalendarView& view) {
  json days = json::array();
  for (const double day : view.days) days.push_back(IsoDate(day));
  json object = {{"template", U(view.templatePath)},
                 {"from", IsoDate(view.from)},
                 {"to", IsoDate(view.to)},
                 {"billing_days", days}};
  if (!view.withClients) return object.dump();
  json clients = json::array();
  for (const CalendarEntry& entry : view.clients) {
    json invoices = json::array();
    for (const CalendarInvoice& invoice : entry.calendar.invoices)
      invoices.push_back({{"date", IsoDate(invoice.date)},
                          {"price", U(invoice.price)},
                          {"note", U(invoice.note)}});
    clients.push_back({{"id", U(entry.client.id)},
                       {"name", U(entry.client.name)},
                       {"category", U(entry.client.category)},
                       {"invoices", invoices},
                       {"not_invoiced", U(entry.calendar.notInvoiced)}});
  }
  object["clients"] = clients;
  return object.dump();
}

std::string CalendarCsv(const CalendarView& view) {
  std::ostringstream out;
  if (!view.withClients) {
    out << "date\r\n";
    for (const double day : view.days) out << IsoDate(day) << "\r\n";
    return out.str();
  }
  out << "client,name,category,date,price\r\n";
  for (const CalendarEntry& entry : view.clients)
    for (const CalendarInvoice& invoice : entry.calendar.invoices)
      out << CsvField(entry.client.id) << "," << CsvField(entry.client.name) << ","
          << CsvField(entry.client.category) << "," << IsoDate(invoice.date) << ","
          << CsvField(invoice.price) << "\r\n";
  return out.str();
}

int TolmenCalendar(int argc, const char* const* argv, Clock& clock, std::ostream& out,
                   std::ostream& err) {
  CLI::App cli{
      "The days a template's recurring billing would run, and whom it would invoice. "
      "Nothing is written.",
      "tolmen calendar"};
  std::string templateUtf8;
  std::string fromText;
  std::string toText;
  bool withClients = false;
  bool asJson = false;
  bool asCsv = false;
  cli.add_option("TEMPLATE", templateUtf8, "Template file (.KTF)")->required();
  cli.add_option("--from", fromText, "First day, YYYY-MM-DD")->required();
  cli.add_option("--to", toText, "Last day, YYYY-MM-DD")->required();
  cli.add_flag("--clients", withClients, "Each selected client's invoices (reads Maximizer)");
  CLI::Option* jsonFlag = cli.add_flag("--json", asJson, "One JSON object");
  cli.add_flag("--csv", asCsv, "CSV lines")->excludes(jsonFlag);
  CalendarView view;
  try {
    std::vector<std::string> args;
    for (int i = argc - 1; i >= 2; --i) args.emplace_back(argv[i]);
    cli.parse(args);
    if (!ParseIsoDate(fromText, view.from))
      throw CLI::ValidationError("--from: not a date YYYY-MM-DD: " + fromText);
    if (!ParseIsoDate(toText, view.to))
      throw CLI::ValidationError("--to: not a date YYYY-MM-DD: " + toText);
    if (view.to < view.from) throw CLI::ValidationError("--to is before --from");
    view.templatePath = PathFromSystem(templateUtf8);
  } catch (const CLI::ParseError& error) {
    const int status = cli.exit(error, out, err);
    return status == 0 ? kRunCallOk : kRunCallUsage;
  } catch (const RuntimeError& error) {
    err << "tolmen calendar: " << U(error.Description()) << "\n";
    return kRunCallUsage;
  }
  view.withClients = withClients;

  AppInfo info;
  try {
    info = MakeAppInfo(ResolveAppFolder(), TOLMEN_VERSION);
  } catch (const RuntimeError& error) {
    err << "tolmen calendar: " << U(error.Description()) << "\n";
    return kRunCallNotStarted;
  }
  UnattendedUi ui(err, clock, info.AppName, {false, true, false});
  Tolmen app(info, ui, clock);
  ui.Attach(&app);
  LoadForRun(app);
  std::string problem;
  ui.BeginTemplate(view.templatePath);
  try {
    app.run.Unattended = true;
    if (!TemplateOpen(app, view.templatePath) || ui.TemplateEnded()) {
      problem = "the template could not be read";
    } else if (withClients && !OpenMaximizerOLE(app)) {
      problem = "Maximizer could not be opened";
    } else {
      SetOptions(app);
      view.days = BillingDays(app.options, view.from, view.to);
      if (withClients) {
        CalendarRules rules;
        rules.monthly = app.options.BillingPeriod == kBillMonthly;
        rules.method = app.shell.MultiYear;
        rules.dateBilledName = app.options.DateBilled.name;
        rules.dateJoinedName = app.options.DateJoined.name;
        for (CalendarClient& client : ReadClients(app))
          view.clients.push_back({client, ClientInvoices(client, view.days, rules)});
        app.maximizer.Release();
      }
    }
  } catch (const ProcessEnd&) {
    problem = "the template's options end the program";
  } catch (const RuntimeError& error) {
    problem = error.Description();
  }
  app.run.Unattended = false;
  UnloadAfterRun(app);
  ui.Attach(nullptr);
  if (!problem.empty()) {
    err << "tolmen calendar: " << U(view.templatePath) << ": " << U(problem) << "\n";
    return kRunCallNotStarted;
  }
  out << (asJson ? CalendarJson(view) + "\n" : asCsv ? CalendarCsv(view) : CalendarText(view));
  return kRunCallOk;
}

}  // namespace tolmen
