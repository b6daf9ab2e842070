// The check before a billing run and the price editor, on the wizard's screen with a scripted
// user: each refusal's message and focus, and what an edit stores and shows.
#include <gtest/gtest.h>

#include "pastel/PastelTestSet.h"

#include "billing/BillingSetup.h"
#include "runtime/DateTime.h"
#include "wizard/RecurringBillingControls.h"

namespace tolmen {
namespace {

class BillingSetupTest : public testing::PastelSetTest {
 protected:
  // Monthly billing from a category UDF, a Date Billed UDF chosen, on 23 November 2026.
  void Begin(const std::vector<std::string>& script) {
    Start(script, DateFromParts(2026, 11, 23, 9, 0, 0));
    MainForm& form = app_->screen.frmMain;
    form.optCategory.Set(2);
    form.optBillPeriod.Set(2);
    form.cboDateBilled.AddItem("");
    form.cboDateBilled.AddItem("Date Billed");
    form.cboDateBilled.SetItemData(1, 7);
    form.cboDateBilled.SetListIndex(1);
    form.txtGLcode.SetText("1000000");
    form.txtVATcode.SetText("1");
    form.txtToday.SetText("23 Nov 2026");
  }
  bool Said(const std::string& part) const { return Transcript().find(part) != std::string::npos; }
};

TEST_F(BillingSetupTest, EachRefusalSaysWhyAndTheCheckPassesOnceMended) {
  Begin({"OK", "OK", "Yes"});
  MainForm& form = app_->screen.frmMain;
  form.optCategory.Set(0);
  EXPECT_FALSE(CheckBillingSetup(*app_));
  EXPECT_TRUE(Said("To use billing, you must select 'Use/Create Category"));
  EXPECT_EQ(form.tabDlg.Tab(), MainForm::kTabToPastel);
  EXPECT_TRUE(form.mnuViewBillR.Checked());

  // A GL code that is not seven digits, and a date that is none, answered Yes.
  form.optCategory.Set(2);
  form.txtGLcode.SetText("12345AB");
  form.txtToday.SetText("32 Jan 2024");
  EXPECT_FALSE(CheckBillingSetup(*app_));
  EXPECT_TRUE(
      Said("Billing can not Proceed! | OK | Exclamation\n"
           "Please use a seven-number General Ledger Code for Billing."));
  EXPECT_TRUE(Said("Your date for 'Today' (32 Jan 2024) is not understood."));
  EXPECT_EQ(form.txtToday.Text(), "23 Nov 2026");
  EXPECT_EQ(app_->run.BillingDate, DateSerial(2026, 11, 23));
  EXPECT_FALSE(app_->billing.BillingChecked);

  form.txtGLcode.SetText(" 1000000 ");
  EXPECT_TRUE(CheckBillingSetup(*app_));
  EXPECT_EQ(app_->billing.BillingGLCode, "1000000");
  EXPECT_EQ(app_->billing.DateBilledField, 7);
  EXPECT_TRUE(ui_->Finished());
}

TEST_F(BillingSetupTest, ABillingDateThatIsNotTodayIsConfirmed) {
  Begin({"No"});
  app_->screen.frmMain.txtToday.SetText("30 Nov 2026");
  EXPECT_FALSE(CheckBillingSetup(*app_));
  EXPECT_TRUE(Said("You are billing for: 30 Nov 2026\ninstead of Today: 23 Nov 2026\n"));
  EXPECT_EQ(app_->run.BillingDate, DateSerial(2026, 11, 30));
}

TEST_F(BillingSetupTest, EditPriceStoresAndShowsTheAnswer) {
  Begin({"= 90/14+2", "= abc", "OK", "= 0", "= 4"});
  ListBox& prices = app_->screen.frmMain.lstPrices;
  prices.AddItem("Gold\t 0\t(1 Year)");
  prices.AddItem("Silver\t50\t(1 Year)");
  prices.SetListIndex(0);
  EditPrice(*app_);
  EXPECT_EQ(app_->settings.GetSetting("Billing", "Gold"), "78.95");
  EXPECT_EQ(app_->settings.GetSetting("BillingPeriod", "Gold"), "2");
  EXPECT_EQ(prices.List(0), "Gold\t78.95\t2 Year");
  EXPECT_EQ(prices.ListIndex(), 1);

  EditPrice(*app_);
  EXPECT_TRUE(Said("Not a Number!"));
  EXPECT_EQ(app_->settings.GetSetting("Billing", "Silver", "none"), "none");
  EXPECT_EQ(prices.List(1), "Silver\t50\t(1 Year)");

  // A period below 1 is the one-year default; a row that is not billed has no period to edit.
  prices.SetListIndex(0);
  EditPeriod(*app_);
  EXPECT_EQ(app_->settings.GetSetting("BillingPeriod", "Gold", "none"), "none");
  EXPECT_EQ(prices.List(0), "Gold\t78.95\t(1 Year)");
  EditPeriod(*app_);
  EXPECT_EQ(app_->settings.GetSetting("BillingPeriod", "Silver"), "4");
  EXPECT_EQ(prices.List(1), "Silver\t50\t4 Year");
  prices.AddItem("Bronze\t<no billing>\t");
  prices.SetListIndex(2);
  EditPeriod(*app_);
  EXPECT_TRUE(ui_->Finished());
  EXPECT_EQ(transcript_.str().find("'Bronze'"), std::string::npos);
}

// The date buttons, as their clicks reach them: a month from the 31st lands on the month's last
// day; the day box's pair works only for "On or After Specific Date" and stays within 1 to 31.
TEST_F(BillingSetupTest, TheDateButtonsMoveTheBillingDateAndTheDay) {
  Begin({});
  WireRecurringBillingControls(*app_);
  MainForm& form = app_->screen.frmMain;
  form.txtToday.SetText("31 Jan 2026");
  const std::vector<std::pair<int, std::string>> today = {
      {2, "28 Feb 2026"}, {3, "28 Jan 2026"}, {0, "29 Jan 2026"}, {1, "28 Jan 2026"}};
  for (const auto& [button, shown] : today) {
    form.updToday(button).Click();
    EXPECT_EQ(form.txtToday.Text(), shown) << button;
  }
  EXPECT_FALSE(form.updBillOn(0).Enabled());
  form.optBillOn(3).Click();
  EXPECT_TRUE(form.updBillOn(0).Enabled() && form.updBillOn(1).Enabled());
  form.txtBillOn.SetText("31");
  form.updBillOn(0).Click();
  EXPECT_EQ(form.txtBillOn.Text(), "31");
  form.txtBillOn.SetText("2");
  form.updBillOn(1).Click();
  form.updBillOn(1).Click();
  EXPECT_EQ(form.txtBillOn.Text(), "1");
  form.optBillOn(0).Click();
  EXPECT_FALSE(form.updBillOn(1).Enabled());
}

}  // namespace
}  // namespace tolmen
