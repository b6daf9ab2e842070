#include "transfer/Pas2MaxValue.h"

#include "pastel/pasDebtor.h"
#include "runtime/Conversion.h"
#include "runtime/Format.h"

namespace tolmen {
namespace {

constexpr int kThisYearBalance = 4;  // field of period 1; period p is this field + p - 1
constexpr int kLastYearBalance = 17;
constexpr int kThisYearSales = 30;
constexpr int kLastYearSales = 43;
constexpr int kLastPaidDate = 66;
constexpr int kBlocked = 68;
constexpr int kFirstUserField = 105;

// The sum of `count` fields from `first` on.
double SumFields(const DebtorFigures& debtor, int first, int count) {
  double sum = 0;
  for (int i = 0; i < count; ++i) sum += debtor.Number(first + i);
  return sum;
}

// Rounded to two decimals as its "0.00" text reads back.
double TwoDecimals(double value) {
  return Val(FormatNumber(value, "0.00"));
}

}  // namespace

double DebtorFigures::Number(int field) const {
  if (field >= kFirstPeriodField && field <= kLastPeriodField)
    return periods[static_cast<size_t>(field - kFirstPeriodField)];
  switch (field) {
    case 63:
      return settlementTerms;
    case 64:
      return paymentTerms;
    case 65:
      return discount;
    case kLastPaidDate:
      return lastPaidDate;
    case 67:
      return lastPaidAmount;
    case 75:
      return creditLimit;
    case 76:
      return interestAfter;
    default:
      return 0;
  }
}

std::string DebtorFigures::Text(int field) const {
  if (field == kBlocked) return blocked;
  const int user = field - kFirstUserField;
  if (user >= 0 && user < static_cast<int>(userFields.size()))
    return userFields[static_cast<size_t>(user)];
  return "";
}

DebtorFigures ReadDebtorFigures(pasDebtor& debtor) {
  DebtorFigures figures;
  for (int field = kFirstPeriodField; field <= kLastPeriodField; ++field)
    figures.periods[static_cast<size_t>(field - kFirstPeriodField)] = CDbl(debtor.default_(field));
  figures.settlementTerms = CDbl(debtor.default_(63));
  figures.paymentTerms = CDbl(debtor.default_(64));
  figures.discount = CDbl(debtor.default_(65));
  figures.lastPaidDate = CDate(debtor.default_(kLastPaidDate));
  figures.lastPaidAmount = CDbl(debtor.default_(67));
  figures.blocked = CStr(debtor.default_(kBlocked));
  figures.creditLimit = CDbl(debtor.default_(75));
  figures.interestAfter = CDbl(debtor.default_(76));
  for (size_t i = 0; i < figures.userFields.size(); ++i)
    figures.userFields[i] = CStr(debtor.default_(kFirstUserField + static_cast<int>(i)));
  return figures;
}

double AccountBalance(const DebtorFigures& debtor, int periods) {
  double balance = 0;
  for (int i = 0; i < periods; ++i)
    balance = balance + TwoDecimals(debtor.Number(kThisYearBalance + i)) +
              TwoDecimals(debtor.Number(kLastYearBalance + i));
  return balance;
}

double AgingBucket(const DebtorFigures& debtor, int bucket, int currentPeriod, int periods) {
  if (bucket < 4) {
    const int p = currentPeriod - bucket;
    // Field 3 + p is this year's period p; 16 + P + p counts back from last year's end.
    return p > 0 ? debtor.Number(kThisYearBalance - 1 + p)
                 : debtor.Number(kLastYearBalance - 1 + periods + p);
  }
  const int m = currentPeriod - 4;
  if (m < 1) return SumFields(debtor, kLastYearBalance, periods + m);
  return SumFields(debtor, kThisYearBalance, currentPeriod - 4) +
         SumFields(debtor, kLastYearBalance, periods);
}

double SalesTotal(const DebtorFigures& debtor, int type, int periods) {
  const double thisYear = SumFields(debtor, kThisYearSales, periods);
  const double lastYear = SumFields(debtor, kLastYearSales, periods);
  switch (type) {
    case kPas2MaxSalesThisYear:
      return thisYear;
    case kPas2MaxSalesLastYear:
      return lastYear;
    default:
      return thisYear + lastYear;
  }
}

std::optional<std::string> Pas2MaxValue(const DebtorFigures& debtor, const Pas2MaxRow& row,
                                        int currentPeriod, int periods) {
  if (row.field < 0) return std::nullopt;
  switch (row.type) {
    case kPas2MaxDate:
      return FormatDate(debtor.Number(row.field), "yyyy-mm-dd");
    case kPas2MaxNumber:
      return NumberText(debtor.Number(row.field));
    case kPas2MaxText:
      return debtor.Text(row.field);
    case kPas2MaxFlag: {
      const std::string text = debtor.Text(row.field);
      return !text.empty() && text[0] != '\0' ? "Y" : "N";
    }
    case kPas2MaxBalance:
      return NumberText(AccountBalance(debtor, periods));
    case kPas2MaxSalesThisYear:
    case kPas2MaxSalesLastYear:
    case kPas2MaxSalesBoth:
      return NumberText(SalesTotal(debtor, row.type, periods));
    default:
      break;
  }
  if (row.type <= kPas2MaxAging0 && row.type >= kPas2MaxAging4)
    return NumberText(AgingBucket(debtor, kPas2MaxAging0 - row.type, currentPeriod, periods));
  return std::nullopt;
}

}  // namespace tolmen
