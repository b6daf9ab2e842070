#include "gui/MainWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

#include "gui/QtText.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

namespace {

template <typename W>
W* Named(const Control& control, QWidget* parent = nullptr) {
  auto* widget = new W(parent);
  widget->setObjectName(FormBinding::WidgetName(control));
  return widget;
}

// The licence the program is distributed under, as Help > About names it.
constexpr char kLicence[] = "Proprietary: all rights reserved";

// The desktop's usual keys for the menu items that have none of their own.
QKeySequence StandardKeyFor(const MenuItem& item) {
  if (item.Name() == "mnuFile") {
    switch (item.Index()) {
      case 0:
        return QKeySequence::Open;
      case 2:
        return QKeySequence::Save;
      case 99:
        return QKeySequence::Quit;
      default:
        return {};
    }
  }
  if (item.Name() == "mnuHelpContents") return QKeySequence::HelpContents;
  return {};
}

// The menu `item` and everything below it, as QMenus and QActions named after their controls;
// a separator is Qt's own.
void AddMenuItems(QMenu* menu, const MenuItem& item) {
  for (const MenuItem* child : item.Items()) {
    if (child->IsMenu()) {
      QMenu* sub = menu->addMenu(ToQt(child->Caption()));
      sub->setObjectName(FormBinding::WidgetName(*child));
      AddMenuItems(sub, *child);
      continue;
    }
    QAction* action =
        child->IsSeparator() ? menu->addSeparator() : menu->addAction(ToQt(child->Caption()));
    action->setObjectName(FormBinding::WidgetName(*child));
    action->setShortcut(StandardKeyFor(*child));
    // F1 anywhere is the Help button's (see the constructor); the menu only shows the key.
    if (child->Name() == "mnuHelpContents") action->setShortcutContext(Qt::WidgetShortcut);
  }
}

}  // namespace

FormDialog::FormDialog(Form& form, FormBinding::Runner run, QWidget* parent)
    : QDialog(parent), form_(form), run_(std::move(run)) {
  setObjectName(ToQt(form.Name()));
}

void FormDialog::reject() {
  if (cancel_)
    run_([this] { cancel_->Click(); });
  else
    run_([this] { form_.RequestClose(); });
}

void FormDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  run_([this] { form_.RequestClose(); });
}

MainWindow::MainWindow(ScreenModel& model, WindowModel& window, QWidget* parent)
    : QMainWindow(parent), model_(model), window_(window) {
  setObjectName(ToQt(model.frmMain.Name()));
  setWindowIcon(QIcon(":/icons/tolmen.svg"));
  BuildMenus();
  BuildCentral();
  BuildOptionsDialog();
  BuildSetupDialog();
  // The size the pages are laid out for; they grow with the window.
  resize(1024, 720);
  bindings_.push_back(std::make_unique<FormBinding>(model.frmMain, *this, Runner()));
  bindings_.push_back(std::make_unique<FormBinding>(model.frmOptions, *optionsDialog_, Runner()));
  bindings_.push_back(std::make_unique<FormBinding>(model.frmSetup, *setupDialog_, Runner()));

  auto* help = new QShortcut(QKeySequence::HelpContents, this);
  help->setContext(Qt::ApplicationShortcut);
  connect(help, &QShortcut::activated, this,
          [this] { RunUserAction([this] { model_.frmMain.cmdHelp.Click(); }); });
  for (auto& binding : bindings_) binding->Refresh(true);
}

MainWindow::~MainWindow() = default;

FormBinding::Runner MainWindow::Runner() {
  return [this](const std::function<void()>& change) { RunUserAction(change); };
}

void MainWindow::BuildMenus() {
  for (MenuItem* top : model_.frmMain.Menus()) {
    QMenu* menu = menuBar()->addMenu(ToQt(top->Caption()));
    menu->setObjectName(FormBinding::WidgetName(*top));
    AddMenuItems(menu, *top);
  }
  if (auto* about = findChild<QAction*>(FormBinding::WidgetName(model_.frmMain.mnuHelpAbout)))
    connect(about, &QAction::triggered, this, &MainWindow::ShowAbout);
}

void MainWindow::SetAbout(const QString& title, const QString& version) {
  aboutTitle_ = title;
  aboutVersion_ = version;
}

void MainWindow::ShowAbout() {
  const QString title = aboutTitle_.isEmpty() ? ToQt(model_.frmMain.Caption()) : aboutTitle_;
  QMessageBox box(QMessageBox::NoIcon, "About " + title,
                  QString("<h3>%1</h3><p>Version %2</p><p>Licence: %3</p>")
                      .arg(title.toHtmlEscaped(), aboutVersion_.toHtmlEscaped(), kLicence),
                  QMessageBox::Ok, this);
  box.setObjectName("aboutBox");
  box.setIconPixmap(windowIcon().pixmap(64, 64));
  box.exec();
}

