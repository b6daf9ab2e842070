// The progress line under the Transfer page's bar: when the pass started, how long it has run,
// when it should end, how far it is, and how many items a minute it does.
#pragma once

#include <string>

namespace tolmen {

class Tolmen;

// The line for `count` items done of `maximum`, the pass having started at `startTime` and the
// time being `now` (all dates as days). The parts are separated by a blank, a middle dot (byte
// 0xB7) and a blank:
//   "Started: hh:mm · Elapsed: hh:mm · Est. Finish: hh:mm · Progress: #0% · RATE/min"
// Elapsed is now minus the start, shown as a time of day (above 24 hours only the hours of the
// day remain). The fraction is count / maximum; the finish, start + elapsed / fraction, is worked
// out only for a fraction above 0 (else it shows 00:00). The rate is the whole part of count /
// elapsed (items a day), divided by 24 and by 60, in its plain text. A step that cannot be worked
// out (a maximum or an elapsed time of 0) is passed over: with no elapsed time the line ends with
// the separator and has no rate.
std::string ProgressLineText(double startTime, double now, double count, double maximum);

// Shows the line for `count` in lblProgress(2), with the run's StartTime, the clock's time and
// the progress bar's maximum. Passes over every error.
void UpdateProgressLine(Tolmen& app, double count);

}  // namespace tolmen
