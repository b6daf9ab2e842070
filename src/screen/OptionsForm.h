// frmOptions, the background mode options dialog: whether background mode is on, the schedule
// (a daily time or an interval in hours and minutes), the notification and the templates to run.
// Modal when shown; its logic fills and reads these controls.
#pragma once

#include "screen/Controls.h"
#include "screen/Form.h"
#include "screen/ListControls.h"
#include "screen/OptionButton.h"

namespace tolmen {

class OptionsForm : public Form {
 public:
  OptionsForm();

  CheckBox Check1{"Check1", "&Background Mode (Now and at Program Startup)"};
  CheckBox Check3{"Check3", "Notify After Update"};
  // optMethod(0) "&Time", optMethod(1) "&Interval".
  OptionArray optMethod{"optMethod"};
  Label lblTime{"lblTime", "Time to run (24-hour clock: 2 pm = 14:00)"};
  TextBox txtTime{"txtTime"};
  Label lblHours{"lblHours", "Hours:"};
  TextBox txtHours{"txtHours"};
  Label lblMins{"lblMins", "Minutes:"};
  TextBox txtMins{"txtMins"};
  Label lblTemplates{"lblTemplates", "Templates to run:"};
  ListBox lstTemplates{"lstTemplates"};
  Button cmdBrowse{"cmdBrowse", "Add Template"};
  Button cmdRemove{"cmdRemove", "Remove Template"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};
};

}  // namespace tolmen
