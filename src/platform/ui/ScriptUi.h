// The script front-end (TOLMEN_UI=script): plays a user from a script, one line at a time, and
// writes every dialog and action to a transcript.
//
// THE SCRIPT (UTF-8). Blank lines and lines beginning with '#' are comments. Every other line is
// an answer or an action:
//   Yes  No  OK  Cancel  Abort  Retry  Ignore   a button, case ignored
//   = TEXT                                      the text for an input box or a file dialog; one
//                                               blank after '=' is dropped, the rest kept as is
//   @click CONTROL [INDEX]     INDEX a number or an item's caption in double quotes
//   @dblclick CONTROL
//   @set CONTROL VALUE         VALUE the rest of the line ("quoted" to keep outer blanks)
//   @select CONTROL TEXT       TEXT the rest of the line; #N selects by position
//   @tab N
//   @pause N                   click Pause (cmdAbort) at the yield of the N-th client (N >= 1)
//   @minutes N                 let the minute timer tick N times (N >= 0)
//   @tray WHAT                 the notification icon: click, dblclick, context or rdblclick
//                              (see screen/ScreenActions.h)
//   @close                     the main window's close box
//
// ANSWERS go to dialogs in the order the dialogs appear. A dialog takes the next line when it is
// an answer, and its default (an input box: its default text; a file dialog: Cancel) when the
// next line is an action or the script has ended. What each dialog makes of an answer:
//   message box   a button it shows; any other answer is noted and the default button taken
//   input box     = TEXT gives TEXT, OK the default text, Cancel ""; any other answer is noted
//                 and the default text taken
//   file dialog   = PATH gives PATH (an empty one is a Cancel), Cancel cancels, OK takes the
//                 proposed name (initial folder + file name) when there is one; any other answer
//                 is noted and the dialog cancelled
//
// A LOOP: when the script has ended and the dialog just answered by default comes back at once
// with the same text for the second time (the third showing in a row), the front-end writes
// "!! script ended inside a loop" and ends the process with exit status 4 (kExitScriptLoop), so
// that a script never waits for ever. One repeat is allowed: the next step may ask again.
//
// ACTIONS are performed when the wizard waits for its user, inside Run: one after another, each
// handed to WindowModel::Perform, except these, which the front-end performs itself:
//   @pause N     remembered; performed as the action click "cmdAbort" at the first
//                Yield(clientOrdinal) with clientOrdinal == N, then forgotten. A later @pause
//                replaces one not yet performed. The dialog Pause brings up takes the next answer.
//   @minutes N   N ticks; each moves the clock on by 60 seconds (a real clock sleeps them) and
//                then fires every registered active timer whose interval is exactly 60000 ms.
//                The ticks stop early when the window is no longer open. Timers of other
//                intervals do not tick here (shorter ones tick at yields, see HeadlessUi.h).
//   @close       WindowModel::RequestClose().
// Run returns as soon as the window is no longer open (it is asked after every action). When an
// answer is met while waiting, no dialog was there to take it: it is noted and skipped. When the
// script has ended, Run asks the window to close and returns; a window still open then is noted.
// A request to end from the session (see Ui::WatchSystemClose) is taken at yields, between
// actions and during @minutes, whose sleep on the real clock it cuts short.
//
// THE TRANSCRIPT (UTF-8, each line ending in "\n", flushed line by line). Dialog titles left
// empty show the application's name (a file dialog's: "Open" or "Save As").
//   == MsgBox | TITLE | BUTTONS | ICON      BUTTONS the buttons' names joined by "/" (Yes/No);
//   LINES OF THE TEXT                       ICON Critical, Question, Exclamation, Information or
//   -> BUTTON                               None; the text split at CR LF, CR or LF
//
//   == InputBox | TITLE | DEFAULT
//   LINES OF THE PROMPT
//   -> = TEXT        the text the box gave back (even an empty one), written as the answer
//   -> Cancel        line that gives it; a Cancel (the box gives "") shows as Cancel
//
//   == FileDialog | TITLE | Open          (or Save)
//   -> PATH          or: -> Cancel
//
//   @ click mnuFile "&Save Template..."   every action as written, '@' followed by a blank
//   -- focus txtCategory(0)               code asked for the focus (noted after the action, at
//                                         a yield or before the next dialog)
//   !! no dialog for: Yes                 an answer met while waiting, skipped
//   !! not a button here: Retry           an answer a dialog cannot take; written before "->"
//   !! not done: REASON                   an action WindowModel::Perform did not do
//   !! bad action: @pause x               a @pause, @minutes or @close the front-end cannot read
//   !! window still open at end of script
//   !! script ended inside a loop
//   == Print                              followed by the printed text's lines
//   == Editor PATH
//   == Help FILE PAGE
//   == Tray add TIP   == Tray modify TIP   == Tray remove   (the tip without its padding)
//   == Beep
//
// Everything else of Ui: the clipboard is held in memory; the printer is called "Transcript";
// the editor, help and tray are only written down (and succeed); the busy pointer and the
// animation keep their state (see HeadlessUi); Wait(seconds) sleeps on the clock and then yields.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/HeadlessUi.h"
#include "platform/ui/ScriptReader.h"

