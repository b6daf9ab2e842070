// What the Maximizer tests share: a real maxsim serving address books made from descriptions in
// a temporary folder, and an application played by the script front-end on a virtual clock, whose
// Ui lets a test act at a dialog or a yield (as a user would, or as the world around does).
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "common/MaxsimProcess.h"
#include "common/TempDir.h"
#include "platform/ui/Clock.h"
#include "platform/ui/ScriptUi.h"
#include "runtime/DateTime.h"
#include "shell/Tolmen.h"

namespace tolmen::test {

// tools/maxsim/samples/demo.json.
nlohmann::json DemoBook();

// A Ui that hands everything to another and first runs a test's hooks: before each message box
// (with its text and title) and before each yield.
class HookedUi final : public Ui {
 public:
  explicit HookedUi(Ui& inner) : inner_(inner) {}
  std::function<void(const std::string& prompt, const std::string& title)> beforeMsgBox;
  std::function<void()> beforeYield;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override {
    if (beforeMsgBox) beforeMsgBox(prompt, title);
    return inner_.MsgBox(prompt, style, title);
  }
  void Yield(long clientOrdinal) override {
    if (beforeYield) beforeYield();
    inner_.Yield(clientOrdinal);
  }
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override {
    return inner_.InputBox(prompt, title, defaultText);
  }
  bool FileDialog(const FileDialogRequest& request, std::string& path) override {
    return inner_.FileDialog(request, path);
  }
  void Beep() override { inner_.Beep(); }
  void Wait(double seconds) override { inner_.Wait(seconds); }
  void Run(WindowModel& window) override { inner_.Run(window); }
  void SetMainWindow(WindowModel* window) override { inner_.SetMainWindow(window); }
  void RegisterTimer(Timer& timer) override { inner_.RegisterTimer(timer); }
  void UnregisterTimer(Timer& timer) override { inner_.UnregisterTimer(timer); }
  void SetClipboardText(const std::string& text) override { inner_.SetClipboardText(text); }
  std::string ClipboardText() override { return inner_.ClipboardText(); }
  std::string PrinterName() override { return inner_.PrinterName(); }
  bool PrintText(const std::string& text) override { return inner_.PrintText(text); }
  bool OpenInEditor(const std::string& path) override { return inner_.OpenInEditor(path); }
  bool ShowHelp(const std::string& file, const std::string& page) override {
    return inner_.ShowHelp(file, page);
  }
  bool HasTray() override { return inner_.HasTray(); }
  void TrayAdd(const std::string& tip) override { inner_.TrayAdd(tip); }
  void TrayModify(const std::string& tip) override { inner_.TrayModify(tip); }
  void TrayRemove() override { inner_.TrayRemove(); }
  void SetBusyPointer(bool busy) override { inner_.SetBusyPointer(busy); }
  bool AnimationOpen(const std::string& path) override { return inner_.AnimationOpen(path); }
  void AnimationPlay() override { inner_.AnimationPlay(); }
  void AnimationStop() override { inner_.AnimationStop(); }
  void AnimationClose() override { inner_.AnimationClose(); }

 private:
  Ui& inner_;
};

// A maxsim instance: address books made with `maxsim init` in folders of `root`, served on
// `socket` by `maxsim serve`, driven by `maxsim ctl`.
class Maxsim {
 public:
  Maxsim(const std::string& root, std::string socket);
  ~Maxsim();
  Maxsim(const Maxsim&) = delete;
  Maxsim& operator=(const Maxsim&) = delete;

  // Makes ROOT/NAME from the description; the folder's absolute path.
  std::string Init(const std::string& name, const nlohmann::json& description);
  // Serves the folder; false unless "ready" comes within 10 seconds.
  bool Serve(const std::string& folder);
  // SIGKILL, and the process reaped.
  void Kill();

  RunResult Ctl(const std::vector<std::string>& args) const { return CtlMaxsim(socket_, args); }
  // The journal's lines, and the journal cleared.
  std::vector<std::string> TakeJournal() const { return TakeMaxsimJournal(socket_); }

 private:
  void Stop();

  std::string root_;
  std::string socket_;
  pid_t pid_ = -1;
  int stdout_ = -1;
};

// A temporary folder with maxsim's socket in it, and the application over a script.
class MaximizerTest : public ::testing::Test {
 protected:
  MaximizerTest();
  ~MaximizerTest() override;

  // A fresh application with the script's lines as its user, the Maximizer controls wired.
  void Start(const std::vector<std::string>& script = {});
  // Makes the demo book (or the one given) and serves it; its folder.
  std::string ServeBook(const nlohmann::json& description = DemoBook());

  std::string Transcript() const { return transcript_.str(); }
  // The number of times `text` stands in the transcript.
  int Count(const std::string& text) const;
  // The run log's lines.
  std::vector<std::string> LogLines();

  TempDir dir_{"tolmen-max-"};
  std::string socket_;
  Maxsim maxsim_;
  VirtualClock clock_{DateFromParts(2026, 11, 23, 9, 0, 0)};
  std::ostringstream transcript_;
  std::unique_ptr<ScriptUi> script_;
  std::unique_ptr<HookedUi> ui_;
  std::unique_ptr<Tolmen> app_;
};

// The position of each wanted entry in `lines`, in order; fails the test when one is missing.
void ExpectInOrder(const std::vector<std::string>& lines, const std::vector<std::string>& wanted);

}  // namespace tolmen::test
