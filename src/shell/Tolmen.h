// The application: everything the system's modules and forms held, in one object per process.
// Routines take what they need from it; a test builds a fresh one with a scripted Ui, a virtual
// Clock and temporary folders.
#pragma once

#include "background/BackgroundState.h"
#include "billing/BillingState.h"
#include "maximizer/MaximizerLink.h"
#include "maximizer/UdfCatalogue.h"
#include "pastel/PastelFiles.h"
#include "pastel/PastelSetState.h"
#include "platform/recordmanager/RecordEngine.h"
#include "platform/ui/Clock.h"
#include "platform/ui/Ui.h"
#include "recordio/BtGlobal.h"
#include "screen/ScreenModel.h"
#include "screen/WizardState.h"
#include "shell/AppInfo.h"
#include "shell/RunLog.h"
#include "shell/RunStages.h"
#include "shell/Settings.h"
#include "shell/ShellState.h"
#include "templates/RunOptions.h"
#include "toolkit/quilletToolkit.h"
#include "transfer/ClientState.h"
#include "transfer/ImportFiles.h"
#include "transfer/RunState.h"

namespace tolmen {

class Tolmen {
 public:
  // `settingsPath` is the settings store's file; tests hand a temporary one.
  Tolmen(AppInfo appInfo, Ui& userInterface, Clock& timeSource,
         const std::string& settingsPath = Settings::DefaultPath())
      : info(std::move(appInfo)), ui(userInterface), clock(timeSource), settings(settingsPath) {
    log.SetFolder(info.AppFolder);
  }
  Tolmen(const Tolmen&) = delete;
  Tolmen& operator=(const Tolmen&) = delete;

  AppInfo info;
  Ui& ui;
  Clock& clock;
  Settings settings;
  ShellState shell;
  RunStages stages;  // tests' stand-ins for some routines; the product leaves them empty
  RunState run;
  ClientState client;  // the client being made a debtor
  RunOptions options;
  BillingState billing;
  BackgroundState background;  // the schedule of background mode
  ImportFileHandles importFiles{run, pastelFiles};
  PastelSetState pastel;
  RunLog log;
  RecordEngine engine;
  BtGlobalState bt;
  ScreenModel screen;
  WizardState wizard;              // what the wizard's page flow remembers
  PastelFiles pastelFiles{*this};  // the open set's record objects
  quilletToolkit toolkit{*this};
  MaximizerLink maximizer{*this};  // the automation link, the client file and the client list
  UdfCatalogue udfs;               // the UDFs of the accepted Maximizer database
};

}  // namespace tolmen
