// The Qt window played from a user script (TOLMEN_UI=qt with TOLMEN_SCRIPT): the script language
// and transcript of platform/ui/ScriptUi.h, acted out in the real window.
//
// - Actions click and set the real widgets: a button, check box, option button or menu item is
//   clicked, a text box is entered, typed into and left, a combo box or list picks its entry, the
//   tab control turns its page; the widgets' own signals reach the model as a user's would. What
//   a widget cannot do as a user does it (a double click, a check box set to a value, a tray
//   click, a click on a label) goes to the window model, as on the script front-end. An action the
//   model would refuse is refused with the same reason before any widget is touched.
// - Dialogs (message boxes, input boxes, file dialogs) are the real Qt dialogs, shown over the
//   window and answered from the script: the button the script names is clicked, the text typed.
// - Timers, waits, the clipboard, the printer, the editor, help and the tray behave as on the
//   script front-end (a virtual clock ticks only as the script says), so that the transcript is
//   the same line for line.
// - Screenshots: with a folder given, a numbered PNG of the window at every change of page (or of
//   the form dialog shown), of every dialog as it is answered, and of the window at the end of
//   the script ("003-page-To-Pastel.png", "004-msgbox.png", "009-end.png").
#pragma once

#include <QImage>
#include <QString>
#include <memory>
#include <string>

#include "gui/QtUi.h"
#include "platform/ui/ScriptUi.h"

class QObject;

namespace tolmen {

class Control;

// Numbered PNGs of widgets in a folder.
class Screenshots {
 public:
  explicit Screenshots(QString folder);
  bool Enabled() const { return !folder_.isEmpty(); }
  // Saves `image` as "NNN-what.png"; the path, or "" when nothing was saved.
  QString Save(const QImage& image, const QString& what);

 private:
  QString folder_;
  int count_ = 0;
};

class QtScriptUi final : public QtUi {
  Q_OBJECT

 public:
  // `script` answers and acts; `screenshotFolder` empty takes no screenshots. The clock must
  // outlive the front-end (it is the script's).
  QtScriptUi(std::unique_ptr<ScriptUi> script, Clock& clock, const QString& screenshotFolder);
  ~QtScriptUi() override;

  void Attach(MainWindow* window) override;

  int MsgBox(const std::string& prompt, int style = vbOKOnly,
             const std::string& title = "") override;
  std::string InputBox(const std::string& prompt, const std::string& title = "",
                       const std::string& defaultText = "") override;
  bool FileDialog(const FileDialogRequest& request, std::string& path) override;
  void Beep() override;

  void Yield(long clientOrdinal = 0) override;
  void Wait(double seconds) override;
  void Run(WindowModel& window) override;
  void SetMainWindow(WindowModel* window) override;
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

  ScriptUi& Script() { return *script_; }

 private:
  // One action of the script on the widgets; Perform's answer.
  std::string PerformOnWidgets(const UiAction& action, WindowModel& window);
  // Acts on `widget` as a user would; false when this widget cannot take the action so.
  bool ActOn(QObject* widget, const std::string& verb, Control& control, bool hasEntry,
             const std::string& entry);
  // Lets the window paint what the model says.
  void Settle();
  // A screenshot of the window when its page or form dialog changed since the last one.
  void NotePage();
  // Shows `dialog`, lets it paint and saves it.
  void ShowDialog(QWidget& dialog, const QString& what);

  std::unique_ptr<ScriptUi> script_;
  Screenshots shots_;
  QString shownPage_;  // the page and form dialog of the last screenshot
  QImage lastFrame_;   // the window after the last action, for the end's screenshot
  std::string actionError_;
  bool acting_ = false;
};

}  // namespace tolmen
