// The Qt 6 Widgets front-end of the Ui: message and input boxes, the file dialog, yields and
// waits, timers, clipboard, printer, text editor, help, tray icon, busy pointer and animation.
// A QApplication must exist. Text is converted between Windows-1252 and UTF-8 here.
//
// Choices of this front-end:
// - A message box's close box and Escape key give Cancel where the button set has it, else its
//   last button (OK alone gives OK).
// - Yield processes pending events and refreshes the attached window; Wait on a virtual clock
//   moves the clock on and yields once, on the real clock it runs an event loop for that long.
// - OpenInEditor starts $TOLMEN_EDITOR with the file as its only argument when that is set,
//   otherwise the desktop's default program for the file; never a shell. When neither starts, the
//   file is shown in the program's read-only viewer (gui/LogViewer.h). False only when the file is
//   not there or cannot be read.
// - ShowHelp shows the page's HTML file (platform/ui/HelpPage.h: "::/html/06 Open Tab.htm" is
//   share/tolmen/help/html/06 Open Tab.htm beside the program's bin/ folder) in the program's help
//   window (gui/HelpWindow.h); false when the page is not installed.
// - The tray icon (QSystemTrayIcon) shows the tip it is given. Its double click reaches the
//   window model as the action "tray dblclick"; its context menu offers "Show Window" (the same)
//   and "Background Mode Options..." ("tray rdblclick", the right button's double click).
// - Where the desktop has no notification area, TrayAdd says so once (a message that does not
//   wait) and the window is minimised instead of hidden while the tray would be in use.
// - SetBusyPointer(true) pushes the hourglass (it may be called while already busy);
//   SetBusyPointer(false) restores the normal pointer however often it was pushed.
// - The animation plays a clip Qt can read: the path given, or a GIF of the same name under
//   share/tolmen/ beside the program's bin/ folder ("KELBOR.AVI" -> share/tolmen/kelbor.gif).
#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <string>

#include "platform/ui/Clock.h"
#include "platform/ui/Ui.h"

class QAbstractButton;
class QFileDialog;
class QInputDialog;
class QMenu;
class QMessageBox;
class QMovie;
class QSocketNotifier;
class QSystemTrayIcon;
class QTimer;
class QWidget;

namespace tolmen {

class HelpWindow;
class MainWindow;

class QtUi : public QObject, public Ui {
  Q_OBJECT

 public:
  // `clock` must outlive the front-end.
  explicit QtUi(Clock& clock, QObject* parent = nullptr);
  ~QtUi() override;

  // The window refreshed at each yield, whose animation label, tray actions and dialogs' parent
  // this front-end uses. May be nullptr.
  virtual void Attach(MainWindow* window);
  // The title of a message box given none; "Tolmen" until set.
  void SetDefaultTitle(const std::string& title) { defaultTitle_ = title; }

  int MsgBox(const std::string& prompt, int style = vbOKOnly,
             const std::string& title = "") override;
  std::string InputBox(const std::string& prompt, const std::string& title = "",
                       const std::string& defaultText = "") override;
  bool FileDialog(const FileDialogRequest& request, std::string& path) override;
  void Beep() override;

  void Yield(long clientOrdinal = 0) override;
  void Wait(double seconds) override;
  void Run(WindowModel& window) override;
  // The event loop takes the request: the attached window is asked for the system's close.
  void WatchSystemClose(int fd) override;
  void RegisterTimer(Timer& timer) override;
  void UnregisterTimer(Timer& timer) override;

  void SetClipboardText(const std::string& text) override;
  std::string ClipboardText() override;
  std::string PrinterName() override;
  bool PrintText(const std::string& text) override;
  bool OpenInEditor(const std::string& path) override;
  bool ShowHelp(const std::string& helpFile, const std::string& page) override;

  bool HasTray() override;
  void TrayAdd(const std::string& tip) override;
  void TrayModify(const std::string& tip) override;
  void TrayRemove() override;
  // The tray icon's context menu; nullptr until an icon has been added.
  QMenu* TrayMenu() const;

  void SetBusyPointer(bool busy) override;
  bool AnimationOpen(const std::string& path) override;
  void AnimationPlay() override;
  void AnimationStop() override;
  void AnimationClose() override;

  // The help window, made at its first use.
  HelpWindow& Help();

  // The answer of a message box of `style` closed by its close box or Escape.
  static int CloseBoxAnswer(int style);
  // The folder of the running program.
  static std::string ProgramFolder();

 protected:
  QWidget* DialogParent() const;
  void Refresh();
  MainWindow* AttachedWindow() const { return window_; }
  // The dialogs as the user sees them, before they are shown: a message box's buttons with the
  // answer each gives, an input box, a file dialog (Qt's own, the same on every desktop).
  std::map<QAbstractButton*, int> SetUpMsgBox(QMessageBox& box, const std::string& prompt,
                                              int style, const std::string& title) const;
  void SetUpInputBox(QInputDialog& dialog, const std::string& prompt, const std::string& title,
                     const std::string& defaultText) const;
  static void SetUpFileDialog(QFileDialog& dialog, const FileDialogRequest& request);

 private:
  void SyncTimers();
  // Hands "tray WHAT" to the attached window's model.
  void PerformTray(const char* what);

  Clock& clock_;
  MainWindow* window_ = nullptr;
  std::string defaultTitle_ = "Tolmen";
  std::map<Timer*, QTimer*> timers_;
  std::unique_ptr<QSystemTrayIcon> tray_;
  std::unique_ptr<QMenu> trayMenu_;
  bool noTraySaid_ = false;
  std::unique_ptr<QMovie> movie_;
  std::unique_ptr<QSocketNotifier> systemClose_;
  std::unique_ptr<HelpWindow> help_;
  int busyDepth_ = 0;
};

}  // namespace tolmen
