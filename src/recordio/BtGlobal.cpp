#include "recordio/BtGlobal.h"

#include <cstdio>
#include <vector>

#include "platform/automation/MaximizerAutomation.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/AcceptedStatuses.h"
#include "recordio/BtObject.h"
#include "recordio/StatusCatalogue.h"
#include "recordio/TextHelpers.h"
#include "runtime/Cp1252.h"
#include "runtime/Format.h"
#include "runtime/RuntimeError.h"
#include "runtime/Strings.h"
#include "shell/ProcessEnd.h"
#include "shell/RunLog.h"
#include "shell/Shutdown.h"
#include "shell/Tolmen.h"

namespace tolmen {
namespace {

// Maximizer minimised with its reminders back on, and the automation objects let go, whatever
// Maximizer answers: the process is going down.
void LetMaximizerGo(Tolmen& app) {
  if (app.maximizer.Attached()) {
    try {
      app.maximizer.Application().SetVisibilityState("Min");
      app.maximizer.Application().SetAlarm("On");
    } catch (const RuntimeError&) {
      // Maximizer is gone or refuses: nothing more to give back.
    }
  }
  app.maximizer.Release();
}

constexpr const char* kClipboardNote =
    "(this is now on the Clipboard for you to paste into your Web Browser)";

std::string PadTo255(const std::string& key) {
  return key.size() < 255 ? key + std::string(255 - key.size(), ' ') : key;
}

std::string OperationText(int32_t operation) {
  return OperationName(operation) + " (" + std::to_string(operation) + ")";
}

// The text of a path without its trailing NULs and blanks.
std::string TrimPath(const std::string& text) {
  const auto end = text.find_last_not_of(std::string(" \0", 2));
  return end == std::string::npos ? "" : text.substr(0, end + 1);
}

void CallRecordManager(Tolmen& app, int32_t operation) {
  BtGlobalState& bt = app.bt;
  bt.BtStatus = app.engine.BTRCALL(static_cast<uint16_t>(operation), bt.PosBlk, bt.DataBuf,
                                   bt.DBLen, bt.KeyBuf, bt.KBLen, bt.KeyNum);
}

// Status 22 on the Maximizer client file: a longer record than the buffer is normal for a Get
// Equal and asked about for anything else. Returns whether the status is still unexpected.
bool AcceptStatus22(Tolmen& app, int32_t operation) {
  bool unexpected = true;
  if (operation == kOpGetEqual) {
    unexpected = false;
  } else {
    const std::string& br = app.info.LineBreak;
    const int answer = app.ui.MsgBox("Accept Unexpected BTrieve Status 22 in maxClients?" + br +
                                         "Operation = " + app.run.CurrentSection + br +
                                         "Operation Code = " + OperationText(operation),
                                     vbYesNo + vbCritical, "Kludge in " + app.info.AppTitle);
    unexpected = answer != vbYes;
    LogError(app, std::string("Unexpected BTrieve Status 22 in maxClients --") +
                      (unexpected ? "REJECTED" : "Accepted"));
  }
  if (!unexpected) {
    app.bt.BtStatus = kStatusOk;
    ++app.run.AcceptedStatus22;
    if (app.shell.DebugLevel > 0)
      LogEntry(app, 8,
               ">>> Accepted BTrieve Status 22 in maxClients: " + app.run.CurrentSection +
                   ", Op Code = " + OperationText(operation));
  }
  return unexpected;
}

std::vector<std::string> FatalMessage(Tolmen& app, const BtObject& object, int32_t operation,
                                      const std::optional<std::string>& label) {
  const int16_t status = app.bt.BtStatus;
  std::vector<std::string> lines;
  lines.push_back("Unexpected BTrieve Status in Sub GlobalIO - Program Cannot Continue!");
  lines.push_back(FormatDate(app.clock.Now(), "dd mmmm yyyy  hh:mm"));
  if (UCase(object.FileName).find("ACC") != std::string::npos)  // without regard to case
    lines.push_back(app.pastel.PastelProduct + "   " + " = " + app.pastel.PastelVersion);
  lines.push_back("BTrieve Status = " + std::to_string(status) + " (" + StatusText(status) + ")");
  lines.push_back("For details, see Web Address:");
  lines.push_back(StatusHelpPage(status));
  lines.push_back(kClipboardNote);
  lines.push_back("Operation = " + app.run.CurrentSection);
  lines.push_back("File Name = " + object.ClassName);
  lines.push_back("Operation Code = " + OperationText(operation));
  lines.push_back("File Location = " + object.FileName);
  lines.push_back("Key = " + std::to_string(app.bt.KeyNum));
  lines.push_back("Key Buffer = " + CleanText(app.bt.KeyBuf));
  if (label) lines.push_back("Code Section = " + *label);
  lines.push_back(
      "If restarting the PC does not fix this, contact your Supplier and e-mail them this "
      "message.");
  lines.push_back("Would you like to Print this Message?");
  lines.push_back("Yes = Print to " + app.ui.PrinterName());
  lines.push_back("No  = Put Message on the Clipboard, to paste into an e-mail.");
  lines.push_back("Cancel = Close down, or proceed at your own risk!");
  return lines;
}

// The fatal dialog. It never returns: the user either shuts the program down or "carries on",
// which stops the process all the same.
[[noreturn]] void FatalDialog(Tolmen& app, BtObject& object, int32_t operation,
                              const std::optional<std::string>& label) {
  const std::string& br = app.info.LineBreak;
  app.ui.SetClipboardText(StatusHelpPage(app.bt.BtStatus));
  const std::vector<std::string> lines = FatalMessage(app, object, operation, label);
  const std::string message = Join(lines, br);
  for (;;) {
    const int answer = app.ui.MsgBox(message, vbYesNoCancel + vbCritical, app.info.AppTitle);
    if (answer == vbCancel) break;
    if (answer == vbYes) {
      app.ui.PrintText(message);
    } else if (answer == vbNo) {
      std::vector<std::string> copy(lines.begin(), lines.end() - 2);
      for (std::string& line : copy)
        if (line == kClipboardNote) line = "(replaced on Clipboard)";
      app.ui.SetClipboardText(Join(copy, br));
    }
  }
  LogEntry(app, 8, message);

  const int answer = app.ui.MsgBox("Would you like to Shut Down " + app.info.AppName + " Now?" +
                                       br + "Yes = Close down Now!" + br +
                                       "No  = Set debugging high, and try to carry on.  MORE "
                                       "ERRORS MAY OCCUR!",
                                   vbYesNo + vbCritical);
  if (answer == vbYes) {
    CallRecordManager(app, kOpStop);
    CloseAllFiles(app);
    LetMaximizerGo(app);
    ShutDown(app);
  }
  app.shell.DebugLevel = 4;
  LogEntry(app, 8, "### SET Debug=4: Proceeding in GlobalIO.");
  // The words say "carry on", yet the process stops here with its files as they are.
  throw ProcessEnd{"GlobalIO"};
}

}  // namespace

std::string VisibleControls(const std::string& text) {
  std::string out;
  for (char c : text) {
    const auto b = static_cast<unsigned char>(c);
    if (b < 0x20 || b == 0x7F) {
      char hex[8];
      std::snprintf(hex, sizeof hex, "{%02X}", b);
      out += hex;
    } else {
      out += c;
    }
  }
  return out;
}

void GlobalIO(Tolmen& app, BtObject& object, int32_t operation,
              const std::optional<std::string>& key, const std::optional<std::string>& accepted,
              const std::optional<std::string>& label) {
  BtGlobalState& bt = app.bt;
  if (app.shell.DebugLevel > 3) LogEntry(app, 8, "# Debug: >>GlobalIO " + object.ClassName);
  if (operation != kOpOpen && !object.IsOpen) {
    object.STATUS_ = kStatusNotOpen;
    return;
  }

  object.MoveBuffer(0);
  bt.PosBlk = object.PosBlk;
  bt.DataBuf = object.DataBuf;
  bt.KeyBuf = object.KeyBuf;
  bt.DBLen = object.DBLen;
  bt.KBLen = object.KBLen;
  bt.KeyNum = object.KeyNum;
  if (key)
    bt.KeyBuf = PadTo255(*key);
  else if (bt.KeyBuf.empty())
    bt.KeyBuf = std::string(255, ' ');

  if (app.shell.DebugLevel > 2)
    LogEntry(app, 8,
             "# Debug: GlobalIO " + OperationSymbol(operation) + "|" +
                 VisibleControls(Join({std::to_string(bt.KeyNum), std::to_string(bt.KBLen),
                                       bt.KeyBuf, std::to_string(bt.DBLen), bt.DataBuf, bt.PosBlk},
                                      "|")));

  CallRecordManager(app, operation);

  if (operation == kOpOpen && bt.BtStatus == kStatusOk) {
    object.IsOpen = true;
    object.FileName = TrimPath(bt.KeyBuf);
    bt.DataBuf = std::string(static_cast<size_t>(object.RecordLength), ' ');
    bt.DBLen = object.RecordLength;
    bt.KeyBuf = std::string(static_cast<size_t>(bt.KBLen), ' ');
    CallRecordManager(app, kOpGetFirst);
  } else if (operation == kOpClose && (bt.BtStatus == kStatusOk || bt.BtStatus == kStatusNotOpen)) {
    object.IsOpen = false;
  } else if (operation == kOpStop) {
    object.IsOpen = false;
  }

  std::string list;
  if (accepted) {
    list = *accepted;
  } else {
    std::optional<std::string> row = AcceptedStatusList(operation);
    if (!row) throw RuntimeError(9);
    list = *row;
  }
  bool unexpected = bt.BtStatus != kStatusOk && !StatusInList(bt.BtStatus, list);
  if (unexpected && bt.BtStatus == kStatusDataBufferTooShort && object.ClassName == "maxCLIENTS")
    unexpected = AcceptStatus22(app, operation);
  if (unexpected) FatalDialog(app, object, operation, label);

  object.PosBlk = bt.PosBlk;
  object.DataBuf = bt.DataBuf;
  object.DBLen = bt.DBLen;
  object.KeyBuf = bt.KeyBuf;
  object.KBLen = bt.KBLen;
  object.STATUS_ = bt.BtStatus;
  object.MoveBuffer(1);
}

void BeginConcurrentTransaction(Tolmen& app) {
  CallRecordManager(app, kOpConcurrentBias + kOpBeginTransaction);
}
void EndTransaction(Tolmen& app) {
  CallRecordManager(app, kOpEndTransaction);
}
void AbortTransaction(Tolmen& app) {
  CallRecordManager(app, kOpAbortTransaction);
}

}  // namespace tolmen
