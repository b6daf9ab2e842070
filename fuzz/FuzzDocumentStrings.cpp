// The document strings: the first line is a document's header string, every other line one of
// its line strings, handed to the toolkit as the billing code hands them.
#include "FuzzSupport.h"
#include "Targets.h"
#include "platform/ui/Clock.h"
#include "runtime/DateTime.h"
#include "shell/Tolmen.h"
#include "templates/TemplateLine.h"
#include "toolkit/DocumentStrings.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen::fuzz {
namespace {

// "" or "Invalid " and the name of a field of the list.
bool IsVerdict(const std::string& answer, const std::string& names) {
  if (answer.empty()) return true;
  const std::string prefix = "Invalid ";
  if (answer.rfind(prefix, 0) != 0) return false;
  return names.find(answer.substr(prefix.size()) + "|") != std::string::npos;
}

}  // namespace

int FuzzDocumentStrings(const uint8_t* data, size_t size) {
  const std::vector<std::string> lines = TemplateLines(Bytes(data, size));
  if (lines.empty()) return 0;
  VirtualClock clock(DateSerial(2024, 6, 15) + 0.5);
  FuzzUi ui(clock);
  Tolmen app(MakeAppInfo(ScratchFolder(), "1.0.0"), ui, clock,
             ScratchFolder() + "document-settings.ini");
  app.billing.BillingVATRate = 15;
  quilletToolkit toolkit(app);
  std::string header = lines[0];
  const std::string headerAnswer = toolkit.DefineDocumentHeader(header);
  FUZZ_CHECK(IsVerdict(headerAnswer, kHeaderFieldNames));
  int accepted = 0;
  for (size_t i = 1; i < lines.size(); ++i) {
    std::string line = lines[i];
    const std::string answer = toolkit.DefineDocumentLine(line);
    FUZZ_CHECK(IsVerdict(answer, kLineFieldNames));
    if (answer.empty()) ++accepted;
  }
  FUZZ_CHECK(toolkit.LineCount == accepted);
  return 0;
}

}  // namespace tolmen::fuzz
