#include "unattended/UnattendedUi.h"

#include <signal.h>

#include <cmath>
#include <ostream>

#include "runtime/Cp1252.h"
#include "runtime/Trap.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

constexpr int kBarWidth = 20;

std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", value);
  return text;
}

}  // namespace

UnattendedUi::UnattendedUi(std::ostream& err, Clock& clock, std::string defaultTitle,
                           Settings settings)
    : HeadlessUi(clock, std::move(defaultTitle)), err_(err), settings_(settings) {}

UnattendedUi::~UnattendedUi() {
  EndProgressLine();
}

void UnattendedUi::BeginTemplate(const std::string& name) {
  EndProgressLine();
  templateName_ = name;
  templateEnded_ = false;
  clientsSkipped_ = 0;
  faults_.clear();
  lastTenth_ = -1;
}

void UnattendedUi::RequestCancel() {
  cancelled_ = true;
  PassCancelOn();
}

void UnattendedUi::PassCancelOn() {
  if (app_ == nullptr || !app_->run.RunActive) return;
  if (cancelled_ || templateEnded_ || callEnded_) app_->run.StopRequest = kStopCancel;
}

void UnattendedUi::PollSignals() {
  while (const int sig = signals_.Wait(0)) {
    EndProgressLine();
    if (!cancelled_)
      err_ << "tolmen run: " << (sig == SIGINT ? "interrupted" : "terminated")
           << ": cancelling the run\n";
    cancelled_ = true;
  }
}

void UnattendedUi::Report(const std::string& title, const std::string& prompt,
                          const std::string& answer, bool fault) {
  if (settings_.quiet && !fault) return;
  EndProgressLine();
  err_ << "tolmen run: " << Cp1252ToUtf8(TitleOr(title)) << "\n";
  for (const std::string& line : SplitLines(prompt)) err_ << "  " << Cp1252ToUtf8(line) << "\n";
  err_ << "  -> " << Cp1252ToUtf8(answer) << "\n";
}

void UnattendedUi::Take(const UnattendedAnswer& answer, const std::string& text) {
  if (answer.isError) faults_.push_back(text);
  if (answer.step == UnattendedStep::kEndTemplate) templateEnded_ = true;
  if (answer.step == UnattendedStep::kEndCall) {
    templateEnded_ = true;
    callEnded_ = true;
  }
  PassCancelOn();
}

int UnattendedUi::MsgBox(const std::string& prompt, int style, const std::string& title) {
  PollSignals();
  const UnattendedAnswer answer = AnswerMsgBox(prompt, style, TitleOr(title));
  Report(title, prompt, MsgBoxButtonName(answer.answer), answer.isError);
  Take(answer, prompt);
  return answer.answer;
}

std::string UnattendedUi::InputBox(const std::string& prompt, const std::string& title,
                                   const std::string& defaultText) {
  PollSignals();
  const UnattendedAnswer answer =
      AnswerInputBox(prompt, TitleOr(title), defaultText, settings_.acceptCodes);
  if (answer.step == UnattendedStep::kSkipClient) {
    ++clientsSkipped_;
    const std::string note =
        "Skipped: " + prompt + " (not answered: tolmen run without --accept-codes)";
    if (app_ != nullptr) PassOver([&] { LogEntry(*app_, 8, note); });
    Report(title, prompt, "Cancel (client skipped)", false);
    return "";
  }
  Report(title, prompt, answer.text.empty() ? "Cancel" : "= " + answer.text, answer.isError);
  Take(answer, prompt);
  return answer.text;
}

bool UnattendedUi::FileDialog(const FileDialogRequest& request, std::string& /*path*/) {
  Report(request.title, "A file dialog (" + request.initialFolder + ")", "Cancel", true);
  Take(UnattendedAnswer{vbCancel, "", UnattendedStep::kEndTemplate, true}, request.title);
  return false;
}

void UnattendedUi::Yield(long clientOrdinal) {
  PollSignals();
  PassCancelOn();
  RunDueTimers(false);
  if (clientOrdinal > 0) ShowProgress();
}

void UnattendedUi::Run(WindowModel& window) {
  window.RequestClose();
}

void UnattendedUi::ShowProgress() {
  if (settings_.quiet || app_ == nullptr) return;
  const ProgressBar& bar = app_->screen.frmMain.ProgressBar1;
  const double total = bar.Max();
  const double done = bar.Value();
  if (total <= 0) return;
  const double fraction = std::min(1.0, done / total);
  const std::string counts = std::to_string(static_cast<long>(done)) + "/" +
                             std::to_string(static_cast<long>(total)) + " clients";
  if (settings_.terminal) {
    const int filled = static_cast<int>(fraction * kBarWidth);
    std::string line =
        "\r[" + std::string(filled, '#') + std::string(kBarWidth - filled, ' ') + "] " + counts;
    const double seconds = (clock_.Now() - app_->run.StartTime) * 86400.0;
    if (seconds > 0) line += ", " + Number(done / seconds) + "/s";
    err_ << line << "\x1b[K" << std::flush;
    progressLineOpen_ = true;
    return;
  }
  const int tenth = static_cast<int>(std::floor(fraction * 10));
  if (tenth == lastTenth_) return;
  lastTenth_ = tenth;
  err_ << Cp1252ToUtf8(templateName_) << ": " << counts << " (" << tenth * 10 << "%)\n";
}

void UnattendedUi::EndProgressLine() {
  if (!progressLineOpen_) return;
  err_ << "\n";
  progressLineOpen_ = false;
}

}  // namespace tolmen
