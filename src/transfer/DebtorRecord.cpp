#include "transfer/DebtorRecord.h"

#include <cmath>

#include "maximizer/UdfCatalogue.h"
#include "pastel/pasDCParm.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/StatusCatalogue.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "transfer/AccountCodes.h"
#include "transfer/Addresses.h"
#include "transfer/ClientNames.h"

namespace tolmen {
namespace {

constexpr long kCodeWidth = 6;

void Debug(Tolmen& app, int above, const std::string& text) {
  if (app.shell.DebugLevel > above) LogEntry(app, 8, "# Debug: " + text);
}

void SetRange(pasDebtor& debtor, int first, int last, const Variant& value) {
  for (int field = first; field <= last; ++field) debtor.default_(field, value);
}

// A Pastel setting of the run when it is above 0, else the set's default.
Variant SettingOrDefault(std::int16_t setting, pasDCParm& defaults, int field) {
  return setting > 0 ? Variant(setting) : defaults.default_(field);
}

// The balances, settings and defaults of a new debtor, in the order they have always been set.
void SetDebtorDefaults(Tolmen& app) {
  pasDebtor& debtor = app.pastelFiles.Debtor();
  pasDCParm& defaults = app.pastelFiles.DCParm();
  const RunOptions& options = app.options;
  const Variant zero(0);
  const Variant none{std::string()};
  const double now = app.clock.Now();

  debtor.default_(68, false);
  SetRange(debtor, 4, 16, zero);
  SetRange(debtor, 17, 29, zero);
  SetRange(debtor, 30, 42, zero);
  SetRange(debtor, 43, 55, zero);
  SetRange(debtor, 79, 104, zero);
  debtor.default_(69, defaults.default_(36));
  debtor.default_(70, false);
  debtor.default_(61, zero);
  debtor.default_(62, none);
  debtor.default_(63, defaults.default_(30));
  debtor.default_(64, defaults.default_(34));
  debtor.default_(65, defaults.default_(64));
  debtor.default_(66, none);
  debtor.default_(67, zero);
  debtor.default_(72, defaults.default_(40));
  debtor.default_(73, "   ");
  debtor.default_(74, zero);
  debtor.default_(75, defaults.default_(9));
  debtor.default_(76, zero);
  debtor.default_(77, defaults.default_(10));
  debtor.default_(78, SettingOrDefault(options.PrintMessage, defaults, 42));
  debtor.default_(71, defaults.default_(32));
  debtor.default_(115, SettingOrDefault(options.PrintStatement, defaults, 44));
  debtor.default_(116, SettingOrDefault(options.PrintDocument, defaults, 46));
  debtor.default_(117, "NNNNNNNNNNNNN");
  for (int field : {118, 119, 121, 122, 123}) debtor.default_(field, none);
  debtor.default_(124, FormatDate(now, "dd/mm/yyyy hh:mm:ss"));
  SetRange(debtor, 105, 109, none);
  SetRange(debtor, 110, 114, zero);
  debtor.default_(127, Variant::FromDate(std::floor(now)));
}

}  // namespace

void ReportError(Tolmen& app, const std::string& text) {
  LogError(app, text);
}

void ReportPastelError(Tolmen& app, std::int16_t status, const std::string& text) {
  LogError(app, StatusText(status) + " " + text);
}

void ReportPastelDebtorError(Tolmen& app, std::int16_t status, const std::string& prefix) {
  ReportPastelError(
      app, status, prefix + CStr(app.pastelFiles.Debtor().default_(2)) + ": " + app.run.ClientName);
}

void DoDebtorInfo(Tolmen& app) {
  RunState& run = app.run;
  ClientState& client = app.client;
  const UdfOption& accountUdf = app.options.AccountNumber;
  run.CurrentSection = "DoDebtorInfo - Start";
  Debug(app, 1, "> DoDebtorInfo");
  client.AccountCode.clear();
  client.CodeToStore.clear();

  if (accountUdf.name.empty()) {
    client.AccountCode = GetNewCode(app, ClientDisplayName(app));
    if (client.AccountCode.empty()) return;
  } else {
    const std::string value = RTrim(GetClientField(app, accountUdf.index));
    if (value.empty()) {
      client.AccountCode = GetNewCode(app, ClientDisplayName(app));
      if (client.AccountCode.empty()) return;
      client.CodeToStore = client.AccountCode;
    } else if (static_cast<long>(value.size()) <= kCodeWidth) {
      client.AccountCode = value;
    } else {
      client.AccountCode = Left(value, kCodeWidth);
      ReportError(app, "Maximizer '" + accountUdf.name + "' " + value + " is TOO LONG!  Using " +
                           client.AccountCode);
    }
  }
  if (run.StopRequest == kStopCancel) return;

  app.pastelFiles.Debtor().default_(2, client.AccountCode);
  DoDebtorContactInfo(app);
  run.CurrentSection = "DoDebtorInfo - Balances";
  SetDebtorDefaults(app);
  Debug(app, 1, "< DoDebtorInfo");
}

void CreateNewDebtorRecord(Tolmen& app) {
  RunState& run = app.run;
  ClientState& client = app.client;
  run.CurrentSection = "CreateNewDebtorRecord - Start";
  Debug(app, 1, "> CreateNewDebtorRecord");
  client.NewRecordFlag = -1;
  DoDebtorInfo(app);
  if (client.AccountCode.empty() || run.StopRequest == kStopCancel) return;

  DoDeliveryInfo(app, true);
  run.CurrentSection = "CreateNewDebtorRecord";
  pasDebtor& debtor = app.pastelFiles.Debtor();
  debtor.TOFILE();
  debtor.INSERT();
  const std::int16_t status = debtor.STATUS_;
  if (status != kStatusOk) {
    ReportPastelDebtorError(app, status, "Creating Pastel a/c ");
    if (status == kStatusNotOpen) run.StopRequest = kStopCancel;
  } else {
    ++run.DebtorsWritten;
    LogEntry(app, 2, "");
    if (!client.CodeToStore.empty())
      SetClientField(app, app.options.AccountNumber.index, client.CodeToStore);
    run.CurrentSection = "CreateNewDebtorRecord 1";
  }

  const std::string email = Trim(CStr(app.pastelFiles.Delivery().default_(13)));
  if (!email.empty() && email.find('@') == std::string::npos)
    LogError(app, "BAD e-mail Address \"" + email + "\" on a/c " + client.AccountCode);
  Debug(app, 1, "< CreateNewDebtorRecord");
  client.NewRecordFlag = 0;
}

}  // namespace tolmen
