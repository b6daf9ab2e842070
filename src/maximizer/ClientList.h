// Readying Maximizer for a run and giving it back afterwards.
//
// OpenClientList, in order:
//   1. opens the client file "MXZC.MAX" in the accepted database's folder (quoted path), and
//      lets ClosePasFiles close it;
//   2. list position 0; Maximizer's visibility state is saved;
//   3. Maximizer is hidden ("Hide") unless mnuOptnShowMax ("Keep Maximizer Visible") is ticked;
//   4. its reminders are switched off (SetAlarm "Off");
//   5. unless the run has been stopped or works on the current client only: the client window
//      is brought up, the list is filled with all clients when the option "List Clients" says
//      so, the count is awaited, and unless the run has been stopped by then the list is
//      scrolled to the top.
// Waiting for the count reads it once a second until two readings a second apart show no growth
// and logs "N tries to get Maximizer Record Count (COUNT)."; scrolling to the top scrolls once a
// second until the identification of the current client has stood still, at least three times,
// and logs "N tries to get to top Maximizer Record <ID>". Every one-second wait yields to the
// window system (Timer2) and gives up at once when StopRequest becomes non-zero.
//
// What the user sees meanwhile: the wait cursor, and on the Transfer page lblProgress(2) (the
// progress line) with "Maximizer is Listing All Clients...", "Waiting for Maximizer to finalise
// Record Count..." and "Maximizer is Scrolling to the Top of the List of Clients...", each
// followed by a dot per second waited; lblProgress(1) (the counters line) shows the count as it
// grows.
//
// CloseClientList: reminders on ("On"), the visibility state saved at the start put back
// ("normal" is sent as "Restore"), and the application, record and attach objects let go, the
// last even when Maximizer fails to answer (the error then goes on to the caller).
//
// Run-time errors (Maximizer gone, a call refused) go on to the caller's error path.
#pragma once

namespace tolmen {

class Tolmen;

void OpenClientList(Tolmen& app);
void CloseClientList(Tolmen& app);

// One second on Timer2: the timer is switched on with an interval of 1000 ms, switches itself
// off at its first tick, and the window system is yielded to until then. False when StopRequest
// became non-zero during the wait (the wait ends at once).
bool WaitOneSecond(Tolmen& app);

}  // namespace tolmen
