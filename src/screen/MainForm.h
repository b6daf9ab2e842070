// frmMain, the wizard's main form: the six-page tab control, the buttons under it, the menus, the
// status label, the Transfer page's heading, progress labels, bar and animation, the "Today is"
// box, the logo and the two timers.
//
// Each page's own controls are a struct of their own under src/screen/pages/, which frmMain
// inherits; adding a control there is one member line and one entry in the page's list.
//
// Fixed layout choices:
// - lblProgress(0) is the Transfer page's instruction line ("Click the 'Import' button ..."),
//   (1) the counters, (2) the progress line with its estimate, (3) the current client, (4) the
//   skipped client. lblHeading is the page's title ("Import", "Import and Billing").
// - The File menu's separators are items 10, 30, 45 and 60 of mnuFile.
// - mnuOptnMulti(0) stands for "method not chosen", (1) to (3) for the three methods.
#pragma once

#include <functional>

#include "platform/ui/Timer.h"
#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/ListControls.h"
#include "screen/Menu.h"
#include "screen/OptionButton.h"
#include "screen/TabControl.h"
#include "screen/pages/CasualBillingPage.h"
#include "screen/pages/OpenPage.h"
#include "screen/pages/RecurringBillingPage.h"
#include "screen/pages/ToMaximizerPage.h"
#include "screen/pages/ToPastelPage.h"
#include "screen/pages/TransferPage.h"

namespace tolmen {

class MainForm : public Form,
                 public OpenPage,
                 public ToPastelPage,
                 public ToMaximizerPage,
                 public RecurringBillingPage,
                 public CasualBillingPage,
                 public TransferPage {
 public:
  // The pages of tabDlg.
  static constexpr int kTabOpen = 0;
  static constexpr int kTabToPastel = 1;
  static constexpr int kTabToMaximizer = 2;
  static constexpr int kTabRecurringBilling = 3;
  static constexpr int kTabCasualBilling = 4;
  static constexpr int kTabTransfer = 5;

  // The notification icon's mouse messages, as its callback hands them to the form: a button
  // let go, and a double click, of the left and the right button.
  static constexpr int kTrayLeftUp = 514;
  static constexpr int kTrayLeftDoubleClick = 515;
  static constexpr int kTrayRightUp = 517;
  static constexpr int kTrayRightDoubleClick = 518;

  MainForm();

  using TrayHandler = std::function<void(int message)>;
  void SetOnTrayMessage(TrayHandler handler) { onTray_ = std::move(handler); }
  bool HasTrayHandler() const { return static_cast<bool>(onTray_); }
  void TrayMessage(int message) {
    if (onTray_) onTray_(message);
  }

 private:
  TrayHandler onTray_;

  void RegisterPage(const PageControls& page, int tab);

 public:
  TabControl tabDlg{"tabDlg"};
  Button cmdBack{"cmdBack", "<< &Back"};
  Button cmdNext{"cmdNext", "&Next >>"};
  Button cmdSave{"cmdSave", "&Save"};
  Button cmdAbort{"cmdAbort", "&Pause"};
  Button cmdHelp{"cmdHelp", "&Help"};

  MenuItem mnuFileTop{"mnuFileTop", "&File"};
  MenuArray mnuFile{"mnuFile"};
  MenuItem mnuView{"mnuView", "&View"};
  MenuItem mnuViewMaximizer{"mnuViewMaximizer", "&To Maximizer"};
  MenuItem mnuViewBillR{"mnuViewBillR", "&Recurring Billing"};
  MenuItem mnuViewBillC{"mnuViewBillC", "&Casual Billing"};
  MenuItem mnuOptn{"mnuOptn", "&Options"};
  MenuItem mnuOptnPastel{"mnuOptnPastel", "&Pastel Debtor Settings..."};
  MenuItem mnuOptnPas2Max{"mnuOptnPas2Max", "&Update Maximizer from Pastel"};
  MenuItem mnuOptnMax2Pas{"mnuOptnMax2Pas", "Pastel to Maximizer &Only"};
  MenuItem mnuOptnShowMax{"mnuOptnShowMax", "Keep Maximizer Visible"};
  MenuItem mnuOptnDebug{"mnuOptnDebug", "&Debugging Level..."};
  MenuItem mnuOptnMultiTop{"mnuOptnMultiTop", "&Multi-Year Billing"};
  MenuArray mnuOptnMulti{"mnuOptnMulti"};
  MenuItem mnuHelp{"mnuHelp", "&Help"};
  MenuItem mnuHelpContents{"mnuHelpContents", "&Contents"};
  MenuItem mnuHelpAbout{"mnuHelpAbout", "&About..."};

  Label lblStatus{"lblStatus"};
  Label lblToday{"lblToday", "Today is"};
  TextBox txtToday{"txtToday"};
  // The billing date's buttons: 0 and 1 a day later and earlier, 2 and 3 a month.
  ControlArray<Button> updToday{"updToday"};
  Image Image1{"Image1"};
  Label lblUDFkey{"lblUDFkey"};
  Label lblAging{"lblAging"};

  // The Transfer page.
  Label lblHeading{"lblHeading", "Import"};
  ControlArray<Label> lblProgress{"lblProgress"};
  ProgressBar ProgressBar1{"ProgressBar1"};
  Animation Animation1{"Animation1"};

  // Timer1 counts the minutes of background mode, Timer2 serves the one-second waits.
  Timer Timer1{"Timer1"};
  Timer Timer2{"Timer2"};
};

}  // namespace tolmen
