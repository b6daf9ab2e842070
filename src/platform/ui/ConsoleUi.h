// The console front-end (TOLMEN_UI=console, and the choice without a display): dialogs become
// questions on the terminal, progress one refreshed line.
//
// Message box: the title, the text, then the buttons with their keys and the default,
//   "[Y]es [N]o [C]ancel (default Yes): ". A line naming a button by its first letter or its whole
//   name (case ignored) chooses it; an empty line takes the default; anything else asks again.
// Input box: the title, the prompt, then "[DEFAULT] > " ("> " without a default). An empty line
//   takes the default text.
// File dialog: the title, the folder it opens in, then "File name [PROPOSED] > ". An empty line
//   takes the proposed name, and cancels when there is none. A relative name is taken inside the
//   dialog's folder, "~/" in the home folder, and a name without an extension gets the default one.
// End of input answers every question from then on: a message box with its default, an input box
//   and a file dialog with Cancel. Answers read from an input that is not a terminal, and answers
//   taken at the end of input, are written after the question so the output reads as a dialogue.
// Progress: at each yield, a changed StatusText() of the main window is written, as "\r", the
//   text and clear-to-end-of-line on a terminal, else as a line of its own.
// Run(window): background mode (window hidden, a registered timer active) loops on the clock,
//   firing due timers and sleeping between, until the window closes, shows, runs out of active
//   timers, or SIGINT or SIGTERM arrives; then, or at once when not in background mode (no one is
//   at the screen to wait for), the window is asked to close. The two signals are blocked for the
//   loop and read through a signalfd, so a signal arriving during a scheduled run ends the loop
//   once that run is over rather than killing the process in the middle of writing files.
// Editor: $VISUAL, $EDITOR, xdg-open or nano, started with an argument vector on the same
//   terminal; the front-end waits for it, since a terminal editor and the console's own questions
//   cannot share the terminal.
// Printing goes to the output after the line "--- Printed text ---"; help names the page's file;
// the tray prints "Tray: TIP" when the tip changes. Text out is UTF-8, text in is read as UTF-8.
#pragma once

#include <iosfwd>
#include <string>

#include "platform/ui/HeadlessUi.h"

namespace tolmen {

class ConsoleUi final : public HeadlessUi {
 public:
  struct Terminal {
    bool input = false;   // the input is a terminal (it echoes what is typed)
    bool output = false;  // the output is a terminal (progress may overwrite its line)
  };
  // REQUIRES: the streams and the clock outlive the front-end.
  ConsoleUi(std::istream& in, std::ostream& out, Clock& clock, std::string defaultTitle,
            Terminal terminal);

  int MsgBox(const std::string& prompt, int style = vbOKOnly,
             const std::string& title = "") override;
  std::string InputBox(const std::string& prompt, const std::string& title = "",
                       const std::string& defaultText = "") override;
  bool FileDialog(const FileDialogRequest& request, std::string& path) override;
  void Beep() override;

  void Yield(long clientOrdinal = 0) override;
  void Run(WindowModel& window) override;

  std::string PrinterName() override { return "Console"; }
  bool PrintText(const std::string& text) override;
  bool OpenInEditor(const std::string& path) override;
  bool ShowHelp(const std::string& helpFile, const std::string& page) override;

  void TrayAdd(const std::string& tip) override;
  void TrayModify(const std::string& tip) override;
  void TrayRemove() override;

  // True once the input has ended.
  bool InputEnded() const { return inputEnded_; }

 private:
  // Reads one line (UTF-8 in, Windows-1252 out); false at the end of input.
  bool ReadLine(std::string& line);
  // The line as the terminal gives it (UTF-8).
  bool ReadUtf8Line(std::string& line);
  // Writes an answer after its question when nobody saw it typed.
  void EchoAnswer(const std::string& answer, bool typed);
  void Print(const std::string& text);  // Windows-1252 text, converted
  void PrintHeading(const std::string& title, const std::string& text);
  void ShowProgress();
  void EndProgressLine();
  // The background loop of Run; returns when it should stop.
  void RunInBackground(WindowModel& window);

  std::istream& in_;
  std::ostream& out_;
  Terminal terminal_;
  bool inputEnded_ = false;
  bool progressLineOpen_ = false;
  std::string lastStatus_;
};

}  // namespace tolmen