namespace tolmen {

// The exit status of a process whose script ended inside a loop of dialogs.
inline constexpr int kExitScriptLoop = 4;

class ScriptUi final : public HeadlessUi {
 public:
  // `scriptLines` as a file holds them (UTF-8). `transcript` may be nullptr (no transcript); it
  // must outlive the front-end. REQUIRES: the clock outlives the front-end.
  ScriptUi(const std::vector<std::string>& scriptLines, std::ostream* transcript, Clock& clock,
           std::string defaultTitle);
  // The same, owning its transcript stream (nullptr: none).
  ScriptUi(const std::vector<std::string>& scriptLines, std::unique_ptr<std::ostream> transcript,
           Clock& clock, std::string defaultTitle);
  // Reads the script file and opens (truncating) the transcript file; an empty transcript path
  // means no transcript. nullptr with a message in `error` when either fails.
  static std::unique_ptr<ScriptUi> FromFiles(const std::string& scriptPath,
                                             const std::string& transcriptPath, Clock& clock,
                                             std::string defaultTitle, std::string& error);

  int MsgBox(const std::string& prompt, int style = vbOKOnly,
             const std::string& title = "") override;
  std::string InputBox(const std::string& prompt, const std::string& title = "",
                       const std::string& defaultText = "") override;
  bool FileDialog(const FileDialogRequest& request, std::string& path) override;
  void Beep() override;

  void Yield(long clientOrdinal = 0) override;
  void Run(WindowModel& window) override;

  std::string PrinterName() override { return "Transcript"; }
  bool PrintText(const std::string& text) override;
  bool OpenInEditor(const std::string& path) override;
  bool ShowHelp(const std::string& helpFile, const std::string& page) override;

  void TrayAdd(const std::string& tip) override;
  void TrayModify(const std::string& tip) override;
  void TrayRemove() override;

  // Who performs the actions handed to the window: by default WindowModel::Perform. A front-end
  // with widgets acts on them instead; the answer is Perform's ("" when done, else why not).
  using Performer = std::function<std::string(const UiAction& action, WindowModel& window)>;
  void SetPerformer(Performer performer) { performer_ = std::move(performer); }

  // True when every line of the script has been taken.
  bool Finished() const { return next_ >= script_.size(); }
  // The client ordinal of a @pause not yet performed.
  std::optional<long> PendingPause() const { return pendingPause_; }

 private:
  // The next line when it is an answer or a text, else nullptr (an action, or the end).
  const ScriptLine* PeekAnswer() const;
  void Write(const std::string& line);
  void WriteLines(const std::string& text);
  void Note(const std::string& text) { Write("!! " + text); }
  // Writes "-- focus CONTROL" when code asked for the focus since the last look.
  void NoteFocus();
  // Writes a dialog's heading and (with `writeText`) its text; ends the process when the script
  // has ended and the dialog answered by default comes back a second time.
  void ShowDialog(const std::string& heading, const std::string& text, bool writeText = true);
  // Performs one action line of the script.
  void PerformAction(const UiAction& action, WindowModel& window);
  // Hands an action to the window and notes a refusal.
  void HandOver(const UiAction& action, WindowModel& window);

  std::vector<ScriptLine> script_;
  size_t next_ = 0;
  Performer performer_;
  std::unique_ptr<std::ostream> ownedTranscript_;
  std::ostream* transcript_ = nullptr;
  std::optional<long> pendingPause_;
  // The last dialog (heading and text) answered by default after the script had ended.
  std::string lastDefaulted_;
  int repeats_ = 0;  // how often it came straight back
};

}  // namespace tolmen
