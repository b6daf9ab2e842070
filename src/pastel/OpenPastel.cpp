#include "pastel/OpenPastel.h"

#include <vector>

#include "pastel/pasDCParm.h"
#include "pastel/pasDcodeFile.h"
#include "pastel/pasDebtor.h"
#include "pastel/pasDelivery.h"
#include "pastel/pasGParm.h"
#include "pastel/pasTaxParameters.h"
#include "pastel/pasUParm.h"
#include "pastel/pasUser.h"
#include "platform/recordmanager/BtrCodes.h"
#include "recordio/StatusCatalogue.h"
#include "recordio/TextHelpers.h"
#include "runtime/Conversion.h"
#include "runtime/DateTime.h"
#include "runtime/Format.h"
#include "runtime/Strings.h"
#include "runtime/Trap.h"
#include "shell/Busy.h"
#include "shell/RunLog.h"
#include "shell/Tolmen.h"
#include "toolkit/quilletToolkit.h"

namespace tolmen {
namespace {

constexpr const char* kSettingsSection = "Settings";
constexpr int kVersionOffset = 904;  // where older system parameter files keep the version

void SetBusyEnd(Tolmen& app) {
  SetBusy(app, true);
}

// The lines of a message joined by the program's line break.
std::string Lines(const std::vector<std::string>& lines, const std::string& lineBreak) {
  return Join(lines, lineBreak);
}

std::string StatusWords(int status) {
  return StatusText(static_cast<std::int16_t>(status));
}

// The input box's prompt after the toolkit's test of the folder gave `status`.
std::string ToolkitFailurePrompt(Tolmen& app, const std::string& folder,
                                 const std::string& status) {
  return Lines({app.info.AppName + " was unable to open the selected set of Pastel Accounts!",
                "Pervasive Error: " + StatusWords(static_cast<int>(Val(status))),
                "on file " + folder + "ACCMASD.DAT", "The folder " + folder + " may not be a",
                std::string(kExpectedPastelProduct) + " Data folder.",
                "Please enter the correct folder, or Cancel."},
               app.info.LineBreak);
}

// The input box's prompt after the system parameter file failed with `status`.
std::string ParameterFailurePrompt(Tolmen& app, const std::string& folder, int status) {
  return Lines({app.info.AppName + " was unable to open the selected set of Pastel Accounts!",
                "BTrieve Status = " + std::to_string(status) + " (" + StatusWords(status) +
                    ") on AccPrmsy.DAT",
                "", "The folder " + folder, "may not be a",
                std::string(kExpectedPastelProduct) + " Data folder.", "",
                "Please enter the correct folder, or Cancel."},
               app.info.LineBreak);
}

// The Yes/No question of an empty file; true for Yes.
bool EmptyFileAccepted(Tolmen& app, const std::string& text) {
  const int answer = app.ui.MsgBox(text + app.info.LineBreak + "Is this OK?", vbYesNo + vbQuestion,
                                   app.info.AppName + " - Opening Pastel");
  return answer == vbYes;
}

bool OpenFailed(Tolmen& app, const std::string& detail) {
  app.ui.MsgBox("Pastel did not open successfully:" + app.info.LineBreak + detail, vbCritical,
                app.info.AppTitle);
  ClosePasFiles(app);
  SetBusyEnd(app);
  return false;
}

std::string MonthText(const Variant& date) {
  return Format(date, "mmm yyyy");
}

// A setting that should hold a date; one that holds none (the default "0" included) reads as a
// day long past, so that the question is asked.
double SettingDate(Tolmen& app, const std::string& key) {
  const std::string text = app.settings.GetSetting(kSettingsSection, key, "0");
  try {
    return CDate(Variant(text));
  } catch (const RuntimeError&) {
    return 0;
  }
}

// Period 13: when the switch of field 681 is on and Pastel shows period 1 although the calendar
// has left it, the user is asked once whether Pastel is in period 13; the answer holds until
// thirteen months after the period's start. A Yes moves the ageing period on by 12.
void DecidePeriod13(Tolmen& app, pasGParm& gparm, std::string& periodMonth) {
  PastelSetState& set = app.pastel;
  if (CInt(gparm.default_(681)) < 1 || set.AgingPeriod != 1) return;
  const double periodStart = CDate(Variant("1 " + periodMonth));
  const double now = app.clock.Now();
  if (!(DateAdd("m", 1, periodStart) < now)) return;

  int answer = 0;
  if (SettingDate(app, "Period13to") > now)
    answer = static_cast<int>(Val(app.settings.GetSetting(kSettingsSection, "Period13on", "0")));
  if (answer == 0) {
    answer = app.ui.MsgBox("Is Pastel (" + set.PastelCompanyName + ") in Period 13?",
                           vbYesNo + vbQuestion, "Period 13 Processing ON?");
    app.settings.SaveSetting(kSettingsSection, "Period13on", std::to_string(answer));
    app.settings.SaveSetting(kSettingsSection, "Period13to",
                             FormatDate(DateAdd("m", 13, periodStart), "dd mmm yyyy"));
  }
  if (answer == vbYes) {
    set.AgingPeriod += 12;
    periodMonth = MonthText(gparm.default_(36 + set.AgingPeriod));
  }
}

// The ageing note on its label: the button face when the ageing period ends in the present
// month, red otherwise.
void ShowAgingNote(Tolmen& app, const std::string& periodMonth) {
  Label& label = app.screen.frmMain.lblAging;
  label.SetCaption("Aging Note: Pastel is in Period " + std::to_string(app.pastel.AgingPeriod) +
                   " ending " + periodMonth);
  const bool current = periodMonth == FormatDate(app.clock.Now(), "mmm yyyy");
  label.SetBackColor(current ? vbButtonFace : vbRed);
}

bool OpenPastelSteps(Tolmen& app, bool& result) {
  PastelFiles& files = app.pastelFiles;
  SetBusy(app);
  ClosePasFiles(app);
  app.ui.Yield();

  std::string folder = app.screen.frmMain.Dir1.Text();
  if (Right(folder, 1) != "/") folder += "/";

  for (;;) {
    std::string prompt;
    const std::string status = app.toolkit.SetDataPath(folder);
    const auto statusValue = static_cast<int>(Val(status));
    if (statusValue != kStatusOk && statusValue != kStatusEndOfFile) {
      prompt = ToolkitFailurePrompt(app, folder, status);
    } else {
      pasUParm& uparm = files.UParm();
      uparm.FileName = "\"" + folder + "AccPrmsy.dat\"";
      uparm.OPEN_();
      if (uparm.STATUS_ == kStatusOk) {
        uparm.GET_LOWEST();
        uparm.FROMFILE();
        if (uparm.STATUS_ == kStatusOk) break;
      }
      prompt = ParameterFailurePrompt(app, folder, uparm.STATUS_);
    }
    const std::string answer = app.ui.InputBox(prompt, app.info.AppTitle, folder);
    if (answer.empty()) {
      SetBusyEnd(app);
      ClosePasFiles(app);
      return false;
    }
    folder = answer;
  }
  app.ui.Yield();

  pasUParm& uparm = files.UParm();
  std::string versionText = Trim(uparm.default_(13).Text());
  if (versionText.empty()) versionText = Trim(Mid(uparm.Image(), kVersionOffset + 1, 3));
  const PastelProductVersion decided = DecidePastelProduct(versionText);
  app.pastel.PastelProduct = decided.product;
  app.pastel.PastelVersion = decided.version;
  app.screen.frmMain.fraPastel.SetCaption("Pastel Accounts Ver " + app.pastel.PastelVersion);

  const std::string& br = app.info.LineBreak;
  if (app.pastel.PastelProduct != kExpectedPastelProduct) {
    const int answer = app.ui.MsgBox(
        Lines({"This version of " + app.info.AppName + " only works with " + kExpectedPastelProduct,
               "Unexpected errors may occur if you open files from other versions.", "",
               "Do you really want to open " + app.pastel.PastelProduct + "  (" +
                   app.pastel.PastelVersion + ") on",
               folder + " ?"},
              br),
        vbYesNo + vbCritical + vbDefaultButton2, "DANGER: " + app.pastel.PastelProduct);
    if (answer == vbNo) {
      SetBusyEnd(app);
      ClosePasFiles(app);
      return false;
    }
  }

  pasUser& user = files.User();
  user.FileName = "\"" + folder + "AccUser.dat\"";
  user.OPEN_();
  if (user.STATUS_ != kStatusOk) {
    app.ui.MsgBox(Lines({"The User file " + folder + "accuser.dat could not be opened.",
                         "Btrieve Status = " + std::to_string(user.STATUS_) + " (" +
                             StatusWords(user.STATUS_) + ")",
                         "Please ensure that the selected folder is a Pastel data directory."},
                        br),
                  vbCritical);
    SetBusyEnd(app);
    return result;
  }

  pasTaxParameters& tax = files.TaxParameters();
  tax.FileName = folder + pasTaxParameters::kFileName;
  tax.OPEN_();

  app.pastel.PastelDataPath = folder;
  if (!OpenAndInitPastel(app)) result = false;
  app.run.CurrentSection = "Function OpenPastel";

  files.UParm().CLOSE_();
  files.ReleaseUParm();
  SetBusyEnd(app);
  return result;
}

}  // namespace

PastelProductVersion DecidePastelProduct(const std::string& versionText) {
  const std::string first = Left(versionText, 1);
  PastelProductVersion out{"", versionText};
  if (first == "9") {
    out.product = kExpectedPastelProduct;
    out.version = "9." + std::to_string(Asc(Mid(versionText, 2, 1))) + "." +
                  std::to_string(Asc(Mid(versionText, 3, 1)));
  } else if (first == "8") {
    out.product = "Pastel Accounting 2005 (8)";
  } else if (EqualsNoCase(versionText, "V7")) {
    out.product = "Pastel Accounting 2004 (7)";
  } else if (EqualsNoCase(versionText, "V6")) {
    out.product = "Pastel Accounting 6.0";
  } else if (versionText == "6") {
    out.product = "Pastel Partner 5.2";
  } else if (StrComp(first, "5", vbTextCompare) <= 0) {
    out.product = "Pastel Partner " + versionText + ".0";
  } else {
    out.product = "Pastel Accounting " + versionText;
  }
  return out;
}

std::string PastelNumberFormatFor(const std::string& field671) {
  const std::string text = StripField(field671);
  const std::string separator = Mid(text, 1, 1);
  const auto decimals = static_cast<long>(Val(Mid(text, 2, 1)));
  std::string currency;
  for (char c : Trim(Mid(text, 3))) currency += std::string("\\") + c;
  return currency + separator + "###" + separator + "##0." + String(decimals, '0');
}

std::string PastelDateMaskFor(const std::string& field14) {
  const std::string year = Mid(field14, 1, 1) == "1" ? "##" : "####";
  const std::string order = Mid(field14, 2, 1);
  const std::string separator = Mid(field14, 3, 1);
  if (order == "1" || order == "2") return "##" + separator + "##" + separator + year;
  if (order == "3") return year + separator + "##" + separator + "##";
  return "";
}

void SetPastelFormats(Tolmen& app, PastelFormat which) {
  if (which == PastelFormat::Number)
    app.pastel.PastelNumberFormat =
        PastelNumberFormatFor(app.pastelFiles.GParm().default_(671).Text());
  else
    app.pastel.PastelDateMask = PastelDateMaskFor(app.pastelFiles.UParm().default_(14).Text());
}

bool OpenPastel(Tolmen& app) {
  app.run.CurrentSection = "Function OpenPastel";
  bool result = true;
  try {
    return OpenPastelSteps(app, result);
  } catch (const std::exception& error) {
    const RuntimeError failure = ToRuntimeError(error);
    const std::string text = app.run.CurrentSection + app.info.LineBreak + "Error " +
                             std::to_string(failure.Number()) + ": " + failure.Description();
    app.ui.MsgBox(text, vbCritical, app.info.AppTitle);
    LogError(app, StripForLog(text));
    SetBusyEnd(app);
    return false;
  }
}

bool OpenAndInitPastel(Tolmen& app) {
  app.run.CurrentSection = "Function OpenAndInitPastel";
  PastelFiles& files = app.pastelFiles;
  PastelSetState& set = app.pastel;
  const std::string& br = app.info.LineBreak;
  SetBusy(app);
  set.PastelFirstUserTag = StripField(files.User().default_(3).Text());

  pasDebtor& debtor = files.Debtor();
  debtor.FileName = set.PastelDataPath + pasDebtor::kFileName;
  debtor.OPEN_();
  if (debtor.STATUS_ != kStatusOk) {
    const std::string detail =
        StatusWords(debtor.STATUS_) + " Opening Debtor File:" + br + debtor.FileName;
    if (debtor.STATUS_ != kStatusEndOfFile ||
        !EmptyFileAccepted(app, "There are no Debtors in Pastel yet."))
      return OpenFailed(app, detail);
  }

  pasGParm& gparm = files.GParm();
  gparm.FileName = set.PastelDataPath + pasGParm::kFileName;
  gparm.OPEN_();
  if (gparm.STATUS_ != kStatusOk)
    return OpenFailed(app, StatusWords(gparm.STATUS_) + " Opening GParm File " + gparm.FileName);
  gparm.GET_LOWEST();
  gparm.FROMFILE();

  set.PastelCompanyName = StripField(gparm.default_(660).Text());
  set.AgingPeriod = CInt(gparm.default_(89));
  set.CurrentPeriod = CInt(gparm.default_(8));
  set.PeriodsInYear = CInt(gparm.default_(681)) >= 1 ? 13 : 12;
  std::string periodMonth = MonthText(gparm.default_(36 + set.AgingPeriod));
  DecidePeriod13(app, gparm, periodMonth);
  ShowAgingNote(app, periodMonth);
  set.CurrentPeriodEnd = CDate(gparm.default_(36 + set.CurrentPeriod));
  SetPastelFormats(app, PastelFormat::Number);
  gparm.CLOSE_();

  pasDCParm& dcparm = files.DCParm();
  dcparm.FileName = set.PastelDataPath + pasDCParm::kFileName;
  dcparm.OPEN_();
  if (dcparm.STATUS_ != kStatusOk)
    return OpenFailed(app, StatusWords(dcparm.STATUS_) + " Opening DCParm File " + dcparm.FileName);
  dcparm.GET_LOWEST();
  dcparm.FROMFILE();

  pasDelivery& delivery = files.Delivery();
  delivery.FileName = set.PastelDataPath + pasDelivery::kFileName;
  delivery.OPEN_();
  if (delivery.STATUS_ != kStatusOk && delivery.STATUS_ != kStatusEndOfFile)
    return OpenFailed(
        app, StatusWords(delivery.STATUS_) + " Opening Delivery File " + delivery.FileName);

  pasDcodeFile& categories = files.DcodeFile();
  categories.FileName = set.PastelDataPath + pasDcodeFile::kFileName;
  categories.OPEN_();
  if (categories.STATUS_ != kStatusOk) {
    const std::string detail =
        StatusWords(categories.STATUS_) + " Opening DrCat File:" + br + categories.FileName;
    if (categories.STATUS_ != kStatusEndOfFile ||
        !EmptyFileAccepted(app, "There are no Debtor Categories."))
      return OpenFailed(app, detail);
  }

  SetPastelFormats(app, PastelFormat::Date);
  SetBusyEnd(app);
  return true;
}

void ClosePasFiles(Tolmen& app) {
  PastelFiles& files = app.pastelFiles;
  if (files.closing) return;
  files.closing = true;
  const std::string caller = app.run.CurrentSection;
  // The labels say what is being closed while it runs; the caller's stage comes back after.
  struct Guard {
    bool& flag;
    std::string& stage;
    std::string caller;
    ~Guard() {
      flag = false;
      stage = caller;
    }
  } guard{files.closing, app.run.CurrentSection, caller};
  app.screen.frmMain.fraPastel.SetCaption("Pastel Accounts: ");
  app.run.CurrentSection = "Closing files in ClosePasFiles from " + caller;
  files.CloseAndReleaseAll();
  app.run.CurrentSection = "Closed files in ClosePasFiles from " + caller;
  if (files.closeClientFile) {
    app.run.CurrentSection = "Closing Clients in ClosePasFiles from " + caller;
    files.closeClientFile(app);
  }
}

void Dir1_Change(Tolmen& app) {
  app.billing.InventoryLoaded = false;
  app.screen.frmMain.fraPastel.SetCaption("Pastel Accounts");
}

void Drive1_Change(Tolmen& app) {
  app.billing.InventoryLoaded = false;
  app.screen.frmMain.fraPastel.SetCaption("Pastel Accounts");
  app.screen.frmMain.Dir1.SetText(app.screen.frmMain.Drive1.Text());
}

}  // namespace tolmen
