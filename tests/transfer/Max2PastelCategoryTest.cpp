// The new category of "Create New Customer Category", written into a real category file inside
// the run's transaction: kept at the end of a run, refused when the number is taken. (A Cancel
// throws it away with the transaction: the scenario tests stop a whole run for that.)
#include <gtest/gtest.h>

#include "common/TestText.h"
#include "pastel/OpenPastel.h"
#include "pastel/PastelTestSet.h"
#include "pastel/pasDcodeFile.h"
#include "recordio/BtGlobal.h"
#include "runtime/Conversion.h"
#include "runtime/Strings.h"
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
  // The categories of the file, "<n> text" each, read afresh.
  std::vector<std::string> Categories() {
    std::vector<std::string> found;
    EXPECT_TRUE(OpenPastel(*app_));
    pasDcodeFile& file = app_->pastelFiles.DcodeFile();
    file.KeyNumber(0);
    file.GET_LOWEST();
    while (file.STATUS_ == 0) {
      found.push_back("<" + CStr(file.default_(1)) + "> " + Trim(CStr(file.default_(2))));
      file.GET_NEXT();
    }
    ClosePasFiles(*app_);
    return found;
  }
  std::string Log() { return test::ReadFile(Folder() + "Tolmen.LOG"); }
};

TEST_F(Max2PastelCategoryTest, NewCategoryIsWrittenAndTheScreenMovesOn) {
  OpenWithNewCategory();
  DoImport(*app_);
  MainForm& form = app_->screen.frmMain;
  EXPECT_EQ(form.txtCategory(0).Text(), "");
  EXPECT_EQ(form.txtCategory(1).Text(), "");
  EXPECT_EQ(form.optCategory.Value(), 0);
  EXPECT_EQ(form.cboCategories.Text(), "<41> Members");
  const std::string log = Log();
  EXPECT_NE(log.find("\r\nCreate New Customer Category: <41> Members\r\n"), std::string::npos);
  EXPECT_NE(log.find("\r\nCreated new Customer Category <41> Members\r\n"), std::string::npos);
  EXPECT_EQ(Categories(), (std::vector<std::string>{"<1> Retail", "<2> Wholesale",
                                                    "<3> Retail Sales", "<41> Members"}));

  // The same number again: the file refuses it, the run logs the error and goes on.
  form.optCategory.Set(1);
  app_->screen.frmMain.txtCategory(0).SetText("Others");
  app_->screen.frmMain.txtCategory(1).SetText("41");
  ASSERT_TRUE(OpenPastel(*app_));
  app_->run.ErrorCount = 0;
  DoImport(*app_);
  EXPECT_NE(Log().find("### Error 1: Duplicate Key Value in DoImport adding Category <41> "
                       "Others\r\n"),
            std::string::npos);
  EXPECT_EQ(app_->screen.frmMain.txtCategory(0).Text(), "Others");
  EXPECT_EQ(app_->shell.ExitStatus, kExitRunErrors);
  EXPECT_EQ(Categories().back(), "<41> Members");
}

}  // namespace
}  // namespace tolmen
