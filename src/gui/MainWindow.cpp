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
  run_([this] { form_.RequestClose(); });
}

void FormDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

MainWindow::MainWindow(ScreenModel& model, WindowModel& window, QWidget* parent)
    : QMainWindow(parent), model_(model), window_(window) {
  setObjectName(ToQt(model.frmMain.Name()));
  setWindowIcon(QIcon(":/icons/tolmen.svg"));
  BuildMenus();
  BuildCentral();
  BuildOptionsDialog();
  BuildSetupDialog();
  // Wide enough for all six page tabs, with room for the pages to come.
  resize(760, 520);
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
    auto* pageLayout = new QVBoxLayout(page);
    BuildPage(index, page);
    pageLayout->addStretch();
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

namespace {

// A widget of the right kind for a page's control.
QWidget* WidgetFor(Control& control) {
  switch (control.Kind()) {
    case ControlKind::Button:
      return Named<QPushButton>(control);
    case ControlKind::CheckBox:
      return Named<QCheckBox>(control);
    case ControlKind::OptionButton:
      return Named<QRadioButton>(control);
    case ControlKind::TextBox:
      return Named<QLineEdit>(control);
    case ControlKind::ListBox:
      return Named<QListWidget>(control);
    case ControlKind::ComboBox: {
      auto* combo = Named<QComboBox>(control);
      combo->setEditable(static_cast<ComboBox&>(control).Editable());
      combo->setMinimumContentsLength(20);
      return combo;
    }
    case ControlKind::ProgressBar:
      return Named<QProgressBar>(control);
    default: {
      auto* label = Named<QLabel>(control);
      label->setWordWrap(true);
      // Frames ("fra...") head a group of controls.
      if (control.Name().rfind("fra", 0) == 0) {
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
      }
      return label;
    }
  }
}

}  // namespace

void MainWindow::BuildPage(int index, QWidget* page) {
  MainForm& form = model_.frmMain;
  auto* layout = static_cast<QVBoxLayout*>(page->layout());
  if (index == MainForm::kTabTransfer) {
    auto* heading = Named<QLabel>(form.lblHeading);
    QFont font = heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    heading->setFont(font);
    layout->addWidget(heading);
    for (int line : form.lblProgress.Indexes()) {
      auto* label = Named<QLabel>(form.lblProgress(line));
      label->setWordWrap(true);
      layout->addWidget(label);
    }
    layout->addWidget(Named<QProgressBar>(form.ProgressBar1));
    animation_ = Named<QLabel>(form.Animation1);
    animation_->setAlignment(Qt::AlignCenter);
    layout->addWidget(animation_);
  }
  // The page's other controls in the order they were registered, two to a row: a label ("lbl...")
  // beside the control it names, everything else on a row of its own.
  auto* grid = new QGridLayout;
  int row = 0;
  QWidget* pendingLabel = nullptr;
  for (Control* control : form.AllControls()) {
    if (control->Page() != index || control->PageOwner() != &form.tabDlg) continue;
    if (control == &form.lblHeading || control == &form.ProgressBar1 ||
        control == &form.Animation1 || control->Name() == "lblProgress")
      continue;
    QWidget* widget = WidgetFor(*control);
    const bool isLabel =
        control->Kind() == ControlKind::Label && control->Name().rfind("lbl", 0) == 0;
    if (pendingLabel && !isLabel && control->Kind() != ControlKind::Button) {
      grid->addWidget(pendingLabel, row, 0);
      grid->addWidget(widget, row++, 1);
      pendingLabel = nullptr;
      continue;
    }
    if (pendingLabel) grid->addWidget(pendingLabel, row++, 0, 1, 2);
    pendingLabel = nullptr;
    if (isLabel) {
      pendingLabel = widget;
      continue;
    }
    grid->addWidget(widget, row++, 0, 1, 2);
  }
  if (pendingLabel) grid->addWidget(pendingLabel, row++, 0, 1, 2);
  layout->addLayout(grid);
}

void MainWindow::BuildOptionsDialog() {
  OptionsForm& form = model_.frmOptions;
  optionsDialog_ = new FormDialog(form, Runner(), this);
  auto* layout = new QVBoxLayout(optionsDialog_);
  layout->addWidget(Named<QCheckBox>(form.Check1));

  auto* schedule = new QGridLayout;
  schedule->addWidget(Named<QRadioButton>(form.optMethod(0)), 0, 0);
  schedule->addWidget(Named<QLabel>(form.lblTime), 0, 1);
  schedule->addWidget(Named<QLineEdit>(form.txtTime), 0, 2);
  schedule->addWidget(Named<QRadioButton>(form.optMethod(1)), 1, 0);
  auto* interval = new QHBoxLayout;
  interval->addWidget(Named<QLabel>(form.lblHours));
  interval->addWidget(Named<QLineEdit>(form.txtHours));
  interval->addWidget(Named<QLabel>(form.lblMins));
  interval->addWidget(Named<QLineEdit>(form.txtMins));
  schedule->addLayout(interval, 1, 1, 1, 2);
  layout->addLayout(schedule);

  layout->addWidget(Named<QLabel>(form.lblTemplates));
  layout->addWidget(Named<QListWidget>(form.lstTemplates));
  auto* listButtons = new QHBoxLayout;
  listButtons->addWidget(Named<QPushButton>(form.cmdBrowse));
  listButtons->addWidget(Named<QPushButton>(form.cmdRemove));
  listButtons->addStretch();
  layout->addLayout(listButtons);
  layout->addWidget(Named<QCheckBox>(form.Check3));

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(Named<QPushButton>(form.cmdOK));
  buttons->addWidget(Named<QPushButton>(form.cmdCancel));
  layout->addLayout(buttons);
}

void MainWindow::BuildSetupDialog() {
  SetupForm& form = model_.frmSetup;
  setupDialog_ = new FormDialog(form, Runner(), this);
  auto* layout = new QVBoxLayout(setupDialog_);
  auto* fields = new QFormLayout;
  fields->addRow(Named<QLabel>(form.lblDocument), Named<QComboBox>(form.cboDocument));
  fields->addRow(Named<QLabel>(form.lblStatement), Named<QComboBox>(form.cboStatement));
  fields->addRow(Named<QLabel>(form.lblMessage), Named<QComboBox>(form.cboMessage));
  layout->addLayout(fields);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(Named<QPushButton>(form.cmdOk));
  buttons->addWidget(Named<QPushButton>(form.cmdCancel));
  layout->addLayout(buttons);
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
