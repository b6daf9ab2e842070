// AUTORUN.KSF: any bytes read as the schedule file; what is read, written and read again must
// give the same file text.
#include "FuzzSupport.h"
#include "Targets.h"
#include "background/AutoRunFile.h"
#include "runtime/RuntimeError.h"

namespace tolmen::fuzz {

int FuzzAutoRun(const uint8_t* data, size_t size) {
  const std::string path = ScratchFolder() + kAutoRunFileName;
  WriteFile(path, Bytes(data, size));
  BackgroundState state;
  bool notify = false;
  const AutoRunRead read = ReadAutoRunFile(path, state, notify);
  FUZZ_CHECK(read != AutoRunRead::kMissing);
  if (read == AutoRunRead::kForeign) return 0;

  const std::string text = AutoRunFileText(state, state.BackgroundOn, notify);
  WriteAutoRunFile(path, state, state.BackgroundOn, notify);
  BackgroundState again;
  bool notifyAgain = !notify;
  FUZZ_CHECK(ReadAutoRunFile(path, again, notifyAgain) == AutoRunRead::kRead);
  FUZZ_CHECK(again.BackgroundOn == state.BackgroundOn && notifyAgain == notify);
  FUZZ_CHECK(again.UpdateMethod == state.UpdateMethod);
  FUZZ_CHECK(again.TemplateList.size() == state.TemplateList.size());
  FUZZ_CHECK(AutoRunFileText(again, again.BackgroundOn, notifyAgain) == text);
  return 0;
}

}  // namespace tolmen::fuzz
