// Stand-ins that a test may put in place of routines of the start-up and of a run, so that the
// shell or the run driver can be tested without a Maximizer, a template file or a client list.
// The product never fills them.
//
// The routines below hand over to their stand-in themselves: when a member is filled, every
// caller of that routine gets the stand-in; when it is empty, the routine does its own work.
//
// The last group names routines whose modules are not built yet. Their callers take the step
// only when a test has filled the member; until the module lands, the step is left out (a
// check passes, nothing is closed or looked at).
#pragma once

#include <functional>
#include <string>

namespace tolmen {

struct RunStages {
  std::function<bool()> OpenMaximizerOLE;  // maximizer/OpenMaximizer.h
  std::function<bool(const std::string& path, bool parts)>
      TemplateOpen;                                           // templates/TemplateFile.h
  std::function<void(const std::string& path)> TemplateSave;  // templates/TemplateFile.h
  std::function<void()> SetOptions;                           // templates/SetOptions.h
  std::function<void()> FillToPastelLists;                    // transfer/Categories.h
  std::function<void()> TransferClients;                      // transfer/TransferClients.h
  std::function<bool()> CheckRecurringBilling;                // billing/BillingSetup.h
  std::function<bool()> CheckCasualBilling;                   // billing/CasualBilling.h

  // Not built yet: none at present.
};

}  // namespace tolmen
