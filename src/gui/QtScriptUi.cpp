#include "gui/QtScriptUi.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFocusEvent>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <charconv>
#include <iostream>

#include "gui/HelpWindow.h"
#include "gui/LogViewer.h"
#include "gui/MainWindow.h"
#include "gui/QtText.h"
#include "platform/ui/HelpPage.h"
#include "runtime/Cp1252.h"
#include "runtime/SystemPath.h"
#include "screen/ScreenActions.h"

namespace tolmen {

namespace {

// A whole number without sign or blanks; -1 when `text` is none.
int WholeNumber(const std::string& text) {
  int value = -1;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size() && value >= 0 ? value : -1;
}

// The entry of a list widget's `texts` named by "#N" or by its text (case ignored); -1 if none.
int EntryIn(const QStringList& texts, const std::string& entry, bool byNumber) {
  if (byNumber && WholeNumber(entry) >= 0) return WholeNumber(entry);
  if (entry.size() > 1 && entry[0] == '#') return WholeNumber(entry.substr(1));
  if (byNumber) return -1;
  for (qsizetype row = 0; row < texts.size(); ++row)
    if (texts[row].compare(ToQt(entry), Qt::CaseInsensitive) == 0) return static_cast<int>(row);
  return -1;
}

QStringList Items(const QComboBox& combo) {
  QStringList texts;
  for (int row = 0; row < combo.count(); ++row) texts << combo.itemText(row);
  return texts;
}

QStringList Items(const QListWidget& list) {
  QStringList texts;
  for (int row = 0; row < list.count(); ++row) texts << list.item(row)->text();
  return texts;
}

// A pick from the drop-down, as the user makes it.
bool Pick(QComboBox& combo, int row) {
  if (row < 0 || row >= combo.count()) return false;
  combo.setCurrentIndex(row);
  emit combo.activated(row);
  return true;
}

// A click on a row of a single-choice list. A click on the row already chosen changes nothing
// the widget would tell, so the model takes that one.
bool Pick(QListWidget& list, int row) {
  if (list.selectionMode() != QAbstractItemView::SingleSelection) return false;
  if (row < 0 || row >= list.count() || row == list.currentRow()) return false;
  list.setCurrentRow(row);
  return true;
}

bool TurnTo(QTabWidget& tabs, const std::string& page) {
  const int index = WholeNumber(page);
  if (index < 0 || index >= tabs.count() || index == tabs.currentIndex()) return false;
  if (!tabs.isTabVisible(index) || !tabs.isTabEnabled(index)) return false;
  tabs.setCurrentIndex(index);
  return true;
}

// Typing into a box: its whole text replaced by `text`, entering and leaving it around the typing
// when `enterAndLeave`.
void Type(QLineEdit& line, const std::string& text, bool enterAndLeave) {
  if (enterAndLeave) {
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&line, &in);
  }
  line.selectAll();
  line.insert(ToQt(text));
  if (enterAndLeave) {
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&line, &out);
  }
}

// A file name's characters that stay as they are in a screenshot's name.
QString FileNamePart(QString text) {
  text.remove('&');
  QString out;
  for (QChar c : text) out += c.isLetterOrNumber() ? c : QChar('-');
  return out;
}

}  // namespace

Screenshots::Screenshots(QString folder) : folder_(std::move(folder)) {
  if (Enabled()) QDir().mkpath(folder_);
}

QString Screenshots::Save(const QImage& image, const QString& what) {
  if (!Enabled() || image.isNull()) return "";
  const QString path =
      QDir(folder_).filePath(QString("%1-%2.png").arg(++count_, 3, 10, QChar('0')).arg(what));
  return image.save(path, "PNG") ? path : "";
}

QtScriptUi::QtScriptUi(std::unique_ptr<ScriptUi> script, Clock& clock,
                       const QString& screenshotFolder)
    : QtUi(clock), script_(std::move(script)), shots_(screenshotFolder) {
  script_->SetPerformer([this](const UiAction& action, WindowModel& window) {
    return PerformOnWidgets(action, window);
  });
}

QtScriptUi::~QtScriptUi() {
  if (MainWindow* window = AttachedWindow()) window->SetErrorHandler(nullptr);
}

void QtScriptUi::Attach(MainWindow* window) {
  if (MainWindow* old = AttachedWindow()) old->SetErrorHandler(nullptr);
  QtUi::Attach(window);
  if (!window) return;
  // An error no handler caught is the action's refusal, as the script front-end writes it.
  window->SetErrorHandler([this](const std::string& reason) {
    if (acting_)
      actionError_ = reason;
    else
      std::cerr << "tolmen: " << Cp1252ToUtf8(reason) << "\n";
  });
}

