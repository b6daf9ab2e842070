// An application in a temporary home, played by a script on a virtual clock, with small fakes.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "common/TempDir.h"
#include "common/TestText.h"
#include "platform/ui/ScriptUi.h"
#include "recordio/BtGlobal.h"
#include "runtime/DateTime.h"
#include "screen/ScreenActions.h"
#include "shell/Application.h"
#include "shell/ProgressLine.h"
#include "shell/Tolmen.h"

namespace tolmen::testing {

namespace fs = std::filesystem;

using test::ReadFile;

inline void WriteText(const std::string& path, const std::string& text) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

class ShellFixture : public ::testing::Test {
 protected:
  // 15 June 2024, 12:00.
  static constexpr double kNoon = 45458.5;

  // A fresh application with the script's lines as its user and `commandLine` as its arguments.
  void Start(const std::vector<std::string>& script, const std::string& commandLine = "") {
    app_.reset();
    window_.reset();
    transcript_.str("");
    fs::create_directories(Home());  // as ResolveAppFolder leaves it
    clock_.Set(kNoon);
    ui_ = std::make_unique<ScriptUi>(script, &transcript_, clock_, "Tolmen");
    app_ = std::make_unique<Tolmen>(MakeAppInfo(Home(), "1.0.0"), *ui_, clock_, SettingsPath());
    app_->shell.CommandLine = commandLine;
    window_ = std::make_unique<ScreenActions>(app_->screen);
  }
  // The whole life of the application: load, first activation, the script, close.
  int RunApp() { return RunApplication(*app_, *window_); }

  std::string Home() const { return dir_.File("home") + "/"; }
  std::string SettingsPath() const { return dir_.File("config/Vellumator7/settings.ini"); }
  std::string Transcript() const { return transcript_.str(); }
  std::string Log() const { return ReadFile(app_->log.Path()); }

  // Templates read when their file exists (each read noted), Maximizer accepted, fixed options.
  void FakeStartStages() {
    RunStages& stages = app_->stages;
    stages.TemplateOpen = [this](const std::string& path, bool) {
      opened_.push_back(path);
      return fs::exists(path);
    };
    stages.TemplateSave = [this](const std::string& path) { saved_.push_back(path); };
    stages.OpenMaximizerOLE = [] { return true; };
    stages.SetOptions = [this] {
      app_->options.AccountNumber.name = "Pastel Account";
      app_->options.ImportWhichData = 1;
    };
  }

  // A loop writing a debtor a minute per client, yielding as the real one does, honouring stops.
  void FakeClientLoop(int clients, bool writeDebtors = true) {
    app_->stages.TransferClients = [this, clients, writeDebtors] {
      Tolmen& app = *app_;
      RunState& run = app.run;
      run.TaskTitle = "Updating Pastel Debtors and/or Maximizer UDFs";
      app.screen.frmMain.ProgressBar1.SetMax(clients);
      run.StartTime = app.clock.Now();
      for (long n = 1; n <= clients; ++n) {
        clock_.Sleep(60);
        ++run.ClientsScanned;
        if (writeDebtors) ++run.DebtorsWritten;
        UpdateProgressLine(app, static_cast<double>(n));
        app.ui.Yield(n);
        ++clientsDone_;
        if (run.StopRequest == kStopEnd) break;
        if (run.StopRequest == kStopCancel) {
          AbortTransaction(app);
          break;
        }
      }
    };
  }

  test::TempDir dir_{"tolmen-shell-"};
  VirtualClock clock_{kNoon};
  std::ostringstream transcript_;
  std::unique_ptr<ScriptUi> ui_;
  std::unique_ptr<Tolmen> app_;
  std::unique_ptr<ScreenActions> window_;
  std::vector<std::string> opened_;
  std::vector<std::string> saved_;
  // CheckForAutoRun looked at the (missing) auto-run file: it leaves a list of one empty entry.
  bool AutoRunLooked() const { return !app_->background.TemplateList.empty(); }
  int clientsDone_ = 0;
};

}  // namespace tolmen::testing
