// The answers `tolmen run` gives in place of a user. Nobody is at the screen, so every dialog is
// answered from the table in UnattendedAnswers.cpp (docs/unattended.md lists it for users):
//   - where the system itself names an answer for unattended runs, that answer;
//   - otherwise the answer that changes nothing and lets the run go on;
//   - a dialog with no such answer ends the template's run, its text on standard error.
// An account-number proposal is taken only when the user allowed it (--accept-codes); otherwise
// the client is skipped and the skip logged.
#pragma once

#include <string>

namespace tolmen {

// What happens after the answer.
enum class UnattendedStep {
  kGoOn,         // the answer is given and the run goes on
  kSkipClient,   // the client in hand is skipped (an account number was not accepted)
  kEndTemplate,  // no safe answer: this template's run ends
  kEndCall,      // nothing more can start in this call (Maximizer is not running)
};

struct UnattendedAnswer {
  int answer = 0;    // the message box's answer (vbOK .. vbNo); 0 for an input box
  std::string text;  // the input box's answer
  UnattendedStep step = UnattendedStep::kGoOn;
  bool isError = false;  // the dialog reports a fault: shown even with --quiet
};

// The answer to a message box of `style` with `prompt` and `title`.
UnattendedAnswer AnswerMsgBox(const std::string& prompt, int style, const std::string& title);

// The answer to an input box; `acceptCodes` takes the proposed account number.
UnattendedAnswer AnswerInputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultText, bool acceptCodes);

}  // namespace tolmen
