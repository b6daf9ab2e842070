// The template reader: any bytes read as a template file into the screen of a fresh application,
// in parts (the front-end answers the parts questions Yes and No in turn). What was read is
// saved, and the saved file reads to its end. (Saving it again need not give the same bytes: a
// "Category Option" beyond the option buttons is read, selects none, and is not written.)
#include "FuzzSupport.h"
#include "Targets.h"
#include "platform/ui/Clock.h"
#include "runtime/DateTime.h"
#include "runtime/RuntimeError.h"
#include "shell/Tolmen.h"
#include "templates/TemplateFile.h"
#include "templates/TemplateLine.h"
#include "wizard/TemplateControls.h"

namespace tolmen::fuzz {
namespace {

// Reads `path` into a fresh application and saves the screen to `savedPath`; false when the
// reading ended early.
bool OpenAndSave(const std::string& path, bool parts, const std::string& savedPath) {
  VirtualClock clock(DateSerial(2024, 6, 15) + 0.5);
  FuzzUi ui(clock);
  Tolmen app(MakeAppInfo(ScratchFolder(), "1.0.0"), ui, clock,
             ScratchFolder() + "template-settings.ini");
  WireTemplateControls(app);
  bool ok = false;
  TemplateOpen(app, path, parts, ok);
  TemplateSave(app, savedPath);
  return ok;
}

}  // namespace

int FuzzTemplate(const uint8_t* data, size_t size) {
  const std::string bytes = Bytes(data, size);
  for (const std::string& line : TemplateLines(bytes))
    FUZZ_CHECK(line.find('\n') == std::string::npos);

  const std::string path = ScratchFolder() + "fuzz.ktf";
  const std::string saved = ScratchFolder() + "saved.ktf";
  const std::string again = ScratchFolder() + "again.ktf";
  WriteFile(path, bytes);
  OpenAndSave(path, true, saved);
  FUZZ_CHECK(OpenAndSave(saved, false, again));
  return 0;
}

}  // namespace tolmen::fuzz