void QtScriptUi::Settle() {
  Refresh();
  QCoreApplication::processEvents();
}

void QtScriptUi::NotePage() {
  MainWindow* window = AttachedWindow();
  if (!window || !shots_.Enabled()) return;
  QWidget* shown = nullptr;
  QString page;
  for (QWidget* dialog : {static_cast<QWidget*>(window->OptionsDialog()),
                          static_cast<QWidget*>(window->SetupDialog())}) {
    if (dialog && dialog->isVisible()) {
      shown = dialog;
      page = dialog->objectName();
    }
  }
  if (!shown && window->isVisible()) {
    auto* tabs = window->findChild<QTabWidget*>("tabDlg");
    shown = window;
    page = "page-" + (tabs ? FileNamePart(tabs->tabText(tabs->currentIndex())) : QString());
  }
  if (!shown || page == shownPage_) return;
  shownPage_ = page;
  shots_.Save(shown->grab().toImage(), page);
}

void QtScriptUi::ShowDialog(QWidget& dialog, const QString& what) {
  dialog.show();
  QCoreApplication::processEvents();
  if (shots_.Enabled()) shots_.Save(dialog.grab().toImage(), what);
}

int QtScriptUi::MsgBox(const std::string& prompt, int style, const std::string& title) {
  const int scripted = script_->MsgBox(prompt, style, title);
  QMessageBox box(DialogParent());
  const std::map<QAbstractButton*, int> answers = SetUpMsgBox(box, prompt, style, title);
  ShowDialog(box, "msgbox");
  for (const auto& [button, answer] : answers)
    if (answer == scripted) button->click();
  const auto found = answers.find(box.clickedButton());
  const int answer = found == answers.end() ? CloseBoxAnswer(style) : found->second;
  box.hide();
  Refresh();
  return answer;
}

std::string QtScriptUi::InputBox(const std::string& prompt, const std::string& title,
                                 const std::string& defaultText) {
  // The script gives "" for a Cancel; an empty text typed and taken gives the same.
  const std::string scripted = script_->InputBox(prompt, title, defaultText);
  QInputDialog dialog(DialogParent());
  SetUpInputBox(dialog, prompt, title, defaultText);
  dialog.setTextValue(ToQt(scripted));
  ShowDialog(dialog, "inputbox");
  if (scripted.empty())
    dialog.reject();
  else
    dialog.accept();
  Refresh();
  return dialog.result() == QDialog::Accepted ? FromQt(dialog.textValue()) : "";
}

bool QtScriptUi::FileDialog(const FileDialogRequest& request, std::string& path) {
  std::string chosen;
  const bool taken = script_->FileDialog(request, chosen);
  QFileDialog dialog(DialogParent());
  SetUpFileDialog(dialog, request);
  if (taken) {
    const QFileInfo file(QString::fromStdString(SystemPath(chosen)));
    dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
  }
  ShowDialog(dialog, "filedialog");
  // The path is the one typed: Qt's dialog would refuse a file that is not there yet, where the
  // program's own check is what the script wants to see.
  static_cast<QDialog&>(dialog).done(taken ? QDialog::Accepted : QDialog::Rejected);
  Refresh();
  if (taken) path = chosen;
  return taken;
}

void QtScriptUi::Beep() {
  script_->Beep();
  QtUi::Beep();
}

void QtScriptUi::Yield(long clientOrdinal) {
  script_->Yield(clientOrdinal);
  QtUi::Yield(clientOrdinal);
  NotePage();
}

void QtScriptUi::Wait(double seconds) {
  script_->Wait(seconds);
  Settle();
}

void QtScriptUi::Run(WindowModel& window) {
  Settle();
  NotePage();
  script_->Run(window);
  Settle();
  if (!lastFrame_.isNull()) shots_.Save(lastFrame_, "end");
}

