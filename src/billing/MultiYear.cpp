#include "billing/MultiYear.h"

#include "platform/ui/Ui.h"
#include "runtime/Strings.h"
#include "shell/Tolmen.h"

namespace tolmen {

std::optional<int> MultiYearAfter(int index, int current, int answer) {
  switch (index) {
    case 0:
      return answer == vbYes ? 1 : answer == vbNo ? 2 : 3;
    case 1:
    case 2:
      return index;
    case 3:
      return current == 3 ? 0 : 3;
    default:
      return std::nullopt;
  }
}

std::array<bool, 4> MultiYearTicks(int method) {
  switch (method) {
    case 1:
      return {false, true, false, false};
    case 2:
      return {false, false, true, false};
    case 3:
      return {false, false, true, true};
    default:
      return {true, false, false, false};
  }
}

void MultiYearChoice(Tolmen& app, int index) {
  int answer = 0;
  if (index == 0) {
    const std::string& br = app.info.LineBreak;
    answer = app.ui.MsgBox(
        Join({"Must Multi-Year Billing Falsify the Date Billed?",
              "Yes\t= Set Date Billed into Future (allows change of Category any time)",
              "No \t= Use Real Date Billed + Years of Special (Category must not change until "
              "ready to bill)",
              "Cancel\t= No, and Ignore Year of Future Date Billed (changing from 'Yes' to 'No' "
              "option).",
              "", "You can change this setting later on the Options menu."},
             br),
        vbYesNoCancel + vbDefaultButton3, "Which Multi-Year Billing Option?");
  }
  const std::optional<int> method = MultiYearAfter(index, app.shell.MultiYear, answer);
  if (method)
    app.shell.MultiYear = static_cast<int16_t>(*method);
  else
    app.ui.MsgBox("Program Error in mnuOptnMulti_Click(" + std::to_string(index) + ")");
  const std::array<bool, 4> ticks = MultiYearTicks(app.shell.MultiYear);
  MainForm& form = app.screen.frmMain;
  for (int item = 0; item < 4; ++item) form.mnuOptnMulti(item).SetChecked(ticks[item]);
}

}  // namespace tolmen
