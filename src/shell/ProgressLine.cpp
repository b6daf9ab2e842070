#include "shell/ProgressLine.h"

#include <cmath>

#include "runtime/Conversion.h"
#include "runtime/Format.h"
#include "runtime/Trap.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr const char* kSeparator = " \xB7 ";

}  // namespace

std::string ProgressLineText(double startTime, double now, double count, double maximum) {
  const double elapsed = now - startTime;
  double fraction = 0;
  if (maximum != 0) fraction = count / maximum;
  double finish = 0;
  if (fraction > 0) finish = startTime + elapsed / fraction;

  std::string text = "Started: " + FormatDate(startTime, "hh:mm");
  text += std::string(kSeparator) + "Elapsed: " + FormatDate(elapsed, "hh:mm");
  text += std::string(kSeparator) + "Est. Finish: " + FormatDate(finish, "hh:mm");
  text += std::string(kSeparator) + "Progress: " + FormatNumber(fraction, "#0%");
  text += kSeparator;
  if (elapsed != 0) text += NumberText(std::floor(count / elapsed) / 24 / 60) + "/min";
  return text;
}

void UpdateProgressLine(Tolmen& app, double count) {
  // The progress line never stops a run.
  PassOver([&] {
    const std::string text = ProgressLineText(app.run.StartTime, app.clock.Now(), count,
                                              app.screen.frmMain.ProgressBar1.Max());
    app.screen.frmMain.lblProgress(2).SetCaption(text);
  });
}

}  // namespace tolmen
