// The Pastel debtor settings dialog, opened from its menu item and driven as a user drives it.
#include "TemplateTestBase.h"
#include "templates/PastelSetup.h"

namespace tolmen {
namespace {

using testing::TemplateTest;

TEST_F(TemplateTest, SetupDialogShowsTheHeldSettingsAndOnlyOkStoresThem) {
  Begin();
  SetupForm& dialog = app_->screen.frmSetup;
  RunOptions& options = app_->options;
  options.PrintDocument = 1;
  options.PrintStatement = 4;
  options.PrintMessage = 2;
  const auto held = [&] {
    return std::to_string(options.PrintDocument) + std::to_string(options.PrintStatement) +
           std::to_string(options.PrintMessage);
  };

  Form().mnuOptnPastel.Click();
  ASSERT_TRUE(dialog.IsModal());
  ASSERT_EQ(dialog.cboDocument.ListCount(), 4);
  ASSERT_EQ(dialog.cboStatement.ListCount(), 5);
  ASSERT_EQ(dialog.cboMessage.ListCount(), 3);
  EXPECT_EQ(dialog.cboDocument.Text(), "Print Document");
  EXPECT_EQ(dialog.cboStatement.Text(), "Do not Print and Email Document");
  EXPECT_EQ(dialog.cboMessage.Text(), "Print First Terms Message");

  dialog.cboDocument.SetListIndex(3);
  dialog.cboMessage.SetListIndex(0);
  dialog.cmdCancel.Click();
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_EQ(held(), "142");

  // Opened again, the lists are filled afresh (not doubled) and show the held values.
  Form().mnuOptnPastel.Click();
  EXPECT_EQ(dialog.cboDocument.ListCount(), 4);
  EXPECT_EQ(dialog.cboDocument.ListIndex(), 1);
  dialog.cboDocument.SetListIndex(3);
  dialog.cboStatement.SetListIndex(0);
  dialog.cmdOk.Click();
  EXPECT_FALSE(dialog.IsShown());
  EXPECT_EQ(held(), "302");
}

TEST_F(TemplateTest, SetupDialogReportsAHeldValueItsListCannotShow) {
  Begin();
  SetupForm& dialog = app_->screen.frmSetup;
  const std::string path =
      Write("settings.ktf", {"TOLMEN TEMPLATE FILE", "*Tab: Pastel Settings", "Print Document: 2",
                             "Print Statement: 9", "Print Message: 1"});
  ASSERT_TRUE(TemplateOpen(*app_, path));
  Form().mnuOptnPastel.Click();
  EXPECT_TRUE(Said("Run-time error '380':"));
  EXPECT_EQ(dialog.cboStatement.ListIndex(), -1);
  EXPECT_EQ(dialog.cboDocument.ListIndex(), 2);
  EXPECT_EQ(dialog.cboMessage.ListIndex(), 1);
  EXPECT_TRUE(dialog.IsShown());
}

}  // namespace
}  // namespace tolmen
