#include "gui/QtUi.h"

#include <unistd.h>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMovie>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>
#include <QSocketNotifier>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QTextDocument>
#include <QTimer>
#include <QUrl>

#include <cstdlib>
#include <filesystem>

#include "gui/FileFilter.h"
#include "gui/HelpWindow.h"
#include "gui/LogViewer.h"
#include "gui/MainWindow.h"
#include "gui/QtText.h"
#include "platform/ui/HelpPage.h"
#include "platform/ui/Timer.h"
#include "runtime/Cp1252.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen {

namespace {

QMessageBox::StandardButton StandardButtonFor(int answer) {
  switch (answer) {
    case vbOK:
      return QMessageBox::Ok;
    case vbCancel:
      return QMessageBox::Cancel;
    case vbAbort:
      return QMessageBox::Abort;
    case vbRetry:
      return QMessageBox::Retry;
    case vbIgnore:
      return QMessageBox::Ignore;
    case vbYes:
      return QMessageBox::Yes;
    default:
      return QMessageBox::No;
  }
}

QMessageBox::Icon IconFor(int style) {
  switch (style & 0x70) {
    case vbCritical:
      return QMessageBox::Critical;
    case vbQuestion:
      return QMessageBox::Question;
    case vbExclamation:
      return QMessageBox::Warning;
    case vbInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

}  // namespace

QtUi::QtUi(Clock& clock, QObject* parent) : QObject(parent), clock_(clock) {}

QtUi::~QtUi() {
  SetBusyPointer(false);
  AnimationClose();
}

void QtUi::Attach(MainWindow* window) {
  if (window_) disconnect(window_, nullptr, this, nullptr);
  window_ = window;
  if (window_) connect(window_, &MainWindow::refreshed, this, [this] { SyncTimers(); });
}

void QtUi::WatchSystemClose(int fd) {
  systemClose_ = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
  connect(systemClose_.get(), &QSocketNotifier::activated, this, [this, fd] {
    char bytes[16];
    while (read(fd, bytes, sizeof bytes) > 0) {
    }
    if (window_) window_->RunUserAction([this] { window_->Window().RequestSystemClose(); });
  });
}

QWidget* QtUi::DialogParent() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (window_ && window_->isVisible()) return window_;
  return nullptr;
}

void QtUi::Refresh() {
  if (window_)
    window_->Refresh();
  else
    SyncTimers();
}

int QtUi::CloseBoxAnswer(int style) {
  // Cancel, where a set has it, is always its last button.
  return MsgBoxButtons(style).back();
}

std::map<QAbstractButton*, int> QtUi::SetUpMsgBox(QMessageBox& box, const std::string& prompt,
                                                  int style, const std::string& title) const {
  box.setWindowTitle(ToQt(title.empty() ? defaultTitle_ : title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(prompt));
  box.setIcon(IconFor(style));
  std::map<QAbstractButton*, int> answers;
  int closeAnswer = CloseBoxAnswer(style);
  for (int answer : MsgBoxButtons(style)) {
    QPushButton* button = box.addButton(StandardButtonFor(answer));
    answers[button] = answer;
    if (answer == MsgBoxDefaultAnswer(style)) box.setDefaultButton(button);
    if (answer == closeAnswer) box.setEscapeButton(button);
  }
  return answers;
}

int QtUi::MsgBox(const std::string& prompt, int style, const std::string& title) {
  QMessageBox box(DialogParent());
  std::map<QAbstractButton*, int> answers = SetUpMsgBox(box, prompt, style, title);
  box.exec();
  auto found = answers.find(box.clickedButton());
  int answer = found == answers.end() ? CloseBoxAnswer(style) : found->second;
  Refresh();
  return answer;
}

void QtUi::SetUpInputBox(QInputDialog& dialog, const std::string& prompt, const std::string& title,
                         const std::string& defaultText) const {
  dialog.setWindowTitle(ToQt(title.empty() ? defaultTitle_ : title));
  dialog.setLabelText(ToQt(prompt));
  dialog.setTextValue(ToQt(defaultText));
}

std::string QtUi::InputBox(const std::string& prompt, const std::string& title,
                           const std::string& defaultText) {
  QInputDialog dialog(DialogParent());
  SetUpInputBox(dialog, prompt, title, defaultText);
  bool accepted = dialog.exec() == QDialog::Accepted;
  Refresh();
  return accepted ? FromQt(dialog.textValue()) : "";
}

void QtUi::SetUpFileDialog(QFileDialog& dialog, const FileDialogRequest& request) {
  dialog.setWindowTitle(ToQt(request.title));
  dialog.setDirectory(ToQt(request.initialFolder));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  QStringList filters;
  for (const std::string& filter : QtNameFilters(request.filter)) filters << ToQt(filter);
  dialog.setNameFilters(filters);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!request.defaultExtension.empty()) dialog.setDefaultSuffix(ToQt(request.defaultExtension));
  if (!request.fileName.empty()) dialog.selectFile(ToQt(request.fileName));
}

bool QtUi::FileDialog(const FileDialogRequest& request, std::string& path) {
  QFileDialog dialog(DialogParent());
  SetUpFileDialog(dialog, request);
  bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  Refresh();
  if (!accepted) return false;
  try {
    path = PathFromSystem(dialog.selectedFiles().first().toStdString());
  } catch (const RuntimeError& refused) {  // a path Windows-1252 cannot hold
    MsgBox(refused.Description(), vbExclamation, request.title);
    return false;
  }
  return true;
}

void QtUi::Beep() {
  QApplication::beep();
}

void QtUi::Yield(long) {
  // The widgets show the model as it stands before the window system paints and takes clicks;
  // a click's handler refreshes again when it has run.
  Refresh();
  QCoreApplication::processEvents();
}

void QtUi::Wait(double seconds) {
  if (clock_.IsVirtual() || seconds <= 0) {
    if (seconds > 0) clock_.Sleep(seconds);
    Yield();
    return;
  }
  Refresh();
  QEventLoop loop;
  QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
  loop.exec();
  Refresh();
}

void QtUi::Run(WindowModel& window) {
  Refresh();
  if (!window.IsOpen()) return;
  QEventLoop loop;
  auto check = [&window, &loop] {
    if (!window.IsOpen()) loop.quit();
  };
  // The window's refresh follows every handler; the poll catches an unload from elsewhere.
  QMetaObject::Connection refreshed;
  if (window_) refreshed = connect(window_, &MainWindow::refreshed, &loop, check);
  QTimer poll;
  poll.setInterval(250);
  connect(&poll, &QTimer::timeout, &loop, check);
  poll.start();
  if (window.IsOpen()) loop.exec();
  disconnect(refreshed);
}

void QtUi::RegisterTimer(Timer& timer) {
  if (timers_.count(&timer)) return;
  auto* qtTimer = new QTimer(this);
  connect(qtTimer, &QTimer::timeout, this, [this, &timer] {
    if (window_)
      window_->RunUserAction([&timer] { timer.Fire(); });
    else
      timer.Fire();
    SyncTimers();
  });
  timers_[&timer] = qtTimer;
  SyncTimers();
}

void QtUi::UnregisterTimer(Timer& timer) {
  auto found = timers_.find(&timer);
  if (found == timers_.end()) return;
  found->second->stop();
  found->second->deleteLater();
  timers_.erase(found);
}

void QtUi::SyncTimers() {
  for (auto& [timer, qtTimer] : timers_) {
    if (!timer->Active()) {
      qtTimer->stop();
    } else if (!qtTimer->isActive() || qtTimer->interval() != timer->Interval()) {
      qtTimer->start(timer->Interval());
    }
  }
}

void QtUi::SetClipboardText(const std::string& text) {
  QApplication::clipboard()->setText(ToQt(text));
}

std::string QtUi::ClipboardText() {
  return FromQt(QApplication::clipboard()->text());
}

std::string QtUi::PrinterName() {
  return FromQt(QPrinterInfo::defaultPrinterName());
}

bool QtUi::PrintText(const std::string& text) {
  QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) return false;
  QPrinter printer(info);
  QTextDocument document;
  document.setPlainText(ToQt(text));
  document.print(&printer);
  return printer.printerState() != QPrinter::Error && printer.printerState() != QPrinter::Aborted;
}

