// The classic message box styles: which buttons a style shows, its icon and default answer.
#include <array>

#include "platform/ui/Ui.h"
#include "runtime/Cp1252.h"

namespace tolmen {

std::vector<int> MsgBoxButtons(int style) {
  switch (style & 7) {
    case vbOKCancel:
      return {vbOK, vbCancel};
    case vbAbortRetryIgnore:
      return {vbAbort, vbRetry, vbIgnore};
    case vbYesNoCancel:
      return {vbYes, vbNo, vbCancel};
    case vbYesNo:
      return {vbYes, vbNo};
    case vbRetryCancel:
      return {vbRetry, vbCancel};
    default:
      return {vbOK};
  }
}

std::string MsgBoxButtonName(int answer) {
  static const std::array<const char*, 8> names = {"",      "OK",    "Cancel", "Abort",
                                                   "Retry", "Ignore", "Yes",   "No"};
  if (answer < 1 || answer > 7) return "";
  return names[static_cast<size_t>(answer)];
}

int MsgBoxAnswerFromName(const std::string& name) {
  for (int answer = vbOK; answer <= vbNo; ++answer)
    if (EqualsNoCase(name, MsgBoxButtonName(answer))) return answer;
  return 0;
}

std::string MsgBoxIconName(int style) {
  switch (style & 0x70) {
    case vbCritical:
      return "Critical";
    case vbQuestion:
      return "Question";
    case vbExclamation:
      return "Exclamation";
    case vbInformation:
      return "Information";
    default:
      return "";
  }
}

int MsgBoxDefaultAnswer(int style) {
  std::vector<int> buttons = MsgBoxButtons(style);
  size_t index = static_cast<size_t>((style >> 8) & 3);
  if (index >= buttons.size()) index = 0;
  return buttons[index];
}

}  // namespace tolmen
