// The front-end of `tolmen run`: no window and nobody to ask. Dialogs are answered from
// UnattendedAnswers.h and their text goes to standard error; the progress of the pass over the
// clients goes there too; SIGINT and SIGTERM cancel the run in hand as the Pause dialog's Cancel
// does.
//
// Progress: on a terminal one refreshed line, "[####      ] 12/40 clients, 3.5/s"; otherwise a
// line at every tenth of the list, "12/40 clients (30%)". Nothing with `quiet`.
// Signals: SIGINT and SIGTERM are blocked while the front-end lives and read through a signalfd
// at each yield and wait, so a signal never interrupts a file in the middle of a line.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "platform/ui/HeadlessUi.h"
#include "platform/ui/SignalWatch.h"
#include "unattended/UnattendedAnswers.h"

namespace tolmen {

class Tolmen;

class UnattendedUi final : public HeadlessUi {
 public:
  struct Settings {
    bool acceptCodes = false;
    bool quiet = false;
    bool terminal = false;  // standard error is a terminal
  };
  // REQUIRES: the stream and the clock outlive the front-end.
  UnattendedUi(std::ostream& err, Clock& clock, std::string defaultTitle, Settings settings);
  ~UnattendedUi() override;
  UnattendedUi(const UnattendedUi&) = delete;
  UnattendedUi& operator=(const UnattendedUi&) = delete;

  // The application whose run a signal or an unanswerable dialog cancels and whose log notes
  // skips. REQUIRES: the application outlives the front-end, or Attach(nullptr) first.
  void Attach(Tolmen* app) { app_ = app; }
  // A new template: its name for the progress, and nothing ended yet.
  void BeginTemplate(const std::string& name);

  // What happened since BeginTemplate.
  bool TemplateEnded() const { return templateEnded_; }  // a dialog had no safe answer
  bool CallEnded() const { return callEnded_; }          // nothing more can start
  bool Cancelled() const { return cancelled_; }          // SIGINT or SIGTERM came (sticky)
  int ClientsSkipped() const { return clientsSkipped_; }
  // The texts of the dialogs that reported a fault, in order.
  const std::vector<std::string>& Faults() const { return faults_; }

  // Asks for the cancel a signal gives; for tests, which cannot time a real signal.
  void RequestCancel();

  int MsgBox(const std::string& prompt, int style = vbOKOnly,
             const std::string& title = "") override;
  std::string InputBox(const std::string& prompt, const std::string& title = "",
                       const std::string& defaultText = "") override;
  bool FileDialog(const FileDialogRequest& request, std::string& path) override;
  void Beep() override {}
  void Yield(long clientOrdinal = 0) override;
  // Nobody waits at a window: asks it to close at once.
  void Run(WindowModel& window) override;

  std::string PrinterName() override { return ""; }
  bool PrintText(const std::string& /*text*/) override { return false; }
  bool OpenInEditor(const std::string& /*path*/) override { return false; }
  bool ShowHelp(const std::string& /*file*/, const std::string& /*page*/) override { return false; }
  void TrayAdd(const std::string& tip) override { NoteTray(true, tip); }
  void TrayModify(const std::string& tip) override { NoteTray(true, tip); }
  void TrayRemove() override { NoteTray(false, ""); }

 private:
  // Prints a dialog's text (and the answer taken) unless quiet and no fault.
  void Report(const std::string& title, const std::string& prompt, const std::string& answer,
              bool fault);
  void Take(const UnattendedAnswer& answer, const std::string& text);
  // Sets the run's stop to Cancel when one was asked for and a run is going.
  void PassCancelOn();
  void PollSignals();
  void ShowProgress();
  void EndProgressLine();

  std::ostream& err_;
  Settings settings_;
  Tolmen* app_ = nullptr;
  SignalWatch signals_;  // SIGINT and SIGTERM, taken at each yield and dialog
  std::string templateName_;
  bool templateEnded_ = false;
  bool callEnded_ = false;
  bool cancelled_ = false;
  int clientsSkipped_ = 0;
  std::vector<std::string> faults_;
  int lastTenth_ = -1;
  bool progressLineOpen_ = false;
};

}  // namespace tolmen