bool QtUi::OpenInEditor(const std::string& path) {
  const QString file = QString::fromStdString(SystemPath(path));
  auto desktop = [](const QString& name) {
    if (const char* editor = std::getenv("TOLMEN_EDITOR"); editor && *editor)
      return QProcess::startDetached(QString::fromLocal8Bit(editor), {name});
    return QDesktopServices::openUrl(QUrl::fromLocalFile(name));
  };
  auto viewer = [this](const QString& name) {
    auto* view = new LogViewer(window_);
    if (!view->Load(name)) {
      delete view;
      return false;
    }
    view->show();
    return true;
  };
  return OpenLog(file, desktop, viewer);
}

HelpWindow& QtUi::Help() {
  if (!help_) help_ = std::make_unique<HelpWindow>();
  return *help_;
}

bool QtUi::ShowHelp(const std::string&, const std::string& page) {
  const std::string file = FindHelpPage(Cp1252ToUtf8(page));
  return !file.empty() && Help().ShowPage(QString::fromStdString(file));
}

bool QtUi::HasTray() {
  return QSystemTrayIcon::isSystemTrayAvailable();
}

void QtUi::PerformTray(const char* what) {
  if (!window_) return;
  window_->RunUserAction([this, what] {
    window_->Window().Perform(UiAction{"tray", {what}, "tray"});
  });
}

