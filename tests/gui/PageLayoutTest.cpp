// Pages and dialogs fit with nothing cut or covered and Tab in reading order; dialog keys; Dir1.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <functional>

#include "common/TempDir.h"
#include "gui/MainWindow.h"
#include "gui/WhenShown.h"
#include "gui/pages/FolderTree.h"
#include "screen/ScreenActions.h"

namespace tolmen {
namespace {

constexpr int kOptionsDialog = -1;
constexpr int kSetupDialog = -2;

struct Screen {
  const char* name;
  int page;  // a tab of frmMain, or one of the two dialogs
};

// A plain panel or a group box holds widgets laid out by hand; anything else is one widget.
bool IsContainer(const QWidget* widget) {
  return widget->metaObject() == &QWidget::staticMetaObject ||
         qobject_cast<const QGroupBox*>(widget);
}

QRect Area(QWidget* widget, QWidget* root) {
  return QRect(widget->mapTo(root, QPoint(0, 0)), widget->size());
}

// Every visible widget under `root`, containers and what they hold.
void Collect(QWidget* parent, QWidget* root, QList<QWidget*>& out) {
  for (QWidget* child : parent->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!child->isVisibleTo(root) || child->isWindow()) continue;
    out << child;
    if (IsContainer(child)) Collect(child, root, out);
  }
}

// Tab-reachable widgets as a person reads them: rows from the top (a row is what lies beside its
// topmost widget's middle), left to right, a container's widgets where the container stands.
void ReadingOrder(QWidget* parent, QWidget* root, QList<QWidget*>& out) {
  QList<QWidget*> children;
  for (QWidget* child : parent->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
    if (child->isVisibleTo(root) && !child->isWindow()) children << child;
  std::sort(children.begin(), children.end(),
            [root](QWidget* a, QWidget* b) { return Area(a, root).top() < Area(b, root).top(); });
  while (!children.isEmpty()) {
    QRect first = Area(children.front(), root);
    QList<QWidget*> row;
    for (QWidget* child : children)
      if (Area(child, root).center().y() <= first.bottom()) row << child;
    for (QWidget* child : row) children.removeOne(child);
    std::sort(row.begin(), row.end(), [root](QWidget* a, QWidget* b) {
      return Area(a, root).left() < Area(b, root).left();
    });
    for (QWidget* child : row) {
      if (IsContainer(child))
        ReadingOrder(child, root, out);
      else if (child->focusPolicy() & Qt::TabFocus)
        out << child;
    }
  }
}

std::vector<std::string> Names(const QList<QWidget*>& widgets) {
  std::vector<std::string> names;
  for (QWidget* widget : widgets) names.push_back(widget->objectName().toStdString());
  return names;
}

class PageLayoutTest : public ::testing::Test {
 protected:
  PageLayoutTest() : actions(model), window(model, actions) {
    model.frmMain.Show();
    window.Refresh();
  }

  ScreenModel model;
  ScreenActions actions;
  MainWindow window;
};

class EveryScreen : public PageLayoutTest, public ::testing::WithParamInterface<Screen> {};

TEST_P(EveryScreen, FitsWithNothingCutOrCoveredAndTabsInVisualOrder) {
  const Screen screen = GetParam();
  MainForm& main = model.frmMain;
  // Everything a run can show is shown, the longest texts included.
  for (Control* control : main.AllControls())
    if (control->PageOwner()) control->SetVisible(true);
  for (int line : main.lblProgress.Indexes())
    main.lblProgress(line).SetCaption(
        std::string(140, 'W').replace(20, 1, " ").replace(90, 1, " "));
  main.lblUDFkey.SetCaption(std::string(60, 'x') + " " + std::string(60, 'y'));
  main.lblAging.SetCaption(main.lblUDFkey.Caption());

  QWidget* root = nullptr;
  QScrollArea* scroll = nullptr;
  if (screen.page >= 0) {
    window.resize(1024, 720);
    main.tabDlg.SetTab(screen.page);
    window.Refresh();
    scroll = qobject_cast<QScrollArea*>(window.Page(screen.page));
    ASSERT_NE(scroll, nullptr);
    root = scroll->widget();
  } else {
    Form& form = screen.page == kOptionsDialog ? static_cast<Form&>(model.frmOptions)
                                               : static_cast<Form&>(model.frmSetup);
    form.Show(true);
    window.Refresh();
    root = screen.page == kOptionsDialog ? window.OptionsDialog() : window.SetupDialog();
  }
  ASSERT_TRUE(QTest::qWaitForWindowExposed(root->window()));
  QApplication::processEvents();
  QWidget* top = root->window();
  EXPECT_LE(top->width(), 1024);
  EXPECT_LE(top->height(), 720);
  if (scroll) {
    EXPECT_EQ(top->size(), QSize(1024, 720));
    EXPECT_FALSE(scroll->verticalScrollBar()->isVisible());
    EXPECT_FALSE(scroll->horizontalScrollBar()->isVisible());
  }

  QList<QWidget*> widgets;
  Collect(root, root, widgets);
  ASSERT_GT(widgets.size(), 3);
  for (QWidget* widget : widgets) {
    const std::string name = widget->objectName().toStdString();
    EXPECT_TRUE(top->rect().contains(Area(widget, top))) << name;
    if (scroll) {
      EXPECT_TRUE(scroll->viewport()->rect().contains(Area(widget, scroll->viewport()))) << name;
    }
    auto* label = qobject_cast<QLabel*>(widget);
    if ((label && !label->wordWrap()) || qobject_cast<QAbstractButton*>(widget)) {
      EXPECT_GE(widget->width(), widget->sizeHint().width()) << name << " is cut";
    }
    if (qobject_cast<QPushButton*>(widget)) {
      EXPECT_LE(widget->width(), widget->sizeHint().width()) << name << " is stretched";
    }
  }
  for (QWidget* a : widgets) {
    for (QWidget* b : widgets) {
      if (a < b && !a->isAncestorOf(b) && !b->isAncestorOf(a)) {
        EXPECT_FALSE(Area(a, root).intersects(Area(b, root)))
            << a->objectName().toStdString() << " overlaps " << b->objectName().toStdString();
      }
    }
  }

  QList<QWidget*> visual;
  ReadingOrder(root, root, visual);
  QList<QWidget*> tabbed;
  for (QWidget* next = top->nextInFocusChain(); next != top; next = next->nextInFocusChain())
    if (visual.contains(next)) tabbed << next;
  EXPECT_EQ(Names(tabbed), Names(visual));
}

INSTANTIATE_TEST_SUITE_P(
    PagesAndDialogs, EveryScreen,
    ::testing::Values(Screen{"Open", MainForm::kTabOpen},
                      Screen{"ToPastel", MainForm::kTabToPastel},
                      Screen{"ToMaximizer", MainForm::kTabToMaximizer},
                      Screen{"RecurringBilling", MainForm::kTabRecurringBilling},
                      Screen{"CasualBilling", MainForm::kTabCasualBilling},
                      Screen{"Transfer", MainForm::kTabTransfer},
                      Screen{"frmOptions", kOptionsDialog}, Screen{"frmSetup", kSetupDialog}),
    [](const ::testing::TestParamInfo<Screen>& screen) { return std::string(screen.param.name); });

TEST_F(PageLayoutTest, EnterClicksTheDefaultButtonAndEscapeTheCancelButton) {
  struct Case {
    Form& form;
    Button& ok;
    Button& cancel;
    QDialog* dialog;
    const char* field;
  } cases[] = {
      {model.frmOptions, model.frmOptions.cmdOK, model.frmOptions.cmdCancel, window.OptionsDialog(),
       "txtTime"},
      {model.frmSetup, model.frmSetup.cmdOk, model.frmSetup.cmdCancel, window.SetupDialog(),
       "cboDocument"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.form.Name());
    QStringList clicked;
    c.ok.SetOnClick([&] { clicked << "ok"; });
    c.cancel.SetOnClick([&] {
      clicked << "cancel";
      c.form.Hide();
    });
    c.form.Show(true);
    window.Refresh();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(c.dialog));
    QWidget* field = c.dialog->findChild<QWidget*>(c.field);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(clicked, (QStringList{"ok", "cancel"}));
    EXPECT_FALSE(c.dialog->isVisible());
    EXPECT_TRUE(c.form.IsLoaded());  // Escape went to the button, not to the form's close
  }
}

TEST_F(PageLayoutTest, ThePastelFolderIsPickedFromTheTreeTypedOrChosenInTheFolderDialog) {
  test::TempDir temp;
  const std::filesystem::path base = temp.Path();
  for (const char* folder : {"accounts/2024", "other", "\xE6\x97\xA5\xE6\x9C\xAC"})
    std::filesystem::create_directories(base / folder);
  const std::string root = base.string() + "/";
  MainForm& main = model.frmMain;
  std::vector<std::string> changes;
  main.Dir1.SetOnChange([&] { changes.push_back(main.Dir1.Text()); });
  main.Drive1.SetText(root);
  main.Dir1.SetText(root);
  window.Refresh();
  changes.clear();
  auto* tree = window.findChild<FolderTree*>("treeDir1");
  ASSERT_NE(tree, nullptr);
  auto* files = qobject_cast<QFileSystemModel*>(tree->model());
  EXPECT_EQ(files->filePath(tree->rootIndex()), QString::fromStdString(base.string()));

  // A folder picked in the tree is Dir1, with its change handler run once.
  tree->setCurrentIndex(files->index(QString::fromStdString((base / "accounts").string())));
  EXPECT_EQ(changes, std::vector<std::string>{root + "accounts/"});
  EXPECT_EQ(main.fraPastel.Caption(), "Pastel Accounts");

  // A folder typed, or set by the model, becomes the tree's current one without another change.
  QTest::keyClicks(window.findChild<QLineEdit*>("Dir1"), "2024/");
  EXPECT_EQ(main.Dir1.Text(), root + "accounts/2024/");
  EXPECT_EQ(files->filePath(tree->currentIndex()),
            QString::fromStdString((base / "accounts/2024").string()));
  const size_t typed = changes.size();

  // The folder dialog's choice is Dir1 too.
  WhenShown<QFileDialog>([&](QFileDialog* dialog) {
    dialog->setDirectory(QString::fromStdString((base / "other").string()));
    static_cast<QDialog*>(dialog)->accept();  // QFileDialog's own is protected
  });
  QTest::mouseClick(window.findChild<QPushButton*>("cmdBrowseDir1"), Qt::LeftButton);
  EXPECT_EQ(main.Dir1.Text(), root + "other/");
  EXPECT_EQ(changes.size(), typed + 1);

  // A folder Windows-1252 cannot name is refused with the reason, and Dir1 stays.
  QString refusal;
  WhenShown<QMessageBox>([&](QMessageBox* box) {
    refusal = box->text();
    box->accept();
  });
  tree->setCurrentIndex(
      files->index(QString::fromUtf8((base / "\xE6\x97\xA5\xE6\x9C\xAC").c_str())));
  EXPECT_EQ(main.Dir1.Text(), root + "other/");
  EXPECT_TRUE(refusal.contains("outside Windows-1252")) << refusal.toStdString();
}

}  // namespace
}  // namespace tolmen
