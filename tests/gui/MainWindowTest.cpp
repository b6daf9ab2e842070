// The Qt window bound to the screen model, both ways.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "gui/MainWindow.h"
#include "gui/QtUi.h"
#include "platform/ui/Clock.h"
#include "screen/ScreenActions.h"

namespace tolmen {
namespace {

class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest() : actions(model), window(model, actions) {
    model.frmMain.Show();
    window.Refresh();
  }
  template <typename W>
  W* Widget(const char* name) {
    W* widget = window.findChild<W*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  ScreenModel model;
  ScreenActions actions;
  MainWindow window;
};

TEST_F(MainWindowTest, ShowsTheSixPagesAndFindsAWidgetForEveryControl) {
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(window.Unbound().isEmpty()) << window.Unbound().join(", ").toStdString();
  auto* tabs = Widget<QTabWidget>("tabDlg");
  ASSERT_EQ(tabs->count(), 6);
  QStringList captions;
  for (int page = 0; page < tabs->count(); ++page) captions << tabs->tabText(page);
  EXPECT_EQ(captions, (QStringList{"Open", "To Pastel", "To Maximizer", "Recurring Billing",
                                   "Casual Billing", "Transfer"}));
  EXPECT_EQ(Widget<QPushButton>("cmdNext")->text(), "&Next >>");
  EXPECT_TRUE(Widget<QPushButton>("cmdAbort")->isHidden());
  EXPECT_EQ(Widget<QAction>("mnuFile_40")->text(), "Run in &Background...");
  EXPECT_TRUE(Widget<QAction>("mnuFile_45")->isSeparator());
  EXPECT_EQ(Widget<QMenu>("mnuOptnMultiTop")->actions().size(), 4);
  // The dialogs' widgets are theirs, not the main window's.
  EXPECT_EQ(window.OptionsDialog()->findChild<QPushButton*>("cmdOK")->text(), "OK");
  EXPECT_FALSE(window.OptionsDialog()->isVisible());
}

TEST_F(MainWindowTest, ModelChangesReachTheWidgetsAtTheNextRefresh) {
  MainForm& main = model.frmMain;
  main.cmdNext.SetCaption("&Import");
  main.mnuFile(21).SetChecked(true);
  main.tabDlg.SetTabVisible(MainForm::kTabRecurringBilling, false);
  main.tabDlg.SetTab(MainForm::kTabTransfer);
  main.lblStatus.SetCaption("Smith && Sons \xE9");  // Windows-1252 e acute
  main.lblAging.SetVisible(true);
  main.lblAging.SetBackColor(vbRed);
  main.txtToday.SetText("15 Mar 2024");
  main.ProgressBar1.SetMax(4);
  main.ProgressBar1.SetValue(7);                                  // a list that grew: drawn full
  EXPECT_EQ(Widget<QPushButton>("cmdNext")->text(), "&Next >>");  // not before the refresh

  window.Refresh();
  EXPECT_EQ(Widget<QPushButton>("cmdNext")->text(), "&Import");
  EXPECT_TRUE(Widget<QAction>("mnuFile_21")->isChecked());
  auto* tabs = Widget<QTabWidget>("tabDlg");
  EXPECT_FALSE(tabs->isTabVisible(MainForm::kTabRecurringBilling));
  EXPECT_EQ(tabs->currentIndex(), MainForm::kTabTransfer);
  EXPECT_EQ(Widget<QLabel>("lblStatus")->text(), QString::fromUtf8("Smith & Sons \u00E9"));
  auto* aging = Widget<QLabel>("lblAging");
  EXPECT_FALSE(aging->isHidden());
  EXPECT_EQ(aging->palette().color(QPalette::Window), QColor(255, 0, 0));
  EXPECT_EQ(Widget<QLineEdit>("txtToday")->text(), "15 Mar 2024");
  auto* bar = Widget<QProgressBar>("ProgressBar1");
  EXPECT_EQ(bar->value(), bar->maximum());

  // A dialog's lists and ticks, and its showing with its form.
  OptionsForm& options = model.frmOptions;
  options.lstTemplates.AddItem("monthly.ktf");
  options.lstTemplates.AddItem("weekly.ktf");
  options.lstTemplates.SetSelected(1, true);
  options.Check1.SetValue(2);
  options.optMethod.Set(1);
  options.Show(true);
  window.Refresh();
  auto* dialog = window.OptionsDialog();
  EXPECT_TRUE(dialog->isVisible());
  auto* list = dialog->findChild<QListWidget*>("lstTemplates");
  ASSERT_EQ(list->count(), 2);
  EXPECT_FALSE(list->item(0)->isSelected());
  EXPECT_TRUE(list->item(1)->isSelected());
  EXPECT_EQ(dialog->findChild<QCheckBox*>("Check1")->checkState(), Qt::PartiallyChecked);
  EXPECT_TRUE(dialog->findChild<QRadioButton*>("optMethod_1")->isChecked());
  options.Hide();
  window.Refresh();
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(MainWindowTest, UserActionsOnWidgetsRunTheModelsHandlers) {
  MainForm& main = model.frmMain;
  int nexts = 0;
  main.cmdNext.SetOnClick([&] {
    ++nexts;
    main.cmdBack.SetEnabled(true);
  });
  main.cmdBack.SetEnabled(false);
  window.Refresh();
  QTest::mouseClick(Widget<QPushButton>("cmdBack"), Qt::LeftButton);  // disabled: nothing
  QTest::mouseClick(Widget<QPushButton>("cmdNext"), Qt::LeftButton);
  EXPECT_EQ(nexts, 1);
  EXPECT_TRUE(Widget<QPushButton>("cmdBack")->isEnabled());  // refreshed after the handler

  std::vector<int> files;
  main.mnuFile.SetOnClick([&](int index) { files.push_back(index); });
  Widget<QAction>("mnuFile_2")->trigger();
  EXPECT_EQ(files, std::vector<int>{2});

  // A page change the handler refuses: the wizard goes back to page 0, and so does the widget.
  main.tabDlg.SetOnClick([&] {
    if (main.tabDlg.Tab() == MainForm::kTabToMaximizer) main.tabDlg.SetTab(MainForm::kTabOpen);
  });
  auto* tabs = Widget<QTabWidget>("tabDlg");
  tabs->setCurrentIndex(MainForm::kTabToPastel);
  EXPECT_EQ(main.tabDlg.Tab(), MainForm::kTabToPastel);
  tabs->setCurrentIndex(MainForm::kTabToMaximizer);
  EXPECT_EQ(main.tabDlg.Tab(), MainForm::kTabOpen);
  EXPECT_EQ(tabs->currentIndex(), MainForm::kTabOpen);

  OptionsForm& options = model.frmOptions;
  options.Show(true);
  window.Refresh();
  QWidget* dialog = window.OptionsDialog();
  // Ticks and options clicked reach the model as the background dialog's test shows; typed text
  // arrives in Windows-1252.
  auto* time = dialog->findChild<QLineEdit*>("txtTime");
  QTest::keyClicks(time, "14:00 ");
  QKeyEvent eAcute(QEvent::KeyPress, Qt::Key_Eacute, Qt::NoModifier, QString::fromUtf8("\u00E9"));
  QApplication::sendEvent(time, &eAcute);
  EXPECT_EQ(options.txtTime.Text(), "14:00 \xE9");

  // The dialog's close box asks its form; by default the form unloads.
  dialog->close();
  EXPECT_FALSE(options.IsLoaded());
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(MainWindowTest, CombosListsTheLogoAndF1ReachTheModel) {
  SetupForm& setup = model.frmSetup;
  for (const char* text : {"Do not change the Settings", "Print Document", "Email Document"})
    setup.cboDocument.AddItem(text);
  setup.cboDocument.SetListIndex(0);
  setup.Show(true);
  window.Refresh();
  auto* combo = window.SetupDialog()->findChild<QComboBox*>("cboDocument");
  ASSERT_EQ(combo->count(), 3);
  emit combo->activated(2);  // as a pick from the drop-down
  EXPECT_EQ(setup.cboDocument.ListIndex(), 2);
  setup.Hide();

  OptionsForm& options = model.frmOptions;
  for (const char* text : {"a.ktf", "b.ktf", "c.ktf"}) options.lstTemplates.AddItem(text);
  options.Show(true);
  window.Refresh();
  auto* list = window.OptionsDialog()->findChild<QListWidget*>("lstTemplates");
  list->item(0)->setSelected(true);
  list->item(2)->setSelected(true);
  EXPECT_EQ(options.lstTemplates.SelCount(), 2);
  EXPECT_TRUE(options.lstTemplates.Selected(2));
  options.Hide();
  window.Refresh();

  MainForm& main = model.frmMain;
  int hidden = 0, helped = 0;
  main.Image1.SetVisible(true);
  main.Image1.SetOnDblClick([&] {
    ++hidden;
    main.Hide();  // background mode: the window goes to the tray
  });
  main.cmdHelp.SetOnClick([&] { ++helped; });
  window.Refresh();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_EQ(helped, 1);
  QTest::mouseDClick(Widget<QLabel>("Image1"), Qt::LeftButton);
  EXPECT_EQ(hidden, 1);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, TheCloseBoxGoesThroughTheModelAndRunEndsWhenTheFormUnloads) {
  int asked = 0;
  model.frmMain.SetOnClose([&] { ++asked; });  // the application refuses, as during a run
  window.close();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(window.isVisible());

  model.frmMain.SetOnClose(nullptr);
  VirtualClock clock(45366.5);
  QtUi ui(clock);
  ui.Attach(&window);
  QTimer::singleShot(20, &window, [&] { window.close(); });
  ui.Run(actions);  // returns once the form has unloaded
  EXPECT_FALSE(model.frmMain.IsLoaded());
  EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, AFocusRequestFocusesTheWidgetAndTheSessionsEndClosesTheWindow) {
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  model.frmMain.tabDlg.SetTab(MainForm::kTabToPastel);
  model.frmMain.txtCategory(0).SetFocus();
  window.Refresh();
  EXPECT_EQ(QApplication::focusWidget(), Widget<QLineEdit>("txtCategory_0"));

  // SIGTERM and SIGHUP arrive as a byte on a pipe; the event loop takes it.
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
  int refused = 0;
  model.frmMain.SetOnSystemClose([&] {
    if (++refused == 2) model.frmMain.Unload();
  });
  VirtualClock clock(45366.5);
  QtUi ui(clock);
  ui.Attach(&window);
  ui.WatchSystemClose(ends[0]);
  for (int ms : {20, 60}) QTimer::singleShot(ms, &window, [&] { (void)!write(ends[1], "x", 1); });
  ui.Run(actions);  // returns once the second request has unloaded the form
  EXPECT_EQ(refused, 2);
  EXPECT_FALSE(model.frmMain.IsLoaded());
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace tolmen
