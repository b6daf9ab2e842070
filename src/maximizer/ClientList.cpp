#include "maximizer/ClientList.h"

#include <string>

#include "maximizer/BusyPointer.h"
#include "maximizer/OpenMaximizer.h"
#include "platform/automation/MaximizerAutomation.h"
#include "runtime/Cp1252.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr int kOneSecond = 1000;

Label& ProgressLine(Tolmen& app) {
  return app.screen.frmMain.lblProgress(2);
}

Label& CountersLine(Tolmen& app) {
  return app.screen.frmMain.lblProgress(1);
}

void AddDot(Label& label) {
  label.SetCaption(label.Caption() + ".");
}

// Reads the count until two readings a second apart show no growth. Gives up without a log line
// when the run is stopped during a wait.
void WaitForRecordCount(Tolmen& app) {
  MaximizerLink& link = app.maximizer;
  Label& progress = ProgressLine(app);
  progress.SetCaption("Waiting for Maximizer to finalise Record Count...");
  if (!WaitOneSecond(app)) return;
  link.ListCount = link.Record().GetListCount();
  std::int32_t tries = 0;
  std::int32_t last = 0;
  while (link.ListCount > last) {
    last = link.ListCount;
    ++tries;
    if (!WaitOneSecond(app)) return;
    link.ListCount = link.Record().GetListCount();
    AddDot(progress);
    CountersLine(app).SetCaption(std::to_string(link.ListCount));
  }
  LogEntry(app, 8,
           std::to_string(tries) + " tries to get Maximizer Record Count (" +
               std::to_string(link.ListCount) + ").");
}

// Scrolls to the top until the current identification stands still, three scrolls at least.
void ScrollToTop(Tolmen& app) {
  MaxRecordObject& record = app.maximizer.Record();
  Label& progress = ProgressLine(app);
  progress.SetCaption("Maximizer is Scrolling to the Top of the List of Clients...");
  std::string current = record.GetFieldValue("Identification");
  std::string previous;
  int tries = -1;
  do {
    ++tries;
    previous = current;
    WaitForMaximizer(app);
    record.ScrollList("Top");
    if (!WaitOneSecond(app)) return;
    current = record.GetFieldValue("Identification");
    AddDot(progress);
  } while (current != previous || tries <= 1);
  LogEntry(app, 8,
           std::to_string(tries) + " tries to get to top Maximizer Record <" + current + ">");
}

}  // namespace

bool WaitOneSecond(Tolmen& app) {
  Timer& timer = app.screen.frmMain.Timer2;
  // Timer2's own handler: it switches itself off and does nothing else.
  timer.SetHandler([&timer] { timer.SetEnabled(false); });
  app.ui.RegisterTimer(timer);
  timer.SetInterval(kOneSecond);
  timer.SetEnabled(true);
  do {
    app.ui.Yield();
    if (app.run.StopRequest != kStopNone) return false;
  } while (timer.Enabled());
  return true;
}

void OpenClientList(Tolmen& app) {
  MaximizerLink& link = app.maximizer;
  MaxClients& file = link.ClientFile();
  if (file.IsOpen) file.CLOSE_();
  file.FOpen("\"" + link.DatabasePath + "/" + MaxClients::kFileName + "\"");
  app.pastelFiles.closeClientFile = [](Tolmen& owner) { owner.maximizer.ClientFile().CLOSE_(); };

  link.ListPosition = 0;
  MaxApplicationObject& maximizer = link.Application();
  link.VisibilityState = maximizer.GetVisibilityState();
  if (!app.screen.frmMain.mnuOptnShowMax.Checked()) maximizer.SetVisibilityState("Hide");
  WaitForMaximizer(app);
  maximizer.SetAlarm("Off");

  if (app.run.StopRequest != kStopNone || app.run.CurrentClientOnly) return;
  WaitForMaximizer(app);
  maximizer.ActivateWindow("client");
  BusyPointer busy(app);
  if (app.options.ListAll) {
    ProgressLine(app).SetCaption("Maximizer is Listing All Clients...");
    WaitForMaximizer(app);
    link.Record().ListAll("clients");
  }
  WaitForRecordCount(app);
  if (app.run.StopRequest == kStopNone) ScrollToTop(app);
}

void CloseClientList(Tolmen& app) {
  MaximizerLink& link = app.maximizer;
  struct ReleaseAtEnd {
    MaximizerLink& link;
    ~ReleaseAtEnd() { link.Release(); }
  } release{link};
  MaxApplicationObject& maximizer = link.Application();
  maximizer.SetAlarm("On");
  std::string state = link.VisibilityState;
  if (EqualsNoCase(state, "normal")) state = "Restore";
  maximizer.SetVisibilityState(state);
}

}  // namespace tolmen
