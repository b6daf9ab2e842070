#include "unattended/UnattendedAnswers.h"

#include <algorithm>
#include <vector>

#include "platform/ui/Ui.h"

namespace tolmen {
namespace {

using Step = UnattendedStep;

// A dialog the system shows, known by a part of its title or the start of its text.
struct KnownDialog {
  const char* titlePart;    // "" matches any title
  const char* promptStart;  // "" matches any text
  int answer;
  Step step;
};

// First match wins. Titles carry the program's name in front, so they match by a part.
constexpr KnownDialog kKnownDialogs[] = {
    // The result of a run offers the log: nobody is there to read it.
    {"Import Complete: Open Log File?", "", vbNo, Step::kGoOn},
    // Unexpected status 22 on the client file: rejecting it is the run's usual way.
    {"Kludge in ", "Accept Unexpected BTrieve Status 22", vbNo, Step::kGoOn},
    // A fatal record-manager status: the dialog's own way out, then no shut-down of the process
    // but no carrying on either.
    {"", "Would you like to Shut Down ", vbNo, Step::kEndTemplate},
    // The database name is missing: No carries on with the path it has.
    {"Warning: Maximizer Name missing!", "", vbNo, Step::kGoOn},
    // Another database than last time: No keeps the settings; the start fails.
    {"Warning: Maximizer Database changed!", "", vbNo, Step::kEndTemplate},
    // A dialog open in Maximizer: nobody can close it.
    {"Maximizer Blocked!", "", vbCancel, Step::kEndTemplate},
    {"Maximizer Required!", "", vbOK, Step::kEndCall},
    // An unknown key in a template: ignore it and carry on, as the dialog offers.
    {"Error in Template File!", "Unrecognised key", vbOK, Step::kGoOn},
    // Reading a template in parts: take every part.
    {"Importing Template in Parts", "", vbYes, Step::kGoOn},
    // An empty Pastel file, another Pastel product, period 13: a person must decide.
    {" - Opening Pastel", "", vbNo, Step::kEndTemplate},
    {"DANGER: ", "", vbNo, Step::kEndTemplate},
    {"Period 13 Processing ON?", "", vbNo, Step::kEndTemplate},
    // The pause dialog (not raised by tolmen run itself): carry on.
    {"Transfer Paused", "", vbYes, Step::kGoOn},
};

bool Matches(const KnownDialog& known, const std::string& prompt, const std::string& title) {
  return title.find(known.titlePart) != std::string::npos &&
         prompt.rfind(known.promptStart, 0) == 0;
}

bool ReportsFault(int style) {
  const int icon = style & (vbCritical | vbQuestion | vbExclamation | vbInformation);
  return icon == vbCritical || icon == vbExclamation;
}

}  // namespace

UnattendedAnswer AnswerMsgBox(const std::string& prompt, int style, const std::string& title) {
  UnattendedAnswer result;
  result.isError = ReportsFault(style);
  for (const KnownDialog& known : kKnownDialogs) {
    if (!Matches(known, prompt, title)) continue;
    result.answer = known.answer;
    result.step = known.step;
    if (known.step != Step::kGoOn) result.isError = true;
    return result;
  }
  const std::vector<int> buttons = MsgBoxButtons(style);
  if (buttons.size() == 1) {
    // A message: OK, and the run goes on (or a check that failed ends the start by itself).
    result.answer = buttons.front();
    return result;
  }
  // Abort, Retry, Ignore of a run-time error: Abort leaves through the routine's own exit path.
  // Any other question nobody can answer ends the template's run with the answer that closes the
  // dialog (Cancel where there is one).
  const auto has = [&](int button) {
    return std::find(buttons.begin(), buttons.end(), button) != buttons.end();
  };
  result.answer = has(vbAbort) ? vbAbort : has(vbCancel) ? vbCancel : MsgBoxDefaultAnswer(style);
  result.step = Step::kEndTemplate;
  result.isError = true;
  return result;
}

UnattendedAnswer AnswerInputBox(const std::string& prompt, const std::string& /*title*/,
                                const std::string& defaultText, bool acceptCodes) {
  UnattendedAnswer result;
  if (prompt.rfind("Pastel Account Number for ", 0) == 0) {
    if (acceptCodes) {
      result.text = defaultText;
    } else {
      result.step = Step::kSkipClient;
    }
    return result;
  }
  // Any other input box (the Pastel folder, the debugging level): Cancel, which changes nothing.
  // The Pastel folder's box comes only when the set cannot be opened.
  result.step = Step::kGoOn;
  result.isError = true;
  return result;
}

}  // namespace tolmen
