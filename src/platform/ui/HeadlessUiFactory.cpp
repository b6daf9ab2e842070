// Chooses and builds a front-end without a screen.
#include "platform/ui/HeadlessUiFactory.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "platform/ui/ConsoleUi.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/Cp1252.h"

namespace tolmen {

namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

std::unique_ptr<Ui> MakeHeadlessUi(const std::string& kind, Clock& clock,
                                   const std::string& defaultTitle, std::string& error) {
  if (EqualsNoCase(kind, "console")) {
    ConsoleUi::Terminal terminal{isatty(STDIN_FILENO) == 1, isatty(STDOUT_FILENO) == 1};
    return std::make_unique<ConsoleUi>(std::cin, std::cout, clock, defaultTitle, terminal);
  }
  if (EqualsNoCase(kind, "script")) {
    std::string script = Environment("TOLMEN_SCRIPT");
    if (script.empty()) {
      error = "TOLMEN_UI=script needs TOLMEN_SCRIPT, the script to play";
      return nullptr;
    }
    return ScriptUi::FromFiles(script, Environment("TOLMEN_TRANSCRIPT"), clock, defaultTitle,
                               error);
  }
  error = "unknown front-end \"" + kind + "\" (console or script)";
  return nullptr;
}

}  // namespace tolmen
