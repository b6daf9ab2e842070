// Posting a defined document: the history images filled field by field, their lines written
// through INSERT, and the debtor's figures moved on.
#include "pastel/PastelFiles.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasGParm.h"
#include "pastel/pasHisDetail.h"
#include "pastel/pasHisHeader.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"
#include "toolkit/DocumentStrings.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen {
namespace {

// The GL parameters' first period date of the current year.
constexpr std::int32_t kFirstPeriodDateField = 37;
// Debtor fields: this year's balance of period p is p + 3, its sales p + 29, and p + 78 moves
// with the balance; last year's are P + 16, P + 42 and P + 91.
constexpr std::int32_t kBalanceThisYear = 3;
constexpr std::int32_t kSalesThisYear = 29;
constexpr std::int32_t kBalanceRunThisYear = 78;
constexpr std::int32_t kBalanceLastYear = 16;
constexpr std::int32_t kSalesLastYear = 42;
constexpr std::int32_t kBalanceRunLastYear = 91;
constexpr std::int32_t kDebtorChangeStamp = 124;

void SetFields(PastelRecord& record, std::initializer_list<std::int32_t> fields,
               const Variant& value) {
  for (std::int32_t field : fields) record.default_(field, value);
}

}  // namespace

void quilletToolkit::FillHeader(pasHisHeader& header, std::int16_t documentType,
                                std::int16_t user) {
  std::string& text = HeaderText;
  const auto next = [&] { return Variant(PopField(text, "|")); };
  const std::string number = PopField(text, "|");

  SetFields(header, {18, 35, 37, 40}, false);
  SetFields(header, {25, 28, 29, 30, 31, 32}, 0);
  SetFields(header, {36, 38, 39, 41}, "");
  header.default_(1, documentType);
  header.default_(7, user);
  header.default_(2, number);
  header.default_(33, IsYes(PopField(text, "|")) ? "1" : "0");
  header.default_(34, next());
  header.default_(3, next());
  header.default_(4, next());
  header.default_(5, next());
  header.default_(8, IsYes(PopField(text, "|")) ? "1" : "0");
  header.default_(27, next());
  for (std::int32_t field = 9; field <= 16; ++field) header.default_(field, next());
  header.default_(6, next());
  header.default_(17, next());
  header.default_(19, next());
  PeriodCode = DocumentPeriod(CDbl(app_.pastelFiles.GParm().default_(kFirstPeriodDateField)),
                              CDbl(header.default_(4)));
  header.default_(20, PeriodCode);
  header.default_(21, next());
  header.default_(22, next());
  header.default_(24, next());  // the string has the contact before the fax, the record after
  header.default_(23, next());
  header.default_(26, next());
  SetFields(header, {28, 29}, TotalExclusive);
  SetFields(header, {30, 31}, TotalInclusive - TotalExclusive);
  header.default_(32, TotalInclusive);
}

void quilletToolkit::FillDetail(pasHisDetail& detail, pasHisHeader& header, std::int32_t line,
                                std::int16_t documentType, std::int16_t user) {
  std::string& text = LineTexts[static_cast<size_t>(line)];
  const auto next = [&] { return Variant(PopField(text, "|")); };

  SetFields(detail, {8, 19, 20, 21, 22, 23, 24, 31, 32, 33, 34}, 0);
  detail.default_(26, std::string(4, '\0'));
  detail.default_(27, "");
  SetFields(detail, {28, 29, 30, 36}, false);
  detail.default_(2, documentType);
  detail.default_(1, user);
  detail.default_(3, header.default_(2));
  for (std::int32_t field = 15; field <= 18; ++field) detail.default_(field, next());
  detail.default_(10, next());
  detail.default_(11, next());
  detail.default_(12, next());
  const std::int32_t discount = CLng(Variant(Val(PopField(text, "|"))));
  detail.default_(13, discount);
  detail.default_(4, next());
  detail.default_(14, next());
  detail.default_(7, next());
  detail.default_(8, PeriodCode);
  detail.default_(35, next());
  detail.default_(5, header.default_(3));
  detail.default_(6, header.default_(6));
  detail.default_(9, header.default_(4));
  detail.default_(25, next());

  const auto at = static_cast<size_t>(line);
  const double quantity = LineQuantity[at];
  const double exclusive = LineExclusive[at];
  const double inclusive = LineInclusive[at];
  detail.default_(15, LineCost[at]);
  detail.default_(16, quantity);
  SetFields(detail, {17, 19}, exclusive);
  SetFields(detail, {18, 20}, inclusive);
  SetFields(detail, {21, 22}, (inclusive - exclusive) * quantity);
  SetFields(detail, {23, 24}, quantity * exclusive * (1 - discount / 100.0));
}

