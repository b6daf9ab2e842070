// Saving templates: a screen set as a user sets it survives a save and a reading unchanged, the
// file is private and replaced in one step, and SetOptions derives the run's values.
#include <sys/stat.h>

#include "TemplateTestBase.h"
#include "runtime/RuntimeError.h"
#include "screen/ScreenActions.h"

namespace tolmen {
namespace {

using testing::TemplateTest;
namespace fs = std::filesystem;

TEST_F(TemplateTest, SavedScreenReadsBackToTheSameOptionsAndBytes) {
  MakeSet();  // the password line opens it when the template is read
  Begin({"@select cboDocument Email Document", "@select cboStatement #4",
         "@select cboMessage Print First Terms Message", "@click cmdOk"});
  MainForm& form = Form();
  form.Dir1.SetText((root_ / "set").string());  // the writer adds the trailing '/'
  form.txtPassword.SetText("pa: ss ");
  form.txtDatabasePath.SetText("/data/max/Demo Books");
  form.optListClients.Set(1);
  form.optCategory.Set(2);
  app_->options.CategoryUdf.name = "Member Type";
  form.optImport.Set(2);
  app_->options.ImportCriteriaUdf.name = "Member Status";
  form.txtUserFldVal.SetText("GOLD");
  for (int box : {0, 2, 4}) form.chkToPastel(box).SetValue(1);
  for (const char* entry : {"", "<Selected>", "<First Alternate>", "*Main Address"})
    form.cboPostal.AddItem(entry);
  form.cboPostal.SetListIndex(1);
  form.cboDelivery.SetText("Warehouse");
  form.txtPrefix.SetText("3");
  app_->options.AccountNumber.name = "Pastel Account";
  form.lst2MaxLinked.AddItem("Account Balance\t => Balance\t (Number)");
  form.lst2MaxLinked.AddItem("This year Sales, Period  4\t => Sales\t (Number)");
  form.optBillPeriod.Set(2);
  form.optBillOn.Set(3);
  form.txtBillOn.SetText("25");
  app_->options.DateBilled.name = "Last Billed";
  form.txtGLcode.SetText("1000000");
  form.Show();
  form.mnuOptnPastel.Click();
  ScreenActions user(app_->screen);
  app_->ui.Run(user);  // the user picks the three Pastel settings and presses OK
  ASSERT_EQ(app_->options.PrintStatement, 4);
  SetOptions(*app_);
  const RunOptions first = app_->options;
  const std::string saved = Path("first.ktf");
  TemplateSave(*app_, saved);

  Begin();
  // The database box shows what the Maximizer link attached to; the template only remembers it.
  Form().txtDatabasePath.SetText("/data/max/Demo Books");
  ASSERT_TRUE(TemplateOpen(*app_, saved));
  SetOptions(*app_);
  RunOptions second = app_->options;
  EXPECT_EQ(second.TemplatePastelFolder, Folder());
  EXPECT_EQ(app_->pastel.PastelDataPath, Folder());
  EXPECT_EQ(second.TemplateDatabasePath, "/data/max/Demo Books");
  // The first screen was set by hand, not read from a template.
  second.TemplatePastelFolder.clear();
  second.TemplateDatabasePath.clear();
  EXPECT_TRUE(second == first);
  EXPECT_EQ(second.ToMax, first.ToMax);
  EXPECT_EQ(second.PastelPassword, "pa: ss ");
  EXPECT_EQ(second.NameInAddress, 1);
  TemplateSave(*app_, Path("second.ktf"));
  EXPECT_EQ(Read(Path("second.ktf")), Read(saved));
}

TEST_F(TemplateTest, SaveReplacesTheFileAsAPrivateOne) {
  Begin();
  const std::string path = Write("CURRENT.KTF", {"old content"});
  ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
  Form().txtPassword.SetText("secret");
  TemplateSave(*app_, path);
  struct stat info {};
  ASSERT_EQ(::stat(path.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
  EXPECT_NE(Read(path).find("\r\nPastel Password: secret\r\n"), std::string::npos);
  int files = 0;
  for (const auto& entry : fs::directory_iterator(root_))
    if (entry.is_regular_file()) ++files;
  EXPECT_EQ(files, 1);  // no temporary file left behind

  try {
    TemplateSave(*app_, Path("no such folder/x.ktf"));
    ADD_FAILURE() << "saved into a missing folder";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 76);
  }
  EXPECT_FALSE(fs::exists(Path("no such folder")));
}

TEST_F(TemplateTest, AScreenAsTheFormStartsSavesATemplateThatOpensAgain) {
  Begin();  // no template and no defaults loaded: the form as it starts
  const std::string path = Path("start.ktf");
  TemplateSave(*app_, path);
  EXPECT_NE(Read(path).find("\r\nImport Which Data: 3 \r\n"), std::string::npos) << Read(path);
  Begin({"Cancel"});  // no Pastel folder was chosen: the folder box is cancelled
  EXPECT_TRUE(TemplateOpen(*app_, path)) << Transcript();
  EXPECT_EQ(Form().optImport.Value(), 2);
}

TEST_F(TemplateTest, SetOptionsDerivesTheRunsValues) {
  Begin();
  MainForm& form = Form();
  FillCategories();
  form.optCategory.Set(0);
  form.cboCategories.SetListIndex(1);
  form.chkToPastel(3).SetValue(1);
  form.chkToPastel(4).SetValue(1);
  form.optMismatch.Set(2);
  SetOptions(*app_);
  RunOptions& options = app_->options;
  EXPECT_EQ(options.CategoryNumber, 1);
  EXPECT_EQ(options.CategoryName, "Retail Sales");
  EXPECT_FALSE(options.CreateCategory);
  EXPECT_EQ(options.NameInAddress, 3);
  EXPECT_FALSE(app_->run.MismatchSummaryOn);  // no account number UDF chosen
  EXPECT_EQ(options.MismatchMode, 0);

  form.optCategory.Set(1);
  form.txtCategory(0).SetText("Gold Members");
  options.AccountNumber.index = 4;
  SetOptions(*app_);
  EXPECT_TRUE(options.CreateCategory);
  EXPECT_EQ(options.CategoryNumber, 3);
  EXPECT_EQ(options.CategoryName, "Gold Members");
  EXPECT_TRUE(app_->run.MismatchSummaryOn);
  EXPECT_EQ(options.MismatchMode, 2);

  form.cboCatgrUDF.AddItem("");
  form.cboCatgrUDF.AddItem("Member Type");
  form.cboCatgrUDF.SetItemData(1, 7);
  form.cboCatgrUDF.SetListIndex(1);
  form.optCategory.Set(2);
  SetOptions(*app_);
  EXPECT_TRUE(options.CategoryFromUdf);
  EXPECT_EQ(options.CategoryUdf.index, 7);
}

}  // namespace
}  // namespace tolmen
