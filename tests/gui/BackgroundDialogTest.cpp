// frmOptions in the Qt window with background mode's real handlers, typed into as a user types.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSystemTrayIcon>
#include <QTest>

#include <cstdlib>
#include <fstream>

#include "common/TempDir.h"
#include "gui/MainWindow.h"
#include "gui/QtUi.h"
#include "screen/ScreenActions.h"
#include "shell/AppInfo.h"
#include "shell/Startup.h"
#include "shell/Tolmen.h"
#include "wizard/WizardHandlers.h"

namespace tolmen {
namespace {

class BackgroundDialogTest : public ::testing::Test {
 protected:
  BackgroundDialogTest()
      : ui(clock),
        app(MakeAppInfo(dir.File("home") + "/", "1.0.0"), ui, clock, dir.File("settings.ini")),
        actions(app.screen),
        window(app.screen, actions) {
    ui.Attach(&window);
    WireMainForm(app);
    WireShell(app);
    app.screen.frmMain.Show();
    window.Refresh();
  }
  template <typename W>
  W* Widget(const char* name) {
    W* widget = window.OptionsDialog()->findChild<W*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  // Types into a box and leaves it, as a user does.
  void Type(const char* box, const char* text) {
    auto* line = Widget<QLineEdit>(box);
    line->setFocus();
    QApplication::processEvents();
    line->selectAll();
    QTest::keyClicks(line, text);
    Widget<QPushButton>("cmdBrowse")->setFocus();
    QApplication::processEvents();
  }
  test::TempDir dir{"tolmen-gui-bg-"};
  VirtualClock clock{46349.5};  // 23 November 2026, 12:00
  QtUi ui;
  Tolmen app;
  ScreenActions actions;
  MainWindow window;
};

TEST_F(BackgroundDialogTest, TheDialogFromTheFileMenuTakesTheScheduleAsTyped) {
  std::filesystem::create_directories(dir.File("home"));
  std::ofstream(dir.File("home/a.KTF")) << "TOLMEN TEMPLATE FILE\r\n";
  app.background.TemplateList = {dir.File("home/a.KTF")};
  window.findChild<QAction*>("mnuFile_40")->trigger();
  FormDialog* dialog = window.OptionsDialog();
  ASSERT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->windowTitle(), "Vellumator Background Mode Options");
  EXPECT_TRUE(dialog->isModal());
  EXPECT_EQ(Widget<QListWidget>("lstTemplates")->count(), 1);

  QTest::mouseClick(Widget<QCheckBox>("Check1"), Qt::LeftButton);
  Widget<QRadioButton>("optMethod_1")->click();
  Type("txtHours", "1");
  Type("txtMins", "90");
  EXPECT_EQ(Widget<QLineEdit>("txtHours")->text(), "02");
  EXPECT_EQ(Widget<QLineEdit>("txtMins")->text(), "30");
  EXPECT_FALSE(Widget<QLineEdit>("txtTime")->isEnabled());
  dialog->adjustSize();
  if (const char* shots = std::getenv("TOLMEN_SCREENSHOTS"))
    dialog->grab().save(QString::fromLocal8Bit(shots) + "/background-options.png");

  // Without a notification area (the offscreen platform) the window is minimised, not hidden.
  QTest::mouseClick(Widget<QPushButton>("cmdOK"), Qt::LeftButton);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(app.background.IntervalMinutes, 150);
  EXPECT_EQ(app.screen.frmMain.Timer1.Interval(), 60000);
  EXPECT_FALSE(app.screen.frmMain.IsShown());
  if (!QSystemTrayIcon::isSystemTrayAvailable()) {
    EXPECT_TRUE(window.isMinimized());
    EXPECT_TRUE(window.isVisible());
  } else {
    EXPECT_FALSE(window.isVisible());
    ASSERT_NE(ui.TrayMenu(), nullptr);
  }
}

}  // namespace
}  // namespace tolmen