std::string quilletToolkit::ImportDocument(std::int16_t& documentType, std::int16_t user) {
  if (user == 0) user = DefaultUser;
  pasHisHeader& header = HistoryHeader();
  // The number's letter prefix plays no part: the whole text goes to the record.
  std::string held = HeaderText;
  const std::string number = PopField(held, "|");
  FillHeader(header, documentType, user);

  header.INSERT();
  if (header.STATUS_ > kStatusOk) return std::to_string(header.STATUS_) + "|";
  const std::string result =
      "0|" + number + "=" + NumberText(TotalExclusive) + "|" + NumberText(TotalInclusive);

  if (Trim(CStr(header.default_(33))) == "1") {
    // A deletion: the header line stands alone, and the held lines are dropped.
    for (std::string& lineText : LineTexts) lineText.clear();
    LineCount = 0;
    return result;
  }
  pasHisDetail& detail = HistoryDetail();
  for (std::int32_t line = 1; line <= LineCount; ++line) {
    const auto at = static_cast<size_t>(line);
    if (LineTexts[at].empty()) continue;
    FillDetail(detail, header, line, documentType, user);
    detail.INSERT();
    if (documentType < kBatchedDocuments)
      UpdateDebtorTotals(LineInclusive[at], LineExclusive[at], documentType);
    LineTexts[at].clear();
  }
  LineCount = 0;
  return result;
}

void quilletToolkit::UpdateDebtorTotals(double& inclusive, double& exclusive,
                                        std::int16_t& documentType) {
  pasDebtor& debtor = app_.pastelFiles.Debtor();
  const double sign = documentType == kDocumentCreditNote ? -1 : 1;
  const auto add = [&](std::int32_t field, double amount) {
    debtor.default_(field, CDbl(debtor.default_(field)) + sign * amount);
  };
  const std::int32_t period = PeriodCode;
  if (period >= kLastYearPeriods) {
    const std::int32_t p = period - (kFirstPeriodThisYear - 1);
    add(p + kBalanceThisYear, inclusive);
    add(p + kSalesThisYear, exclusive);
    add(p + kBalanceRunThisYear, inclusive);
  } else {
    // Last year's figures are read from period P's fields and written one field further on,
    // as the system has always done; all three are read before the first is written.
    const double balance = CDbl(debtor.default_(period + kBalanceLastYear));
    const double sales = CDbl(debtor.default_(period + kSalesLastYear));
    const double run = CDbl(debtor.default_(period + kBalanceRunLastYear));
    debtor.default_(period + kBalanceLastYear + 1, balance + sign * inclusive);
    debtor.default_(period + kSalesLastYear + 1, sales + sign * exclusive);
    debtor.default_(period + kBalanceRunLastYear + 1, run + sign * inclusive);
  }
  debtor.default_(kDebtorChangeStamp, tolmen::FormatDate(app_.clock.Now(), "dd/mm/yyyy hh:mm:ss"));
  debtor.TOFILE();
  debtor.UPDATE();
}

bool quilletToolkit::DocumentFilesOpen() const {
  return (header_ && header_->IsOpen) || (detail_ && detail_->IsOpen);
}

void quilletToolkit::CloseDocumentFiles() {
  HistoryHeader().CLOSE_();
  HistoryDetail().CLOSE_();
  header_ = std::make_unique<pasHisHeader>(app_);
  detail_ = std::make_unique<pasHisDetail>(app_);
  LineCount = 0;
}

void quilletToolkit::OpenDocumentFiles() {
  if (DataPath.empty()) return;
  pasHisHeader& header = HistoryHeader();
  pasHisDetail& detail = HistoryDetail();
  header.FileName = "\"" + DataPath + pasHisHeader::kFileName + "\"";
  detail.FileName = "\"" + DataPath + pasHisDetail::kFileName + "\"";
  header.OPEN_();
  detail.OPEN_();
  LineCount = 0;
}

}  // namespace tolmen
