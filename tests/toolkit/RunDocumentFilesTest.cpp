// A run closes the toolkit's document files when they are open, and says so in the log only at
// a negative debugging level.
#include <gtest/gtest.h>

#include "../pastel/PastelTestSet.h"
#include "shell/ShellFixture.h"
#include "transfer/RunStart.h"

namespace tolmen::testing {
namespace {

class RunDocumentFilesTest : public ShellFixture {};

TEST_F(RunDocumentFilesTest, RunClosesOpenDocumentFiles) {
  for (int level : {0, -1}) {
    Start({"@click cmdNext"});
    FakeStartStages();
    FakeClientLoop(1, false);
    app_->shell.ToPastelFilled = true;
    app_->shell.DebugLevel = level;
    MainForm& form = app_->screen.frmMain;
    form.optImport.Set(0);
    form.cmdNext.SetOnClick([this] {
      RunEntry entry;
      entry.copyScreen = true;  // SetOptions' stand-in chooses the account number UDF
      StartRun(*app_, entry);
    });
    form.Show();
    const std::string folder = dir_.File("set") + "/";
    CreatePastelSet(*app_, folder, DemoSet());
    app_->toolkit.SetDataPath(folder);
    app_->toolkit.OpenDocumentFiles();
    ASSERT_TRUE(app_->toolkit.DocumentFilesOpen());

    ui_->Run(*window_);
    EXPECT_FALSE(app_->toolkit.DocumentFilesOpen()) << level;
    EXPECT_EQ(Contains(Log(), "# Debug: CloseDocumentFiles\r\n"), level < 0) << level;
  }
}

}  // namespace
}  // namespace tolmen::testing
