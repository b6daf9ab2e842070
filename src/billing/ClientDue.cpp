#include "billing/ClientDue.h"

#include "billing/ClientUdfs.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "shell/Tolmen.h"

namespace tolmen {

namespace {

std::string DayText(double date) {
  return " " + FormatDate(date, "dd mmm yyyy");
}

bool SameMonth(double a, double b) {
  return Year(a) == Year(b) && Month(a) == Month(b);
}

}  // namespace

DueDecision IsClientDue(const DueFacts& facts) {
  DueDecision decision;
  const double today = facts.billingDate;
  double billed = DateSerial(1990, 1, 1);
  if (IsDate(Variant(facts.dateBilledText))) {
    billed = CDate(Variant(facts.dateBilledText));
    decision.note = facts.dateBilledName + (billed == 0 ? " {never}" : DayText(billed));
  } else {
    decision.note = facts.dateBilledName + " <never>";
  }
  // A Date Billed moved forward holds the client back; no client is billed twice in a month.
  if (facts.method == 1 && billed > today) return decision;
  if (SameMonth(billed, today)) return decision;
  if (facts.monthly) {
    decision.note = "Monthly billing, " + decision.note;
    decision.due = true;
    return decision;
  }

  std::string joinedText = facts.dateJoinedText;
  if (IsDate(Variant(joinedText)) && CDate(Variant(joinedText)) == 0) joinedText.clear();
  double joined = 0;
  if (!joinedText.empty()) {
    joined = CDate(Variant(joinedText));
    decision.note = facts.dateJoinedName + DayText(joined) + ", " + decision.note;
  } else {
    decision.note = facts.dateJoinedName + " <missing>, " + decision.note;
    joined = today - Day(today);
    decision.writeJoined = true;
    decision.joined = joined;
  }
  // Billed in the month before the anniversary of joining.
  const bool due = Month(joined) == Month(DateAdd("m", 1, today));
  if (facts.method == 1 || !due) {
    decision.due = due;
    return decision;
  }
  if (facts.method != 2 && !(billed < today)) {
    decision.due = true;
    return decision;
  }
  decision.due = facts.categoryYears < 2 || Year(today) - Year(billed) >= facts.categoryYears;
  return decision;
}

bool DecideClientDue(Tolmen& app) {
  const MainForm& form = app.screen.frmMain;
  DueFacts facts;
  facts.dateBilledName = form.cboDateBilled.Text();
  facts.dateJoinedName = form.cboDateJoined.Text();
  facts.method = app.shell.MultiYear;
  facts.monthly = form.optBillPeriod.Value() == kBillMonthly;
  facts.billingDate = app.run.BillingDate;
  facts.dateBilledText = ReadClientUdf(app, app.billing.DateBilledField);
  if (!facts.monthly) {
    facts.dateJoinedText = ReadClientUdf(app, app.billing.DateJoinedField);
    const std::string category = ReadClientUdf(app, app.options.CategoryUdf.index);
    if (!category.empty())
      facts.categoryYears =
          static_cast<int>(Val(app.settings.GetSetting("BillingPeriod", category, "0")));
  }
  const DueDecision decision = IsClientDue(facts);
  if (decision.writeJoined) WriteClientDate(app, app.billing.DateJoinedField, decision.joined);
  app.billing.BillingNote = decision.note;
  return decision.due;
}

}  // namespace tolmen
