// The Qt front-end's dialogs, waits, timers and the small translations behind them.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>

#include "common/TempDir.h"
#include "gui/FileFilter.h"
#include "gui/QtUi.h"
#include "gui/WhenShown.h"
#include "platform/ui/Clock.h"
#include "platform/ui/Timer.h"

namespace tolmen {
namespace {

class QtUiTest : public ::testing::Test {
 protected:
  VirtualClock clock{45366.5};
  QtUi ui{clock};
};

struct MsgBoxCase {
  int style;
  QMessageBox::ButtonRole press;  // QMessageBox::InvalidRole: the close box
  int answer;
  QMessageBox::StandardButton defaultButton;
  QMessageBox::Icon icon;
};

TEST_F(QtUiTest, MessageBoxesAnswerWithTheirButtonsDefaultAndIcon) {
  const MsgBoxCase cases[] = {
      {vbYesNoCancel + vbQuestion + vbDefaultButton2, QMessageBox::NoRole, vbNo, QMessageBox::No,
       QMessageBox::Question},
      {vbYesNoCancel + vbExclamation, QMessageBox::InvalidRole, vbCancel, QMessageBox::Yes,
       QMessageBox::Warning},
      {vbYesNo + vbInformation + vbDefaultButton2, QMessageBox::InvalidRole, vbNo, QMessageBox::No,
       QMessageBox::Information},
      {vbOKCancel + vbCritical + vbDefaultButton2, QMessageBox::AcceptRole, vbOK,
       QMessageBox::Cancel, QMessageBox::Critical},
      {vbAbortRetryIgnore + vbExclamation + vbDefaultButton2, QMessageBox::InvalidRole, vbIgnore,
       QMessageBox::Retry, QMessageBox::Warning},
      {vbOKOnly, QMessageBox::InvalidRole, vbOK, QMessageBox::Ok, QMessageBox::NoIcon},
  };
  for (const MsgBoxCase& c : cases) {
    QMessageBox::StandardButton shownDefault = QMessageBox::NoButton;
    QMessageBox::Icon shownIcon = QMessageBox::NoIcon;
    QString shownText, shownTitle;
    WhenShown<QMessageBox>([&](QMessageBox* box) {
      shownDefault = box->standardButton(box->defaultButton());
      shownIcon = box->icon();
      shownText = box->text();
      shownTitle = box->windowTitle();
      if (c.press == QMessageBox::InvalidRole) {
        box->close();
        return;
      }
      for (QAbstractButton* button : box->buttons())
        if (box->buttonRole(button) == c.press) button->click();
    });
    int answer = ui.MsgBox("Transfer Paused\n\xA3 100", c.style, "Tolmen Transfer Paused");
    SCOPED_TRACE(c.style);
    EXPECT_EQ(answer, c.answer);
    EXPECT_EQ(shownDefault, c.defaultButton);
    EXPECT_EQ(shownIcon, c.icon);
    EXPECT_EQ(shownText, QString::fromUtf8("Transfer Paused\n\u00A3 100"));
    EXPECT_EQ(shownTitle, "Tolmen Transfer Paused");
  }
}

TEST_F(QtUiTest, InputBoxGivesTheTextOrNothingOnCancel) {
  WhenShown<QInputDialog>([](QInputDialog* dialog) {
    dialog->setTextValue(QString::fromUtf8("2 \u00BD"));
    dialog->accept();
  });
  EXPECT_EQ(
      ui.InputBox("Limit Log File Size to how many Kilobytes?", "Limit Log File Size?", "1000"),
      "2 \xBD");
  QString shownDefault;
  WhenShown<QInputDialog>([&](QInputDialog* dialog) {
    shownDefault = dialog->textValue();
    dialog->reject();
  });
  EXPECT_EQ(ui.InputBox("Set your Debugging Level:", "Debugging", "3"), "");
  EXPECT_EQ(shownDefault, "3");
}

TEST_F(QtUiTest, FileDialogOffersTheTranslatedFiltersAndReturnsThePath) {
  test::TempDir temp("tolmen-gui-");
  const std::filesystem::path folder = temp.Path();
  std::ofstream(folder / "monthly.ktf") << "Tolmen Template\r\n";
  QStringList filters;
  WhenShown<QFileDialog>([&](QFileDialog* dialog) {
    filters = dialog->nameFilters();
    // Typed into the name box, as a user does (selectFile leaves a focused box alone).
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    if (name) name->setText("monthly.ktf");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  FileDialogRequest request;
  request.title = "Open Template";
  request.filter = "Templates (*.ktf)|*.ktf|All Files (*.*)|*.*";
  request.initialFolder = folder.string() + "/";
  std::string path;
  EXPECT_TRUE(ui.FileDialog(request, path));
  EXPECT_EQ(path, (folder / "monthly.ktf").string());
  EXPECT_EQ(filters, (QStringList{"Templates (*.ktf)", "All Files (*)"}));
}

TEST(QtNameFiltersTest, FilterTranslation) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"Template Files (*.ktf)|*.ktf|All Files (*.*)|*.*",
       {"Template Files (*.ktf)", "All Files (*)"}},
      {"*.KTF", {"*.KTF"}},
      {"Text and CSV|*.txt;*.csv", {"Text and CSV (*.txt *.csv)"}},
      {"", {"*"}},
  };
  for (const auto& [filter, expected] : cases) EXPECT_EQ(QtNameFilters(filter), expected) << filter;
}

TEST_F(QtUiTest, WaitsMoveAVirtualClockAtOnceAndTimersTickWhileEnabled) {
  QElapsedTimer elapsed;
  elapsed.start();
  ui.Wait(3);
  EXPECT_LT(elapsed.elapsed(), 1000);
  EXPECT_NEAR((clock.Now() - 45366.5) * 86400, 3.0, 1e-6);

  Timer timer("Timer2");
  int fired = 0;
  timer.SetHandler([&] {
    if (++fired == 3) timer.SetEnabled(false);  // a handler stops its own timer
  });
  timer.SetInterval(5);
  ui.RegisterTimer(timer);
  QTest::qWait(300);
  EXPECT_EQ(fired, 3);
  timer.SetEnabled(true);
  ui.UnregisterTimer(timer);
  ui.Yield();
  QTest::qWait(50);
  EXPECT_EQ(fired, 3);
}

TEST_F(QtUiTest, BusyPointerShowsUntilReleased) {
  ui.SetBusyPointer(true);
  ui.SetBusyPointer(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  ui.SetBusyPointer(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_FALSE(ui.AnimationOpen("/nonexistent/KELBOR.AVI"));
}

}  // namespace
}  // namespace tolmen
