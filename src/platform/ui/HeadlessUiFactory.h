// Chooses and builds a front-end without a screen from its name and the environment.
#pragma once

#include <memory>
#include <string>

#include "platform/ui/Clock.h"
#include "platform/ui/Ui.h"

namespace tolmen {

// "console": questions on standard input and output. "script": the script named by
// TOLMEN_SCRIPT, with a transcript written to TOLMEN_TRANSCRIPT when that is set. The kind is
// compared without regard to case. nullptr with a message in `error` for another kind, a script
// front-end without TOLMEN_SCRIPT, a script that cannot be read, or a transcript that cannot be
// written. REQUIRES: the clock outlives the front-end.
std::unique_ptr<Ui> MakeHeadlessUi(const std::string& kind, Clock& clock,
                                   const std::string& defaultTitle, std::string& error);

}  // namespace tolmen
