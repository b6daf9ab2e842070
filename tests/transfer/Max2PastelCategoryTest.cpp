// A new customer category written into a real category file within the run's transaction.
#include <gtest/gtest.h>

#include "common/TestText.h"
#include "pastel/OpenPastel.h"
#include "pastel/PastelTestSet.h"
#include "transfer/Max2Pastel.h"

namespace tolmen {
namespace {

using testing::PastelSetTest;

class Max2PastelCategoryTest : public PastelSetTest {
 protected:
  // Opens the demo set and asks for category <41> Members.
  void OpenWithNewCategory() {
    MakeSet();
    MainForm& form = app_->screen.frmMain;
    form.Dir1.SetText(Folder());
    ASSERT_TRUE(OpenPastel(*app_));
    form.optImport.Set(0);
    form.optCategory.Set(1);
    form.txtCategory(0).SetText("Members");
    form.txtCategory(1).SetText("41");
    app_->options.CreateCategory = true;
    app_->run.RunMode = kRunOneTemplate;
    app_->run.RunReason = "by User.";
  }
  std::string Log() { return test::ReadFile(Folder() + "Tolmen.LOG"); }
};

// Writing it and moving the screen on is the stop scenario's; here the number is taken already.
TEST_F(Max2PastelCategoryTest, ANumberTakenIsLoggedAsAnErrorAndTheRunGoesOn) {
  OpenWithNewCategory();
  DoImport(*app_);
  MainForm& form = app_->screen.frmMain;
  EXPECT_EQ(form.cboCategories.Text(), "<41> Members");
  EXPECT_EQ(form.txtCategory(0).Text(), "");
  form.optCategory.Set(1);
  form.txtCategory(0).SetText("Others");
  form.txtCategory(1).SetText("41");
  ASSERT_TRUE(OpenPastel(*app_));
  app_->run.ErrorCount = 0;
  DoImport(*app_);
  EXPECT_NE(Log().find("### Error 1: Duplicate Key Value in DoImport adding Category <41> "
                       "Others\r\n"),
            std::string::npos);
  EXPECT_EQ(form.txtCategory(0).Text(), "Others");
  EXPECT_EQ(app_->shell.ExitStatus, kExitRunErrors);
}

}  // namespace
}  // namespace tolmen
