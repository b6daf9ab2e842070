// The hourglass over the whole application, nested: every SetBusy(app) needs its SetBusy(app,
// end), and the normal pointer comes back only when the outermost one has ended.
#pragma once

namespace tolmen {

class Tolmen;

// Shows the hourglass and raises ShellState::BusyCount.
void SetBusy(Tolmen& app);
// Called with any argument: lowers the count and, when it falls below 1, restores the normal
// pointer and sets the count to 0 (so an extra end does no harm).
void SetBusy(Tolmen& app, bool end);

}  // namespace tolmen
