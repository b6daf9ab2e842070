// How a run stands: the one record every stage of the transfer reads and writes. It lives as long
// as the process; `DoImport` resets only the counters it owns.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolmen {

// What a stop asked the run to do. The values are the pause dialog's answers: Cancel (2) throws
// the run away, No (7) ends it after the client in hand; Yes (6) is turned back into kStopNone.
enum StopKind : int16_t { kStopNone = 0, kStopCancel = 2, kStopEnd = 7 };

// Which final message a run gives: the result of one template, or the dialog at the end of a
// timer run over a list of more than one template.
enum RunModeKind : int16_t { kRunModeNone = 0, kRunOneTemplate = 1, kRunTemplateList = 2 };

// One "To Maximizer" link as the run writes it: the catalogue row and the UDF's catalogue index.
struct Pas2MaxLink {
  int row = 0;
  int16_t udf = 0;
  bool operator==(const Pas2MaxLink&) const = default;
};

struct RunState {
  StopKind StopRequest = kStopNone;
  bool RunActive = false;
  bool Unattended = false;
  RunModeKind RunMode = kRunModeNone;
  int16_t TemplatesDone = 0;
  bool ShowFinalMessage = true;
  std::string RunReason;
  std::string TaskTitle;
  std::string CurrentSection;
  bool CurrentClientOnly = false;
  std::string CsvFileName;
  std::string InvoiceFileName;
  bool WriteCsv = false;
  bool RecurringBillingOn = false;
  bool InvoicingPlanned = false;
  bool CasualBillingOn = false;
  bool MismatchSummaryOn = false;
  int32_t TransferToMaximizer = 0;
  // The links IsPas2MaxOK resolved, in the order of the list, and the state of the screen they
  // were resolved for (empty: not resolved since it changed).
  std::vector<Pas2MaxLink> Pas2MaxLinks;
  std::string Pas2MaxResolvedFor;
  double BillingDate = 0;

  // The run as far as the client loop and the log share it: when the pass began, the list of
  // invoices kept for the end of the run (the "end-of-run notes"), and the delivery address code
  // a new debtor gets when its delivery address has none.
  double StartTime = 0;
  std::vector<std::string> EndOfRunNotes;
  std::string DeliveryDefaultCode;

  // The client in hand: its display name (empty: skipped), its Maximizer "Identification" as the
  // client list reads it, and the customer category the run gives it.
  std::string ClientName;
  std::string ClientId;
  int16_t CurrentCategoryNumber = 0;
  std::string CurrentCategoryText;
  // The categories this run inserted into the category file, "<N> name" (the run journal's).
  std::vector<std::string> CategoriesCreated;

  // Counters. DebtorsChanged, MismatchCount, DebtorsSkipped and DebtorsLater are reset and shown
  // but nothing raises them.
  int16_t DebtorsWritten = 0;
  int16_t DebtorsChanged = 0;
  int32_t BalancesMissed = 0;
  int32_t BalancesSent = 0;
  int16_t ErrorCount = 0;
  int16_t MismatchCount = 0;
  int16_t InvoiceCount = 0;
  int32_t RepeatCount = 0;
  int32_t ClientsScanned = 0;
  int32_t ClientsProcessed = 0;
  int32_t AcceptedStatus22 = 0;
  int16_t DebtorsSkipped = 0;
  int16_t DebtorsLater = 0;
};

}  // namespace tolmen