void MainWindow::BuildCentral() {
  MainForm& form = model_.frmMain;
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);

  auto* top = new QHBoxLayout;
  auto* logo = Named<QLabel>(form.Image1);
  logo->setPixmap(style()->standardIcon(QStyle::SP_ComputerIcon).pixmap(32, 32));
  top->addWidget(logo);
  top->addStretch();
  top->addWidget(Named<QLabel>(form.lblToday));
  auto* today = Named<QLineEdit>(form.txtToday);
  today->setMaximumWidth(140);
  top->addWidget(today);
  for (int index : form.updToday.Indexes())
    top->addWidget(Named<QPushButton>(form.updToday(index)));
  layout->addLayout(top);

  tabs_ = Named<QTabWidget>(form.tabDlg);
  for (int index = 0; index < form.tabDlg.TabCount(); ++index) {
    auto* page = new QWidget;
    page->setObjectName(QString("tabDlgPage%1").arg(index));
    BuildPage(index, page);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(page);
    tabs_->addTab(scroll, ToQt(form.tabDlg.TabCaption(index)));
  }
  layout->addWidget(tabs_, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(Named<QPushButton>(form.cmdHelp));
  buttons->addStretch();
  for (Button* button : {&form.cmdBack, &form.cmdNext, &form.cmdSave, &form.cmdAbort})
    buttons->addWidget(Named<QPushButton>(*button));
  layout->addLayout(buttons);
  layout->addWidget(Named<QLabel>(form.lblStatus));
  setCentralWidget(central);
}

void MainWindow::BuildPage(int index, QWidget* page) {
  static constexpr void (*kLayouts[])(MainWindow&, QWidget*) = {
      BuildOpenPage,          BuildToPastelPage, BuildToMaximizerPage, BuildRecurringBillingPage,
      BuildCasualBillingPage, BuildTransferPage};
  static_assert(MainForm::kTabOpen == 0 && MainForm::kTabToPastel == 1 &&
                MainForm::kTabToMaximizer == 2 && MainForm::kTabRecurringBilling == 3 &&
                MainForm::kTabCasualBilling == 4 && MainForm::kTabTransfer == 5);
  kLayouts[index](*this, page);
  if (index == MainForm::kTabTransfer) animation_ = page->findChild<QLabel*>("Animation1");
}

void MainWindow::BuildOptionsDialog() {
  optionsDialog_ = new FormDialog(model_.frmOptions, Runner(), this);
  optionsDialog_->SetCancelButton(&model_.frmOptions.cmdCancel);
  BuildOptionsLayout(model_.frmOptions, optionsDialog_);
}

void MainWindow::BuildSetupDialog() {
  setupDialog_ = new FormDialog(model_.frmSetup, Runner(), this);
  setupDialog_->SetCancelButton(&model_.frmSetup.cmdCancel);
  BuildSetupLayout(model_.frmSetup, setupDialog_);
}

QWidget* MainWindow::Page(int index) const {
  return tabs_->widget(index);
}

QObject* MainWindow::WidgetOf(const Control& control) const {
  for (const auto& binding : bindings_)
    if (QObject* object = binding->WidgetOf(control)) return object;
  return nullptr;
}

QStringList MainWindow::Unbound() const {
  QStringList names;
  for (const auto& binding : bindings_)
    for (const QString& name : binding->Unbound())
      names << ToQt(binding->BoundForm().Name()) + "." + name;
  return names;
}

void MainWindow::ShowAsForm(QWidget* widget, const Form& form) {
  widget->setWindowTitle(ToQt(form.Caption()));
  if (form.IsShown() && !widget->isVisible()) {
    widget->setWindowModality(form.IsModal() ? Qt::ApplicationModal : Qt::NonModal);
    widget->show();
  } else if (!form.IsShown() && widget->isVisible()) {
    widget->hide();
  }
}

void MainWindow::SetMinimiseWhenHidden(bool on) {
  minimiseWhenHidden_ = on;
  Refresh();
}

void MainWindow::Refresh() {
  if (refreshing_) return;
  refreshing_ = true;
  for (auto& binding : bindings_) binding->Refresh();
  const MainForm& main = model_.frmMain;
  if (minimiseWhenHidden_ && main.IsLoaded() && !main.IsShown()) {
    if (!minimisedForHidden_) showMinimized();
    minimisedForHidden_ = true;
  } else {
    if (minimisedForHidden_ && main.IsShown()) showNormal();
    minimisedForHidden_ = false;
    ShowAsForm(this, main);
  }
  ShowAsForm(optionsDialog_, model_.frmOptions);
  ShowAsForm(setupDialog_, model_.frmSetup);
  refreshing_ = false;
  emit refreshed();
}

void MainWindow::RunUserAction(const std::function<void()>& action) {
  // An error no handler caught is shown as the classic runtime showed it; the window goes on.
  try {
    action();
  } catch (const RuntimeError& error) {
    if (errorHandler_) {
      errorHandler_("error " + std::to_string(error.Number()) + " " + error.Description());
      Refresh();
      return;
    }
    QMessageBox::critical(
        this, ToQt(model_.frmMain.Caption()),
        QString("Run-time error '%1':\n\n%2").arg(error.Number()).arg(ToQt(error.Description())));
  } catch (const std::exception& error) {
    if (errorHandler_) {
      errorHandler_(error.what());
      Refresh();
      return;
    }
    QMessageBox::critical(this, ToQt(model_.frmMain.Caption()), ToQt(error.what()));
  }
  Refresh();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  RunUserAction([this] { window_.RequestClose(); });
}

}  // namespace tolmen
