// The stages of start-up and of a run that belong to modules still being written: the Maximizer
// link, the template file, the category list, the "To Pastel" and "To Maximizer" lists, the
// client loop, the billing checks, the posting toolkit's document files and background mode.
//
// The shell and the run driver call each member exactly where the start-up and the run call that
// routine, and pass over a member that is empty. What "passed over" means for a routine with a
// result is written beside it. WireStages (wizard/WizardHandlers.h) fills the members whose
// modules exist with their routines; the others stay empty until their modules land. A test of
// the shell alone may fill a member with a stand-in before the form is wired.
#pragma once

#include <functional>
#include <string>

namespace tolmen {

struct RunStages {
  // OpenMaximizerOLE: attaches to the running Maximizer. Empty: no link, so false.
  std::function<bool()> OpenMaximizerOLE;
  // CloseClientList: gives Maximizer back at the end of a run (alarm on, visibility restored,
  // automation objects released). Empty: nothing to give back.
  std::function<void()> CloseClientList;

  // TemplateOpen(path, parts): reads a template into the screen. Empty: nothing was read, so
  // false.
  std::function<bool(const std::string& path, bool parts)> TemplateOpen;
  // TemplateSave(path): writes the screen's options as a template. Empty: nothing is written.
  std::function<void(const std::string& path)> TemplateSave;
  // SetOptions: copies the screen into RunOptions. Empty: RunOptions stays as it is.
  std::function<void()> SetOptions;
  // CheckForAutoRun: looks at the auto-run file at the first activation. It clears
  // ShellState::AutoRunAllowed itself and sets it again only when background mode is on.
  std::function<void()> CheckForAutoRun;

  // LoadCategories: rebuilds cboCategories from the category file.
  std::function<void()> LoadCategories;
  // Fills the lists of the "To Pastel" tab and sets ShellState::ToPastelFilled.
  std::function<void()> FillToPastelLists;
  // Fills the list of Pastel fields of the "To Maximizer" tab.
  std::function<void()> FillPastelFieldList;

  // TransferClients: the pass over the Maximizer client list, inside the run's transaction. It
  // aborts the transaction itself when it ends by Cancel or cannot start.
  std::function<void()> TransferClients;

  // The later checks of CheckRunOptions. Empty: nothing to check, so true.
  std::function<bool()> IsPas2MaxOK;            // the "To Maximizer" links
  std::function<bool()> CheckRecurringBilling;  // the recurring billing set-up
  std::function<bool()> CheckCasualBilling;     // the casual billing rules

  // CloseDocumentFiles: closes the posting toolkit's document files when they are open; true
  // when it had files to close. Empty: none are open, so false.
  std::function<bool()> CloseDocumentFiles;
};

}  // namespace tolmen