void QtUi::TrayAdd(const std::string& tip) {
  if (!HasTray()) {
    // Without a notification area the window stays on the task bar, minimised.
    if (window_) window_->SetMinimiseWhenHidden(true);
    if (!noTraySaid_) {
      noTraySaid_ = true;
      auto* note = new QMessageBox(QMessageBox::Information, ToQt(defaultTitle_),
                                   "The desktop has no notification area: the window stays "
                                   "minimised while the program runs in the background.",
                                   QMessageBox::Ok, window_);
      note->setAttribute(Qt::WA_DeleteOnClose);
      note->setModal(false);
      note->show();
    }
    return;
  }
  if (!tray_) {
    QIcon icon = QApplication::windowIcon();
    if (icon.isNull()) icon = QApplication::style()->standardIcon(QStyle::SP_ComputerIcon);
    tray_ = std::make_unique<QSystemTrayIcon>(icon);
    // The icon's double click shows the window; its menu offers both double clicks.
    trayMenu_ = std::make_unique<QMenu>();
    trayMenu_->setObjectName("trayMenu");
    QAction* show = trayMenu_->addAction("&Show Window");
    show->setObjectName("trayShowWindow");
    connect(show, &QAction::triggered, this, [this] { PerformTray("dblclick"); });
    QAction* options = trayMenu_->addAction("Background Mode &Options...");
    options->setObjectName("trayOptions");
    connect(options, &QAction::triggered, this, [this] { PerformTray("rdblclick"); });
    tray_->setContextMenu(trayMenu_.get());
    connect(tray_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
              if (reason == QSystemTrayIcon::DoubleClick) PerformTray("dblclick");
            });
  }
  tray_->setToolTip(ToQt(tip));
  tray_->show();
}

void QtUi::TrayModify(const std::string& tip) {
  if (tray_) tray_->setToolTip(ToQt(tip));
}

void QtUi::TrayRemove() {
  tray_.reset();
  if (window_) window_->SetMinimiseWhenHidden(false);
}

QMenu* QtUi::TrayMenu() const {
  return trayMenu_.get();
}

void QtUi::SetBusyPointer(bool busy) {
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ++busyDepth_;
    return;
  }
  for (; busyDepth_ > 0; --busyDepth_) QApplication::restoreOverrideCursor();
}

bool QtUi::AnimationOpen(const std::string& path) {
  AnimationClose();
  std::filesystem::path given(Cp1252ToUtf8(path));
  std::string stem = given.stem().string();
  std::filesystem::path share = std::filesystem::path(ProgramFolder()) / ".." / "share" / "tolmen";
  for (const std::filesystem::path& candidate :
       {given, share / (stem + ".gif"), share / (LCase(stem) + ".gif")}) {
    if (candidate.empty() || !std::filesystem::exists(candidate)) continue;
    auto movie = std::make_unique<QMovie>(QString::fromStdString(candidate.string()));
    if (!movie->isValid()) continue;
    movie_ = std::move(movie);
    if (window_ && window_->AnimationLabel()) window_->AnimationLabel()->setMovie(movie_.get());
    return true;
  }
  return false;
}

void QtUi::AnimationPlay() {
  if (!movie_) return;
  if (movie_->state() == QMovie::Paused)
    movie_->setPaused(false);
  else
    movie_->start();
}

void QtUi::AnimationStop() {
  if (movie_ && movie_->state() == QMovie::Running) movie_->setPaused(true);
}

void QtUi::AnimationClose() {
  if (!movie_) return;
  if (window_ && window_->AnimationLabel()) window_->AnimationLabel()->clear();
  movie_.reset();
}

std::string QtUi::ProgramFolder() {
  return QCoreApplication::applicationDirPath().toStdString();
}

}  // namespace tolmen
