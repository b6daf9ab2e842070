// What is known of the open Pastel set of accounts: its folder, product and version, the ageing
// and current periods, the company's name, and the formats shown for it.
#pragma once

#include <string>

namespace tolmen {

struct PastelSetState {
  std::string PastelDataPath;  // with a trailing '/'
  std::string PastelProduct;   // "Pastel Accounting 2007 (9)"
  std::string PastelVersion;   // "9.1.5"
  int AgingPeriod = 0;
  int CurrentPeriod = 0;
  // Periods in the financial year: 13 when the set's period-13 switch is on, else 12.
  int PeriodsInYear = 12;
  double CurrentPeriodEnd = 0;
  std::string PastelCompanyName;
  std::string PastelFirstUserTag;  // field 3 of the user file's first record; kept, never read
  std::string PastelNumberFormat;  // "\R,###,##0.00", for display
  std::string PastelDateMask;      // "##/##/####", for display
};

}  // namespace tolmen