std::string QtScriptUi::PerformOnWidgets(const UiAction& action, WindowModel& window) {
  MainWindow* main = AttachedWindow();
  auto* actions = dynamic_cast<ScreenActions*>(&window);
  std::string reason;
  if (main && actions) {
    const ScreenActions::Located where = actions->Locate(action);
    if (!where.refusal.empty()) return where.refusal;
    QObject* widget = where.control ? main->WidgetOf(*where.control) : nullptr;
    actionError_.clear();
    acting_ = true;
    const bool done =
        widget && ActOn(widget, LCase(action.verb), *where.control, where.hasEntry, where.entry);
    acting_ = false;
    reason = done ? actionError_ : window.Perform(action);
  } else {
    reason = window.Perform(action);
  }
  Settle();
  NotePage();
  if (main && main->isVisible()) lastFrame_ = main->grab().toImage();
  return reason;
}

bool QtScriptUi::ActOn(QObject* widget, const std::string& verb, Control& control, bool hasEntry,
                       const std::string& entry) {
  if (verb == "click") {
    if (auto* box = qobject_cast<QCheckBox*>(widget)) {
      box->click();
      return true;
    }
    if (auto* radio = qobject_cast<QRadioButton*>(widget)) {
      radio->click();
      return true;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
      if (!control.HasClickHandler()) return false;
      button->click();
      return true;
    }
    if (auto* item = qobject_cast<QAction*>(widget)) {
      if (!control.HasClickHandler()) return false;
      item->trigger();
      return true;
    }
    if (!hasEntry) return false;
    if (auto* tabs = qobject_cast<QTabWidget*>(widget)) return TurnTo(*tabs, entry);
    if (auto* combo = qobject_cast<QComboBox*>(widget))
      return Pick(*combo, EntryIn(Items(*combo), entry, true));
    if (auto* list = qobject_cast<QListWidget*>(widget))
      return Pick(*list, EntryIn(Items(*list), entry, true));
    return false;
  }
  if (verb == "tab") {
    auto* tabs = qobject_cast<QTabWidget*>(widget);
    return tabs && TurnTo(*tabs, entry);
  }
  if (verb == "set") {
    if (auto* line = qobject_cast<QLineEdit*>(widget)) {
      if (line->isReadOnly()) return false;
      Type(*line, entry, true);
      return true;
    }
    if (auto* combo = qobject_cast<QComboBox*>(widget); combo && combo->lineEdit()) {
      Type(*combo->lineEdit(), entry, false);
      return true;
    }
  }
  if (verb == "set" || verb == "select") {
    if (auto* combo = qobject_cast<QComboBox*>(widget))
      return Pick(*combo, EntryIn(Items(*combo), entry, false));
    if (auto* list = qobject_cast<QListWidget*>(widget); list && verb == "select")
      return Pick(*list, EntryIn(Items(*list), entry, false));
  }
  return false;
}

void QtScriptUi::SetMainWindow(WindowModel* window) {
  script_->SetMainWindow(window);
}

void QtScriptUi::WatchSystemClose(int fd) {
  script_->WatchSystemClose(fd);
}

void QtScriptUi::RegisterTimer(Timer& timer) {
  script_->RegisterTimer(timer);
}

void QtScriptUi::UnregisterTimer(Timer& timer) {
  script_->UnregisterTimer(timer);
}

void QtScriptUi::SetClipboardText(const std::string& text) {
  script_->SetClipboardText(text);
}

std::string QtScriptUi::ClipboardText() {
  return script_->ClipboardText();
}

std::string QtScriptUi::PrinterName() {
  return script_->PrinterName();
}

bool QtScriptUi::PrintText(const std::string& text) {
  return script_->PrintText(text);
}

bool QtScriptUi::OpenInEditor(const std::string& path) {
  // Written down as the script front-end does; shown in the program's own viewer, never in a
  // program of the desktop.
  const bool done = script_->OpenInEditor(path);
  auto* view = new LogViewer(AttachedWindow());
  if (view->Load(QString::fromStdString(SystemPath(path)))) ShowDialog(*view, "log");
  view->close();
  return done;
}

bool QtScriptUi::ShowHelp(const std::string& helpFile, const std::string& page) {
  const bool done = script_->ShowHelp(helpFile, page);
  const std::string file = FindHelpPage(Cp1252ToUtf8(page));
  if (!file.empty() && Help().ShowPage(QString::fromStdString(file))) {
    ShowDialog(Help(), "help");
    Help().hide();
  }
  return done;
}

bool QtScriptUi::HasTray() {
  return script_->HasTray();
}

void QtScriptUi::TrayAdd(const std::string& tip) {
  script_->TrayAdd(tip);
}

void QtScriptUi::TrayModify(const std::string& tip) {
  script_->TrayModify(tip);
}

void QtScriptUi::TrayRemove() {
  script_->TrayRemove();
}

}  // namespace tolmen
