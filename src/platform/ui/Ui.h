// The window system as the system's code sees it: message boxes, input boxes, the file dialog,
// yields, waits, timers, clipboard, printer, text editor, help, tray, busy pointer and animation.
// Three front-ends implement it: Qt (src/gui), console and script (this folder).
//
// All text crossing this interface is Windows-1252, as everywhere inside the system; a front-end
// converts to UTF-8 only where it meets the terminal, a file it writes for people, or Qt.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tolmen {

class Timer;

// Button sets, icons and default buttons of a message box: the classic constants, added together.
constexpr int vbOKOnly = 0;
constexpr int vbOKCancel = 1;
constexpr int vbAbortRetryIgnore = 2;
constexpr int vbYesNoCancel = 3;
constexpr int vbYesNo = 4;
constexpr int vbRetryCancel = 5;
constexpr int vbCritical = 16;
constexpr int vbQuestion = 32;
constexpr int vbExclamation = 48;
constexpr int vbInformation = 64;
constexpr int vbDefaultButton1 = 0;
constexpr int vbDefaultButton2 = 256;
constexpr int vbDefaultButton3 = 512;
constexpr int vbApplicationModal = 0;
constexpr int vbSystemModal = 4096;

// Answers of a message box.
constexpr int vbOK = 1;
constexpr int vbCancel = 2;
constexpr int vbAbort = 3;
constexpr int vbRetry = 4;
constexpr int vbIgnore = 5;
constexpr int vbYes = 6;
constexpr int vbNo = 7;

// The buttons of a style, in the order they appear ("OK", "Yes", "No", ...), its icon word
// ("Critical", "Question", "Exclamation", "Information" or "" for none), its default answer, and
// the answer a window's close box gives (Cancel where the set has one, else the only/last button).
std::vector<int> MsgBoxButtons(int style);
std::string MsgBoxButtonName(int answer);           // 6 -> "Yes"
int MsgBoxAnswerFromName(const std::string& name);  // "yes" -> 6, case-insensitive; 0 if unknown
std::string MsgBoxIconName(int style);
int MsgBoxDefaultAnswer(int style);

// A user action of the script front-end, as read from a line beginning with '@':
// "@click mnuFile 40" gives verb "click", args {"mnuFile", "40"}. A quoted argument keeps its
// blanks and loses its quotes.
struct UiAction {
  std::string verb;
  std::vector<std::string> args;
  std::string line;  // the line as written, for the transcript
};

// What a front-end sees of the application's main window. The application implements it over
// its screen model; the script and console front-ends drive it.
class WindowModel {
 public:
  virtual ~WindowModel() = default;
  // Performs one user action (click, set, select, tab, close, ...). Returns "" when it was done,
  // otherwise why not ("unknown control mnuFoo"); the script front-end writes that reason to the
  // transcript and goes on.
  virtual std::string Perform(const UiAction& action) = 0;
  // True while the main form is loaded; false once it has unloaded.
  virtual bool IsOpen() const = 0;
  // True while the main form is visible (background mode hides it).
  virtual bool IsVisible() const = 0;
  // The close box of the main window: asks the form to unload (it may refuse).
  virtual void RequestClose() = 0;
  // The desktop session ends (SIGTERM, SIGHUP): the close the system's shutdown asks for, which
  // the form refuses during a run.
  virtual void RequestSystemClose() { RequestClose(); }
  // The control code asked for the focus since the last call ("txtCategory(0)"), or "".
  virtual std::string TakeFocusRequest() { return ""; }
  // The progress line and the status label as they stand, for front-ends without widgets.
  virtual std::string StatusText() const = 0;
};

struct FileDialogRequest {
  bool save = false;  // Save dialog, else Open
  std::string title;
  std::string filter;            // "Templates (*.ktf)|*.ktf|All Files (*.*)|*.*"
  std::string initialFolder;     // with trailing '/'
  std::string fileName;          // proposed name
  std::string defaultExtension;  // "ktf"
};

class Ui {
 public:
  virtual ~Ui() = default;

  // A message box; answers with vbOK .. vbNo.
  virtual int MsgBox(const std::string& prompt, int style = vbOKOnly,
                     const std::string& title = "") = 0;
  // An input box; the empty string on Cancel.
  virtual std::string InputBox(const std::string& prompt, const std::string& title = "",
                               const std::string& defaultText = "") = 0;
  // A file dialog; false on Cancel, else the chosen path in `path`.
  virtual bool FileDialog(const FileDialogRequest& request, std::string& path) = 0;
  virtual void Beep() = 0;

  // Lets the window system run (the classic DoEvents): pending clicks, the Pause button and
  // timers act here. `clientOrdinal` is the number of the client being worked on when the client
  // loop yields, 0 elsewhere; the script front-end presses Pause at the ordinal `@pause` named.
  virtual void Yield(long clientOrdinal = 0) = 0;
  // Waits the given number of seconds, yielding meanwhile. On a virtual clock time moves on by
  // that much at once.
  virtual void Wait(double seconds) = 0;

  // The main loop: waits for the user until the main window has unloaded. Returns then.
  virtual void Run(WindowModel& window) = 0;
  // Names the main window before Run is entered, so that yields of a run started at start-up (a
  // template on the command line) can show its progress; nullptr forgets it. Run names its
  // window itself. The window must outlive the naming.
  virtual void SetMainWindow(WindowModel* /*window*/) {}
  // `fd` becomes readable when the desktop session asks the program to end (the start-up turns
  // SIGTERM and SIGHUP into a byte on a pipe). The front-end drains it where the window system
  // runs (yields, its event loop) and asks the main window for the system's close.
  virtual void WatchSystemClose(int /*fd*/) {}
  // Timers of the forms register here so that the front-end makes them tick. A timer that is
  // disabled or has interval 0 does not tick. The timer must outlive its registration.
  virtual void RegisterTimer(Timer& timer) = 0;
  virtual void UnregisterTimer(Timer& timer) = 0;

  virtual void SetClipboardText(const std::string& text) = 0;
  virtual std::string ClipboardText() = 0;
  // The default printer's name, and printing of plain text on it; false when nothing printed.
  virtual std::string PrinterName() = 0;
  virtual bool PrintText(const std::string& text) = 0;
  // Opens a file in the text editor, without waiting for it. False when it could not start.
  virtual bool OpenInEditor(const std::string& path) = 0;
  // Shows a help page: the help file and the page inside it ("::/html/06 Open Tab.htm").
  virtual bool ShowHelp(const std::string& helpFile, const std::string& page) = 0;

  // Notification area. Clicks on the icon reach the application as the action "tray".
  virtual bool HasTray() = 0;
  virtual void TrayAdd(const std::string& tip) = 0;
  virtual void TrayModify(const std::string& tip) = 0;
  virtual void TrayRemove() = 0;

  // The hourglass over the whole application.
  virtual void SetBusyPointer(bool busy) = 0;
  // The animation control of the Transfer page: open a clip (false if it cannot be read),
  // play, stop, close.
  virtual bool AnimationOpen(const std::string& path) = 0;
  virtual void AnimationPlay() = 0;
  virtual void AnimationStop() = 0;
  virtual void AnimationClose() = 0;
};

}  // namespace tolmen
