#include "shell/DebugLevel.h"

#include "runtime/Conversion.h"
#include "runtime/Strings.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr const char* kSettingsSection = "Settings";

}  // namespace

int ReadDebugLevel(Tolmen& app) {
  const double value = Val(app.settings.GetSetting(kSettingsSection, "Debugging", "0"));
  try {
    return CInt(Variant(value));
  } catch (const RuntimeError&) {
    return 0;  // a stored value no level can be: as if none were stored
  }
}

std::string DebugLevelPrompt(const std::string& lineBreak) {
  return Join({"Set your Debugging Level:", "0 = No Debugging,", "1 = Vital messages,",
               "2 = Most messages,", "3 = GlobalIO too,", "4 = All messages,",
               "-1 = Casual Billing & Vital messages Only."},
              lineBreak);
}

void DebugLevelDialog(Tolmen& app) {
  const std::string answer =
      app.ui.InputBox(DebugLevelPrompt(app.info.LineBreak), "Debugging Vellumator7",
                      CStr(Variant(static_cast<double>(app.shell.DebugLevel))));
  if (answer.empty()) return;
  int level = 0;
  try {
    level = CInt(Variant(Val(answer)));
  } catch (const RuntimeError&) {
    return;
  }
  app.shell.DebugLevel = level;
  if (level != 0) {
    app.settings.SaveSetting(kSettingsSection, "Debugging", std::to_string(level));
    LogEntry(app, 9, "# DEBUGGING Setting = " + std::to_string(level));
  } else {
    try {
      app.settings.DeleteSetting(kSettingsSection, "Debugging");
    } catch (const RuntimeError&) {
      // passed over: the level is off for this process all the same
    }
    LogEntry(app, 9, "# DEBUGGING OFF");
  }
}

}  // namespace tolmen
